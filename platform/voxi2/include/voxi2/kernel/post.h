#pragma once

#include "trov/thread.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2/voxi2_export.h"

#include <type_traits>
#include <utility>

namespace VOXI {

/// The toolkit's thread: the one whose event loop serves what the calling thread makes. Null while
/// no back end is up.
VOXI2_EXPORT TROV::Thread* toolkitThread() noexcept;

/// Has `function` called on the toolkit's thread, by its event loop, from whatever thread: in the
/// order of posting, never from in here, and behind what this thread has set before. False, and the
/// function is not kept, while no back end is up. What it throws goes to
/// `TROV::Thread::setExceptionHandler`'s handler. See `TROV::Timer` for later, and `TROV::Task` for
/// work whose result comes back.
///
///     post([rows = std::move(rows)] { showRows(rows); });
template <class Function>
bool post(Function function) requires std::is_invocable_v<Function&>
{
    TROV::Thread* const thread = toolkitThread();
    if (thread)
        thread->post(std::move(function));
    return thread != nullptr;
}

/// The same, with the object that it is about, as a `T&` or without: not called when that has ended
/// by then.
///
///     post(page, [rows](Page& page) { page.show(rows); });
template <class T, class Function>
bool post(VXHandle<T> object, Function function)
{
    return post([object, called = std::move(function)]() mutable {
        object.with([&called](T& target) {
            if constexpr (std::is_invocable_v<Function&, T&>)
                called(target);
            else
                called();
        });
    });
}
template <class T, class Function>
bool post(T* object, Function function)
{
    return post(VXHandle<T>(object), std::move(function));
}

} // namespace VOXI
