#pragma once

#include "voxi2/controls/textresource.h"
#include "voxi2/kernel/vxevent2.h"

#include <memory>
#include <string>
#include <utility>

namespace VOXI {

class VXTextBrowser2;

/// The user follows a link of a page. All copies of an event share one answer.
class VXTextBrowserLinkEvent2 : public VXEvent2<VXTextBrowser2, std::wstring, std::shared_ptr<bool>>
{
public:
    VXTextBrowserLinkEvent2(VXTextBrowser2* browser, std::wstring target)
        : VXEvent2(browser, std::move(target), std::make_shared<bool>(false))
    {}

    VXTextBrowser2* browser() const noexcept { return sender(); }
    /// What the link leads to, absolute where the page has an address.
    const std::wstring& target() const noexcept { return value<0>(); }

    /// Has the browser stay where it is. Only counts while the event is being sent.
    void refuse() const noexcept { *value<1>() = true; }
    bool isRefused() const noexcept { return *value<1>(); }
};

/// The pointer, or the keyboard, is on another link or has left one.
class VXTextBrowserHoverEvent2 : public VXEvent2<VXTextBrowser2, std::wstring>
{
public:
    using VXEvent2::VXEvent2;
    VXTextBrowser2* browser() const noexcept { return sender(); }
    /// Empty when it has left one.
    const std::wstring& target() const noexcept { return value(); }
};

/// The user has gone to another page, or another place of the page.
class VXTextBrowserSourceEvent2 : public VXEvent2<VXTextBrowser2, std::wstring>
{
public:
    using VXEvent2::VXEvent2;
    VXTextBrowser2* browser() const noexcept { return sender(); }
    const std::wstring& source() const noexcept { return value(); }
};

/// The page that the user has gone to has another title.
class VXTextBrowserTitleEvent2 : public VXEvent2<VXTextBrowser2, std::wstring>
{
public:
    using VXEvent2::VXEvent2;
    VXTextBrowser2* browser() const noexcept { return sender(); }
    const std::wstring& title() const noexcept { return value(); }
};

/// By the user there is another history, or another place in it.
class VXTextBrowserHistoryEvent2 : public VXEvent2<VXTextBrowser2>
{
public:
    using VXEvent2::VXEvent2;
    VXTextBrowser2* browser() const noexcept { return sender(); }
};

/// The user has selected another part of the page.
class VXTextBrowserSelectionEvent2 : public VXEvent2<VXTextBrowser2>
{
public:
    using VXEvent2::VXEvent2;
    VXTextBrowser2* browser() const noexcept { return sender(); }
};

/// The user has made the text larger or smaller.
class VXTextBrowserZoomEvent2 : public VXEvent2<VXTextBrowser2, int>
{
public:
    using VXEvent2::VXEvent2;
    VXTextBrowser2* browser() const noexcept { return sender(); }
    int percent() const noexcept { return value(); }
};

/// The browser's window is to stay above others, or not any more.
class VXTextBrowserTopEvent2 : public VXEvent2<VXTextBrowser2, bool>
{
public:
    using VXEvent2::VXEvent2;
    VXTextBrowser2* browser() const noexcept { return sender(); }
    bool isOnTop() const noexcept { return value(); }
};

/// A page needs something: the program may answer, refuse, or answer later; see
/// `TextResourceQuery2`. Without any of that the browser looks among its files.
class VXTextResourceEvent2 : public VXEvent2<VXTextBrowser2, TextResourceQuery2>
{
public:
    using VXEvent2::VXEvent2;
    VXTextBrowser2* browser() const noexcept { return sender(); }
    /// To be kept for a later answer.
    const TextResourceQuery2& query() const noexcept { return value(); }

    TextResourceType type() const noexcept { return query().type(); }
    const std::wstring& url() const noexcept { return query().url(); }
    void answer(TextResource resource) const { query().answer(std::move(resource)); }
    void refuse() const { query().refuse(); }
    void answerLater() const { query().answerLater(); }
};

} // namespace VOXI
