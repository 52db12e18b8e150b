#include "voxi2_qt/modelview/qtabstractgroupview2.h"

#include "../kernel/qtignored.h"
#include "describecell.h"
#include "qtviewmodel2.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"

namespace VOXI {

namespace {

using E = VXAbstractGroupView2Emitters;
using P = QtAbstractGroupView2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setViewModel, &P::doSetViewModel>(),
    TROV::row<&E::getViewModel, &P::doGetViewModel>(),
    TROV::row<&E::setGroupFolded, &P::doSetGroupFolded>(),
    TROV::row<&E::isGroupFolded, &P::doIsGroupFolded>(),
    TROV::row<&E::foldAll, &P::doFoldAll>(),
    TROV::row<&E::unfoldAll, &P::doUnfoldAll>(),
    asUserRow<&E::setGroupFoldedAsUser, &P::doimSetGroupFolded>(),
    TROV::row<&E::setCurrentRow, &P::doSetCurrentRow>(),
    asUserRow<&E::setCurrentRowAsUser, &P::doimSetCurrentRow>(),
    TROV::row<&E::getCurrentRow, &P::doGetCurrentRow>(),
    asUserRow<&E::activate, &P::doimActivate>(),
    TROV::row<&E::scrollTo, &P::doScrollTo>(),
    TROV::row<&E::getRowAt, &P::doGetRowAt>(),
    TROV::row<&E::getRowRect, &P::doGetRowRect>(),
    TROV::row<&E::isRowInSight, &P::doIsRowInSight>(),
    TROV::row<&E::getRowInfo, &P::doGetRowInfo>(),
    TROV::row<&E::setIconSize, &P::doSetIconSize>(),
    TROV::row<&E::getIconSize, &P::doGetIconSize>());
// clang-format on

} // namespace

QtAbstractGroupView2::QtAbstractGroupView2(VXAbstractGroupView2* view,
                                           VXAbstractGroupView2Emitters* emitters)
    : QtPeerLevel(view, emitters, s_requests)
{}

// Requests ----------------------------------------------------------------------------------------

void QtAbstractGroupView2::doSetViewModel(VXAbstractViewModel2* model)
{
    foldedView().showModel(model);
}

VXAbstractViewModel2* QtAbstractGroupView2::doGetViewModel()
{
    const VXObjectDataLocker lock;
    return foldedView().viewModel().abstractModel();
}

void QtAbstractGroupView2::doSetGroupFolded(unsigned group, bool folded)
{
    const QtProgramScope scope;
    if (isGroup(group))
        foldedView().setFolded(group, folded, FoldedView::By::Program);
}

bool QtAbstractGroupView2::doIsGroupFolded(unsigned group)
{
    const QModelIndex index = foldedView().indexOf(group);
    return index.isValid() && !index.parent().isValid() && foldedView().isFolded(group);
}

void QtAbstractGroupView2::doFoldAll()
{
    const QtProgramScope scope;
    foldedView().setAllFolded(true);
}

void QtAbstractGroupView2::doUnfoldAll()
{
    const QtProgramScope scope;
    foldedView().setAllFolded(false);
}

void QtAbstractGroupView2::doimSetGroupFolded(unsigned group, bool folded)
{
    if (isGroup(group))
        foldedView().setFolded(group, folded, FoldedView::By::User);
}

void QtAbstractGroupView2::doSetCurrentRow(unsigned row)
{
    const QtProgramScope scope;
    doimSetCurrentRow(row);
}

void QtAbstractGroupView2::doimSetCurrentRow(unsigned row)
{
    if (row == 0 || isRow(row))
        foldedView().setCurrent(row);
}

unsigned QtAbstractGroupView2::doGetCurrentRow() { return foldedView().currentRow(); }

void QtAbstractGroupView2::doimActivate(unsigned row)
{
    if (isRow(row))
        foldedView().activate(row);
}

void QtAbstractGroupView2::doScrollTo(unsigned row)
{
    const QtProgramScope scope;
    if (isRow(row))
        foldedView().reveal(row);
}

unsigned QtAbstractGroupView2::doGetRowAt(VXPoint<int> position)
{
    const FoldedView& view = foldedView();
    const QPoint inView = view.viewport()->mapFrom(asQWidget(), VX2Qt(position));
    const bool isInside = view.viewport()->rect().contains(inView);
    return isInside ? view.viewModel().rowFromIndex(view.indexAt(inView)) : 0;
}

VXRect<int> QtAbstractGroupView2::doGetRowRect(unsigned row)
{
    FoldedView& view = foldedView();
    view.layOutNow();
    const QRect rect = view.visualRect(view.indexOf(row));
    return rect.isEmpty()
               ? VXRect<int>()
               : Qt2VX(QRect(view.viewport()->mapTo(asQWidget(), rect.topLeft()), rect.size()));
}

bool QtAbstractGroupView2::doIsRowInSight(unsigned row)
{
    FoldedView& view = foldedView();
    view.layOutNow();
    return view.visualRect(view.indexOf(row)).intersects(view.viewport()->rect());
}

CellInfo QtAbstractGroupView2::doGetRowInfo(unsigned row)
{
    CellInfo info;
    const FoldedView& view = foldedView();
    const QModelIndex index = view.indexOf(row);
    if (!index.isValid())
        return info;
    info.cell = view.viewModel().cellFromIndex(index);
    info.rect = doGetRowRect(row);
    info.isVisible = doIsRowInSight(row);
    info.isCurrent = view.currentIndex() == index;
    info.isSelected = view.isChosen(row);
    if (const CellRecord* const record = view.viewModel().peekCell(index))
        describeCell(info, *record, view.palette(), view.font());
    return info;
}

void QtAbstractGroupView2::doSetIconSize(Size<int> size)
{
    foldedView().setIconSize(VX2Qt(size));
    foldedView().looksChanged();
}

Size<int> QtAbstractGroupView2::doGetIconSize() { return Qt2VX(foldedView().pictureSize()); }

// Reports -----------------------------------------------------------------------------------------

void QtAbstractGroupView2::noteCurrent(unsigned row)
{
    if (row != 0 && !QtProgramScope::isActive())
        report(&E::currentChanged, row);
}

void QtAbstractGroupView2::noteActivated(unsigned row) { report(&E::activated, row); }

void QtAbstractGroupView2::noteFolded(unsigned group, bool folded)
{
    if (folded)
        report(&E::folded, group);
    else
        report(&E::unfolded, group);
}

// Helpers -----------------------------------------------------------------------------------------

bool QtAbstractGroupView2::isRow(unsigned row, CallPlace where) const
{
    const bool isThere = foldedView().indexOf(row).isValid();
    if (!isThere)
        ignored(*this, "the model shown has no such row", where);
    return isThere;
}

bool QtAbstractGroupView2::isGroup(unsigned row, CallPlace where) const
{
    const QModelIndex index = foldedView().indexOf(row);
    const bool isGroup = index.isValid() && !index.parent().isValid();
    if (!isGroup)
        ignored(*this, "the model shown has no such group", where);
    return isGroup;
}

} // namespace VOXI
