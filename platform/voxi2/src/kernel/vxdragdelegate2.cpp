#include "voxi2/kernel/vxdragdelegate2.h"

namespace VOXI {

VXDragDelegate2::VXDragDelegate2(VXObject2* parent)
    : VXObject2(parent),
      m_emitters(VXObject2::m_emitters)
{
    createPeer(&VXFactory2::createDragDelegate2, this, &m_emitters);
}

VXDragDelegate2::~VXDragDelegate2() { retire(); }

} // namespace VOXI
