#pragma once

#include "voxi2/kernel/vxevent2.h"

namespace VOXI {

class VXSplitter2;

/// The user moves a handle of a splitter; one event for each step.
class VXSplitterMoveEvent2 : public VXEvent2<VXSplitter2, int, int>
{
public:
    using VXEvent2::VXEvent2;
    VXSplitter2* splitter() const noexcept { return sender(); }
    /// The position of the widget that the handle stands before.
    int index() const noexcept { return value<0>(); }
    /// How far the handle is from the splitter's left or upper edge, in pixels.
    int position() const noexcept { return value<1>(); }
};

} // namespace VOXI
