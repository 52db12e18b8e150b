#pragma once

#include "voxi2/kernel/vxevent2.h"
#include "voxi_util/geometry.h"

namespace VOXI {

class VXMimicSource2;

/// A source has another picture, or none any more.
class VXMimicEvent2 : public VXEvent2<VXMimicSource2, Size<int>>
{
public:
    using VXEvent2::VXEvent2;
    VXMimicSource2* source() const noexcept { return sender(); }
    /// Of the picture, in units of the screen; 0 x 0 for none.
    Size<int> size() const noexcept { return value(); }
};

} // namespace VOXI
