// The part of QtAbstractView2 that is about where cells are and what is in sight.

#include "../kernel/qteventbuild.h"
#include "describecell.h"
#include "qtviewdelegate2.h"
#include "qtviewmodel2.h"
#include "qtviewsight.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qthandlerframe.h"
#include "voxi2_qt/modelview/qtabstractview2.h"

#include <QContextMenuEvent>
#include <QScrollBar>

namespace VOXI {

namespace {

using E = VXAbstractView2Emitters;

bool isAnyShown(const QScrollBar& bar)
{
    return bar.isVisibleTo(bar.parentWidget()) && bar.minimum() < bar.maximum();
}

} // namespace

// Requests ----------------------------------------------------------------------------------------

void QtAbstractView2::doScrollTo(ModelCell2 cell)
{
    layOutNow();
    const QtProgramScope scope;
    if (const QModelIndex index = askedFor(cell); index.isValid())
        itemView().scrollTo(index);
}

ModelCell2 QtAbstractView2::doGetModelCellAt(int x, int y)
{
    layOutNow();
    return m_model->cellFromIndex(itemView().indexAt({x, y}));
}

ModelCell2 QtAbstractView2::doGetCellAtPosition(VXPoint<int> position)
{
    const QPoint inView = itemView().viewport()->mapFromParent(VX2Qt(position));
    return doGetModelCellAt(inView.x(), inView.y());
}

VXRect<int> QtAbstractView2::doGetModelCellRect(unsigned row, unsigned column)
{
    layOutNow();
    const QModelIndex index = indexOf(row, column);
    return index.isValid() ? Qt2VX(itemView().visualRect(index)) : VXRect<int>();
}

VXRect<int> QtAbstractView2::doimGetCellRect(unsigned row, unsigned column)
{
    return doGetModelCellRect(row, column);
}

bool QtAbstractView2::doimIsCellVisible(unsigned row, unsigned column)
{
    layOutNow();
    const QModelIndex index = indexOf(row, column);
    return index.isValid()
           && itemView().visualRect(index).intersects(itemView().viewport()->rect());
}

bool QtAbstractView2::doimIsHScrollbarVisible()
{
    layOutNow();
    updateScrollBars();
    return isAnyShown(*itemView().horizontalScrollBar());
}

bool QtAbstractView2::doimIsVScrollbarVisible()
{
    layOutNow();
    updateScrollBars();
    return isAnyShown(*itemView().verticalScrollBar());
}

CellInfo QtAbstractView2::doimGetCellInfo(unsigned row, unsigned column)
{
    CellInfo info;
    const QModelIndex index = indexOf(row, column);
    if (!index.isValid())
        return info;
    info.cell = m_model->cellFromIndex(index);
    info.rect = doGetModelCellRect(row, column);
    info.isVisible = doimIsCellVisible(row, column);
    info.isSelected = doIsSelected(row, column);
    info.isCurrent = itemView().currentIndex() == index;
    info.isEdited = m_delegate->isEditing() && m_delegate->getEditorIndex() == index;
    if (const CellRecord* const record = m_model->peekCell(index))
        describeCell(info, *record, itemView().palette(), itemView().font());
    return info;
}

// Reports -----------------------------------------------------------------------------------------

void QtAbstractView2::noteContextMenu(QWidget* receiver, const QContextMenuEvent& event)
{
    const bool isByKey = event.reason() == QContextMenuEvent::Keyboard;
    if (!isByKey && receiver != itemView().viewport())
        return; // the copy of what the viewport has had
    reportMade(&E::cellContextMenu, [&] {
        const EventTarget target{abstractWidget(), asQWidget(), receiver};
        const QModelIndex index =
            isByKey ? itemView().currentIndex() : itemView().indexAt(event.pos());
        return VXCellContextMenuEvent2(static_cast<VXAbstractView2*>(abstractWidget()),
                                       m_model->cellFromIndex(index),
                                       contextMenuEvent(target, WidgetEvent::ContextMenu, event));
    });
}

void QtAbstractView2::reportScroll()
{
    if (!QtProgramScope::isActive())
        report(&E::scrolled);
}

// Helpers -----------------------------------------------------------------------------------------

void QtAbstractView2::layOut(const std::function<void()>& handle)
{
    m_sight->layoutBegins();
    handle();
    m_sight->layoutEnds();
}

void QtAbstractView2::noteScroll() { m_sight->scrolled(); }

void QtAbstractView2::noteLooks()
{
    if (m_delegate)
        m_delegate->clearPaintCache();
}

void QtAbstractView2::paintWaiting(const QRect& area) { m_sight->paintWaiting(area); }

} // namespace VOXI
