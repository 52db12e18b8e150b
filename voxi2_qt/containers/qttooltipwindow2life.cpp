// The part of QtToolTipWindow2 that is about coming, following the anchor and going.

#include "../kernel/qtcompositor.h"
#include "voxi2_qt/containers/qttooltipwindow2.h"
#include "voxi2_qt/kernel/qtclock.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

/// How long Qt's tool tips stay, in milliseconds.
int usualTimeout(qsizetype textLength)
{
    return 10000 + 40 * static_cast<int>(std::clamp<qsizetype>(textLength - 100, 0, 10000));
}

double fullOpacity(const QWidget& window)
{
    return window.style()->styleHint(QStyle::SH_ToolTipLabel_Opacity, nullptr, &window) / 255.0;
}

} // namespace

// Requests ----------------------------------------------------------------------------------------

void QtToolTipWindow2::doSetParent(VXObject* parent)
{
    changeParent(parent, windowFlags()); // it stays a window whoever owns it
}

void QtToolTipWindow2::doShow()
{
    if (m_anchor.isSet() && m_anchor.visibleRect().isEmpty())
        return;
    if (!isVisible()) {
        QtContainer2::doShow();
        return;
    }
    if (std::exchange(m_isVanishing, false))
        fadeTo(fullOpacity(*this));
    place();
    startTimer();
}

void QtToolTipWindow2::doHide()
{
    if (!isVisible())
        QtContainer2::doHide();
    else if (!m_isVanishing)
        vanish(true);
}

void QtToolTipWindow2::doSetVisible(bool visible)
{
    if (visible)
        doShow();
    else
        doHide();
}

bool QtToolTipWindow2::doIsVisible() { return !m_isVanishing && QtContainer2::doIsVisible(); }
void QtToolTipWindow2::doSetFocus() {}
void QtToolTipWindow2::doSetActiveWindow() { raise(); }

// Reports -----------------------------------------------------------------------------------------

void QtToolTipWindow2::showEvent(QShowEvent* event)
{
    QtWidget2Shim::showEvent(event);
    if (m_isMoving)
        return;
    m_isVanishing = false;
    m_isPressed = false;
    m_anchor.watch();
    startTimer();
    if (fadeDuration() > 0)
        setWindowOpacity(0);
    fadeTo(fullOpacity(*this));
    refit();
}

void QtToolTipWindow2::hideEvent(QHideEvent* event)
{
    if (m_isMoving)
        return QtWidget2Shim::hideEvent(event);
    m_anchor.unwatch();
    m_timer.reset();
    m_fading.stop();
    m_isVanishing = false;
    QtWidget2Shim::hideEvent(event);
}

void QtToolTipWindow2::slotAnchorGone()
{
    m_byProgram = m_isVanishing && m_byProgram;
    m_isVanishing = true;
    finishVanishing();
}

// Helpers -----------------------------------------------------------------------------------------

void QtToolTipWindow2::place()
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Move, WidgetEvent::Resize});
    if (!testAttribute(Qt::WA_Resized)) { // as windows do when they are shown
        adjustSize();
        setAttribute(Qt::WA_Resized, false);
    }
    const QRect anchor = m_anchor.visibleRect();
    if (anchor.isEmpty())
        return;
    const QScreen* screen = QGuiApplication::screenAt(anchor.center());
    if (!screen)
        screen = m_anchor.widget()->screen();
    moveBeside(*m_anchor.widget(),
               placeBeside(anchor, size(), m_side, screen->availableGeometry(), layoutDirection()));
}

/// A compositor takes the position within the anchor's window, when the tool tip comes.
void QtToolTipWindow2::moveBeside(const QWidget& anchor, QPoint position)
{
    QWindow* const own = windowHandle();
    QWindow* const below = anchor.window()->windowHandle();
    if (!isUnderCompositor() || !own) {
        move(position);
        return;
    }
    const bool isSame = position == pos() && own->transientParent() == below;
    if (m_isMoving || isSame)
        return;
    const auto change = [&] {
        own->setTransientParent(below);
        move(position);
    };
    if (!own->isVisible()) { // it is about to be shown
        change();
        return;
    }
    const QPointer<QtToolTipWindow2> self(this);
    m_isMoving = true;
    showAnew(this, change);
    if (self)
        m_isMoving = false;
}

void QtToolTipWindow2::startTimer()
{
    const int timeout = m_timeout < 0 ? usualTimeout(text().size()) : m_timeout;
    if (timeout > 0)
        m_timer = QtClock::current().startTimer(std::chrono::milliseconds(timeout),
                                                [this] { vanish(false); });
    else
        m_timer.reset();
}

int QtToolTipWindow2::fadeDuration() const
{
    return QApplication::isEffectEnabled(Qt::UI_FadeTooltip)
               ? style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this)
               : 0;
}

void QtToolTipWindow2::fadeTo(double opacity)
{
    m_fading.stop();
    const int duration = fadeDuration();
    if (duration <= 0) {
        setWindowOpacity(opacity);
        return;
    }
    m_fading.setDuration(duration);
    m_fading.setStartValue(windowOpacity());
    m_fading.setEndValue(opacity);
    m_fading.start();
}

void QtToolTipWindow2::vanish(bool byProgram)
{
    m_byProgram = byProgram;
    m_isVanishing = true;
    m_timer.reset();
    if (fadeDuration() > 0)
        fadeTo(0);
    else
        finishVanishing();
}

void QtToolTipWindow2::finishVanishing()
{
    if (!m_isVanishing)
        return; // it has come
    const QtEventBlocker blocker(m_byProgram ? this : nullptr, {WidgetEvent::Hide});
    hide();
}

} // namespace VOXI
