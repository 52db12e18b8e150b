#pragma once

#include "voxi2/kernel/vxdragdelegate2.h"
#include "voxi2_qt/kernel/qtobject2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QObject>

QT_BEGIN_NAMESPACE
class QDragEnterEvent;
class QDragLeaveEvent;
class QDragMoveEvent;
class QDropEvent;
QT_END_NAMESPACE

namespace VOXI {

class QtWidget2;

/// The peer of the drag delegate: asks it about the drags over its widgets and carries its answer
/// to Qt. Hold the object lock while calling it.
class VOXI2_QT_EXPORT QtDragDelegate2
    : public QtObject2Shim<VXDragDelegate2, VXDragDelegate2Emitters, QtObject2, QObject>
{
    Q_OBJECT

public:
    QtDragDelegate2(VXDragDelegate2* delegate, VXDragDelegate2Emitters* emitters);

    void dragEnter(const QtWidget2& widget, QDragEnterEvent* event);
    void dragMove(const QtWidget2& widget, QDragMoveEvent* event);
    void dragLeave(const QtWidget2& widget, QDragLeaveEvent* event);
    void drop(const QtWidget2& widget, QDropEvent* event);

private:
    void pass(TROV::Event<void(const VXDragEvent2&)> VXDragDelegate2Emitters::*event,
              const QtWidget2& widget, WidgetEvent type, QDropEvent& qtEvent);
};

} // namespace VOXI
