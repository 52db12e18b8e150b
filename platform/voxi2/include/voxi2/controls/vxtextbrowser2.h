#pragma once

#include "voxi2/controls/textbrowservalues.h"
#include "voxi2/controls/texteditvalues.h"
#include "voxi2/controls/textresource.h"
#include "voxi2/controls/vxtextbrowserevents2.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/vxmimedata2.h"

#include <atomic>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace VOXI {

struct VXTextBrowser2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(std::string)> setSrc{*this};
    TROV::Request<void(std::string, std::string)> setExtensionType{*this};
    TROV::Request<void(std::string)> setText{*this};
    TROV::Request<void(std::wstring)> setTextU{*this};
    TROV::Request<std::string()> getText{*this};
    TROV::Request<std::wstring()> getTextU{*this};
    TROV::Request<std::string()> getSource{*this};
    TROV::Request<void()> reload{*this};
    TROV::Request<void(int)> setCurrentBuffer{*this};
    TROV::Request<int()> getCurrentBuffer{*this};
    TROV::Request<void(std::vector<std::string>)> setBuffer{*this};
    TROV::Request<std::vector<std::string>()> getBuffer{*this};
    TROV::Request<void(std::vector<std::string>)> setFilePath{*this};
    TROV::Request<std::vector<std::string>()> getFilePath{*this};
    TROV::Request<void()> showToolBar{*this};
    TROV::Request<void()> hideToolBar{*this};
    TROV::Request<bool()> isToolBarVisible{*this};
    TROV::Request<void(std::wstring)> setSrcU{*this};
    TROV::Request<std::wstring()> getSourceU{*this};
    TROV::Request<void(std::vector<std::wstring>)> setBufferU{*this};
    TROV::Request<std::vector<std::wstring>()> getBufferU{*this};
    TROV::Request<std::wstring()> getTitle{*this};
    TROV::Request<void(unsigned, TextResource)> answerResource{*this};

    // History
    TROV::Request<void()> goBack{*this};
    TROV::Request<void()> goForward{*this};
    TROV::Request<void()> goHome{*this};
    TROV::Request<bool()> isBackAvailable{*this};
    TROV::Request<bool()> isForwardAvailable{*this};
    TROV::Request<std::vector<PageVisit>()> getHistory{*this};
    TROV::Request<int()> getHistoryPlace{*this};
    TROV::Request<void(int)> setHistoryPlace{*this};
    TROV::Request<void()> clearHistory{*this};

    // The page
    TROV::Request<bool(PageSearch)> find{*this};
    TROV::Request<void(std::wstring)> scrollToAnchor{*this};
    TROV::Request<void(int)> setZoom{*this};
    TROV::Request<int()> getZoom{*this};
    TROV::Request<void(TextRange)> setSelection{*this};
    TROV::Request<TextRange()> getSelection{*this};
    TROV::Request<std::wstring()> getSelectedText{*this};
    TROV::Request<VXMimeData2()> getSelectedData{*this};
    TROV::Request<void()> selectAll{*this};
    TROV::Request<void()> copy{*this};
    TROV::Request<bool(std::filesystem::path, PaperSize)> printToPdf{*this};
    TROV::Request<void(std::wstring)> activateLink{*this};
    TROV::Request<void()> pressBack{*this};
    TROV::Request<void()> pressForward{*this};
    TROV::Request<void()> pressHome{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXTextBrowserTopEvent2&)> alwaysOnTop{*this};
    TROV::Event<void(const VXTextResourceEvent2&)> resourceRequested{*this};
    TROV::Event<void(const VXTextBrowserLinkEvent2&)> linkActivated{*this};
    TROV::Event<void(const VXTextBrowserHoverEvent2&)> linkHovered{*this};
    TROV::Event<void(const VXTextBrowserSourceEvent2&)> sourceChanged{*this};
    TROV::Event<void(const VXTextBrowserTitleEvent2&)> titleChanged{*this};
    TROV::Event<void(const VXTextBrowserHistoryEvent2&)> historyChanged{*this};
    TROV::Event<void(const VXTextBrowserSelectionEvent2&)> selectionChanged{*this};
    TROV::Event<void(const VXTextBrowserZoomEvent2&)> zoomChanged{*this};
};

/// Shows pages of rich text, with buttons above them to go back, forward and home.
///
/// A page is a *buffer*, a text that the program hands over and that is named "buffer://1" and so
/// on; or it is what the program answers when it is asked (`resourceRequested`); or a file. Links
/// to "kestra:" and "ddgrefresh:" are never followed: they are for the program, which hears of them
/// by `linkActivated`.
///
/// Nothing is ever fetched from a network, and of files only
///
/// - those in the folders of `setFilePath`, with all that is below them,
/// - a file that the program itself names by `setSource`, and what is in its folder and below,
/// - resources that are part of the program (":/..." or "qrc:/...").
///
/// That counts for where a file really is: a symbolic link that leads out of these folders, like
/// "..", leads to nothing. Drawings that refer to anything outside of themselves are not shown.
///
/// Keys, buttons and the wheel are reported where the page has no use for them; the context menu
/// that the browser has by itself makes way for handlers of `contextMenuRequested`.
class VOXI2_EXPORT VXTextBrowser2 : public VXWidget2
{
public:
    using ToolkitClass = VXTextBrowser2;

    explicit VXTextBrowser2(VXObject2* parent = nullptr);
    explicit VXTextBrowser2(const AnyText& text, VXObject2* parent = nullptr);
    ~VXTextBrowser2() override;

