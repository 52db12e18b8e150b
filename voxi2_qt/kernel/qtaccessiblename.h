#pragma once

#include <QAccessible>
#include <QAccessibleWidget>

namespace VOXI {

/// Has assistive programs read a text of each `Widget` as its name, unless it was given one. For
/// widgets whose text they would not find.
template <class Widget, QAccessible::Role Role, auto Text>
class QtAccessibleName
{
public:
    QtAccessibleName() { QAccessible::installFactory(&create); }
    /// Not for longer than this library is loaded.
    ~QtAccessibleName() { QAccessible::removeFactory(&create); }
    QtAccessibleName(const QtAccessibleName&) = delete;
    QtAccessibleName& operator=(const QtAccessibleName&) = delete;

private:
    class Interface : public QAccessibleWidget
    {
    public:
        explicit Interface(Widget* widget) : QAccessibleWidget(widget, Role) {}

        QString text(QAccessible::Text kind) const override
        {
            const QWidget* const self = widget();
            return kind == QAccessible::Name && self->accessibleName().isEmpty()
                       ? (static_cast<const Widget*>(self)->*Text)()
                       : QAccessibleWidget::text(kind);
        }
    };

    static QAccessibleInterface* create(const QString&, QObject* object)
    {
        auto* const widget = qobject_cast<Widget*>(object);
        return widget ? new Interface(widget) : nullptr;
    }
};

/// To be called by the constructors of such widgets.
template <class Widget, QAccessible::Role Role, auto Text>
void readTextAsName()
{
    static const QtAccessibleName<Widget, Role, Text> s_installed;
}

} // namespace VOXI
