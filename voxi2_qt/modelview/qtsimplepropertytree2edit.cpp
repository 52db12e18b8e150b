// The part of QtSimplePropertyTree2 that is about editors.

#include "../kernel/qtignored.h"
#include "../kernel/qttakeout.h"
#include "qtsimpleitemdelegate2.h"
#include "qtsimplepropertytree2.h"
#include "trov/thread.h"
#include "voxi2_qt/kernel/qteventblocker.h"
#include "voxi2_qt/kernel/qtobject2.h"
#include "voxi2_qt/modelview/qtsimplepropertybrowser2.h"

#include <QAbstractSpinBox>

#include <algorithm>
#include <exception>
#include <utility>

namespace VOXI {

namespace {

using E = VXSimplePropertyBrowser2Emitters;
using Factory = std::shared_ptr<VXSimplePropertyEditorFactory2>;

/// Behind whatever goes on now: Qt may be in the middle of a removal.
void releaseLater(const Factory& factory, unsigned editor)
{
    TROV::Thread::getCurrentThread()->post([factory, editor] {
        const VXObjectDataLocker lock;
        factory->releaseEditor(editor);
    });
}

/// So that what is typed and not taken over counts.
void takeOverTyped(QWidget* editor)
{
    while (editor->focusProxy())
        editor = editor->focusProxy();
    if (auto* const box = qobject_cast<QAbstractSpinBox*>(editor))
        box->interpretText();
}

} // namespace

// Requests ----------------------------------------------------------------------------------------

void QtSimplePropertyTree2::setEditorFactory(const Factory& factory) { m_editorFactory = factory; }

void QtSimplePropertyTree2::setReadonly(bool readonly)
{
    m_isReadonly = readonly;
    if (readonly)
        closeOpenEditor();
}

void QtSimplePropertyTree2::setEditor(Property property, unsigned editor)
{
    settle();
    QtPropertyItem* const item = itemOf(property);
    const VXObjectDataLocker lock;
    if (!item || (editor != 0 && !VXObject::objectById(editor)))
        return;
    QWidget* const widget = editor != 0 ? qWidgetOf(lookup(editor)) : nullptr;
    if (editor != 0 && !canHold(m_browser, this, widget))
        return;
    QWidget* const former = itemWidget(item, QtPropertyItem::ValueColumn);
    if (former == widget)
        return;
    const QtProgramScope scope;
    if (former && former == m_editor)
        closeOpenEditor();
    else if (former)
        letGo(former);
    if (!widget)
        return;
    const QtEventBlocker blocker(widget, {WidgetEvent::Show, WidgetEvent::Hide});
    place(viewport(), widget);
    setItemWidget(item, QtPropertyItem::ValueColumn, widget);
    widget->installEventFilter(m_delegate);
    m_placed.append(widget);
}

void QtSimplePropertyTree2::editProperty(Property property)
{
    const QtDeletionHold hold(&m_browser);
    {
        const QtProgramScope scope;
        setCurrentProperty(property);
    }
    if (QtPropertyItem* const item = hold.isAlive() ? itemOf(property) : nullptr)
        openEditor(indexFromItem(item, QtPropertyItem::ValueColumn), AllEditTriggers, nullptr);
}

void QtSimplePropertyTree2::closeOpenEditor()
{
    if (!m_editor)
        return;
    const QtProgramScope scope;
    closeEditor(m_editor, QAbstractItemDelegate::NoHint);
}

// Reports -----------------------------------------------------------------------------------------

/// What Qt wants edited in the middle of a change of the current cell is edited when it is through
/// with that.
bool QtSimplePropertyTree2::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    if (trigger != CurrentChanged)
        return openEditor(index, trigger, event);
    if (index.column() != QtPropertyItem::ValueColumn || QtProgramScope::isActive())
        return false;
    QMetaObject::invokeMethod(
        this,
        [this, cell = QPersistentModelIndex(index)] {
            if (cell.isValid() && currentIndex() == cell)
                openEditor(cell, CurrentChanged, nullptr);
        },
        Qt::QueuedConnection);
    return false;
}

/// Without an editor of ours there is nothing to commit.
void QtSimplePropertyTree2::commitData(QWidget* editor)
{
    if (editor && editor == m_editor)
        QTreeWidget::commitData(editor);
}

void QtSimplePropertyTree2::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    if (!editor || editor != m_editor)
        return;
    const QtDeletionHold hold(&m_browser);
    if (!QtProgramScope::isActive())
        m_closed = m_edited;
    m_delegate->stopListening(); // what is in it loses the focus now
    QTreeWidget::closeEditor(editor, hint);
    if (hold.isAlive())
        editorClosed(editor, hint); // where Qt closes it without asking the delegate
}

/// The program has destroyed it.
void QtSimplePropertyTree2::editorDestroyed(QObject* editor)
{
    QTreeWidget::editorDestroyed(editor);
    if (m_editorsFactory && (!m_editor || m_editor == editor))
        endEditing();
}

void QtSimplePropertyTree2::editorClosed(QWidget*, QAbstractItemDelegate::EndEditHint)
{
    if (const Property closed = std::exchange(m_closed, Property()); closed.id() != 0)
        m_browser.report(&E::editorClosed, closed, m_isCommitted);
}

// Editing -----------------------------------------------------------------------------------------

