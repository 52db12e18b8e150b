#pragma once

#include "trov/listener.h"
#include "trov/packet.h"
#include "trov/thread.h"
#include "trov/trov_export.h"
#include "trov/types.h"
#include "voxi_util/readwritelock.h"

#include <atomic>
#include <functional>
#include <typeinfo>
#include <utility>

namespace TROV {

/// Guards who is connected to whom; held for writing while a connection is made or cut, never while
/// a listener is called.
TROV_EXPORT VOXI::ReadWriteLock& GetGlobalConnectionLock();

namespace detail {

/// The connections of one emitter. Emissions walk through the block they find while others publish
/// new ones; of a published one only the free places at the end are filled, and what is cut leaves
/// a connection behind that is never connected.
struct ConnectionBlock
{
    std::atomic<std::uint32_t> m_count{0};
    std::uint32_t m_capacity = 0;
    std::uint32_t m_connected = 0;        ///< guarded by the global connection lock
    std::atomic<std::uint32_t> m_pins{0}; ///< emissions too deeply nested for their thread's pins
    std::atomic<bool> m_retired{false};   ///< replaced; to be freed when no emission is in it
    ConnectionBlock* m_nextRetired = nullptr;

    std::atomic<Connection*>* items() noexcept
    {
        return reinterpret_cast<std::atomic<Connection*>*>(this + 1);
    }
    const std::atomic<Connection*>* items() const noexcept
    {
        return reinterpret_cast<const std::atomic<Connection*>*>(this + 1);
    }
    Connection* at(std::uint32_t i) const noexcept
    {
        return items()[i].load(); // in one order with the pins
    }
};

/// Where an emitter keeps its connections; null as long as there are none.
using ConnectionSite = std::atomic<ConnectionBlock*>;

struct SiteWriter;

TROV_EXPORT void collectRetired();
TROV_EXPORT void cutAllConnections(ConnectionSite& site);
TROV_EXPORT int numberOfConnections(const ConnectionSite& site) noexcept;

} // namespace detail

/// Emitter, listener, what to call and on which thread. Counted; made by the emitters' `connect`.
class TROV_EXPORT Connection
{
public:
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// False once it was cut by either side.
    bool isConnected() const noexcept { return m_alive.load(std::memory_order_acquire); }

    /// The same for a thread that is about to wait: see `Thread::releaseWaiters`.
    bool isWanted() const noexcept { return m_alive.load(); }

    /// The thread that calls are delivered on.
    Thread* thread() const noexcept { return m_thread.get(); }

    /// Cuts it; nothing happens when it is cut already. The listener's guarantees hold.
    void disconnect();

    const std::type_info& signature() const noexcept { return *m_signature; }

    /// Whether it is one of the listener's; only while the global connection lock is held.
    bool belongsTo(const Listener* listener) const noexcept { return m_listener == listener; }

    /// From now on the emitter's end does not cut it, because its last call is on the way; false
    /// when it is cut already. Whoever delivers that call disconnects it then.
    bool outliveEmitter();

    /// For the library: calls the listener with the payload's arguments, which must match.
    virtual void deliver(Payload& payload) = 0;

    void ref() noexcept { m_refs.fetch_add(1, std::memory_order_relaxed); }
    void deref();

protected:
    Connection(Listener* listener, Thread* thread, const std::type_info& signature)
        : m_listener(listener),
          m_listenerType(listener ? &typeid(*listener) : nullptr),
          m_thread(thread),
          m_signature(&signature)
    {}
    virtual ~Connection();

    /// Enters the connection into the site and the listener's list, under the global lock.
    void attach(detail::ConnectionSite& site);

private:
    friend class Listener;
    friend void detail::cutAllConnections(detail::ConnectionSite& site);

    friend void detail::collectRetired();
    friend struct detail::SiteWriter;

    void unlinkFromListener() noexcept;

