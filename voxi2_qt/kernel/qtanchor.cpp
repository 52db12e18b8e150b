#include "voxi2_qt/kernel/qtanchor.h"

#include <QEvent>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace VOXI {

void QtAnchor::set(QWidget* widget, const QRect& part)
{
    const bool watched = !m_watched.empty();
    unwatch();
    m_widget = widget;
    m_part = part;
    m_isSet = widget != nullptr;
    if (watched)
        watch();
}

QRect QtAnchor::part() const
{
    return m_part.width() >= 0 && m_part.height() >= 0 ? m_part
           : m_widget                                  ? m_widget->rect()
                                                       : QRect();
}

QRect QtAnchor::visibleRect() const
{
    if (!m_widget || !m_widget->isVisible() || m_widget->window()->isMinimized())
        return {};
    // A part without a width, as that of a text cursor, is to be seen as well.
    QRect visible = part();
    visible.setSize(visible.size().expandedTo(QSize(1, 1)));
    const QRect all = visible.translated(m_widget->mapToGlobal(QPoint(0, 0)));
    for (const QWidget* at = m_widget; at; at = at->parentWidget()) {
        visible &= at->rect();
        if (visible.isEmpty())
            return {};
        if (at->isWindow())
            break;
        visible.translate(at->pos());
    }
    return all;
}

void QtAnchor::watch()
{
    unwatch();
    for (QWidget* at = m_widget; at; at = at->isWindow() ? nullptr : at->parentWidget()) {
        at->installEventFilter(this);
        m_watched.emplace_back(at);
    }
    if (m_widget) // what is deleted while it is shown is not hidden before
        connect(m_widget, &QObject::destroyed, this, &QtAnchor::gone);
}

void QtAnchor::unwatch()
{
    for (const QPointer<QWidget>& at : std::exchange(m_watched, {})) {
        if (at)
            at->removeEventFilter(this);
    }
    if (m_widget)
        disconnect(m_widget, &QObject::destroyed, this, nullptr);
}

bool QtAnchor::eventFilter(QObject* watched, QEvent* event)
{
    // Two that follow each other would run on for ever.
    if (m_isFollowing)
        return false;
    m_isFollowing = true;
    const auto done = qScopeGuard([self = QPointer(this)] {
        if (self)
            self->m_isFollowing = false;
    });
    switch (event->type()) {
    case QEvent::Hide:
        if (watched == m_widget)
            Q_EMIT gone();
        break;
    case QEvent::ParentChange:
        watch();
        [[fallthrough]];
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        if (visibleRect().isEmpty())
            Q_EMIT gone();
        else
            Q_EMIT moved();
        break;
    default:
        break;
    }
    return false;
}

QPoint placeBeside(const QRect& anchor, const QSize& size, AnchorSide side, const QRect& screen,
                   Qt::LayoutDirection direction)
{
    constexpr int Gap = 3;
    const bool upright = side == AnchorSide::Below || side == AnchorSide::Above;
    const int needed = Gap + (upright ? size.height() : size.width());
    const int before = upright ? anchor.top() - screen.top() : anchor.left() - screen.left();
    const int behind =
        upright ? screen.bottom() - anchor.bottom() : screen.right() - anchor.right();
    bool isBehind = side == AnchorSide::Below || side == AnchorSide::Right;
    const int room = isBehind ? behind : before;
    const int otherRoom = isBehind ? before : behind;
    if (room < needed && otherRoom > room)
        isBehind = !isBehind;

    QPoint place = anchor.topLeft();
    if (upright) {
        place.setY(isBehind ? anchor.bottom() + 1 + Gap : anchor.top() - needed);
        if (direction == Qt::RightToLeft)
            place.setX(anchor.right() + 1 - size.width());
    } else {
        place.setX(isBehind ? anchor.right() + 1 + Gap : anchor.left() - needed);
    }
    const auto inside = [](int at, int length, int low, int high) {
        return std::max(low, std::min(at, high + 1 - length));
    };
    return {inside(place.x(), size.width(), screen.left(), screen.right()),
            inside(place.y(), size.height(), screen.top(), screen.bottom())};
}

} // namespace VOXI
