#pragma once

#include "voxi2/kernel/vxevent2.h"

namespace VOXI {

class VXWidget2;
class VXWidgetStack2;

/// The widget that a stack showed has gone, and another has taken its place.
class VXStackEvent2 : public VXEvent2<VXWidgetStack2, VXWidget2*, int>
{
public:
    using VXEvent2::VXEvent2;
    VXWidgetStack2* stack() const noexcept { return sender(); }
    /// What is shown now; null when nothing is left.
    VXWidget2* current() const noexcept { return value<0>(); }
    /// Its number; -1 when nothing is left.
    int currentID() const noexcept { return value<1>(); }
};

} // namespace VOXI
