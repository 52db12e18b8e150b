#include "voxi2/controls/vxmimicview2.h"

#include "voxi2/controls/vxmimicsource2.h"

namespace VOXI {

VXMimicView2::VXMimicView2(VXObject2* parent) : VXWidget2(parent), m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createMimicView2, this, &m_emitters, parent);
}

VXMimicView2::~VXMimicView2() { retire(); }
void VXMimicView2::setSource(VXMimicSource2* source) { m_emitters.setSource(source); }
VXMimicSource2* VXMimicView2::source() const { return m_emitters.getSource(); }
void VXMimicView2::setAspectKept(bool kept) { m_emitters.setAspectKept(kept); }
bool VXMimicView2::isAspectKept() const { return m_emitters.isAspectKept(); }
void VXMimicView2::setForwarding(bool forwarding) { m_emitters.setForwarding(forwarding); }
bool VXMimicView2::isForwarding() const { return m_emitters.isForwarding(); }
VXRect<int> VXMimicView2::pictureRect() const { return m_emitters.getPictureRect(); }

} // namespace VOXI
