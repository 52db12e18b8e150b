// The part of QtMenu2 that keeps the active entry while the pointer travels to the menu that has
// opened from it. The way is a wedge: from where the pointer was to both ends of that menu's edge.

#include "voxi2_qt/controls/qtmenu2.h"
#include "voxi2_qt/kernel/qtclock.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>

namespace VOXI {

// Reports -----------------------------------------------------------------------------------------

void QtMenu2::onUnfreezeTimer()
{
    releaseFreeze();
    const QPointer<QtMenu2> self(this);
    const QPoint pointer = mapFromGlobal(QCursor::pos());
    setActiveAction(actionAt(pointer));
    // Qt still waits for the pointer to reach the sub-menu, and would take its entry back after a
    // second, unless it sees where the pointer is.
    if (self) {
        QMouseEvent move(QEvent::MouseMove, pointer, mapToGlobal(pointer), Qt::NoButton,
                         QGuiApplication::mouseButtons(), QGuiApplication::keyboardModifiers());
        QMenu::mouseMoveEvent(&move);
    }
}

// While a menu is hidden Qt does not follow its entries, and would take one that has gone for the
// one under the pointer.

void QtMenu2::mousePressEvent(QMouseEvent* event)
{
    releaseFreeze();
    if (isVisible())
        QtWidget2Shim::mousePressEvent(event);
}

void QtMenu2::mouseReleaseEvent(QMouseEvent* event)
{
    if (isVisible())
        QtWidget2Shim::mouseReleaseEvent(event);
}

void QtMenu2::mouseMoveEvent(QMouseEvent* event)
{
    if (!isVisible())
        return;
    // Moves from a menu into its sub-menu send the menu no leave event.
    if (m_parentDigMenu && !m_parentDigMenu->geometry().contains(event->globalPosition().toPoint()))
        m_parentDigMenu->releaseFreeze();
    if (!m_frozenPopup || !isInWedge(QCursor::pos())) {
        QtWidget2Shim::mouseMoveEvent(event);
        return;
    }
    const QAction* action = actionAt(mapFromGlobal(QCursor::pos()));
    if (action && action != m_frozenPopup->menuAction())
        startFreezeTimer();
    else
        m_freezeTimer.reset();
}

void QtMenu2::leaveEvent(QEvent*)
{
    // Qt sends one as soon as a sub-menu has opened, wherever the pointer is. Not passed on: the
    // entry whose sub-menu is open stays active.
    if (!rect().contains(mapFromGlobal(QCursor::pos())))
        releaseFreeze();
}

// Helpers -----------------------------------------------------------------------------------------

void QtMenu2::setFrozenPopup(QtMenu2* child)
{
    if (child == m_frozenPopup)
        return;
    m_frozenPopup = child;
    if (!child) {
        m_freezeTimer.reset();
        return;
    }
    m_freezeAnchor = QCursor::pos();
    const QRect popup = child->geometry();
    if (popup.left() <= m_freezeAnchor.x()) {
        m_freezeEdgeA = QPoint(popup.right() + 1, popup.top()) - m_freezeAnchor;
        m_freezeEdgeB = QPoint(popup.right() + 1, popup.bottom() + 1) - m_freezeAnchor;
    } else {
        m_freezeEdgeA = QPoint(popup.left(), popup.bottom() + 1) - m_freezeAnchor;
        m_freezeEdgeB = QPoint(popup.left(), popup.top()) - m_freezeAnchor;
    }
}

void QtMenu2::releaseFreeze()
{
    m_frozenPopup = nullptr;
    m_freezeTimer.reset();
}

void QtMenu2::releaseParent()
{
    if (m_parentDigMenu)
        m_parentDigMenu->releaseFreeze();
    m_parentDigMenu = nullptr;
}

bool QtMenu2::isInWedge(QPoint pointer) const
{
    const QPoint way = pointer - m_freezeAnchor;
    const QPoint a = m_freezeEdgeA;
    const QPoint b = m_freezeEdgeB;
    return a.y() * way.x() - a.x() * way.y() >= 0 && b.x() * way.y() - b.y() * way.x() >= 0;
}

void QtMenu2::startFreezeTimer()
{
    m_freezeTimer = QtClock::current().startTimer(std::chrono::milliseconds(POPUP_HOLD_TIMEOUT),
                                                  [this] { onUnfreezeTimer(); });
}

} // namespace VOXI
