#include "qtaccessiblebutton.h"

#include "../kernel/qtaccessfactory.h"
#include "../kernel/qtaccesskey.h"
#include "voxi2_qt/kernel/qtobject2.h"

#include <QCheckBox>
#include <QKeySequence>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QToolButton>

namespace VOXI {

namespace {

QAccessibleInterface* create(const QString&, QObject* object)
{
    auto* const button = qobject_cast<QAbstractButton*>(object);
    return button && peerOf(button) ? new QtAccessibleButton(button) : nullptr;
}

QMenu* menuOf(const QAbstractButton& button)
{
    if (const auto* push = qobject_cast<const QPushButton*>(&button))
        return push->menu();
    const auto* const tool = qobject_cast<const QToolButton*>(&button);
    return tool ? tool->menu() : nullptr;
}

bool opensAtOnce(const QAbstractButton& button)
{
    const auto* const tool = qobject_cast<const QToolButton*>(&button);
    return menuOf(button) && (!tool || tool->popupMode() == QToolButton::InstantPopup);
}

} // namespace

QtAccessibleButton::QtAccessibleButton(QAbstractButton* button) : QAccessibleWidget(button) {}

void QtAccessibleButton::install() { static const QtAccessFactory<&create> s_installed; }

QString QtAccessibleButton::text(QAccessible::Text kind) const
{
    QString text;
    if (kind == QAccessible::Name && button().accessibleName().isEmpty())
        text = withoutAccessKey(button().text());
    if (kind == QAccessible::Accelerator) {
        const auto* const push = qobject_cast<const QPushButton*>(&button());
        text = push && push->isDefault()
                   ? QKeySequence(Qt::Key_Enter).toString(QKeySequence::NativeText)
                   : accessKeyOf(button().text());
    }
    return text.isEmpty() ? QAccessibleWidget::text(kind) : text;
}

QAccessible::State QtAccessibleButton::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button().isCheckable();
    state.checked = button().isChecked();
    state.pressed = button().isDown();
    state.hasPopup = menuOf(button()) != nullptr;
    if (const auto* box = qobject_cast<const QCheckBox*>(&button()))
        state.checkStateMixed = box->checkState() == Qt::PartiallyChecked;
    if (const auto* push = qobject_cast<const QPushButton*>(&button()))
        state.defaultButton = push->isDefault();
    if (const auto* tool = qobject_cast<const QToolButton*>(&button()))
        state.hotTracked = state.hotTracked || tool->autoRaise();
    return state;
}

QAccessible::Role QtAccessibleButton::role() const
{
    if (menuOf(button())) {
        const auto* const tool = qobject_cast<const QToolButton*>(&button());
        return tool && tool->popupMode() == QToolButton::DelayedPopup ? QAccessible::ButtonDropDown
                                                                      : QAccessible::ButtonMenu;
    }
    if (!button().isCheckable())
        return QAccessible::Button;
    const bool isTool = qobject_cast<const QToolButton*>(&button());
    return button().autoExclusive() && !isTool ? QAccessible::RadioButton : QAccessible::CheckBox;
}

/// Of check boxes and radio buttons what a click does something on, which need not be all.
QRect QtAccessibleButton::rect() const
{
    const bool isRadio = qobject_cast<const QRadioButton*>(&button());
    if (!button().isVisible() || (!isRadio && !qobject_cast<const QCheckBox*>(&button())))
        return QAccessibleWidget::rect();
    QStyleOptionButton option;
    option.initFrom(&button());
    option.text = button().text();
    option.icon = button().icon();
    option.iconSize = button().iconSize();
    return button()
        .style()
        ->subElementRect(isRadio ? QStyle::SE_RadioButtonClickRect : QStyle::SE_CheckBoxClickRect,
                         &option, &button())
        .translated(button().mapToGlobal(QPoint(0, 0)));
}

int QtAccessibleButton::childCount() const
{
    if (qobject_cast<const QToolButton*>(&button()))
        return isSplit() ? 1 : 0;
    return QAccessibleWidget::childCount();
}

QAccessibleInterface* QtAccessibleButton::child(int index) const
{
    if (!qobject_cast<const QToolButton*>(&button()))
        return QAccessibleWidget::child(index);
    return isSplit() && index == 0 ? QAccessible::queryAccessibleInterface(menuOf(button()))
                                   : nullptr;
}

// Actions -----------------------------------------------------------------------------------------

QStringList QtAccessibleButton::actionNames() const
{
    QStringList names;
    if (button().isEnabled()) {
        if (menuOf(button()))
            names.append(showMenuAction());
        if (!opensAtOnce(button()))
            names.append(button().isCheckable() ? toggleAction() : pressAction());
    }
    return names + QAccessibleWidget::actionNames();
}

void QtAccessibleButton::doAction(const QString& name)
{
    if (!button().isEnabled())
        return;
    if (name == showMenuAction() && menuOf(button())) {
        // It runs until the menu is closed, while the program that asks waits.
        QMetaObject::invokeMethod(
            &button(),
            [it = &button()] {
                if (auto* const push = qobject_cast<QPushButton*>(it))
                    push->showMenu();
                else if (auto* const tool = qobject_cast<QToolButton*>(it))
                    tool->showMenu();
            },
            Qt::QueuedConnection);
    } else if ((name == toggleAction() && button().isCheckable()) || name == pressAction()) {
        button().click();
    } else {
        QAccessibleWidget::doAction(name);
    }
}

QStringList QtAccessibleButton::keyBindingsForAction(const QString& name) const
{
    const bool isClick = name == pressAction() || name == toggleAction();
    return isClick ? QStringList(button().shortcut().toString()) : QStringList();
}

// Helpers -----------------------------------------------------------------------------------------

QAbstractButton& QtAccessibleButton::button() const
{
    return *static_cast<QAbstractButton*>(object());
}

/// With a part of its own for the menu.
bool QtAccessibleButton::isSplit() const
{
    const auto* const tool = qobject_cast<const QToolButton*>(&button());
    return tool && tool->menu() && tool->popupMode() == QToolButton::MenuButtonPopup;
}

} // namespace VOXI
