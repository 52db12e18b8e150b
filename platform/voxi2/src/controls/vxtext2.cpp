#include "voxi2/controls/vxtext2.h"

namespace VOXI {

VXText2::VXText2(VXObject2* parent) : VXText2(AnyText(), parent) {}

VXText2::VXText2(const AnyText& text, VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(text, &VXText2::setText, &VXFactory2::createText2, this, &m_emitters, parent);
}

VXText2::~VXText2() { retire(); }

void VXText2::setText(const AnyText& text) { text.passTo(m_emitters.setText, m_emitters.setTextU); }
std::string VXText2::text() const { return m_emitters.getText(); }
std::wstring VXText2::textU() const { return m_emitters.getTextU(); }
void VXText2::setAlignment(Alignment alignment) { m_emitters.setAlignment(alignment); }
Alignment VXText2::alignment() const { return m_emitters.getAlignment(); }
void VXText2::setWordWrap(bool wrap) { m_emitters.setWordWrap(wrap); }
bool VXText2::wordWrap() const { return m_emitters.getWordWrap(); }
void VXText2::setBuddy(VXWidget2* buddy) { m_emitters.setBuddy(buddy); }
VXWidget2* VXText2::buddy() const { return m_emitters.getBuddy(); }
void VXText2::setSelectable(bool selectable) { m_emitters.setSelectable(selectable); }
bool VXText2::isSelectable() const { return m_emitters.isSelectable(); }
void VXText2::setRichText(bool rich) { m_emitters.setRichText(rich); }
bool VXText2::isRichText() const { return m_emitters.isRichText(); }
void VXText2::setElideMode(TextElideMode mode) { m_emitters.setElideMode(mode); }
TextElideMode VXText2::elideMode() const { return m_emitters.getElideMode(); }

} // namespace VOXI