    std::atomic<int> m_refs{0};
    std::atomic<bool> m_alive{false};
    detail::ConnectionSite* m_site = nullptr;
    std::uint32_t m_place = 0;      // in the site's block
    bool m_outlivesEmitter = false; // guarded by the global connection lock
    Listener* m_listener;
    const std::type_info* m_listenerType;
    ThreadRef m_thread;
    const std::type_info* m_signature;
    Connection* m_previous = nullptr;
    Connection* m_next = nullptr;
    const detail::ConnectionBlock* m_retiredFrom = nullptr; // it may still be seen from there
};

/// Names a connection so that it can be cut early. Copies name the same one; an empty handle names
/// none. It does not keep the connection connected.
class ConnectionHandle
{
public:
    ConnectionHandle() = default;
    explicit ConnectionHandle(Connection* connection) : m_connection(connection)
    {
        if (m_connection)
            m_connection->ref();
    }
    ConnectionHandle(const ConnectionHandle& other) : ConnectionHandle(other.m_connection) {}
    ConnectionHandle(ConnectionHandle&& other) noexcept
        : m_connection(std::exchange(other.m_connection, nullptr))
    {}
    ConnectionHandle& operator=(ConnectionHandle other) noexcept
    {
        std::swap(m_connection, other.m_connection);
        return *this;
    }
    ~ConnectionHandle()
    {
        if (m_connection)
            m_connection->deref();
    }

    bool isConnected() const noexcept { return m_connection && m_connection->isConnected(); }
    void disconnect()
    {
        if (m_connection)
            m_connection->disconnect();
    }
    Connection* connection() const noexcept { return m_connection; }

private:
    Connection* m_connection = nullptr;
};

/// A connection of a known signature.
template <class R, class... A>
class ConnectionImpl : public Connection
{
public:
    /// Connects `function` to `site` on behalf of `listener`.
    template <class Function>
    static ConnectionHandle make(detail::ConnectionSite& site, Listener* listener, Thread* thread,
                                 Function function);

    R call(Param<A>... arguments) { return m_call(this, arguments...); }

    void deliver(Payload& payload) override
    {
        if (auto* mine = dynamic_cast<PayloadOf<R, sizeof...(A), A...>*>(&payload))
            mine->apply([this](const A&... a) { return call(a...); });
    }

protected:
    using Call = R (*)(ConnectionImpl*, Param<A>...);

    ConnectionImpl(Listener* listener, Thread* thread, Call function)
        : Connection(listener, thread, typeid(R(A...))),
          m_call(function)
    {}

private:
    Call m_call;
};

template <class R = void>
using ConnectionImpl0 = ConnectionImpl<R>;
template <class R, class A1>
using ConnectionImpl1 = ConnectionImpl<R, A1>;
template <class R, class A1, class A2>
using ConnectionImpl2 = ConnectionImpl<R, A1, A2>;
template <class R, class A1, class A2, class A3>
using ConnectionImpl3 = ConnectionImpl<R, A1, A2, A3>;
template <class R, class A1, class A2, class A3, class A4>
using ConnectionImpl4 = ConnectionImpl<R, A1, A2, A3, A4>;

namespace detail {

/// How many of the first arguments the handler takes; -1 when it fits no number of them.
template <class Function, class R, class... A>
constexpr int acceptedArguments()
{
    constexpr auto fits = []<std::size_t... I>(std::index_sequence<I...>)
    {
        return std::is_invocable_r_v<R, Function&,
                                     std::tuple_element_t<I, std::tuple<Param<A>...>>...>;
    };
    constexpr auto search = [fits]<std::size_t N>(auto self,
                                                  std::integral_constant<std::size_t, N>) -> int {
        if constexpr (fits(std::make_index_sequence<N>()))
            return static_cast<int>(N);
        else if constexpr (N > 0)
            return self(self, std::integral_constant<std::size_t, N - 1>());
        else
            return -1;
    };
    return search(search, std::integral_constant<std::size_t, sizeof...(A)>());
}

template <class Function, class R, class... A>
class FunctionConnection final : public ConnectionImpl<R, A...>
{
public:
    FunctionConnection(Listener* listener, Thread* thread, Function function)
        : ConnectionImpl<R, A...>(listener, thread, &invoke),
          m_function(std::move(function))
    {}

private:
    friend class ConnectionImpl<R, A...>;

    static R invoke(ConnectionImpl<R, A...>* self, Param<A>... arguments)
    {
        Function& function = static_cast<FunctionConnection*>(self)->m_function;
        // A handler that does not care for the last arguments need not name them.
        constexpr int Accepted = acceptedArguments<Function, R, A...>();
        if constexpr (Accepted == sizeof...(A)) {
            return static_cast<R>(std::invoke(function, arguments...));
        } else {
            return [&]<std::size_t... I>(std::index_sequence<I...>)->R
            {
                [[maybe_unused]] const auto all = std::forward_as_tuple(arguments...);
                return static_cast<R>(std::invoke(function, std::get<I>(all)...));
            }
            (std::make_index_sequence<Accepted>());
        }
    }

