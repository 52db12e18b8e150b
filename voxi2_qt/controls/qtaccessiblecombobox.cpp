#include "qtaccessiblecombobox.h"

#include "../kernel/qtaccessfactory.h"
#include "voxi2_qt/controls/qtcombobox2.h"

#include <QAbstractItemView>
#include <QKeySequence>
#include <QLineEdit>

namespace VOXI {

namespace {

QAccessibleInterface* create(const QString&, QObject* object)
{
    auto* const box = qobject_cast<QtComboBox2*>(object);
    return box ? new QtAccessibleComboBox(box) : nullptr;
}

} // namespace

QtAccessibleComboBox::QtAccessibleComboBox(QtComboBox2* box)
    : QAccessibleWidget(box, QAccessible::ComboBox)
{}

void QtAccessibleComboBox::install() { static const QtAccessFactory<&create> s_installed; }

/// As everywhere on this system it is read as what is chosen; its title is a relation.
QString QtAccessibleComboBox::text(QAccessible::Text kind) const
{
    QString text;
    if (kind == QAccessible::Name || kind == QAccessible::Value)
        text = box().currentText();
    else if (kind == QAccessible::Accelerator)
        text = QKeySequence(Qt::Key_Down).toString(QKeySequence::NativeText);
    return text.isEmpty() ? QAccessibleWidget::text(kind) : text;
}

QAccessible::State QtAccessibleComboBox::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = box().view()->isVisible();
    return state;
}

int QtAccessibleComboBox::childCount() const { return box().isEditable() ? 2 : 1; }

QAccessibleInterface* QtAccessibleComboBox::child(int index) const
{
    if (index == 0) {
        box().hearList();
        return QAccessible::queryAccessibleInterface(box().view());
    }
    return index == 1 && box().isEditable()
               ? QAccessible::queryAccessibleInterface(box().lineEdit())
               : nullptr;
}

QAccessibleInterface* QtAccessibleComboBox::childAt(int x, int y) const
{
    const QLineEdit* const line = box().lineEdit();
    return line && line->rect().contains(line->mapFromGlobal(QPoint(x, y))) ? child(1) : nullptr;
}

int QtAccessibleComboBox::indexOfChild(const QAccessibleInterface* child) const
{
    for (int i = 0; child && i < childCount(); ++i) {
        if (this->child(i)->object() == child->object())
            return i;
    }
    return -1;
}

/// The line has the box get its keys.
QAccessibleInterface* QtAccessibleComboBox::focusChild() const
{
    return box().isEditable() ? child(1) : nullptr;
}

QStringList QtAccessibleComboBox::actionNames() const { return {showMenuAction(), pressAction()}; }

void QtAccessibleComboBox::doAction(const QString& name)
{
    if ((name != showMenuAction() && name != pressAction()) || !box().isEnabled())
        return;
    if (box().view()->isVisible())
        box().hidePopup();
    else
        box().showPopup();
}

QtComboBox2& QtAccessibleComboBox::box() const { return *static_cast<QtComboBox2*>(object()); }

} // namespace VOXI
