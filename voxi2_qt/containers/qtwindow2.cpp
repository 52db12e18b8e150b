#include "voxi2_qt/containers/qtwindow2.h"

#include "../kernel/qtignored.h"
#include "../kernel/qttakeout.h"
#include "voxi2/controls/vxmenubar2.h"
#include "voxi2/controls/vxtoolbar2.h"
#include "voxi2_qt/containers/qtdockwidget2.h"
#include "voxi2_qt/kernel/qtdocking.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <QLayout>
#include <QMenuBar>
#include <QPointer>
#include <QToolBar>

namespace VOXI {

namespace {

using E = VXWindow2Emitters;
using P = QtWindow2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setCentralWidget, &P::doSetCentralWidget>(),
    TROV::row<&E::getCentralWidget, &P::doGetCentralWidget>(),
    TROV::row<&E::setSupportsGlobalFocusBlocker, &P::doSetSupportsGlobalFocusBlocker>(),
    TROV::row<&E::getSupportsGlobalFocusBlocker, &P::doGetSupportsGlobalFocusBlocker>(),
    TROV::row<&E::setMenuBar, &P::doSetMenuBar>(),
    TROV::row<&E::addToolBar, &P::doAddToolBar>(),
    TROV::row<&E::removeToolBar, &P::doRemoveToolBar>(),
    TROV::row<&E::insertToolBarBreak, &P::doInsertToolBarBreak>(),
    TROV::row<&E::getMenuBar, &P::doGetMenuBar>(),
    TROV::row<&E::getToolBarArea, &P::doGetToolBarArea>(),
    TROV::row<&E::setStatusText, &P::doSetStatusText>(),
    TROV::row<&E::setStatusTextU, &P::doSetStatusTextU>(),
    TROV::row<&E::getStatusText, &P::doGetStatusText>(),
    TROV::row<&E::getStatusTextU, &P::doGetStatusTextU>(),
    TROV::row<&E::setStatusBarVisible, &P::doSetStatusBarVisible>(),
    TROV::row<&E::isStatusBarVisible, &P::doIsStatusBarVisible>(),
    TROV::row<&E::addStatusWidget, &P::doAddStatusWidget>(),
    TROV::row<&E::removeStatusWidget, &P::doRemoveStatusWidget>(),
    TROV::row<&E::addDockWidget, &P::doAddDockWidget>(),
    TROV::row<&E::removeDockWidget, &P::doRemoveDockWidget>(),
    TROV::row<&E::getDockArea, &P::doGetDockArea>(),
    TROV::row<&E::tabifyDockWidget, &P::doTabifyDockWidget>(),
    TROV::row<&E::splitDockWidget, &P::doSplitDockWidget>(),
    TROV::row<&E::raiseDockWidget, &P::doRaiseDockWidget>(),
    TROV::row<&E::saveLayout, &P::doSaveLayout>(),
    TROV::row<&E::restoreLayout, &P::doRestoreLayout>(),
    TROV::row<&E::setDockSize, &P::doSetDockSize>(),
    TROV::row<&E::setDockCorner, &P::doSetDockCorner>(),
    TROV::row<&E::getDockCorner, &P::doGetDockCorner>(),
    TROV::row<&E::setDockNesting, &P::doSetDockNesting>(),
    TROV::row<&E::isDockNesting, &P::doIsDockNesting>(),
    TROV::row<&E::setDockTabPosition, &P::doSetDockTabPosition>(),
    TROV::row<&E::getDockTabPosition, &P::doGetDockTabPosition>(),
    TROV::row<&E::getDockTabs, &P::doGetDockTabs>());
// clang-format on

/// Calls `function` with the Qt tool bar of a live one.
template <class Function>
void withToolBarOf(VXToolBar2* bar, Function&& function)
{
    withWidgetOf(bar, [&](QWidget* widget) {
        if (auto* toolBar = qobject_cast<QToolBar*>(widget))
            function(toolBar);
    });
}

} // namespace

