#include "voxi2/controls/vxhyperlink2.h"

namespace VOXI {

VXHyperLink2::VXHyperLink2(VXObject2* parent) : VXHyperLink2(AnyText(), parent) {}

VXHyperLink2::VXHyperLink2(const AnyText& text, VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(text, &VXHyperLink2::setText, &VXFactory2::createHyperLink2, this, &m_emitters,
               parent);
}

VXHyperLink2::~VXHyperLink2() { retire(); }

void VXHyperLink2::setText(const AnyText& text)
{
    text.passTo(m_emitters.setText, m_emitters.setTextU);
}

std::string VXHyperLink2::text() const { return m_emitters.getText(); }
std::wstring VXHyperLink2::textU() const { return m_emitters.getTextU(); }

void VXHyperLink2::setLinkColor(LinkMode mode, Color color)
{
    m_emitters.setLinkColor(mode, color);
}

Color VXHyperLink2::linkColor(LinkMode mode) const { return m_emitters.getLinkColor(mode); }
bool VXHyperLink2::isVisited() const { return m_emitters.isVisited(); }
void VXHyperLink2::imitateClick() { m_emitters.click(); }

} // namespace VOXI
