// The part of QtMimicView2 that lets the user type in what it shows.

#include "foreigninput.h"
#include "voxi2_qt/controls/qtmimicsource2.h"
#include "voxi2_qt/controls/qtmimicview2.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

namespace VOXI {

namespace {

/// Whether it has another use for the Tab key than to let the focus go on.
bool wantsTab(const QWidget& widget)
{
    const QVariant leads = widget.property("tabChangesFocus");
    return (leads.isValid() && !leads.toBool() && !widget.property("readOnly").toBool())
           || widget.property("tabKeyNavigation").toBool();
}

bool isTabStop(const QWidget& widget, const QWidget& source)
{
    return (&widget == &source || source.isAncestorOf(&widget)) && widget.isVisible()
           && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus
           && !widget.focusProxy();
}

/// What the Tab key leads to from a widget, round the source; null where there is nothing.
QWidget* nextTabStop(QWidget& from, const QWidget& source, const QWidget& without, bool isBack)
{
    const auto next = [&](const QWidget& widget) {
        return isBack ? widget.previousInFocusChain() : widget.nextInFocusChain();
    };
    QWidget* widget = next(from);
    while (widget != &from && (widget == &without || !isTabStop(*widget, source)))
        widget = next(*widget);
    return isTabStop(*widget, source) ? widget : nullptr;
}

} // namespace

// Reports -----------------------------------------------------------------------------------------

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

void QtMimicView2::inputMethodEvent(QInputMethodEvent* event)
{
    QWidget* const target = typedWidget();
    if (!target) {
        QtWidget2Shim::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent made(event->preeditString(), event->attributes());
    made.setCommitString(event->commitString(), event->replacementStart(),
                         event->replacementLength());
    const QtDeletionHold hold(this);
    send(*target, made, *event);
    if (hold.isAlive())
        updateMicroFocus();
}

/// As what is typed into answers, but for where that is: in the picture.
QVariant QtMimicView2::inputMethodQuery(Qt::InputMethodQuery query) const
{
    const QWidget* const target = typedWidget();
    if (!target)
        return QtWidget2Shim::inputMethodQuery(query);
    const QVariant answer = target->inputMethodQuery(query);
    const bool isPlace = query == Qt::ImCursorRectangle || query == Qt::ImAnchorRectangle
                         || query == Qt::ImInputItemClipRectangle;
    const QRectF picture = pictureRect();
    const QSizeF size = imageSize();
    if (!isPlace || size.isEmpty())
        return answer;
    QRectF place = answer.toRectF();
    place.translate(target->mapTo(m_source->sourceWidget(), QPointF()));
    const double right = picture.width() / size.width();
    const double down = picture.height() / size.height();
    return QRectF(picture.x() + place.x() * right, picture.y() + place.y() * down,
                  place.width() * right, place.height() * down);
}

// Helpers -----------------------------------------------------------------------------------------

/// What keys go to, if it is a widget that was pressed, or led to.
QWidget* QtMimicView2::typedWidget() const
{
    const QWidget* const source = inputWidget();
    // It may have moved elsewhere since it was pressed.
    return source && m_typed && m_typed != this
                   && (m_typed == source || source->isAncestorOf(m_typed))
               ? m_typed.data()
               : nullptr;
}

void QtMimicView2::setTyped(QWidget* widget)
{
    m_typed = widget;
    const QWidget* const target = typedWidget();
    setAttribute(Qt::WA_InputMethodEnabled,
                 target && target->testAttribute(Qt::WA_InputMethodEnabled));
    setInputMethodHints(target ? target->inputMethodHints() : Qt::ImhNone);
    updateMicroFocus();
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
    QWidget* const typed = typedWidget();
    QWidget* const target = typed ? typed : source;
    if (target == this)
        return false;
    QKeyEvent made(event.type(), event.key(), event.modifiers(), event.text(), event.isAutoRepeat(),
                   static_cast<quint16>(event.count()));
    const QtDeletionHold hold(this);
    send(*target, made, event);
    if (hold.isAlive())
        updateMicroFocus();
    return event.isAccepted();
}

/// Leads on in the source; with Ctrl, out of the view. Qt would give the focus to what the key
/// leads to there, so the view goes by the same order itself. False where it leads nowhere in the
/// source.
bool QtMimicView2::forwardTab(QKeyEvent& event)
{
    event.accept();
    const bool isBack =
        event.key() == Qt::Key_Backtab || (event.modifiers() & Qt::ShiftModifier) != 0;
    if ((event.modifiers() & Qt::ControlModifier) != 0)
        return focusNextPrevChild(!isBack);
    QWidget* const typed = typedWidget();
    if (isForeign() || (typed && wantsTab(*typed)))
        return forwardKey(event);
    QWidget* const source = m_source->sourceWidget();
    QWidget* const next = nextTabStop(typed ? *typed : *source, *source, *this, isBack);
    if (next)
        setTyped(next);
    return next;
}

} // namespace VOXI
