#pragma once

#include <cstdint>
#include <tuple>
#include <type_traits>
#include <utility>

namespace TROV {

class Connection;
class EmitterBase;
class Listener;
class Packet;
class Thread;

/// How an emission travels to a listener.
enum SendMode : int {
    SendDirect = 0, ///< a plain call when the listener's thread is the sender's, else queued
    SendQueued = 1  ///< always through the queue of the listener's thread
};

/// How an argument of type `A` is handed on: small plain values by value, others by reference.
template <class A>
using Param = std::conditional_t<
    std::is_reference_v<A>, A,
    std::conditional_t<std::is_trivially_copyable_v<A> && sizeof(A) <= 2 * sizeof(void*), A,
                       const A&>>;

namespace detail {

/// How an argument of type `A` is kept while it travels to another thread.
template <class A>
using Kept = std::remove_cvref_t<A>;

/// The answer of a request that nobody answered.
template <class R>
R defaultResult()
{
    if constexpr (!std::is_void_v<R>)
        return R();
}

} // namespace detail
} // namespace TROV
