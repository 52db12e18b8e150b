#pragma once

#include "trov/trov_export.h"
#include "trov/types.h"
#include "voxi_util/spinlock.h"

#include <atomic>
#include <mutex>
#include <optional>
#include <tuple>
#include <typeinfo>
#include <utility>

namespace TROV {

namespace detail {

/// A request served by a bound operation: an untyped function pointer and its true signature.
struct Operation
{
    void (*m_call)() = nullptr;
    const std::type_info* m_signature = nullptr;
};

} // namespace detail

/// The arguments of one emission, and room for its result.
class TROV_EXPORT Payload
{
public:
    virtual ~Payload();

    /// The function type, `R(A...)`, that the emission carries.
    virtual const std::type_info& signature() const noexcept = 0;

    /// For the library: calls a bound operation of the same signature.
    virtual void call(const detail::Operation& operation, Listener* target) = 0;

protected:
    Payload() = default;

private:
    friend class Packet;
    std::atomic<int> m_refs{0};
};

/// The arguments `A...` of an emission with result `R`. `Count` is their number.
template <class R, int Count, class... A>
class PayloadOf : public Payload
{
    static_assert(Count == sizeof...(A));

public:
    explicit PayloadOf(A... arguments) : m_arguments(std::move(arguments)...) {}

    const std::type_info& signature() const noexcept override { return typeid(R(A...)); }

    void call(const detail::Operation& operation, Listener* target) override
    {
        using Function = R (*)(Listener*, Param<A>...);
        const auto function = reinterpret_cast<Function>(operation.m_call);
        keep(true, [&] {
            return std::apply([&](const A&... a) { return function(target, a...); }, m_arguments);
        });
    }

    /// Calls `function` with the arguments and keeps its result, unless a bound operation has
    /// answered.
    template <class Function>
    void apply(Function&& function)
    {
        keep(false, [&] {
            return std::apply([&](const A&... a) { return function(a...); }, m_arguments);
        });
    }

    const std::tuple<A...>& arguments() const noexcept { return m_arguments; }

    /// What the bound operation answered, or else the last listener; empty before one did. To be
    /// read after all of them have.
    auto& result() const noexcept requires(!std::is_void_v<R>) { return m_result; }

private:
    template <class Function>
    void keep(bool isBound, Function&& function)
    {
        if constexpr (std::is_void_v<R>)
            function();
        else {
            R result = function();
            // Listeners on several threads may answer the same packet.
            std::lock_guard lock(m_resultLock);
            if (isBound || !m_isAnswered)
                m_result.emplace(std::move(result));
            m_isAnswered |= isBound;
        }
    }

    struct NoResult
    {};
    std::tuple<A...> m_arguments;
    VOXI::SpinLock m_resultLock;
    std::optional<std::conditional_t<std::is_void_v<R>, NoResult, R>> m_result;
    bool m_isAnswered = false; // by a bound operation
};

template <class R, int Count = 0>
using Payload0 = PayloadOf<R, Count>;
template <class R, class A1, int Count = 1>
using Payload1 = PayloadOf<R, Count, A1>;
template <class R, class A1, class A2, int Count = 2>
using Payload2 = PayloadOf<R, Count, A1, A2>;
template <class R, class A1, class A2, class A3, int Count = 3>
using Payload3 = PayloadOf<R, Count, A1, A2, A3>;
template <class R, class A1, class A2, class A3, class A4, int Count = 4>
using Payload4 = PayloadOf<R, Count, A1, A2, A3, A4>;

/// Owns a payload while it travels. Copies share the payload; the last one deletes it.
class TROV_EXPORT Packet
{
public:
    Packet() = default;

    /// Takes ownership of `payload`, which must have been made with `new`; null makes it empty.
    explicit Packet(Payload* payload) noexcept : m_payload(payload)
    {
        if (m_payload)
            m_payload->m_refs.fetch_add(1, std::memory_order_relaxed);
    }
    Packet(const Packet& other) noexcept : Packet(other.m_payload) {}
    Packet(Packet&& other) noexcept : m_payload(std::exchange(other.m_payload, nullptr)) {}
    Packet& operator=(Packet other) noexcept
    {
        std::swap(m_payload, other.m_payload);
        return *this;
    }
    ~Packet();

    bool isEmpty() const noexcept { return !m_payload; }
    Payload* payload() const noexcept { return m_payload; }

private:
    Payload* m_payload = nullptr;
};

} // namespace TROV
