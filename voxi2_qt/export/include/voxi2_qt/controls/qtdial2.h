#pragma once

#include "voxi2/controls/vxdial2.h"
#include "voxi2_qt/controls/qtrange2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QDial>

namespace VOXI {

/// The peer of the dial.
class VOXI2_QT_EXPORT QtDial2 : public QtRange2Shim<VXDial2, VXDial2Emitters, QDial>
{
    Q_OBJECT

public:
    QtDial2(VXDial2* object, VXDial2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetPageStep(int step);
    virtual int doGetPageStep();
    virtual void doSetNotchVisible(bool visible);
    virtual bool doGetNotchVisible();
    virtual int doGetNotchSize();
    virtual void doSetWrapping(bool wrapping);
    virtual bool doIsWrapping();

protected:
    void connectSignals() override;

private Q_SLOTS:
    void slotDialValueChanged(int value);
};

} // namespace VOXI
