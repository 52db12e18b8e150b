#include "voxi2_qt/modelview/qttableview2.h"

#include "../kernel/qtignored.h"
#include "qttableview2eventfilter.h"
#include "qtviewheader.h"
#include "qtviewmodel2.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace VOXI {

namespace {

using E = VXTableView2Emitters;
using P = QtTableView2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setColumnWidth, &P::doSetColumnWidth>(),
    TROV::row<&E::getColumnWidth, &P::doGetColumnWidth>(),
    TROV::row<&E::setColumnResizeMode, &P::doSetColumnResizeMode>(),
    TROV::row<&E::getColumnResizeMode, &P::doGetColumnResizeMode>(),
    TROV::row<&E::resizeColumnToContents, &P::doResizeColumnToContents>(),
    TROV::row<&E::resizeColumnsToContents, &P::doResizeColumnsToContents>(),
    TROV::row<&E::resizeRowToContents, &P::doResizeRowToContents>(),
    TROV::row<&E::resizeRowsToContents, &P::doResizeRowsToContents>(),
    TROV::row<&E::setRowHeaderVisible, &P::doSetRowHeaderVisible>(),
    TROV::row<&E::isRowHeaderVisible, &P::doIsRowHeaderVisible>(),
    TROV::row<&E::setRowMovable, &P::doSetRowMovable>(),
    TROV::row<&E::isRowMovable, &P::doIsRowMovable>(),
    TROV::row<&E::setGridVisible, &P::doSetGridVisible>(),
    TROV::row<&E::isGridVisible, &P::doIsGridVisible>());
// clang-format on

int scaled(int size, double factor)
{
    constexpr double half = 0.5;
    return static_cast<int>(size * factor + half);
}

} // namespace

QtTableView2::QtTableView2(VXTableView2* object, VXTableView2Emitters* emitters, QWidget* parent)
    : QtAbstractView2Shim(object, emitters, s_requests, parent)
{
    auto* const header = new QtViewHeader(Qt::Horizontal, this);
    setHorizontalHeader(header);
    // A click on a section is the program's to answer, by sorting for example.
    QObject::disconnect(header, &QHeaderView::sectionPressed, this, nullptr);
    QObject::disconnect(header, &QHeaderView::sectionEntered, this, nullptr);
    auto* const rows = new QtViewHeader(Qt::Vertical, this);
    rows->setSectionsClickable(true);
    setVerticalHeader(rows);
    beginView();
    new QtTableView2EventFilter(*this);
}

// Requests ----------------------------------------------------------------------------------------

void QtTableView2::doSetColumnWidth(unsigned column, int width, bool inPixels)
{
    if (!inPixels) {
        updateSize();
        width = static_cast<int>(
            std::clamp<qint64>(qint64(width) * characterWidth(), 0, QWIDGETSIZE_MAX));
    }
    QtAbstractView2::doSetColumnWidth(column, width);
}

int QtTableView2::doGetColumnWidth(unsigned column, bool inPixels)
{
    const int width = doColumnWidth(column);
    return inPixels ? width : scaled(width, 1.0 / std::max(characterWidth(), 1));
}

void QtTableView2::doSetColumnResizeMode(unsigned column, ColumnResizeMode mode)
{
    const int section = askedForColumn(column);
    if (section >= 0)
        horizontalHeader()->setSectionResizeMode(section, VX2Qt(mode));
}

ColumnResizeMode QtTableView2::doGetColumnResizeMode(unsigned column)
{
    const int section = viewModel().columnFromUID(column);
    return section < 0 ? ColumnResizeMode::Interactive
                       : Qt2VX(horizontalHeader()->sectionResizeMode(section));
}

void QtTableView2::doResizeColumnToContents(unsigned column)
{
    if (const int section = askedForColumn(column); section >= 0)
        resizeColumnToContents(section);
}

void QtTableView2::doResizeColumnsToContents() { resizeColumnsToContents(); }

void QtTableView2::doResizeRowToContents(unsigned row)
{
    if (const int section = askedForRow(row); section >= 0)
        resizeRowToContents(section);
}

