#pragma once

#include "voxi2/controls/vxrange2.h"
#include "voxi2_qt/kernel/qtwidget2.h"
#include "voxi2_qt/voxi2_qt_export.h"

namespace VOXI {

/// What the peers of slider, dial and spin box share. Their Qt classes have no base in common that
/// has it, so `QtRange2Shim` does what is asked here.
class VOXI2_QT_EXPORT QtRange2 : public QtPeerLevel<VXRange2, VXRange2Emitters, QtWidget2>
{
public:
    // Requests, in the order of the emitters table
    virtual void doSetValue(int value) = 0;
    virtual int doGetValue() = 0;
    virtual void doSetRange(VXPoint<int> range) = 0;
    virtual VXPoint<int> doGetRange() = 0;
    virtual void doSetSingleStep(int step) = 0;
    virtual int doGetSingleStep() = 0;

protected:
    QtRange2(VXRange2* object, VXRange2Emitters* emitters);
};

} // namespace VOXI
