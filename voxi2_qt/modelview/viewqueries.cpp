#include "viewqueries.h"

#include <QtGlobal>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

constexpr int BlockSize = 10;
constexpr int HeaderBlockSize = 100;
constexpr int AskedInVain = 2;

int firstOfBlock(int place, int size) { return place / size * size; }

/// The UIDs of a block, by a function from place to UID.
template <class At>
ViewQueries::Uids uidsOf(int first, int size, int count, const At& at)
{
    const int end = std::min(first + size, count);
    ViewQueries::Uids uids;
    uids.reserve(static_cast<std::size_t>(end - first));
    for (int place = first; place < end; ++place)
        uids.push_back(at(place));
    return uids;
}

std::size_t hashOf(unsigned seed, const ViewQueries::Uids& some,
                   const ViewQueries::Uids& others = {})
{
    const std::size_t hash = qHashRange(some.begin(), some.end(), seed);
    return qHashRange(others.begin(), others.end(), hash);
}

/// Whether the same is on its way; then its answer may be too old.
template <class Pendings, class IsSame>
bool markSame(Pendings& pendings, std::size_t hash, bool isOld, const IsSame& isSame)
{
    auto* const pending = pendings.find(hash, isSame);
    if (pending)
        pending->isOld = pending->isOld || isOld;
    return pending;
}

} // namespace

void ViewQueries::askAround(Uid row, int column)
{
    const RowForest::Place place = m_rows.placeOf(row);
    if (place.row < 0 || column >= m_columns.count())
        return;
    const Block block{place.parent, firstOfBlock(place.row, BlockSize),
                      firstOfBlock(column, BlockSize)};
    if (block == m_lastBlock || m_vain.value({row, m_columns.at(column)}) >= AskedInVain)
        return;
    m_lastBlock = block;
    send(place.parent,
         uidsOf(block.row, BlockSize, m_rows.rowCount(place.parent),
                [&](int at) { return m_rows.at(place.parent, at); }),
         uidsOf(block.column, BlockSize, m_columns.count(),
                [&](int at) { return m_columns.at(at); }),
         false);
}

void ViewQueries::ask(Uid parent, Uids rows, Uids columns)
{
    send(parent, std::move(rows), std::move(columns), true);
}

void ViewQueries::askAroundSection(int section, Orientation orientation)
{
    const bool isColumn = orientation == Orientation::Horizontal;
    const int first = firstOfBlock(section, HeaderBlockSize);
    if (std::exchange(m_lastSections[isColumn], first) == first)
        return;
    const auto at = [&](int place) { return isColumn ? m_columns.at(place) : m_rows.at(0, place); };
    sendHeader(
        orientation,
        uidsOf(first, HeaderBlockSize, isColumn ? m_columns.count() : m_rows.rowCount(0), at),
        false);
}

void ViewQueries::askSections(Orientation orientation, Uids sections)
{
    sendHeader(orientation, std::move(sections), true);
}

/// `hasChanged`: what the same query on its way is answered may be old.
void ViewQueries::send(Uid parent, Uids rows, Uids columns, bool hasChanged)
{
    const std::size_t hash = hashOf(parent, rows, columns);
    const auto isSame = [&](const ViewQuery2& query) {
        return query.parent() == parent && query.rows() == rows && query.columns() == columns;
    };
    if (rows.empty() || columns.empty() || markSame(m_pending, hash, hasChanged, isSame))
        return;
    Uids expanders = expanderRows(rows);
    const ViewQuery2 query =
        m_link.ask(parent, std::move(rows), std::move(expanders), std::move(columns));
    if (query.id() != 0)
        m_pending.add(hash, query, hasChanged);
}

void ViewQueries::sendHeader(Orientation orientation, Uids sections, bool hasChanged)
{
    const std::size_t hash = hashOf(unsigned(orientation), sections);
    const auto isSame = [&](const HeaderQuery2& query) {
        return query.orientation() == orientation && query.sections() == sections;
    };
    if (sections.empty() || markSame(m_pendingSections, hash, hasChanged, isSame))
        return;
    const HeaderQuery2 query = m_link.askHeader(orientation, std::move(sections));
    if (query.id() != 0)
        m_pendingSections.add(hash, query, hasChanged);
}

ViewQueries::Uids ViewQueries::expanderRows(const Uids& rows) const
{
    Uids unknown;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(unknown), [this](Uid row) {
        return m_rows.hasChildren(row) == RowForest::HasChildren::Unknown
               && m_rows.rowCount(row) == 0;
    });
    return unknown;
}

std::optional<ViewQueries::PendingCells::Pending> ViewQueries::takeCells(unsigned id)
{
    m_lastBlock = {};
    return m_pending.take(id);
}

std::optional<ViewQueries::PendingSections::Pending> ViewQueries::takeSections(unsigned id)
{
    m_lastSections = NoSections;
    return m_pendingSections.take(id);
}

void ViewQueries::askAnew(const PendingCells::Pending& answered)
{
    const bool isAnother = std::any_of(answered.lost.begin(), answered.lost.end(),
                                       [this](Uid row) { return m_rows.contains(row); });
    if (!answered.isOld && !isAnother)
        return;
    const Uid parent = answered.query.parent();
    Uids rows = answered.query.rows();
    std::erase_if(rows, [&](Uid row) {
        const RowForest::Place place = m_rows.placeOf(row);
        return place.row < 0 || place.parent != parent;
    });
    Uids columns = answered.query.columns();
    std::erase_if(columns, [this](Uid column) { return m_columns.placeOf(column) < 0; });
    ask(parent, std::move(rows), std::move(columns));
}

void ViewQueries::askAnew(const PendingSections::Pending& answered)
{
    if (answered.isOld)
        askSections(answered.query.orientation(), answered.query.sections());
}

void ViewQueries::forgetVain()
{
    m_vain.clear();
    m_lastBlock = {};
    m_lastSections = NoSections;
}

void ViewQueries::cellsAreOld()
{
    cellsAreOld([](const ViewQuery2&) { return true; });
}

void ViewQueries::sectionsAreOld()
{
    sectionsAreOld([](const HeaderQuery2&) { return true; });
}

void ViewQueries::shapeChanged()
{
    forgetVain();
    m_pending.forEach([this](PendingCells::Pending& pending) {
        for (const Uid row : pending.query.rows()) {
            if (!m_rows.contains(row))
                pending.lost.push_back(row);
        }
    });
}

} // namespace VOXI
