#include "voxi2/containers/vxtabcontainer2.h"

#include "../kernel/notnull.h"

namespace VOXI {

VXTabContainer2::VXTabContainer2(VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createTabContainer2, this, &m_emitters, parent);
}

VXTabContainer2::~VXTabContainer2() { retire(); }
void VXTabContainer2::insertTab(VXTab2* tab, int index) { m_emitters.insertTab(tab, index); }
void VXTabContainer2::removeTab(VXTab2* tab) { m_emitters.removeTab(tab); }
std::vector<VXTab2*> VXTabContainer2::tabs() const { return m_emitters.getTabs(); }
int VXTabContainer2::count() const { return m_emitters.count(); }
int VXTabContainer2::indexOf(VXTab2* tab) const { return m_emitters.getTabIndex(tab); }
VXTab2* VXTabContainer2::tabAt(int index) const { return m_emitters.getTabAt(index); }
void VXTabContainer2::setCurrentTab(VXTab2* tab) { m_emitters.setCurrentTab(notNull(this, tab)); }
VXTab2* VXTabContainer2::currentTab() const { return m_emitters.getCurrentTab(); }
void VXTabContainer2::setTabPosition(TabPosition position) { m_emitters.setTabPosition(position); }
TabPosition VXTabContainer2::tabPosition() const { return m_emitters.getTabPosition(); }
void VXTabContainer2::setTabsClosable(bool closable) { m_emitters.setTabsClosable(closable); }
bool VXTabContainer2::areTabsClosable() const { return m_emitters.areTabsClosable(); }
void VXTabContainer2::setMovable(bool movable) { m_emitters.setMovable(movable); }
bool VXTabContainer2::isMovable() const { return m_emitters.isMovable(); }
void VXTabContainer2::setDocumentMode(bool on) { m_emitters.setDocumentMode(on); }
bool VXTabContainer2::isDocumentMode() const { return m_emitters.isDocumentMode(); }
void VXTabContainer2::setElideMode(TextElideMode mode) { m_emitters.setElideMode(mode); }
TextElideMode VXTabContainer2::elideMode() const { return m_emitters.getElideMode(); }
void VXTabContainer2::setScrollButtons(bool on) { m_emitters.setScrollButtons(on); }
bool VXTabContainer2::hasScrollButtons() const { return m_emitters.hasScrollButtons(); }

void VXTabContainer2::setCornerWidget(VXWidget2* widget, TabCorner corner)
{
    m_emitters.setCornerWidget(widget, corner);
}

VXWidget2* VXTabContainer2::cornerWidget(TabCorner corner) const
{
    return m_emitters.getCornerWidget(corner);
}

} // namespace VOXI
