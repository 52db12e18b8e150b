#include "voxi2/controls/vxbutton2.h"

namespace VOXI {

VXButton2::VXButton2(VXObject2* parent) : VXButton2(AnyText(), parent) {}

VXButton2::VXButton2(const AnyText& label, VXObject2* parent)
    : VXAbstractButton2(parent),
      m_emitters(VXAbstractButton2::m_emitters)
{
    createPeer(label, &VXButton2::setLabel, &VXFactory2::createButton2, this, &m_emitters, parent);
}

VXButton2::~VXButton2() { retire(); }
void VXButton2::setDefault(bool isDefault) { m_emitters.setDefault(isDefault); }
bool VXButton2::isDefault() const { return m_emitters.isDefault(); }
void VXButton2::setFlat(bool flat) { m_emitters.setFlat(flat); }
bool VXButton2::isFlat() const { return m_emitters.isFlat(); }

} // namespace VOXI
