// The part of QtAbstractView2 that is about columns and their header.

#include "../kernel/qtignored.h"
#include "qtsavedcolumns.h"
#include "qtviewheader.h"
#include "qtviewmodel2.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/modelview/qtabstractview2.h"

#include <QHeaderView>

#include <algorithm>

namespace VOXI {

namespace {

using E = VXAbstractView2Emitters;

const QtViewHeader& own(const QHeaderView& header)
{
    return static_cast<const QtViewHeader&>(header);
}

} // namespace

// Requests ----------------------------------------------------------------------------------------

void QtAbstractView2::doSetColumnWidth(unsigned column, int width)
{
    const int section = askedForColumn(column);
    if (section < 0)
        return;
    const int bounded = std::clamp(width, 0, columnHeader().maximumSectionSize());
    if (const auto hidden = m_hiddenWidths.find(column); hidden != m_hiddenWidths.end())
        hidden->second = bounded;
    columnHeader().resizeSection(section, bounded);
}

int QtAbstractView2::doColumnWidth(unsigned column)
{
    const int section = columnSection(column);
    return section < 0 ? 0 : columnHeader().sectionSize(section);
}

void QtAbstractView2::doSetColumnVisible(unsigned column, bool visible)
{
    const int section = askedForColumn(column);
    if (section < 0 || visible == !columnHeader().isSectionHidden(section))
        return;
    if (visible)
        m_hiddenWidths.erase(column);
    else
        m_hiddenWidths[column] = columnHeader().sectionSize(section);
    columnHeader().setSectionHidden(section, !visible);
}

bool QtAbstractView2::doIsColumnVisible(unsigned column)
{
    const int section = columnSection(column);
    return section >= 0 && !columnHeader().isSectionHidden(section);
}

void QtAbstractView2::doSetColumnHeaderVisible(bool visible) { columnHeader().setHidden(!visible); }
bool QtAbstractView2::doIsColumnHeaderVisible() { return !columnHeader().isHidden(); }

void QtAbstractView2::doSetColumnMovable(bool movable)
{
    columnHeader().setSectionsMovable(movable);
    columnHeader().setFirstSectionMovable(movable); // in trees it is not, by itself
}

bool QtAbstractView2::doIsColumnMovable() { return columnHeader().sectionsMovable(); }

void QtAbstractView2::doSetSortIndicator(SortIndicator indicator)
{
    if (indicator.column != 0 && askedForColumn(indicator.column) < 0)
        return;
    m_sort = indicator.column != 0 ? indicator : SortIndicator();
    showSortIndicator();
}

SortIndicator QtAbstractView2::doGetSortIndicator() { return m_sort; }

void QtAbstractView2::doSetHeaderClickable(bool clickable)
{
    columnHeader().setSectionsClickable(clickable);
}

bool QtAbstractView2::doIsHeaderClickable() { return columnHeader().sectionsClickable(); }

void QtAbstractView2::doSetColumnOrder(const std::vector<unsigned>& columns)
{
    int place = 0;
    for (const unsigned column : columns) {
        const int section = askedForColumn(column);
        if (section >= 0 && columnHeader().visualIndex(section) >= place)
            columnHeader().moveSection(columnHeader().visualIndex(section), place++);
    }
}

std::vector<unsigned> QtAbstractView2::doGetColumnOrder()
{
    std::vector<unsigned> columns;
    columns.reserve(static_cast<std::size_t>(columnHeader().count()));
    for (int visual = 0; visual < columnHeader().count(); ++visual)
        columns.push_back(
            m_model->headerUIDFromSection(columnHeader().logicalIndex(visual), Qt::Horizontal));
    return columns;
}

std::string QtAbstractView2::doSaveHeaderState()
{
    QtSavedColumns saved;
    saved.sort = m_sort;
    for (const unsigned column : doGetColumnOrder()) {
        const auto hidden = m_hiddenWidths.find(column);
        const bool isHidden = hidden != m_hiddenWidths.end();
        saved.columns.push_back(
            {column, isHidden ? hidden->second : doColumnWidth(column), isHidden});
    }
    return saved.toText();
}

void QtAbstractView2::doRestoreHeaderState(const std::string& state)
{
    const auto saved = QtSavedColumns::fromText(state);
    if (!saved) {
        ignored(*this, "that is no text of saveHeaderState, or not all of it");
        return;
    }
    std::vector<unsigned> order;
    for (const QtSavedColumns::Column& column : saved->columns) {
        if (columnSection(column.uid) < 0)
            continue;
        order.push_back(column.uid);
        doSetColumnVisible(column.uid, true);
        doSetColumnWidth(column.uid, column.width);
        doSetColumnVisible(column.uid, !column.isHidden);
    }
    doSetColumnOrder(order);
    if (columnSection(saved->sort.column) >= 0 || saved->sort.column == 0)
        doSetSortIndicator(saved->sort);
}

VXRect<int> QtAbstractView2::doGetColumnHeaderRect(unsigned column)
{
    layOutNow();
    const QHeaderView& header = columnHeader();
    const int section = columnSection(column);
    if (section < 0 || header.isSectionHidden(section))
        return {};
    const QPoint corner(header.sectionViewportPosition(section), 0);
    return Qt2VX(QRect(header.viewport()->mapTo(&itemView(), corner),
                       QSize(header.sectionSize(section), header.height())));
}

// Reports -----------------------------------------------------------------------------------------

void QtAbstractView2::reportHeaderClick(int section)
{
    const unsigned column = m_model->headerUIDFromSection(section, Qt::Horizontal);
    const bool isOther = m_sort.column == column && m_sort.order == SortOrder::Ascending;
    // Qt tells of no other button.
    report(&E::headerClicked, column, isOther ? SortOrder::Descending : SortOrder::Ascending,
           MouseButton::Left);
}

void QtAbstractView2::reportColumnWidth(int section, int width)
{
    const QtViewHeader& header = own(columnHeader());
    if (header.isUserActing() && !header.isFlexible(section))
        report(&E::columnResized, m_model->headerUIDFromSection(section, Qt::Horizontal), width);
}

void QtAbstractView2::reportColumnMove(int section, int from, int to)
{
    if (own(columnHeader()).isUserActing())
        report(&E::columnMoved, m_model->headerUIDFromSection(section, Qt::Horizontal), from, to);
}

// Helpers -----------------------------------------------------------------------------------------

int QtAbstractView2::columnSection(unsigned column) const { return m_model->columnFromUID(column); }

/// Also against Qt, which moves the arrow when a section is clicked: whether that sorts is up to
/// the program.
void QtAbstractView2::showSortIndicator()
{
    QHeaderView& header = columnHeader();
    const int section = columnSection(m_sort.column);
    const Qt::SortOrder order =
        m_sort.order == SortOrder::Descending ? Qt::DescendingOrder : Qt::AscendingOrder;
    if (header.isSortIndicatorShown() != (section >= 0))
        header.setSortIndicatorShown(section >= 0);
    if (header.sortIndicatorSection() != section || header.sortIndicatorOrder() != order)
        header.setSortIndicator(section, order);
}

} // namespace VOXI
