#include "textcoloring.h"

#include "textposition.h"
#include "textstyle.h"

#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QTimerEvent>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

constexpr int MostUnits = 256 * 1024;    ///< of a text that is asked about
constexpr std::size_t MostChanges = 500; ///< that an answer is carried over

int endOf(const QTextBlock& block) { return block.position() + block.length(); }

} // namespace

TextColoring::TextColoring(QTextEdit& area, IsHeard isHeard, Ask ask)
    : QObject(&area),
      m_area(area),
      m_isHeard(std::move(isHeard)),
      m_ask(std::move(ask))
{}

QTextDocument& TextColoring::text() const { return *m_area.document(); }

// Asking ------------------------------------------------------------------------------------------

void TextColoring::look()
{
    if (!m_query && !m_timer.isActive())
        m_timer.start(0, this);
}

void TextColoring::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId())
        return;
    m_timer.stop();
    if (!m_query && m_isHeard())
        askForSeen();
}

void TextColoring::restart()
{
    m_right.clear();
    m_query.reset();
    look();
}

bool TextColoring::isRight(const QTextBlock& block) const
{
    return std::any_of(m_right.begin(), m_right.end(), [&](const Part& part) {
        return part.m_from <= block.position() && endOf(block) <= part.m_end;
    });
}

/// As many lines below as are in sight, too: they will be.
void TextColoring::askForSeen()
{
    QTextBlock first = m_area.cursorForPosition({0, 0}).block();
    const QTextBlock lastSeen = m_area.cursorForPosition({0, m_area.viewport()->height()}).block();
    const int lines = lastSeen.blockNumber() - first.blockNumber() + 1;
    while (first != lastSeen && isRight(first))
        first = first.next();
    if (isRight(first))
        return;
    Query query;
    query.m_id = ++m_lastId;
    query.m_from = first.position();
    const int lastLine = lastSeen.blockNumber() + lines;
    for (QTextBlock block = first; block.isValid() && block.blockNumber() <= lastLine;
         block = block.next()) {
        if (block != first && query.m_text.size() + block.length() > MostUnits)
            break;
        if (block != first)
            query.m_text += QLatin1Char('\n');
        query.m_text += QStringView(block.text()).left(MostUnits);
        query.m_end = endOf(block);
    }
    const unsigned id = query.m_id;
    const QString asked = query.m_text;
    m_query = std::move(query);
    m_ask(id, first.blockNumber(), asked);
}

// Changes -----------------------------------------------------------------------------------------

void TextColoring::change(int from, int removed, int added)
{
    if (m_isApplying)
        return;
    const int line = text().findBlock(from).position();
    std::erase_if(m_right, [line](const Part& part) { return part.m_from >= line; });
    if (!m_right.empty())
        m_right.back().m_end = std::min(m_right.back().m_end, line);
    if (m_query)
        m_query->m_since.push_back({from, removed, added});
    if (m_query && m_query->m_since.size() > MostChanges)
        m_query.reset();
    shiftFormats(from, removed, added);
}

/// Colours stay with their characters while somebody types in a line.
void TextColoring::shiftFormats(int from, int removed, int added) const
{
    const QTextBlock block = text().findBlock(from);
    if (from + added >= endOf(block))
        return;
    QTextLayout& layout = *block.layout();
    Formats formats = layout.formats();
    const int place = from - block.position();
    for (QTextLayout::FormatRange& format : formats) {
        const int end = format.start + format.length;
        if (format.start >= place + removed && format.start > 0)
            format.start += added - removed;
        else if (end > place)
            format.length = std::max(format.length + added - removed, 0);
    }
    if (formats != layout.formats())
        layout.setFormats(formats);
}

// Answers -----------------------------------------------------------------------------------------

void TextColoring::answer(unsigned query, const std::vector<TextSpan>& spans)
{
    if (!m_query || m_query->m_id != query)
        return;
    const Query asked = *std::exchange(m_query, std::nullopt);
    apply(asked, spans);
    look();
}

