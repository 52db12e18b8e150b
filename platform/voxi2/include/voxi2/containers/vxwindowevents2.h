#pragma once

#include "voxi2/kernel/vxevent2.h"
#include "voxi2/kernel/windowflags.h"
#include "voxi_util/vxflags.h"

namespace VOXI {

class VXAbstractWindow2;

/// A window was minimised, maximised, made to fill the screen, or brought back.
class VXWindowStateEvent2 : public VXEvent2<VXAbstractWindow2, VXFlags<WindowState>>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractWindow2* window() const noexcept { return sender(); }
    /// The new state, without `Active`.
    VXFlags<WindowState> state() const noexcept { return value(); }
};

/// A window became the one with the keyboard, or is it no more.
class VXWindowActivationEvent2 : public VXEvent2<VXAbstractWindow2, bool>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractWindow2* window() const noexcept { return sender(); }
    bool isActive() const noexcept { return value(); }
};

} // namespace VOXI
