#pragma once

#include "voxi2/controls/tickposition.h"
#include "voxi2/controls/vxrange2.h"
#include "voxi2/controls/vxrangeevents2.h"
#include "voxi2/kernel/direction.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXSlider2Emitters : TROV::EmittersTable<VXRange2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(int)> setPageStep{*this};
    TROV::Request<int()> getPageStep{*this};
    TROV::Request<void(Orientation)> setOrientation{*this};
    TROV::Request<Orientation()> getOrientation{*this};
    TROV::Request<void(int)> setTickInterval{*this};
    TROV::Request<int()> getTickInterval{*this};
    TROV::Request<void(TickPosition)> setTickPosition{*this};
    TROV::Request<TickPosition()> getTickPosition{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXSliderValueChangedEvent2&)> valueChanged{*this};
};

/// A handle that the user moves along a line to choose a number.
class VOXI2_EXPORT VXSlider2 : public VXRange2
{
public:
    using ToolkitClass = VXSlider2;
    using eTickPosition = TickPosition;

    explicit VXSlider2(VXObject2* parent = nullptr);
    ~VXSlider2() override;

    /// How far Page Up and Page Down go; 10 at first.
    void setPageStep(int step);
    int pageStep() const;

    /// Horizontal at first.
    void setOrientation(Orientation orientation);
    Orientation orientation() const;

    /// How far ticks are apart, in values; with 0, as at first, as far as steps are. Where they
    /// would lie closer than one can see, fewer are drawn.
    void setTickInterval(int interval);
    int tickInterval() const;
    /// None at first; so are values that are no tick position.
    void setTickPosition(eTickPosition position);
    eTickPosition tickPosition() const;

    // Events

    /// The user has chosen a value: once for each drag, when the handle is let go.
    TROV::Signal<void(const VXSliderValueChangedEvent2&)> valueChanged() const
    {
        return m_emitters.valueChanged.signal();
    }

private:
    VXSlider2Emitters m_emitters;
};

} // namespace VOXI
