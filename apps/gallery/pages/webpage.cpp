#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxprogressbar2.h"
#include "voxi2/controls/vxwebbrowser2.h"

#include <chrono>
#include <map>
#include <string>

namespace gallery {

using namespace VOXI;

namespace {

constexpr const char* Home = "app://gallery/index.html";

/// Pages that the program answers for when it is asked.
const std::map<std::wstring, std::string>& pages()
{
    static const std::map<std::wstring, std::string> all = {
        {L"app://gallery/index.html", R"html(<!doctype html><title>Pages of the program</title>
<link rel="stylesheet" href="look.css">
<h1>Pages of the program</h1>
<p>This page, its style sheet and its drawing come from the program, which is asked for each of
them. Nothing else reaches it: there is no network unless the program allows one.</p>
<p><img src="wave.svg" width="420" height="70" alt="a wave"></p>
<p><button onclick="voxi.send('the page greets the program')">Greet the program</button>
<span id="said">The program has said nothing yet.</span></p>
<ul><li><a href="second.html">Another page</a></li>
<li><a href="https://example.org/">One that leads nowhere from here</a></li>
<li><a href="second.html" target="_blank">A window of its own, which opens here</a></li></ul>
<script>voxi.onmessage = text => document.getElementById('said').textContent = text</script>)html"},
        {L"app://gallery/second.html", R"html(<!doctype html><title>Another page</title>
<link rel="stylesheet" href="look.css"><h1>Another page</h1>
<p><a href="index.html">Back to the first</a></p>)html"},
        {L"app://gallery/look.css",
         "body { font: 15px sans-serif; margin: 24px; background: #fcfcfa; color: #20242c }"
         "h1 { color: #24508c; font-size: 24px } img { background: #d6e4f4 }"},
        {L"app://gallery/wave.svg",
         "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 420 70'><path fill='none' "
         "stroke='#249648' stroke-width='4' d='M0 35 Q 35 -25 70 35 T 140 35 T 210 35 T 280 35 "
         "T 350 35 T 420 35'/></svg>"},
    };
    return all;
}

std::string typeOf(const std::wstring& address)
{
    if (address.ends_with(L".css"))
        return "text/css";
    return address.ends_with(L".svg") ? "image/svg+xml" : "text/html";
}

/// A browser with a line for the address, and buttons.
class WebPanel : public VXPanel2
{
public:
    WebPanel(VXObject2* parent, EventLog& log)
        : VXPanel2(parent),
          m_page{this, new VXBoxLayout2(this, Direction::TopToBottom)},
          m_log(log)
    {
        m_page.layout->setMargins({0, 0, 0, 0});
        const Box line = row(m_page);
        command(line, "Back", [this] { m_browser->goBack(); });
        command(line, "Forward", [this] { m_browser->goForward(); });
        command(line, "Reload", [this] { m_browser->reload(); });
        command(line, "Stop", [this] { m_browser->stop(); });
        m_address = new VXEdit2(line.panel);
        m_address->setAccessibleName("Address");
        m_address->setObjectName("address");
        line.layout->addWidget(m_address, 1);
        command(line, "Say", [this] { m_browser->postMessage("The program says hello."); });
        m_progress = new VXProgressBar2(this);
        m_progress->setAccessibleName("Loaded");
        m_page.layout->addWidget(m_progress);
        m_browser = new VXWebBrowser2(this);
        m_browser->setAccessibleName("Page");
        m_browser->setObjectName("web");
        m_page.layout->addWidget(m_browser, 1);
        connectBrowser();
        shown().connect(this, [this] {
            if (m_browser->address().empty())
                go(Home);
        });
    }

    /// Until the page has been drawn: it is asked for the third of its frames.
    void settle()
    {
        using Clock = std::chrono::steady_clock;
        constexpr const char* IsDrawn = R"js(
            window.voxiDrawn = window.voxiDrawn || {left: 3, next() {
                if (--this.left > 0)
                    requestAnimationFrame(() => this.next());
            }, begun: requestAnimationFrame(() => window.voxiDrawn.next())};
            window.voxiDrawn.left === 0)js";
        if (m_browser->address().empty())
            go(Home);
        const auto end = Clock::now() + std::chrono::seconds(10);
        WebScriptResult drawn;
        do
            drawn = m_browser->evaluate(IsDrawn);
        while (drawn.outcome == WebScriptResult::Outcome::Done && drawn.value != L"true"
               && Clock::now() < end);
    }

private:
    void go(const AnyText& address)
    {
        m_browser->setAddress(address);
        m_address->setText(m_browser->address());
    }

    void connectBrowser()
    {
        m_browser->contentRequested().connect(this, [](const VXWebContentEvent2& event) {
            if (const auto page = pages().find(event.address()); page != pages().end())
                event.answer({page->second, typeOf(event.address())});
        });
        m_browser->windowRequested().connect(
            this, [this](const VXWebWindowEvent2& event) { go(event.address()); });
        m_browser->addressChanged().connect(
            this, [this](const VXWebAddressEvent2& event) { m_address->setText(event.address()); });
        m_browser->loadProgressed().connect(
            this, [this](const VXWebLoadEvent2& event) { m_progress->setValue(event.progress()); });
        m_browser->loadEnded().connect(this, [this](const VXWebLoadEndEvent2& event) {
            m_progress->setValue(100);
            m_log.add(event.isComplete() ? "loaded: " + narrowFromWide(m_browser->title())
                                         : "not loaded");
        });
        m_browser->messageReceived().connect(this, [this](const VXWebMessageEvent2& event) {
            m_log.add("page: " + narrowFromWide(event.text()));
        });
        m_address->returnPressed().connect(this, [this] { go(m_address->textU()); });
    }

    Box m_page;
    EventLog& m_log;
    VXEdit2* m_address = nullptr;
    VXProgressBar2* m_progress = nullptr;
    VXWebBrowser2* m_browser = nullptr;
};

} // namespace

Page webPage()
{
    return {.name = "web",
            .title = "Web pages",
            .summary = "Pages with scripts, which the program answers for itself. The engine is "
                       "loaded when this page is opened first.",
            .create = [](VXObject2* parent, EventLog& log) -> VXWidget2* {
                return new WebPanel(parent, log);
            },
            .settle = [](VXWidget2* made) { static_cast<WebPanel*>(made)->settle(); }};
}

} // namespace gallery
