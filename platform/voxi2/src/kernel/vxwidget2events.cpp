// The events of VXWidget2; its requests are in vxwidget2.cpp.

#include "voxi2/kernel/vxwidget2.h"

namespace VOXI {

TROV::Signal<void(const VXCloseEvent2&)> VXWidget2::closing() const
{
    return m_emitters.closing.signal();
}

TROV::Signal<void(const VXContextMenuEvent2&)> VXWidget2::contextMenuRequested() const
{
    return m_emitters.contextMenu.signal();
}

TROV::Signal<void(const VXDragEvent2&)> VXWidget2::dragEntered() const
{
    return m_emitters.dragEnter.signal();
}

TROV::Signal<void(const VXDragEvent2&)> VXWidget2::dragLeft() const
{
    return m_emitters.dragLeave.signal();
}

TROV::Signal<void(const VXDragEvent2&)> VXWidget2::dragMoved() const
{
    return m_emitters.dragMove.signal();
}

TROV::Signal<void(const VXDragEvent2&)> VXWidget2::dropped() const
{
    return m_emitters.drop.signal();
}

TROV::Signal<void(const VXWidgetEvent2&)> VXWidget2::mouseEntered() const
{
    return m_emitters.mouseEnter.signal();
}

TROV::Signal<void(const VXWidgetEvent2&)> VXWidget2::mouseLeft() const
{
    return m_emitters.mouseLeave.signal();
}

TROV::Signal<void(const VXFocusEvent2&)> VXWidget2::focusGained() const
{
    return m_emitters.focusIn.signal();
}

TROV::Signal<void(const VXFocusEvent2&)> VXWidget2::focusLost() const
{
    return m_emitters.focusOut.signal();
}

TROV::Signal<void(const VXWidgetEvent2&)> VXWidget2::shown() const
{
    return m_emitters.shown.signal();
}

TROV::Signal<void(const VXWidgetEvent2&)> VXWidget2::hidden() const
{
    return m_emitters.hidden.signal();
}

TROV::Signal<void(const VXKeyEvent2&)> VXWidget2::keyPressed() const
{
    return m_emitters.keyPress.signal();
}

TROV::Signal<void(const VXKeyEvent2&)> VXWidget2::keyReleased() const
{
    return m_emitters.keyRelease.signal();
}

TROV::Signal<void(const VXMouseEvent2&)> VXWidget2::mousePressed() const
{
    return m_emitters.mousePress.signal();
}

TROV::Signal<void(const VXMouseEvent2&)> VXWidget2::mouseReleased() const
{
    return m_emitters.mouseRelease.signal();
}

TROV::Signal<void(const VXMouseEvent2&)> VXWidget2::mouseDoubleClicked() const
{
    return m_emitters.mouseDoubleClick.signal();
}

TROV::Signal<void(const VXMouseEvent2&)> VXWidget2::mouseMoved() const
{
    return m_emitters.mouseMove.signal();
}

TROV::Signal<void(const VXMouseEvent2&)> VXWidget2::wheelTurned() const
{
    return m_emitters.wheel.signal();
}

TROV::Signal<void(const VXMoveEvent2&)> VXWidget2::moved() const
{
    return m_emitters.moved.signal();
}

TROV::Signal<void(const VXResizeEvent2&)> VXWidget2::resized() const
{
    return m_emitters.resized.signal();
}

TROV::Signal<void(const VXGestureEvent2&)> VXWidget2::gestured() const
{
    return m_emitters.gesture.signal();
}

TROV::Signal<void(const VXTouchEvent2&)> VXWidget2::touchBegan() const
{
    return m_emitters.touchBegin.signal();
}

TROV::Signal<void(const VXTouchEvent2&)> VXWidget2::touchMoved() const
{
    return m_emitters.touchUpdate.signal();
}

TROV::Signal<void(const VXTouchEvent2&)> VXWidget2::touchEnded() const
{
    return m_emitters.touchEnd.signal();
}

TROV::Signal<void(const VXMouseEvent2&)> VXWidget2::dragDetected() const
{
    return m_emitters.dragDetect.signal();
}

} // namespace VOXI
