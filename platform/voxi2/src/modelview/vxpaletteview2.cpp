#include "voxi2/modelview/vxpaletteview2.h"

namespace VOXI {

VXPaletteView2::VXPaletteView2(VXObject2* parent)
    : VXAbstractGroupView2(parent),
      m_emitters(VXAbstractGroupView2::m_emitters)
{
    createPeer(&VXFactory2::createPaletteView2, this, &m_emitters, parent);
}

VXPaletteView2::~VXPaletteView2() { retire(); }

void VXPaletteView2::setEntryLayout(PaletteLayout layout) { m_emitters.setEntryLayout(layout); }
PaletteLayout VXPaletteView2::entryLayout() const { return m_emitters.getEntryLayout(); }

void VXPaletteView2::setCurrentEntry(unsigned entry) { current(m_emitters).setCurrentEntry(entry); }

unsigned VXPaletteView2::currentEntry() const { return current(m_emitters).getCurrentEntry(); }

void VXPaletteView2::setSearchVisible(bool visible) { m_emitters.setSearchVisible(visible); }
bool VXPaletteView2::isSearchVisible() const { return m_emitters.isSearchVisible(); }
void VXPaletteView2::setSearchText(const AnyText& text)
{
    text.passWideTo(m_emitters.setSearchText);
}
std::wstring VXPaletteView2::searchText() const { return m_emitters.getSearchText(); }
void VXPaletteView2::setFiltering(bool filtering) { m_emitters.setFiltering(filtering); }
bool VXPaletteView2::isFiltering() const { return m_emitters.isFiltering(); }
void VXPaletteView2::setReorderable(bool reorderable) { m_emitters.setReorderable(reorderable); }
bool VXPaletteView2::isReorderable() const { return m_emitters.isReorderable(); }

void VXPaletteView2::imitateSetCurrentEntry(unsigned entry)
{
    current(m_emitters).setCurrentEntryAsUser(entry);
}

void VXPaletteView2::imitateSearch(const AnyText& text)
{
    text.passWideTo(m_emitters.setSearchTextAsUser);
}

void VXPaletteView2::imitateMoveEntry(unsigned entry, unsigned group, unsigned before)
{
    current(m_emitters).moveEntry(entry, group, before);
}

} // namespace VOXI