bool QtSimplePropertyTree2::openEditor(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    if (m_isAsking || m_isSettling)
        return false;
    const QtDeletionHold hold(&m_browser);
    const bool isTaken = QTreeWidget::edit(index, trigger, event);
    // Where nothing was opened, a double click opens what has others in it.
    return !hold.isAlive() || (isTaken && (trigger != DoubleClicked || m_editor));
}

QWidget* QtSimplePropertyTree2::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                             const QModelIndex& index)
{
    const QtPropertyItem* const item = itemAt(index);
    if (m_isReadonly || index.column() != QtPropertyItem::ValueColumn || !item)
        return nullptr;
    const Property property = item->property();
    if (property->isReadOnly())
        return nullptr;
    if (!m_editorFactory) {
        m_browser.report(&E::editRequested, property);
        return nullptr;
    }
    const QtDeletionHold hold(&m_browser);
    const Factory factory = m_editorFactory;
    const QPersistentModelIndex cell(index);
    closeOpenEditor();
    const unsigned id = askForEditor(property);
    const VXObjectDataLocker lock;
    QWidget* const widget = id != 0 && hold.isAlive() ? qWidgetOf(lookup(id)) : nullptr;
    const bool isWanted = widget && m_browser.isVXObjectValid() && cell.isValid() && cell == index
                          && itemOf(property) == item && !m_isReadonly && !isWithin(widget, this);
    if (!isWanted) {
        if (id != 0)
            releaseLater(factory, id);
        return nullptr;
    }
    place(parent, widget);
    m_editor = widget;
    m_editorId = id;
    m_edited = property;
    m_editorsFactory = factory;
    m_isCommitted = false;
    m_delegate->listenTo(widget);
    return widget;
}

unsigned QtSimplePropertyTree2::askForEditor(Property property)
{
    const Factory factory = m_editorFactory;
    const VXObjectDataLocker lock;
    const QtHandlerFrame frame(m_browser);
    auto* const browser = static_cast<VXSimplePropertyBrowser2*>(m_browser.getHandle());
    VXSimpleProperty2* const edited = property.get();
    unsigned id = 0;
    m_isAsking = true;
    try {
        if (browser && edited)
            id = factory->createEditor(*browser, *edited);
    } catch (...) {
        TROV::Thread::reportException(std::current_exception());
    }
    if (frame.isAlive())
        m_isAsking = false;
    return id;
}

void QtSimplePropertyTree2::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&)
{
    if (editor != m_editor)
        return;
    const Property property = m_edited;
    const Factory factory = m_editorsFactory;
    const QtDeletionHold hold(&m_browser);
    m_isCommitted = true;
    takeOverTyped(editor);
    {
        const VXObjectDataLocker lock;
        const QtHandlerFrame frame(m_browser);
        try {
            if (VXSimpleProperty2* const edited = property.get(); edited && hold.isAlive())
                factory->commitEditor(*edited, m_editorId);
        } catch (...) {
            TROV::Thread::reportException(std::current_exception());
        }
    }
    if (hold.isAlive())
        refreshItem(property);
}

/// Into a cell, without events of its coming and going.
void QtSimplePropertyTree2::place(QWidget* cell, QWidget* editor)
{
    const QtEventBlocker blocker(editor, {WidgetEvent::Show, WidgetEvent::Hide});
    leaveTo(editor); // another value
    takeOutFor(cell, editor);
    if (editor->parentWidget() != cell)
        editor->setParent(cell);
}

void QtSimplePropertyTree2::letGo(QWidget* widget)
{
    if (!isOurs(widget))
        return;
    leaveTo(widget);
    const QtEventBlocker blocker(widget, {WidgetEvent::Show, WidgetEvent::Hide});
    keepHidden(widget, &m_browser);
}

bool QtSimplePropertyTree2::isOurs(const QWidget* widget) const
{
    return widget == m_editor || std::ranges::find(m_placed, widget) != m_placed.end();
}

void QtSimplePropertyTree2::leaveTo(QWidget* widget)
{
    if (!isOurs(widget))
        return;
    m_placed.removeIf([=](const QPointer<QWidget>& each) { return !each || each == widget; });
    widget->removeEventFilter(m_delegate);
    if (widget == m_editor)
        endEditing();
    widget->removeEventFilter(this);
    editorDestroyed(widget); // as Qt sees it
}

void QtSimplePropertyTree2::endEditing()
{
    m_delegate->stopListening();
    m_editor = nullptr;
    m_edited = Property();
    releaseLater(std::exchange(m_editorsFactory, nullptr), m_editorId);
}

void QtSimplePropertyTree2::finishEditing()
{
    const QtDeletionHold hold(&m_browser);
    commitData(m_editor);
    if (hold.isAlive() && m_editor)
        closeEditor(m_editor, QAbstractItemDelegate::NoHint);
}

/// The widgets on the values of the item and of all in it; they are the program's.
void QtSimplePropertyTree2::takeOff(QtPropertyItem& item)
{
    QList<QTreeWidgetItem*> all{&item};
    for (qsizetype i = 0; i < all.size() && !m_placed.isEmpty(); ++i) {
        if (QWidget* const widget = itemWidget(all[i], QtPropertyItem::ValueColumn))
            letGo(widget);
        for (int child = 0; child < all[i]->childCount(); ++child)
            all.append(all[i]->child(child));
    }
}

void QtSimplePropertyTree2::closeEditorWithin(const QTreeWidgetItem& item)
{
    const QTreeWidgetItem* at = m_editor ? itemOf(m_edited) : nullptr;
    for (; at; at = at->parent()) {
        if (at == &item)
            return closeOpenEditor();
    }
}

} // namespace VOXI
