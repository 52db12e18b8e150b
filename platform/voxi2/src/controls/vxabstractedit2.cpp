#include "voxi2/controls/vxabstractedit2.h"

namespace VOXI {

VXAbstractEdit2::VXAbstractEdit2(VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{}

VXAbstractEdit2::~VXAbstractEdit2() { retire(); }

void VXAbstractEdit2::setText(const AnyText& text)
{
    text.passTo(m_emitters.setText, m_emitters.setTextU);
}

std::string VXAbstractEdit2::text() const { return m_emitters.getText(); }
std::wstring VXAbstractEdit2::textU() const { return m_emitters.getTextU(); }

void VXAbstractEdit2::setPlaceholder(const AnyText& text)
{
    text.passTo(m_emitters.setPlaceholder, m_emitters.setPlaceholderU);
}

std::string VXAbstractEdit2::placeholder() const { return m_emitters.getPlaceholder(); }
std::wstring VXAbstractEdit2::placeholderU() const { return m_emitters.getPlaceholderU(); }
void VXAbstractEdit2::setReadOnly(bool readOnly) { m_emitters.setReadOnly(readOnly); }
bool VXAbstractEdit2::isReadOnly() const { return m_emitters.isReadOnly(); }

void VXAbstractEdit2::setCursorPosition(int position) { m_emitters.setCursorPosition(position); }
int VXAbstractEdit2::cursorPosition() const { return m_emitters.getCursorPosition(); }
void VXAbstractEdit2::setSelection(const TextRange& range) { m_emitters.setSelection(range); }
TextRange VXAbstractEdit2::selection() const { return m_emitters.getSelection(); }
std::wstring VXAbstractEdit2::selectedText() const { return m_emitters.getSelectedText(); }
void VXAbstractEdit2::selectAll() { m_emitters.selectAll(); }

void VXAbstractEdit2::insert(const AnyText& text) { text.passWideTo(m_emitters.insert); }
void VXAbstractEdit2::undo() { m_emitters.undo(); }
void VXAbstractEdit2::redo() { m_emitters.redo(); }
bool VXAbstractEdit2::isUndoAvailable() const { return m_emitters.isUndoAvailable(); }
bool VXAbstractEdit2::isRedoAvailable() const { return m_emitters.isRedoAvailable(); }
void VXAbstractEdit2::cut() { m_emitters.cut(); }
void VXAbstractEdit2::copy() { m_emitters.copy(); }
void VXAbstractEdit2::paste() { m_emitters.paste(); }
void VXAbstractEdit2::imitateTyping(const AnyText& text) { text.passWideTo(m_emitters.type); }

} // namespace VOXI
