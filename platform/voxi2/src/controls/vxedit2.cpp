#include "voxi2/controls/vxedit2.h"

namespace VOXI {

VXEdit2::VXEdit2(VXObject2* parent) : VXEdit2(AnyText(), parent) {}

VXEdit2::VXEdit2(const AnyText& text, VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(text, &VXEdit2::setText, &VXFactory2::createEdit2, this, &m_emitters, parent);
}

VXEdit2::~VXEdit2() { retire(); }

void VXEdit2::setText(const AnyText& text) { text.passTo(m_emitters.setText, m_emitters.setTextU); }
std::string VXEdit2::text() const { return m_emitters.getText(); }
std::wstring VXEdit2::textU() const { return m_emitters.getTextU(); }

void VXEdit2::setPlaceholder(const AnyText& text)
{
    text.passTo(m_emitters.setPlaceholder, m_emitters.setPlaceholderU);
}

std::string VXEdit2::placeholder() const { return m_emitters.getPlaceholder(); }
std::wstring VXEdit2::placeholderU() const { return m_emitters.getPlaceholderU(); }
void VXEdit2::setReadOnly(bool readOnly) { m_emitters.setReadOnly(readOnly); }
bool VXEdit2::isReadOnly() const { return m_emitters.isReadOnly(); }
void VXEdit2::setEcho(TextEcho echo) { m_emitters.setEcho(echo); }
TextEcho VXEdit2::echo() const { return m_emitters.getEcho(); }
void VXEdit2::setAlignment(Alignment alignment) { m_emitters.setAlignment(alignment); }
Alignment VXEdit2::alignment() const { return m_emitters.getAlignment(); }
void VXEdit2::setFlat(bool flat) { m_emitters.setFlat(flat); }
bool VXEdit2::isFlat() const { return m_emitters.isFlat(); }
void VXEdit2::setClearButtonVisible(bool visible) { m_emitters.setClearButtonVisible(visible); }
bool VXEdit2::isClearButtonVisible() const { return m_emitters.isClearButtonVisible(); }

void VXEdit2::addSideAction(VXAction2* action, EditSide side)
{
    m_emitters.addSideAction(action, side);
}

void VXEdit2::removeSideAction(VXAction2* action) { m_emitters.removeSideAction(action); }
void VXEdit2::setMaximumLength(int length) { m_emitters.setMaximumLength(length); }
int VXEdit2::maximumLength() const { return m_emitters.getMaximumLength(); }
void VXEdit2::setInputMask(const std::wstring& mask) { m_emitters.setInputMask(mask); }
std::wstring VXEdit2::inputMask() const { return m_emitters.getInputMask(); }
void VXEdit2::setValidator(const TextValidator& validator) { m_emitters.setValidator(validator); }
TextValidator VXEdit2::validator() const { return m_emitters.getValidator(); }
bool VXEdit2::isAcceptable() const { return m_emitters.isAcceptable(); }
void VXEdit2::setCompletion(const TextCompletion& completion)
{
    m_emitters.setCompletion(completion);
}
TextCompletion VXEdit2::completion() const { return m_emitters.getCompletion(); }
void VXEdit2::setCursorPosition(int position) { m_emitters.setCursorPosition(position); }
int VXEdit2::cursorPosition() const { return m_emitters.getCursorPosition(); }
void VXEdit2::setSelection(const TextRange& range) { m_emitters.setSelection(range); }
TextRange VXEdit2::selection() const { return m_emitters.getSelection(); }
std::wstring VXEdit2::selectedText() const { return m_emitters.getSelectedText(); }
void VXEdit2::selectAll() { m_emitters.selectAll(); }
void VXEdit2::insert(const AnyText& text) { text.passWideTo(m_emitters.insert); }
void VXEdit2::undo() { m_emitters.undo(); }
void VXEdit2::redo() { m_emitters.redo(); }
bool VXEdit2::isUndoAvailable() const { return m_emitters.isUndoAvailable(); }
bool VXEdit2::isRedoAvailable() const { return m_emitters.isRedoAvailable(); }
void VXEdit2::cut() { m_emitters.cut(); }
void VXEdit2::copy() { m_emitters.copy(); }
void VXEdit2::paste() { m_emitters.paste(); }
void VXEdit2::imitateTyping(const AnyText& text) { text.passWideTo(m_emitters.type); }
void VXEdit2::imitateReturn() { m_emitters.pressReturn(); }

} // namespace VOXI
