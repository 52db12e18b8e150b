#pragma once

#include "trov/functionref.h"
#include "trov/trov_export.h"
#include "voxi_util/spinlock.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace TROV {

class Thread;

namespace detail {

/// One thread's wait for the answer of another; lives on the stack of the waiting thread.
struct TROV_EXPORT Waiter
{
    enum State : std::uint32_t { Pending, Done };

    std::atomic<std::uint32_t> m_state{Pending};
    Thread* m_waiting = nullptr;           ///< the thread that sleeps until the state is `Done`
    const void* m_target = nullptr;        ///< what is asked; cutting it ends the wait
    const void* m_part = nullptr;          ///< the part of it that is asked; likewise, or null
    int m_processor = 0;                   ///< that the waiting thread asked on
    struct CallRecord* m_record = nullptr; ///< where the question stands in the queue
    Waiter* m_previous = nullptr;
    Waiter* m_next = nullptr;
    std::exception_ptr m_error;
    FunctionRef<void()> m_execute;  ///< runs on the asked thread; stores the result
    FunctionRef<bool()> m_isWanted; ///< false once what is asked was cut

    bool isDone() const noexcept { return m_state.load(std::memory_order_acquire) == Done; }
};

/// The head of every queued call. The call itself follows it in memory.
struct CallRecord
{
    enum Action { Deliver, Discard };

    void (*m_run)(CallRecord*, Action) = nullptr; ///< ends the life of the call in either case
    const Thread* m_sender = nullptr;             ///< compared, never followed
    std::atomic<Waiter*> m_waiter{nullptr};       ///< whoever takes it out may end the wait
    std::uint32_t m_size = 0;
    bool m_consumed = false;
};

/// A block of queued calls, filled from the front and emptied from the front. Aligned, so that the
/// records behind it are.
struct alignas(64) CallChunk
{
    static constexpr std::size_t Bytes = 32 * 1024;

    CallChunk* m_next = nullptr;
    std::size_t m_used = 0;
    std::size_t m_read = 0;
    unsigned m_running = 0; ///< calls of this chunk that are on the stack of their thread
    bool m_passed = false;  ///< the queue has moved on; free it when nothing runs

    std::byte* bytes() noexcept { return reinterpret_cast<std::byte*>(this + 1); }
    CallRecord* recordAt(std::size_t offset) noexcept
    {
        return std::launder(reinterpret_cast<CallRecord*>(bytes() + offset));
    }
};

/// A first-in first-out list of chunks. It does not lock.
class TROV_EXPORT CallList
{
public:
    CallList() = default;
    CallList(const CallList&) = delete;
    CallList& operator=(const CallList&) = delete;
    ~CallList();

    /// Room for a record of `size` bytes at the end.
    void* allocate(std::size_t size)
    {
        if (!m_last || CallChunk::Bytes - m_last->m_used < size)
            addChunk();
        void* room = m_last->bytes() + m_last->m_used;
        m_last->m_used += size;
        return room;
    }

    /// Moves everything of `other` behind what is here.
    void append(CallList& other) noexcept;

    /// Steps over consumed records; null when nothing is left.
    CallRecord* front(CallChunk*& chunk) noexcept;

    /// Steps over the record that `front` returned.
    void popFront(CallRecord* record) noexcept { m_first->m_read += record->m_size; }

    /// Gives a chunk back whose records have all been run.
    void recycle(CallChunk* chunk) noexcept;

    CallChunk* firstChunk() const noexcept { return m_first; }

private:
    void addChunk();
    void retireFirst() noexcept;

    CallChunk* m_first = nullptr;
    CallChunk* m_last = nullptr;
    static constexpr unsigned MostSpares = 8;

    CallChunk* m_spares = nullptr;
    unsigned m_spareCount = 0;
};

/// A queued call of type `Call`, which has `void deliver()`.
template <class Call>
struct RecordOf : CallRecord
{
    explicit RecordOf(Call&& call) : m_call(std::move(call))
    {
        m_run = &run;
        m_size = alignedSize();
    }

    static constexpr std::uint32_t alignedSize() noexcept
    {
        constexpr std::size_t unit = alignof(std::max_align_t);
        return static_cast<std::uint32_t>((sizeof(RecordOf) + unit - 1) / unit * unit);
    }

    static void run(CallRecord* record, Action action)
    {
        auto* self = static_cast<RecordOf*>(record);
        // The call leaves the queue first: delivering it may run the queue again.
        struct Destroy
        {
            Call& m_call;
            ~Destroy() { m_call.~Call(); }
        } destroy{self->m_call};
        if (action == Deliver)
            self->m_call.deliver();
    }

    union
    {
        Call m_call;
    };
    ~RecordOf() {}
};

/// Carries a call whose move may throw, or that is too large for a chunk.
template <class Call>
struct BoxedCall
{
    std::unique_ptr<Call> m_call;
    void deliver() { m_call->deliver(); }
};

template <class Call>
inline constexpr bool fitsChunk = std::is_nothrow_move_constructible_v<Call> && sizeof(Call) <= 1024
                                  && alignof(Call) <= alignof(std::max_align_t);

} // namespace detail
} // namespace TROV
