#include "qthost/eventloopbinding.h"

#include "trov/thread.h"
#include "trov/waithooks.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QTimerEvent>

#include <chrono>

namespace VOXI {

namespace {

using Clock = TROV::Thread::Clock;

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
        connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] { beginTurn(); });
        // Not every dispatcher tells that it has slept before it dispatches, and what is dispatched
        // may end a loop, whose caller holds the lock. Between the sleep and the end of a loop
        // there is always an event, unless another thread ends it: that the lock itself finds out.
        QCoreApplication::instance()->installEventFilter(this);
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
                [this] { endServing(); });
    }

    ~Pump() override
    {
        m_thread->endSleep();
        m_thread->unbindWakeUp();
    }

    void endServing() { m_thread->suspendAnswers(); }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != wakeUpType())
            return QObject::event(event);
        run();
        return true;
    }

    bool eventFilter(QObject*, QEvent*) override
    {
        m_thread->endSleep();
        return false;
    }

    void timerEvent(QTimerEvent* event) override
    {
        // The timer comes again in the next turn, and it is enough that it came: not every loop
        // tells when its turns begin.
        if (isTurnOver()) {
            m_isInTurn = false;
            return;
        }
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

    bool isTurnOver() const { return m_isInTurn && Clock::now() >= m_turnEnd; }

    void beginTurn()
    {
        m_isInTurn = false;
        m_thread->endSleep();
    }

    void run()
    {
        // A wake-up that is posted while the posted events are being sent is sent with them: such
        // a pass would never end if each began a time of its own.
        if (isTurnOver()) {
            runAgain();
            return;
        }
        const auto now = Clock::now();
        const auto end = m_isInTurn ? m_turnEnd : now + TurnBudget;
        m_isInTurn = false; // a loop that a call opens has its own
        bool left = false;
        {
            // Others go on while the calls of a nested loop run, as while it sleeps.
            const TROV::WaitRelease aside;
            left = m_thread->process(end - now);
        }
        m_isInTurn = true;
        m_turnEnd = end;
        if (left)
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
        m_thread->resumeAnswers();
        m_thread->beginSleep();
    }

    TROV::Thread* m_thread;
    int m_timer = 0;
    bool m_isInTurn = false; // calls have run since the loop began its turn
    Clock::time_point m_turnEnd{};
};

EventLoopBinding::EventLoopBinding() : m_pump(std::make_unique<Pump>()) {}

EventLoopBinding::~EventLoopBinding() = default;

void EventLoopBinding::endServing() { m_pump->endServing(); }

} // namespace VOXI
