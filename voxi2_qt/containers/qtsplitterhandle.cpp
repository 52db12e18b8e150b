#include "voxi2_qt/containers/qtsplitterhandle.h"

#include "voxi2_qt/kernel/qthandlerframe.h"

#include <QPainter>

#include <algorithm>

namespace VOXI {

namespace {

constexpr QColor GripColor(60, 140, 225);
constexpr int MaxDots = 5;
constexpr int MaxDiameter = 4;
constexpr int Inset = 1; // from the handle's edges

} // namespace

void QtSplitterHandle::operator delete(QtSplitterHandle* handle, std::destroying_delete_t)
{
    if (QtDeletionHold::postpones(*handle)) {
        handle->setParent(nullptr);
        return;
    }
    handle->~QtSplitterHandle();
    ::operator delete(handle);
}

bool QtSplitterHandle::event(QEvent* event)
{
    // One that waits for its end may be dragged on, but its splitter knows it no more.
    if (!parent())
        return QObject::event(event) || event->isInputEvent();
    return QSplitterHandle::event(event);
}

void QtSplitterHandle::paintEvent(QPaintEvent*)
{
    // The handle of a horizontal splitter is a column.
    const bool isColumn = orientation() == Qt::Horizontal;
    const int thickness = isColumn ? width() : height();
    const int length = isColumn ? height() : width();
    const int diameter = std::clamp(thickness - 2 * Inset, 1, MaxDiameter);
    const int step = 2 * diameter;
    const int dots = std::min(MaxDots, (length + diameter) / step);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(GripColor);
    const QPointF middle = QRectF(rect()).center();
    for (int i = 0; i < dots; ++i) {
        const qreal along = (i - (dots - 1) / 2.0) * step;
        const QPointF center = middle + (isColumn ? QPointF(0, along) : QPointF(along, 0));
        painter.drawEllipse(center, diameter / 2.0, diameter / 2.0);
    }
}

} // namespace VOXI
