#include "voxi2_qt/controls/qttoolbutton2.h"

#include "voxi2/controls/vxmenu2.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2_qt/controls/qtmenu2.h"
#include "voxi2_qt/kernel/qtaction2.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QActionEvent>

namespace VOXI {

struct QtToolButton2::Requests
{
    using E = VXToolButton2Emitters;
    using P = QtToolButton2;

    static inline const auto s_table = TROV::operations<E>(
        TROV::row<&E::setMenu, &P::doSetMenu>(), TROV::row<&E::getMenu, &P::doGetMenu>(),
        TROV::row<&E::setDefaultAction, &P::doSetDefaultAction>(),
        TROV::row<&E::getDefaultAction, &P::doGetDefaultAction>(),
        TROV::row<&E::setPopupMode, &P::doSetPopupMode>(),
        TROV::row<&E::getPopupMode, &P::doGetPopupMode>(),
        TROV::row<&E::setToolButtonStyle, &P::doSetToolButtonStyle>(),
        TROV::row<&E::getToolButtonStyle, &P::doGetToolButtonStyle>(),
        TROV::row<&E::clearMenu, &P::doClearMenu>(),
        TROV::row<&E::clearDefaultAction, &P::doClearDefaultAction>(),
        TROV::row<&E::setAutoRaise, &P::doSetAutoRaise>(),
        TROV::row<&E::isAutoRaise, &P::doIsAutoRaise>());
};

QtToolButton2::QtToolButton2(VXToolButton2* object, VXToolButton2Emitters* emitters,
                             QWidget* parent)
    : QtWidget2Shim(object, emitters, Requests::s_table, parent)
{
    setPopupMode(QToolButton::InstantPopup);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

// Requests ----------------------------------------------------------------------------------------

void QtToolButton2::doSetMenu(VXMenu2* menu)
{
    withPeerOf<QtMenu2>(menu, [this](QtMenu2* peer) { setMenu(peer); });
}

VXMenu2* QtToolButton2::doGetMenu()
{
    VXObjectDataLocker lock;
    const auto* peer = dynamic_cast<QtMenu2*>(menu());
    return peer ? static_cast<VXMenu2*>(peer->getHandle()) : nullptr;
}

void QtToolButton2::doSetDefaultAction(VXAction2* action)
{
    withPeerOf<QtAction2>(action, [this](QtAction2* peer) {
        QAction* former = defaultAction();
        // The button takes over the action's state, which its user has not changed.
        quietly([&] { setDefaultAction(peer); });
        // With two actions it would show a menu of them.
        if (former && former != peer)
            removeAction(former);
    });
}

VXAction2* QtToolButton2::doGetDefaultAction()
{
    VXObjectDataLocker lock;
    const auto* peer = dynamic_cast<QtAction2*>(defaultAction());
    return peer ? static_cast<VXAction2*>(peer->getHandle()) : nullptr;
}

void QtToolButton2::doSetPopupMode(VOXI::ToolButtonPopupMode mode) { setPopupMode(VX2Qt(mode)); }
VOXI::ToolButtonPopupMode QtToolButton2::doGetPopupMode() { return Qt2VX(popupMode()); }

void QtToolButton2::doSetToolButtonStyle(ToolButtonStyle style)
{
    setToolButtonStyle(VX2Qt(style));
}

ToolButtonStyle QtToolButton2::doGetToolButtonStyle() { return Qt2VX(toolButtonStyle()); }
void QtToolButton2::doClearMenu() { setMenu(nullptr); }

void QtToolButton2::doClearDefaultAction()
{
    if (QAction* action = defaultAction()) {
        setDefaultAction(nullptr);
        removeAction(action);
    }
}

void QtToolButton2::doSetAutoRaise(bool autoRaise) { setAutoRaise(autoRaise); }
bool QtToolButton2::doIsAutoRaise() { return autoRaise(); }

// Reports -----------------------------------------------------------------------------------------

void QtToolButton2::slotClicked() { reportClick(); }
void QtToolButton2::slotToggled(bool checked) { reportToggle(checked); }

void QtToolButton2::actionEvent(QActionEvent* event)
{
    // An action that is quiet is being changed by the program; the button that follows it is not
    // toggled by its user then.
    if (event->type() == QEvent::ActionChanged && event->action()->signalsBlocked()) {
        quietly([&] { QToolButton::actionEvent(event); });
        return;
    }
    QToolButton::actionEvent(event);
}

} // namespace VOXI
