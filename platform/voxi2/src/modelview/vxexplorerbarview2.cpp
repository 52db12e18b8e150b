#include "voxi2/modelview/vxexplorerbarview2.h"

namespace VOXI {

VXExplorerBarView2::VXExplorerBarView2(VXObject2* parent)
    : VXAbstractGroupView2(parent),
      m_emitters(VXAbstractGroupView2::m_emitters)
{
    createPeer(&VXFactory2::createExplorerBarView2, this, &m_emitters, parent);
}

VXExplorerBarView2::~VXExplorerBarView2() { retire(); }

} // namespace VOXI
