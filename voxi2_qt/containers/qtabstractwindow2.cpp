#include "voxi2_qt/containers/qtabstractwindow2.h"

#include "../kernel/qtapplicationwatch.h"
#include "../kernel/qtcomposedwindows.h"
#include "../kernel/qtcompositor.h"
#include "../kernel/qtignored.h"
#include "../kernel/qtsavedtext.h"
#include "voxi2_qt/kernel/qtclosingwindow.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <QApplication>
#include <QEvent>
#include <QIcon>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <chrono>

namespace VOXI {

namespace {

using E = VXAbstractWindow2Emitters;
using P = QtAbstractWindow2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setTitle, &P::doSetTitle>(),
    TROV::row<&E::setTitleU, &P::doSetTitleU>(),
    TROV::row<&E::setIcon, &P::doSetIcon>(),
    TROV::row<&E::setWindowFlags, &P::doSetWindowFlags>(),
    TROV::row<&E::setWindowState, &P::doSetWindowState>(),
    TROV::row<&E::setModified, &P::doSetModified>(),
    TROV::row<&E::getTitle, &P::doGetTitle>(),
    TROV::row<&E::getTitleU, &P::doGetTitleU>(),
    TROV::row<&E::getIcon, &P::doGetIcon>(),
    TROV::row<&E::getWindowFlags, &P::doGetWindowFlags>(),
    TROV::row<&E::getWindowState, &P::doGetWindowState>(),
    TROV::row<&E::isModified, &P::doIsModified>(),
    TROV::row<&E::close, &P::doClose>(),
    TROV::row<&E::saveWindowGeometry, &P::doSaveWindowGeometry>(),
    TROV::row<&E::restoreWindowGeometry, &P::doRestoreWindowGeometry>(),
    TROV::row<&E::showMinimized, &P::doShowMinimized>(),
    TROV::row<&E::showMaximized, &P::doShowMaximized>(),
    TROV::row<&E::showFullScreen, &P::doShowFullScreen>(),
    TROV::row<&E::showNormal, &P::doShowNormal>(),
    TROV::row<&E::raiseNativeWindow, &P::doRaiseNativeWindow>(),
    TROV::row<&E::setOpacity, &P::doSetOpacity>(),
    TROV::row<&E::getOpacity, &P::doGetOpacity>(),
    TROV::row<&E::getFrameGeometry, &P::doGetFrameGeometry>(),
    TROV::row<&E::getScreens, &P::doGetScreens>(),
    TROV::row<&E::getScreen, &P::doGetScreen>(),
    TROV::row<&E::alert, &P::doAlert>(),
    TROV::row<&E::setCloseButtonVisible, &P::doSetCloseButtonVisible>(),
    TROV::row<&E::isCloseButtonVisible, &P::doIsCloseButtonVisible>());
// clang-format on

constexpr char GeometryKind[] = "voxi-geometry";
constexpr std::chrono::milliseconds StateSettles(500);

} // namespace

QtAbstractWindow2::QtAbstractWindow2(VXAbstractWindow2* window, VXAbstractWindow2Emitters* emitters)
    : QtPeerLevel(window, emitters, s_requests)
{}

// Requests ----------------------------------------------------------------------------------------

void QtAbstractWindow2::doSetParent(VXObject* parent)
{
    // With its flags: without them it would become a part of the parent's surface.
    changeParent(parent, asQWidget()->windowFlags());
}

void QtAbstractWindow2::doShow()
{
    expectActivation();
    QtPeerLevel::doShow();
}

void QtAbstractWindow2::doSetVisible(bool visible)
{
    if (visible)
        expectActivation();
    QtPeerLevel::doSetVisible(visible);
}

void QtAbstractWindow2::doRaise()
{
    expectActivation();
    QtPeerLevel::doRaise();
}

void QtAbstractWindow2::doSetActiveWindow()
{
    expectActivation();
    QtPeerLevel::doSetActiveWindow();
}

void QtAbstractWindow2::doRestoreGeometry(const std::string& geometry)
{
    if (!isSavedText(GeometryKind, geometry))
        changeState([&] { QtWidget2::doRestoreGeometry(geometry); });
    else if (!doRestoreWindowGeometry(geometry))
        ignored(*this, "that is not all of a text of savePlacement");
}

void QtAbstractWindow2::doSetTitle(const std::string& title)
{
    asQWidget()->setWindowTitle(toQString(title));
}

void QtAbstractWindow2::doSetTitleU(const std::wstring& title)
{
    asQWidget()->setWindowTitle(toQString(title));
}

void QtAbstractWindow2::doSetIcon(const Icon& icon)
{
    keepIcon(icon);
    asQWidget()->setWindowIcon(VX2Qt(icon));
}

