#pragma once

#include "voxi2/kernel/vxdragmanager2.h"
#include "voxi2_qt/kernel/qtobject2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QObject>

namespace VOXI {

/// The peer of the drag manager: runs drags with the window system.
class VOXI2_QT_EXPORT QtDragManager2
    : public QtObject2Shim<VXObject2, VXDragManager2Emitters, QtObject2, QObject>
{
    Q_OBJECT

public:
    QtDragManager2(VXObject2* object, VXDragManager2Emitters* emitters);

    // Requests, in the order of the emitters table
    virtual void doStartDrag(const VXDrag2& drag);
    virtual void doCancelDrag();
    virtual bool doIsDragging();

    /// The widget that the drag in progress started from, or null.
    VXWidget2* source() const;

private:
    void runDrag(const VXDrag2& drag, unsigned sourceId);

    bool m_dragging = false;
    unsigned m_sourceId = 0;
};

} // namespace VOXI
