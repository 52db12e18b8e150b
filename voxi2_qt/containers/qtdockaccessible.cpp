#include "qtdockaccessible.h"

#include "voxi2_qt/containers/qtdockwidget2.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace VOXI {

namespace {

class Interface : public QAccessibleWidget
{
public:
    explicit Interface(QtDockWidget2* dock) : QAccessibleWidget(dock, QAccessible::Window) {}

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Name && widget()->accessibleName().isEmpty())
            return widget()->windowTitle(); // also while it is docked
        return QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* create(const QString&, QObject* object)
{
    auto* dock = dynamic_cast<QtDockWidget2*>(object);
    return dock ? new Interface(dock) : nullptr;
}

/// Takes the factory out again before this library goes.
struct Installed
{
    Installed() { QAccessible::installFactory(&create); }
    ~Installed() { QAccessible::removeFactory(&create); }
};

} // namespace

void makeDockWidgetsAccessible()
{
    static const Installed s_installed;
}

} // namespace VOXI
