#include "voxi2_qt/kernel/qtwidget2.h"

#include "qtcomposedwindows.h"
#include "qtcompositor.h"
#include "qttakeout.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtbaritem.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtdragdelegate2.h"
#include "voxi2_qt/kernel/qteventblocker.h"
#include "voxi2_qt/kernel/qteventfilter2.h"
#include "voxi2_qt/kernel/qtglobalfocusblocker.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QWidget>
#include <QWindow>

namespace VOXI {

namespace {

using E = VXWidget2Emitters;
using P = QtWidget2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::show, &P::doShow>(),
    TROV::row<&E::hide, &P::doHide>(),
    TROV::row<&E::raise, &P::doRaise>(),
    TROV::row<&E::lower, &P::doLower>(),
    TROV::row<&E::setActiveWindow, &P::doSetActiveWindow>(),
    TROV::row<&E::refresh, &P::doRefresh>(),
    TROV::row<&E::update, &P::doUpdate>(),
    TROV::row<&E::adjustSize, &P::doAdjustSize>(),
    TROV::row<&E::setContentsMargins, &P::doSetContentsMargins>(),
    TROV::row<&E::setColor, &P::doSetColor>(),
    TROV::row<&E::setEnabled, &P::doSetEnabled>(),
    TROV::row<&E::setEventConsumed, &P::doSetEventConsumed>(),
    TROV::row<&E::setFocus, &P::doSetFocus>(),
    TROV::row<&E::setFocusPolicy, &P::doSetFocusPolicy>(),
    TROV::row<&E::setFocusProxy, &P::doSetFocusProxy>(),
    TROV::row<&E::setFont, &P::doSetFont>(),
    TROV::row<&E::setMaximumSize, &P::doSetMaximumSize>(),
    TROV::row<&E::setMinimumSize, &P::doSetMinimumSize>(),
    TROV::row<&E::resize, &P::doResize>(),
    TROV::row<&E::setPosition, &P::doSetPosition>(),
    TROV::row<&E::moveTo, &P::doMoveTo>(),
    TROV::row<&E::setAcceptDrops, &P::doSetAcceptDrops>(),
    TROV::row<&E::setToolTip, &P::doSetToolTip>(),
    TROV::row<&E::setToolTipU, &P::doSetToolTipU>(),
    TROV::row<&E::setVisible, &P::doSetVisible>(),
    TROV::row<&E::setCursor, &P::doSetCursor>(),
    TROV::row<&E::setObjectName, &P::doSetObjectName>(),
    TROV::row<&E::setUpdatesEnabled, &P::doSetUpdatesEnabled>(),
    TROV::row<&E::unsetCursor, &P::doUnsetCursor>(),
    TROV::row<&E::setDragDelegate, &P::doSetDragDelegate>(),
    TROV::row<&E::setWidgetHighlight, &P::doSetWidgetHighlight>(),
    TROV::row<&E::restoreGeometry, &P::doRestoreGeometry>(),
    TROV::row<&E::setSizeConstraint, &P::doSetSizeConstraint>(),
    TROV::row<&E::setFixedSize, &P::doSetFixedSize>(),
    TROV::row<&E::setSizePolicy, &P::doSetSizePolicy>(),
    TROV::row<&E::isActiveWindow, &P::doIsActiveWindow>(),
    TROV::row<&E::getColor, &P::doGetColor>(),
    TROV::row<&E::isEnabled, &P::doIsEnabled>(),
    TROV::row<&E::isEventConsumed, &P::doIsEventConsumed>(),
    TROV::row<&E::hasFocus, &P::doHasFocus>(),
    TROV::row<&E::getFocusPolicy, &P::doGetFocusPolicy>(),
    TROV::row<&E::getFocusProxy, &P::doGetFocusProxy>(),
    TROV::row<&E::getFont, &P::doGetFont>(),
    TROV::row<&E::getMaximumSize, &P::doGetMaximumSize>(),
    TROV::row<&E::getMinimumSize, &P::doGetMinimumSize>(),
    TROV::row<&E::getPosition, &P::doGetPosition>(),
    TROV::row<&E::getGlobalPosition, &P::doGetGlobalPosition>(),
    TROV::row<&E::mapToGlobal, &P::doMapToGlobal>(),
    TROV::row<&E::mapFromGlobal, &P::doMapFromGlobal>(),
    TROV::row<&E::canAcceptDrops, &P::doCanAcceptDrops>(),
    TROV::row<&E::getContentsRect, &P::doGetContentsRect>(),
    TROV::row<&E::getToolTip, &P::doGetToolTip>(),
    TROV::row<&E::getToolTipU, &P::doGetToolTipU>(),
    TROV::row<&E::getContentsMargins, &P::doGetContentsMargins>(),
    TROV::row<&E::isVisible, &P::doIsVisible>(),
    TROV::row<&E::getObjectName, &P::doGetObjectName>(),
    TROV::row<&E::getCursor, &P::doGetCursor>(),
    TROV::row<&E::getDragDelegate, &P::doGetDragDelegate>(),
    TROV::row<&E::getWinId, &P::doGetWinId>(),
    TROV::row<&E::isWidgetHighlighted, &P::doIsWidgetHighlighted>(),
    TROV::row<&E::saveGeometry, &P::doSaveGeometry>(),
    asUserRow<&E::triggerWidgetEvent, &P::doimTriggerWidgetEvent>(),
    asUserRow<&E::triggerContextMenuEvent, &P::doimTriggerContextMenuEvent>(),
    asUserRow<&E::triggerFocusEvent, &P::doimTriggerFocusEvent>(),
    asUserRow<&E::triggerKeyEvent, &P::doimTriggerKeyEvent>(),
    asUserRow<&E::triggerMouseEvent, &P::doimTriggerMouseEvent>(),
    asUserRow<&E::triggerMoveEvent, &P::doimTriggerMoveEvent>(),
    asUserRow<&E::triggerResizeEvent, &P::doimTriggerResizeEvent>(),
    TROV::row<&E::setAccessibleName, &P::doSetAccessibleName>(),
    TROV::row<&E::setAccessibleDescription, &P::doSetAccessibleDescription>(),
    TROV::row<&E::getAccessibleName, &P::doGetAccessibleName>(),
    TROV::row<&E::getAccessibleDescription, &P::doGetAccessibleDescription>(),
    TROV::row<&E::setMouseTracking, &P::doSetMouseTracking>(),
    TROV::row<&E::hasMouseTracking, &P::doHasMouseTracking>(),
    TROV::row<&E::setTouchEnabled, &P::doSetTouchEnabled>(),
    TROV::row<&E::isTouchEnabled, &P::doIsTouchEnabled>(),
    TROV::row<&E::setTabOrder, &P::doSetTabOrder>(),
    TROV::row<&E::getTabOrder, &P::doGetTabOrder>());
// clang-format on

/// Qt does not move a window's QWindow along when its owner goes to another window. Should that
/// former window then be put above the one that went, the two would lie above each other, and Qt
/// look for their top for ever.
void followOwners(const QWindow& former)
{
    for (const QWidget* const window : QApplication::topLevelWidgets()) {
        QWindow* const handle = window->windowHandle();
        const QWidget* const owner = window->parentWidget();
        if (handle && owner && handle->transientParent() == &former)
            handle->setTransientParent(owner->window()->windowHandle());
    }
}

} // namespace

