#include "voxi2_qt/kernel/qtdraggesture.h"

#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace VOXI {

void QtDragGesture::press(const QMouseEvent& event)
{
    if (m_pressed || event.button() != Qt::LeftButton)
        return;
    m_globalPosition = event.globalPosition().toPoint();
    m_deliveredPosition = event.position().toPoint();
    m_pressed = true;
}

void QtDragGesture::move(QtWidget2& widget, const QMouseEvent& event)
{
    if (!m_pressed)
        return;
    const QPoint way = m_deliveredPosition - event.position().toPoint();
    if (way.manhattanLength() <= QApplication::startDragDistance())
        return;
    VXObjectDataLocker lock;
    if (!widget.isVXObjectValid())
        return;
    // Before the handlers run: one of them may destroy the widget, and this gesture with it.
    m_pressed = false;
    VXWidget2* source = widget.abstractWidget();
    const auto& dragDetect = widget.widgetEmitters()->dragDetect;
    if (dragDetect.isHeard()) {
        // Mapped only now: most presses never become a drag.
        const VXPoint<int> local = Qt2VX(widget.asQWidget()->mapFromGlobal(m_globalPosition));
        dragDetect(VXMouseEvent2(source, WidgetEvent::MouseMove, local, Qt2VX(m_globalPosition),
                                 Qt2VX(event.button()), Qt2VX(event.buttons()),
                                 Qt2VX(event.modifiers())));
    }
}

} // namespace VOXI