    /// Goes to a page: "buffer://2", "help:index.html#top", a file. Throws `std::out_of_range`
    /// where it names a buffer that there is not. Where the program answers later for the page, the
    /// browser stays where it is until then.
    void setSource(const AnyText& source);
    /// Of the page that is shown, as it was set; empty at first.
    std::string source() const;
    std::wstring sourceU() const;
    /// Has no effect.
    void setExtensionType(const std::string& extension, const std::string& type);

    /// Shows a text in place of the page: rich where it looks like it. The source stays.
    void setText(const AnyText& text);
    /// As plain text.
    std::string text() const;
    std::wstring textU() const;
    /// The page's own; empty where it has none.
    std::wstring title() const;
    /// Asks for the page once more.
    void reload();

    /// The texts that are shown as "buffer://1", "buffer://2" ..., rich where they look like it.
    /// What is shown stays until it is gone to.
    void setBuffers(const std::vector<std::string>& texts);
    void setBuffersU(const std::vector<std::wstring>& texts);
    std::vector<std::string> buffers() const;
    std::vector<std::wstring> buffersU() const;
    /// Shows a buffer, counted from 1. Throws `std::out_of_range` where there is no such one.
    void setCurrentBuffer(int number);
    /// The one that was gone to last, also where other pages are shown by now; -1 at first.
    int currentBuffer() const;

    /// The folders where files are looked for, in that order, and which pages may read; none at
    /// first. In the encoding of texts.
    void setFilePath(const std::vector<std::string>& folders);
    std::vector<std::string> filePath() const;

    /// The bar of buttons; shown at first.
    void showToolBar();
    void hideToolBar();
    /// Whether it is not hidden.
    bool isToolBarVisible() const;

    // History

    /// Do nothing where there is no such page. Home is the first page that was gone to.
    void goBack();
    void goForward();
    void goHome();
    bool isBackAvailable() const;
    bool isForwardAvailable() const;
    /// The oldest first.
    std::vector<PageVisit> history() const;
    /// Which of them is shown, counted from 0; -1 where there are none.
    int historyPlace() const;
    /// Goes to one of them, as by many steps; others than there are do nothing.
    void setHistoryPlace(int place);
    /// Forgets all but the page that is shown, which is home from now on.
    void clearHistory();

    // The page

    /// Selects the next place where the text stands; false, and all as it was, where it does not.
    bool find(const PageSearch& search);
    /// To where the page has a name; does nothing where it has not.
    void scrollToAnchor(const AnyText& name);
    /// The size of texts that have none of their own, in percent of the font's: 100 at first,
    /// within 10 and 1000.
    void setZoom(int percent);
    int zoom() const;

    /// In characters of `textU()`; positions that are out of it stand for its nearest end.
    void setSelection(const TextRange& range);
    TextRange selection() const;
    std::wstring selectedText() const;
    /// The selection as it is copied: plain, as HTML, as an office document.
    VXMimeData2 selectedData() const;
    void selectAll();
    /// Puts the selection on the clipboard.
    void copy();

    /// Writes the page into a file, of UTF-8 name, at its own size; false where that cannot be, and
    /// then a file that was there stays. Pictures that have not been answered for are missing.
    bool printToPdf(const std::filesystem::path& file, const PaperSize& paper = {});

    // As if the user had done it: reported

    /// Follows a link, whether the page has it or not.
    void imitateLink(const AnyText& target);
    void imitateBack();
    void imitateForward();
    void imitateHome();

    // Events

    /// A page, a picture or a style sheet is needed; sent at once for pages, with the next turn for
    /// what belongs to them, whoever has gone there. Answers are taken from any thread; late ones
    /// have the page laid out again.
    TROV::Signal<void(const VXTextResourceEvent2&)> resourceRequested() const
    {
        return m_emitters.resourceRequested.signal();
    }
    /// The user follows a link; sent before, as a handler may refuse it or go elsewhere.
    TROV::Signal<void(const VXTextBrowserLinkEvent2&)> linkActivated() const
    {
        return m_emitters.linkActivated.signal();
    }
    /// The pointer has come on a link, or left it.
    TROV::Signal<void(const VXTextBrowserHoverEvent2&)> linkHovered() const
    {
        return m_emitters.linkHovered.signal();
    }
    /// The user has gone to another page, which is shown by now.
    TROV::Signal<void(const VXTextBrowserSourceEvent2&)> sourceChanged() const
    {
        return m_emitters.sourceChanged.signal();
    }
    /// Sent behind `sourceChanged`.
    TROV::Signal<void(const VXTextBrowserTitleEvent2&)> titleChanged() const
    {
        return m_emitters.titleChanged.signal();
    }
    /// The user has gone somewhere, back or forward.
    TROV::Signal<void(const VXTextBrowserHistoryEvent2&)> historyChanged() const
    {
        return m_emitters.historyChanged.signal();
    }
    /// The user has selected something else, or nothing.
    TROV::Signal<void(const VXTextBrowserSelectionEvent2&)> selectionChanged() const
    {
        return m_emitters.selectionChanged.signal();
    }
    /// The user has turned the wheel with Ctrl held.
    TROV::Signal<void(const VXTextBrowserZoomEvent2&)> zoomChanged() const
    {
        return m_emitters.zoomChanged.signal();
    }
    /// A host of the back end asks for the browser to stay above other windows, or not to.
    TROV::Signal<void(const VXTextBrowserTopEvent2&)> alwaysOnTop() const
    {
        return m_emitters.alwaysOnTop.signal();
    }

private:
    friend class TextResourceQuery2;

    static void takeAnswer(unsigned browser, unsigned token, TextResource resource) noexcept;
    void checkBuffer(long long number) const;

    VXTextBrowser2Emitters m_emitters;
    std::atomic<std::size_t> m_bufferCount{0};
};

} // namespace VOXI
