#pragma once

#include "voxi2/controls/webvalues.h"
#include "voxi2/kernel/vxevent2.h"

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

namespace VOXI {

class VXWebBrowser2;

/// The browser is about to go somewhere by the doing of the user or the page. All copies of an
/// event share one answer.
class VXWebNavigationEvent2
    : public VXEvent2<VXWebBrowser2, std::wstring, WebNavigation, bool, std::shared_ptr<bool>>
{
public:
    VXWebNavigationEvent2(VXWebBrowser2* browser, std::wstring address, WebNavigation kind,
                          bool isWhole)
        : VXEvent2(browser, std::move(address), kind, isWhole, std::make_shared<bool>(false))
    {}

    VXWebBrowser2* browser() const noexcept { return sender(); }
    const std::wstring& address() const noexcept { return value<0>(); }
    WebNavigation kind() const noexcept { return value<1>(); }
    /// False where it is only a frame of the page that goes there.
    bool isWholePage() const noexcept { return value<2>(); }

    /// Has the browser stay where it is. Only counts while the event is being sent.
    void refuse() const noexcept { *value<3>() = true; }
    bool isRefused() const noexcept { return *value<3>(); }
};

/// A link or a script asks for a window of its own.
class VXWebWindowEvent2 : public VXEvent2<VXWebBrowser2, std::wstring, bool>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    /// Where that one is to go: give it to another browser's `setAddress`, or to this one's.
    const std::wstring& address() const noexcept { return value<0>(); }
    /// False where a script asks without the user having done anything.
    bool isByUser() const noexcept { return value<1>(); }
};

/// A page needs something of the program: see `WebQuery2`. Without an answer there is nothing.
class VXWebContentEvent2 : public VXEvent2<VXWebBrowser2, WebQuery2>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    /// To be kept for a later answer.
    const WebQuery2& query() const noexcept { return value(); }

    const std::wstring& address() const noexcept { return query().address(); }
    void answer(WebContent content) const { query().answer(std::move(content)); }
    void refuse() const { query().refuse(); }
    void answerLater() const { query().answerLater(); }
};

/// What is known of something that is offered for download.
struct WebDownload
{
    unsigned id = 0; ///< names it in what is told of it later
    std::wstring address{};
    std::wstring name{}; ///< that the file would have, without a folder
    std::string type{};  ///< "application/zip"
    long long size = -1; ///< in bytes; -1 where it is not known
};

/// The page offers a file. All copies of an event share one answer.
class VXWebDownloadEvent2
    : public VXEvent2<VXWebBrowser2, WebDownload, std::shared_ptr<std::filesystem::path>>
{
public:
    VXWebDownloadEvent2(VXWebBrowser2* browser, WebDownload download)
        : VXEvent2(browser, std::move(download), std::make_shared<std::filesystem::path>())
    {}

    VXWebBrowser2* browser() const noexcept { return sender(); }
    const WebDownload& download() const noexcept { return value<0>(); }

    /// Has it written there, over a file that is there; otherwise there is no download. Only counts
    /// while the event is being sent.
    void accept(const std::filesystem::path& file) const { *value<1>() = file; }
    /// Empty where it is refused.
    const std::filesystem::path& file() const noexcept { return *value<1>(); }
};

/// More of a download is there.
class VXWebDownloadProgressEvent2 : public VXEvent2<VXWebBrowser2, unsigned, long long, long long>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    unsigned id() const noexcept { return value<0>(); }
    /// In bytes.
    long long received() const noexcept { return value<1>(); }
    /// -1 where it is not known.
    long long size() const noexcept { return value<2>(); }
};

/// A download is over.
class VXWebDownloadEndEvent2 : public VXEvent2<VXWebBrowser2, unsigned, WebDownloadEnd>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    unsigned id() const noexcept { return value<0>(); }
    WebDownloadEnd end() const noexcept { return value<1>(); }
};

/// The browser is somewhere else than it was sent: see `VXWebBrowser2::addressChanged`.
class VXWebAddressEvent2 : public VXEvent2<VXWebBrowser2, std::wstring>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    const std::wstring& address() const noexcept { return value(); }
};

/// The page has another title, or there is another page.
class VXWebTitleEvent2 : public VXEvent2<VXWebBrowser2, std::wstring>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    const std::wstring& title() const noexcept { return value(); }
};

/// The page has another icon, or none any more.
class VXWebIconEvent2 : public VXEvent2<VXWebBrowser2>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
};

/// A page is being loaded.
class VXWebLoadEvent2 : public VXEvent2<VXWebBrowser2, int>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    /// In percent.
    int progress() const noexcept { return value(); }
};

/// A page is there, or does not come.
class VXWebLoadEndEvent2 : public VXEvent2<VXWebBrowser2, bool>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    bool isComplete() const noexcept { return value(); }
};

/// The pointer has come on a link, or left it.
class VXWebHoverEvent2 : public VXEvent2<VXWebBrowser2, std::wstring>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    /// Empty when it has left one.
    const std::wstring& address() const noexcept { return value(); }
};

/// The user has selected another part of the page.
class VXWebSelectionEvent2 : public VXEvent2<VXWebBrowser2>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
};

/// The user has made the page larger or smaller.
class VXWebZoomEvent2 : public VXEvent2<VXWebBrowser2, int>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    int percent() const noexcept { return value(); }
};

/// The answer to `find`.
class VXWebFindEvent2 : public VXEvent2<VXWebBrowser2, WebHits>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    const WebHits& hits() const noexcept { return value(); }
};

/// The page says something to the program.
class VXWebMessageEvent2 : public VXEvent2<VXWebBrowser2, std::wstring, std::wstring>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    const std::wstring& text() const noexcept { return value<0>(); }
    /// Of the page that was shown when it came. Whoever goes to pages of others looks at it before
    /// believing a word.
    const std::wstring& address() const noexcept { return value<1>(); }
};

/// The answer to `printToPdf`.
class VXWebPdfEvent2 : public VXEvent2<VXWebBrowser2, std::filesystem::path, bool>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    const std::filesystem::path& file() const noexcept { return value<0>(); }
    bool isWritten() const noexcept { return value<1>(); }
};

/// The process that the page ran in has ended.
class VXWebCrashEvent2 : public VXEvent2<VXWebBrowser2, int>
{
public:
    using VXEvent2::VXEvent2;
    VXWebBrowser2* browser() const noexcept { return sender(); }
    /// As the system says it, or the signal.
    int exitCode() const noexcept { return value(); }
};

} // namespace VOXI
