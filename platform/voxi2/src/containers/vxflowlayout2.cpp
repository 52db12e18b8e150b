#include "voxi2/containers/vxflowlayout2.h"

namespace VOXI {

VXFlowLayout2::VXFlowLayout2(VXObject2* parent, Direction direction)
    : VXLayout2(parent),
      m_emitters(VXLayout2::m_emitters)
{
    createPeer(&VXFactory2::createFlowLayout2, this, &m_emitters, this->parent(), direction);
}

VXFlowLayout2::~VXFlowLayout2() { retire(); }
void VXFlowLayout2::setDirection(Direction direction) { m_emitters.setDirection(direction); }
Direction VXFlowLayout2::direction() const { return m_emitters.getDirection(); }

} // namespace VOXI
