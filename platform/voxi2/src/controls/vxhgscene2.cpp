#include "voxi2/controls/vxhgscene2.h"

#include <utility>

namespace VOXI {

VXHGScene2::VXHGScene2(VXObject2* parent) : VXWidget2(parent), m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createHGScene2, this, &m_emitters, parent);
}

VXHGScene2::~VXHGScene2() { retire(); }

void VXHGScene2::setNode(const SceneNode& node) { m_emitters.setNode(node); }
SceneNode VXHGScene2::node(unsigned uid) const { return m_emitters.getNode(uid); }
void VXHGScene2::removeNode(unsigned uid) { m_emitters.removeNode(uid); }
void VXHGScene2::clearNodes() { m_emitters.clearNodes(); }
std::vector<unsigned> VXHGScene2::nodes() const { return m_emitters.getNodes(); }

void VXHGScene2::setTransform(unsigned uid, const Matrix4& transform)
{
    m_emitters.setTransform(uid, transform);
}

void VXHGScene2::setNodeVisible(unsigned uid, bool visible)
{
    m_emitters.setNodeVisible(uid, visible);
}

void VXHGScene2::setGeometry(unsigned uid, const SceneGeometry& geometry)
{
    m_emitters.setGeometry(uid, geometry);
}

SceneGeometry VXHGScene2::geometry(unsigned uid) const { return m_emitters.getGeometry(uid); }
void VXHGScene2::setLook(unsigned uid, const SceneLook& look) { m_emitters.setLook(uid, look); }
SceneLook VXHGScene2::look(unsigned uid) const { return m_emitters.getLook(uid); }

void VXHGScene2::setBillboard(unsigned uid, const SceneBillboard& billboard)
{
    m_emitters.setBillboard(uid, billboard);
}

SceneBillboard VXHGScene2::billboard(unsigned uid) const { return m_emitters.getBillboard(uid); }
SceneBox VXHGScene2::bounds(unsigned uid) const { return m_emitters.getBounds(uid); }

void VXHGScene2::setCamera(const SceneCamera& camera) { m_emitters.setCamera(camera); }
SceneCamera VXHGScene2::camera() const { return m_emitters.getCamera(); }
void VXHGScene2::orbit(double right, double upwards) { m_emitters.orbit(right, upwards); }
void VXHGScene2::pan(double right, double upwards) { m_emitters.pan(right, upwards); }
void VXHGScene2::zoom(double factor) { m_emitters.zoom(factor); }
void VXHGScene2::fit(unsigned uid) { m_emitters.fit(uid); }
void VXHGScene2::setNavigable(bool navigable) { m_emitters.setNavigable(navigable); }
bool VXHGScene2::isNavigable() const { return m_emitters.isNavigable(); }

void VXHGScene2::setLights(const std::vector<SceneLight>& lights) { m_emitters.setLights(lights); }
std::vector<SceneLight> VXHGScene2::lights() const { return m_emitters.getLights(); }
void VXHGScene2::setAmbientLight(const Color& color) { m_emitters.setAmbientLight(color); }
Color VXHGScene2::ambientLight() const { return m_emitters.getAmbientLight(); }
void VXHGScene2::setBackground(const Color& color) { m_emitters.setBackground(color); }
Color VXHGScene2::background() const { return m_emitters.getBackground(); }
void VXHGScene2::setSamples(int samples) { m_emitters.setSamples(samples); }
int VXHGScene2::samples() const { return m_emitters.getSamples(); }

void VXHGScene2::setHook(SceneHook hook)
{
    m_emitters.setHook(std::make_shared<const SceneHook>(std::move(hook)));
}

bool VXHGScene2::isAvailable() const { return m_emitters.isAvailable(); }
SceneHit VXHGScene2::pick(const VXPoint<int>& position) const { return m_emitters.pick(position); }
void VXHGScene2::imitateClick(const VXPoint<int>& position) { m_emitters.click(position); }

} // namespace VOXI