std::map<QtWidget2*, QAction*> QtWidget2::m_ActionMap;

QtWidget2::QtWidget2(VXWidget2* widget, VXWidget2Emitters* emitters)
    : QtPeerLevel(widget, emitters, s_requests)
{}

QtWidget2::~QtWidget2()
{
    if (!m_ActionMap.empty())
        m_ActionMap.erase(this);
}

void QtWidget2::endPeer()
{
    QtObject2::endPeer();
    m_eventFilter.switchOff();
}

void QtWidget2::scheduleDelete()
{
    m_eventFilter.switchOff();
    QtObject2::scheduleDelete();
}

void QtWidget2::leave() { takeOutAlone(asQWidget()); }

// Requests ----------------------------------------------------------------------------------------

void QtWidget2::doSetParent(VXObject* parent)
{
    changeParent(parent, asQWidget()->windowFlags() & ~Qt::WindowType_Mask);
}

void QtWidget2::doShow()
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Show, WidgetEvent::FocusIn});
    endAside(asQWidget(), false);
    if (!changeWithAction(true))
        asQWidget()->show();
}

void QtWidget2::doHide()
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Hide});
    endAside(asQWidget(), false);
    if (!changeWithAction(false))
        asQWidget()->hide();
}

void QtWidget2::doRaise()
{
    const QtEventBlocker blocker(*this, {WidgetEvent::FocusIn});
    if (asQWidget()->isWindow())
        noteRefusal(CompositorRefusal::Raising);
    asQWidget()->raise();
}

