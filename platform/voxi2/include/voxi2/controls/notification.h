#pragma once

#include "voxi_util/icon.h"

#include <string>
#include <vector>

namespace VOXI {

/// What a notification is about; its colour and its icon say so.
enum class NotificationKind : int { Information, Success, Warning, Error };

/// What becomes of a notification that comes while another one is shown.
enum class NotificationArrival : int {
    Waits,   ///< until those before it are dismissed
    Replaces ///< takes the place of the one that is shown; those that wait go on waiting
};

/// How a notification was dismissed without the program.
enum class NotificationEnd : int { ByButton, ByCloseButton, TimedOut };

/// What a notification lets its reader do.
struct NotificationButton
{
    std::wstring text{}; ///< with `&` before the mnemonic
    int id = 0;          ///< by which the program knows it
    bool dismisses = true;

    friend bool operator==(const NotificationButton&, const NotificationButton&) = default;
};

/// What a notification bar shows.
struct Notification
{
    std::wstring text{};
    NotificationKind kind = NotificationKind::Information;
    bool isRichText = false; ///< whether markup in the text is shown as what it means
    Icon icon{};             ///< in place of the kind's
    std::vector<NotificationButton> buttons{};
    bool isClosable = true; ///< whether it has a close button
    int timeout = 0;        ///< in milliseconds; 0 or less: it stays
    unsigned uid = 0;       ///< a number by which the program finds it again; 0 for none

    friend bool operator==(const Notification&, const Notification&) = default;
};

} // namespace VOXI
