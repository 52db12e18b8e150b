#include "voxi2_qt/modelview/qttreeview2.h"

#include "qtviewheader.h"
#include "qtviewmodel2.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"

#include <algorithm>

namespace VOXI {

namespace {

using E = VXTreeView2Emitters;
using P = QtTreeView2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setRowExpanded, &P::doSetRowExpanded>(),
    TROV::row<&E::isRowExpanded, &P::doIsRowExpanded>(),
    asUserRow<&E::expand, &P::doimExpand>(),
    asUserRow<&E::collapse, &P::doimCollapse>(),
    TROV::row<&E::expandAll, &P::doExpandAll>(),
    TROV::row<&E::collapseAll, &P::doCollapseAll>(),
    TROV::row<&E::setRootIsDecorated, &P::doSetRootIsDecorated>(),
    TROV::row<&E::setUniformRowHeights, &P::doSetUniformRowHeights>(),
    TROV::row<&E::rootIsDecorated, &P::doRootIsDecorated>(),
    TROV::row<&E::hasUniformRowHeights, &P::doHasUniformRowHeights>());
// clang-format on

} // namespace

QtTreeView2::QtTreeView2(VXTreeView2* object, VXTreeView2Emitters* emitters, QWidget* parent)
    : QtAbstractView2Shim(object, emitters, s_requests, parent)
{
    auto* const header = new QtViewHeader(Qt::Horizontal, this);
    header->setStretchLastSection(true);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setHeader(header);
    beginView();
}

// Requests ----------------------------------------------------------------------------------------

void QtTreeView2::doSetRowExpanded(unsigned row, bool expanded)
{
    const QtSignalBlocker blocker(this);
    setExpanded(askedFor(row, 0), expanded);
}

bool QtTreeView2::doIsRowExpanded(unsigned row) { return isExpanded(indexOf(row, 0)); }
void QtTreeView2::doimExpand(unsigned row) { expand(askedFor(row, 0)); }
void QtTreeView2::doimCollapse(unsigned row) { collapse(askedFor(row, 0)); }

void QtTreeView2::doExpandAll()
{
    const QtSignalBlocker blocker(this);
    expandAll();
}

void QtTreeView2::doCollapseAll()
{
    const QtSignalBlocker blocker(this);
    collapseAll();
}

void QtTreeView2::doSetRootIsDecorated(bool on) { setRootIsDecorated(on); }
void QtTreeView2::doSetUniformRowHeights(bool on) { setUniformRowHeights(on); }
bool QtTreeView2::doRootIsDecorated() { return rootIsDecorated(); }
bool QtTreeView2::doHasUniformRowHeights() { return uniformRowHeights(); }

void QtTreeView2::doSetRowHeight(unsigned row, int height)
{
    const QModelIndex index = askedFor(row, 0);
    if (!index.isValid())
        return;
    m_rowHeights[row] = std::clamp(height, 0, QWIDGETSIZE_MAX);
    scheduleDelayedItemsLayout();
}

int QtTreeView2::doRowHeight(unsigned row)
{
    layOutNow();
    const QModelIndex index = indexOf(row, 0);
    return index.isValid() ? std::max(rowHeight(index), 0) : 0;
}

void QtTreeView2::doSetRowVisible(unsigned row, bool visible)
{
    const QModelIndex index = askedFor(row, 0);
    if (index.isValid())
        setRowHidden(index.row(), index.parent(), !visible);
}

bool QtTreeView2::doIsRowVisible(unsigned row)
{
    const QModelIndex index = indexOf(row, 0);
    return index.isValid() && !isRowHidden(index.row(), index.parent());
}

// Reports -----------------------------------------------------------------------------------------

void QtTreeView2::connectSignals()
{
    QtAbstractView2Shim::connectSignals();
    connect(this, &QTreeView::expanded, this, &QtTreeView2::slotExpanded);
    connect(this, &QTreeView::collapsed, this, &QtTreeView2::slotCollapsed);
}

void QtTreeView2::slotExpanded(const QModelIndex& index)
{
    report(&E::expanded, viewModel().rowFromIndex(index));
}

void QtTreeView2::slotCollapsed(const QModelIndex& index)
{
    report(&E::collapsed, viewModel().rowFromIndex(index));
}

// Helpers -----------------------------------------------------------------------------------------

QModelIndex QtTreeView2::rowBelow(const QModelIndex& index) const { return indexBelow(index); }

int QtTreeView2::fixedRowHeight(const QModelIndex& index) const
{
    if (m_rowHeights.empty())
        return -1;
    const auto set = m_rowHeights.find(viewModel().rowFromIndex(index));
    return set == m_rowHeights.end() ? -1 : set->second;
}

void QtTreeView2::sizeChanged()
{
    QtAbstractView2Shim::sizeChanged();
    std::erase_if(m_rowHeights,
                  [&](const auto& entry) { return !viewModel().isValidRow(entry.first); });
}

void QtTreeView2::rowsInserted(const QModelIndex& parent, int first, int last)
{
    QTreeView::rowsInserted(parent, first, last);
    // The first children have come: their parent can be expanded from now on.
    if (parent.isValid() && model()->rowCount(parent) == last - first + 1)
        viewport()->update();
}

} // namespace VOXI
