// What the application answers, and which answers have become old.

#include "qtviewmodel2.h"
#include "voxi2_qt/kernel/qtenums.h"

#include <algorithm>
#include <limits>
#include <map>
#include <utility>

namespace VOXI {

namespace {

/// From the least to the greatest.
struct Span
{
    int first = std::numeric_limits<int>::max();
    int last = -1;

    void add(int place)
    {
        first = std::min(first, place);
        last = std::max(last, place);
    }
    bool isEmpty() const { return last < 0; }
};

} // namespace

/// What a view has to paint anew.
struct QtViewModel2::Footprint
{
    Uid parent;
    Span rows;
    Span columns;
};

void QtViewModel2::repaint(const Footprint& footprint)
{
    if (footprint.rows.isEmpty() || footprint.columns.isEmpty())
        return;
    const auto corner = [&](int row, int column) {
        return indexAt(row, column, m_rows.at(footprint.parent, row));
    };
    Q_EMIT dataChanged(corner(footprint.rows.first, footprint.columns.first),
                       corner(footprint.rows.last, footprint.columns.last));
}

void QtViewModel2::handleQueryResult(const QueryResult2& result)
{
    const auto answered = m_queries.takeCells(result.query().id());
    if (!answered)
        return;
    Footprint footprint{answered->query.parent(), {}, {}};
    if (!result.cells().empty()) {
        addExpanders(result, footprint);
        addCells(result, footprint);
        noteVain(answered->query);
        m_queries.askAnew(*answered);
        trim();
    } else {
        // Then they are asked for when they are looked at.
        const ViewQuery2& query = answered->query;
        if (answered->isRefresh || answered->isOld)
            m_cells.removeRows(query.rows(), query.columns());
        // If they have come into sight since, nobody else would have them painted.
        if (result.isDropped() && query.isWanted()) {
            for (const Uid row : query.rows())
                addRow(row, footprint);
            for (const Uid column : query.columns())
                addColumn(column, footprint);
        }
    }
    repaint(footprint);
}

/// Rows that are under another parent by now are no part of it.
void QtViewModel2::addRow(Uid row, Footprint& footprint) const
{
    const RowForest::Place place = m_rows.placeOf(row);
    if (place.row >= 0 && place.parent == footprint.parent)
        footprint.rows.add(place.row);
}

void QtViewModel2::addColumn(Uid column, Footprint& footprint) const
{
    if (const int place = columnFromUID(column); place >= 0)
        footprint.columns.add(place);
}

void QtViewModel2::addExpanders(const QueryResult2& result, Footprint& footprint)
{
    using HasChildren = RowForest::HasChildren;
    for (const auto& [row, hasChildren] : result.expanders()) {
        const HasChildren answer = hasChildren ? HasChildren::Yes : HasChildren::No;
        if (m_rows.hasChildren(row) == answer || !m_rows.contains(row))
            continue;
        m_rows.setHasChildren(row, answer);
        addRow(row, footprint);
        // Trees draw it beside the first.
        if (m_columns.count() > 0)
            footprint.columns.add(0);
    }
}

void QtViewModel2::addCells(const QueryResult2& result, Footprint& footprint)
{
    std::vector<CellCache::News> news;
    news.reserve(result.cells().size());
    for (const auto& [row, column, data] : result.cells()) {
        const RowForest::Place place = m_rows.placeOf(row);
        const int columnPlace = columnFromUID(column);
        if (place.row < 0 || columnPlace < 0)
            continue;
        news.push_back({{row, column}, &data});
        if (place.parent == footprint.parent) {
            footprint.rows.add(place.row);
            footprint.columns.add(columnPlace);
        }
    }
    m_cells.insert(news);
}

void QtViewModel2::noteVain(const ViewQuery2& query)
{
    for (const Uid row : query.rows()) {
        for (const Uid column : query.columns()) {
            if (!m_cells.peek({row, column}))
                m_queries.addVain({row, column});
        }
    }
}

void QtViewModel2::handleHeaderQueryResult(const HeaderQueryResult2& result)
{
    const auto answered = m_queries.takeSections(result.query().id());
    if (!answered)
        return;
    const Qt::Orientation orientation = VX2Qt(answered->query.orientation());
    Span changed;
    std::vector<CellCache::News> news;
    const auto add = [&](Uid section, const CellUIData& data) {
        const int place = headerSectionFromUID(section, orientation);
        if (place < 0)
            return;
        changed.add(place);
        news.push_back({sectionCell(section, orientation), &data});
    };
    if (result.isDropped()) {
        for (const Uid section : answered->query.sections()) {
            changed.add(headerSectionFromUID(section, orientation));
            const Cell cell = sectionCell(section, orientation);
            m_sections.removeRows({&cell.row, 1}, {&cell.column, 1});
        }
    } else {
        static const CellUIData numbered = CellUIData().setRenderer(NumberedSection);
        for (const Uid section : answered->query.sections())
            add(section, numbered);
        for (const auto& [section, data] : result.sections())
            add(section, data);
        m_sections.insert(news);
        m_queries.askAnew(*answered);
        trim();
    }
    if (!changed.isEmpty())
        Q_EMIT headerDataChanged(orientation, std::max(changed.first, 0), changed.last);
}

// Changes -----------------------------------------------------------------------------------------

void QtViewModel2::doClearCachedUIData()
{
    m_cells.clear();
    m_queries.cellsAreOld();
}

void QtViewModel2::doClearCachedHeaderUIData()
{
    m_sections.clear();
    m_queries.sectionsAreOld();
}

void QtViewModel2::handleDataChanged(const VXDataChangeEvent2& event)
{
    const DataChanges& changes = event.dataChanges();
    m_queries.cellsAreOld([&](const ViewQuery2& query) {
        return std::any_of(query.rows().begin(), query.rows().end(), [&](Uid row) {
            const auto found = changes.find(row);
            return found != changes.end()
                   && std::any_of(query.columns().begin(), query.columns().end(),
                                  [&](Uid column) { return found->second.contains(column); });
        });
    });
    // What is not known is asked for when it is looked at.
    std::map<Uid, std::pair<Uids, std::set<Uid>>> byParent;
    for (const auto& [row, columns] : changes) {
        Uids known;
        std::copy_if(columns.begin(), columns.end(), std::back_inserter(known),
                     [&, row = row](Uid column) {
                         return m_cells.peek({row, column});
                     });
        if (known.empty())
            continue;
        auto& [rows, allColumns] = byParent[parentRow(row)];
        rows.push_back(row);
        allColumns.insert(known.begin(), known.end());
    }
    for (auto& [parent, cells] : byParent)
        m_queries.ask(parent, std::move(cells.first), {cells.second.begin(), cells.second.end()});
}

void QtViewModel2::handleHeaderChanged(const std::vector<unsigned>& sections)
{
    const std::set<Uid> changed(sections.begin(), sections.end());
    m_queries.sectionsAreOld([&](const HeaderQuery2& query) {
        return std::any_of(query.sections().begin(), query.sections().end(),
                           [&](Uid section) { return changed.contains(section); });
    });
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        Uids known;
        std::copy_if(changed.begin(), changed.end(), std::back_inserter(known), [&](Uid section) {
            return m_sections.peek(sectionCell(section, orientation));
        });
        m_queries.askSections(Qt2VX(orientation), std::move(known));
    }
}

// What is remembered ------------------------------------------------------------------------------

void QtViewModel2::setInSight(Uids rows, Uids columns)
{
    m_rowsInSight = rows;
    m_columnsInSight = columns;
    m_queries.forgetVain();
    m_queries.link().setInSight(std::move(rows), std::move(columns));
}

void QtViewModel2::trim()
{
    std::vector<Cell> inSight;
    if (m_cells.isTooLarge()) {
        for (const Uid row : m_rowsInSight) {
            for (const Uid column : m_columnsInSight)
                inSight.push_back({row, column});
        }
        m_cells.trim(inSight);
    }
    if (m_sections.isTooLarge()) {
        inSight.clear();
        for (const Uid row : m_rowsInSight)
            inSight.push_back({row, 0});
        for (const Uid column : m_columnsInSight)
            inSight.push_back({0, column});
        m_sections.trim(inSight);
    }
}

} // namespace VOXI
