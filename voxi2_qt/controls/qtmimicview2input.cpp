// The part of QtMimicView2 that lets the user work in what it shows.

#include "foreigninput.h"
#include "voxi2_qt/controls/qtmimicsource2.h"
#include "voxi2_qt/controls/qtmimicview2.h"
#include "voxi_util/scopedflagtoggler.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace VOXI {

namespace {

/// Whether the user cannot get at the widget.
bool isBehindDialog(const QWidget& widget)
{
    const QWidget* const modal = QApplication::activeModalWidget();
    return modal && !isWithin(modal, &widget);
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

// Reports -----------------------------------------------------------------------------------------

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

void QtMimicView2::keyPressEvent(QKeyEvent* event)
{
    if (!forwardKey(*event))
        QtWidget2Shim::keyPressEvent(event);
}

void QtMimicView2::keyReleaseEvent(QKeyEvent* event)
{
    if (!forwardKey(*event))
        QtWidget2Shim::keyReleaseEvent(event);
}

// Helpers -----------------------------------------------------------------------------------------

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
        m_typed = focusFor(m_held, *source);
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

bool QtMimicView2::forwardKey(QKeyEvent& event)
{
    if (isForeign()) {
        m_foreign->sendKey(event);
        return true;
    }
    QWidget* const source = inputWidget();
    if (!source)
        return false;
    // It may have moved elsewhere since it was pressed.
    QWidget* const target = m_typed && source->isAncestorOf(m_typed) ? m_typed.data() : source;
    if (target == this)
        return false;
    QKeyEvent made(event.type(), event.key(), event.modifiers(), event.text(), event.isAutoRepeat(),
                   static_cast<quint16>(event.count()));
    send(*target, made, event);
    return event.isAccepted();
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