void QtTableView2::doResizeRowsToContents() { resizeRowsToContents(); }
void QtTableView2::doSetRowHeaderVisible(bool visible) { verticalHeader()->setHidden(!visible); }
bool QtTableView2::doIsRowHeaderVisible() { return !verticalHeader()->isHidden(); }
void QtTableView2::doSetRowMovable(bool movable) { verticalHeader()->setSectionsMovable(movable); }
bool QtTableView2::doIsRowMovable() { return verticalHeader()->sectionsMovable(); }
void QtTableView2::doSetGridVisible(bool visible) { setShowGrid(visible); }
bool QtTableView2::doIsGridVisible() { return showGrid(); }

void QtTableView2::doSetRowHeight(unsigned row, int height)
{
    if (const int section = askedForRow(row); section >= 0)
        setRowHeight(section, std::clamp(height, 0, verticalHeader()->maximumSectionSize()));
}

int QtTableView2::doRowHeight(unsigned row)
{
    return rowSection(row) < 0 ? 0 : rowHeight(rowSection(row));
}

void QtTableView2::doSetRowVisible(unsigned row, bool visible)
{
    if (const int section = askedForRow(row); section >= 0)
        setRowHidden(section, !visible);
}

bool QtTableView2::doIsRowVisible(unsigned row)
{
    return rowSection(row) >= 0 && !isRowHidden(rowSection(row));
}

// Helpers -----------------------------------------------------------------------------------------

void QtTableView2::updateSize()
{
    const int character = fontMetrics().horizontalAdvance(QLatin1Char('W'));
    const int line = fontMetrics().height();
    const int formerCharacter = std::exchange(m_characterWidth, character);
    const int formerLine = std::exchange(m_lineHeight, line);
    if (formerCharacter != 0 && formerCharacter != character)
        scaleColumns(double(character) / formerCharacter);
    if (formerLine != 0 && formerLine != line)
        scaleRows(double(line) / formerLine);
}

QModelIndex QtTableView2::rowBelow(const QModelIndex& index) const
{
    const QHeaderView& rows = *verticalHeader();
    int visual = rows.visualIndex(index.row()) + 1;
    while (visual < rows.count() && rows.isSectionHidden(rows.logicalIndex(visual)))
        ++visual;
    return visual < rows.count() ? index.sibling(rows.logicalIndex(visual), index.column())
                                 : QModelIndex();
}

int QtTableView2::characterWidth() const
{
    return horizontalHeader()->fontMetrics().horizontalAdvance(QLatin1Char('W'));
}

void QtTableView2::scaleColumns(double factor)
{
    QHeaderView& columns = *horizontalHeader();
    for (int section = 0; section < columns.count(); ++section) {
        if (!columns.isSectionHidden(section)) // which has no size at the moment
            columns.resizeSection(section, scaled(columns.sectionSize(section), factor));
    }
}

void QtTableView2::scaleRows(double factor)
{
    QHeaderView& rows = *verticalHeader();
    const int least = rows.minimumSectionSize();
    const auto isToScale = [&](int size) { return factor > 1 || scaled(size, factor) > least; };
    // Nearly all of a million rows are as high as Qt makes them: these go together, the rest one
    // by one.
    const int usual = rows.defaultSectionSize();
    const bool isUsualScaled = isToScale(usual);
    std::vector<std::pair<int, int>> others;
    for (int section = 0; section < rows.count(); ++section) {
        const int size = rows.sectionSize(section);
        if (size != usual && !rows.isSectionHidden(section))
            others.emplace_back(section, isToScale(size) ? scaled(size, factor) : size);
    }
    if (isUsualScaled)
        rows.setDefaultSectionSize(scaled(usual, factor));
    for (const auto& [section, size] : others)
        rows.resizeSection(section, size);
}

/// The same for a request, which is ignored where the row is not there.
int QtTableView2::askedForRow(unsigned row, CallPlace where) const
{
    const int section = rowSection(row);
    if (section < 0)
        ignored(*this, "the model shown has no such row", where);
    return section;
}

int QtTableView2::rowSection(unsigned row) const
{
    return viewModel().headerSectionFromUID(row, Qt::Vertical);
}

} // namespace VOXI
