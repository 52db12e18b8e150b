#pragma once

#include "trov/emission.h"
#include "trov/emitter.h"
#include "trov/tableemitter.h"
#include "trov/types.h"

#include <atomic>

namespace TROV {

/// An event of an abstract object: its peer reports, the application listens.
template <class Signature>
class Event;

template <class... A>
class Event<void(A...)> : public detail::TableEmitter
{
public:
    explicit Event(const detail::TableHead& head) noexcept : TableEmitter(head) {}

    /// Calls the listeners; without any it costs a load and a branch. What one of them throws goes
    /// to the thread's exception handler, or to the program where that acts as the user: see
    /// `Thread::reportEventError`. The others are called all the same.
    void operator()(Param<A>... arguments) const
    {
        if (detail::TableSite* site = listeners())
            detail::reportTo<A...>(site->m_site, false, arguments...);
    }

    /// The last emission of an object that ends: on other threads, too, it reaches those who
    /// listen, behind all that was sent to them before.
    void emitLast(Param<A>... arguments) const
    {
        if (detail::TableSite* site = listeners())
            detail::reportTo<A...>(site->m_site, true, arguments...);
    }

    /// Whether an emission would reach anybody; cheaper than counting.
    bool isHeard() const noexcept
    {
        const detail::TableSite* site = listeners();
        return site && site->m_site.load(std::memory_order_acquire);
    }

    int numberOfConnections() const noexcept
    {
        const detail::TableSite* site = listeners();
        return site ? detail::numberOfConnections(site->m_site) : 0;
    }

    Signal<void(A...)> signal() const noexcept { return Signal<void(A...)>(*this); }
};

} // namespace TROV
