#include "voxi2/containers/vxtab2.h"

namespace VOXI {

VXTab2::VXTab2(VXObject2* parent) : VXTab2(AnyText(), parent) {}

VXTab2::VXTab2(const AnyText& text, VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(text, &VXTab2::setText, &VXFactory2::createTab2, this, &m_emitters, parent);
}

VXTab2::~VXTab2() { retire(); }

void VXTab2::setText(const AnyText& text) { text.passTo(m_emitters.setText, m_emitters.setTextU); }
std::string VXTab2::text() const { return m_emitters.getText(); }
std::wstring VXTab2::textU() const { return m_emitters.getTextU(); }
void VXTab2::setIcon(const Icon& icon) { m_emitters.setIcon(icon); }
Icon VXTab2::icon() const { return m_emitters.getIcon(); }

void VXTab2::setTabToolTip(const AnyText& text)
{
    text.passTo(m_emitters.setTabToolTip, m_emitters.setTabToolTipU);
}

std::string VXTab2::tabToolTip() const { return m_emitters.getTabToolTip(); }
std::wstring VXTab2::tabToolTipU() const { return m_emitters.getTabToolTipU(); }
void VXTab2::setTabEnabled(bool enabled) { m_emitters.setTabEnabled(enabled); }
bool VXTab2::isTabEnabled() const { return m_emitters.isTabEnabled(); }
void VXTab2::setTextColor(const Color& color) { m_emitters.setTextColor(color); }
void VXTab2::unsetTextColor() { m_emitters.unsetTextColor(); }
Color VXTab2::textColor() const { return m_emitters.getTextColor(); }
VXTabContainer2* VXTab2::container() const { return m_emitters.getContainer(); }
void VXTab2::setClosable(bool closable) { m_emitters.setClosable(closable); }
bool VXTab2::isClosable() const { return m_emitters.isClosable(); }

} // namespace VOXI
