#include "../kernel/qttakeout.h"
#include "cellroles.h"
#include "qtviewdelegate2.h"
#include "voxi2_qt/kernel/qteventblocker.h"
#include "voxi2_qt/kernel/qtobject2.h"
#include "voxi2_qt/kernel/qtreporthold.h"

#include <QAbstractItemView>

#include <utility>

namespace VOXI {

namespace {
unsigned idAt(const QModelIndex& index) { return index.data(CellWidgetRole).toUInt(); }

unsigned idOf(const QWidget* widget)
{
    const QtObject2* const peer = peerOf(widget);
    return peer ? peer->getUID() : 0;
}

QWidget* widgetOf(unsigned id)
{
    const VXObjectDataLocker lock;
    return id != 0 ? qWidgetOf(lookup(id)) : nullptr;
}
} // namespace

bool QtViewDelegate2::carriesOther(const QModelIndex& index) const
{
    return m_editorIndex != index && idAt(index) != idOf(m_itemView.indexWidget(index));
}

void QtViewDelegate2::wantSettled(const QModelIndex& index) const
{
    if (m_unsettled.contains(index))
        return;
    // No widget may move while a view is being painted.
    if (m_unsettled.isEmpty()) {
        auto* const self = const_cast<QtViewDelegate2*>(this);
        QMetaObject::invokeMethod(
            self, [self] { self->settleAll(); }, Qt::QueuedConnection);
    }
    m_unsettled.append(index);
}

void QtViewDelegate2::settleAll()
{
    const QtReportHold hold;
    for (const QPersistentModelIndex& index : std::exchange(m_unsettled, {})) {
        if (index.isValid())
            settle(index);
    }
}

void QtViewDelegate2::settle(const QModelIndex& index)
{
    if (!carriesOther(index))
        return;
    if (QWidget* const former = m_itemView.indexWidget(index))
        takeOff(former);
    const unsigned id = idAt(index);
    QWidget* const widget = widgetOf(id);
    if (!widget || widget == m_editor || !canHold(widget))
        return;
    if (isEmbedded(widget)) {
        const QPersistentModelIndex elsewhere = m_embedded.value(widget);
        if (elsewhere.isValid() && idAt(elsewhere) == id)
            return; // it cannot stand in two cells
        takeOff(widget);
    }
    embed(index, widget);
}

void QtViewDelegate2::embed(const QModelIndex& index, QWidget* widget)
{
    const QtEventBlocker blocker(widget, {WidgetEvent::Show, WidgetEvent::Hide});
    takeOutFor(m_itemView.viewport(), widget);
    widget->setParent(m_itemView.viewport());
    m_embedded.insert(widget, index);
    widget->installEventFilter(this);
    attach(widget);
    m_itemView.setIndexWidget(index, widget);
}

} // namespace VOXI
