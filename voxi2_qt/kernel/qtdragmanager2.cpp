#include "voxi2_qt/kernel/qtdragmanager2.h"

#include "qtignored.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QDrag>
#include <QMimeData>
#include <QPixmap>
#include <QPointer>
#include <QWidget>

namespace VOXI {

namespace {

using E = VXDragManager2Emitters;
using P = QtDragManager2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::startDrag, &P::doStartDrag, RunsLoop>(),
    TROV::row<&E::cancelDrag, &P::doCancelDrag>(),
    TROV::row<&E::isDragging, &P::doIsDragging>());
// clang-format on

} // namespace

QtDragManager2::QtDragManager2(VXObject2* object, VXDragManager2Emitters* emitters)
    : QtObject2Shim(object, emitters, s_requests)
{}

// Requests ----------------------------------------------------------------------------------------

void QtDragManager2::doStartDrag(const VXDrag2& drag)
{
    VXObjectDataLocker lock;
    if (m_dragging || drag.mimeData.isEmpty() || !qWidgetOf(lookup(drag.source))) {
        ignored(*this, m_dragging ? "another drag goes on" : "it has no data, or no source");
        return;
    }
    m_dragging = true;
    // A drag runs an event loop of its own until it ends; the request returns before.
    const unsigned sourceId = drag.source->id();
    QMetaObject::invokeMethod(
        this, [this, drag, sourceId] { runDrag(drag, sourceId); }, Qt::QueuedConnection);
}

void QtDragManager2::doCancelDrag()
{
    if (m_dragging)
        QDrag::cancel();
}

bool QtDragManager2::doIsDragging() { return m_dragging; }

// Helpers -----------------------------------------------------------------------------------------

void QtDragManager2::runDrag(const VXDrag2& drag, unsigned sourceId)
{
    DropAction action = DropAction::Ignore;
    m_sourceId = sourceId;
    const QPointer<QtDragManager2> self(this);
    if (QWidget* source = qWidgetOf(lookup(sourceId))) {
        // Not a child of its source, which may go meanwhile: Qt would lose the drag in its middle.
        auto* running = new QDrag(this); // Qt deletes it when the drag is over
        // With the window the pointer's grab is lost, and nothing would ever end the drag.
        QObject::connect(source->window(), &QObject::destroyed, running, [] { QDrag::cancel(); });
        running->setMimeData(VX2Qt(drag.mimeData, this));
        const QPixmap pixmap = toQPixmap(drag.pixmap);
        if (!pixmap.isNull()) {
            running->setPixmap(pixmap);
            const QSize shown = pixmap.deviceIndependentSize().toSize();
            running->setHotSpot(drag.hotSpot == VXPoint<int>{-1, -1}
                                    ? QPoint(shown.width() / 2, shown.height() / 2)
                                    : VX2Qt(drag.hotSpot));
        }
        action = Qt2VX(running->exec(VX2Qt(drag.actions), VX2Qt(drag.defaultAction)));
    }
    if (!self)
        return;
    m_dragging = false;
    reportMade(&E::finished, [&] { return VXDragFinishedEvent2(source(), action); });
}

VXWidget2* QtDragManager2::source() const
{
    return static_cast<VXWidget2*>(VXObject::objectById(m_sourceId));
}

} // namespace VOXI
