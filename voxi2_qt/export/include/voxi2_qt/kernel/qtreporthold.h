#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <functional>
#include <utility>
#include <vector>

namespace VOXI {

class QtObject2;

/// While one lives, Qt is in the middle of something that the program has asked for, and what is
/// reported meanwhile waits until the outermost one ends. A local variable; toolkit's thread only.
///
/// A widget that is moved loses the focus and is hidden, what is in it comes and goes. Handlers
/// that Qt ran there could undo the very thing that Qt has begun, put the new parent into the child
/// for example, or open a loop in which others do. They are called when it is done, yet before
/// the program's request returns. One stands around each request but those that run a loop
/// themselves. A handler is outside of it: what it asks for is done and told before it goes on.
class VOXI2_QT_EXPORT QtReportHold
{
public:
    QtReportHold() noexcept
    {
        if (!s_outermost)
            s_outermost = this;
    }
    ~QtReportHold()
    {
        if (s_outermost == this)
            s_outermost = nullptr;
        if (!m_waiting.empty()) [[unlikely]]
            release();
    }
    QtReportHold(const QtReportHold&) = delete;
    QtReportHold& operator=(const QtReportHold&) = delete;

    static bool isActive() noexcept { return s_outermost; }

    /// From now on takes nothing more: what waits is overdue, and reported when this is destroyed
    /// or before anything else is.
    void close();

    static bool isAnyOverdue() noexcept { return s_overdue; }
    static void releaseOverdue();

    /// While one is active: has `report` called at the end, unless the peer has gone by then.
    static void add(const QtObject2& peer, std::function<void(const QtObject2&)> report);

    /// Stands around handlers, which are outside.
    class Lift
    {
    public:
        Lift() noexcept : m_lifted(std::exchange(s_outermost, nullptr)) {}
        ~Lift() { s_outermost = m_lifted; }
        Lift(const Lift&) = delete;
        Lift& operator=(const Lift&) = delete;

    private:
        QtReportHold* m_lifted;
    };

private:
    struct Waiting
    {
        unsigned m_uid;
        std::function<void(const QtObject2&)> m_report;
    };

    void release();

    static QtReportHold* s_outermost;
    static QtReportHold* s_overdue; // that holds what is

    std::vector<Waiting> m_waiting;
};

/// For the row of a request that runs a loop itself, `TROV::row<&E::exec, &P::doExec, RunsLoop>()`:
/// what happens in the loop cannot wait for its end.
struct RunsLoop
{};

} // namespace VOXI
