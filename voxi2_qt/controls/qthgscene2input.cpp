// What the peer of the scene is told by Qt: the pointer and the keys move the camera.

#include "scenecontent.h"
#include "scenerenderer.h"
#include "scenesight.h"
#include "scenesurface.h"
#include "voxi2/kernel/translation.h"
#include "voxi2_qt/controls/qthgscene2.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace VOXI {

namespace {

using E = VXHGScene2Emitters;

constexpr double DegreesPerPixel = 0.5;
constexpr double DegreesPerKey = 5;
constexpr double PixelsPerKey = 20;
constexpr double ZoomPerKey = 1.2;
/// An eighth of a degree of the wheel; a notch is 120 of them.
constexpr double ZoomPerEighth = 1.0015;
constexpr int MostEighths = 1200;

} // namespace

// Reports -----------------------------------------------------------------------------------------

void QtHGScene2::drawInto(SceneRenderer& renderer, const QSize& pixels, double ratio)
{
    SceneContent& content = *m_content;
    const SceneSight seen = sight();
    content.m_labels.sweep();
    renderer.draw({.graph = content.m_graph,
                   .labels = content.m_labels,
                   .sight = seen,
                   .lights = content.m_lights,
                   .ambientLight = content.m_ambientLight,
                   .background = doGetBackground(),
                   .isOrthographic = content.m_camera.isOrthographic,
                   .size = pixels,
                   .ratio = ratio});
}

SceneFrame QtHGScene2::frame(const QSize& pixels, void* (*functionAddress)(const char*)) const
{
    const SceneSight seen = sight();
    return {.size = Qt2VX(pixels),
            .view = seen.view(),
            .projection = seen.projection(),
            .functionAddress = functionAddress};
}

/// In the middle of Qt's painting, in which no handler must run.
void QtHGScene2::slotFrameEnds()
{
    ++m_frames;
    if (!std::exchange(m_isFrameUntold, true))
        QMetaObject::invokeMethod(this, &QtHGScene2::tellFrame, Qt::QueuedConnection);
}

/// A picture may have been made in it that the window was not put together of yet: Qt would still
/// see to that, without a context.
void QtHGScene2::slotContextLost()
{
    m_surface->hide();
    QMetaObject::invokeMethod(this, &QtHGScene2::renewSurface, Qt::QueuedConnection);
}

QSize QtHGScene2::sizeHint() const { return {320, 240}; }

void QtHGScene2::changeEvent(QEvent* event)
{
    QtWidget2Shim::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        redraw();
}

void QtHGScene2::keyPressEvent(QKeyEvent* event)
{
    const SceneCamera moved = movedBy(*event);
    if (m_isNavigable && moved != m_content->m_camera)
        moveAsUser(moved);
    else
        QtWidget2Shim::keyPressEvent(event);
}

void QtHGScene2::mousePressEvent(QMouseEvent* event)
{
    QtWidget2Shim::mousePressEvent(event);
    const bool isMine =
        event->button() == Qt::LeftButton || (m_isNavigable && event->button() == Qt::MiddleButton);
    if (!isMine || m_button != Qt::NoButton)
        return;
    event->accept();
    m_button = event->button();
    m_isDragged = false;
    m_pressedAt = m_draggedTo = event->position().toPoint();
}

void QtHGScene2::mouseMoveEvent(QMouseEvent* event)
{
    const QtDeletionHold hold(this);
    QtWidget2Shim::mouseMoveEvent(event);
    if (!hold.isAlive() || m_button == Qt::NoButton)
        return;
    event->accept();
    if (!event->buttons().testFlag(m_button)) { // it was let go where nobody told
        m_button = Qt::NoButton;
        return;
    }
    const int way = (event->position().toPoint() - m_pressedAt).manhattanLength();
    m_isDragged = m_isDragged || way >= QApplication::startDragDistance();
    if (m_isDragged && m_isNavigable)
        drag(*event);
}

void QtHGScene2::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != m_button || m_button == Qt::NoButton) {
        QtWidget2Shim::mouseReleaseEvent(event);
        return;
    }
    event->accept();
    m_button = Qt::NoButton;
    if (event->button() == Qt::LeftButton && !m_isDragged)
        doimClick(Qt2VX(event->position().toPoint()));
}

/// Where the surface is, it is over this.
void QtHGScene2::paintEvent(QPaintEvent* event)
{
    if (!m_surface) {
        QPainter painter(this);
        painter.drawText(
            contentsRect(), Qt::AlignCenter | Qt::TextWordWrap,
            toQString(translated("This picture needs OpenGL, which is missing here.")));
    }
    QtWidget2Shim::paintEvent(event);
}

void QtHGScene2::resizeEvent(QResizeEvent* event)
{
    QtWidget2Shim::resizeEvent(event);
    placeSurface();
}

void QtHGScene2::wheelEvent(QWheelEvent* event)
{
    const int eighths = std::clamp(event->angleDelta().y(), -MostEighths, MostEighths);
    if (!m_isNavigable || eighths == 0) {
        QtWidget2Shim::wheelEvent(event);
        return;
    }
    event->accept();
    moveAsUser(m_content->m_camera.zoomed(std::pow(ZoomPerEighth, eighths)));
}

// Helpers -----------------------------------------------------------------------------------------

void QtHGScene2::tellFrame()
{
    m_isFrameUntold = false;
    report(&E::frameDrawn, m_frames);
}

/// The same one for a key that moves nothing.
SceneCamera QtHGScene2::movedBy(const QKeyEvent& key) const
{
    const SceneCamera& camera = m_content->m_camera;
    const auto arrow = [&](double right, double upwards) {
        return key.modifiers().testFlag(Qt::ShiftModifier)
                   ? panned(right * PixelsPerKey, upwards * PixelsPerKey)
                   : camera.orbited(right * DegreesPerKey, upwards * DegreesPerKey);
    };
    const Size<double> size = sightSize();
    switch (key.key()) {
    case Qt::Key_Left:
        return arrow(-1, 0);
    case Qt::Key_Right:
        return arrow(1, 0);
    case Qt::Key_Up:
        return arrow(0, 1);
    case Qt::Key_Down:
        return arrow(0, -1);
    case Qt::Key_Plus:
        return camera.zoomed(ZoomPerKey);
    case Qt::Key_Minus:
        return camera.zoomed(1 / ZoomPerKey);
    case Qt::Key_Home:
        return camera.fitted(m_content->m_graph.bounds(0), size.width / size.height);
    default:
        return camera;
    }
}

void QtHGScene2::moveAsUser(const SceneCamera& camera)
{
    if (camera == m_content->m_camera)
        return;
    setCamera(camera);
    report(&E::cameraMoved, camera);
}

/// What is under the pointer goes with it.
void QtHGScene2::drag(const QMouseEvent& event)
{
    const QPoint way = event.position().toPoint() - m_draggedTo;
    m_draggedTo = event.position().toPoint();
    const bool isPan =
        m_button == Qt::MiddleButton || event.modifiers().testFlag(Qt::ShiftModifier);
    moveAsUser(
        isPan ? panned(-way.x(), way.y())
              : m_content->m_camera.orbited(-way.x() * DegreesPerPixel, way.y() * DegreesPerPixel));
}

} // namespace VOXI
