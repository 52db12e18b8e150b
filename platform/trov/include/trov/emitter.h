#pragma once

#include "trov/connection.h"
#include "trov/connectionsite.h"
#include "trov/emission.h"
#include "trov/trov_export.h"
#include "trov/types.h"

#include <atomic>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace TROV {

/// What all emitters have in common, whatever they carry.
///
/// An emitter is one byte: the number of its place in an emitters table, whose head knows the rest.
/// An `Emitter` that stands alone keeps its connections behind that byte.
class TROV_EXPORT EmitterBase
{
public:
    EmitterBase(const EmitterBase&) = delete;
    EmitterBase& operator=(const EmitterBase&) = delete;

    /// How many listeners an emission would reach; the bound operation of a request counts as one.
    int numberOfConnections() const noexcept;

    /// Sends `packet` to every listener of its signature. With `wait` it returns after all of them
    /// have run; what they throw then arrives here. Returns to how many it was sent: a packet of
    /// another signature, `long` instead of `long long` for instance, reaches nobody.
    int sendPacket(const Packet& packet, SendMode mode, bool wait) const;

    /// Cuts the listener's connections to this emitter, that of a bound request included. Null is
    /// nobody: connections without a listener are cut by their handles.
    void disconnect(Listener* listener) const;

protected:
    static constexpr std::uint8_t StandsAlone = 0xff;

    explicit constexpr EmitterBase(std::uint8_t index) noexcept : m_index(index) {}
    ~EmitterBase() = default;

    std::uint8_t index() const noexcept { return m_index; }

    /// Where the connections are kept; null when none was ever made.
    detail::ConnectionSite* site() const noexcept;

    /// Whether it belongs to what stands for dead objects, and nobody can listen.
    bool isStandIn() const noexcept;

    /// Where the connections are kept; makes the place if need be.
    detail::ConnectionSite& siteForListeners(bool isRequest) const;

private:
    template <class>
    friend class Signal;

    std::uint8_t m_index;
};

namespace detail {

/// Fails to compile, with a message, for what is no listener.
template <class Object>
consteval bool checkListener()
{
    static_assert(std::is_convertible_v<Object*, Listener*>,
                  "who listens must be a TROV::Listener, by whose life the connection is bounded: "
                  "an object of the toolkit, or a class that derives from Listener publicly. If it "
                  "does, its header is not included here");
    return std::is_convertible_v<Object*, Listener*>;
}

} // namespace detail

/// The application's side of an emitter: others listen, only the owner emits.
template <class Signature>
class Signal;

template <class R, class... A>
class Signal<R(A...)>
{
public:
    explicit Signal(const EmitterBase& emitter, bool isRequest = false) noexcept
        : m_emitter(&emitter),
          m_isRequest(isRequest)
    {}

    /// Calls `handler` for every emission, on `thread` (null: the calling thread), as long as
    /// `listener` lives; the handler takes the signal's arguments or the first few of them, down to
    /// none. With a null listener
    /// the connection lasts until it is cut by its handle or the emitter dies.
    template <class Handler>
    ConnectionHandle connect(Listener* listener, Handler handler, Thread* thread = nullptr) const
        requires(!std::is_member_pointer_v<Handler>)
    {
        if (m_emitter->isStandIn())
            return {};
        return ConnectionImpl<R, A...>::make(m_emitter->siteForListeners(m_isRequest), listener,
                                             thread ? thread : Thread::getCurrentThread(),
                                             std::move(handler));
    }

    /// The same for a member function of the listener, which takes the arguments or none.
    template <class Object, class Member>
    ConnectionHandle connect(Object* listener, Member member, Thread* thread = nullptr)
        const requires std::is_member_function_pointer_v<Member>
    {
        if constexpr (detail::checkListener<Object>())
            return connect(static_cast<Listener*>(listener),
                           detail::MemberHandler<Object, Member>{listener, member}, thread);
    }

    /// What is no listener cannot bound the life of a connection; this one only says so.
    template <class Object, class Handler>
    ConnectionHandle connect(Object*, Handler, Thread* = nullptr) const
        requires(!std::is_convertible_v<Object*, Listener*> && !std::is_member_pointer_v<Handler>)
    {
        [[maybe_unused]] constexpr bool isListener = detail::checkListener<Object>();
        return {};
    }

    int numberOfConnections() const noexcept { return m_emitter->numberOfConnections(); }

private:
    const EmitterBase* m_emitter;
    bool m_isRequest;
};

/// A typed signal that stands alone.
///
/// Emitting without listeners is a load and a branch. Handlers may connect, disconnect, emit again,
/// and destroy the emitter or themselves. Emitting, connecting and cutting are allowed from any
/// thread; destroying it while another thread emits is not.
template <class Signature>
class Emitter;

/// The part that does not depend on the signature.
class TROV_EXPORT LoneEmitter : public EmitterBase
{
protected:
    LoneEmitter() noexcept : EmitterBase(StandsAlone) {}
    ~LoneEmitter() { detail::cutAllConnections(m_site); }

    mutable detail::ConnectionSite m_site{nullptr};

private:
    friend class EmitterBase;
};

template <class R, class... A>
class Emitter<R(A...)> : public LoneEmitter
{
    static_assert(sizeof...(A) <= 4, "emitters carry up to four arguments");

public:
    Emitter() noexcept = default;

    /// Calls the listeners: those of this thread at once, others through their queues. A result is
    /// waited for; the last listener's counts, without any it is a default one.
    R operator()(Param<A>... arguments) const
    {
        if (!m_site.load(std::memory_order_relaxed))
            return detail::defaultResult<R>();
        return detail::emitTo<R, A...>(m_site, false, arguments...);
    }

    /// As calling it, but returns only after every listener has run, wherever it lives; what they
    /// throw arrives here.
    R emitAndWait(Param<A>... arguments) const
    {
        return detail::emitTo<R, A...>(m_site, true, arguments...);
    }

    Signal<R(A...)> signal() const noexcept { return Signal<R(A...)>(*this); }

    /// See `Signal::connect`.
    template <class Object, class Handler>
    ConnectionHandle connect(Object* listener, Handler handler, Thread* thread = nullptr) const
    {
        return signal().connect(listener, std::move(handler), thread);
    }
};

template <class R = void>
using Emitter0 = Emitter<R()>;
template <class R, class A1>
using Emitter1 = Emitter<R(A1)>;
template <class R, class A1, class A2>
using Emitter2 = Emitter<R(A1, A2)>;
template <class R, class A1, class A2, class A3>
using Emitter3 = Emitter<R(A1, A2, A3)>;
template <class R, class A1, class A2, class A3, class A4>
using Emitter4 = Emitter<R(A1, A2, A3, A4)>;

} // namespace TROV
