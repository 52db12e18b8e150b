#pragma once

#include "voxi2/controls/textbrowservalues.h"
#include "voxi2/controls/textsearch.h"
#include "voxi2/controls/vxwebbrowserevents2.h"
#include "voxi2/controls/webvalues.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/icon.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace VOXI {

struct VXWebBrowser2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    // Where to
    TROV::Request<void(std::wstring)> setAddress{*this};
    TROV::Request<std::wstring()> getAddress{*this};
    TROV::Request<void(std::wstring, std::wstring)> setHtml{*this};
    TROV::Request<void()> goBack{*this};
    TROV::Request<void()> goForward{*this};
    TROV::Request<void()> reload{*this};
    TROV::Request<void()> stop{*this};
    TROV::Request<bool()> isBackAvailable{*this};
    TROV::Request<bool()> isForwardAvailable{*this};

    // What pages may
    TROV::Request<void(bool)> setNetworkAccess{*this};
    TROV::Request<bool()> hasNetworkAccess{*this};
    TROV::Request<void(std::vector<std::filesystem::path>)> setFilePath{*this};
    TROV::Request<std::vector<std::filesystem::path>()> getFilePath{*this};
    TROV::Request<void(bool)> setScriptsEnabled{*this};
    TROV::Request<bool()> areScriptsEnabled{*this};
    TROV::Request<void(std::wstring)> setProfile{*this};
    TROV::Request<std::wstring()> getProfile{*this};
    TROV::Request<void(unsigned, WebContent)> answerContent{*this};
    TROV::Request<void(unsigned)> cancelDownload{*this};

    // The page
    TROV::Request<std::wstring()> getTitle{*this};
    TROV::Request<Icon()> getIcon{*this};
    TROV::Request<int()> getProgress{*this};
    TROV::Request<bool()> isLoading{*this};
    TROV::Request<bool()> hasCrashed{*this};
    TROV::Request<bool()> hasEngine{*this};
    TROV::Request<void(int)> setZoom{*this};
    TROV::Request<int()> getZoom{*this};
    TROV::Request<void(std::wstring)> setUserStyle{*this};
    TROV::Request<std::wstring()> getUserStyle{*this};
    TROV::Request<void(TextSearch)> find{*this};
    TROV::Request<std::wstring()> getSelectedText{*this};
    TROV::Request<void()> selectAll{*this};
    TROV::Request<void()> clearSelection{*this};
    TROV::Request<void()> copy{*this};
    TROV::Request<WebTarget()> getTarget{*this};
    TROV::Request<WebScriptResult(std::wstring, int)> evaluate{*this};
    TROV::Request<void(std::wstring, int, WebScriptReply)> evaluateLater{*this};
    TROV::Request<void(std::wstring)> postMessage{*this};
    TROV::Request<void(std::filesystem::path, PaperSize)> printToPdf{*this};
    TROV::Request<void(std::wstring)> activateLink{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXWebContentEvent2&)> contentRequested{*this};
    TROV::Event<void(const VXWebNavigationEvent2&)> navigating{*this};
    TROV::Event<void(const VXWebWindowEvent2&)> windowRequested{*this};
    TROV::Event<void(const VXWebDownloadEvent2&)> downloadRequested{*this};
    TROV::Event<void(const VXWebDownloadProgressEvent2&)> downloadProgressed{*this};
    TROV::Event<void(const VXWebDownloadEndEvent2&)> downloadEnded{*this};
    TROV::Event<void(const VXWebAddressEvent2&)> addressChanged{*this};
    TROV::Event<void(const VXWebTitleEvent2&)> titleChanged{*this};
    TROV::Event<void(const VXWebIconEvent2&)> iconChanged{*this};
    TROV::Event<void(const VXWebLoadEvent2&)> loadProgressed{*this};
    TROV::Event<void(const VXWebLoadEndEvent2&)> loadEnded{*this};
    TROV::Event<void(const VXWebHoverEvent2&)> linkHovered{*this};
    TROV::Event<void(const VXWebSelectionEvent2&)> selectionChanged{*this};
    TROV::Event<void(const VXWebZoomEvent2&)> zoomChanged{*this};
    TROV::Event<void(const VXWebFindEvent2&)> found{*this};
    TROV::Event<void(const VXWebMessageEvent2&)> messageReceived{*this};
    TROV::Event<void(const VXWebPdfEvent2&)> pdfPrinted{*this};
    TROV::Event<void(const VXWebCrashEvent2&)> crashed{*this};
};

