#include "voxi2/controls/vxtoolbutton2.h"

#include "../kernel/notnull.h"

namespace VOXI {

VXToolButton2::VXToolButton2(VXObject2* parent) : VXToolButton2(AnyText(), parent) {}

VXToolButton2::VXToolButton2(const AnyText& label, VXObject2* parent)
    : VXAbstractButton2(parent),
      m_emitters(VXAbstractButton2::m_emitters)
{
    createPeer(label, &VXToolButton2::setLabel, &VXFactory2::createToolButton2, this, &m_emitters,
               parent);
}

VXToolButton2::~VXToolButton2() { retire(); }
void VXToolButton2::setMenu(VXMenu2* menu) { m_emitters.setMenu(notNull(this, menu)); }
VXMenu2* VXToolButton2::menu() const { return m_emitters.getMenu(); }
void VXToolButton2::clearMenu() { m_emitters.clearMenu(); }
void VXToolButton2::setDefaultAction(VXAction2* action)
{
    m_emitters.setDefaultAction(notNull(this, action));
}
VXAction2* VXToolButton2::defaultAction() const { return m_emitters.getDefaultAction(); }
void VXToolButton2::clearDefaultAction() { m_emitters.clearDefaultAction(); }
void VXToolButton2::setPopupMode(ToolButtonPopupMode mode) { m_emitters.setPopupMode(mode); }
ToolButtonPopupMode VXToolButton2::popupMode() const { return m_emitters.getPopupMode(); }

void VXToolButton2::setToolButtonStyle(ToolButtonStyle style)
{
    m_emitters.setToolButtonStyle(style);
}

ToolButtonStyle VXToolButton2::toolButtonStyle() const { return m_emitters.getToolButtonStyle(); }
void VXToolButton2::setAutoRaise(bool autoRaise) { m_emitters.setAutoRaise(autoRaise); }
bool VXToolButton2::isAutoRaise() const { return m_emitters.isAutoRaise(); }

} // namespace VOXI
