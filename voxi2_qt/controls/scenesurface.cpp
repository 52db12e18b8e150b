#include "scenesurface.h"

#include "../kernel/qtcomposedwindows.h"
#include "trov/thread.h"
#include "voxi2_qt/controls/qthgscene2.h"
#include "voxi2_qt/kernel/qthandlerframe.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <exception>
#include <utility>

namespace VOXI {

namespace {

/// What the shaders are written for. Newer versions that are compatible with it come, too.
QSurfaceFormat wantedFormat()
{
    QSurfaceFormat format = QSurfaceFormat::defaultFormat();
    if (format.renderableType() != QSurfaceFormat::OpenGLES) {
        format.setVersion(2, 1);
        format.setProfile(QSurfaceFormat::NoProfile);
    }
    format.setDepthBufferSize(24);
    format.setSamples(0);
    return format;
}

bool findOpenGL()
{
    // These have none, and Qt warns of whoever asks.
    static const QStringList without{QStringLiteral("offscreen"), QStringLiteral("minimal"),
                                     QStringLiteral("linuxfb"), QStringLiteral("vnc")};
    if (without.contains(QGuiApplication::platformName()))
        return false;
    QOpenGLContext context;
    context.setFormat(wantedFormat());
    if (!context.create())
        return false;
    QOffscreenSurface surface;
    surface.setFormat(context.format());
    surface.create();
    if (!context.makeCurrent(&surface))
        return false;
    const auto needed = QOpenGLFunctions::Shaders | QOpenGLFunctions::Buffers
                        | QOpenGLFunctions::Framebuffers | QOpenGLFunctions::Multitexture;
    const bool hasAll = (context.functions()->openGLFeatures() & needed) == needed;
    context.doneCurrent();
    return hasAll && context.format().majorVersion() >= 2;
}

void* functionAddress(const char* name)
{
    QOpenGLContext* const context = QOpenGLContext::currentContext();
    return context && name ? reinterpret_cast<void*>(context->getProcAddress(name)) : nullptr;
}

} // namespace

bool SceneSurface::isPossible()
{
    static const bool s_isPossible = findOpenGL();
    return s_isPossible;
}

SceneSurface::SceneSurface(QtHGScene2& scene, int samples)
    : QOpenGLWidget((QtComposedWindows::begin(), &scene)),
      m_scene(scene),
      m_samples(samples)
{
    QSurfaceFormat format = wantedFormat();
    format.setSamples(samples);
    setFormat(format);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    lower();
}

SceneSurface::~SceneSurface()
{
    if (context())
        context()->disconnect(this);
    end();
}

void SceneSurface::setHook(std::shared_ptr<const SceneHook> hook)
{
    m_nextHook = std::move(hook);
    if (m_hook && !m_isBusy) {
        makeCurrent();
        changeHook();
        doneCurrent();
    }
    redraw();
}

void SceneSurface::redraw()
{
    m_isStale = true;
    if (!m_nextHook)
        update();
    else if (!std::exchange(m_isPending, true))
        QMetaObject::invokeMethod(this, &SceneSurface::drawApart, Qt::QueuedConnection);
}

bool SceneSurface::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::WindowChangeInternal:
    case QEvent::ScreenChangeInternal:
    case QEvent::Show:
        if (m_isBusy) {
            m_hasMissed = true;
            return QWidget::event(event);
        }
        break;
    default:
        break;
    }
    const bool hadContext = context();
    const bool isTaken = QOpenGLWidget::event(event);
    if (hadContext && !context())
        m_scene.slotContextLost();
    return isTaken;
}

/// A loop that the program runs while it draws may paint; what is shown stays as it is.
void SceneSurface::paintEvent(QPaintEvent* event)
{
    if (!m_isBusy)
        QOpenGLWidget::paintEvent(event);
}

void SceneSurface::initializeGL()
{
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &SceneSurface::end,
            Qt::DirectConnection);
    m_renderer.initialize();
    m_hookSize = {};
}