/// Shows pages of the web, with scripts and all.
///
/// Where its engine is installed it is loaded when the first browser goes somewhere; programs that
/// have none never load it. Where it is not, pages are shown as a text browser does: without
/// scripts, messages and downloads. `hasEngine` tells.
///
/// **What pages may.** By themselves nothing but what the program gives them:
///
/// - pages of the program, "app://anything/page.html", for which it is asked (`contentRequested`);
///   `addScheme` has it asked for other schemes, too,
/// - files, in the folders of `setFilePath` and what the program itself goes to, with its folder,
///   as in a text browser,
/// - resources that are part of the program ("qrc:/..."), and what a page holds itself ("data:").
///
/// Nothing that is loaded reaches a network before `setNetworkAccess`: no page, picture, script,
/// redirection or socket. Then all pages may go anywhere that these names lead to. The cameras, the
/// microphones, the place where the computer is and the like are never given away.
///
/// **One way stays open** to a script that means to get out: within an empty frame or window of its
/// own making it can open a call (`RTCPeerConnection`) over a TCP connection to a computer of its
/// choice, and say there what it knows. The engine has no switch for that. Pages of strangers that
/// must not get out should be shown without scripts (`setScriptsEnabled`).
///
/// **Who is told what.** The engine lives in a process of its own and answers later. Getters answer
/// at once from what is known; what comes is told by events, whoever has caused it: a program
/// cannot know otherwise. It never hears of an address, a zoom or a selection that it has set
/// itself. Handlers are called when the engine has returned, and may wait for anything, but for
/// `navigating` and `downloadRequested`, which the engine waits for: while they run no page goes
/// on, so that `evaluate` has no answer there.
///
/// The context menu that the browser has by itself makes way for handlers of
/// `contextMenuRequested`; `target` tells what it was asked for on.
class VOXI2_EXPORT VXWebBrowser2 : public VXWidget2
{
public:
    using ToolkitClass = VXWebBrowser2;

    explicit VXWebBrowser2(VXObject2* parent = nullptr);
    ~VXWebBrowser2() override;

    /// Has the program asked for pages of that scheme ("help": "help://place/page.html") as for
    /// those of "app". False where it is no name for one, belongs to the web, or where a browser
    /// has gone somewhere already. Any thread.
    static bool addScheme(std::string_view name);
    /// For back ends: all there are, lower case; no more can be added.
    static const std::vector<std::string>& fixedSchemes();

    // Where to

    /// Goes there; an address without a scheme is a file's. Where it must not go the browser stays
    /// where it is, and says so.
    void setAddress(const AnyText& address);
    /// Of the page that is shown, or that was asked for last and is to come; empty at first.
    std::wstring address() const;
    /// Shows a text; what it refers to is meant from `base`, which becomes its address. Texts of
    /// more than a megabyte have the rights of `base` only where that is the program's.
    void setHtml(const AnyText& html, const AnyText& base = {});
    /// Do nothing where there is no such page.
    void goBack();
    void goForward();
    /// Asks for the page once more; brings back one that has crashed.
    void reload();
    void stop();
    bool isBackAvailable() const;
    bool isForwardAvailable() const;

    // What pages may

    /// Whether pages may use the network; not at first. Holds from now on for all that is asked
    /// for.
    void setNetworkAccess(bool access);
    bool hasNetworkAccess() const;
    /// The folders that pages may read files of, with all that is below; none at first.
    void setFilePath(const std::vector<std::filesystem::path>& folders);
    std::vector<std::filesystem::path> filePath() const;
    /// Whether pages may run scripts; at first they may. Holds from the next page on. Without them
    /// there is no `evaluate`, no message and no user style.
    void setScriptsEnabled(bool enabled);
    bool areScriptsEnabled() const;
    /// Where the browser keeps cookies and the like. Empty, as at first: in memory, of its own, and
    /// gone with it. Browsers of one name share them on disk. A page that is shown is left and
    /// loaded anew, without the pages before it. Letters, digits, "-" and "_"; others are ignored.
    void setProfile(const AnyText& name);
    std::wstring profile() const;
    /// Does nothing for one that is over.
    void cancelDownload(unsigned id);

    // The page

    /// Empty where it has none.
    std::wstring title() const;
    /// Null where it has none.
    Icon icon() const;
    /// Of what is loaded, in percent; 100 when it is there.
    int progress() const;
    bool isLoading() const;
    /// Whether its process has ended; until it goes somewhere or is loaded again.
    bool hasCrashed() const;
    /// False where pages are shown as a text browser does; also before the browser goes anywhere.
    bool hasEngine() const;

    /// In percent; 100 at first, within 25 and 500.
    void setZoom(int percent);
    int zoom() const;
    /// CSS that all pages are shown with, at once and from now on.
    void setUserStyle(const AnyText& css);
    std::wstring userStyle() const;

    /// Selects the next place where it stands and marks the others; `found` tells how many there
    /// are. An empty text ends that. Whole words and expressions are searched for as plain texts by
    /// the engine.
    void find(const TextSearch& search);
    std::wstring selectedText() const;
    void selectAll();
    void clearSelection();
    /// Puts the selection on the clipboard.
    void copy();
    /// What the last context menu was asked for on.
    WebTarget target() const;

