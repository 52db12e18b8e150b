#include "voxi2_qt/controls/qtnotificationbar2.h"

#include "../kernel/qtaccessiblename.h"
#include "qtnotificationface.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtclock.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <QApplication>
#include <QKeyEvent>
#include <QStyle>

#include <algorithm>
#include <cmath>
#include <utility>

namespace VOXI {

namespace {

using E = VXNotificationBar2Emitters;
using P = QtNotificationBar2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::notify, &P::doNotify>(),
    TROV::row<&E::dismiss, &P::doDismiss>(),
    TROV::row<&E::withdraw, &P::doWithdraw>(),
    TROV::row<&E::clear, &P::doClear>(),
    TROV::row<&E::getNotification, &P::doGetNotification>(),
    TROV::row<&E::countWaiting, &P::doCountWaiting>(),
    asUserRow<&E::clickButton, &P::doimClickButton>(),
    asUserRow<&E::clickClose, &P::doimClickClose>());
// clang-format on

} // namespace

QtNotificationBar2::QtNotificationBar2(VXNotificationBar2* object,
                                       VXNotificationBar2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent),
      m_face(new QtNotificationFace(this))
{
    readTextAsName<QtNotificationBar2, QAccessible::AlertMessage, &QtNotificationBar2::text>();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    hide();
    connect(m_face, &QtNotificationFace::buttonClicked, this,
            &QtNotificationBar2::slotButtonClicked);
    connect(m_face, &QtNotificationFace::closeClicked, this, &QtNotificationBar2::slotCloseClicked);
    connect(m_face, &QtNotificationFace::linkActivated, this,
            &QtNotificationBar2::slotLinkActivated);
    connect(&m_sliding, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& share) { setShare(share.toDouble()); });
    connect(&m_sliding, &QVariantAnimation::finished, this, &QtNotificationBar2::finishVanishing);
}

// Requests ----------------------------------------------------------------------------------------

void QtNotificationBar2::doShow() { appear(); }

void QtNotificationBar2::doHide()
{
    m_isVanishing = false; // what the program hides goes at once
    QtWidget2::doHide();
}

void QtNotificationBar2::doSetVisible(bool visible)
{
    if (visible)
        doShow();
    else
        doHide();
}

bool QtNotificationBar2::doIsVisible() { return !m_isVanishing && QtWidget2::doIsVisible(); }

void QtNotificationBar2::doNotify(const Notification& notification, NotificationArrival arrival)
{
    const QtProgramScope scope; // the focus may go on
    if (m_shown && arrival != NotificationArrival::Replaces) {
        m_waiting.push_back(notification);
    } else {
        m_shown = notification;
        present();
    }
    appear();
}

void QtNotificationBar2::doDismiss()
{
    const QtProgramScope scope;
    showNext(true);
}

void QtNotificationBar2::doWithdraw(unsigned uid)
{
    if (uid == 0)
        return;
    const QtProgramScope scope;
    std::erase_if(m_waiting, [uid](const Notification& each) { return each.uid == uid; });
    if (m_shown && m_shown->uid == uid)
        showNext(true);
}

void QtNotificationBar2::doClear()
{
    const QtProgramScope scope;
    m_waiting.clear();
    showNext(true);
}

Notification QtNotificationBar2::doGetNotification() { return m_shown.value_or(Notification()); }
int QtNotificationBar2::doCountWaiting() { return static_cast<int>(m_waiting.size()); }

void QtNotificationBar2::doimClickButton(int id)
{
    if (!m_shown || !isEnabled())
        return;
    const auto& buttons = m_shown->buttons;
    const auto found = std::ranges::find(buttons, id, &NotificationButton::id);
    if (found != buttons.end())
        slotButtonClicked(static_cast<int>(found - buttons.begin()));
}

void QtNotificationBar2::doimClickClose()
{
    if (m_shown && m_shown->isClosable && isEnabled())
        slotCloseClicked();
}

// Reports -----------------------------------------------------------------------------------------

bool QtNotificationBar2::event(QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::Leave && type != QEvent::LayoutRequest)
        return QtWidget2Shim::event(event);
    const QtDeletionHold hold(this); // what leaves is told
    const bool done = QtWidget2Shim::event(event);
    if (hold.isAlive() && type == QEvent::Leave) {
        startTimer();
    } else if (hold.isAlive()) { // the face asks for another size
        placeFace();
        updateGeometry();
    }
    return done;
}

void QtNotificationBar2::showEvent(QShowEvent* event)
{
    QtWidget2Shim::showEvent(event);
    startTimer();
}

void QtNotificationBar2::hideEvent(QHideEvent* event)
{
    m_timer.reset();
    m_sliding.stop();
    setShare(1);
    // It went with its parent, and must not come back with it. Qt is in the middle of it.
    if (m_isVanishing)
        QMetaObject::invokeMethod(this, &QtNotificationBar2::finishVanishing, Qt::QueuedConnection);
    QtWidget2Shim::hideEvent(event);
}

