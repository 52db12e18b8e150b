#include "qtdocktitle.h"

#include <QBoxLayout>
#include <QChildEvent>

namespace VOXI {

QtDockTitle::QtDockTitle(QDockWidget* dock, QWidget* title) : QWidget(dock), m_title(title)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(title);
}

void QtDockTitle::childEvent(QChildEvent* event)
{
    if (event->removed() && event->child() == m_title) {
        m_title = nullptr;
        auto* dock = static_cast<QDockWidget*>(parentWidget());
        if (dock->titleBarWidget() == this)
            dock->setTitleBarWidget(nullptr);
        deleteLater();
    }
    QWidget::childEvent(event);
}

QWidget* dockTitleIn(const QDockWidget& dock)
{
    const auto* holder = static_cast<QtDockTitle*>(dock.titleBarWidget());
    return holder ? holder->title() : nullptr;
}

} // namespace VOXI
