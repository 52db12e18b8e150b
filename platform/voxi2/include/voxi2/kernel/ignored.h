#pragma once

#include "voxi2/voxi2_export.h"

#include <atomic>
#include <functional>
#include <source_location>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace VOXI {

class VXObject;

/// Gets a line for each request that is ignored because it cannot be meant: which object was asked
/// for what, and why nothing happens: `ignored: Action 7 "save": setAccelerator: nobody understands
/// "Ctrl-S"`.
///
/// Requests to objects that have ended, or by handles of such, are no mistakes and not told.
using IgnoredHandler = std::function<void(const std::string& line)>;

/// Sets who gets these lines, on whatever thread a request is ignored, maybe under the object lock:
/// it had better not ask the toolkit for anything, and is not told what is ignored while it runs.
/// An empty one ends that. Without a handler they go to stderr where the environment has
/// `VOXI_LOG=1`, and else nowhere; then they cost nothing. Any thread.
VOXI2_EXPORT void setIgnoredHandler(IgnoredHandler handler);

// For back ends -----------------------------------------------------------------------------------

/// From which function something was called: a default argument says so of its caller.
#ifdef __cpp_lib_source_location
using CallPlace = std::source_location;
#else
struct CallPlace
{
    const char* m_function;

    static constexpr CallPlace current(const char* function = __builtin_FUNCTION()) noexcept
    {
        return {function};
    }
    constexpr const char* function_name() const noexcept { return m_function; }
};
#endif

namespace detail {

VOXI2_EXPORT extern std::atomic<bool> tellsIgnored;

VOXI2_EXPORT void tellIgnored(const VXObject* object, std::string_view why, CallPlace where);

} // namespace detail

/// What is often wrong.
namespace Reason {
inline constexpr const char* Null = "there is none given";
inline constexpr const char* NoWidget = "that is no widget, or none of this back end's";
inline constexpr const char* HoldsThis = "it lies in that one itself";
inline constexpr const char* HasLayout = "the widget has a layout already";
inline constexpr const char* NoIndex = "there is no such index";
inline constexpr const char* NotInThis = "that is not in here";
inline constexpr const char* NoNumber = "a number is not finite";
} // namespace Reason

/// Tells that a request to the object is ignored; which it is, the name of the calling function
/// says.
inline void ignored(const VXObject* object, const char* why, CallPlace where = CallPlace::current())
{
    if (detail::tellsIgnored.load(std::memory_order_relaxed)) [[unlikely]]
        detail::tellIgnored(object, why, where);
}

/// The same with a reason that is made only if somebody wants to know.
template <class Why>
requires std::is_invocable_v<Why>
void ignored(const VXObject* object, Why&& why, CallPlace where = CallPlace::current())
{
    if (detail::tellsIgnored.load(std::memory_order_relaxed)) [[unlikely]]
        detail::tellIgnored(object, std::forward<Why>(why)(), where);
}

} // namespace VOXI
