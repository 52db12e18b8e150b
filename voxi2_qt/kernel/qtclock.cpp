#include "voxi2_qt/kernel/qtclock.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

class QtClockTimer : public VXClock2::Timer
{
public:
    QtClockTimer(std::chrono::milliseconds delay, std::function<void()> function)
        : m_timer(new QTimer)
    {
        m_timer->setSingleShot(true);
        m_timer->setTimerType(Qt::PreciseTimer);
        m_timer->callOnTimeout([function = std::move(function)] { function(); });
        m_timer->start(std::max(delay, std::chrono::milliseconds(0)));
    }

    ~QtClockTimer() override
    {
        m_timer->stop();
        m_timer->deleteLater(); // it may be what calls
    }

private:
    QTimer* m_timer;
};

} // namespace

std::unique_ptr<VXClock2::Timer> QtClock::startTimer(std::chrono::milliseconds delay,
                                                     std::function<void()> function)
{
    return std::make_unique<QtClockTimer>(delay, std::move(function));
}

VXClock2& QtClock::current()
{
    static QtClock own;
    VXClock2* const replacement = VXClock2::replacement();
    return replacement ? *replacement : own;
}

} // namespace VOXI
