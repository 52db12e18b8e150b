#include "qthost/eventloopbinding.h"

#include "trov/thread.h"
#include "trov/waithooks.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QTimerEvent>

#include <chrono>
#include <optional>

namespace VOXI {

namespace {

// Half a frame: the rest is for painting and input.
constexpr auto TurnBudget = std::chrono::milliseconds(8);

} // namespace

class EventLoopBinding::Pump final : public QObject
{
public:
    Pump() : m_thread(TROV::Thread::getCurrentThread())
    {
        m_thread->bindWakeUp(
            [this] { QCoreApplication::postEvent(this, new QEvent(wakeUpType())); });
        QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this] { sleep(); });
        connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] { m_released.reset(); });
    }

    ~Pump() override
    {
        m_released.reset();
        m_thread->unbindWakeUp();
    }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != wakeUpType())
            return QObject::event(event);
        run();
        return true;
    }

    void timerEvent(QTimerEvent* event) override
    {
        killTimer(event->timerId());
        m_timer = 0;
        run();
    }

private:
    static QEvent::Type wakeUpType()
    {
        static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
        return type;
    }

    void run()
    {
        if (m_thread->process(TurnBudget))
            runAgain();
    }

    void runAgain()
    {
        // A timer of no length comes after the input and painting that wait already.
        if (m_timer == 0)
            m_timer = startTimer(0);
    }

    void sleep()
    {
        // A loop that one call opened must run the calls behind it: it may be one of them that ends
        // the loop, and none of them rouses it any more.
        if (m_thread->hasCallsLeft())
            runAgain();
        m_released.emplace();
    }

    TROV::Thread* m_thread;
    std::optional<TROV::WaitRelease> m_released;
    int m_timer = 0;
};

EventLoopBinding::EventLoopBinding() : m_pump(std::make_unique<Pump>()) {}

EventLoopBinding::~EventLoopBinding() = default;

} // namespace VOXI
