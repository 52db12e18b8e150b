#pragma once

#include "trov/binding.h"
#include "trov/connectionsite.h"
#include "trov/emission.h"
#include "trov/emitter.h"
#include "trov/functionref.h"
#include "trov/packet.h"
#include "trov/tableemitter.h"
#include "trov/thread.h"
#include "trov/trov_export.h"
#include "trov/types.h"

#include <atomic>
#include <cstdint>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>

namespace TROV {

namespace detail {

/// The way of a request that is no plain call: to the peer, and to who listens beside it.
struct TROV_EXPORT Route
{
    explicit Route(const TableEmitter& request) noexcept;

    const EmitterBase* m_request;
    Binding* m_binding;
    std::uint32_t m_object;
    std::uint32_t m_generation;
    TableSite* m_others;
    Thread* m_thread;             ///< the peer's
    const Operation* m_operation; ///< null when nobody serves it; outlives the peer

    /// Whether it is served, and not on this thread.
    bool leadsElsewhere() const noexcept { return m_operation && !Thread::isCurrent(m_thread); }

    /// The peer, or null when it does not serve the request any more. On the peer's thread.
    Listener* peer() const noexcept
    {
        return m_operation ? m_binding->peerFor(m_generation, m_request) : nullptr;
    }

    /// Of one that is served: has `serve` called with the peer on its thread and waits for that. It
    /// is not called when the request is not served any more.
    void ask(FunctionRef<void(Listener*)> serve) const;

    /// Whether the object is still there: the operation may have ended it, its emitters with it.
    bool isIntact() const noexcept { return m_binding->isOf(m_object); }

    /// Those beside the peer; null when there are none, or the object has gone.
    ConnectionSite* listeners() const noexcept
    {
        return m_others && isIntact() && numberOfConnections(m_others->m_site) > 0
                   ? &m_others->m_site
                   : nullptr;
    }
};

/// A request on its way to a peer on another thread.
template <class... A>
struct QueuedRequest
{
    Binding* m_binding;
    const EmitterBase* m_request; ///< compared, never followed
    void (*m_call)(Listener*, Param<A>...);
    std::uint32_t m_generation;
    std::tuple<Kept<A>...> m_arguments;

    void deliver()
    {
        if (Listener* const peer = m_binding->peerFor(m_generation, m_request))
            std::apply([&](auto&... a) { m_call(peer, a...); }, m_arguments);
    }
};

} // namespace detail

/// A request: an emitter that a peer's operation answers. Unanswered it does nothing and results
/// are default ones.
template <class Signature>
class Request;

template <class R, class... A>
class Request<R(A...)> : public detail::TableEmitter
{
    static_assert(sizeof...(A) <= 5, "requests carry up to five arguments");

public:
    explicit Request(const detail::TableHead& head) noexcept : TableEmitter(head) {}

    /// Sends the request: a plain call on the peer's own thread, otherwise through its queue; a
    /// result is waited for.
    R operator()(Param<A>... arguments) const
    {
        const detail::TableHead& table = head();
        const detail::Binding& binding = *table.m_binding;
        if (Thread::isCurrent(binding.m_thread.load(std::memory_order_relaxed))) [[likely]] {
            if (const auto* operations = table.m_operations.load(std::memory_order_relaxed))
                return call(operations->rows()[index()])(
                    binding.m_peer.load(std::memory_order_relaxed), arguments...);
        }
        return sendElsewhere(arguments...);
    }

    /// For listeners beside the bound operation. What they return counts only while nobody serves
    /// the request: who watches it does not change it.
    Signal<R(A...)> signal() const noexcept { return Signal<R(A...)>(*this, true); }

private:
    using Call = R (*)(Listener*, Param<A>...);

    static Call call(const detail::Operation& operation) noexcept
    {
        return reinterpret_cast<Call>(operation.m_call);
    }

    // Not inlined: the plain call is to stay short.
    [[gnu::noinline]] R sendElsewhere(Param<A>... arguments) const
    {
        const detail::Route route(*this);
        if constexpr (std::is_void_v<R>) {
            if (route.leadsElsewhere()) {
                route.m_thread->enqueue(detail::QueuedRequest<A...>{route.m_binding,
                                                                    this,
                                                                    call(*route.m_operation),
                                                                    route.m_generation,
                                                                    {arguments...}});
                // The object may end meanwhile.
                route.m_thread->waitForRoom();
            } else if (Listener* const peer = route.peer()) {
                call (*route.m_operation)(peer, arguments...);
            }
            if (detail::ConnectionSite* const site = route.listeners())
                detail::emitTo<R, A...>(*site, false, arguments...);
        } else {
            std::optional<R> answer;
            const auto serve = [&](Listener* peer) {
                answer.emplace(call(*route.m_operation)(peer, arguments...));
            };
            if (route.leadsElsewhere())
                route.ask(serve);
            else if (Listener* const peer = route.peer())
                serve(peer);
            if (detail::ConnectionSite* const site = route.listeners()) {
                R beside = detail::emitTo<R, A...>(*site, false, arguments...);
                if (!answer)
                    answer.emplace(std::move(beside));
            }
            return answer ? std::move(*answer) : R();
        }
    }
};

} // namespace TROV
