#include "qtsimpleitemdelegate2.h"

#include "qtsimplepropertytree2.h"
#include "voxi2_qt/kernel/qtobject2.h"

#include <QApplication>
#include <QFocusEvent>

#include <algorithm>

namespace VOXI {

namespace {
constexpr QSize MoreRoom(3, 3);
} // namespace

QtSimpleItemDelegate2::QtSimpleItemDelegate2(QtSimplePropertyTree2& tree)
    : QItemDelegate(&tree),
      m_tree(tree)
{}

QSize QtSimpleItemDelegate2::sizeHint(const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const
{
    return QItemDelegate::sizeHint(option, index) + MoreRoom;
}

QWidget* QtSimpleItemDelegate2::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                             const QModelIndex& index) const
{
    return m_tree.createEditor(parent, option, index);
}

void QtSimpleItemDelegate2::setEditorData(QWidget*, const QModelIndex&) const {}

void QtSimpleItemDelegate2::setModelData(QWidget* editor, QAbstractItemModel* model,
                                         const QModelIndex& index) const
{
    m_tree.setModelData(editor, model, index);
}

void QtSimpleItemDelegate2::updateEditorGeometry(QWidget* editor,
                                                 const QStyleOptionViewItem& option,
                                                 const QModelIndex&) const
{
    editor->setGeometry(option.rect);
}

void QtSimpleItemDelegate2::destroyEditor(QWidget* editor, const QModelIndex&) const
{
    m_tree.letGo(editor); // it is the program's
}

void QtSimpleItemDelegate2::listenTo(QWidget* widget)
{
    for (; widget && !m_listenedTo.contains(widget); widget = widget->focusProxy()) {
        widget->installEventFilter(this);
        m_listenedTo.append(widget);
    }
}

void QtSimpleItemDelegate2::stopListening()
{
    for (const QPointer<QWidget>& each : m_listenedTo) {
        if (each)
            each->removeEventFilter(this);
    }
    m_listenedTo.clear();
}

bool QtSimpleItemDelegate2::eventFilter(QObject* object, QEvent* event)
{
    auto* const widget = qobject_cast<QWidget*>(object);
    if (!widget)
        return false;
    switch (event->type()) {
    case QEvent::ParentAboutToChange:
    case QEvent::ParentChange: // what was never shown does not announce it
        m_tree.leaveTo(widget);
        return false;
    case QEvent::FocusOut:
        return m_listenedTo.contains(widget) && m_tree.editor() && handleFocusOut(event);
    default:
        // What is in the editor speaks for it.
        return m_listenedTo.contains(widget) && m_tree.editor()
               && QItemDelegate::eventFilter(m_tree.editor(), event);
    }
}

bool QtSimpleItemDelegate2::handleFocusOut(QEvent* event)
{
    QWidget* const editor = m_tree.editor();
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason == Qt::PopupFocusReason)
        return false; // it opens a list or a menu, and stays
    QWidget* const focus = QApplication::focusWidget();
    if (focus && focus != editor && isWithin(editor, focus)) {
        if (focus->window() == editor->window())
            listenTo(focus);
        return false;
    }
    // If the window went out of use, Qt would give the focus to what the editor lay in, of which
    // nobody knows what the handlers have done to it.
    QFocusEvent out(QEvent::FocusOut,
                    reason == Qt::ActiveWindowFocusReason ? Qt::OtherFocusReason : reason);
    return QItemDelegate::eventFilter(editor, &out);
}

} // namespace VOXI
