#include "qtdocktitle.h"

#include "../kernel/qtcompositor.h"

#include <QApplication>
#include <QBoxLayout>
#include <QChildEvent>
#include <QMouseEvent>
#include <QWindow>

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

void QtDockTitle::mousePressEvent(QMouseEvent* event)
{
    // Qt would begin a drag, and not see its end.
    event->setAccepted(movesWindow() && event->button() == Qt::LeftButton);
    m_pressedAt = event->position().toPoint();
}

void QtDockTitle::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint way = event->position().toPoint() - m_pressedAt;
    event->setAccepted(movesWindow() && event->buttons() == Qt::LeftButton);
    if (event->isAccepted() && way.manhattanLength() >= QApplication::startDragDistance())
        window()->windowHandle()->startSystemMove();
}

void QtDockTitle::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->ignore(); // the dock widget docks
}

bool QtDockTitle::movesWindow() const
{
    const auto* const dock = static_cast<const QDockWidget*>(parentWidget());
    return isUnderCompositor() && dock->isFloating()
           && dock->features().testFlag(QDockWidget::DockWidgetMovable);
}

QWidget* dockTitleIn(const QDockWidget& dock)
{
    const auto* holder = static_cast<QtDockTitle*>(dock.titleBarWidget());
    return holder ? holder->title() : nullptr;
}

} // namespace VOXI