void QtWidget2::doLower()
{
    if (asQWidget()->isWindow())
        noteRefusal(CompositorRefusal::Raising);
    asQWidget()->lower();
}

void QtWidget2::doSetActiveWindow()
{
    const QtEventBlocker blocker(*this, {WidgetEvent::FocusIn});
    noteRefusal(CompositorRefusal::Raising);
    QtGlobalFocusBlocker::instance().awaitActivation(asQWidget()->window());
    asQWidget()->activateWindow();
    asQWidget()->raise();
}

void QtWidget2::doRefresh()
{
    asQWidget()->updateGeometry();
    asQWidget()->repaint();
}

void QtWidget2::doUpdate() { asQWidget()->update(); }

void QtWidget2::doSetEnabled(bool enabled)
{
    const QtProgramScope scope; // the focus goes on
    asQWidget()->setEnabled(enabled);
}

void QtWidget2::doSetFocus()
{
    const QtEventBlocker blocker(*this, {WidgetEvent::FocusIn});
    asQWidget()->setFocus(Qt::OtherFocusReason);
}

void QtWidget2::doSetFocusPolicy(FocusPolicy policy) { asQWidget()->setFocusPolicy(VX2Qt(policy)); }

void QtWidget2::doSetFocusProxy(VXWidget2* proxy)
{
    if (!proxy) {
        asQWidget()->setFocusProxy(nullptr);
        return;
    }
    withWidgetOf(proxy, [this](QWidget* widget) { asQWidget()->setFocusProxy(widget); });
}

void QtWidget2::doSetAcceptDrops(bool accept) { asQWidget()->setAcceptDrops(accept); }

void QtWidget2::doSetVisible(bool visible)
{
    const QtEventBlocker blocker(*this,
                                 {WidgetEvent::Show, WidgetEvent::Hide, WidgetEvent::FocusIn});
    endAside(asQWidget(), false);
    if (!changeWithAction(visible))
        asQWidget()->setVisible(visible);
}

void QtWidget2::doSetObjectName(const std::string& name)
{
    asQWidget()->setObjectName(toQString(name));
}

void QtWidget2::doSetUpdatesEnabled(bool enabled) { asQWidget()->setUpdatesEnabled(enabled); }

void QtWidget2::doSetDragDelegate(VXDragDelegate2* delegate)
{
    if (!delegate) {
        extras().m_dragDelegateId = 0;
        return;
    }
    withPeerOf<QtDragDelegate2>(delegate, [this](QtDragDelegate2* peer) {
        extras().m_dragDelegateId = peer ? peer->getUID() : 0;
    });
}

bool QtWidget2::doIsActiveWindow() { return asQWidget()->isActiveWindow(); }
bool QtWidget2::doIsEnabled() { return asQWidget()->isEnabled(); }
bool QtWidget2::doHasFocus() { return asQWidget()->hasFocus(); }
FocusPolicy QtWidget2::doGetFocusPolicy() { return Qt2VX(asQWidget()->focusPolicy()); }

VXWidget2* QtWidget2::doGetFocusProxy()
{
    return abstractObjectOf<VXWidget2>(asQWidget()->focusProxy());
}

