#include "voxi2/containers/vxpanel2.h"

namespace VOXI {

VXPanel2::VXPanel2(VXObject2* parent) : VXWidget2(parent), m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createPanel2, this, &m_emitters, parent);
}

VXPanel2::~VXPanel2() { retire(); }

} // namespace VOXI
