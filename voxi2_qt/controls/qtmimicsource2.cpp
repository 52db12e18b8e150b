#include "voxi2_qt/controls/qtmimicsource2.h"

#include "../kernel/qtignored.h"
#include "voxi2_qt/controls/qtmimicview2.h"
#include "voxi2_qt/kernel/qtclock.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi_util/imagecompositor.h"
#include "voxi_util/scopedflagtoggler.h"

#include <QChildEvent>
#include <QGuiApplication>
#include <QMetaMethod>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace VOXI {

namespace {

using E = VXMimicSource2Emitters;
using P = QtMimicSource2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setWidget, &P::doSetWidget>(),
    TROV::row<&E::setNativeWindow, &P::doSetNativeWindow>(),
    TROV::row<&E::setMaximumRate, &P::doSetMaximumRate>(),
    TROV::row<&E::refresh, &P::doRefresh>(),
    TROV::row<&E::getWidget, &P::doGetWidget>(),
    TROV::row<&E::getNativeWindow, &P::doGetNativeWindow>(),
    TROV::row<&E::getMaximumRate, &P::doGetMaximumRate>(),
    TROV::row<&E::getSize, &P::doGetSize>(),
    TROV::row<&E::getPicture, &P::doGetPicture>());
// clang-format on

/// Whether any source takes a picture, for which widgets paint that have not changed.
bool s_isCapturing = false;

QWidgetList inside(QWidget& widget)
{
    QWidgetList all = widget.findChildren<QWidget*>();
    all.prepend(&widget);
    return all;
}

/// A picture cannot be taken in the middle of what it shows being painted.
bool isBeingPainted(QWidget& widget)
{
    return std::ranges::any_of(inside(widget), [](const QWidget* each) {
        return each->testAttribute(Qt::WA_WState_InPaintEvent);
    });
}

/// As many pixels for each unit as the screen has, unless these are too many.
double ratioFor(const QWidget& widget)
{
    const double area = double(widget.width()) * widget.height();
    return std::min(widget.devicePixelRatioF(), std::sqrt(ImageCompositor::MaxPixels / area));
}

/// Keeps Qt from laying out what is hidden for the sake of a picture: it sends the sizes that are
/// still untold to all that a window has, and hidden widgets are to hear of them when they come.
class UntoldSizes
{
public:
    explicit UntoldSizes(const QWidget& window)
    {
        for (QWidget* const each : window.findChildren<QWidget*>()) {
            for (const Qt::WidgetAttribute kept :
                 {Qt::WA_PendingMoveEvent, Qt::WA_PendingResizeEvent}) {
                if (each->isVisible() || !each->testAttribute(kept))
                    continue;
                each->setAttribute(kept, false);
                m_kept.emplace_back(each, kept);
            }
        }
    }
    ~UntoldSizes()
    {
        for (const auto& [widget, kept] : m_kept) {
            if (widget)
                widget->setAttribute(kept);
        }
    }
    UntoldSizes(const UntoldSizes&) = delete;
    UntoldSizes& operator=(const UntoldSizes&) = delete;

private:
    std::vector<std::pair<QPointer<QWidget>, Qt::WidgetAttribute>> m_kept;
};

QImage pictureOf(QWidget& widget)
{
    const UntoldSizes untold(*widget.window());
    const double ratio = ratioFor(widget);
    const QSize pixels = (QSizeF(widget.size()) * ratio).toSize().expandedTo({1, 1});
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::DrawWindowBackground | QWidget::DrawChildren);
    return image;
}

} // namespace

QtMimicSource2::QtMimicSource2(VXMimicSource2* object, VXMimicSource2Emitters* emitters,
                               QObject* parent)
    : QtObject2Shim(object, emitters, s_requests, parent)
{}

/// Qt takes the filters back. What they are installed on is not looked for: where this lies in it,
/// it may be half gone.
QtMimicSource2::~QtMimicSource2() { endPeer(); }

// Requests ----------------------------------------------------------------------------------------

void QtMimicSource2::doSetWidget(VXWidget2* widget)
{
    withWidgetOrNone(widget, [this](QWidget* qtWidget) {
        forget();
        m_widget = qtWidget;
        if (!qtWidget) {
            ignored(*this, Reason::NoWidget);
            return;
        }
        QObject::connect(qtWidget, &QObject::destroyed, this, &QtMimicSource2::slotWidgetDestroyed);
        for (QWidget* each : inside(*qtWidget))
            each->installEventFilter(this);
        noteChange();
    });
}

void QtMimicSource2::doSetNativeWindow(unsigned long long id)
{
    forget();
    m_nativeWindow = id;
    if (id != 0)
        noteChange();
}