void QtAbstractWindow2::doSetWindowFlags(unsigned flags)
{
    const bool embedded = flags == 0 && asQWidget()->parentWidget();
    applyFlags(embedded ? Qt::Widget : voxiFlagToQt(flags) | Qt::Window);
}

void QtAbstractWindow2::doSetWindowState(VXFlags<WindowState> state)
{
    // What is minimised is told to be hidden, and shown when it comes back.
    const QtEventBlocker blocker(
        *this, {WidgetEvent::Show, WidgetEvent::Hide, WidgetEvent::Move, WidgetEvent::Resize});
    const bool comesBack = m_isPutAway && !state.testFlag(WindowState::Minimized);
    changeState([&] {
        asQWidget()->setWindowState(VX2Qt(state));
        noteMinimized(state.testFlag(WindowState::Minimized));
        if (comesBack && asQWidget()->isVisible())
            showAnew(asQWidget(), [] {});
    });
}

void QtAbstractWindow2::doSetModified(bool modified) { asQWidget()->setWindowModified(modified); }
std::string QtAbstractWindow2::doGetTitle() { return toStdString(asQWidget()->windowTitle()); }
std::wstring QtAbstractWindow2::doGetTitleU() { return toStdWString(asQWidget()->windowTitle()); }
Icon QtAbstractWindow2::doGetIcon() { return keptIcon(); }
unsigned QtAbstractWindow2::doGetWindowFlags() { return QtFlagToVoxi(asQWidget()->windowFlags()); }

VXFlags<WindowState> QtAbstractWindow2::doGetWindowState()
{
    const VXFlags<WindowState> state = Qt2VX(asQWidget()->windowState());
    return m_isPutAway ? state | WindowState::Minimized : state;
}

bool QtAbstractWindow2::doIsVisible() { return !m_isPutAway && QtWidget2::doIsVisible(); }

bool QtAbstractWindow2::doIsModified() { return asQWidget()->isWindowModified(); }
bool QtAbstractWindow2::doClose()
{
    const QPointer<QWidget> self(asQWidget());
    const bool isClosed = self->close();
    if (self && isClosed)
        QtClosingWindow::finish(*self);
    return isClosed;
}

std::string QtAbstractWindow2::doSaveWindowGeometry()
{
    return toSavedText(GeometryKind, asQWidget()->saveGeometry());
}

bool QtAbstractWindow2::doRestoreWindowGeometry(const std::string& geometry)
{
    const auto bytes = fromSavedText(GeometryKind, geometry);
    bool restored = false;
    if (bytes)
        changeState([&] { restored = restoreGeometryQuietly(*bytes); });
    return restored;
}

void QtAbstractWindow2::doShowMinimized()
{
    // What is maximised will be again.
    showInState((doGetWindowState() & WindowState::Maximized) | WindowState::Minimized);
}

void QtAbstractWindow2::doShowMaximized() { showInState(WindowState::Maximized); }
void QtAbstractWindow2::doShowFullScreen() { showInState(WindowState::FullScreen); }
void QtAbstractWindow2::doShowNormal() { showInState(WindowState::Normal); }

bool QtAbstractWindow2::doRaiseNativeWindow(unsigned long long nativeWindow)
{
    const QWidget* const widget = asQWidget();
    // Not `winId`, which would make a native window of what is a part of another one.
    if (nativeWindow == 0 || widget->internalWinId() != nativeWindow || !widget->isVisible())
        return false;
    const QPointer<const QWidget> self(widget);
    if (widget->isMinimized() || m_isPutAway)
        doSetWindowState(doGetWindowState() & ~VXFlags(WindowState::Minimized));
    if (self && !isDeletionScheduled())
        doSetActiveWindow();
    return true;
}

void QtAbstractWindow2::doSetOpacity(double opacity)
{
    asQWidget()->setWindowOpacity(opacity >= 0 ? std::min(opacity, 1.0) : 0.0);
}

double QtAbstractWindow2::doGetOpacity() { return asQWidget()->windowOpacity(); }
VXRect<int> QtAbstractWindow2::doGetFrameGeometry() { return Qt2VX(asQWidget()->frameGeometry()); }

std::vector<Screen> QtAbstractWindow2::doGetScreens()
{
    std::vector<Screen> screens;
    for (const QScreen* each : QGuiApplication::screens()) {
        screens.push_back({toStdWString(each->name()), Qt2VX(each->geometry()),
                           Qt2VX(each->availableGeometry()), each->devicePixelRatio()});
    }
    return screens;
}

int QtAbstractWindow2::doGetScreen()
{
    return static_cast<int>(QGuiApplication::screens().indexOf(asQWidget()->screen()));
}

void QtAbstractWindow2::doAlert(int duration)
{
    QApplication::alert(asQWidget(), std::max(duration, 0));
}

