// Programs without web pages have nothing of the engine; and where there is none, pages are shown
// all the same.

#include "support/qtwarnings.h"
#include "websupport.h"

#include <QProcess>

#include <cstdlib>
#include <thread>

namespace VOXI {
namespace {

TEST_F(WebTest, loadsNothingOfTheEngineBeforeItGoesAnywhere)
{
    m_browser->setZoom(150);
    m_browser->setNetworkAccess(true);
    m_browser->reload();
    turn();
    EXPECT_TRUE(isLoaded("libvoxi2_qt.so"));
    for (const char* const library : {"libvoxi2_qt_web", "WebEngine", "libQt6Quick", "libQt6Qml"})
        EXPECT_FALSE(isLoaded(library)) << library;
    QProcess ldd;
    ldd.start(QStringLiteral("ldd"), {QStringLiteral(VOXI2_QT_LIBRARY)});
    ASSERT_TRUE(ldd.waitForFinished());
    const QByteArray linked = ldd.readAllStandardOutput();
    EXPECT_TRUE(linked.contains("libQt6Widgets"));
    EXPECT_FALSE(linked.contains("WebEngine"));
}

TEST_F(WebTest, showsPagesWithoutAnEngine)
{
    setenv("VOXI_NO_WEB_ENGINE", "1", 1);
    const ExpectedQtWarning once("^web pages are shown without scripts");
    m_pages[L"app://x/second"] = WebContent("<title>second</title>two one one");
    Log hits(m_browser->found());
    Log asked(m_browser->navigating());
    Log addresses(m_browser->addressChanged());
    EXPECT_TRUE(shows("<title>first</title><a href=second>there</a>"));
    EXPECT_FALSE(m_browser->hasEngine());
    EXPECT_FALSE(isLoaded("WebEngine"));
    EXPECT_EQ(m_browser->title(), L"first");
    EXPECT_TRUE(loads([&] { m_browser->imitateLink("second"); }));
    EXPECT_EQ(asked.only().address(), L"app://x/second");
    EXPECT_EQ(addresses.only().address(), L"app://x/second");
    EXPECT_EQ(m_browser->title(), L"second");
    m_browser->find({.text = L"one"});
    EXPECT_EQ(hits.only().hits(), (WebHits{2, 1}));
    EXPECT_EQ(m_browser->selectedText(), L"one");
    EXPECT_EQ(m_browser->evaluate("1").outcome, WebScriptResult::Outcome::Gone);
    EXPECT_TRUE(loads([&] { m_browser->goBack(); }));
    EXPECT_EQ(m_browser->title(), L"first");
    EXPECT_TRUE(loads([&] { m_browser->setHtml("<title>own</title>x", "app://x/own"); }));
    EXPECT_EQ(m_browser->address(), L"app://x/own");
    EXPECT_EQ(m_browser->title(), L"own");

    m_browser->contentRequested().connect(this, [](const VXWebContentEvent2& event) {
        if (event.address() == L"app://x/late") {
            event.answerLater();
            std::thread([query = event.query()] {
                query.answer(WebContent("<title>late"));
            }).detach();
        }
    });
    EXPECT_TRUE(goes("app://x/late"));
    EXPECT_EQ(m_browser->title(), L"late");
    EXPECT_FALSE(goes("http://127.0.0.1/"));
    EXPECT_FALSE(goes("buffer://1"));
    EXPECT_FALSE(goes("/etc/no such file"));
    VXWebBrowser2 second; // says nothing again
    second.setAddress("app://x/nothing");
}

} // namespace
} // namespace VOXI
