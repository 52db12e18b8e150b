// The part of QtMimicView2 that lets the user work in what it shows.

#include "foreigninput.h"
#include "voxi2_qt/controls/qtmimicsource2.h"
#include "voxi2_qt/controls/qtmimicview2.h"
#include "voxi2_qt/kernel/qtcursorregistry.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <utility>

namespace VOXI {

namespace {

/// Whether the user cannot get at the widget.
bool isBehindDialog(const QWidget& widget)
{
    const QWidget* const modal = QApplication::activeModalWidget();
    return modal && !isWithin(modal, &widget);
}

/// Whether Qt would take the key for the focus to go on, or this for the way out.
bool leadsOn(const QKeyEvent& key)
{
    return (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab)
           && (key.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) == 0;
}

/// What takes the focus by a click there.
QWidget* focusFor(QWidget* pressed, const QWidget& source)
{
    for (QWidget* widget = pressed; widget; widget = widget->parentWidget()) {
        if ((widget->focusPolicy() & Qt::ClickFocus) != 0 && widget->isEnabled())
            return widget->focusProxy() ? widget->focusProxy() : widget;
        if (widget == &source)
            break;
    }
    return nullptr;
}

} // namespace

// Requests ----------------------------------------------------------------------------------------

void QtMimicView2::doSetCursor(const Cursor& cursor)
{
    borrowCursor(nullptr);
    QtWidget2Shim::doSetCursor(cursor);
}

void QtMimicView2::doUnsetCursor()
{
    borrowCursor(nullptr);
    QtWidget2Shim::doUnsetCursor();
}

Cursor QtMimicView2::doGetCursor()
{
    if (!m_isCursorBorrowed)
        return QtWidget2Shim::doGetCursor();
    const QWidget* const parent = isWindow() ? nullptr : parentWidget();
    return QtCursorRegistry::toCursor(m_ownCursor.value_or(parent ? parent->cursor() : QCursor()));
}

// Reports -----------------------------------------------------------------------------------------

bool QtMimicView2::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove: {
        const QtDeletionHold hold(this);
        const QPointF point = static_cast<QHoverEvent*>(event)->position();
        const bool isDone = QtWidget2Shim::event(event);
        if (hold.isAlive())
            hover(point);
        return isDone;
    }
    case QEvent::HoverLeave:
        borrowCursor(nullptr);
        break;
    case QEvent::ToolTip:
        if (forwardToolTip(*static_cast<QHelpEvent*>(event)))
            return true;
        break;
    case QEvent::KeyPress: {
        auto& key = *static_cast<QKeyEvent*>(event);
        if (leadsOn(key) && (isForeign() || inputWidget()))
            return showToPeer(this, event) || forwardTab(key) || QWidget::event(event);
        break;
    }
    default:
        break;
    }
    return QtWidget2Shim::event(event);
}

void QtMimicView2::mousePressEvent(QMouseEvent* event)
{
    QtWidget2Shim::mousePressEvent(event);
    forwardPointer(*event);
}

void QtMimicView2::mouseMoveEvent(QMouseEvent* event)
{
    const QtDeletionHold hold(this);
    QtWidget2Shim::mouseMoveEvent(event);
    if (hold.isAlive())
        forwardPointer(*event);
}

void QtMimicView2::mouseReleaseEvent(QMouseEvent* event)
{
    QtWidget2Shim::mouseReleaseEvent(event);
    forwardPointer(*event);
}

void QtMimicView2::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->ignore();
    forwardPointer(*event);
}

void QtMimicView2::wheelEvent(QWheelEvent* event)
{
    QtWidget2Shim::wheelEvent(event);
    if (isForeign()) {
        if (pictureRect().contains(event->position()))
            m_foreign->sendWheel(*event, toPixels(event->position()));
        return;
    }
    QWidget* const source = inputWidget();
    if (!source || !pictureRect().contains(event->position()))
        return;
    const QPointF point = toSource(event->position());
    if (QWidget* const target = widgetAt(*source, point)) {
        const QPointF local = target->mapFrom(source, point);
        QWheelEvent made(local, target->mapToGlobal(local), event->pixelDelta(),
                         event->angleDelta(), event->buttons(), event->modifiers(), event->phase(),
                         event->inverted());
        send(*target, made, *event);
    }
}

void QtMimicView2::contextMenuEvent(QContextMenuEvent* event)
{
    QtWidget2Shim::contextMenuEvent(event);
    QWidget* const source = inputWidget();
    if (!source || !pictureRect().contains(event->pos()))
        return;
    const QPointF point = toSource(event->pos());
    if (QWidget* const target = widgetAt(*source, point)) {
        const QPoint local = target->mapFrom(source, point.toPoint());
        // The menu opens where the user has asked for it.
        QContextMenuEvent made(event->reason(), local, event->globalPos(), event->modifiers());
        send(*target, made, *event);
    }
}

// Helpers -----------------------------------------------------------------------------------------

/// What was pressed counts no more.
void QtMimicView2::letGo()
{
    m_held = nullptr;
    setTyped(nullptr);
    borrowCursor(nullptr);
}

/// What input goes to now; null for nothing.
QWidget* QtMimicView2::inputWidget() const
{
    if (!m_isForwarding || m_isSending || !m_source)
        return nullptr;
    QWidget* const source = m_source->sourceWidget();
    return source && source->isVisible() && !isBehindDialog(*source) ? source : nullptr;
}

