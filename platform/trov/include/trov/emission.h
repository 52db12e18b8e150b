#pragma once

#include "trov/connection.h"
#include "trov/connectionsite.h"
#include "trov/packet.h"
#include "trov/thread.h"
#include "trov/trov_export.h"
#include "trov/types.h"

#include <atomic>
#include <cstdint>
#include <exception>
#include <tuple>
#include <type_traits>

namespace TROV::detail {

/// Keeps the block that an emission walks through alive, and hands it out.
class Emission
{
public:
    explicit Emission(ConnectionSite& site)
        : m_thread(Thread::getCurrentThread()),
          m_pins(m_thread->pins()),
          m_depth(m_pins.m_depth++)
    {
        if (m_depth < EmissionPins::Depth) [[likely]] {
            if (m_depth >= m_pins.m_highWater.load(std::memory_order_relaxed))
                m_pins.m_highWater.store(m_depth + 1);
            m_block = site.load(std::memory_order_acquire);
            for (;;) {
                // The exchange is a full barrier: whoever retires the block sees the pin, or we
                // see that the block was replaced.
                m_pins.m_pins[m_depth].exchange(m_block);
                ConnectionBlock* now = site.load();
                if (now == m_block)
                    break;
                m_block = now;
            }
        } else {
            m_block = pinSlowly(site);
        }
    }

    ~Emission()
    {
        // Whoever is the last in a retired block frees it, and with it what was cut meanwhile.
        const bool retired = m_block && m_block->m_retired.load(std::memory_order_relaxed);
        --m_pins.m_depth;
        if (m_depth < EmissionPins::Depth) [[likely]]
            m_pins.m_pins[m_depth].store(nullptr, std::memory_order_release);
        else if (m_block)
            m_block->m_pins.fetch_sub(1, std::memory_order_release);
        if (retired) [[unlikely]]
            collectRetired();
    }

    Emission(const Emission&) = delete;
    Emission& operator=(const Emission&) = delete;

    /// The thread that emits.
    Thread* thread() const noexcept { return m_thread; }

    /// Calls `function` with each connection in the order of connecting: neither with those that
    /// are made meanwhile nor with those that are cut by then.
    template <class Function>
    void forEach(Function&& function) const
    {
        const std::uint32_t count = m_block ? m_block->m_count.load(std::memory_order_acquire) : 0;
        for (std::uint32_t i = 0; i < count; ++i) {
            Connection* const connection = m_block->at(i);
            if (connection->isConnected())
                function(connection);
        }
    }

private:
    TROV_EXPORT static ConnectionBlock* pinSlowly(ConnectionSite& site);

    Thread* m_thread;
    EmissionPins& m_pins;
    unsigned m_depth;
    ConnectionBlock* m_block = nullptr;
};

/// An emission on its way to a listener on another thread.
template <class... A>
struct QueuedEmission
{
    ConnectionHandle m_connection;
    std::tuple<Kept<A>...> m_arguments;

    void deliver()
    {
        auto* connection = static_cast<ConnectionImpl<void, A...>*>(m_connection.connection());
        if (connection->isConnected())
            std::apply([&](auto&... a) { connection->call(a...); }, m_arguments);
    }
};

/// The last one: it cuts its connection, which the emitter has left to it, when it goes.
template <class... A>
struct LastEmission : QueuedEmission<A...>
{
    LastEmission(Connection* connection, Param<A>... arguments)
        : QueuedEmission<A...>{ConnectionHandle(connection), {arguments...}}
    {}
    LastEmission(LastEmission&&) noexcept = default;
    ~LastEmission() { this->m_connection.disconnect(); }
};

/// Calls one listener on its thread; waits for it when there is a result or `wait` is set.
template <class R, class... A>
R callElsewhere(ConnectionImpl<R, A...>* connection, bool wait, Param<A>... arguments)
{
    if constexpr (std::is_void_v<R>) {
        if (!wait) {
            connection->thread()->enqueue(
                QueuedEmission<A...>{ConnectionHandle(connection), {arguments...}});
            return;
        }
    }
    return connection->thread()->template callAndWait<R>(
        connection, nullptr, [&] { return connection->isWanted(); },
        [&]() -> R {
            if (!connection->isConnected())
                return defaultResult<R>();
            return connection->call(arguments...);
        });
}

/// Calls every listener of the site; the last one's result counts.
template <class R, class... A>
R emitTo(ConnectionSite& site, bool wait, Param<A>... arguments)
{
    const Emission emission(site);
    const auto callOne = [&](Connection* item) -> R {
        auto* connection = static_cast<ConnectionImpl<R, A...>*>(item);
        if (connection->thread() == emission.thread())
            return connection->call(arguments...);
        return callElsewhere<R, A...>(connection, wait, arguments...);
    };
    if constexpr (std::is_void_v<R>) {
        emission.forEach(callOne);
    } else {
        R result = R();
        emission.forEach([&](Connection* connection) { result = callOne(connection); });
        return result;
    }
}

/// The same for an event: what a listener throws is reported, and the next one is called. For the
/// last time what goes to other threads arrives although the emitter is gone by then.
template <class... A>
void reportTo(ConnectionSite& site, bool lastTime, Param<A>... arguments)
{
    const Emission emission(site);
    emission.forEach([&](Connection* item) {
        auto* connection = static_cast<ConnectionImpl<void, A...>*>(item);
        try {
            if (connection->thread() == emission.thread())
                connection->call(arguments...);
            else if (!lastTime)
                callElsewhere<void, A...>(connection, false, arguments...);
            else if (connection->outliveEmitter())
                connection->thread()->enqueue(LastEmission<A...>(connection, arguments...));
        } catch (...) {
            emission.thread()->reportEventError(std::current_exception());
        }
    });
}

/// Delivers a packet to every listener of the site whose signature it has; returns how many it had.
TROV_EXPORT int sendPacketTo(ConnectionSite& site, const Packet& packet, SendMode mode, bool wait);

} // namespace TROV::detail
