#pragma once

#include "voxi2/controls/notification.h"
#include "voxi2/kernel/vxevent2.h"

#include <string>

namespace VOXI {

class VXNotificationBar2;

/// What all events of a notification bar have.
template <class... Values>
class VXNotificationEventOf2 : public VXEvent2<VXNotificationBar2, unsigned, Values...>
{
public:
    using VXEvent2<VXNotificationBar2, unsigned, Values...>::VXEvent2;
    VXNotificationBar2* bar() const noexcept { return this->sender(); }
    /// The number that the program has given the notification; 0 for none.
    unsigned uid() const noexcept { return this->value(); }
};

/// The user has clicked one of a notification's buttons.
class VXNotificationButtonEvent2 : public VXNotificationEventOf2<int>
{
public:
    using VXNotificationEventOf2::VXNotificationEventOf2;
    int buttonId() const noexcept { return value<1>(); }
};

/// The user has followed a link in a notification. Nothing is opened by that.
class VXNotificationLinkEvent2 : public VXNotificationEventOf2<std::wstring>
{
public:
    using VXNotificationEventOf2::VXNotificationEventOf2;
    /// What the link's `href` says.
    const std::wstring& target() const noexcept { return value<1>(); }
};

/// The user has dismissed a notification, or its time is up.
class VXNotificationEndEvent2 : public VXNotificationEventOf2<NotificationEnd>
{
public:
    using VXNotificationEventOf2::VXNotificationEventOf2;
    NotificationEnd how() const noexcept { return value<1>(); }
};

} // namespace VOXI
