#include "voxi2_qt/containers/qttabbar.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
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

void QtTabBar::keyPressEvent(QKeyEvent* event)
{
    const bool isPlain = event->modifiers() == Qt::NoModifier;
    if (event->key() == Qt::Key_Delete && isPlain && tabsClosable() && currentIndex() >= 0)
        Q_EMIT tabCloseRequested(currentIndex());
    else if (event->modifiers() != Qt::AltModifier || !moveCurrent(event->key()))
        QTabBar::keyPressEvent(event);
}

/// False for keys that mean no such thing.
bool QtTabBar::moveCurrent(int key)
{
    const bool isUpright = shape() == RoundedWest || shape() == RoundedEast
                           || shape() == TriangularWest || shape() == TriangularEast;
    int forward = isUpright ? Qt::Key_Down : Qt::Key_Right;
    int back = isUpright ? Qt::Key_Up : Qt::Key_Left;
    if (!isUpright && layoutDirection() == Qt::RightToLeft)
        std::swap(forward, back);
    if (!isMovable() || (key != forward && key != back))
        return false;
    const int from = currentIndex();
    const int to = from + (key == forward ? 1 : -1);
    if (from < 0 || to < 0 || to >= count())
        return true;
    const QPointer<QWidget> page = m_container.widget(from);
    moveTab(from, to);
    if (page)
        Q_EMIT pageDragged(page, from, to);
    return true;
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
