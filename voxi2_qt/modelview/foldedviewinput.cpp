// The part of FoldedView that is about the pointer and the keys.

#include "extentsums.h"
#include "qtkeyboardsearch.h"
#include "qtviewmodel2.h"
#include "voxi2_qt/kernel/qtglobalfocusblocker.h"
#include "voxi2_qt/modelview/foldedview.h"

#include <QApplication>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

/// Rows that are looked at for a letter. Only those can be found that have been in sight.
constexpr qsizetype MostLookedAt = 10'000;

} // namespace

void FoldedView::focusInEvent(QFocusEvent* event)
{
    const QtFocusComing coming(*this, *event);
    QAbstractItemView::focusInEvent(event);
}

// The pointer -------------------------------------------------------------------------------------

bool FoldedView::viewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
        hover(indexAt(static_cast<QHoverEvent*>(event)->position().toPoint()));
        break;
    case QEvent::HoverLeave:
    case QEvent::Leave:
        hover({});
        break;
    case QEvent::ToolTip:
        return showToolTip(static_cast<QHelpEvent&>(*event));
    default:
        break;
    }
    return QAbstractItemView::viewportEvent(event);
}

void FoldedView::hover(const QModelIndex& index)
{
    if (m_hovered == index)
        return;
    m_hovered = index;
    noteHover(index);
    viewport()->update();
}

void FoldedView::noteHover(const QModelIndex&) {}

/// Of a row that has none, what of its text is cut off. False where the widget's own is to come.
bool FoldedView::showToolTip(const QHelpEvent& event)
{
    const QModelIndex index = indexAt(event.pos());
    const CellRecord* const record = index.isValid() ? m_model->peekCell(index) : nullptr;
    QString text = record ? record->data(Qt::ToolTipRole).toString() : QString();
    if (record && text.isEmpty() && isTextCut(index, *record))
        text = record->text().left(MostDrawn).toHtmlEscaped();
    if (text.isEmpty())
        return false;
    QToolTip::showText(event.globalPos(), text, viewport(), visualRect(index));
    return true;
}

void FoldedView::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    const QModelIndex index = indexAt(event->position().toPoint());
    m_pressed = index;
    m_pressedAt = event->position().toPoint();
    if (index.isValid())
        makeCurrent(index);
}

void FoldedView::mouseMoveEvent(QMouseEvent* event)
{
    const QModelIndex index = m_pressed;
    const QPoint way = event->position().toPoint() - m_pressedAt;
    if (!isAlive() || !index.isValid() || !index.parent().isValid()
        || !(event->buttons() & Qt::LeftButton)
        || way.manhattanLength() < QApplication::startDragDistance())
        return;
    m_pressed = QPersistentModelIndex(); // what is drawn away is not clicked
    m_host->noteDrag(m_model->rowFromIndex(index));
}

void FoldedView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QModelIndex pressed = std::exchange(m_pressed, QPersistentModelIndex());
    if (!pressed.isValid() || indexAt(event->position().toPoint()) != pressed)
        return;
    if (!pressed.parent().isValid())
        toggle(pressed);
    else if (activatesOnClick())
        trigger(pressed);
}

/// The second click of two opens and closes like the first, but means a row no second time.
void FoldedView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid() || !index.parent().isValid())
        mousePressEvent(event);
    else if (event->button() == Qt::LeftButton && !activatesOnClick())
        trigger(index);
}

// The keys ----------------------------------------------------------------------------------------

void FoldedView::keyPressEvent(QKeyEvent* event)
{
    static constexpr struct
    {
        int key;
        CursorAction action;
    } moves[] = {{Qt::Key_Up, MoveUp},         {Qt::Key_Down, MoveDown},
                 {Qt::Key_Home, MoveHome},     {Qt::Key_End, MoveEnd},
                 {Qt::Key_PageUp, MovePageUp}, {Qt::Key_PageDown, MovePageDown}};
    event->accept();
    const Qt::KeyboardModifiers others =
        event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const auto* const move =
        std::find_if(std::begin(moves), std::end(moves),
                     [&](const auto& each) { return each.key == event->key(); });
    if (others) {
        if (others != Qt::AltModifier || !shift(event->key()))
            event->ignore();
    } else if (move != std::end(moves)) {
        if (const QModelIndex to = moveCursor(move->action, {}); to.isValid())
            makeCurrent(to);
    } else if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
        goSideways((event->key() == Qt::Key_Right) == (layoutDirection() == Qt::LeftToRight));
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter
               || event->key() == Qt::Key_Select
               || (event->key() == Qt::Key_Space && !(m_search && m_search->isGoingOn()))) {
        trigger(currentIndex());
    } else if (!event->text().isEmpty() && event->text().front().isPrint()) {
        keyboardSearch(event->text());
    } else {
        event->ignore();
    }
}

