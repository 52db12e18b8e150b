#include "voxi2/controls/vxcombobox2.h"

#include "voxi_util/textencoding.h"

namespace VOXI {

VXComboBox2::VXComboBox2(VXObject2* parent) : VXWidget2(parent), m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createComboBox2, this, &m_emitters, parent);
}

VXComboBox2::~VXComboBox2() { retire(); }

void VXComboBox2::addItem(const AnyText& text, unsigned uid)
{
    addItems({ComboItem{text.toWide(), uid, {}, {}, true}});
}

void VXComboBox2::addItem(const ComboItem& item) { addItems({item}); }
void VXComboBox2::addItems(const std::vector<ComboItem>& items) { insertItems(-1, items); }

void VXComboBox2::insertItems(int index, const std::vector<ComboItem>& items)
{
    m_emitters.insertItems(index, items);
}

void VXComboBox2::insertSeparator(int index) { m_emitters.insertSeparator(index); }
void VXComboBox2::addSeparator() { m_emitters.insertSeparator(-1); }
void VXComboBox2::setItem(int index, const ComboItem& item) { m_emitters.setItem(index, item); }
ComboItem VXComboBox2::item(int index) const { return m_emitters.getItem(index); }
void VXComboBox2::removeItem(int index) { m_emitters.removeItem(index); }
void VXComboBox2::clear() { m_emitters.clear(); }
int VXComboBox2::count() const { return m_emitters.count(); }
int VXComboBox2::find(unsigned uid) const { return m_emitters.findUid(uid); }
int VXComboBox2::findText(const AnyText& text) const { return m_emitters.findText(text.toWide()); }
void VXComboBox2::setCurrentIndex(int index) { m_emitters.setCurrentIndex(index); }
int VXComboBox2::currentIndex() const { return m_emitters.getCurrentIndex(); }
void VXComboBox2::setCurrentUid(unsigned uid) { m_emitters.setCurrentUid(uid); }
unsigned VXComboBox2::currentUid() const { return m_emitters.getCurrentUid(); }
void VXComboBox2::setCurrentText(const AnyText& text)
{
    text.passWideTo(m_emitters.setCurrentText);
}
std::string VXComboBox2::currentText() const { return narrowFromWide(currentTextU()); }
std::wstring VXComboBox2::currentTextU() const { return m_emitters.getCurrentText(); }
void VXComboBox2::setPlaceholder(const AnyText& text)
{
    text.passWideTo(m_emitters.setPlaceholder);
}
std::wstring VXComboBox2::placeholder() const { return m_emitters.getPlaceholder(); }
void VXComboBox2::setEditable(bool editable) { m_emitters.setEditable(editable); }
bool VXComboBox2::isEditable() const { return m_emitters.isEditable(); }
void VXComboBox2::setInsertPolicy(ComboInsertPolicy policy) { m_emitters.setInsertPolicy(policy); }
ComboInsertPolicy VXComboBox2::insertPolicy() const { return m_emitters.getInsertPolicy(); }
void VXComboBox2::setMaximumVisibleItems(int count) { m_emitters.setMaximumVisibleItems(count); }
int VXComboBox2::maximumVisibleItems() const { return m_emitters.getMaximumVisibleItems(); }
void VXComboBox2::setMinimumCharacters(int count) { m_emitters.setMinimumCharacters(count); }
int VXComboBox2::minimumCharacters() const { return m_emitters.getMinimumCharacters(); }
void VXComboBox2::setViewModel(VXAbstractViewModel2* model) { m_emitters.setViewModel(model); }
VXAbstractViewModel2* VXComboBox2::viewModel() const { return m_emitters.getViewModel(); }
void VXComboBox2::setModelColumn(unsigned column) { m_emitters.setModelColumn(column); }
unsigned VXComboBox2::modelColumn() const { return m_emitters.getModelColumn(); }
void VXComboBox2::imitateChoice(int index) { m_emitters.choose(index); }

} // namespace VOXI