bool QtWidget2::doCanAcceptDrops() { return asQWidget()->acceptDrops(); }
bool QtWidget2::doIsVisible() { return asQWidget()->isVisible() && !asQWidget()->isMinimized(); }
std::string QtWidget2::doGetObjectName() { return toStdString(asQWidget()->objectName()); }

VXDragDelegate2* QtWidget2::doGetDragDelegate()
{
    return abstractObjectOf<VXDragDelegate2>(dragDelegate());
}

unsigned long long QtWidget2::doGetWinId() { return asQWidget()->winId(); }
void QtWidget2::doSetMouseTracking(bool tracking) { asQWidget()->setMouseTracking(tracking); }
bool QtWidget2::doHasMouseTracking() { return asQWidget()->hasMouseTracking(); }

void QtWidget2::doSetTouchEnabled(bool enabled)
{
    asQWidget()->setAttribute(Qt::WA_AcceptTouchEvents, enabled);
    if (enabled)
        enableGestureEvents();
    else
        disableGestureEvents();
}

bool QtWidget2::doIsTouchEnabled() { return asQWidget()->testAttribute(Qt::WA_AcceptTouchEvents); }

// Helpers -----------------------------------------------------------------------------------------

void QtWidget2::changeParent(VXObject* parent, Qt::WindowFlags flags)
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Hide}); // Qt hides what moves elsewhere
    QWidget* const self = asQWidget();
    const auto move = [&](QWidget* target) {
        // Qt's tree is not the owners': what lies inside this widget cannot hold it.
        if (target != self->parentWidget() && !isWithin(self, target)) {
            endAside(self, target != nullptr);
            leaveBar();
            if (const QWindow* const handle = self->windowHandle())
                followOwners(*handle);
            self->setParent(target, flags);
            QtComposedWindows::settle(*self);
        }
    };
    if (parent)
        withWidgetOf(parent, move);
    else
        move(nullptr);
}

QtDragDelegate2* QtWidget2::dragDelegate() const
{
    // By id: the delegate may have gone meanwhile.
    const unsigned id = m_extras ? m_extras->m_dragDelegateId : 0;
    return id ? dynamic_cast<QtDragDelegate2*>(lookup(id)) : nullptr;
}

void QtWidget2::addWidgetAction(QAction* action)
{
    if (!action) {
        m_ActionMap.erase(this);
        return;
    }
    m_ActionMap[this] = action;
    // The bar or menu may go, and the action with it, while the widget lives on.
    QObject::connect(action, &QObject::destroyed, asQObject(), [this, action] {
        const auto found = m_ActionMap.find(this);
        if (found != m_ActionMap.end() && found->second == action)
            m_ActionMap.erase(found);
    });
}

QAction* QtWidget2::getWidgetAction() const
{
    const auto found = m_ActionMap.find(const_cast<QtWidget2*>(this));
    return found == m_ActionMap.end() ? nullptr : found->second;
}

void QtWidget2::leaveBar()
{
    if (auto* item = qobject_cast<QtBarItem*>(getWidgetAction()))
        item->leave();
}

bool QtWidget2::changeWithAction(bool visible)
{
    QAction* action = getWidgetAction();
    if (!action)
        return false;
    const QtEventBlocker blocker(
        *this, {WidgetEvent::Show, WidgetEvent::Hide, WidgetEvent::Move, WidgetEvent::Resize});
    // The action first: what it does not show the bar hides at once.
    action->setVisible(visible);
    asQWidget()->setVisible(visible);
    // Handlers of the focus have run; the map knows whether the action is still there.
    if (auto* item = qobject_cast<QtBarItem*>(getWidgetAction()))
        item->settle();
    return true;
}

QAbstractScrollArea* QtWidget2::scrollArea() const noexcept
{
    return qobject_cast<QAbstractScrollArea*>(asQWidget());
}

void leaveFocusOf(const QWidget& goes)
{
    for (const QWidget* outer = goes.parentWidget(); outer; outer = outer->parentWidget()) {
        QWidget* const inner = outer->focusWidget();
        if (inner && isWithin(&goes, inner))
            inner->clearFocus();
    }
}

} // namespace VOXI
