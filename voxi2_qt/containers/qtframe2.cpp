#include "voxi2_qt/containers/qtframe2.h"

#include "voxi2_qt/kernel/qtconvert.h"

#include <QPainter>

namespace VOXI {

namespace {

using E = VXFrame2Emitters;
using P = QtFrame2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::getShadow, &P::doGetShadow>(),
    TROV::row<&E::getShape, &P::doGetShape>(),
    TROV::row<&E::getLineWidth, &P::doGetLineWidth>(),
    TROV::row<&E::getPaintCallback, &P::doGetPaintCallback>(),
    TROV::row<&E::setShadow, &P::doSetShadow>(),
    TROV::row<&E::setShape, &P::doSetShape>(),
    TROV::row<&E::setLineWidth, &P::doSetLineWidth>(),
    TROV::row<&E::setPaintCallback, &P::doSetPaintCallback>());
// clang-format on

} // namespace

QtFrame2::QtFrame2(VXFrame2* object, VXFrame2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{}

// Requests ----------------------------------------------------------------------------------------

void QtFrame2::doSetColor(ColorRole role, Color color) { setVisibleColor(role, color); }
FrameShadow QtFrame2::doGetShadow() { return Qt2VX(frameShadow()); }
FrameShape QtFrame2::doGetShape() { return Qt2VX(frameShape()); }
int QtFrame2::doGetLineWidth() { return lineWidth(); }
FramePaintCallback QtFrame2::doGetPaintCallback() { return m_paintCallback; }
void QtFrame2::doSetShadow(FrameShadow shadow) { setFrameShadow(VX2Qt(shadow)); }
void QtFrame2::doSetShape(FrameShape shape) { setFrameShape(VX2Qt(shape)); }
void QtFrame2::doSetLineWidth(int width) { setLineWidth(width); }

void QtFrame2::doSetPaintCallback(FramePaintCallback callback)
{
    m_paintCallback = callback;
    update();
}

// Reports -----------------------------------------------------------------------------------------

void QtFrame2::paintEvent(QPaintEvent* event)
{
    if (!m_paintCallback) {
        QtWidget2Shim::paintEvent(event);
        return;
    }
    QPainter painter(this);
    m_paintCallback(&painter, rect());
}

} // namespace VOXI
