#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxlistbox2.h"
#include "voxi2/controls/vxtextbrowser2.h"

#include <cmath>
#include <cstdint>
#include <map>
#include <numbers>
#include <string>
#include <vector>

namespace gallery {

using namespace VOXI;

namespace {

/// Pages that the program answers for when it is asked.
const std::map<std::wstring, std::string>& pages()
{
    static const std::map<std::wstring, std::string> all = {
        {L"help:/index.html",
         "<head><title>Contents</title><link rel='stylesheet' type='text/css' "
         "href='look.css'></head>"
         "<h2>Contents</h2>"
         "<p>Pages come from the program, which is asked for each of them, and for their pictures "
         "and style sheets.</p>"
         "<ul><li><a href='wave.html'>A page with a picture</a></li>"
         "<li><a href='notes.md'>A page in Markdown</a></li>"
         "<li><a href='buffer://1'>The first buffer</a></li>"
         "<li><a href='kestra:greet'>A link for the program alone</a></li>"
         "<li><a href='https://example.org/'>One that leads nowhere from here</a></li></ul>"},
        {L"help:/wave.html", "<head><title>Waves</title>"
                             "<link rel='stylesheet' type='text/css' href='look.css'></head>"
                             "<h2>Waves</h2><p>The program draws this one:</p>"
                             "<p><img src='wave.png'></p><p><a href='index.html'>Contents</a></p>"},
        {L"help:/notes.md", "# Notes\n\n- *Markdown* by the name of the page\n- a "
                            "[link](index.html) to the contents\n"},
        {L"help:/look.css", "h2 { color: #3a7cd6 } p { margin-top: 4px }"},
    };
    return all;
}

Pixmap wave()
{
    constexpr int Width = 240;
    constexpr int Height = 60;
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < Height; ++y) {
        for (int x = 0; x < Width; ++x) {
            const double height = std::sin(x * 4 * std::numbers::pi / Width) * 24;
            const bool isBelow = y > Height / 2 - height;
            pixels.push_back((isBelow ? GoodColor : PadColor).rgba());
        }
    }
    return Pixmap(Width, Height, std::move(pixels));
}

/// A viewer of help: what is shown, a field to search in it, and where the user was.
class HelpViewer : public VXPanel2
{
public:
    HelpViewer(VXObject2* parent, EventLog& log)
        : VXPanel2(parent),
          m_page{this, new VXBoxLayout2(this, Direction::TopToBottom)},
          m_log(log)
    {
        m_page.layout->setMargins({0, 0, 0, 0});
        addSearch();
        const Box both = row(m_page);
        m_browser = new VXTextBrowser2(both.panel);
        m_browser->setAccessibleName("Page");
        m_browser->setObjectName("help");
        both.layout->addWidget(m_browser, 3);
        m_visits = new VXListBox2(both.panel);
        m_visits->setAccessibleName("History");
        m_visits->setObjectName("history");
        both.layout->addWidget(m_visits, 1);
        connectBrowser();
        m_browser->setBuffers({"<title>Buffer</title><h3>A buffer</h3><p>A text that the program "
                               "has handed over, by number.</p><p><a href='buffer://2'>The "
                               "next</a>, <a href='help:/index.html'>contents</a></p>",
                               "A plain one.\n\n    As it is."});
        m_browser->setSource("help:/index.html");
        m_browser->setSource("help:/wave.html");
        showHistory();
    }

private:
    void addSearch()
    {
        const Box line = row(m_page);
        m_search = new VXEdit2(line.panel);
        m_search->setAccessibleName("Search");
        m_search->setObjectName("search");
        m_search->setPlaceholder("Find in page");
        m_search->setClearButtonVisible(true);
        line.layout->addWidget(m_search, 1);
        m_search->returnPressed().connect(this, [this] { find(false); });
        command(line, "Next", [this] { find(false); });
        command(line, "Previous", [this] { find(true); });
        command(line, "Larger", [this] { m_browser->setZoom(m_browser->zoom() + 20); });
        command(line, "Smaller", [this] { m_browser->setZoom(m_browser->zoom() - 20); });
    }

    void find(bool backward)
    {
        const std::wstring text = m_search->textU();
        if (!m_browser->find({.text = text, .isBackward = backward}))
            m_log.add("not found: " + m_search->text());
    }

    void connectBrowser()
    {
        m_browser->resourceRequested().connect(this, [](const VXTextResourceEvent2& event) {
            if (const auto page = pages().find(event.url()); page != pages().end())
                event.answer(page->second);
            else if (event.url() == L"help:/wave.png")
                event.answer(wave());
        });
        m_browser->linkActivated().connect(this, [this](const VXTextBrowserLinkEvent2& event) {
            m_log.add("link: " + narrowFromWide(event.target()));
        });
        m_browser->titleChanged().connect(this, [this](const VXTextBrowserTitleEvent2& event) {
            m_log.add("title: " + narrowFromWide(event.title()));
        });
        m_browser->historyChanged().connect(this, [this] { showHistory(); });
        m_visits->selectionChanged().connect(this, [this](const VXListBoxSelectEvent2& event) {
            if (event.rows().size() != 1 || event.rows().front() == m_browser->historyPlace())
                return;
            m_browser->setHistoryPlace(event.rows().front());
            showHistory();
        });
    }

    void showHistory()
    {
        std::vector<std::wstring> lines;
        for (const PageVisit& visit : m_browser->history())
            lines.push_back(visit.title.empty() ? visit.source : visit.title);
        m_visits->removeItems();
        m_visits->addItems(lines);
        m_visits->setCurrentRow(m_browser->historyPlace());
    }

    Box m_page;
    EventLog& m_log;
    VXEdit2* m_search = nullptr;
    VXTextBrowser2* m_browser = nullptr;
    VXListBox2* m_visits = nullptr;
};

VXWidget2* create(VXObject2* parent, EventLog& log) { return new HelpViewer(parent, log); }

} // namespace

Page helpPage()
{
    return {"help", "Help",
            "Pages, pictures and style sheets that the program answers for; search, zoom, history.",
            &create};
}

} // namespace gallery
