#include "voxi2_qt/containers/qtgridlayout2.h"

#include "../kernel/qtignored.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QSpacerItem>
#include <QWidget>

#include <algorithm>

namespace VOXI {

namespace {

using E = VXGridLayout2Emitters;
using P = QtGridLayout2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::gridAddWidget, &P::doGridAddWidget>(),
    TROV::row<&E::gridAddSpacer, &P::doGridAddSpacer>(),
    TROV::row<&E::setRowStretch, &P::doSetRowStretch>(),
    TROV::row<&E::setColStretch, &P::doSetColStretch>(),
    TROV::row<&E::setStretchFactors, &P::doSetStretchFactors>(),
    TROV::row<&E::getRowStretch, &P::doGetRowStretch>(),
    TROV::row<&E::getColStretch, &P::doGetColStretch>(),
    TROV::row<&E::setRowMinimum, &P::doSetRowMinimum>(),
    TROV::row<&E::setColMinimum, &P::doSetColMinimum>(),
    TROV::row<&E::getRowMinimum, &P::doGetRowMinimum>(),
    TROV::row<&E::getColMinimum, &P::doGetColMinimum>(),
    TROV::row<&E::setHorizontalSpacing, &P::doSetHorizontalSpacing>(),
    TROV::row<&E::setVerticalSpacing, &P::doSetVerticalSpacing>(),
    TROV::row<&E::getHorizontalSpacing, &P::doGetHorizontalSpacing>(),
    TROV::row<&E::getVerticalSpacing, &P::doGetVerticalSpacing>(),
    TROV::row<&E::setCell, &P::doSetCell>(),
    TROV::row<&E::getCell, &P::doGetCell>(),
    TROV::row<&E::getRowCount, &P::doGetRowCount>(),
    TROV::row<&E::getColCount, &P::doGetColCount>());
// clang-format on

// Qt keeps something for each line up to the last, makes a table of all cells when it lays out, and
// does not check the numbers.
constexpr int MaxLines = 1'000'000;
constexpr qint64 MaxCells = 10'000'000;

bool isLine(int line) { return line >= 0 && line < MaxLines; }

bool isCell(const VXRect<int>& cell)
{
    // A span of -1 goes to the end.
    const auto isSpan = [](int span) { return span == -1 || (span > 0 && span <= MaxLines); };
    return isLine(cell.row()) && isLine(cell.column()) && isSpan(cell.rowSpan())
           && isSpan(cell.columnSpan());
}

} // namespace

QtGridLayout2::QtGridLayout2(VXGridLayout2* object, VXGridLayout2Emitters* emitters,
                             QWidget* parent)
    : QtObject2Shim(object, emitters, s_requests, freeWidget(object, parent))
{}

// Requests ----------------------------------------------------------------------------------------

void QtGridLayout2::doGridAddWidget(VXObject* widget, VXRect<int> cell, Alignment alignment)
{
    withWidgetOf(widget, [&](QWidget* child) {
        // What is no widget is passed on: Qt says so and goes on.
        if (!hasRoomFor(cell) || (child ? !prepareFor(child) : !lookup(widget)))
            return;
        QGridLayout::addWidget(child, cell.row(), cell.column(), cell.rowSpan(), cell.columnSpan(),
                               VX2Qt(alignment));
        forgetStray(child);
        invalidate();
    });
}

void QtGridLayout2::doGridAddSpacer(VXRect<int> cell, Size<int> size)
{
    if (!hasRoomFor(cell))
        return;
    auto* spacer =
        new QSpacerItem(size.width, size.height, QSizePolicy::Minimum, QSizePolicy::Minimum);
    QGridLayout::addItem(spacer, cell.row(), cell.column(), cell.rowSpan(), cell.columnSpan());
    invalidate();
}

void QtGridLayout2::doSetRowStretch(int row, int stretch)
{
    if (hasRoomFor(VXRect<int>::cell(row, 0)))
        setRowStretch(row, stretch);
}

void QtGridLayout2::doSetColStretch(int column, int stretch)
{
    if (hasRoomFor(VXRect<int>::cell(0, column)))
        setColumnStretch(column, stretch);
}

void QtGridLayout2::doSetStretchFactors(const std::vector<int>& rows,
                                        const std::vector<int>& columns)
{
    for (std::size_t i = 0; i < rows.size() && i < MaxLines; ++i)
        doSetRowStretch(static_cast<int>(i), rows[i]);
    for (std::size_t i = 0; i < columns.size() && i < MaxLines; ++i)
        doSetColStretch(static_cast<int>(i), columns[i]);
}

int QtGridLayout2::doGetRowStretch(int row)
{
    return row >= 0 && row < rowCount() ? rowStretch(row) : 0;
}

int QtGridLayout2::doGetColStretch(int column)
{
    return column >= 0 && column < columnCount() ? columnStretch(column) : 0;
}

void QtGridLayout2::doSetRowMinimum(int row, int height)
{
    if (hasRoomFor(VXRect<int>::cell(row, 0)))
        setRowMinimumHeight(row, bounded(height));
}

void QtGridLayout2::doSetColMinimum(int column, int width)
{
    if (hasRoomFor(VXRect<int>::cell(0, column)))
        setColumnMinimumWidth(column, bounded(width));
}

int QtGridLayout2::doGetRowMinimum(int row)
{
    return row >= 0 && row < rowCount() ? rowMinimumHeight(row) : 0;
}

int QtGridLayout2::doGetColMinimum(int column)
{
    return column >= 0 && column < columnCount() ? columnMinimumWidth(column) : 0;
}

void QtGridLayout2::doSetHorizontalSpacing(int spacing) { setHorizontalSpacing(bounded(spacing)); }
void QtGridLayout2::doSetVerticalSpacing(int spacing) { setVerticalSpacing(bounded(spacing)); }
int QtGridLayout2::doGetHorizontalSpacing() { return horizontalSpacing(); }
int QtGridLayout2::doGetVerticalSpacing() { return verticalSpacing(); }

void QtGridLayout2::doSetCell(VXObject* widget, VXRect<int> cell)
{
    if (doGetItemIndex(widget) < 0) {
        if (!widget || lookup(widget))
            ignored(*this, Reason::NotInThis);
    } else if (hasRoomFor(cell)) {
        doGridAddWidget(widget, cell, doGetAlignment(widget));
    }
}

VXRect<int> QtGridLayout2::doGetCell(VXObject* widget)
{
    const int index = doGetItemIndex(widget);
    if (index < 0)
        return {};
    int row = 0;
    int column = 0;
    int rowSpan = 0;
    int columnSpan = 0;
    getItemPosition(index, &row, &column, &rowSpan, &columnSpan);
    return VXRect<int>::cell(row, column, rowSpan, columnSpan);
}

int QtGridLayout2::doGetRowCount() { return rowCount(); }
int QtGridLayout2::doGetColCount() { return columnCount(); }

// Helpers -----------------------------------------------------------------------------------------

bool QtGridLayout2::hasRoomFor(const VXRect<int>& cell, CallPlace where) const
{
    if (!isCell(cell)) {
        ignored(*this, "there is no such cell", where);
        return false;
    }
    const qint64 rows = std::max(rowCount(), cell.row() + std::max(cell.rowSpan(), 1));
    const qint64 columns = std::max(columnCount(), cell.column() + std::max(cell.columnSpan(), 1));
    if (rows * columns <= MaxCells)
        return true;
    ignored(*this, "these were too many cells", where);
    return false;
}

} // namespace VOXI
