#include "voxi2_qt/containers/qtwindow2.h"

#include "voxi2_qt/controls/qtmenubar2.h"
#include "voxi2_qt/controls/qttoolbar2.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <QLayout>

namespace VOXI {

namespace {

using E = VXWindow2Emitters;
using P = QtWindow2;

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
    TROV::row<&E::getToolBarArea, &P::doGetToolBarArea>());

Qt::ToolBarArea toQtArea(ToolBarArea area)
{
    switch (area) {
    case ToolBarArea::Left:
        return Qt::LeftToolBarArea;
    case ToolBarArea::Right:
        return Qt::RightToolBarArea;
    case ToolBarArea::Bottom:
        return Qt::BottomToolBarArea;
    case ToolBarArea::None:
    case ToolBarArea::Top:
        break;
    }
    return Qt::TopToolBarArea;
}

ToolBarArea fromQtArea(Qt::ToolBarArea area)
{
    switch (area) {
    case Qt::LeftToolBarArea:
        return ToolBarArea::Left;
    case Qt::RightToolBarArea:
        return ToolBarArea::Right;
    case Qt::TopToolBarArea:
        return ToolBarArea::Top;
    case Qt::BottomToolBarArea:
        return ToolBarArea::Bottom;
    default:
        return ToolBarArea::None;
    }
}

}  // namespace

QtWindow2::QtWindow2(VXWindow2* object, VXWindow2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, parent)
{
    enableEventBroadcasting();
    bindRequests(emitters, s_requests);
}

void QtWindow2::doSetCentralWidget(VXWidget2* widget)
{
    const auto place = [this](QWidget* child) {
        if (child == centralWidget())
            return;
        // Qt would delete the former one, which has an owner of its own.
        if (QWidget* former = takeCentralWidget()) {
            former->hide();
            former->setParent(this);
        }
        if (child)
            setCentralWidget(child);
    };
    if (widget)
        withWidgetOf(widget, place);
    else
        place(nullptr);
}

VXWidget2* QtWindow2::doGetCentralWidget()
{
    return dynamic_cast<VXWidget2*>(abstractObjectOf(centralWidget()));
}

void QtWindow2::doSetSupportsGlobalFocusBlocker(bool supports)
{
    m_supportsFocusBlocker = supports;
}

bool QtWindow2::doGetSupportsGlobalFocusBlocker()
{
    return m_supportsFocusBlocker;
}

void QtWindow2::doSetMenuBar(VXMenuBar2* bar)
{
    const auto place = [this](QMenuBar* wanted) {
        if (wanted && wanted == menuWidget())
            return;
        // Qt would delete the former one, which has an owner of its own.
        if (QWidget* former = menuWidget()) {
            layout()->setMenuBar(nullptr);
            former->hide();
        }
        if (wanted) {
            setMenuBar(wanted);
            wanted->show();
        }
    };
    if (bar) {
        withPeerOf<QtMenuBar2>(bar, [&](QtMenuBar2* peer) {
            if (peer)
                place(peer);
        });
    } else {
        place(nullptr);
    }
}

void QtWindow2::doAddToolBar(VXToolBar2* bar, ToolBarArea area)
{
    withPeerOf<QtToolBar2>(bar, [&](QtToolBar2* peer) {
        if (!peer)
            return;
        addToolBar(toQtArea(area), peer);
        const QtEventBlocker blocker(*peer, {WidgetEvent::Show});
        peer->show();   // one that was removed is hidden
    });
}

void QtWindow2::doRemoveToolBar(VXToolBar2* bar)
{
    withPeerOf<QtToolBar2>(bar, [&](QtToolBar2* peer) {
        if (!peer || toolBarArea(peer) == Qt::NoToolBarArea)
            return;
        const QtEventBlocker blocker(*peer, {WidgetEvent::Hide});
        removeToolBar(peer);
    });
}

void QtWindow2::doInsertToolBarBreak(VXToolBar2* before)
{
    withPeerOf<QtToolBar2>(before, [&](QtToolBar2* peer) {
        if (peer && toolBarArea(peer) != Qt::NoToolBarArea)
            insertToolBarBreak(peer);
    });
}

VXMenuBar2* QtWindow2::doGetMenuBar()
{
    return dynamic_cast<VXMenuBar2*>(abstractObjectOf(menuWidget()));
}

ToolBarArea QtWindow2::doGetToolBarArea(VXToolBar2* bar)
{
    ToolBarArea result = ToolBarArea::None;
    withPeerOf<QtToolBar2>(bar, [&](QtToolBar2* peer) {
        if (peer)
            result = fromQtArea(toolBarArea(peer));
    });
    return result;
}

}  // namespace VOXI
