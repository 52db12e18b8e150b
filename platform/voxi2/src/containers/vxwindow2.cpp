#include "voxi2/containers/vxwindow2.h"

#include "../kernel/notnull.h"

namespace VOXI {

VXWindow2::VXWindow2(VXObject2* parent) : VXWindow2(AnyText(), parent) {}

VXWindow2::VXWindow2(const AnyText& title, VXObject2* parent)
    : VXAbstractWindow2(parent),
      m_emitters(VXAbstractWindow2::m_emitters)
{
    createPeer(title, &VXWindow2::setTitle, &VXFactory2::createWindow2, this, &m_emitters, parent);
}

VXWindow2::~VXWindow2() { retire(); }
void VXWindow2::setCentralWidget(VXWidget2* widget) { m_emitters.setCentralWidget(widget); }
VXWidget2* VXWindow2::centralWidget() const { return m_emitters.getCentralWidget(); }

void VXWindow2::setSupportsGlobalFocusBlocker(bool supports)
{
    m_emitters.setSupportsGlobalFocusBlocker(supports);
}

bool VXWindow2::supportsGlobalFocusBlocker() const
{
    return m_emitters.getSupportsGlobalFocusBlocker();
}

void VXWindow2::setMenuBar(VXMenuBar2* bar) { m_emitters.setMenuBar(bar); }
VXMenuBar2* VXWindow2::menuBar() const { return m_emitters.getMenuBar(); }
void VXWindow2::addToolBar(VXToolBar2* bar, ToolBarArea area)
{
    m_emitters.addToolBar(notNull(this, bar), area);
}
void VXWindow2::removeToolBar(VXToolBar2* bar) { m_emitters.removeToolBar(notNull(this, bar)); }
void VXWindow2::insertToolBarBreak(VXToolBar2* before)
{
    m_emitters.insertToolBarBreak(notNull(this, before));
}
ToolBarArea VXWindow2::toolBarArea(VXToolBar2* bar) const { return m_emitters.getToolBarArea(bar); }

void VXWindow2::setStatusText(const AnyText& text, int timeout)
{
    text.passTo(m_emitters.setStatusText, m_emitters.setStatusTextU, timeout);
}

std::string VXWindow2::statusText() const { return m_emitters.getStatusText(); }
std::wstring VXWindow2::statusTextU() const { return m_emitters.getStatusTextU(); }
void VXWindow2::setStatusBarVisible(bool visible) { m_emitters.setStatusBarVisible(visible); }
bool VXWindow2::isStatusBarVisible() const { return m_emitters.isStatusBarVisible(); }

void VXWindow2::addStatusWidget(VXWidget2* widget, int stretch)
{
    m_emitters.addStatusWidget(notNull(this, widget), stretch);
}

void VXWindow2::removeStatusWidget(VXWidget2* widget) { m_emitters.removeStatusWidget(widget); }

void VXWindow2::addDockWidget(VXDockWidget2* dock, DockArea area)
{
    m_emitters.addDockWidget(notNull(this, dock), area);
}

void VXWindow2::removeDockWidget(VXDockWidget2* dock)
{
    m_emitters.removeDockWidget(notNull(this, dock));
}
DockArea VXWindow2::dockArea(VXDockWidget2* dock) const { return m_emitters.getDockArea(dock); }

void VXWindow2::tabifyDockWidget(VXDockWidget2* first, VXDockWidget2* second)
{
    m_emitters.tabifyDockWidget(notNull(this, first), second);
}

void VXWindow2::splitDockWidget(VXDockWidget2* first, VXDockWidget2* second,
                                Orientation orientation)
{
    m_emitters.splitDockWidget(notNull(this, first), second, orientation);
}

void VXWindow2::raiseDockWidget(VXDockWidget2* dock)
{
    m_emitters.raiseDockWidget(notNull(this, dock));
}
std::string VXWindow2::saveLayout() const { return m_emitters.saveLayout(); }

bool VXWindow2::restoreLayout(const std::string& layout)
{
    return m_emitters.restoreLayout(layout);
}

void VXWindow2::setDockSize(VXDockWidget2* dock, int size, Orientation orientation)
{
    m_emitters.setDockSize(dock, size, orientation);
}

void VXWindow2::setDockCorner(DockCorner corner, DockArea area)
{
    m_emitters.setDockCorner(corner, area);
}

DockArea VXWindow2::dockCorner(DockCorner corner) const { return m_emitters.getDockCorner(corner); }
void VXWindow2::setDockNesting(bool nesting) { m_emitters.setDockNesting(nesting); }
bool VXWindow2::isDockNesting() const { return m_emitters.isDockNesting(); }

void VXWindow2::setDockTabPosition(DockArea area, TabPosition position)
{
    m_emitters.setDockTabPosition(area, position);
}

TabPosition VXWindow2::dockTabPosition(DockArea area) const
{
    return m_emitters.getDockTabPosition(area);
}

std::vector<VXDockWidget2*> VXWindow2::dockTabs(VXDockWidget2* dock) const
{
    return m_emitters.getDockTabs(dock);
}

} // namespace VOXI
