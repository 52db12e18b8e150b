#include "voxi2/controls/vxprogressbar2.h"

namespace VOXI {

VXProgressBar2::VXProgressBar2(VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createProgressBar2, this, &m_emitters, parent);
}

VXProgressBar2::~VXProgressBar2() { retire(); }

void VXProgressBar2::setMinimum(int minimum) { m_emitters.setMinimum(minimum); }
int VXProgressBar2::minimum() const { return m_emitters.getMinimum(); }
void VXProgressBar2::setMaximum(int maximum) { m_emitters.setMaximum(maximum); }
int VXProgressBar2::maximum() const { return m_emitters.getMaximum(); }
void VXProgressBar2::setValue(int value) { m_emitters.setValue(value); }
int VXProgressBar2::value() const { return m_emitters.getValue(); }
void VXProgressBar2::setTextVisible(bool visible) { m_emitters.setTextVisible(visible); }
bool VXProgressBar2::isTextVisible() const { return m_emitters.isTextVisible(); }
void VXProgressBar2::setCustomText(const std::string& text) { m_emitters.setCustomText(text); }
std::string VXProgressBar2::customText() const { return m_emitters.getCustomText(); }

} // namespace VOXI
