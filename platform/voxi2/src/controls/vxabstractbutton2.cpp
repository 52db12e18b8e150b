#include "voxi2/controls/vxabstractbutton2.h"

namespace VOXI {

VXAbstractButton2::VXAbstractButton2(VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{}

VXAbstractButton2::~VXAbstractButton2() { retire(); }

void VXAbstractButton2::setLabel(const AnyText& label)
{
    label.passTo(m_emitters.setLabel, m_emitters.setLabelU);
}

std::string VXAbstractButton2::label() const { return m_emitters.getLabel(); }
std::wstring VXAbstractButton2::labelU() const { return m_emitters.getLabelU(); }
void VXAbstractButton2::setIcon(const Icon& icon) { m_emitters.setIcon(icon); }
Icon VXAbstractButton2::icon() const { return m_emitters.getIcon(); }
void VXAbstractButton2::setIconSize(Size<int> size) { m_emitters.setIconSize(size); }
Size<int> VXAbstractButton2::iconSize() const { return m_emitters.getIconSize(); }
void VXAbstractButton2::setCheckable(bool checkable) { m_emitters.setCheckable(checkable); }
bool VXAbstractButton2::isCheckable() const { return m_emitters.isCheckable(); }
void VXAbstractButton2::setChecked(bool checked) { m_emitters.setChecked(checked); }
bool VXAbstractButton2::isChecked() const { return m_emitters.isChecked(); }
void VXAbstractButton2::setExclusive(bool exclusive) { m_emitters.setExclusive(exclusive); }
bool VXAbstractButton2::isExclusive() const { return m_emitters.isExclusive(); }
void VXAbstractButton2::imitateClick() { m_emitters.click(); }
void VXAbstractButton2::imitateToggle() { m_emitters.toggle(); }

} // namespace VOXI