    /// Runs a script in the page and waits for its result: on the toolkit's thread in a loop of its
    /// own without the user's input, on others as for any answer. At most for `limit`, which is cut
    /// to an hour; a page that never comes to an end does not come to this one either.
    WebScriptResult evaluate(const AnyText& script,
                             std::chrono::milliseconds limit = std::chrono::seconds(10)) const;
    /// The same without waiting: `receiver` is called once, on this thread, whose loop must run.
    /// The browser may have gone by then: it is told so.
    void evaluateLater(const AnyText& script, std::function<void(const WebScriptResult&)> receiver,
                       std::chrono::milliseconds limit = std::chrono::seconds(10));

    /// Hands the page a text. It reads them by `voxi.onmessage = function(text) { ... }`, those
    /// that came before that as well, and answers by `voxi.send(text)`.
    void postMessage(const AnyText& text);

    /// Writes the page into a file, of UTF-8 name; `pdfPrinted` tells when it is there. Where it
    /// cannot be written a file that was there stays.
    void printToPdf(const std::filesystem::path& file, const PaperSize& paper = {});

    /// Goes there as if the user had followed a link: asked and reported.
    void imitateLink(const AnyText& target);

    // Events

    /// A page of the program is needed, or what belongs to one. Answers are taken from any thread.
    TROV::Signal<void(const VXWebContentEvent2&)> contentRequested() const
    {
        return m_emitters.contentRequested.signal();
    }
    /// The user or the page goes somewhere; sent before, as a handler may refuse it or go
    /// elsewhere.
    TROV::Signal<void(const VXWebNavigationEvent2&)> navigating() const
    {
        return m_emitters.navigating.signal();
    }
    /// A window of its own is asked for; without a handler nothing comes of it.
    TROV::Signal<void(const VXWebWindowEvent2&)> windowRequested() const
    {
        return m_emitters.windowRequested.signal();
    }
    /// Something is offered for download; without a handler that accepts it, it is refused.
    TROV::Signal<void(const VXWebDownloadEvent2&)> downloadRequested() const
    {
        return m_emitters.downloadRequested.signal();
    }
    TROV::Signal<void(const VXWebDownloadProgressEvent2&)> downloadProgressed() const
    {
        return m_emitters.downloadProgressed.signal();
    }
    TROV::Signal<void(const VXWebDownloadEndEvent2&)> downloadEnded() const
    {
        return m_emitters.downloadEnded.signal();
    }
    /// The browser is somewhere else than the program has sent it to: a link, a step in the
    /// history, a redirection.
    TROV::Signal<void(const VXWebAddressEvent2&)> addressChanged() const
    {
        return m_emitters.addressChanged.signal();
    }
    TROV::Signal<void(const VXWebTitleEvent2&)> titleChanged() const
    {
        return m_emitters.titleChanged.signal();
    }
    TROV::Signal<void(const VXWebIconEvent2&)> iconChanged() const
    {
        return m_emitters.iconChanged.signal();
    }
    /// Sent with 0 when a page begins to load, and as it goes on.
    TROV::Signal<void(const VXWebLoadEvent2&)> loadProgressed() const
    {
        return m_emitters.loadProgressed.signal();
    }
    TROV::Signal<void(const VXWebLoadEndEvent2&)> loadEnded() const
    {
        return m_emitters.loadEnded.signal();
    }
    TROV::Signal<void(const VXWebHoverEvent2&)> linkHovered() const
    {
        return m_emitters.linkHovered.signal();
    }
    /// Sent for what comes of keys and the pointer.
    TROV::Signal<void(const VXWebSelectionEvent2&)> selectionChanged() const
    {
        return m_emitters.selectionChanged.signal();
    }
    /// The user has turned the wheel with Ctrl held.
    TROV::Signal<void(const VXWebZoomEvent2&)> zoomChanged() const
    {
        return m_emitters.zoomChanged.signal();
    }
    TROV::Signal<void(const VXWebFindEvent2&)> found() const { return m_emitters.found.signal(); }
    TROV::Signal<void(const VXWebMessageEvent2&)> messageReceived() const
    {
        return m_emitters.messageReceived.signal();
    }
    TROV::Signal<void(const VXWebPdfEvent2&)> pdfPrinted() const
    {
        return m_emitters.pdfPrinted.signal();
    }
    TROV::Signal<void(const VXWebCrashEvent2&)> crashed() const
    {
        return m_emitters.crashed.signal();
    }

private:
    friend class WebQuery2;

    static void takeAnswer(unsigned browser, unsigned token, WebContent content) noexcept;

    VXWebBrowser2Emitters m_emitters;
};

} // namespace VOXI
