#include "voxi2/controls/vxdial2.h"

namespace VOXI {

VXDial2::VXDial2(VXObject2* parent) : VXRange2(parent), m_emitters(VXRange2::m_emitters)
{
    createPeer(&VXFactory2::createDial2, this, &m_emitters, parent);
}

VXDial2::~VXDial2() { retire(); }

void VXDial2::setPageStep(int step) { m_emitters.setPageStep(step); }
int VXDial2::pageStep() const { return m_emitters.getPageStep(); }
void VXDial2::setNotchVisible(bool visible) { m_emitters.setNotchVisible(visible); }
bool VXDial2::isNotchVisible() const { return m_emitters.getNotchVisible(); }
int VXDial2::notchSize() const { return m_emitters.getNotchSize(); }
void VXDial2::setWrapping(bool wrapping) { m_emitters.setWrapping(wrapping); }
bool VXDial2::isWrapping() const { return m_emitters.isWrapping(); }

} // namespace VOXI
