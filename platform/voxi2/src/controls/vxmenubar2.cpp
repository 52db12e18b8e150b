#include "voxi2/controls/vxmenubar2.h"

#include "voxi_util/textencoding.h"

namespace VOXI {

VXMenuBar2::VXMenuBar2(VXObject2* parent) : VXWidget2(parent), m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createMenuBar2, this, &m_emitters, parent);
}

VXMenuBar2::~VXMenuBar2() { retire(); }

void VXMenuBar2::addMenu(const std::string& title, VXMenu2* menu)
{
    m_emitters.glAddMenu(title, menu);
}

void VXMenuBar2::addMenu(const std::wstring& title, VXMenu2* menu)
{
    m_emitters.addMenuU(title, menu);
}

void VXMenuBar2::addMenu(std::u16string_view title, VXMenu2* menu)
{
    m_emitters.addMenuU(wideFromUtf16(title), menu);
}

void VXMenuBar2::removeMenu(VXMenu2* menu) { m_emitters.removeMenu(menu); }
void VXMenuBar2::clear() { m_emitters.clear(); }

} // namespace VOXI
