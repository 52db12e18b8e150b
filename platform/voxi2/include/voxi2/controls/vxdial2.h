#pragma once

#include "voxi2/controls/vxrange2.h"
#include "voxi2/controls/vxrangeevents2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXDial2Emitters : TROV::EmittersTable<VXRange2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(int)> setPageStep{*this};
    TROV::Request<int()> getPageStep{*this};
    TROV::Request<void(bool)> setNotchVisible{*this};
    TROV::Request<bool()> getNotchVisible{*this};
    TROV::Request<int()> getNotchSize{*this};
    TROV::Request<void(bool)> setWrapping{*this};
    TROV::Request<bool()> isWrapping{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXDialValueChangedEvent2&)> valueChanged{*this};
};

/// A knob that the user turns to choose a number.
class VOXI2_EXPORT VXDial2 : public VXRange2
{
public:
    using ToolkitClass = VXDial2;

    explicit VXDial2(VXObject2* parent = nullptr);
    ~VXDial2() override;

    /// How far Page Up and Page Down go; 10 at first.
    void setPageStep(int step);
    int pageStep() const;

    /// Whether notches are drawn around the knob; not at first.
    void setNotchVisible(bool visible);
    bool isNotchVisible() const;
    /// How far notches are apart, in values: a multiple of the single step.
    int notchSize() const;

    /// Whether the knob turns on from the greatest value to the least; not at first.
    void setWrapping(bool wrapping);
    bool isWrapping() const;

    // Events

    /// The user has chosen a value: once for each drag, when the knob is let go.
    TROV::Signal<void(const VXDialValueChangedEvent2&)> valueChanged() const
    {
        return m_emitters.valueChanged.signal();
    }

private:
    VXDial2Emitters m_emitters;
};

} // namespace VOXI
