#include "voxi2/controls/vxslider2.h"

namespace VOXI {

VXSlider2::VXSlider2(VXObject2* parent) : VXRange2(parent), m_emitters(VXRange2::m_emitters)
{
    createPeer(&VXFactory2::createSlider2, this, &m_emitters, parent);
}

VXSlider2::~VXSlider2() { retire(); }

void VXSlider2::setPageStep(int step) { m_emitters.setPageStep(step); }
int VXSlider2::pageStep() const { return m_emitters.getPageStep(); }

void VXSlider2::setOrientation(Orientation orientation) { m_emitters.setOrientation(orientation); }
Orientation VXSlider2::orientation() const { return m_emitters.getOrientation(); }
void VXSlider2::setTickInterval(int interval) { m_emitters.setTickInterval(interval); }
int VXSlider2::tickInterval() const { return m_emitters.getTickInterval(); }
void VXSlider2::setTickPosition(eTickPosition position) { m_emitters.setTickPosition(position); }
VXSlider2::eTickPosition VXSlider2::tickPosition() const { return m_emitters.getTickPosition(); }

} // namespace VOXI
