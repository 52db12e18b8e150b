#include "voxi2/containers/vxtooltipwindow2.h"

namespace VOXI {

namespace {

/// Stands for all of the widget, however large it is.
constexpr VXRect<int> WholeWidget{0, 0, -1, -1};

} // namespace

VXToolTipWindow2::VXToolTipWindow2(VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createToolTipWindow2, this, &m_emitters, parent);
}

VXToolTipWindow2::~VXToolTipWindow2() { retire(); }

void VXToolTipWindow2::setText(const AnyText& text)
{
    text.passTo(m_emitters.setText, m_emitters.setTextU);
}

std::string VXToolTipWindow2::text() const { return m_emitters.getText(); }
std::wstring VXToolTipWindow2::textU() const { return m_emitters.getTextU(); }
void VXToolTipWindow2::setRichText(bool rich) { m_emitters.setRichText(rich); }
bool VXToolTipWindow2::isRichText() const { return m_emitters.isRichText(); }
void VXToolTipWindow2::setIcon(const Icon& icon) { m_emitters.setIcon(icon); }
Icon VXToolTipWindow2::icon() const { return m_emitters.getIcon(); }

void VXToolTipWindow2::setAnchor(VXWidget2* widget, AnchorSide side)
{
    m_emitters.setAnchor(widget, WholeWidget, side);
}

void VXToolTipWindow2::setAnchor(VXWidget2* widget, const VXRect<int>& part, AnchorSide side)
{
    m_emitters.setAnchor(widget, part, side);
}

VXWidget2* VXToolTipWindow2::anchor() const { return m_emitters.getAnchor(); }
VXRect<int> VXToolTipWindow2::anchorRect() const { return m_emitters.getAnchorRect(); }
AnchorSide VXToolTipWindow2::anchorSide() const { return m_emitters.getAnchorSide(); }

void VXToolTipWindow2::popup(VXWidget2* anchor, AnchorSide side)
{
    setAnchor(anchor, side);
    show();
}

void VXToolTipWindow2::setTimeout(int milliseconds) { m_emitters.setTimeout(milliseconds); }
int VXToolTipWindow2::timeout() const { return m_emitters.getTimeout(); }

} // namespace VOXI