/// Nothing of the program runs here. Of what it draws the last picture is shown, stretched if need
/// be, until there is a new one.
void SceneSurface::paintGL()
{
    const bool isApart = m_nextHook && m_target.texture() != 0;
    if (isApart)
        m_renderer.show(m_target.texture(), pixels());
    else
        m_scene.drawInto(m_renderer, pixels(), devicePixelRatioF());
    if (!m_nextHook || m_isUnshown)
        m_scene.slotFrameEnds();
    if (!m_nextHook) {
        m_isStale = false;
        return;
    }
    if (std::exchange(m_isUnshown, false) || !isApart)
        m_isPending = false;
    if (m_isStale || m_hookSize != pixels())
        redraw();
}

/// In a turn of the loop.
void SceneSurface::drawApart()
{
    if (m_isBusy || !m_nextHook || !isValid() || size().isEmpty() || !isVisible()) {
        m_isPending = false;
        update();
        return;
    }
    const QtDeletionHold hold(&m_scene);
    makeCurrent();
    changeHook();
    if (!hold.isAlive())
        return;
    m_isBusy = true;
    m_isStale = false;
    if (m_target.begin(pixels(), m_samples)) {
        m_scene.drawInto(m_renderer, pixels(), devicePixelRatioF());
        drawHook();
        if (!hold.isAlive())
            return;
        m_renderer.resetState();
        m_target.end();
    } else {
        m_hookSize = pixels(); // so that it is not tried for ever
    }
    m_isBusy = false;
    m_isUnshown = true;
    changeHook(); // it may have been replaced by itself
    if (!hold.isAlive())
        return;
    doneCurrent();
    update();
    catchUp();
}

/// The context goes, or this does.
void SceneSurface::end()
{
    if (!context())
        return;
    makeCurrent();
    const bool hasContext = QOpenGLContext::currentContext() == context();
    const bool wasBusy = std::exchange(m_isBusy, true);
    if (hasContext)
        releaseHook();
    m_hook.reset();
    m_hookSize = {};
    if (hasContext)
        makeCurrent();
    m_renderer.release(hasContext);
    m_target.release();
    m_isBusy = wasBusy;
    doneCurrent();
    catchUp();
}

/// What was kept from Qt while this was busy.
void SceneSurface::catchUp()
{
    if (m_isBusy || !std::exchange(m_hasMissed, false))
        return;
    QCoreApplication::postEvent(this, new QEvent(QEvent::WindowChangeInternal));
    update();
}

/// With the context current, as in all that follow.
void SceneSurface::drawHook()
{
    const std::shared_ptr<const SceneHook> hook = m_nextHook;
    if (!hook)
        return;
    const QtDeletionHold hold(&m_scene);
    const QSize size = pixels();
    SceneFrame frame = m_scene.frame(size, &functionAddress);
    frame.framebuffer = m_target.framebuffer();
    const bool isNew = !m_hook;
    m_hook = hook;
    if (isNew)
        call(hook->initialize, frame);
    if (!hold.isAlive())
        return;
    if (size != m_hookSize) {
        m_hookSize = size;
        call(hook->resize, frame);
    }
    if (hold.isAlive())
        call(hook->draw, frame);
}

void SceneSurface::changeHook()
{
    if (m_hook == m_nextHook)
        return;
    releaseHook();
    if (!m_nextHook)
        m_target.release();
}

void SceneSurface::releaseHook()
{
    m_hookSize = {};
    if (const auto hook = std::exchange(m_hook, nullptr)) {
        const bool wasBusy = std::exchange(m_isBusy, true);
        const QtDeletionHold hold(&m_scene);
        call(hook->release);
        if (hold.isAlive())
            m_isBusy = wasBusy;
    }
}

/// Calls what the program has given, if it has; and has the context current again.
template <class Function, class... Arguments>
void SceneSurface::call(const Function& function, const Arguments&... arguments)
{
    if (!function)
        return;
    const QtHandlerFrame frame(m_scene);
    try {
        function(arguments...);
    } catch (...) {
        TROV::Thread::reportException(std::current_exception());
    }
    if (!frame.isAlive())
        return;
    makeCurrent();
    if (m_target.framebuffer() != 0)
        QOpenGLContext::currentContext()->functions()->glBindFramebuffer(GL_FRAMEBUFFER,
                                                                         m_target.framebuffer());
}

} // namespace VOXI
