#pragma once

#include "voxi2/controls/vxslider2.h"
#include "voxi2_qt/controls/qtrange2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QSlider>

namespace VOXI {

/// The peer of the slider.
class VOXI2_QT_EXPORT QtSlider2 : public QtRange2Shim<VXSlider2, VXSlider2Emitters, QSlider>
{
    Q_OBJECT

public:
    QtSlider2(VXSlider2* object, VXSlider2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetPageStep(int step);
    virtual int doGetPageStep();
    virtual void doSetOrientation(Orientation orientation);
    virtual Orientation doGetOrientation();
    virtual void doSetTickInterval(int interval);
    virtual int doGetTickInterval();
    virtual void doSetTickPosition(VXSlider2::eTickPosition position);
    virtual VXSlider2::eTickPosition doGetTickPosition();

    static QSlider::TickPosition SliderVX2Qt(VXSlider2::eTickPosition position) noexcept;
    static VXSlider2::eTickPosition SliderQt2VX(QSlider::TickPosition position) noexcept;

protected:
    void connectSignals() override;
    void initStyleOption(QStyleOptionSlider* option) const override;

private Q_SLOTS:
    void slotSliderValueChanged(int value);
};

} // namespace VOXI
