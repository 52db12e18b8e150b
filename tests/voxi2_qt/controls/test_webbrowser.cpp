// Pages and the program: what is shown, gone to, said and run. Each test starts the engine, so that
// they are few.

#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2_qt/controls/qtwebbrowser2.h"
#include "websupport.h"

#include <QApplication>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <optional>
#include <thread>

namespace VOXI {
namespace {

using Outcome = WebScriptResult::Outcome;
using Type = WebScriptResult::Type;

TEST_F(WebTest, showsPagesOfTheProgram)
{
    EXPECT_FALSE(m_browser->hasEngine());
    Log addresses(m_browser->addressChanged());
    Log titles(m_browser->titleChanged());
    Log icons(m_browser->iconChanged());
    m_pages[L"app://x/red.svg"] = WebContent(
        "<svg xmlns='http://www.w3.org/2000/svg' width='8' height='8'/>", "image/svg+xml");
    EXPECT_TRUE(shows(L"<title>Gr\u00fc\u00dfe \u732b</title><link rel=icon href=red.svg>"
                      L"<body style='background:#00ff00'>"));
    EXPECT_TRUE(m_browser->hasEngine());
    EXPECT_EQ(m_browser->address(), L"app://x/shown");
    EXPECT_TRUE(waitFor([&] { return m_browser->title() == L"Gr\u00fc\u00dfe \u732b"; }));
    EXPECT_EQ(titles.last().title(), m_browser->title());
    EXPECT_TRUE(waitFor([&] { return !icons.isEmpty(); }));
    EXPECT_FALSE(m_browser->icon().isNull());
    EXPECT_EQ(m_browser->progress(), 100);
    EXPECT_FALSE(m_browser->isLoading());
    EXPECT_TRUE(waitFor([&] {
        return qt(*m_browser)->grab().toImage().pixelColor(100, 100) == QColor(0, 255, 0);
    }));

    m_browser->setHtml("<title>own</title><p id=p>text</p><script src=said.js></script>",
                       "app://x/folder/page");
    EXPECT_TRUE(waitFor([&] { return !m_browser->isLoading(); }));
    EXPECT_EQ(m_browser->address(), L"app://x/folder/page");
    EXPECT_EQ(m_asked.back(), L"app://x/folder/said.js");
    const std::string much(700'000, 'x');
    EXPECT_TRUE(loads([&] { m_browser->setHtml("<p id=p>" + much, "app://x/much"); }));
    EXPECT_EQ(value("document.getElementById('p').textContent.length"), L"700000");
    EXPECT_TRUE(loads([&] { m_browser->setHtml("<a id=a href=there>" + much, "http://y.z/"); }));
    EXPECT_EQ(value("document.getElementById('a').href"), L"http://y.z/there");
    EXPECT_EQ(m_browser->address(), L"http://y.z/");
    EXPECT_TRUE(addresses.isEmpty());

    EXPECT_FALSE(goes("app://x/nowhere"));
    EXPECT_FALSE(goes("chrome://version"));
    EXPECT_EQ(addresses.last().address(), m_browser->address());
    EXPECT_FALSE(goes("app://x/" + std::string(3'000'000, 'a')));
    EXPECT_FALSE(VXWebBrowser2::addScheme("late"));
    EXPECT_TRUE(VXWebBrowser2::addScheme("app"));
}

TEST_F(WebTest, isAnsweredLaterAndFromAnywhere)
{
    m_browser->contentRequested().connect(this, [](const VXWebContentEvent2& event) {
        if (event.address() == L"app://late/page") {
            event.answerLater();
            std::thread([query = event.query()] {
                query.answer(WebContent("<title>late"));
            }).detach();
        } else if (event.address() == L"app://late/never") {
            event.answerLater(); // and lets go of it
        }
    });
    EXPECT_TRUE(goes("app://late/page"));
    EXPECT_EQ(value("document.title"), L"late");
    EXPECT_FALSE(goes("app://late/never"));

    WebQuery2 kept;
    m_browser->contentRequested().connect(this, [&](const VXWebContentEvent2& event) {
        if (event.address() == L"app://late/kept") {
            event.answerLater();
            kept = event.query();
        }
    });
    m_browser->setAddress("app://late/kept");
    EXPECT_TRUE(waitFor([&] { return kept.isWanted(); }));
    delete m_browser;
    runDeletions();
    EXPECT_FALSE(kept.isWanted());
    kept.answer(WebContent("too late"));
}

TEST_F(WebTest, asksBeforeItGoesWhereTheUserWants)
{
    Log<VXWebNavigationEvent2> asked(m_browser->navigating());
    Log addresses(m_browser->addressChanged());
    m_pages[L"app://x/second"] = WebContent("<title>second");
    EXPECT_TRUE(shows("<title>first</title><a id=a href=second>there</a>"));
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_TRUE(loads([&] { m_browser->evaluate("document.getElementById('a').click()"); }));
    EXPECT_EQ(asked.only().address(), L"app://x/second");
    EXPECT_EQ(asked.only().kind(), WebNavigation::Link);
    EXPECT_TRUE(asked.only().isWholePage());
    EXPECT_EQ(addresses.only().address(), L"app://x/second");
    EXPECT_EQ(m_browser->address(), L"app://x/second");

    // By the program: without a question. A page that a script left is skipped on the way back.
    EXPECT_TRUE(goes("app://x/shown"));
    EXPECT_TRUE(goes("app://x/second"));
    EXPECT_TRUE(m_browser->isBackAvailable());
    EXPECT_TRUE(loads([&] { m_browser->goBack(); }));
    EXPECT_EQ(value("document.title"), L"first");
    EXPECT_TRUE(m_browser->isForwardAvailable());
    EXPECT_TRUE(loads([&] { m_browser->goForward(); }));
    const auto before = m_asked.size();
    EXPECT_TRUE(loads([&] { m_browser->reload(); }));
    EXPECT_EQ(m_asked.size(), before + 1);
    EXPECT_EQ(asked.count(), 1);

    asked.clear();
    EXPECT_TRUE(loads([&] { m_browser->imitateLink("shown"); }));
    EXPECT_EQ(asked.only().address(), L"app://x/shown");
    TROV::Listener refusing;
    m_browser->navigating().connect(&refusing,
                                    [](const VXWebNavigationEvent2& event) { event.refuse(); });
    m_browser->imitateLink("second");
    m_browser->evaluate("location = 'second'");
    EXPECT_TRUE(waitFor([&] { return asked.count() == 3; }));
    EXPECT_EQ(value("document.title"), L"first");
    EXPECT_EQ(m_browser->address(), L"app://x/shown");
}

TEST_F(WebTest, runsScriptsForWhoeverAsks)
{
    EXPECT_TRUE(shows("<title>t</title><script>var kept = {a: [1, 'x']}</script>"));
    const auto gives = [&](const AnyText& script) { return m_browser->evaluate(script); };
    EXPECT_EQ(gives(L"'a\u732b\\u0000b'"),
              (WebScriptResult{Outcome::Done, Type::Text, std::wstring(L"a\u732b\0b", 4)}));
    EXPECT_EQ(gives("6 * 7"), (WebScriptResult{Outcome::Done, Type::Number, L"42"}));
    EXPECT_EQ(gives("var x = 1; x > 0"), (WebScriptResult{Outcome::Done, Type::Boolean, L"true"}));
    EXPECT_EQ(gives("kept"),
              (WebScriptResult{Outcome::Done, Type::Structure, L"{\"a\":[1,\"x\"]}"}));
    EXPECT_EQ(gives("undefined"), (WebScriptResult{Outcome::Done}));
    EXPECT_EQ(gives("nothing.there").outcome, Outcome::Failed);
    EXPECT_NE(gives("nothing.there").value.find(L"ReferenceError"), std::wstring::npos);
    EXPECT_EQ(gives("][").outcome, Outcome::Failed);
    EXPECT_EQ(gives("var c = {}; c.c = c").outcome, Outcome::Failed);

    std::atomic<bool> done{false};
    std::thread worker([&] {
        EXPECT_EQ(m_browser->evaluate("document.title").value, L"t");
        done = true;
    });
    EXPECT_TRUE(waitFor([&] { return done.load(); }));
    worker.join();
    std::optional<WebScriptResult> later;
    m_browser->evaluateLater("1", [&](const WebScriptResult& result) {
        later = result;
        EXPECT_EQ(m_browser->evaluate("2").value, L"2"); // waits in a handler
    });
    EXPECT_TRUE(waitFor([&] { return later && later->value == L"1"; }));

    // A page may forbid that texts are run.
    EXPECT_TRUE(shows("<meta http-equiv=Content-Security-Policy content=\"script-src 'none'\">"));
    EXPECT_EQ(gives("'still'").value, L"still");
    EXPECT_EQ(gives("({a: 1})").value, L"{\"a\":1}");

    m_browser->setScriptsEnabled(false);
    EXPECT_EQ(gives("1").outcome, Outcome::Gone);
}

TEST_F(WebTest, doesNotWaitForAPageThatNeverEnds)
{
    EXPECT_TRUE(shows("<title>t"));
    const auto limit = std::chrono::milliseconds(300);
    EXPECT_EQ(m_browser->evaluate("for (;;) {}", limit).outcome, Outcome::TimedOut);
    EXPECT_EQ(m_browser->evaluate("1", limit).outcome, Outcome::TimedOut);

    // Who waits is let go with the browser, on whatever thread.
    std::atomic<int> gone{0};
    std::thread worker(
        [&] { gone += m_browser->evaluate("1", std::chrono::hours(2)).outcome == Outcome::Gone; });
    m_browser->evaluateLater(
        "1", [&](const WebScriptResult& result) { gone += result.outcome == Outcome::Gone; },
        std::chrono::hours(1));
    QTimer::singleShot(200, [&] { delete m_browser; });
    EXPECT_EQ(m_browser->evaluate("1", std::chrono::hours(1)).outcome, Outcome::Gone);
    EXPECT_TRUE(waitFor([&] { return gone.load() == 2; }));
    worker.join();
}

TEST_F(WebTest, carriesMessagesBothWays)
{
    Log messages(m_browser->messageReceived());
    EXPECT_TRUE(shows(L"<script>voxi.send('early \u732b'); voxi.send(7);"
                      L"document.addEventListener('DOMContentLoaded', () => { voxi.onmessage = "
                      L"text => voxi.send('heard ' + text) })</script>"));
    m_browser->postMessage("one");
    std::thread([handle = m_handle] { handle->postMessage(L"'</script>\"\n\u732b"); }).join();
    EXPECT_TRUE(waitFor([&] { return messages.count() == 4; }));
    EXPECT_EQ(messages[0].text(), L"early \u732b");
    EXPECT_EQ(messages[0].address(), L"app://x/shown");
    EXPECT_EQ(messages[1].text(), L"7");
    EXPECT_EQ(messages[2].text(), L"heard one");
    EXPECT_EQ(messages[3].text(), L"heard '</script>\"\n\u732b");

    // What comes before the page listens waits.
    EXPECT_TRUE(shows("<p>"));
    m_browser->postMessage("kept");
    EXPECT_TRUE(comesToGive("var got; voxi.onmessage = text => got = text; got", L"kept"));
    const std::string much(5'000'000, 'x');
    m_browser->postMessage(much);
    EXPECT_TRUE(comesToGive("got.length", L"5000000"));
}

TEST_F(WebTest, findsSelectsAndStyles)
{
    Log hits(m_browser->found());
    Log selections(m_browser->selectionChanged());
    Log<VXWebZoomEvent2> zooms(m_browser->zoomChanged());
    m_browser->setUserStyle("p { color: rgb(1, 2, 3) }");
    m_browser->setZoom(200);
    EXPECT_TRUE(shows("<meta http-equiv=Content-Security-Policy content=\"style-src 'none'\">"
                      "<p id=p>one two One</p>"));
    const char* const colour = "getComputedStyle(document.getElementById('p')).color";
    EXPECT_TRUE(comesToGive(colour, L"rgb(1, 2, 3)"));
    EXPECT_TRUE(comesToGive("window.devicePixelRatio", L"2"));
    m_browser->setUserStyle("p { color: rgb(4, 5, 6) }");
    EXPECT_TRUE(comesToGive(colour, L"rgb(4, 5, 6)"));

    m_browser->find({.text = L"one"});
    EXPECT_TRUE(waitFor([&] { return hits.count() == 1; }));
    EXPECT_EQ(hits.last().hits().count, 2);
    hits.clear();
    m_browser->find({.text = L"One", .caseSensitive = true});
    EXPECT_TRUE(waitFor([&] { return hits.count() == 1; }));
    EXPECT_EQ(hits.last().hits().count, 1);
    m_browser->find({});
    m_browser->selectAll();
    EXPECT_TRUE(waitFor([&] { return m_browser->selectedText() == L"one two One"; }));
    m_browser->clearSelection();
    EXPECT_TRUE(waitFor([&] { return m_browser->selectedText().empty(); }));
    EXPECT_TRUE(selections.isEmpty());
    EXPECT_TRUE(zooms.isEmpty());

    const QTemporaryDir folder;
    const std::filesystem::path pdf = folder.filePath(QStringLiteral("page.pdf")).toStdString();
    Log printed(m_browser->pdfPrinted());
    m_browser->printToPdf(pdf);
    EXPECT_TRUE(waitFor([&] { return printed.count() == 1; }));
    EXPECT_TRUE(printed.last().isWritten());
    EXPECT_GT(std::filesystem::file_size(pdf), 500u);
    m_browser->printToPdf("/no/such/folder/page.pdf");
    m_browser->printToPdf(pdf, {-1, 5});
    EXPECT_TRUE(waitFor([&] { return printed.count() == 3; }));
    EXPECT_FALSE(printed[1].isWritten() || printed[2].isWritten());
}

TEST_F(WebTest, handsTheFocusOnOnce)
{
    auto* const pane = new VXDockWidget2(&m_window);
    auto* const panel = new VXPanel2(pane);
    auto* const row = new VXBoxLayout2(panel);
    for (int i = 0; i < 4; ++i)
        row->addWidget(new VXEdit2(panel));
    pane->setWidget(panel);
    m_window.addDockWidget(pane);
    EXPECT_TRUE(shows("<script>var tabs = 0; onkeydown = () => ++tabs</script>"));
    m_window.setActiveWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(qt(m_window)));
    m_browser->setFocus();
    const QPointer<QWidget> engine = QApplication::focusWidget();
    ASSERT_TRUE(engine && isWithin(qt(*m_browser), engine));
    int changes = 0;
    const QObject context;
    QObject::connect(qApp, &QApplication::focusChanged, &context, [&] { ++changes; });
    // The page sees them later, and hands the focus on for each.
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(engine, Qt::Key_Tab);
    EXPECT_TRUE(comesToGive("tabs", L"3"));
    EXPECT_TRUE(waitFor([&] { return changes > 0; }));
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(value("tabs"), L"3");
    EXPECT_EQ(changes, 1);
}

TEST_F(WebTest, mayEndInItsHandlers)
{
    const auto endsIn = [&](auto signal, const char* script) {
        TROV::Listener ending;
        auto* const browser = new VXWebBrowser2(&m_window);
        const VXHandle<VXWebBrowser2> handle(browser);
        browser->contentRequested().connect(&ending, [](const VXWebContentEvent2& event) {
            event.answer(WebContent("<title>t</title><a id=a href=b>b</a>"
                                    "<a id=d href=d download>d</a>"));
        });
        (browser->*signal)().connect(&ending, [browser] { delete browser; });
        browser->setAddress("app://x/a");
        if (*script)
            browser->evaluateLater(script, nullptr);
        EXPECT_TRUE(waitFor([&] { return !handle.isValid(); })) << script;
        runDeletions();
    };
    using B = VXWebBrowser2;
    endsIn(&B::contentRequested, "");
    endsIn(&B::titleChanged, "");
    endsIn(&B::loadProgressed, "");
    endsIn(&B::loadEnded, "");
    endsIn(&B::navigating, "document.getElementById('a').click()");
    endsIn(&B::downloadRequested, "document.getElementById('d').click()");
    endsIn(&B::messageReceived, "voxi.send('x')");
    endsIn(&B::windowRequested, "window.open('app://x/b')");
    // By Qt, and while it loads.
    m_browser->setAddress("app://x/a");
    turn();
    delete qt(*m_browser);
    EXPECT_EQ(m_browser->address(), L"");
    EXPECT_EQ(m_browser->evaluate("1").outcome, Outcome::Gone);
}

} // namespace
} // namespace VOXI
