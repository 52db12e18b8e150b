#include "voxi2_qt/containers/qtframe2.h"

#include "voxi2_qt/kernel/qtcanvas.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtpaintinghold.h"

#include <QPainter>

#include <exception>
#include <utility>

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
    TROV::row<&E::setPaintCallback, &P::doSetPaintCallback>(),
    TROV::row<&E::hasPainter, &P::doHasPainter>(),
    TROV::row<&E::setPainter, &P::doSetPainter>(),
    TROV::row<&E::updateArea, &P::doUpdateArea>());
// clang-format on

} // namespace

QtFrame2::QtFrame2(VXFrame2* object, VXFrame2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{}

/// The painter goes when nobody finds this any more: what it holds may do anything at its end.
QtFrame2::~QtFrame2() { endPeer(); }

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

bool QtFrame2::doHasPainter() { return m_painter != nullptr; }

void QtFrame2::doSetPainter(const FramePainter& painter)
{
    // What goes may do anything, also ask.
    const auto former =
        std::exchange(m_painter, painter ? std::make_shared<const FramePainter>(painter) : nullptr);
    update();
}

void QtFrame2::doUpdateArea(VXRect<int> area) { update(VX2Qt(area)); }

// Reports -----------------------------------------------------------------------------------------

void QtFrame2::paintEvent(QPaintEvent* event)
{
    if (m_painter) {
        const QtDeletionHold hold(this);
        runPainter(event->rect());
        if (hold.isAlive() && isWidgetHighlighted())
            paintHighlight();
    } else if (m_paintCallback) { // which paints alone: neither the frame nor the highlight is seen
        QPainter painter(this);
        m_paintCallback(&painter, rect());
    } else {
        QtWidget2Shim::paintEvent(event);
    }
}

// Helpers -----------------------------------------------------------------------------------------

void QtFrame2::runPainter(const QRect& area)
{
    VXObjectDataLocker lock;
    if (m_isPainting || !isVXObjectValid())
        return;
    const auto painter = m_painter; // which may be replaced by what it does
    const QtHandlerFrame frame(*this);
    m_isPainting = true;
    const QtPaintingHold hold(*window());
    QPainter qtPainter(this);
    QtCanvas engine(qtPainter);
    const VXCanvas2::Session session(engine);
    try {
        (*painter)(session.canvas(), Qt2VX(area));
    } catch (...) {
        TROV::Thread::reportException(std::current_exception());
    }
    if (frame.isAlive())
        m_isPainting = false;
}

} // namespace VOXI
