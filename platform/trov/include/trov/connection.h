#pragma once

#include "trov/connectionsite.h"
#include "trov/listener.h"
#include "trov/packet.h"
#include "trov/thread.h"
#include "trov/trov_export.h"
#include "trov/types.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <tuple>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace TROV {

namespace detail {
class CutConnections;
struct SiteWriter;
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
    friend class detail::CutConnections;
    friend struct detail::SiteWriter;
    friend void detail::cutAllConnections(detail::ConnectionSite& site);

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

} // namespace TROV
