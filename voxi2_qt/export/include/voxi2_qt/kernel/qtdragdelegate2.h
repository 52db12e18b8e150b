#pragma once

#include "voxi2/kernel/vxdragdelegate2.h"
#include "voxi2_qt/kernel/qtobject2.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QObject>

QT_BEGIN_NAMESPACE
class QDragEnterEvent;
class QDragLeaveEvent;
class QDragMoveEvent;
class QDropEvent;
QT_END_NAMESPACE

namespace VOXI {

/// The peer of the drag delegate: asks it about the drags over its widgets and carries its answer
/// to Qt. Hold the object lock while calling it.
class VOXI2_QT_EXPORT QtDragDelegate2 : public QtObject2Shim<QObject>
{
    Q_OBJECT

public:
    QtDragDelegate2(VXDragDelegate2* delegate, VXDragDelegate2Emitters* emitters);

    void dragEnter(VXWidget2* widget, QDragEnterEvent* event);
    void dragMove(VXWidget2* widget, QDragMoveEvent* event);
    void dragLeave(VXWidget2* widget, QDragLeaveEvent* event);
    void drop(VXWidget2* widget, QDropEvent* event);

private:
    void ask(const TROV::Event<void(const VXDragEvent2&)>& emitter, VXWidget2* widget,
             WidgetEvent type, QDropEvent* event);

    VXDragDelegate2Emitters* m_emitters;
};

} // namespace VOXI
