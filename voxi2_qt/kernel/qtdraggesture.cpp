#include "voxi2_qt/kernel/qtdraggesture.h"

#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QApplication>

namespace VOXI {

void QtDragGesture::begin(const QMouseEvent& event, QPoint origin)
{
    m_globalPosition = event.globalPosition().toPoint();
    m_deliveredPosition = event.position().toPoint();
    m_localPosition = m_deliveredPosition + origin; // now: the widget may be moved before the drag
    m_pressed = true;
}

bool QtDragGesture::isFarEnough(const QMouseEvent& event) const
{
    const QPoint way = m_deliveredPosition - event.position().toPoint();
    return way.manhattanLength() > QApplication::startDragDistance();
}

bool QtDragGesture::report(QtWidget2& widget, const QMouseEvent& event)
{
    m_pressed = false;
    const QtDeletionHold hold(&widget);
    widget.report(&VXWidget2Emitters::dragDetect, WidgetEvent::MouseMove, Qt2VX(m_localPosition),
                  Qt2VX(m_globalPosition), Qt2VX(event.button()), Qt2VX(event.buttons()),
                  Qt2VX(event.modifiers()));
    return hold.isAlive();
}

} // namespace VOXI
