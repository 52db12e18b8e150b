#include "voxi2/controls/vxspinbox2.h"

namespace VOXI {

VXSpinBox2::VXSpinBox2(VXObject2* parent) : VXRange2(parent), m_emitters(VXRange2::m_emitters)
{
    createPeer(&VXFactory2::createSpinBox2, this, &m_emitters, parent);
}

VXSpinBox2::~VXSpinBox2() { retire(); }

void VXSpinBox2::setEditable(bool editable) { m_emitters.setEditable(editable); }
bool VXSpinBox2::isEditable() const { return m_emitters.isEditable(); }
void VXSpinBox2::stepBy(int steps) { m_emitters.stepBy(steps); }
void VXSpinBox2::setWrapping(bool wrapping) { m_emitters.setWrapping(wrapping); }
bool VXSpinBox2::isWrapping() const { return m_emitters.isWrapping(); }
std::string VXSpinBox2::text() const { return m_emitters.getText(); }
std::wstring VXSpinBox2::textU() const { return m_emitters.getTextU(); }

void VXSpinBox2::setPrefix(const AnyText& prefix)
{
    prefix.passTo(m_emitters.setPrefix, m_emitters.setPrefixU);
}

std::string VXSpinBox2::prefix() const { return m_emitters.getPrefix(); }
std::wstring VXSpinBox2::prefixU() const { return m_emitters.getPrefixU(); }

void VXSpinBox2::setSuffix(const AnyText& suffix)
{
    suffix.passTo(m_emitters.setSuffix, m_emitters.setSuffixU);
}

std::string VXSpinBox2::suffix() const { return m_emitters.getSuffix(); }
std::wstring VXSpinBox2::suffixU() const { return m_emitters.getSuffixU(); }
void VXSpinBox2::imitateSpinUp() { m_emitters.spinUp(); }
void VXSpinBox2::imitateSpinDown() { m_emitters.spinDown(); }
void VXSpinBox2::imitateValue(int value) { m_emitters.setValueAsUser(value); }

} // namespace VOXI
