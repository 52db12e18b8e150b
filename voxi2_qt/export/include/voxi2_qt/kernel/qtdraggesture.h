#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QMouseEvent>
#include <QPoint>

namespace VOXI {

class QtWidget2;

/// Recognises the start of a drag: the left button goes down and the pointer moves further than a
/// click allows.
class VOXI2_QT_EXPORT QtDragGesture
{
public:
    /// Remembers the first press of the left button; `origin` is where the event's receiver lies in
    /// the widget.
    void press(const QMouseEvent& event, QPoint origin)
    {
        if (!m_pressed)
            begin(event, origin);
    }
    /// Reports the drag when the pointer has gone far enough. False when the handlers have deleted
    /// the widget, and this with it.
    bool move(QtWidget2& widget, const QMouseEvent& event)
    {
        return !m_pressed || !isFarEnough(event) || report(widget, event);
    }
    void release() { m_pressed = false; }

private:
    void begin(const QMouseEvent& event, QPoint origin);
    bool isFarEnough(const QMouseEvent& event) const;
    bool report(QtWidget2& widget, const QMouseEvent& event);

    bool m_pressed = false;
    QPoint m_localPosition;
    QPoint m_globalPosition;
    QPoint m_deliveredPosition;
};

} // namespace VOXI
