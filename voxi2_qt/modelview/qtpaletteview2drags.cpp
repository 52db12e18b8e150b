// The part of QtPaletteView2 that is about entries that are dragged, or shifted by keys.

#include "paletteentries.h"
#include "palettemove.h"
#include "qtviewmodel2.h"
#include "voxi2/kernel/vxdragmanager2.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QDropEvent>
#include <QMimeData>

#include <cstddef>
#include <utility>

namespace VOXI {

namespace {

using E = VXPaletteView2Emitters;

/// By which a palette knows its own entries: its number and the entry's row.
const char* const s_format = "application/x-voxi-palette-entry";

QByteArray ownText(unsigned palette, unsigned entry)
{
    return QByteArray::number(palette) + '/' + QByteArray::number(entry);
}

} // namespace

// Reports -----------------------------------------------------------------------------------------

void QtPaletteView2::noteDrag(unsigned row)
{
    const QtDeletionHold hold(this);
    VXDrag2 drag;
    if (const auto asked = ask(&E::entryDragged, row)) {
        drag.mimeData = asked->answer().mimeData;
        drag.actions = asked->answer().actions;
        drag.pixmap = asked->answer().pixmap;
    }
    if (!hold.isAlive())
        return;
    if (m_isReorderable) {
        const QByteArray own = ownText(getUID(), row);
        drag.mimeData.setData(StringID(s_format),
                              ByteArray(own.constData(), std::size_t(own.size())));
        drag.actions |= DropAction::Move;
    }
    if (drag.mimeData.isEmpty())
        return;
    if (drag.pixmap.isNull())
        drag.pixmap = Qt2VX(m_entries->pictureOf(row));
    drag.source = abstractWidget();
    if (VXDragManager2* const manager = VXDragManager2::instance())
        manager->startDrag(drag);
}

/// From the end of a category to the next one.
bool QtPaletteView2::noteShift(unsigned row, bool isForward)
{
    if (!m_isReorderable)
        return false;
    const QtViewModel2& model = m_entries->viewModel();
    const QModelIndex entry = m_entries->indexOf(row);
    const QModelIndex group = entry.parent();
    const QModelIndex beside = entry.siblingAtRow(entry.row() + (isForward ? 1 : -1));
    const QModelIndex behind = entry.siblingAtRow(entry.row() + 2);
    if (beside.isValid()) {
        doimMoveEntry(row, model.rowFromIndex(group),
                      model.rowFromIndex(isForward ? behind : beside));
        return true;
    }
    const QModelIndex other = group.siblingAtRow(group.row() + (isForward ? 1 : -1));
    if (other.isValid())
        doimMoveEntry(row, model.rowFromIndex(other),
                      isForward ? model.rowFromIndex(model.index(0, 0, other)) : 0);
    return true;
}

bool QtPaletteView2::showToPeer(QWidget* receiver, QEvent* event)
{
    // What is accepted for the entries' own sake is nobody else's.
    bool isTold = true;
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        isTold = m_takesDrops && ownEntry(static_cast<QDropEvent&>(*event)) == 0;
        break;
    case QEvent::DragLeave:
        isTold = m_takesDrops && !m_move;
        break;
    default:
        break;
    }
    return isTold && QtOuterWidget2Shim::showToPeer(receiver, event);
}

void QtPaletteView2::dragEnterEvent(QDragEnterEvent* event)
{
    forgetMove();
    if (ownEntry(*event) != 0) {
        followMove(*event);
        event->accept(); // or nothing more would be heard of it
    } else if (m_takesDrops) {
        QtOuterWidget2Shim::dragEnterEvent(event);
    } else {
        event->ignore();
    }
}

void QtPaletteView2::dragMoveEvent(QDragMoveEvent* event)
{
    if (ownEntry(*event) != 0)
        followMove(*event);
    else
        QtOuterWidget2Shim::dragMoveEvent(event);
}

void QtPaletteView2::dragLeaveEvent(QDragLeaveEvent* event)
{
    const bool isOwn = m_move != nullptr;
    forgetMove();
    if (!isOwn)
        QtOuterWidget2Shim::dragLeaveEvent(event);
}

void QtPaletteView2::dropEvent(QDropEvent* event)
{
    const unsigned entry = ownEntry(*event);
    if (entry == 0) {
        QtOuterWidget2Shim::dropEvent(event);
        return;
    }
    const bool isAllowed = m_move && m_move->group != 0 && m_isMoveAllowed;
    const Move move = m_move ? *m_move : Move{};
    forgetMove();
    event->setDropAction(isAllowed ? Qt::MoveAction : Qt::IgnoreAction);
    event->setAccepted(isAllowed);
    if (isAllowed)
        report(&E::entryMoved, move.entry, move.group, move.before);
}

// Helpers -----------------------------------------------------------------------------------------

unsigned QtPaletteView2::ownEntry(const QDropEvent& event) const
{
    const QString format = QString::fromLatin1(s_format);
    if (!m_isReorderable || !m_entries || !event.mimeData()->hasFormat(format))
        return 0;
    const QByteArray text = event.mimeData()->data(format);
    const unsigned entry = text.mid(text.indexOf('/') + 1).toUInt();
    const bool isOwn = text == ownText(getUID(), entry) && m_entries->canBeMoved(entry);
    return isOwn ? entry : 0;
}

bool QtPaletteView2::mayMove(const Move& move)
{
    const QtViewModel2& model = m_entries->viewModel();
    const QModelIndex entry = m_entries->indexOf(move.entry);
    const QModelIndex group = m_entries->indexOf(move.group);
    const bool isPlace = m_entries->canBeMoved(move.entry) && group.isValid()
                         && !group.parent().isValid()
                         && (move.before == 0 || model.parentRow(move.before) == move.group);
    const QModelIndex next = entry.siblingAtRow(entry.row() + 1);
    const bool isThere = entry.parent() == group
                         && (move.before == move.entry || move.before == model.rowFromIndex(next));
    if (!isPlace || isThere)
        return false;
    const auto asked = ask(&E::entryMoving, move.entry, move.group, move.before);
    return !asked || !asked->isRefused();
}

void QtPaletteView2::followMove(QDragMoveEvent& event)
{
    const QtDeletionHold hold(this);
    const QPoint at = m_entries->viewport()->mapFrom(this, event.position().toPoint());
    m_entries->scrollAt(at);
    const PaletteEntries::Gap gap = m_entries->gapAt(at);
    const Move move{ownEntry(event), gap.group, gap.before};
    if (!m_move || *m_move != move) {
        m_move = std::make_unique<Move>(move);
        const bool isAllowed = mayMove(move);
        if (!hold.isAlive())
            return;
        m_isMoveAllowed = isAllowed;
    }
    m_entries->mark(m_isMoveAllowed ? gap.mark : QRect());
    event.setDropAction(m_isMoveAllowed ? Qt::MoveAction : Qt::IgnoreAction);
    event.setAccepted(m_isMoveAllowed);
}

void QtPaletteView2::forgetMove()
{
    m_move.reset();
    m_isMoveAllowed = false;
    if (m_entries)
        m_entries->mark({});
}

} // namespace VOXI