void QtMimicSource2::doSetMaximumRate(int perSecond)
{
    m_rate = std::clamp(perSecond, 0, VXMimicSource2::HighestRate);
    m_timer.reset();
    plan();
}

void QtMimicSource2::doRefresh() { take(false); }

VXWidget2* QtMimicSource2::doGetWidget() { return abstractObjectOf<VXWidget2>(m_widget); }
unsigned long long QtMimicSource2::doGetNativeWindow() { return m_nativeWindow; }
int QtMimicSource2::doGetMaximumRate() { return m_rate; }
Size<int> QtMimicSource2::doGetSize() { return Qt2VX(m_image.deviceIndependentSize().toSize()); }
Pixmap QtMimicSource2::doGetPicture() { return Qt2VX(m_image); }

// Reports -----------------------------------------------------------------------------------------

bool QtMimicSource2::eventFilter(QObject* receiver, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Paint: {
        // A view does not change what is pictured by showing its picture, and a window that lies
        // in another one only as an object is not in it.
        const auto* const view = qobject_cast<QtMimicView2*>(receiver);
        const auto* const widget = static_cast<QWidget*>(receiver);
        if (m_widget && widget->window() == m_widget->window() && !(view && view->shows(*this)))
            noteChange();
        break;
    }
    case QEvent::ChildAdded:
    case QEvent::ChildRemoved: {
        auto* const child = qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child());
        if (!child)
            break;
        for (QWidget* each : inside(*child)) {
            each->removeEventFilter(this);
            if (event->type() == QEvent::ChildAdded)
                each->installEventFilter(this);
        }
        noteChange();
        break;
    }
    case QEvent::Resize:
    case QEvent::Show:
        if (receiver == m_widget)
            noteChange();
        break;
    default:
        break;
    }
    return false;
}

void QtMimicSource2::slotWidgetDestroyed()
{
    forget(); // the program's doing, and not reported
}

// Helpers -----------------------------------------------------------------------------------------

bool QtMimicSource2::isWanted() const
{
    static const QMetaMethod changed = QMetaMethod::fromSignal(&QtMimicSource2::imageChanged);
    return isSignalConnected(changed) || (m_widget && isHeard(&E::refreshed));
}

void QtMimicSource2::leaveWidget()
{
    if (!m_widget)
        return;
    QObject::disconnect(m_widget, &QObject::destroyed, this, nullptr);
    for (QWidget* each : inside(*m_widget))
        each->removeEventFilter(this);
    m_widget = nullptr;
}

/// Goes back to picturing nothing.
void QtMimicSource2::forget()
{
    leaveWidget();
    m_nativeWindow = 0;
    m_isDirty = false;
    m_isNew = true;
    if (!std::exchange(m_image, {}).isNull())
        Q_EMIT imageChanged();
}

void QtMimicSource2::noteChange()
{
    if (s_isCapturing)
        return;
    m_isDirty = true;
    plan();
}

void QtMimicSource2::plan()
{
    if (!m_isDirty || m_timer || m_rate == 0 || !isWanted())
        return;
    // Not while Qt is at the painting that has been seen.
    m_timer = QtClock::current().startTimer(std::chrono::milliseconds(0), [this] { take(true); });
}

void QtMimicSource2::take(bool isReported)
{
    const QtDeletionHold hold(this);
    QImage image;
    const bool isTaken = capture(image);
    if (!hold.isAlive())
        return;
    m_isDirty = !isTaken;
    if (m_rate > 0) {
        const std::chrono::milliseconds pause(1000 / m_rate);
        m_timer = QtClock::current().startTimer(pause, [this] {
            m_timer.reset();
            m_isDirty = m_isDirty || m_nativeWindow != 0;
            plan();
        });
    }
    if (!isTaken)
        return;
    if (image.isNull() && m_nativeWindow != 0) {
        forget();
        report(&E::ended, Size<int>());
        return;
    }
    if (image.isNull() || image == m_image)
        return;
    m_image = image;
    const bool isOther = !std::exchange(m_isNew, false);
    Q_EMIT imageChanged();
    if (hold.isAlive() && isReported && isOther)
        report(&E::refreshed, doGetSize());
}

/// False when it is not the time; a null image when there is nothing to be seen.
bool QtMimicSource2::capture(QImage& image) const
{
    if (s_isCapturing)
        return false;
    const ScopedFlagToggler capturing(s_isCapturing);
    if (m_nativeWindow != 0) {
        if (QScreen* const screen = QGuiApplication::primaryScreen())
            image = screen->grabWindow(static_cast<WId>(m_nativeWindow)).toImage();
    } else if (m_widget && m_widget->isVisible() && !m_widget->size().isEmpty()) {
        if (isBeingPainted(*m_widget))
            return false;
        image = pictureOf(*m_widget);
    }
    return true;
}

} // namespace VOXI
