// What the user does in a page, and what becomes of browsers that nobody ends.

#include "websupport.h"

#include <QApplication>
#include <QMenu>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <filesystem>
#include <memory>

namespace VOXI {
namespace {

class WebUser : public WebTest
{
protected:
    /// What in the browser gets the pointer.
    QWidget* page() const
    {
        QWidget* widget = qt(*m_browser);
        while (widget->focusProxy())
            widget = widget->focusProxy();
        return widget;
    }

    void turnWheel(double notches, Qt::KeyboardModifiers modifiers) const
    {
        const QPointF at(50, 50);
        QWheelEvent event(at, page()->mapToGlobal(at), {}, {0, int(120 * notches)}, Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(page(), &event);
    }

    /// Until the page answers: what has just been shown it may not have laid out yet.
    template <class Predicate>
    bool moveUntil(const QPoint& at, Predicate&& done) const
    {
        int tries = 0;
        return waitFor([&] {
            QTest::mouseMove(page(), at + QPoint(++tries % 2, 0));
            return done();
        });
    }
};

TEST_F(WebUser, isToldOfLinksMenusAndZoom)
{
    Log<VXWebHoverEvent2> links(m_browser->linkHovered());
    Log<VXWebZoomEvent2> zooms(m_browser->zoomChanged());
    EXPECT_TRUE(shows("<body style='margin:0'><a href=there style='display:block; width:200px; "
                      "height:100px'>a link</a><input id=i style='display:block; width:200px; "
                      "height:100px' value=text>"));
    EXPECT_TRUE(moveUntil(
        {50, 50}, [&] { return !links.isEmpty() && links.last().address() == L"app://x/there"; }));
    EXPECT_TRUE(moveUntil({350, 50}, [&] { return links.last().address().empty(); }));

    // By itself the browser has a menu, which goes with it or when another one is asked for.
    QTest::mouseClick(page(), Qt::RightButton, {}, {50, 50});
    EXPECT_TRUE(waitFor([] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }));
    EXPECT_EQ(m_browser->target().link, L"app://x/there");
    EXPECT_EQ(m_browser->target().linkText, L"a link");
    EXPECT_FALSE(m_browser->target().isEditable);
    if (QWidget* const menu = QApplication::activePopupWidget())
        menu->close();
    runDeletions();
    Log menus(m_browser->contextMenuRequested());
    QTest::mouseClick(page(), Qt::RightButton, {}, {50, 150});
    EXPECT_TRUE(waitFor([&] { return menus.count() == 1; }));
    EXPECT_EQ(menus.last().position(), (VXPoint<int>{50, 150}));
    EXPECT_TRUE(m_browser->target().isEditable);
    EXPECT_EQ(m_browser->target().link, L"");
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);

    turnWheel(1, {});
    EXPECT_TRUE(zooms.isEmpty());
    turnWheel(2, Qt::ControlModifier);
    EXPECT_EQ(zooms.only().percent(), 120);
    EXPECT_EQ(m_browser->zoom(), 120);
    EXPECT_TRUE(comesToGive("Math.round(window.devicePixelRatio * 100)", L"120"));
    turnWheel(1.5, Qt::ControlModifier);
    turnWheel(0.25, Qt::ControlModifier);
    EXPECT_EQ(m_browser->zoom(), 130) << "there is no second notch yet";
    turnWheel(-100, Qt::ControlModifier);
    EXPECT_EQ(zooms.last().percent(), 25);
    zooms.clear();
    turnWheel(-1, Qt::ControlModifier);
    EXPECT_TRUE(zooms.isEmpty()) << "it is as small as it gets";
}

/// Begins to answer, and never ends.
class SlowServer
{
public:
    SlowServer()
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, [this] {
            QTcpSocket* const socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                m_socket = socket; // others are made and not used
                m_socket->readAll();
                if (m_isBroken)
                    return m_socket->abort();
                m_socket->write("HTTP/1.1 200 OK\r\nContent-Type: application/octet-stream\r\n"
                                "Content-Length: 1000000\r\n\r\n"
                                + QByteArray(100'000, 'x'));
            });
        });
    }
    std::string address() const
    {
        return "http://127.0.0.1:" + std::to_string(m_server.serverPort()) + "/data.bin";
    }
    /// What goes on now; or also all that comes.
    void breakOff(bool isForEver)
    {
        m_isBroken = isForEver;
        m_socket->abort();
    }

private:
    bool m_isBroken = false;
    QTcpServer m_server;
    QTcpSocket* m_socket = nullptr;
};