/// Where a part is after the changes; nowhere when they have been in it.
std::optional<TextColoring::Part> TextColoring::moved(Part part, const std::vector<Change>& changes)
{
    for (const Change& change : changes) {
        if (part.m_end <= change.m_from)
            continue;
        if (part.m_from < change.m_from + change.m_removed || part.m_from < change.m_from)
            return std::nullopt;
        part.m_from += change.m_added - change.m_removed;
        part.m_end += change.m_added - change.m_removed;
    }
    return part;
}

/// The spans' places in the text that was asked about, in units.
std::vector<TextColoring::Part> TextColoring::partsOf(const Query& query,
                                                      const std::vector<TextSpan>& spans)
{
    // They may come in any order, of which nothing must depend on the length of the text.
    std::vector<qint64> places;
    places.reserve(spans.size() * 2);
    for (const TextSpan& span : spans) {
        const qint64 start = span.range.start;
        const qint64 end = start + span.range.length;
        places.push_back(std::min(start, end));
        places.push_back(std::max(start, end));
    }
    std::vector<std::size_t> order(places.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return places[a] < places[b]; });
    const QStringView text = query.m_text;
    std::vector<int> units(places.size());
    qint64 character = 0;
    int unit = 0;
    for (const std::size_t index : order) {
        const qint64 wanted = std::clamp<qint64>(places[index], 0, text.size());
        unit += fromWidePosition(text.sliced(unit), wanted - character);
        character = wanted;
        units[index] = unit;
    }
    std::vector<Part> parts;
    parts.reserve(spans.size());
    for (std::size_t i = 0; i < spans.size(); ++i)
        parts.push_back({units[2 * i], units[2 * i + 1]});
    return parts;
}

void TextColoring::apply(const Query& query, const std::vector<TextSpan>& spans)
{
    // By lines of the text that was asked about.
    std::vector<Part> lines;
    for (int from = 0; from <= query.m_text.size();) {
        const qsizetype end = query.m_text.indexOf(QLatin1Char('\n'), from);
        const int stop = static_cast<int>(end < 0 ? query.m_text.size() : end);
        lines.push_back({from, stop});
        from = stop + 1;
    }
    std::vector<Formats> formats(lines.size());
    const std::vector<Part> parts = partsOf(query, spans);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Part part = parts[i];
        auto line = std::upper_bound(lines.begin(), lines.end(), part.m_from,
                                     [](int at, const Part& other) { return at < other.m_from; });
        for (line = std::prev(line); line != lines.end() && line->m_from < part.m_end; ++line) {
            const int from = std::max(part.m_from, line->m_from);
            const int end = std::min(part.m_end, line->m_end);
            if (from < end)
                formats[static_cast<std::size_t>(line - lines.begin())].push_back(
                    {from - line->m_from, end - from, VX2Qt(spans[i].style)});
        }
    }

    // What is right reaches to the first change.
    Part right{query.m_from, query.m_end};
    for (const Change& change : query.m_since)
        right.m_end = std::min(right.m_end, text().findBlock(change.m_from).position());
    const QScopedValueRollback<bool> applying(m_isApplying, true);
    std::optional<Part> dirty;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const int from = query.m_from + lines[i].m_from;
        const auto now = moved({from, query.m_from + lines[i].m_end + 1}, query.m_since);
        if (!now)
            continue;
        const QTextBlock block = text().findBlock(now->m_from);
        if (!block.isValid() || block.position() != now->m_from
            || block.layout()->formats() == formats[i])
            continue;
        block.layout()->setFormats(formats[i]);
        dirty = {dirty ? std::min(dirty->m_from, block.position()) : block.position(),
                 std::max(dirty ? dirty->m_end : 0, endOf(block))};
    }
    if (dirty)
        text().markContentsDirty(dirty->m_from, dirty->m_end - dirty->m_from - 1);
    if (right.m_from < right.m_end)
        setRight(right);
}

void TextColoring::setRight(Part part)
{
    std::erase_if(m_right, [&](const Part& other) {
        const bool touches = other.m_from <= part.m_end && part.m_from <= other.m_end;
        if (touches)
            part = {std::min(part.m_from, other.m_from), std::max(part.m_end, other.m_end)};
        return touches;
    });
    const auto place =
        std::upper_bound(m_right.begin(), m_right.end(), part.m_from,
                         [](int from, const Part& other) { return from < other.m_from; });
    m_right.insert(place, part);
}

} // namespace VOXI
