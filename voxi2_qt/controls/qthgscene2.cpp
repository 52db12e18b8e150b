#include "voxi2_qt/controls/qthgscene2.h"

#include "../kernel/qtaccessiblename.h"
#include "../kernel/qtignored.h"
#include "../kernel/sidelibrary.h"
#include "scenecontent.h"
#include "scenepicker.h"
#include "scenesight.h"
#include "scenesurface.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <algorithm>
#include <cmath>

namespace VOXI {

namespace {

using E = VXHGScene2Emitters;
using P = QtHGScene2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setNode, &P::doSetNode>(),
    TROV::row<&E::getNode, &P::doGetNode>(),
    TROV::row<&E::removeNode, &P::doRemoveNode>(),
    TROV::row<&E::clearNodes, &P::doClearNodes>(),
    TROV::row<&E::getNodes, &P::doGetNodes>(),
    TROV::row<&E::setTransform, &P::doSetTransform>(),
    TROV::row<&E::setNodeVisible, &P::doSetNodeVisible>(),
    TROV::row<&E::setGeometry, &P::doSetGeometry>(),
    TROV::row<&E::getGeometry, &P::doGetGeometry>(),
    TROV::row<&E::setLook, &P::doSetLook>(),
    TROV::row<&E::getLook, &P::doGetLook>(),
    TROV::row<&E::setBillboard, &P::doSetBillboard>(),
    TROV::row<&E::getBillboard, &P::doGetBillboard>(),
    TROV::row<&E::getBounds, &P::doGetBounds>(),
    TROV::row<&E::setCamera, &P::doSetCamera>(),
    TROV::row<&E::getCamera, &P::doGetCamera>(),
    TROV::row<&E::orbit, &P::doOrbit>(),
    TROV::row<&E::pan, &P::doPan>(),
    TROV::row<&E::zoom, &P::doZoom>(),
    TROV::row<&E::fit, &P::doFit>(),
    TROV::row<&E::setNavigable, &P::doSetNavigable>(),
    TROV::row<&E::isNavigable, &P::doIsNavigable>(),
    TROV::row<&E::setLights, &P::doSetLights>(),
    TROV::row<&E::getLights, &P::doGetLights>(),
    TROV::row<&E::setAmbientLight, &P::doSetAmbientLight>(),
    TROV::row<&E::getAmbientLight, &P::doGetAmbientLight>(),
    TROV::row<&E::setBackground, &P::doSetBackground>(),
    TROV::row<&E::getBackground, &P::doGetBackground>(),
    TROV::row<&E::setSamples, &P::doSetSamples>(),
    TROV::row<&E::getSamples, &P::doGetSamples>(),
    TROV::row<&E::setHook, &P::doSetHook>(),
    TROV::row<&E::isAvailable, &P::doIsAvailable>(),
    TROV::row<&E::pick, &P::doPick>(),
    asUserRow<&E::click, &P::doimClick>());
// clang-format on

constexpr int MostSamples = 16;
constexpr const char* NoNode = "there is no such node";

/// The widths and sizes that are drawn, also in place of NaN.
float drawable(float width) { return width > 1 ? std::min(width, 64.0f) : 1.0f; }

bool isUsable(const SceneLight& light)
{
    const bool isKind =
        light.kind == SceneLightKind::Directional || light.kind == SceneLightKind::Point;
    return isKind && isFinite(light.place);
}

/// What a request is about; null where that is not there, which is told.
SceneGraph::Node* nodeOf(const QtHGScene2& peer, SceneContent& content, unsigned uid,
                         CallPlace where = CallPlace::current())
{
    SceneGraph::Node* const node = content.m_graph.change(uid);
    if (!node)
        ignored(peer, NoNode, where);
    return node;
}

} // namespace

QtHGScene2::QtHGScene2(VXHGScene2* object, VXHGScene2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent),
      m_content(std::make_unique<SceneContent>())
{
    readTextAsName<QtHGScene2, QAccessible::Graphic, &QWidget::toolTip>();
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    makeSurface();
}

/// The surface draws what goes before the base class would delete it.
QtHGScene2::~QtHGScene2()
{
    endPeer();
    delete m_surface;
}

// Requests ----------------------------------------------------------------------------------------

void QtHGScene2::doUpdate()
{
    QtWidget2Shim::doUpdate();
    redraw();
}

void QtHGScene2::doSetContentsMargins(VXRect<int> margins)
{
    QtWidget2Shim::doSetContentsMargins(margins);
    placeSurface();
}

void QtHGScene2::doSetWidgetHighlight(bool on, int red, int green, int blue, int alpha)
{
    QtWidget2Shim::doSetWidgetHighlight(on, red, green, blue, alpha);
    placeSurface();
}

