#include "voxi2/controls/vxrange2.h"

namespace VOXI {

VXRange2::VXRange2(VXObject2* parent) : VXWidget2(parent), m_emitters(VXWidget2::m_emitters) {}
VXRange2::~VXRange2() { retire(); }

void VXRange2::setValue(int value) { m_emitters.setValue(value); }
int VXRange2::value() const { return m_emitters.getValue(); }
void VXRange2::setRange(const VXPoint<int>& range) { m_emitters.setRange(range); }
VXPoint<int> VXRange2::range() const { return m_emitters.getRange(); }
void VXRange2::setSingleStep(int step) { m_emitters.setSingleStep(step); }
int VXRange2::singleStep() const { return m_emitters.getSingleStep(); }

} // namespace VOXI
