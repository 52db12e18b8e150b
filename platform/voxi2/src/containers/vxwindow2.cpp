#include "voxi2/containers/vxwindow2.h"

namespace VOXI {

VXWindow2::VXWindow2(VXObject2* parent)
    : VXAbstractWindow2(parent),
      m_emitters(VXAbstractWindow2::m_emitters)
{
    createPeer(&VXFactory2::createWindow2, this, &m_emitters, parent);
}

VXWindow2::~VXWindow2()
{
    retire();
}

void VXWindow2::setCentralWidget(VXWidget2* widget)
{
    m_emitters.setCentralWidget(widget);
}

VXWidget2* VXWindow2::centralWidget() const
{
    return m_emitters.getCentralWidget();
}

void VXWindow2::setSupportsGlobalFocusBlocker(bool supports)
{
    m_emitters.setSupportsGlobalFocusBlocker(supports);
}

bool VXWindow2::supportsGlobalFocusBlocker() const
{
    return m_emitters.getSupportsGlobalFocusBlocker();
}

void VXWindow2::setMenuBar(VXMenuBar2* bar)
{
    m_emitters.setMenuBar(bar);
}

VXMenuBar2* VXWindow2::menuBar() const
{
    return m_emitters.getMenuBar();
}

void VXWindow2::addToolBar(VXToolBar2* bar, ToolBarArea area)
{
    m_emitters.addToolBar(bar, area);
}

void VXWindow2::removeToolBar(VXToolBar2* bar)
{
    m_emitters.removeToolBar(bar);
}

void VXWindow2::insertToolBarBreak(VXToolBar2* before)
{
    m_emitters.insertToolBarBreak(before);
}

ToolBarArea VXWindow2::toolBarArea(VXToolBar2* bar) const
{
    return m_emitters.getToolBarArea(bar);
}

} // namespace VOXI