void QtHGScene2::doSetNode(const SceneNode& node)
{
    if (m_content->m_graph.set(node))
        redraw();
    else
        ignored(*this,
                "its uid is 0, a number is not finite, or its parent is not there, or below it");
}

SceneNode QtHGScene2::doGetNode(unsigned uid)
{
    const SceneGraph::Node* const node = m_content->m_graph.find(uid);
    return node ? node->m_value : SceneNode();
}

void QtHGScene2::doRemoveNode(unsigned uid)
{
    if (m_content->m_graph.remove(uid))
        redraw();
    else
        ignored(*this, NoNode);
}

void QtHGScene2::doClearNodes()
{
    m_content->m_graph.clear();
    redraw();
}

std::vector<unsigned> QtHGScene2::doGetNodes() { return m_content->m_graph.uids(); }

void QtHGScene2::doSetTransform(unsigned uid, const Matrix4& transform)
{
    if (!transform.isFinite()) {
        ignored(*this, Reason::NoNumber);
        return;
    }
    if (SceneGraph::Node* const node = nodeOf(*this, *m_content, uid)) {
        node->m_value.transform = transform;
        redraw();
    }
}

void QtHGScene2::doSetNodeVisible(unsigned uid, bool visible)
{
    if (SceneGraph::Node* const node = nodeOf(*this, *m_content, uid)) {
        node->m_value.isVisible = visible;
        redraw();
    }
}

void QtHGScene2::doSetGeometry(unsigned uid, const SceneGeometry& geometry)
{
    if (SceneGraph::Node* const node = nodeOf(*this, *m_content, uid)) {
        node->m_geometry = geometry;
        redraw();
    }
}

SceneGeometry QtHGScene2::doGetGeometry(unsigned uid)
{
    const SceneGraph::Node* const node = m_content->m_graph.find(uid);
    return node ? node->m_geometry : SceneGeometry();
}

void QtHGScene2::doSetLook(unsigned uid, const SceneLook& look)
{
    if (SceneGraph::Node* const node = nodeOf(*this, *m_content, uid)) {
        node->m_look = look;
        node->m_look.lineWidth = drawable(look.lineWidth);
        node->m_look.pointSize = drawable(look.pointSize);
        redraw();
    }
}

SceneLook QtHGScene2::doGetLook(unsigned uid)
{
    const SceneGraph::Node* const node = m_content->m_graph.find(uid);
    return node ? node->m_look : SceneLook();
}

void QtHGScene2::doSetBillboard(unsigned uid, const SceneBillboard& billboard)
{
    if (SceneGraph::Node* const node = nodeOf(*this, *m_content, uid)) {
        node->m_billboard =
            billboard.isNull() ? nullptr : std::make_shared<const SceneBillboard>(billboard);
        redraw();
    }
}

SceneBillboard QtHGScene2::doGetBillboard(unsigned uid)
{
    const SceneGraph::Node* const node = m_content->m_graph.find(uid);
    return node && node->m_billboard ? *node->m_billboard : SceneBillboard();
}

SceneBox QtHGScene2::doGetBounds(unsigned uid) { return m_content->m_graph.bounds(uid); }

void QtHGScene2::doSetCamera(const SceneCamera& camera)
{
    if (camera.isValid())
        setCamera(camera);
    else
        ignored(*this, "it could see nothing");
}

SceneCamera QtHGScene2::doGetCamera() { return m_content->m_camera; }

void QtHGScene2::doOrbit(double right, double upwards)
{
    if (areFinite(right, upwards))
        setCamera(m_content->m_camera.orbited(right, upwards));
}

void QtHGScene2::doPan(double right, double upwards)
{
    if (areFinite(right, upwards))
        setCamera(panned(right, upwards));
}

void QtHGScene2::doZoom(double factor)
{
    if (std::isfinite(factor) && factor > 0)
        setCamera(m_content->m_camera.zoomed(factor));
    else
        ignored(*this, "the factor is not beyond 0");
}

void QtHGScene2::doFit(unsigned uid)
{
    if (uid != 0 && !m_content->m_graph.find(uid)) {
        ignored(*this, NoNode);
        return;
    }
    const Size<double> size = sightSize();
    setCamera(m_content->m_camera.fitted(doGetBounds(uid), size.width / size.height));
}

void QtHGScene2::doSetNavigable(bool navigable) { m_isNavigable = navigable; }
bool QtHGScene2::doIsNavigable() { return m_isNavigable; }

void QtHGScene2::doSetLights(const std::vector<SceneLight>& lights)
{
    std::vector<SceneLight>& kept = m_content->m_lights;
    kept.clear();
    std::copy_if(lights.begin(), lights.end(), std::back_inserter(kept), &isUsable);
    kept.resize(std::min(kept.size(), VXHGScene2::MaxLights));
    if (kept.size() != lights.size())
        ignored(*this, "some of the lights: they are too many, or their numbers are not finite");
    redraw();
}

