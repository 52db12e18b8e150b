#include "voxi2/containers/vxframe2.h"

namespace VOXI {

VXFrame2::VXFrame2(VXObject2* parent) : VXWidget2(parent), m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createFrame2, this, &m_emitters, parent);
}

VXFrame2::~VXFrame2() { retire(); }
void VXFrame2::setShadow(FrameShadow shadow) { m_emitters.setShadow(shadow); }
FrameShadow VXFrame2::shadow() const { return m_emitters.getShadow(); }
void VXFrame2::setShape(FrameShape shape) { m_emitters.setShape(shape); }
FrameShape VXFrame2::shape() const { return m_emitters.getShape(); }
void VXFrame2::setLineWidth(int width) { m_emitters.setLineWidth(width); }
int VXFrame2::lineWidth() const { return m_emitters.getLineWidth(); }

void VXFrame2::setPaintCallback(FramePaintCallback callback)
{
    m_emitters.setPaintCallback(callback);
}

FramePaintCallback VXFrame2::paintCallback() const { return m_emitters.getPaintCallback(); }
void VXFrame2::setPainter(FramePainter painter) { m_emitters.setPainter(painter); }
bool VXFrame2::hasPainter() const { return m_emitters.hasPainter(); }
void VXFrame2::update(const VXRect<int>& area) { m_emitters.updateArea(area); }

} // namespace VOXI