QtWindow2::QtWindow2(VXWindow2* object, VXWindow2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{}

QtWindow2::~QtWindow2()
{
    endDrags();
    endPeer(); // its slots are called when what it holds leaves
}

// Requests ----------------------------------------------------------------------------------------

void QtWindow2::doSetCentralWidget(VXWidget2* widget)
{
    withWidgetOrNone(widget, [this](QWidget* child) {
        if (child && (child == centralWidget() || !canHold(*this, this, child)))
            return;
        // Qt would delete the former one, which has an owner of its own.
        if (QWidget* former = centralWidget()) {
            takeOut(former);
            keepHidden(takeCentralWidget(), this);
        }
        if (!child)
            return;
        const QtEventBlocker blocker(child, {WidgetEvent::Show, WidgetEvent::Hide});
        // Qt would hold a docked one as both.
        if (auto* pane = dynamic_cast<QtDockWidget2*>(child))
            pane->undock();
        else if (auto* bar = qobject_cast<QToolBar*>(child))
            undock(*bar);
        takeOutFor(this, child);
        setCentralWidget(child);
        // One that was replaced before would stay hidden if the window is.
        if (child->isHidden() && !child->testAttribute(Qt::WA_WState_ExplicitShowHide))
            child->show();
    });
}

VXWidget2* QtWindow2::doGetCentralWidget() { return abstractObjectOf<VXWidget2>(centralWidget()); }

void QtWindow2::doSetSupportsGlobalFocusBlocker(bool supports)
{
    m_supportsFocusBlocker = supports;
}

bool QtWindow2::doGetSupportsGlobalFocusBlocker() { return m_supportsFocusBlocker; }

void QtWindow2::doSetMenuBar(VXMenuBar2* bar)
{
    withWidgetOrNone(bar, [this](QWidget* widget) {
        auto* wanted = qobject_cast<QMenuBar*>(widget);
        if (wanted && (wanted == menuWidget() || !canHold(*this, this, wanted)))
            return;
        const QtEventBlocker blocker(wanted, {WidgetEvent::Show});
        // Qt would delete the former one, which has an owner of its own.
        if (QWidget* former = menuWidget()) {
            layout()->setMenuBar(nullptr);
            keepHidden(former, this);
        }
        if (wanted) {
            takeOutFor(this, wanted);
            setMenuBar(wanted);
            wanted->show();
        }
    });
}

void QtWindow2::doAddToolBar(VXToolBar2* bar, ToolBarArea area)
{
    withToolBarOf(bar, [&](QToolBar* widget) {
        if (!canHold(*this, this, widget))
            return;
        const QtEventBlocker blocker(widget, {WidgetEvent::Show});
        takeOutFor(this, widget);
        const Qt::ToolBarArea side = VX2Qt(area);
        addToolBar(side == Qt::NoToolBarArea ? Qt::TopToolBarArea : side, widget);
        remember(m_dockedBars, widget);
        widget->show(); // one that was removed is hidden
    });
}

void QtWindow2::doRemoveToolBar(VXToolBar2* bar)
{
    withToolBarOf(bar, [&](QToolBar* widget) {
        const QtEventBlocker blocker(widget, {WidgetEvent::Hide});
        undock(*widget);
    });
}

void QtWindow2::doInsertToolBarBreak(VXToolBar2* before)
{
    withToolBarOf(before, [&](QToolBar* widget) {
        if (isDocked(*widget))
            insertToolBarBreak(widget);
        else
            ignored(*this, Reason::NotInThis);
    });
}

VXMenuBar2* QtWindow2::doGetMenuBar() { return abstractObjectOf<VXMenuBar2>(menuWidget()); }

ToolBarArea QtWindow2::doGetToolBarArea(VXToolBar2* bar)
{
    ToolBarArea result = ToolBarArea::None;
    withToolBarOf(bar, [&](QToolBar* widget) { result = Qt2VX(toolBarArea(widget)); });
    return result;
}

// Reports -----------------------------------------------------------------------------------------

void QtWindow2::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    passStateChange(*event);
}

/// What stands alone comes behind its window: a window manager leaves what came first below.
void QtWindow2::setVisible(bool visible)
{
    const QtReportHold hold; // a handler may end the window
    const QPointer<QtWindow2> self(this);
    QtWidget2Shim::setVisible(visible);
    if (self && isVisible())
        showWaitingPanes();
}

// Helpers -----------------------------------------------------------------------------------------

void QtWindow2::undock(QToolBar& bar)
{
    if (!isDocked(bar))
        return;
    VOXI::endDrag(&bar);
    const bool isShown = !bar.isHidden();
    removeToolBar(&bar);
    if (isShown)
        keepHidden(&bar, this); // Qt has hidden it, not the program
}

} // namespace VOXI
