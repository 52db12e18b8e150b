#pragma once

#include "voxi2/kernel/vxevent2.h"
#include "voxi_util/geometry.h"

namespace VOXI {

class VXScrollView2;

/// The user has scrolled a view.
class VXScrollEvent2 : public VXEvent2<VXScrollView2, VXPoint<int>>
{
public:
    using VXEvent2::VXEvent2;
    VXScrollView2* view() const noexcept { return sender(); }
    /// As `VXScrollView2::scrollPosition` says.
    const VXPoint<int>& scrollPosition() const noexcept { return value(); }
};

} // namespace VOXI
