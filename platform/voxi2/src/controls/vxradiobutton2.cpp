#include "voxi2/controls/vxradiobutton2.h"

namespace VOXI {

VXRadioButton2::VXRadioButton2(VXObject2* parent) : VXRadioButton2(AnyText(), parent) {}

VXRadioButton2::VXRadioButton2(const AnyText& label, VXObject2* parent)
    : VXAbstractButton2(parent),
      m_emitters(VXAbstractButton2::m_emitters)
{
    createPeer(label, &VXRadioButton2::setLabel, &VXFactory2::createRadioButton2, this, &m_emitters,
               parent);
}

VXRadioButton2::~VXRadioButton2() { retire(); }

} // namespace VOXI
