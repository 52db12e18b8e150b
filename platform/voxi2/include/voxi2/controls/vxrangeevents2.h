#pragma once

#include "voxi2/kernel/vxevent2.h"

namespace VOXI {

class VXDial2;
class VXSlider2;
class VXSpinBox2;

/// The user has moved a slider; sent when the handle is let go.
class VXSliderValueChangedEvent2 : public VXEvent2<VXSlider2, int>
{
public:
    using VXEvent2::VXEvent2;
    VXSlider2* slider() const noexcept { return sender(); }
    int newValue() const noexcept { return value(); }
};

/// The user has turned a dial; sent when the handle is let go.
class VXDialValueChangedEvent2 : public VXEvent2<VXDial2, int>
{
public:
    using VXEvent2::VXEvent2;
    VXDial2* dial() const noexcept { return sender(); }
    int newValue() const noexcept { return value(); }
};

/// The user has given a spin box another value: by a step, or typed and committed.
class VXSpinBoxSetValueEvent2 : public VXEvent2<VXSpinBox2, int>
{
public:
    using VXEvent2::VXEvent2;
    VXSpinBox2* spinBox() const noexcept { return sender(); }
    int newValue() const noexcept { return value(); }
};

/// The user edits the text of a spin box; what stands there is asked of the spin box.
class VXSpinBoxTextChangeEvent2 : public VXEvent2<VXSpinBox2>
{
public:
    using VXEvent2::VXEvent2;
    VXSpinBox2* spinBox() const noexcept { return sender(); }
};

} // namespace VOXI
