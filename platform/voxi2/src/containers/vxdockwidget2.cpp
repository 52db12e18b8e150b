#include "voxi2/containers/vxdockwidget2.h"

#include "voxi2/kernel/vxaction2.h"

namespace VOXI {

VXDockWidget2::VXDockWidget2(VXObject2* parent) : VXDockWidget2(AnyText(), parent) {}

VXDockWidget2::VXDockWidget2(const AnyText& title, VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(title, &VXDockWidget2::setTitle, &VXFactory2::createDockWidget2, this, &m_emitters,
               parent);
}

VXDockWidget2::~VXDockWidget2() { retire(); }
void VXDockWidget2::setWidget(VXWidget2* widget) { m_emitters.setWidget(widget); }
VXWidget2* VXDockWidget2::widget() const { return m_emitters.getWidget(); }
void VXDockWidget2::setTitleBarWidget(VXWidget2* widget) { m_emitters.setTitleBarWidget(widget); }
VXWidget2* VXDockWidget2::titleBarWidget() const { return m_emitters.getTitleBarWidget(); }

void VXDockWidget2::setTitle(const AnyText& title)
{
    title.passTo(m_emitters.setTitle, m_emitters.setTitleU);
}

std::string VXDockWidget2::title() const { return m_emitters.getTitle(); }
std::wstring VXDockWidget2::titleU() const { return m_emitters.getTitleU(); }
void VXDockWidget2::setIcon(const Icon& icon) { m_emitters.setIcon(icon); }
Icon VXDockWidget2::icon() const { return m_emitters.getIcon(); }
void VXDockWidget2::setAllowedAreas(VXFlags<DockArea> areas) { m_emitters.setAllowedAreas(areas); }
VXFlags<DockArea> VXDockWidget2::allowedAreas() const { return m_emitters.getAllowedAreas(); }
void VXDockWidget2::setFeatures(VXFlags<DockFeature> features) { m_emitters.setFeatures(features); }
VXFlags<DockFeature> VXDockWidget2::features() const { return m_emitters.getFeatures(); }
void VXDockWidget2::setFloating(bool floating) { m_emitters.setFloating(floating); }
bool VXDockWidget2::isFloating() const { return m_emitters.isFloating(); }
bool VXDockWidget2::close() { return m_emitters.close(); }

VXAction2* VXDockWidget2::viewAction()
{
    VXObjectDataLocker lock;
    const unsigned self = id();
    if (self == 0)
        return nullptr; // what a handle of a dead pane stands for owns nothing
    const auto known = [this] { return dynamic_cast<VXAction2*>(objectById(m_viewAction)); };
    if (VXAction2* action = known())
        return action;
    auto* action = new VXAction2(this);
    // Waiting for its peer gives the lock up: the pane may have gone, or another thread been here.
    VXAction2* const other = isObjectValid(self) ? known() : nullptr;
    if (other || !isObjectValid(self)) {
        action->destroy();
        return other;
    }
    m_viewAction = action->id();
    action->setCheckable(true);
    m_emitters.setViewAction(action);
    return action;
}

} // namespace VOXI
