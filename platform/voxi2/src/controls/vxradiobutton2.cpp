#include "voxi2/controls/vxradiobutton2.h"

namespace VOXI {

VXRadioButton2::VXRadioButton2(VXObject2* parent)
    : VXAbstractButton2(parent),
      m_emitters(VXAbstractButton2::m_emitters)
{
    createPeer(&VXFactory2::createRadioButton2, this, &m_emitters, parent);
}

VXRadioButton2::~VXRadioButton2() { retire(); }

} // namespace VOXI