void QtAbstractWindow2::doSetCloseButtonVisible(bool visible)
{
    m_closeButton = visible;
    applyFlags(asQWidget()->windowFlags());
}

bool QtAbstractWindow2::doIsCloseButtonVisible()
{
    return asQWidget()->windowFlags().testFlag(Qt::WindowCloseButtonHint);
}

// Reports -----------------------------------------------------------------------------------------

void QtAbstractWindow2::passStateChange(const QEvent& event)
{
    const QWidget* const window = asQWidget();
    if (event.type() == QEvent::WindowStateChange) {
        // A compositor takes the state back at once.
        if (window->isMinimized())
            noteMinimized(true);
        reportState();
    } else if (event.type() == QEvent::ActivationChange) {
        if (m_isPutAway && window->isActiveWindow()) {
            noteMinimized(false);
            reportState();
        }
        reportActivation();
    }
}

void QtAbstractWindow2::reportActivation()
{
    const QWidget& window = *asQWidget();
    const bool isActive = window.isActiveWindow();
    if (!window.isWindow() || isActive == m_isKnownActive)
        return;
    m_isKnownActive = isActive;
    const bool isAsked = isActive && !m_activating.hasExpired();
    if (isActive)
        m_activating.setRemainingTime(0);
    // A hold stands around what the program asks for. It may have shown another window: then this
    // one is left as by the user.
    const bool isPutAside = window.isHidden() || (window.isMinimized() && QtReportHold::isActive());
    const bool isLeftByProgram = !isActive && isPutAside;
    if (!isAsked && !isLeftByProgram && window.isVisible())
        report(&E::activationChanged, isActive);
}

void QtAbstractWindow2::reportState()
{
    const VXFlags<WindowState> state = shownState();
    if (m_settling > 0 || state == m_knownState)
        return;
    m_knownState = state;
    report(&E::stateChanged, state);
}

// Helpers -----------------------------------------------------------------------------------------

/// The state without whether the window is active.
VXFlags<WindowState> QtAbstractWindow2::shownState() const
{
    const VXFlags<WindowState> state = Qt2VX(asQWidget()->windowState() & ~Qt::WindowActive);
    return m_isPutAway ? state | WindowState::Minimized : state;
}

/// Keeps what a compositor is told and does not tell: minimised is what was, until it is activated
/// or comes anew.
void QtAbstractWindow2::noteMinimized(bool minimized)
{
    if (minimized == m_isPutAway || !isUnderCompositor())
        return;
    m_isPutAway = minimized;
    if (!minimized)
        return;
    noteRefusal(CompositorRefusal::TellingMinimized);
    if (const QWindow* const shown = asQWidget()->windowHandle(); shown && shown->isVisible())
        QObject::connect(
            shown, &QWindow::visibleChanged, asQObject(), [this] { m_isPutAway = false; },
            Qt::SingleShotConnection);
}

/// The program asks for something that makes the window the active one, now or soon.
void QtAbstractWindow2::expectActivation()
{
    if (!m_isKnownActive)
        m_activating.setRemainingTime(StateSettles);
}

void QtAbstractWindow2::applyFlags(Qt::WindowFlags flags)
{
    if (m_closeButton && flags.testFlag(Qt::Window)) {
        flags.setFlag(Qt::WindowCloseButtonHint, *m_closeButton);
        if (!*m_closeButton) // or Qt would add the usual ones
            flags |= Qt::CustomizeWindowHint;
    }
    // Qt hides a window whose flags change.
    QWidget* const widget = asQWidget();
    const bool visible = widget->isVisible();
    const QtEventBlocker blocker(*this,
                                 {WidgetEvent::Show, WidgetEvent::Hide, WidgetEvent::FocusIn});
    widget->setWindowFlags(flags);
    QtComposedWindows::settle(*widget);
    if (visible)
        widget->show();
}

/// Shows the window in a state. Each step may run handlers that end it.
void QtAbstractWindow2::showInState(VXFlags<WindowState> state)
{
    const QPointer<QWidget> self(asQWidget());
    doSetWindowState(state);
    if (self && !isDeletionScheduled())
        doShow();
}

/// Has the program change the state. The window manager carries that out in steps, which are not
/// reported; where it ends up somewhere else, that is.
template <class Function>
void QtAbstractWindow2::changeState(Function&& change)
{
    const QPointer<QWidget> self(asQWidget());
    ++m_settling;
    awaitState(*self);
    change();
    if (!self)
        return;
    m_knownState = shownState();
    QTimer::singleShot(StateSettles, asQObject(), [this] {
        stateSettled(*asQWidget());
        if (--m_settling == 0)
            reportState();
    });
}

} // namespace VOXI
