#pragma once

#include "qtaccessfactory.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace VOXI {

/// Has assistive programs read a text of each `Widget` as its name, or where it was given one, as
/// its description, and press what can be clicked. For widgets of which they would not find that.
template <class Widget, QAccessible::Role Role, auto Text>
class QtAccessibleName
{
public:
    static QAccessibleInterface* create(const QString&, QObject* object)
    {
        auto* const widget = qobject_cast<Widget*>(object);
        return widget ? new Interface(widget) : nullptr;
    }

private:
    class Interface : public QAccessibleWidget
    {
    public:
        explicit Interface(Widget* widget) : QAccessibleWidget(widget, Role) {}

        /// A name hides no text: that may change, and is to be heard all the same.
        QString text(QAccessible::Text kind) const override
        {
            const bool isNamed = !self().accessibleName().isEmpty();
            const QString own = QAccessibleWidget::text(kind);
            const bool isWanted = isNamed ? kind == QAccessible::Description && own.isEmpty()
                                          : kind == QAccessible::Name;
            return isWanted ? (self().*Text)() : own;
        }

        QStringList actionNames() const override
        {
            QStringList names = QAccessibleWidget::actionNames();
            if (IsClicked && self().isEnabled())
                names.prepend(pressAction());
            return names;
        }

        void doAction(const QString& name) override
        {
            if constexpr (IsClicked) {
                if (name == pressAction() && self().isEnabled()) {
                    self().doimClick();
                    return;
                }
            }
            QAccessibleWidget::doAction(name);
        }

    private:
        static constexpr bool IsClicked = requires(Widget & widget) { widget.doimClick(); };

        Widget& self() const { return *static_cast<Widget*>(widget()); }
    };
};

/// To be called by the constructors of such widgets.
template <class Widget, QAccessible::Role Role, auto Text>
void readTextAsName()
{
    static const QtAccessFactory<&QtAccessibleName<Widget, Role, Text>::create> s_installed;
}

} // namespace VOXI
