#include "voxi2/controls/vxlistbox2.h"

namespace VOXI {

VXListBox2::VXListBox2(VXObject2* parent) : VXWidget2(parent), m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createListBox2, this, &m_emitters, parent);
}

VXListBox2::~VXListBox2() { retire(); }

void VXListBox2::addItems(const VXStringList& items, const Icon& icon)
{
    m_emitters.addItems(items, icon);
}

void VXListBox2::addItems(const std::vector<std::wstring>& items, const Icon& icon)
{
    m_emitters.addItemsU(items, icon);
}

void VXListBox2::insertItems(int row, const VXStringList& items, const Icon& icon)
{
    m_emitters.insertItems(row, items, icon);
}

void VXListBox2::insertItems(int row, const std::vector<std::wstring>& items, const Icon& icon)
{
    m_emitters.insertItemsU(row, items, icon);
}

void VXListBox2::removeItems(int row) { m_emitters.removeItems(row); }
void VXListBox2::eraseItem(int row) { m_emitters.eraseItem(row); }
int VXListBox2::count() const { return m_emitters.count(); }
VXStringList VXListBox2::items() const { return m_emitters.getItems(); }
std::vector<std::wstring> VXListBox2::itemsU() const { return m_emitters.getItemsU(); }
std::string VXListBox2::itemAt(int row) const { return m_emitters.getItemAt(row); }
std::wstring VXListBox2::itemAtU(int row) const { return m_emitters.getItemAtU(row); }
void VXListBox2::setSelectionMode(SelectionMode mode) { m_emitters.setSelectionMode(mode); }
SelectionMode VXListBox2::selectionMode() const { return m_emitters.getSelectionMode(); }

void VXListBox2::setSelection(int row, bool selected) { m_emitters.setSelection(row, selected); }
void VXListBox2::clearSelection() { m_emitters.clearSelection(); }
std::vector<int> VXListBox2::selections() const { return m_emitters.getSelections(); }
void VXListBox2::setCurrentRow(int row) { m_emitters.setCurrentRow(row); }
int VXListBox2::currentRow() const { return m_emitters.getCurrentRow(); }
void VXListBox2::imitateSelect(int row) { m_emitters.select(row); }
void VXListBox2::imitateSelectByString(const std::string& text) { m_emitters.selectByString(text); }

} // namespace VOXI
