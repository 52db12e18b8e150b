#include "voxi2_qt/kernel/qtreporthold.h"

#include "voxi2_qt/kernel/qtobject2.h"

namespace VOXI {

QtReportHold* QtReportHold::s_outermost = nullptr;
QtReportHold* QtReportHold::s_overdue = nullptr;

void QtReportHold::add(const QtObject2& peer, std::function<void(const QtObject2&)> report)
{
    s_outermost->m_waiting.push_back({peer.getUID(), std::move(report)});
}

void QtReportHold::close()
{
    if (s_outermost != this)
        return;
    s_outermost = nullptr;
    if (m_waiting.empty())
        return;
    if (s_overdue) {
        auto& earlier = s_overdue->m_waiting;
        m_waiting.insert(m_waiting.begin(), earlier.begin(), earlier.end());
        earlier.clear();
    }
    s_overdue = this;
}

void QtReportHold::releaseOverdue()
{
    if (s_overdue)
        s_overdue->release();
}

void QtReportHold::release()
{
    if (s_overdue == this)
        s_overdue = nullptr;
    // What handlers ask for has holds of its own; they may even end this one.
    for (const Waiting& waiting : std::exchange(m_waiting, {})) {
        VXObjectDataLocker lock;
        if (const QtObject2* const peer = qtPeer(lookup(waiting.m_uid)))
            waiting.m_report(*peer);
    }
}

} // namespace VOXI
