#include "voxi2/controls/vxcheckbox2.h"

namespace VOXI {

VXCheckBox2::VXCheckBox2(VXObject2* parent) : VXCheckBox2(AnyText(), parent) {}

VXCheckBox2::VXCheckBox2(const AnyText& label, VXObject2* parent)
    : VXAbstractButton2(parent),
      m_emitters(VXAbstractButton2::m_emitters)
{
    createPeer(label, &VXCheckBox2::setLabel, &VXFactory2::createCheckBox2, this, &m_emitters,
               parent);
}

VXCheckBox2::~VXCheckBox2() { retire(); }

} // namespace VOXI
