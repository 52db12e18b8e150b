#include "voxi2_qt/containers/qtsplitterhandle.h"

#include "../kernel/qtwindowkeys.h"
#include "voxi2_qt/kernel/qthandlerframe.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSplitter>

#include <algorithm>

namespace VOXI {

namespace {

constexpr QColor GripColor(60, 140, 225);
constexpr int MaxDots = 5;
constexpr int MaxDiameter = 4;
constexpr int Inset = 1; // from the handle's edges
constexpr int KeyStep = 10;

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

void QtSplitterHandle::focusInEvent(QFocusEvent* event)
{
    m_sizesBefore = splitter()->sizes();
    QSplitterHandle::focusInEvent(event);
}

void QtSplitterHandle::keyPressEvent(QKeyEvent* event)
{
    const bool isColumn = orientation() == Qt::Horizontal;
    const int key = event->key();
    const int all = isColumn ? splitter()->width() : splitter()->height();
    if (key == (isColumn ? Qt::Key_Left : Qt::Key_Up)) {
        moveBy(-KeyStep);
    } else if (key == (isColumn ? Qt::Key_Right : Qt::Key_Down)) {
        moveBy(KeyStep);
    } else if (key == Qt::Key_Home || key == Qt::Key_End) {
        moveSplitter(key == Qt::Key_Home ? 0 : all);
    } else if (key == Qt::Key_Escape) {
        putBack();
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        focusFormer();
    } else {
        QSplitterHandle::keyPressEvent(event);
    }
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
    if (hasFocus())
        painter.fillRect(rect(), palette().highlight());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(hasFocus() ? palette().highlightedText().color() : GripColor);
    const QPointF middle = QRectF(rect()).center();
    for (int i = 0; i < dots; ++i) {
        const qreal along = (i - (dots - 1) / 2.0) * step;
        const QPointF center = middle + (isColumn ? QPointF(0, along) : QPointF(along, 0));
        painter.drawEllipse(center, diameter / 2.0, diameter / 2.0);
    }
}

/// From the left or top edge of the splitter. Of a mirrored one Qt means the handle's other edge.
int QtSplitterHandle::place() const
{
    if (orientation() == Qt::Vertical)
        return y();
    return splitter()->isRightToLeft() ? x() + width() : x();
}

/// Or further, to the next place where it can be: past where a pane is as small as it may be, that
/// is gone.
void QtSplitterHandle::moveBy(int distance)
{
    const int from = place();
    const int all = orientation() == Qt::Horizontal ? splitter()->width() : splitter()->height();
    for (int to = from + distance; to > -KeyStep && to < all + KeyStep; to += distance) {
        if (closestLegalPosition(to) != closestLegalPosition(from)) {
            moveSplitter(to);
            return;
        }
    }
}

void QtSplitterHandle::putBack()
{
    // As the user's drag back would, which is reported.
    const QList<int> before = m_sizesBefore;
    QSplitter& all = *splitter();
    if (before.size() == all.count() && before != all.sizes()) {
        const int index = all.indexOf(this);
        all.setSizes(before);
        Q_EMIT all.splitterMoved(place(), index);
    }
    focusFormer();
}

} // namespace VOXI