TEST_F(WebUser, mayGiveDownloadsUp)
{
    const QTemporaryDir temporary;
    const std::filesystem::path file = temporary.filePath(QStringLiteral("got")).toStdString();
    SlowServer server;
    Log ends(m_browser->downloadEnded());
    Log steps(m_browser->downloadProgressed());
    Log offers(m_browser->downloadRequested());
    m_browser->downloadRequested().connect(
        this, [&](const VXWebDownloadEvent2& event) { event.accept(file); });
    m_browser->setNetworkAccess(true);
    EXPECT_TRUE(shows("<a id=a href='" + server.address() + "'>a</a>"));
    const auto begin = [&] {
        steps.clear();
        ends.clear();
        m_browser->evaluate("document.getElementById('a').click()");
        EXPECT_TRUE(waitFor([&] { return !steps.isEmpty() && steps.last().received() > 0; }));
        EXPECT_EQ(steps.last().size(), 1'000'000);
        EXPECT_TRUE(ends.isEmpty());
    };
    begin();
    m_browser->cancelDownload(steps.last().id() + 1000);
    m_browser->cancelDownload(steps.last().id());
    EXPECT_TRUE(waitFor([&] { return ends.count() == 1; }));
    EXPECT_EQ(ends.last().end(), WebDownloadEnd::Cancelled);
    EXPECT_EQ(ends.last().id(), steps.last().id());
    EXPECT_FALSE(std::filesystem::exists(file));
    begin();
    // The engine tries again by itself, and nobody is asked once more.
    offers.clear();
    steps.clear();
    server.breakOff(false);
    EXPECT_TRUE(waitFor([&] { return !steps.isEmpty() && steps.last().received() > 0; }));
    EXPECT_TRUE(offers.isEmpty());
    server.breakOff(true);
    EXPECT_TRUE(waitFor([&] { return ends.count() == 1; }));
    EXPECT_EQ(ends.last().id(), steps.last().id());
    EXPECT_EQ(ends.last().end(), WebDownloadEnd::Failed);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(WebUser, sharesAProfileAndNothingElse)
{
    VXWebBrowser2 other(&m_window);
    other.contentRequested().connect(this, [](const VXWebContentEvent2& event) {
        event.answer(WebContent("<title>of the other"));
    });
    for (VXWebBrowser2* const each : {m_browser, &other})
        each->setProfile("voxi-test");
    m_pages[L"app://x/mine"] = WebContent("<title>mine</title><a id=d download=n href=mine>d</a>");
    Log offers(m_browser->downloadRequested());
    Log othersOffers(other.downloadRequested());
    Log othersLoads(other.loadEnded());
    EXPECT_TRUE(goes("app://x/mine"));
    m_asked.clear();
    other.setAddress("app://x/theirs"); // both at once
    EXPECT_TRUE(goes("app://x/mine"));
    EXPECT_TRUE(waitFor([&] { return !othersLoads.isEmpty(); }));
    EXPECT_TRUE(waitFor([&] { return other.title() == L"of the other"; }));
    EXPECT_EQ(m_asked, std::vector<std::wstring>{L"app://x/mine"});
    m_browser->evaluate("document.getElementById('d').click()");
    EXPECT_TRUE(waitFor([&] { return !offers.isEmpty(); }));
    EXPECT_TRUE(othersOffers.isEmpty());

    // What is left before it has come is not told of, and a text of the program has no address.
    const int before = m_loads;
    Log addresses(m_browser->addressChanged());
    m_browser->setAddress("app://x/nowhere");
    m_browser->setAddress("app://x/mine");
    m_browser->setHtml("<title>own");
    EXPECT_TRUE(waitFor([&] { return m_browser->title() == L"own"; }));
    EXPECT_TRUE(waitFor([&] { return m_loads > before; }));
    EXPECT_EQ(m_loads, before + 1);
    EXPECT_EQ(m_browser->address(), L"");
    EXPECT_TRUE(addresses.isEmpty());
    // Nor is it told where the computer is.
    EXPECT_TRUE(goes("app://x/mine"));
    m_browser->evaluate("var code; navigator.geolocation.getCurrentPosition(() => code = 0,"
                        " error => code = error.code)");
    EXPECT_TRUE(comesToGive("code", L"1")) << "the page is refused, not just without an answer";
}

/// Nobody ends it: the process must come to its end all the same, which whoever has run the test
/// sees.
TEST_F(WebUser, mayLeaveABrowserToTheEndOfItsHost)
{
    static auto* const s_window = new VXWindow2;
    static auto* const s_browser = new VXWebBrowser2(s_window);
    static auto* const s_listener = new TROV::Listener;
    s_browser->contentRequested().connect(
        s_listener, [](const VXWebContentEvent2& event) { event.answer(WebContent("<p>left")); });
    Log ends(s_browser->loadEnded());
    s_window->show();
    s_browser->setAddress("app://x/left");
    EXPECT_TRUE(waitFor([&] { return !ends.isEmpty(); }));
    s_browser->evaluateLater("for (;;) {}", nullptr);
    s_browser->setAddress("app://x/never");
}

} // namespace
} // namespace VOXI
