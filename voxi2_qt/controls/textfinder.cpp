#include "textfinder.h"

#include "voxi2_qt/kernel/qtconvert.h"
#include "widepositions.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace VOXI {

namespace {

bool isWordCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('_') || character.isSurrogate();
}

TextFinder::Match moved(TextFinder::Match match, int by)
{
    match.m_from += by;
    return match;
}

TextFinder::Match matchOf(const QRegularExpressionMatch& match)
{
    return {static_cast<int>(match.capturedStart()), static_cast<int>(match.capturedLength()),
            match.capturedTexts()};
}

} // namespace

TextFinder::TextFinder(const QTextDocument& document, const TextSearch& search)
    : m_document(document),
      m_search(search),
      m_text(toQString(search.text)),
      m_case(search.caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive),
      m_isAcrossLines(!search.isExpression && m_text.contains(QLatin1Char('\n')))
{
    if (!search.isExpression)
        return;
    QRegularExpression::PatternOptions options = QRegularExpression::UseUnicodePropertiesOption;
    if (!search.caseSensitive)
        options |= QRegularExpression::CaseInsensitiveOption;
    m_expression.setPatternOptions(options);
    m_expression.setPattern(
        search.wholeWords ? QLatin1String("\\b(?:") + m_text + QLatin1String(")\\b") : m_text);
}

bool TextFinder::isNothing() const
{
    return m_text.isEmpty() || (m_search.isExpression && !m_expression.isValid());
}

std::optional<TextFinder::Match> TextFinder::find(int from) const
{
    if (isNothing())
        return std::nullopt;
    const int end = m_document.characterCount() - 1;
    auto found = m_search.isBackward ? previous(from) : next(from);
    if (!found && m_search.wraps)
        found = m_search.isBackward ? previous(end) : next(0);
    return found;
}

QTextCursor TextFinder::select(const QTextCursor& from) const
{
    const auto found = find(m_search.isBackward ? from.selectionStart() : from.selectionEnd());
    if (!found)
        return {};
    QTextCursor selection(from);
    selection.setPosition(found->m_from);
    selection.setPosition(found->m_from + found->m_length, QTextCursor::KeepAnchor);
    return selection;
}

std::optional<TextFinder::Match> TextFinder::matchAt(int from, int length) const
{
    if (isNothing() || length <= 0)
        return std::nullopt;
    const auto found = next(from);
    return found && found->m_from == from && found->m_length == length ? found : std::nullopt;
}

std::vector<TextFinder::Match> TextFinder::all() const
{
    std::vector<Match> found;
    if (isNothing())
        return found;
    const auto collect = [&](const QString& text, int place) {
        qsizetype from = 0;
        while (const auto match = nextIn(text, from)) {
            found.push_back(moved(*match, place));
            from = match->m_from + match->m_length;
        }
    };
    if (m_isAcrossLines) {
        collect(textBetween(m_document, 0, m_document.characterCount()), 0);
    } else {
        for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next())
            collect(block.text(), block.position());
    }
    return found;
}

QString TextFinder::replacement(const Match& match, const QString& text) const
{
    if (!m_search.isExpression)
        return text;
    QString made;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isEscape = text[i] == QLatin1Char('\\') && i + 1 < text.size();
        if (isEscape && text[i + 1] == QLatin1Char('\\'))
            made += text[++i];
        else if (isEscape && text[i + 1] >= QLatin1Char('0') && text[i + 1] <= QLatin1Char('9'))
            made += match.m_groups.value(text[++i].digitValue());
        else
            made += text[i];
    }
    return made;
}

std::optional<TextFinder::Match> TextFinder::next(int from) const
{
    if (m_isAcrossLines)
        return nextIn(textBetween(m_document, 0, m_document.characterCount()), from);
    for (QTextBlock block = m_document.findBlock(from); block.isValid(); block = block.next()) {
        if (const auto found = nextIn(block.text(), std::max(from - block.position(), 0)))
            return moved(*found, block.position());
    }
    return std::nullopt;
}

std::optional<TextFinder::Match> TextFinder::previous(int from) const
{
    if (m_isAcrossLines)
        return lastIn(textBetween(m_document, 0, m_document.characterCount()), from);
    for (QTextBlock block = m_document.findBlock(from); block.isValid(); block = block.previous()) {
        if (const auto found = lastIn(block.text(), from - block.position()))
            return moved(*found, block.position());
    }
    return std::nullopt;
}

/// What is nothing is not found: there is nothing to select, and no way on from it.
std::optional<TextFinder::Match> TextFinder::nextIn(const QString& text, qsizetype from) const
{
    if (from > text.size())
        return std::nullopt;
    if (m_search.isExpression) {
        auto matches = m_expression.globalMatch(text, from);
        while (matches.hasNext()) {
            if (const auto match = matches.next(); match.capturedLength() > 0)
                return matchOf(match);
        }
        return std::nullopt;
    }
    for (qsizetype at = text.indexOf(m_text, from, m_case); at >= 0;
         at = text.indexOf(m_text, at + 1, m_case)) {
        if (isWord(text, at))
            return Match{static_cast<int>(at), static_cast<int>(m_text.size())};
    }
    return std::nullopt;
}

std::optional<TextFinder::Match> TextFinder::lastIn(const QString& text, qsizetype end) const
{
    if (m_search.isExpression) {
        std::optional<Match> last;
        auto matches = m_expression.globalMatch(text);
        while (matches.hasNext()) {
            const auto match = matches.next();
            if (match.capturedEnd() > end)
                break;
            if (match.capturedLength() > 0)
                last = matchOf(match);
        }
        return last;
    }
    // Qt counts negative places from the end.
    for (qsizetype at = std::min(end, text.size()) - m_text.size(); at >= 0; --at) {
        at = text.lastIndexOf(m_text, at, m_case);
        if (at < 0)
            break;
        if (isWord(text, at))
            return Match{static_cast<int>(at), static_cast<int>(m_text.size())};
    }
    return std::nullopt;
}

bool TextFinder::isWord(const QString& text, qsizetype from) const
{
    const qsizetype end = from + m_text.size();
    return !m_search.wholeWords
           || ((from == 0 || !isWordCharacter(text[from - 1]))
               && (end == text.size() || !isWordCharacter(text[end])));
}

} // namespace VOXI
