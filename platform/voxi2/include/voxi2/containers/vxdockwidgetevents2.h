#pragma once

#include "voxi2/containers/dockarea.h"

namespace VOXI {

class VXDockWidget2;

/// A dock widget was torn off its window, or put back.
class VXDockFloatEvent2
{
public:
    VXDockFloatEvent2(VXDockWidget2* dock, bool floating) noexcept
        : m_dock(dock),
          m_floating(floating)
    {}

    /// Never null. In a handler on another thread than the toolkit's it may be gone.
    VXDockWidget2* dock() const noexcept { return m_dock; }
    /// Whether it stands alone now.
    bool isFloating() const noexcept { return m_floating; }

private:
    VXDockWidget2* m_dock;
    bool m_floating;
};

/// A dock widget was put at another side of its window.
class VXDockAreaEvent2
{
public:
    VXDockAreaEvent2(VXDockWidget2* dock, DockArea area) noexcept : m_dock(dock), m_area(area) {}

    /// Never null. In a handler on another thread than the toolkit's it may be gone.
    VXDockWidget2* dock() const noexcept { return m_dock; }
    /// The new side.
    DockArea area() const noexcept { return m_area; }

private:
    VXDockWidget2* m_dock;
    DockArea m_area;
};

/// A dock widget came into sight or went out of it.
class VXDockVisibilityEvent2
{
public:
    VXDockVisibilityEvent2(VXDockWidget2* dock, bool visible) noexcept
        : m_dock(dock),
          m_visible(visible)
    {}

    /// Never null. In a handler on another thread than the toolkit's it may be gone.
    VXDockWidget2* dock() const noexcept { return m_dock; }
    /// Whether it can be seen now.
    bool isVisible() const noexcept { return m_visible; }

private:
    VXDockWidget2* m_dock;
    bool m_visible;
};

} // namespace VOXI
