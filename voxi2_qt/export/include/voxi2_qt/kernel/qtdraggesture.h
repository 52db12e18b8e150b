#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QPoint>

QT_BEGIN_NAMESPACE
class QMouseEvent;
QT_END_NAMESPACE

namespace VOXI {

class QtWidget2;

/// Recognises the start of a drag: the left button goes down and the pointer moves further than a
/// click allows.
class VOXI2_QT_EXPORT QtDragGesture
{
public:
    /// Remembers the first left-button press.
    void press(const QMouseEvent& event);
    /// Reports the drag when the pointer has gone far enough. The handlers may destroy the widget's
    /// object.
    void move(QtWidget2& widget, const QMouseEvent& event);
    void release() { m_pressed = false; }

private:
    bool m_pressed = false;
    QPoint m_globalPosition;
    QPoint m_deliveredPosition;
};

} // namespace VOXI
