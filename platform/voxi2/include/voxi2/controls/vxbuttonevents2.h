#pragma once

#include "voxi2/kernel/vxevent2.h"

namespace VOXI {

class VXAbstractButton2;

/// A button was clicked.
class VXButtonClickEvent2 : public VXEvent2<VXAbstractButton2>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractButton2* button() const noexcept { return sender(); }
};

/// A checkable button changed its state.
class VXButtonToggleEvent2 : public VXEvent2<VXAbstractButton2, bool>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractButton2* button() const noexcept { return sender(); }
    bool isChecked() const noexcept { return value(); }
};

} // namespace VOXI
