// The part of QtAbstractView2 that is about the current cell, editing and the user's input.

#include "qtkeyboardsearch.h"
#include "qtviewdelegate2.h"
#include "qtviewhost.h"
#include "qtviewmodel2.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/modelview/qtabstractview2.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QThread>

#include <optional>
#include <utility>

namespace VOXI {

namespace {

using E = VXAbstractView2Emitters;

/// Keeps the handler of one kind of input from being entered again while it runs, for all views:
/// what it passes to an editor may come back to it, or to a view around it. What happens in a loop
/// that a handler has opened is not meant.
class InputGuard
{
public:
    explicit InputGuard(int& level) : m_level(level), m_former(level)
    {
        const int now = QThread::currentThread()->loopLevel();
        m_isFree = level != now;
        level = now;
    }
    ~InputGuard() { m_level = m_former; }
    InputGuard(const InputGuard&) = delete;
    InputGuard& operator=(const InputGuard&) = delete;

    bool isFree() const { return m_isFree; }

private:
    int& m_level;
    int m_former;
    bool m_isFree;
};

constexpr int NotRunning = -1;
int s_inputLevels[] = {NotRunning, NotRunning, NotRunning, NotRunning}; // by QtAbstractView2::Input

QPoint centreOf(const QRect& rect)
{
    return {rect.x() + rect.width() / 2, rect.y() + rect.height() / 2};
}

void sendMouse(QWidget& widget, QEvent::Type type, QPoint local, QPoint global,
               Qt::MouseButton button)
{
    const bool isPress = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, local, global, button, isPress ? button : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

// Requests ----------------------------------------------------------------------------------------

void QtAbstractView2::doSetEditTriggers(VXFlags<EditTrigger> triggers)
{
    m_editTriggers = triggers;
    itemView().setEditTriggers(VX2Qt(triggers));
}

VXFlags<EditTrigger> QtAbstractView2::doGetEditTriggers() { return m_editTriggers; }

void QtAbstractView2::doSetEditor(unsigned row, unsigned column, VXWidget2* editor)
{
    const QModelIndex index = askedFor(row, column);
    if (index.isValid())
        withWidgetOrNone(editor,
                         [&](QWidget* widget) { m_delegate->setIndexWidget(index, widget); });
}

VXWidget2* QtAbstractView2::doGetEditor(unsigned row, unsigned column)
{
    return abstractObjectOf<VXWidget2>(itemView().indexWidget(indexOf(row, column)));
}

void QtAbstractView2::doimTriggerEdit(unsigned row, unsigned column, EditTrigger trigger,
                                      MouseButton button)
{
    if (const QModelIndex index = askedFor(row, column); index.isValid())
        imInternalTriggerEdit(*itemView().viewport(), index, trigger, button);
}

// Reports -----------------------------------------------------------------------------------------

void QtAbstractView2::handleInput(Input input, QInputEvent& event,
                                  const std::function<void()>& handle)
{
    const InputGuard guard(s_inputLevels[static_cast<int>(input)]);
    if (!guard.isFree())
        return;
    const QtDeletionHold hold(this);
    const bool isEditors = m_host->comesFromEditor(event);
    if (input == Input::Press)
        notePress(static_cast<QMouseEvent&>(event));
    {
        std::optional<QtViewModel2::OpenWay> way;
        if (input == Input::Key)
            way.emplace(*m_model);
        handle();
    }
    if (hold.isAlive() && input == Input::Release)
        editIfClicked(static_cast<QMouseEvent&>(event));
    if (hold.isAlive() && !isEditors)
        m_host->passToEditor(event);
}

bool QtAbstractView2::edit(const QModelIndex& index, QAbstractItemView::EditTrigger trigger,
                           QEvent* event)
{
    if (m_isEditBarred)
        return false;
    const QtDeletionHold hold(this);
    const QPersistentModelIndex cell(index);
    if (!internalEdit(index, trigger) && hold.isAlive() && cell.isValid())
        editInQt(cell, trigger, event);
    return !hold.isAlive() || isInEditingState();
}

void QtAbstractView2::closeEditor(const QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const QtDeletionHold hold(this);
    if (m_delegate->isOfEditor(editor))
        m_delegate->closeIndexWidget(m_delegate->getEditorIndex(),
                                     hint != QAbstractItemDelegate::RevertModelCache);
    if (!hold.isAlive())
        return;
    if (hint == QAbstractItemDelegate::EditNextItem)
        editNext(true);
    else if (hint == QAbstractItemDelegate::EditPreviousItem)
        editNext(false);
}

void QtAbstractView2::changeCurrent(const QModelIndex& current, const std::function<void()>& handle)
{
    m_host->clearQueuedEvents();
    m_awaitedIndex = QPersistentModelIndex();
    // Qt's own would edit before anybody has heard that the cell is the current one.
    const bool was = std::exchange(m_isEditBarred, true);
    handle();
    m_isEditBarred = was;
    if (!current.isValid() || QtProgramScope::isActive())
        return;
    const QtDeletionHold hold(this);
    const QPersistentModelIndex index(current);
    report(&E::activeCellChanged, m_model->rowFromIndex(index), m_model->columnFromIndex(index));
    // With the pointer it is the click that edits, not the press.
    if (hold.isAlive() && editsOnClick() && QApplication::mouseButtons() == Qt::NoButton
        && itemView().currentIndex() == index)
        edit(index, QAbstractItemView::CurrentChanged, nullptr);
}

bool QtAbstractView2::isDraggingCells(const QMouseEvent& event) const
{
    return m_hasPressedSelection && (event.buttons() & Qt::LeftButton)
           && isHeard(&VXWidget2Emitters::dragDetect);
}

bool QtAbstractView2::handleKey(const QKeyEvent& event)
{
    // For the editor that is to come, behind what is typed for it.
    const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    if (isTab && m_awaitedIndex.isValid())
        return true;
    if (!event.matches(QKeySequence::Copy))
        return false;
    doCopySelection();
    return true;
}

void QtAbstractView2::searchFor(const QString& text)
{
    if (!m_search)
        m_search = std::make_unique<QtKeyboardSearch>();
    m_search->type(text);
    const auto below = [this](const QModelIndex& index) { return rowBelow(index); };
    const QModelIndex found = m_search->find(*m_model, below, itemView().currentIndex());
    if (found.isValid())
        itemView().setCurrentIndex(found);
}

void QtAbstractView2::reportActivation(const QModelIndex& index)
{
    report(&E::cellActivated, m_model->rowFromIndex(index), m_model->columnFromIndex(index));
}

// Helpers -----------------------------------------------------------------------------------------

bool QtAbstractView2::internalEdit(const QModelIndex& index, QAbstractItemView::EditTrigger trigger)
{
    if (!index.isValid())
        return true;
    const CellRecord* const record = m_model->cell(index);
    if (!record || !record->isEnabled() || record->isReadOnly())
        return true;
    if (m_delegate->getEditorIndex() == index)
        return false;
    const unsigned widget = record->data(CellWidgetRole).toUInt();
    if (widget != 0) {
        const VXObjectDataLocker lock;
        if (QWidget* const editor = qWidgetOf(lookup(widget)))
            m_delegate->setIndexWidget(index, editor);
        return true;
    }
    if (record->renderer() == CellRenderer::Plain)
        return false;
    if (editsOnClick() || record->renderer() != CellRenderer::Background) {
        // Qt asks both when the button goes down and when it comes up.
        const bool isClick = trigger == QAbstractItemView::NoEditTriggers
                             || trigger == QAbstractItemView::SelectedClicked;
        if (!isClick || m_askedIndex != index) {
            m_askedIndex = index;
            m_delegate->requestIndexWidget(index);
        }
        return true;
    }
    const EditTrigger wish = Qt2VX(trigger);
    if (wish != EditTrigger::None && (m_editTriggers & wish) != EditTrigger::None)
        m_delegate->requestIndexWidget(index);
    return true;
}

void QtAbstractView2::imInternalTriggerEdit(QWidget& widget, const QModelIndex& index,
                                            EditTrigger trigger, MouseButton button)
{
    if (trigger != EditTrigger::CurrentChanged && trigger != EditTrigger::SelectedClicked) {
        edit(index, QAbstractItemView::EditTrigger(VX2Qt(VXFlags<EditTrigger>(trigger)).toInt()),
             nullptr);
        return;
    }
    layOutNow();
    const QRect local = itemView().visualRect(index);
    const QRect global(widget.mapToGlobal(local.topLeft()), local.size());
    const QtDeletionHold hold(this);
    sendMouse(widget, QEvent::MouseButtonPress, centreOf(local), centreOf(global), VX2Qt(button));
    if (hold.isAlive())
        sendMouse(widget, QEvent::MouseButtonRelease, centreOf(local), centreOf(global),
                  VX2Qt(button));
}

bool QtAbstractView2::editsOnClick() const
{
    return (m_editTriggers & EditTrigger::CurrentChanged) != EditTrigger::None;
}

void QtAbstractView2::notePress(const QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton)
        return;
    const QModelIndex index = itemView().indexAt(event.position().toPoint());
    m_askedIndex = QModelIndex();
    m_pressedIndex = editsOnClick() ? index : QModelIndex();
    m_hasPressedSelection = itemView().selectionModel()->isSelected(index);
}

void QtAbstractView2::editIfClicked(QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton)
        return;
    const QPersistentModelIndex pressed = std::exchange(m_pressedIndex, QPersistentModelIndex());
    if (pressed.isValid() && itemView().indexAt(event.position().toPoint()) == pressed)
        edit(pressed, QAbstractItemView::AllEditTriggers, &event);
}

void QtAbstractView2::editNext(bool forward)
{
    const QtDeletionHold hold(this);
    QPersistentModelIndex next;
    {
        const QtViewModel2::OpenWay way(*m_model);
        next = cursorMoved(forward);
        if (!next.isValid())
            return;
        itemView().setCurrentIndex(next);
    }
    if (!hold.isAlive() || !next.isValid())
        return;
    if (m_model->cell(next)) {
        edit(next, QAbstractItemView::AllEditTriggers, nullptr);
    } else if (itemView().currentIndex() == next) {
        m_awaitedIndex = next;
        m_awaitsForward = forward;
    }
}

/// Later: the model is in the middle of telling.
void QtAbstractView2::noteAnswers()
{
    if (m_awaitedIndex.isValid() && m_model->isKnown(m_awaitedIndex))
        QMetaObject::invokeMethod(
            &itemView(), [this] { editAwaited(); }, Qt::QueuedConnection);
}

void QtAbstractView2::editAwaited()
{
    if (!m_awaitedIndex.isValid())
        return;
    const QPersistentModelIndex index = std::exchange(m_awaitedIndex, QPersistentModelIndex());
    const QtDeletionHold hold(this);
    const CellRecord* const record = m_model->peekCell(index);
    const bool isLeft =
        m_delegate->isEditing() || itemView().window()->focusWidget() != &itemView();
    if (!isLeft && record && !record->isEnabled())
        editNext(m_awaitsForward); // as if that had been known before
    else if (!isLeft)
        edit(index, QAbstractItemView::AllEditTriggers, nullptr);
    if (hold.isAlive() && !m_host->waitsForEditor())
        m_host->clearQueuedEvents();
}

} // namespace VOXI
