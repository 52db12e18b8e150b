#pragma once

#include "voxi2/kernel/vxevent2.h"

namespace VOXI {

class VXToolTipWindow2;

/// The user did something to a tool-tip window.
class VXToolTipWindowEvent2 : public VXEvent2<VXToolTipWindow2>
{
public:
    using VXEvent2::VXEvent2;
    VXToolTipWindow2* window() const noexcept { return sender(); }
};

} // namespace VOXI
