#include "voxi2/containers/vxgroupbox2.h"

namespace VOXI {

VXGroupBox2::VXGroupBox2(VXObject2* parent) : VXGroupBox2(AnyText(), parent) {}

VXGroupBox2::VXGroupBox2(const AnyText& title, VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(title, &VXGroupBox2::setTitle, &VXFactory2::createGroupBox2, this, &m_emitters,
               parent);
}

VXGroupBox2::~VXGroupBox2() { retire(); }

void VXGroupBox2::setTitle(const AnyText& title)
{
    title.passTo(m_emitters.setTitle, m_emitters.setTitleU);
}

std::string VXGroupBox2::title() const { return m_emitters.getTitle(); }
std::wstring VXGroupBox2::titleU() const { return m_emitters.getTitleU(); }
void VXGroupBox2::setFlat(bool flat) { m_emitters.setFlat(flat); }
bool VXGroupBox2::isFlat() const { return m_emitters.isFlat(); }
void VXGroupBox2::setCheckable(bool checkable) { m_emitters.setCheckable(checkable); }
bool VXGroupBox2::isCheckable() const { return m_emitters.isCheckable(); }
void VXGroupBox2::setChecked(bool checked) { m_emitters.setChecked(checked); }
bool VXGroupBox2::isChecked() const { return m_emitters.isChecked(); }
void VXGroupBox2::imitateToggle() { m_emitters.toggle(); }

} // namespace VOXI