void QtNotificationBar2::resizeEvent(QResizeEvent* event)
{
    QtWidget2Shim::resizeEvent(event);
    placeFace();
}

void QtNotificationBar2::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_shown && m_shown->isClosable)
        slotCloseClicked();
    else
        QtWidget2Shim::keyPressEvent(event);
}

void QtNotificationBar2::slotButtonClicked(int index)
{
    if (!m_shown)
        return;              // it is on its way out
    const QtReportHold hold; // told when all is done: the handler may bring the next one
    const NotificationButton& button = m_shown->buttons.at(static_cast<std::size_t>(index));
    const bool dismisses = button.dismisses;
    report(&E::buttonClicked, m_shown->uid, button.id);
    if (dismisses)
        endShown(NotificationEnd::ByButton);
}

void QtNotificationBar2::slotCloseClicked()
{
    if (m_shown)
        endShown(NotificationEnd::ByCloseButton);
}

void QtNotificationBar2::slotLinkActivated(const QString& target)
{
    if (m_shown)
        report(&E::linkActivated, m_shown->uid, toStdWString(target));
}

// Helpers -----------------------------------------------------------------------------------------

QString QtNotificationBar2::text() const { return m_shown ? m_face->text() : QString(); }

QSize QtNotificationBar2::sizeHint() const
{
    const QSize size = m_face->sizeHint();
    return {size.grownBy(contentsMargins()).width(), seen(size.height())};
}

QSize QtNotificationBar2::minimumSizeHint() const
{
    const QSize size = m_face->minimumSizeHint();
    return {size.grownBy(contentsMargins()).width(), seen(size.height())};
}

bool QtNotificationBar2::hasHeightForWidth() const { return true; }

int QtNotificationBar2::heightForWidth(int width) const
{
    const QMargins margins = contentsMargins();
    return seen(m_face->heightForWidth(width - margins.left() - margins.right()));
}

int QtNotificationBar2::seen(int height) const
{
    const QMargins margins = contentsMargins();
    return static_cast<int>(std::lround(m_share * (height + margins.top() + margins.bottom())));
}

void QtNotificationBar2::placeFace()
{
    const QRect room = contentsRect();
    const int height = std::max(room.height(), m_face->heightForWidth(room.width()));
    // Where the layout gives it less than it asks for, its upper part is seen.
    const int above = m_share < 1 ? height - room.height() : 0;
    m_face->setGeometry(room.left(), room.top() - above, room.width(), height);
}

void QtNotificationBar2::timeIsUp()
{
    const QWidget* const focus = QApplication::focusWidget();
    if (underMouse() || (focus && isWithin(this, focus)))
        startTimer();
    else
        endShown(NotificationEnd::TimedOut);
}

void QtNotificationBar2::endShown(NotificationEnd how)
{
    const QtReportHold hold;
    report(&E::dismissed, m_shown->uid, how);
    showNext(false);
}

void QtNotificationBar2::showNext(bool byProgram)
{
    if (m_waiting.empty()) {
        if (std::exchange(m_shown, std::nullopt) && isVisible() && !m_isVanishing)
            vanish(byProgram);
        else if (!isVisible())
            QtWidget2::doHide(); // it does not come when its parent does
        return;
    }
    m_shown = std::move(m_waiting.front());
    m_waiting.pop_front();
    present();
}

void QtNotificationBar2::present()
{
    m_face->present(*m_shown);
    placeFace();
    updateGeometry();
    startTimer();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void QtNotificationBar2::startTimer()
{
    m_timer.reset();
    if (m_shown && m_shown->timeout > 0 && isVisible() && !m_isVanishing)
        m_timer = QtClock::current().startTimer(std::chrono::milliseconds(m_shown->timeout),
                                                [this] { timeIsUp(); });
}

void QtNotificationBar2::appear()
{
    if (isVisible()) {
        if (std::exchange(m_isVanishing, false)) {
            slideTo(1);
            startTimer();
        }
        return;
    }
    m_isVanishing = false;
    setShare(isWindow() ? 1 : 0); // a window has its size when it comes
    QtWidget2::doShow();
    if (isVisible())
        slideTo(1);
    else
        setShare(1);
}

void QtNotificationBar2::vanish(bool byProgram)
{
    m_byProgram = byProgram;
    m_isVanishing = true;
    m_timer.reset();
    slideTo(0);
}

void QtNotificationBar2::finishVanishing()
{
    if (!std::exchange(m_isVanishing, false))
        return; // it has come
    const QtEventBlocker blocker(m_byProgram ? this : nullptr, {WidgetEvent::Hide});
    hide();
}

void QtNotificationBar2::slideTo(double share)
{
    m_sliding.stop();
    const int duration =
        isWindow() ? 0 : style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    if (duration <= 0) {
        setShare(share);
        finishVanishing();
        return;
    }
    m_sliding.setDuration(duration);
    m_sliding.setStartValue(m_share);
    m_sliding.setEndValue(share);
    m_sliding.start();
}

void QtNotificationBar2::setShare(double share)
{
    if (std::exchange(m_share, share) != share)
        updateGeometry();
}

} // namespace VOXI
