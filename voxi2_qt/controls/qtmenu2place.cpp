// The part of QtMenu2 that is about where menus are: over the one that they open from, and dig
// menus that are filled beside it, on the screen.

#include "../kernel/qtcompositor.h"
#include "voxi2_qt/controls/qtmenu2.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <QScreen>
#include <QStyle>
#include <QWindow>

#include <algorithm>

namespace VOXI {

// Helpers -----------------------------------------------------------------------------------------

/// The window system shows a menu over the one that it opens from, whoever owns it.
void QtMenu2::layOver(const QWidget* outer)
{
    QWindow* const own = windowHandle();
    const QWidget* const below = outer ? outer : nativeParentWidget();
    if (own)
        own->setTransientParent(below ? below->window()->windowHandle() : nullptr);
}

/// A compositor would leave the menu's corner where it is, and has its end beyond the screen.
void QtMenu2::moveWithSize(const QRect& geometry)
{
    if (!isUnderCompositor()) {
        setGeometry(geometry);
        return;
    }
    const QPointer<QtMenu2> self(this);
    m_isMoving = true;
    showAnew(this, [&] { setGeometry(geometry); });
    if (self)
        m_isMoving = false;
}

void QtMenu2::popupDigMenu(QtMenu2* parent)
{
    restoreSize();
    if (!isVisible()) {
        setUpdatesEnabled(true);
        return;
    }
    // It did not open from a menu that is not there.
    if (parent && !parent->isVisible())
        parent = nullptr;
    // The user has gone on to another entry; Qt leaves the menu of the one before open for a
    // second.
    if (parent && parent->activeAction() != menuAction()) {
        closeQuietly();
        return;
    }
    const QtEventBlocker blocker(*this, {WidgetEvent::Move, WidgetEvent::Resize});
    // The whole screen, also what task bars cover.
    const QRect area = (parent ? parent->screen() : screen())->geometry();
    // Thousands of entries stand in columns; those beyond the screen would all be painted, though
    // nobody can reach them.
    const QSize hint = sizeHint().expandedTo(minimumSize()).boundedTo(maximumSize());
    const QSize size(std::min(hint.width(), area.width()), hint.height());
    const QPoint wanted = parent ? placeBeside(*parent, size) : mapToGlobal(QPoint(0, 0));
    const QPointer<QtMenu2> self(this);
    moveWithSize(QRect(keepOnScreen(wanted, size, area), size));
    if (!self)
        return;
    setUpdatesEnabled(true);
    repaint();
    if (parent) {
        m_parentDigMenu = parent;
        parent->setFrozenPopup(this);
    }
}

/// Beside the parent's active entry, where Qt would have put a sub-menu of that size.
QPoint QtMenu2::placeBeside(const QtMenu2& parent, QSize size) const
{
    const int overlap = parent.style()->pixelMetric(QStyle::PM_SubMenuOverlap, nullptr, &parent);
    const QRect entry = parent.actionGeometry(parent.activeAction());
    const QRect area = parent.screen()->geometry();
    const QPoint right = parent.mapToGlobal(QPoint(entry.right() + overlap + 1, entry.top()));
    const QPoint left =
        parent.mapToGlobal(QPoint(entry.left() - size.width() - overlap, entry.top()));
    if (parent.isLeftToRight()) {
        // Once Qt has opened a menu to the left, those that follow go there as well.
        if (parent.x() <= x() && right.x() + size.width() <= area.right())
            return right;
        return left.x() < area.left() ? QPoint(area.right() - size.width(), right.y()) : left;
    }
    if (parent.x() >= x() && left.x() >= area.left())
        return left;
    return right.x() + size.width() >= area.right() ? QPoint(area.left(), left.y()) : right;
}

QPoint QtMenu2::keepOnScreen(QPoint position, QSize size, const QRect& area) const
{
    const auto rightOf = [&] { return position.x() + size.width() - 1; };
    const int rightmost = area.right() - size.width() + 1;
    const int lowest = area.bottom() - size.height() + 1;
    if (isLeftToRight()) {
        if (rightOf() > area.right())
            position.setX(rightmost);
        if (position.x() < area.left())
            position.setX(area.left());
    } else {
        position.setX(std::max(position.x(), area.left()));
        if (rightOf() > area.right())
            position.setX(std::max(position.x() - size.width(), rightmost));
    }
    position.setY(std::max(position.y(), area.top()));
    // Last: of a menu taller than the screen the end is what can be reached.
    position.setY(std::min(position.y(), lowest));
    return position;
}

} // namespace VOXI
