#include "voxi2/containers/vxwindow2.h"

namespace VOXI {

VXWindow2::VXWindow2(VXObject2* parent)
    : VXAbstractWindow2(parent), m_emitters(VXAbstractWindow2::m_emitters)
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

}  // namespace VOXI
