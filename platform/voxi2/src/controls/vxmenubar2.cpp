#include "voxi2/controls/vxmenubar2.h"

#include "../kernel/notnull.h"

namespace VOXI {

VXMenuBar2::VXMenuBar2(VXObject2* parent) : VXWidget2(parent), m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createMenuBar2, this, &m_emitters, parent);
}

VXMenuBar2::~VXMenuBar2() { retire(); }

void VXMenuBar2::addMenu(const AnyText& title, VXMenu2* menu)
{
    title.passTo(m_emitters.glAddMenu, m_emitters.addMenuU, notNull(this, menu));
}

void VXMenuBar2::removeMenu(VXMenu2* menu) { m_emitters.removeMenu(menu); }
void VXMenuBar2::clear() { m_emitters.clear(); }

} // namespace VOXI