/// Folds and unfolds, or goes to the row beside in its line.
bool FoldedView::goSideways(bool isForward)
{
    const QModelIndex current = currentIndex();
    const Spot spot = spotOf(current);
    if (spot.group < 0)
        return false;
    const QModelIndex header = m_model->index(spot.group, 0);
    if (spot.place < 0 && m_filter.isEmpty() && foldOf(spot.group) != Fold::None
        && isOpen(spot.group) != isForward) {
        toggle(header);
        return true;
    }
    const bool isInGrid = spot.place >= 0 && m_metrics.rowsPerLine > 1;
    QModelIndex to;
    if (isForward && (spot.place < 0 || isInGrid))
        to = spot.place + 1 < shownCount(spot.group) && isOpen(spot.group)
                 ? indexOf(Spot{spot.group, spot.place + 1})
                 : QModelIndex();
    else if (!isForward && spot.place >= 0)
        to = indexOf(Spot{spot.group, isInGrid ? spot.place - 1 : -1});
    if (to.isValid())
        makeCurrent(to);
    return to.isValid();
}

/// The current row, in the direction of an arrow. False where that is nothing to anybody.
bool FoldedView::shift(int key)
{
    const QModelIndex current = currentIndex();
    const bool isSideways = key == Qt::Key_Left || key == Qt::Key_Right;
    const bool isArrow = isSideways || key == Qt::Key_Up || key == Qt::Key_Down;
    if (!isAlive() || !isArrow || !current.parent().isValid() || !m_filter.isEmpty())
        return false;
    const bool isForward = isSideways
                               ? (key == Qt::Key_Right) == (layoutDirection() == Qt::LeftToRight)
                               : key == Qt::Key_Down;
    return m_host->noteShift(m_model->rowFromIndex(current), isForward);
}

QModelIndex FoldedView::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    if (!isAlive())
        return {};
    layOutNow();
    const QModelIndex current = currentIndex();
    Spot spot = spotOf(current);
    if (spot.group < 0) // its group is folded, or it is not there
        spot = {groupOf(current), -1};
    const int last = m_sums->at(m_sums->total() - 1);
    if (!isGroupShown(spot.group))
        return action == MoveEnd || action == MovePrevious
                   ? indexOf(spotAbove({m_sums->count(), -1}, m_metrics.rowsPerLine))
                   : indexOf(Spot{m_sums->at(0), -1});
    const QRect rect = visualRect(indexOf(spot));
    switch (action) {
    case MoveUp:
    case MovePrevious:
        return indexOf(spotAbove(spot, action == MoveUp ? m_metrics.rowsPerLine : 1));
    case MoveDown:
    case MoveNext:
        return indexOf(spotBelow(spot, action == MoveDown ? m_metrics.rowsPerLine : 1));
    case MoveHome:
        return indexOf(Spot{m_sums->at(0), -1});
    case MoveEnd:
        return indexOf(isOpen(last) && shownCount(last) > 0 ? Spot{last, shownCount(last) - 1}
                                                            : Spot{last, -1});
    case MovePageUp:
    case MovePageDown: {
        const int way = viewport()->height() * (action == MovePageUp ? -1 : 1);
        const int top = topOf(0);
        const int bottom = bounded(m_sums->total() + top - m_metrics.gap - 1);
        const QModelIndex to =
            indexOf(spotAt(std::clamp(rect.top() + way, top, std::max(top, bottom))));
        return to.isValid() ? to : moveCursor(action == MovePageUp ? MoveHome : MoveEnd, {});
    }
    default:
        return current;
    }
}

void FoldedView::keyboardSearch(const QString& text)
{
    if (!m_search)
        m_search = std::make_unique<QtKeyboardSearch>();
    m_search->type(text);
    const auto below = [this](const QModelIndex& index) { return rowBelow(index); };
    const QModelIndex found = m_search->find(*m_model, below, currentIndex(), MostLookedAt);
    if (found.isValid() && isShown(found))
        makeCurrent(found);
}

// What they do ------------------------------------------------------------------------------------

void FoldedView::trigger(const QModelIndex& index)
{
    if (!isAlive() || !index.isValid())
        return;
    if (!index.parent().isValid())
        toggle(index);
    else if (isEnabledRow(index))
        m_host->noteActivated(m_model->rowFromIndex(index));
}

void FoldedView::activate(unsigned row)
{
    const QModelIndex index = indexOf(row);
    if (index.isValid() && index.parent().isValid())
        trigger(index);
}

void FoldedView::toggle(const QModelIndex& group)
{
    if (!m_filter.isEmpty())
        return; // what was found is shown
    const unsigned row = m_model->rowFromIndex(group);
    setFolded(row, !isFolded(row), By::User);
}

void FoldedView::setSelection(const QRect&, QItemSelectionModel::SelectionFlags) {}
QRegion FoldedView::visualRegionForSelection(const QItemSelection&) const { return {}; }

} // namespace VOXI
