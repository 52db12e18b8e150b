#pragma once

#include "qthost/eventloopbinding.h"
#include "trov/emitter.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QCoreApplication>
#include <QWidget>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace VOXI {

/// The tie between the toolkit's calls and the test's event loop; the environment of the tests
/// brings the back end up with it. A test may end it and make it anew.
std::unique_ptr<EventLoopBinding>& eventLoopBinding();

/// One turn of the event loop: what was posted is delivered.
inline void turn() { QCoreApplication::processEvents(); }

/// Runs the deletions that are due.
void runDeletions();

inline QWidget* qt(const VXWidget2& widget) { return qWidgetOf(lookup(&widget)); }

inline QtWidget2& peer(const VXWidget2& widget)
{
    return dynamic_cast<QtWidget2&>(*lookup(&widget));
}

/// What assistive programs read the widget as.
QString spokenName(const VXWidget2& widget);

/// Keeps what a signal sends.
template <class E>
class Log : public TROV::Listener
{
public:
    explicit Log(TROV::Signal<void(const E&)> signal)
    {
        signal.connect(this, [this](const E& event) { m_events.push_back(event); });
    }

    int count() const { return static_cast<int>(m_events.size()); }
    bool isEmpty() const { return m_events.empty(); }
    void clear() { m_events.clear(); }
    const E& last() const { return m_events.back(); }
    /// The only one; if there is none or another, the test ends as failed.
    const E& only() const
    {
        if (m_events.size() != 1)
            throw std::logic_error(std::to_string(m_events.size()) + " events");
        return m_events.front();
    }
    const E& operator[](std::size_t i) const { return m_events.at(i); }

    /// Whether there is exactly one, which is forgotten.
    bool takeOne()
    {
        const bool one = m_events.size() == 1;
        m_events.clear();
        return one;
    }

private:
    std::vector<E> m_events;
};
template <class E>
Log(TROV::Signal<void(const E&)>) -> Log<E>;

/// Whether any of some widgets has been reported as shown or hidden.
class Comings
{
public:
    explicit Comings(std::initializer_list<const VXWidget2*> widgets)
    {
        for (const VXWidget2* widget : widgets) {
            m_logs.push_back(std::make_unique<Log<VXWidgetEvent2>>(widget->shown()));
            m_logs.push_back(std::make_unique<Log<VXWidgetEvent2>>(widget->hidden()));
        }
    }

    /// Runs the event loop's turn; the reports are forgotten.
    bool areReported()
    {
        turn();
        bool reported = false;
        for (const auto& log : m_logs) {
            reported = reported || !log->isEmpty();
            log->clear();
        }
        return reported;
    }

private:
    std::vector<std::unique_ptr<Log<VXWidgetEvent2>>> m_logs;
};

} // namespace VOXI
