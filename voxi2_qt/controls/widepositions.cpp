#include "widepositions.h"

#include "textposition.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <numeric>

namespace VOXI {

namespace {

constexpr int PieceLength = 4096;
constexpr bool AreSame = sizeof(wchar_t) == sizeof(QChar);

bool isPairAt(QStringView text, qsizetype at)
{
    return text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
}

bool hasPair(const QTextDocument& document, int from, int to)
{
    // One may come about at either side.
    const int begin = std::max(from - 1, 0);
    for (QTextBlock block = document.findBlock(begin); block.isValid() && block.position() <= to;
         block = block.next()) {
        const QString line = block.text();
        const qsizetype first = std::max(begin - block.position(), 0);
        const qsizetype end = std::min<qsizetype>(to + 1 - block.position(), line.size());
        for (qsizetype i = first; i < end; ++i) {
            if (isPairAt(line, i))
                return true;
        }
    }
    return false;
}

} // namespace

QString textBetween(const QTextDocument& document, int from, int to)
{
    QString text;
    const int end = std::min(to, document.characterCount() - 1);
    QTextBlock block = document.findBlock(std::max(from, 0));
    if (!block.isValid() || from >= end)
        return text;
    text.reserve(end - from);
    for (int at = std::max(from, 0); at < end; block = block.next()) {
        const int start = at - block.position();
        const int length = std::min(end - at, block.length() - 1 - start);
        text += QStringView(block.text()).sliced(start, length);
        at += length;
        if (at < end) {
            text += QLatin1Char('\n');
            ++at;
        }
    }
    return text;
}

void WidePositions::reset(const QTextDocument& document)
{
    m_length = 0;
    m_pieces.clear();
    change(document, 0, 0, document.characterCount());
}

void WidePositions::change(const QTextDocument& document, int from, int removed, int added)
{
    const int length = document.characterCount() - 1;
    const int gone = std::min(removed, m_length - from);
    const int come = std::min(added, length - from);
    const int formerLength = m_length;
    m_length = length;
    if (AreSame || (m_pieces.empty() && !hasPair(document, from, from + come)))
        return;
    if (m_pieces.empty())
        m_pieces.push_back({formerLength, 0});

    // The pieces that are touched, also at their ends: a pair may have come about between them.
    std::size_t first = 0;
    int begin = 0;
    while (first + 1 < m_pieces.size() && begin + m_pieces[first].m_units < from)
        begin += m_pieces[first++].m_units;
    std::size_t end = first;
    int units = 0;
    while (end < m_pieces.size() && begin + units <= from + gone)
        units += m_pieces[end++].m_units;

    const QString text = textBetween(document, begin, begin + units - gone + come);
    std::vector<Piece> made;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype stop = std::min<qsizetype>(at + PieceLength, text.size());
        if (stop < text.size() && isPairAt(text, stop - 1))
            ++stop;
        Piece piece{static_cast<int>(stop - at), 0};
        for (qsizetype i = at; i < stop; ++i)
            piece.m_pairs += isPairAt(text, i);
        made.push_back(piece);
        at = stop;
    }
    const auto place = m_pieces.begin();
    const auto behind = m_pieces.erase(place + static_cast<std::ptrdiff_t>(first),
                                       place + static_cast<std::ptrdiff_t>(end));
    m_pieces.insert(behind, made.begin(), made.end());
    if (pairs() == 0)
        m_pieces.clear();
}

int WidePositions::pairs() const noexcept
{
    return std::accumulate(m_pieces.begin(), m_pieces.end(), 0,
                           [](int sum, const Piece& piece) { return sum + piece.m_pairs; });
}

int WidePositions::toWide(const QTextDocument& document, qint64 unit) const
{
    const int inside = static_cast<int>(std::clamp<qint64>(unit, 0, m_length));
    int begin = 0;
    int pairs = 0;
    for (const Piece& piece : m_pieces) {
        if (begin + piece.m_units > inside)
            return begin - pairs
                   + toWidePosition(textBetween(document, begin, inside), inside - begin);
        begin += piece.m_units;
        pairs += piece.m_pairs;
    }
    return inside - pairs;
}

int WidePositions::fromWide(const QTextDocument& document, qint64 character) const
{
    const qint64 inside = std::max<qint64>(character, 0);
    int begin = 0;
    qint64 characters = 0;
    for (const Piece& piece : m_pieces) {
        const int count = piece.m_units - piece.m_pairs;
        if (characters + count > inside) {
            const QString text = textBetween(document, begin, begin + piece.m_units);
            return begin + fromWidePosition(text, inside - characters);
        }
        begin += piece.m_units;
        characters += count;
    }
    return static_cast<int>(std::min<qint64>(begin + inside - characters, m_length));
}

} // namespace VOXI
