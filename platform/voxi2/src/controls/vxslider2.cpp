#include "voxi2/controls/vxslider2.h"

namespace VOXI {

VXSlider2::VXSlider2(VXObject2* parent) : VXWidget2(parent), m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createSlider2, this, &m_emitters, parent);
}

VXSlider2::~VXSlider2() { retire(); }

void VXSlider2::setValue(int value) { m_emitters.setValue(value); }
int VXSlider2::value() const { return m_emitters.getValue(); }
void VXSlider2::setRange(const VXPoint<int>& range) { m_emitters.setRange(range); }
VXPoint<int> VXSlider2::range() const { return m_emitters.getRange(); }
void VXSlider2::setSingleStep(int step) { m_emitters.setSingleStep(step); }
int VXSlider2::singleStep() const { return m_emitters.getSingleStep(); }
void VXSlider2::setPageStep(int step) { m_emitters.setPageStep(step); }
int VXSlider2::pageStep() const { return m_emitters.getPageStep(); }

void VXSlider2::setOrientation(Orientation orientation) { m_emitters.setOrientation(orientation); }
Orientation VXSlider2::orientation() const { return m_emitters.getOrientation(); }
void VXSlider2::setTickInterval(int interval) { m_emitters.setTickInterval(interval); }
int VXSlider2::tickInterval() const { return m_emitters.getTickInterval(); }
void VXSlider2::setTickPosition(eTickPosition position) { m_emitters.setTickPosition(position); }
VXSlider2::eTickPosition VXSlider2::tickPosition() const { return m_emitters.getTickPosition(); }

} // namespace VOXI
