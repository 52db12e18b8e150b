#include "voxi2/containers/vxgroupbox2.h"

#include "voxi_util/textencoding.h"

namespace VOXI {

VXGroupBox2::VXGroupBox2(VXObject2* parent) : VXWidget2(parent), m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createGroupBox2, this, &m_emitters, parent);
}

VXGroupBox2::~VXGroupBox2() { retire(); }
void VXGroupBox2::setTitle(const std::string& title) { m_emitters.setTitle(title); }
void VXGroupBox2::setTitle(const std::wstring& title) { m_emitters.setTitleU(title); }

void VXGroupBox2::setTitle(std::u16string_view title)
{
    m_emitters.setTitleU(wideFromUtf16(title));
}

std::string VXGroupBox2::title() const { return m_emitters.getTitle(); }
std::wstring VXGroupBox2::titleU() const { return m_emitters.getTitleU(); }
void VXGroupBox2::setFlat(bool flat) { m_emitters.setFlat(flat); }
bool VXGroupBox2::isFlat() const { return m_emitters.isFlat(); }

} // namespace VOXI
