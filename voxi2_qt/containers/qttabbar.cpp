#include "voxi2_qt/containers/qttabbar.h"

#include <QContextMenuEvent>
#include <QMouseEvent>

#include <utility>

namespace VOXI {

QtTabBar::QtTabBar(QTabWidget* container) : QTabBar(container), m_container(*container) {}

void QtTabBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_pressed = m_container.widget(tabAt(event->position().toPoint()));
        m_from = -1;
    }
    QTabBar::mousePressEvent(event);
}

void QtTabBar::mouseMoveEvent(QMouseEvent* event)
{
    const int before = m_container.indexOf(m_pressed);
    QTabBar::mouseMoveEvent(event);
    if (m_from < 0 && m_container.indexOf(m_pressed) != before)
        m_from = before;
}

void QtTabBar::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointer<QTabBar> self(this);
    QTabBar::mouseReleaseEvent(event);
    if (!self || event->button() != Qt::LeftButton)
        return;
    const QPointer<QWidget> page = std::exchange(m_pressed, nullptr);
    const int from = std::exchange(m_from, -1);
    const int to = m_container.indexOf(page);
    if (from >= 0 && to >= 0 && to != from)
        Q_EMIT pageDragged(page, from, to);
}

void QtTabBar::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const int index = isByKey ? currentIndex() : tabAt(event->pos());
    const QPoint global = isByKey ? mapToGlobal(tabRect(index).center()) : event->globalPos();
    bool taken = false;
    if (index >= 0)
        Q_EMIT menuRequested(index, global, &taken);
    event->setAccepted(taken);
}

} // namespace VOXI
