#include "qtviewdelegate2.h"
#include "voxi2_qt/kernel/qtobject2.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {
/// A widget that hands the focus on, such as the field of a spin box, is no stop of its own.
bool isStop(const QWidget& widget, const QWidget& editor)
{
    return (widget.focusPolicy() & Qt::TabFocus) && !widget.focusProxy() && widget.isEnabled()
           && (&widget == &editor || (editor.isAncestorOf(&widget) && widget.isVisibleTo(&editor)));
}
} // namespace

bool QtViewDelegate2::eventFilter(QObject* object, QEvent* event)
{
    auto* const widget = qobject_cast<QWidget*>(object);
    if (!widget)
        return false;
    const bool isOurs = widget == m_editor || isEmbedded(widget);
    switch (event->type()) {
    case QEvent::ParentAboutToChange:
    case QEvent::ParentChange: // what was never shown does not announce it
        // The program puts it elsewhere; Qt would go on moving it about.
        if (isOurs)
            leaveTo(widget);
        return false;
    case QEvent::DeferredDelete:
        if (isOurs)
            leaveForEnd(widget);
        return false;
    default:
        break;
    }
    if (!m_listenedTo.contains(widget))
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        return handleKey(widget, event);
    case QEvent::FocusOut:
        return handleFocusOut(event);
    default:
        return QItemDelegate::eventFilter(object, event);
    }
}

bool QtViewDelegate2::handleKey(QWidget* widget, QEvent* event)
{
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() & Qt::ControlModifier) {
        if (key->key() == Qt::Key_Tab) {
            focusNextEditorChild(widget);
            return true;
        }
        if (key->key() == Qt::Key_Backtab) {
            focusPrevEditorChild(widget);
            return true;
        }
    }
    return QItemDelegate::eventFilter(widget, event);
}

bool QtViewDelegate2::handleFocusOut(QEvent* event)
{
    if (m_editorId != 0 && !lookup(m_editorId)) {
        leaveTo(m_editor); // it is being destroyed, and may be half gone
        return false;
    }
    if (m_editor->isHidden()) {
        // Qt may be moving it elsewhere, or dropping its cell: what it is about is seen later.
        QMetaObject::invokeMethod(
            this, [this, editor = m_editor] { endHidden(editor); }, Qt::QueuedConnection);
        return false;
    }
    QWidget* const focus = QApplication::focusWidget();
    if (focus && focus != m_editor && isWithin(m_editor, focus)) {
        // A list that drops down is in a window of its own, where Enter chooses.
        if (focus->window() == m_editor->window())
            listenTo(focus);
        return false;
    }
    // Qt looks at the editor as a whole; and if the window went out of use, it would give the focus
    // to what the editor lay in, where it lies no more when it has been closed.
    QFocusEvent out(QEvent::FocusOut,
                    static_cast<QFocusEvent*>(event)->reason() == Qt::ActiveWindowFocusReason
                        ? Qt::OtherFocusReason
                        : static_cast<QFocusEvent*>(event)->reason());
    return QItemDelegate::eventFilter(m_editor, &out);
}

void QtViewDelegate2::listenTo(QWidget* widget)
{
    if (m_listenedTo.contains(widget))
        return;
    widget->installEventFilter(this);
    m_listenedTo.append(widget);
}

void QtViewDelegate2::removeEditorEventFilter(QWidget* widget)
{
    for (const QPointer<QWidget>& each : m_listenedTo) {
        if (each)
            each->removeEventFilter(this);
    }
    m_listenedTo.clear();
    if (!widget)
        return;
    widget->removeEventFilter(this);
    if (std::exchange(m_hasOurProxy, false))
        widget->setFocusProxy(nullptr);
}

bool QtViewDelegate2::isOfEditor(const QWidget* widget) const
{
    return isEditing() && widget
           && (widget == m_editor
               || std::any_of(m_listenedTo.cbegin(), m_listenedTo.cend(),
                              [=](const QPointer<QWidget>& each) { return each == widget; }));
}

void QtViewDelegate2::focusNextEditorChild(QWidget* widget)
{
    if (QWidget* const next = findNextPrevEditorFocusChild(widget, true))
        next->setFocus(Qt::TabFocusReason);
}

void QtViewDelegate2::focusPrevEditorChild(QWidget* widget)
{
    if (QWidget* const previous = findNextPrevEditorFocusChild(widget, false))
        previous->setFocus(Qt::BacktabFocusReason);
}

QWidget* QtViewDelegate2::findNextPrevEditorFocusChild(QWidget* widget, bool next) const
{
    if (!m_editor || !widget)
        return nullptr;
    // The chain is a circle through the whole window.
    const auto step = [next](const QWidget* from) {
        return next ? from->nextInFocusChain() : from->previousInFocusChain();
    };
    for (QWidget* at = step(widget); at != widget; at = step(at)) {
        if (isStop(*at, *m_editor))
            return at;
    }
    return nullptr;
}

} // namespace VOXI