    Function m_function;
};

} // namespace detail

template <class R, class... A>
template <class Function>
ConnectionHandle ConnectionImpl<R, A...>::make(detail::ConnectionSite& site, Listener* listener,
                                               Thread* thread, Function function)
{
    static_assert(detail::acceptedArguments<Function, R, A...>() >= 0,
                  "the handler must take the signal's arguments, or the first few of them");
    auto* connection =
        new detail::FunctionConnection<Function, R, A...>(listener, thread, std::move(function));
    // Held before others can cut it.
    ConnectionHandle handle(connection);
    connection->attach(site);
    return handle;
}

namespace detail {

/// Keeps the block that an emission walks through alive, and hands it out.
class Emission
{
public:
    Emission(Thread* thread, ConnectionSite& site)
        : m_pins(thread->pins()),
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

    const ConnectionBlock* block() const noexcept { return m_block; }

private:
    TROV_EXPORT static ConnectionBlock* pinSlowly(ConnectionSite& site);

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

/// Calls every listener of the site in the order of connecting; the last one's result counts.
/// Listeners that connect meanwhile are not called, those cut meanwhile are not called any more.
template <class R, class... A>
R emitTo(ConnectionSite& site, bool wait, Param<A>... arguments)
{
    Thread* const self = Thread::getCurrentThread();
    const Emission emission(self, site);
    const ConnectionBlock* block = emission.block();
    if (!block)
        return defaultResult<R>();
    const auto callOne = [&](Connection* item) -> R {
        auto* connection = static_cast<ConnectionImpl<R, A...>*>(item);
        if (connection->thread() == self)
            return connection->call(arguments...);
        return callElsewhere<R, A...>(connection, wait, arguments...);
    };
    // Those that are added meanwhile are not called.
    const std::uint32_t count = block->m_count.load(std::memory_order_acquire);
    if constexpr (std::is_void_v<R>) {
        for (std::uint32_t i = 0; i < count; ++i) {
            Connection* const connection = block->at(i);
            if (connection->isConnected())
                callOne(connection);
        }
    } else {
        R result = R();
        for (std::uint32_t i = 0; i < count; ++i) {
            Connection* const connection = block->at(i);
            if (connection->isConnected())
                result = callOne(connection);
        }
        return result;
    }
}

/// The same for an event: what a listener throws is reported, and the next one is called. For the
/// last time what goes to other threads arrives although the emitter is gone by then.
template <class... A>
void reportTo(ConnectionSite& site, bool lastTime, Param<A>... arguments)
{
    Thread* const self = Thread::getCurrentThread();
    const Emission emission(self, site);
    const ConnectionBlock* block = emission.block();
    if (!block)
        return;
    const std::uint32_t count = block->m_count.load(std::memory_order_acquire);
    for (std::uint32_t i = 0; i < count; ++i) {
        auto* connection = static_cast<ConnectionImpl<void, A...>*>(block->at(i));
        if (!connection->isConnected())
            continue;
        try {
            if (connection->thread() == self)
                connection->call(arguments...);
            else if (!lastTime)
                callElsewhere<void, A...>(connection, false, arguments...);
            else if (connection->outliveEmitter())
                connection->thread()->enqueue(LastEmission<A...>(connection, arguments...));
        } catch (...) {
            self->reportEventError(std::current_exception());
        }
    }
}

/// Delivers a packet to every listener of the site whose signature it has; returns how many it had.
TROV_EXPORT int sendPacketTo(ConnectionSite& site, const Packet& packet, SendMode mode, bool wait);

/// A member function and its object, as a handler.
template <class Object, class Member>
struct MemberHandler
{
    Object* m_object;
    Member m_member;

    template <class... A>
    requires std::is_invocable_v<const Member&, Object*, A...>
    decltype(auto) operator()(A&&... arguments) const
    {
        return std::invoke(m_member, m_object, std::forward<A>(arguments)...);
    }
};

} // namespace detail
} // namespace TROV
