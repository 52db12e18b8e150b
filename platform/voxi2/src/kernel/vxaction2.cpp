#include "voxi2/kernel/vxaction2.h"

#include "voxi2/kernel/vxactiongroup2.h"

namespace VOXI {

VXAction2::VXAction2(VXObject2* parent) : VXAction2(AnyText(), parent) {}

VXAction2::VXAction2(const AnyText& label, VXObject2* parent)
    : VXObject2(parent),
      m_emitters(VXObject2::m_emitters)
{
    createPeer(label, &VXAction2::setLabel, &VXFactory2::createAction2, this, &m_emitters, parent);
}

VXAction2::~VXAction2() { retire(); }

void VXAction2::setLabel(const AnyText& label)
{
    label.passTo(m_emitters.setLabel, m_emitters.setLabelU);
}
std::string VXAction2::label() const { return m_emitters.getLabel(); }
std::wstring VXAction2::labelU() const { return m_emitters.getLabelU(); }
void VXAction2::setIcon(const Icon& icon) { m_emitters.setIcon(icon); }
Icon VXAction2::icon() const { return m_emitters.getIcon(); }

void VXAction2::setAccelerator(const std::string& accelerator)
{
    m_emitters.setAccelerator(accelerator);
}

void VXAction2::setAccelerators(const VXStringList& accelerators)
{
    m_emitters.setAccelerators(accelerators);
}

void VXAction2::clearAccelerators() { m_emitters.setAccelerators(VXStringList()); }
std::string VXAction2::accelerator() const { return m_emitters.getAccelerator(); }
VXStringList VXAction2::accelerators() const { return m_emitters.getAccelerators(); }

void VXAction2::setShortcutContext(ShortcutContext context)
{
    m_emitters.setShortcutContext(context);
}

ShortcutContext VXAction2::shortcutContext() const { return m_emitters.getShortcutContext(); }
void VXAction2::setAutoRepeat(bool repeat) { m_emitters.setAutoRepeat(repeat); }
bool VXAction2::isAutoRepeat() const { return m_emitters.isAutoRepeat(); }

void VXAction2::setToolTip(const AnyText& text)
{
    text.passTo(m_emitters.setToolTip, m_emitters.setToolTipU);
}

std::string VXAction2::toolTip() const { return m_emitters.getToolTip(); }
std::wstring VXAction2::toolTipU() const { return m_emitters.getToolTipU(); }

void VXAction2::setStatusTip(const AnyText& text)
{
    text.passTo(m_emitters.setStatusTip, m_emitters.setStatusTipU);
}

std::string VXAction2::statusTip() const { return m_emitters.getStatusTip(); }
std::wstring VXAction2::statusTipU() const { return m_emitters.getStatusTipU(); }
void VXAction2::setEnabled(bool enabled) { m_emitters.setEnabled(enabled); }
bool VXAction2::isEnabled() const { return m_emitters.isEnabled(); }
void VXAction2::setVisible(bool visible) { m_emitters.setVisible(visible); }
bool VXAction2::isVisible() const { return m_emitters.isVisible(); }
void VXAction2::setCheckable(bool checkable) { m_emitters.setCheckable(checkable); }
bool VXAction2::isCheckable() const { return m_emitters.isCheckable(); }
void VXAction2::setChecked(bool checked) { m_emitters.setChecked(checked); }
bool VXAction2::isChecked() const { return m_emitters.isChecked(); }
void VXAction2::setSeparator(bool separator) { m_emitters.setSeparator(separator); }
bool VXAction2::isSeparator() const { return m_emitters.isSeparator(); }

VXActionGroup2* VXAction2::group() const
{
    VXObjectDataLocker lock;
    return static_cast<VXActionGroup2*>(m_group ? objectById(m_group) : nullptr);
}

void VXAction2::attachTo(VXWidget2* widget) { m_emitters.attachTo(widget); }
void VXAction2::detachFrom(VXWidget2* widget) { m_emitters.detachFrom(widget); }
void VXAction2::imitateTrigger() { m_emitters.trigger(); }
void VXAction2::imitateToggle(bool checked) { m_emitters.toggle(checked); }

} // namespace VOXI
