#pragma once

#include "voxi2/containers/dockarea.h"
#include "voxi2/kernel/vxevent2.h"

namespace VOXI {

class VXDockWidget2;

/// A dock widget was torn off its window, or put back.
class VXDockFloatEvent2 : public VXEvent2<VXDockWidget2, bool>
{
public:
    using VXEvent2::VXEvent2;
    VXDockWidget2* dock() const noexcept { return sender(); }
    /// Whether it stands alone now.
    bool isFloating() const noexcept { return value(); }
};

/// A dock widget was put at another side of its window.
class VXDockAreaEvent2 : public VXEvent2<VXDockWidget2, DockArea>
{
public:
    using VXEvent2::VXEvent2;
    VXDockWidget2* dock() const noexcept { return sender(); }
    /// The new side.
    DockArea area() const noexcept { return value(); }
};

/// A dock widget came into sight or went out of it.
class VXDockVisibilityEvent2 : public VXEvent2<VXDockWidget2, bool>
{
public:
    using VXEvent2::VXEvent2;
    VXDockWidget2* dock() const noexcept { return sender(); }
    /// Whether it can be seen now.
    bool isVisible() const noexcept { return value(); }
};

} // namespace VOXI
