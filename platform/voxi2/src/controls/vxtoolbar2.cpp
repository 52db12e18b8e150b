#include "voxi2/controls/vxtoolbar2.h"

#include "../kernel/notnull.h"

namespace VOXI {

VXToolBar2::VXToolBar2(VXObject2* parent) : VXToolBar2(AnyText(), parent) {}

VXToolBar2::VXToolBar2(const AnyText& label, VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(label, &VXToolBar2::setLabel, &VXFactory2::createToolbar2, this, &m_emitters,
               parent);
}

VXToolBar2::~VXToolBar2() { retire(); }
void VXToolBar2::addAction(VXAction2* action) { m_emitters.addAction(notNull(this, action)); }
void VXToolBar2::addWidget(VXWidget2* widget) { m_emitters.addWidget(notNull(this, widget)); }
void VXToolBar2::addSeparator() { m_emitters.addSeparator(); }
void VXToolBar2::removeAction(VXAction2* action) { m_emitters.removeAction(notNull(this, action)); }
void VXToolBar2::removeWidget(VXWidget2* widget) { m_emitters.removeWidget(notNull(this, widget)); }
void VXToolBar2::setMinimumVisibleItems(int count) { m_emitters.setMinimumVisibleItems(count); }
int VXToolBar2::minimumVisibleItems() const { return m_emitters.getMinimumVisibleItems(); }
void VXToolBar2::setFloatable(bool floatable) { m_emitters.setFloatable(floatable); }
bool VXToolBar2::isFloatable() const { return m_emitters.isFloatable(); }
void VXToolBar2::setMovable(bool movable) { m_emitters.setMovable(movable); }
bool VXToolBar2::isMovable() const { return m_emitters.isMovable(); }

void VXToolBar2::setLabel(const AnyText& label)
{
    label.passTo(m_emitters.setLabel, m_emitters.setLabelU);
}
std::wstring VXToolBar2::labelU() const { return m_emitters.getLabelU(); }
void VXToolBar2::setOrientation(Orientation orientation) { m_emitters.setOrientation(orientation); }
Orientation VXToolBar2::orientation() const { return m_emitters.getOrientation(); }
void VXToolBar2::setIconSize(const Size<int>& size) { m_emitters.setIconSize(size); }
Size<int> VXToolBar2::iconSize() const { return m_emitters.getIconSize(); }
void VXToolBar2::setToolButtonStyle(ToolButtonStyle style) { m_emitters.setToolButtonStyle(style); }
ToolButtonStyle VXToolBar2::toolButtonStyle() const { return m_emitters.getToolButtonStyle(); }

} // namespace VOXI