QPointF QtMimicView2::toSource(const QPointF& point) const
{
    const QRectF picture = pictureRect();
    const QPointF place = point - picture.topLeft();
    const QSizeF size = imageSize();
    return {place.x() * size.width() / picture.width(),
            place.y() * size.height() / picture.height()};
}

/// Null for the view itself, which would only ask the same again.
QWidget* QtMimicView2::widgetAt(QWidget& source, const QPointF& point) const
{
    // Not rounded: the last pixel's second half belongs to it.
    const QPoint pixel(qFloor(point.x()), qFloor(point.y()));
    QWidget* const child = source.childAt(pixel);
    QWidget* const found = child ? child : &source;
    return found == this ? nullptr : found;
}

/// Whether input goes to another program now. This one's own windows are excepted where the view
/// lies in them: it would get again what it sends.
bool QtMimicView2::isForeign()
{
    const unsigned long long id = m_isForwarding && m_source ? m_source->doGetNativeWindow() : 0;
    const QWidget* const own = QWidget::find(static_cast<WId>(id));
    if (id == 0 || (own && own->window() == window())) {
        m_foreign.reset();
        return false;
    }
    if (!m_foreign)
        m_foreign = std::make_unique<ForeignInput>();
    m_foreign->setWindow(id);
    return true;
}

QPointF QtMimicView2::toPixels(const QPointF& point) const
{
    return toSource(point) * m_source->image().devicePixelRatio();
}

void QtMimicView2::forwardPointer(QMouseEvent& event)
{
    if (isForeign()) {
        if (event.buttons() != Qt::NoButton || event.type() == QEvent::MouseButtonRelease
            || pictureRect().contains(event.position()))
            m_foreign->sendPointer(event, toPixels(event.position()));
        event.accept();
        return;
    }
    QWidget* const source = inputWidget();
    if (!source || pictureRect().isEmpty())
        return;
    const QPointF point = toSource(event.position());
    const bool isPress =
        event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
    // As Qt does, the first button that is pressed says where the others go.
    if (isPress && !m_held && pictureRect().contains(event.position())) {
        m_held = widgetAt(*source, point);
        setTyped(focusFor(m_held, *source));
    }
    QWidget* target = m_held;
    if (!target && event.type() == QEvent::MouseMove && event.buttons() == Qt::NoButton
        && pictureRect().contains(event.position())) {
        target = widgetAt(*source, point);
        if (target && !target->hasMouseTracking())
            target = nullptr;
    }
    if (event.buttons() == Qt::NoButton)
        m_held = nullptr;
    if (!target)
        return;
    // It may have moved elsewhere since it was pressed.
    const QPointF local = target->mapFromGlobal(source->mapToGlobal(point));
    QMouseEvent made(
        event.type(), local, target->window()->mapFromGlobal(target->mapToGlobal(local)),
        target->mapToGlobal(local), event.button(), event.buttons(), event.modifiers());
    send(*target, made, event);
}

/// Widgets that say how they look and what they do as the pointer passes hear of it. Handlers may
/// do anything.
void QtMimicView2::hover(const QPointF& point)
{
    if (QGuiApplication::mouseButtons() == Qt::NoButton && !hasMouseTracking()) {
        const QtDeletionHold hold(this);
        QMouseEvent moved(QEvent::MouseMove, point, window()->mapFromGlobal(mapToGlobal(point)),
                          mapToGlobal(point), Qt::NoButton, Qt::NoButton,
                          QGuiApplication::keyboardModifiers());
        forwardPointer(moved);
        if (!hold.isAlive())
            return;
    }
    QWidget* const source = inputWidget();
    const bool isThere = source && pictureRect().contains(point);
    borrowCursor(m_held ? m_held.data() : isThere ? widgetAt(*source, toSource(point)) : nullptr);
}

/// The view's own goes before the source's.
bool QtMimicView2::forwardToolTip(QHelpEvent& event)
{
    QWidget* const source = toolTip().isEmpty() ? inputWidget() : nullptr;
    if (!source || !pictureRect().contains(event.pos()))
        return false;
    const QPointF point = toSource(event.pos());
    QWidget* const target = widgetAt(*source, point);
    if (!target)
        return false;
    QHelpEvent made(event.type(), target->mapFrom(source, point.toPoint()), event.globalPos());
    send(*target, made, event);
    return true;
}

/// Shows the widget's cursor, or with null what the program has set.
void QtMimicView2::borrowCursor(const QWidget* widget)
{
    if (widget) {
        if (!std::exchange(m_isCursorBorrowed, true))
            m_ownCursor = testAttribute(Qt::WA_SetCursor) ? std::optional(cursor()) : std::nullopt;
        setCursor(widget->cursor());
    } else if (std::exchange(m_isCursorBorrowed, false)) {
        if (m_ownCursor)
            setCursor(*m_ownCursor);
        else
            unsetCursor();
    }
}

/// What the target makes of the event becomes of the original. Handlers may do anything.
void QtMimicView2::send(QWidget& target, QEvent& event, QEvent& original)
{
    const QtDeletionHold hold(this);
    m_isSending = true;
    QCoreApplication::sendEvent(&target, &event);
    original.setAccepted(event.isAccepted());
    if (hold.isAlive())
        m_isSending = false;
}

} // namespace VOXI