std::vector<SceneLight> QtHGScene2::doGetLights() { return m_content->m_lights; }

void QtHGScene2::doSetAmbientLight(Color color)
{
    m_content->m_ambientLight = color;
    redraw();
}

Color QtHGScene2::doGetAmbientLight() { return m_content->m_ambientLight; }

void QtHGScene2::doSetBackground(Color color)
{
    color.setAlpha(255);
    m_content->m_background = color;
    redraw();
}

Color QtHGScene2::doGetBackground()
{
    return m_content->m_background.value_or(Qt2VX(palette().color(QPalette::Window)));
}

void QtHGScene2::doSetSamples(int samples)
{
    const int wanted = std::clamp(samples, 0, MostSamples);
    if (wanted == m_content->m_samples)
        return;
    m_content->m_samples = wanted;
    renewSurface();
}

int QtHGScene2::doGetSamples() { return m_content->m_samples; }

void QtHGScene2::doSetHook(const std::shared_ptr<const SceneHook>& hook)
{
    const bool isAny = hook && (hook->initialize || hook->resize || hook->draw || hook->release);
    m_content->m_hook = isAny ? hook : nullptr;
    if (m_surface)
        m_surface->setHook(m_content->m_hook);
}

bool QtHGScene2::doIsAvailable() { return m_surface; }

SceneHit QtHGScene2::doPick(VXPoint<int> position)
{
    if (!m_surface || m_surface->size().isEmpty())
        return {};
    const QPoint at = m_surface->mapFromParent(VX2Qt(position));
    const double ratio = m_surface->devicePixelRatioF();
    const auto sizeOf = [&](const SceneGraph::Node& node) {
        const QImage& image = m_content->m_labels.imageOf(node.m_billboard, ratio);
        return Size<double>{image.width() / ratio, image.height() / ratio};
    };
    return pickNode(m_content->m_graph, sight(), sizeOf, {at.x() + 0.5, at.y() + 0.5});
}

void QtHGScene2::doimClick(VXPoint<int> position)
{
    report(&E::picked, doPick(position), position);
}

// Helpers -----------------------------------------------------------------------------------------

void QtHGScene2::makeSurface()
{
    if (!SceneSurface::isPossible())
        return;
    m_surface = new SceneSurface(*this, m_content->m_samples);
    m_surface->setHook(m_content->m_hook);
    placeSurface();
    m_surface->show();
}

/// What it was made with cannot be changed.
void QtHGScene2::renewSurface()
{
    if (!m_surface)
        return;
    if (m_surface->isDrawing()) {
        QMetaObject::invokeMethod(this, &QtHGScene2::renewSurface, Qt::QueuedConnection);
        return;
    }
    delete std::exchange(m_surface, nullptr);
    makeSurface();
}

/// Beside the margins; the highlight is painted around it.
void QtHGScene2::placeSurface()
{
    constexpr int HighlightWidth = 2;
    if (!m_surface)
        return;
    const int inset = isWidgetHighlighted() ? HighlightWidth : 0;
    m_surface->setGeometry(contentsRect().adjusted(inset, inset, -inset, -inset));
}

void QtHGScene2::redraw()
{
    if (m_surface)
        m_surface->redraw();
}

Size<double> QtHGScene2::sightSize() const
{
    const QSize size = (m_surface ? m_surface->size() : contentsRect().size()).expandedTo({1, 1});
    return {double(size.width()), double(size.height())};
}

SceneSight QtHGScene2::sight() const
{
    return {m_content->m_camera, m_content->m_graph.bounds(0), sightSize()};
}

SceneCamera QtHGScene2::panned(double right, double upwards) const
{
    const SceneCamera& camera = m_content->m_camera;
    const double unit = camera.unitsPerPixel(camera.distance(), sightSize().height);
    return camera.panned(right * unit, upwards * unit);
}

bool QtHGScene2::areFinite(double right, double upwards, CallPlace where) const
{
    const bool areFinite = std::isfinite(right) && std::isfinite(upwards);
    if (!areFinite)
        ignored(*this, Reason::NoNumber, where);
    return areFinite;
}

void QtHGScene2::setCamera(const SceneCamera& camera)
{
    m_content->m_camera = camera;
    redraw();
}

} // namespace VOXI

VOXI::QtObject2* voxi2_qt_makePeer(VOXI::VXObject2* object, void* emitters, QWidget* parent)
{
    return new VOXI::QtHGScene2(static_cast<VOXI::VXHGScene2*>(object),
                                static_cast<VOXI::VXHGScene2Emitters*>(emitters), parent);
}
