// What pages may not: the network, files, windows, downloads; and what becomes of a browser whose
// engine ends.

#include "websupport.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QUdpSocket>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <unistd.h>

namespace VOXI {
namespace {

/// A server that counts who comes, by either way, and gives them all the same page.
class Server
{
public:
    Server()
    {
        m_tcp.listen(QHostAddress::LocalHost);
        m_udp.bind(QHostAddress::LocalHost, m_tcp.serverPort());
        QObject::connect(&m_tcp, &QTcpServer::newConnection, [this] {
            ++m_callers;
            QTcpSocket* const socket = m_tcp.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [socket] {
                if (socket->readAll().startsWith("GET /away "))
                    socket->write("HTTP/1.1 302 Found\r\nLocation: /there\r\n"
                                  "Content-Length: 0\r\nConnection: close\r\n\r\n");
                else
                    socket->write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n"
                                  "Access-Control-Allow-Origin: *\r\n"
                                  "Content-Length: 18\r\nConnection: close\r\n\r\n"
                                  "<title>net</title>");
                socket->disconnectFromHost();
            });
        });
    }

    int callers() const { return m_callers + (m_udp.hasPendingDatagrams() ? 1 : 0); }
    std::string port() const { return std::to_string(m_tcp.serverPort()); }
    std::string address(const std::string& rest) const
    {
        return "http://127.0.0.1:" + port() + rest;
    }

private:
    QTcpServer m_tcp;
    QUdpSocket m_udp;
    int m_callers = 0;
};

/// A page that tries all ways to a place on the network, and notes that each has failed or ended.
std::string pageThatCalls(const Server& server)
{
    std::string page = R"html(<head>
<link rel=preconnect href="HTTP/"><link rel=dns-prefetch href="HTTP/">
<link rel=prefetch href="HTTP/prefetch"><link rel=prerender href="HTTP/prerender">
<link rel=manifest href="HTTP/manifest"><link rel=icon href="HTTP/icon">
<link rel=stylesheet href="HTTP/style"><script src="HTTP/script"></script></head>
<body background="HTTP/back"><img src="HTTP/img"><iframe src="HTTP/frame"></iframe>
<object data="HTTP/object"></object><video src="HTTP/video"></video>
<a id=a ping="HTTP/ping" href="#here">a</a><form id=f action="HTTP/form" target=i method=post></form>
<iframe name=i></iframe>
<script>
let left = new Set, ways = 0;
const way = act => { const id = ++ways; left.add(id); const end = () => left.delete(id); try { act(end) } catch { end() } };
way(end => fetch('HTTP/fetch', {mode: 'no-cors'}).then(end, end));
way(end => { const x = new XMLHttpRequest; x.onloadend = end; x.open('GET', 'HTTP/xhr'); x.send() });
way(end => { const w = new WebSocket('ws://127.0.0.1:PORT/ws'); w.onclose = end });
way(end => { const e = new EventSource('HTTP/events'); e.onerror = () => { e.close(); end() } });
way(end => { navigator.sendBeacon('HTTP/beacon', 'x'); end() });
way(end => { const w = new Worker(URL.createObjectURL(
    new Blob(["try { importScripts('HTTP/import') } catch {} postMessage(1)"])));
    w.onmessage = w.onerror = end
});
way(end => { new WebTransport('https://127.0.0.1:PORT/').ready.then(end, end) });
way(end => {
    const p = new RTCPeerConnection({iceServers: [{urls: 'stun:127.0.0.1:PORT'},
        {urls: 'turn:127.0.0.1:PORT?transport=tcp', username: 'a', credential: 'b'}]});
    p.onicecandidate = e => e.candidate || end();
    p.createDataChannel('x');
    p.createOffer().then(o => p.setLocalDescription(o));
});
way(end => {
    document.getElementById('a').click();
    document.getElementById('f').submit();
    end();
});
way(end => setTimeout(end, 500));
</script>)html";
    const auto fill = [&](const std::string& name, const std::string& with) {
        for (auto at = page.find(name); at != std::string::npos; at = page.find(name))
            page.replace(at, name.size(), with);
    };
    fill("HTTP", server.address(""));
    fill("PORT", server.port());
    return page;
}

TEST_F(WebTest, reachesNoNetworkUnlessItMay)
{
    const Server server;
    Log asked(m_browser->navigating());
    const std::string page = pageThatCalls(server);
    EXPECT_TRUE(shows(page));
    EXPECT_TRUE(comesToGive("[...left].join()", L"")) << narrowFromWide(value("[...left].join()"));
    EXPECT_EQ(server.callers(), 0);
    EXPECT_FALSE(asked.isEmpty()); // of its frames
    // Nor by a link, nor by the program itself.
    asked.clear();
    m_browser->imitateLink(server.address("/link"));
    EXPECT_EQ(asked.count(), 1);
    EXPECT_EQ(m_browser->address(), L"app://x/shown#here");
    EXPECT_FALSE(goes(server.address("/")));
    EXPECT_EQ(server.callers(), 0);

    // With leave all of it does: the page was able to.
    m_browser->setNetworkAccess(true);
    EXPECT_TRUE(goes(server.address("/away")));
    EXPECT_GE(server.callers(), 2);
    EXPECT_EQ(m_browser->address(), wideFromNarrow(server.address("/there")));
    EXPECT_TRUE(shows(page));
    EXPECT_TRUE(comesToGive("[...left].join()", L""));
    EXPECT_GT(server.callers(), 12);
    // And is taken back at once.
    m_browser->setNetworkAccess(false);
    const int before = server.callers();
    EXPECT_EQ(value("var x = new XMLHttpRequest; x.open('GET', '" + server.address("/again")
                    + "', false); try { x.send(); 'sent' } catch { 'refused' }"),
              L"refused");
    EXPECT_EQ(server.callers(), before);
}

TEST_F(WebTest, readsOnlyFilesThatItMay)
{
    const QTemporaryDir temporary;
    const std::filesystem::path folder = temporary.path().toStdString();
    std::filesystem::create_directories(folder / "in");
    std::filesystem::create_directories(folder / "out");
    std::ofstream(folder / "out/secret.js") << "var secret = 1";
    std::ofstream(folder / "in/own.js") << "var own = 1";
    std::filesystem::create_symlink(folder / "out", folder / "in/link");
    std::ofstream(folder / "in/page.html") << "<script src='own.js'></script>"
                                              "<script src='../out/secret.js'></script>"
                                              "<script src='link/secret.js'></script>";
    EXPECT_TRUE(goes((folder / "in/page.html").string()));
    EXPECT_EQ(value("typeof own + typeof secret"), L"numberundefined");
    m_browser->setFilePath({folder / "out"});
    EXPECT_TRUE(loads([&] { m_browser->reload(); }));
    EXPECT_EQ(value("typeof secret"), L"number");
    // A page of the program's leads to no file.
    EXPECT_TRUE(
        shows("<script src='file://" + (folder / "out/secret.js").string() + "'></script>"));
    EXPECT_EQ(value("typeof secret"), L"undefined");
}

TEST_F(WebTest, opensNoWindowsAndLoadsNothingDown)
{
    const QTemporaryDir temporary;
    const std::filesystem::path file = temporary.filePath(QStringLiteral("got")).toStdString();
    Log windows(m_browser->windowRequested());
    Log ends(m_browser->downloadEnded());
    m_pages[L"app://x/data.bin"] =
        WebContent(ByteArray(std::string(100'000, 'b')), "application/octet-stream");
    EXPECT_TRUE(shows("<a id=w target=_blank href=other>w</a><a id=d download=name.bin "
                      "href=data.bin>d</a>"));
    m_browser->evaluate("document.getElementById('w').click()");
    EXPECT_TRUE(waitFor([&] { return windows.count() == 1; }));
    EXPECT_EQ(windows.last().address(), L"app://x/other");

    Log offers(m_browser->downloadRequested());
    const auto click = [&] { m_browser->evaluate("document.getElementById('d').click()"); };
    click();
    EXPECT_TRUE(waitFor([&] { return offers.count() == 1; }));
    EXPECT_EQ(offers.last().download().name, L"name.bin");
    EXPECT_EQ(offers.last().download().address, L"app://x/data.bin");
    TROV::Listener accepting;
    m_browser->downloadRequested().connect(
        &accepting, [&](const VXWebDownloadEvent2& event) { event.accept(file); });
    click();
    EXPECT_TRUE(waitFor([&] { return ends.count() == 1; }));
    EXPECT_EQ(ends.last().id(), offers.last().download().id);
    EXPECT_EQ(ends.last().end(), WebDownloadEnd::Done);
    EXPECT_EQ(std::filesystem::file_size(file), 100'000u);
    EXPECT_EQ(m_browser->address(), L"app://x/shown");
    m_browser->cancelDownload(ends.last().id());
}

/// The number behind that word in a process's status; 0 where there is none.
int statusOf(const std::string& process, const std::string& word)
{
    std::ifstream in("/proc/" + process + "/status");
    const std::string content{std::istreambuf_iterator<char>(in), {}};
    const auto at = content.find(word);
    return at == std::string::npos ? 0 : std::atoi(content.c_str() + at + word.size());
}

/// The processes that the pages of this one run in: the engine's first ones fork them.
std::vector<int> pageProcesses()
{
    std::vector<int> pages;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string id = entry.path().filename();
        const std::string parent = std::to_string(statusOf(id, "PPid:\t"));
        const int owner = statusOf(parent, "PPid:\t");
        const int first = statusOf(std::to_string(owner), "PPid:\t");
        const bool isEngine =
            std::filesystem::read_symlink("/proc/" + parent + "/exe", error).filename()
            == "QtWebEngineProcess";
        if (isEngine && (owner == getpid() || first == getpid()))
            pages.push_back(std::stoi(id));
    }
    return pages;
}

TEST_F(WebTest, comesBackWhenItsEngineHasEnded)
{
    Log crashes(m_browser->crashed());
    EXPECT_TRUE(shows("<title>t"));
    std::optional<WebScriptResult> waiting;
    m_browser->evaluateLater("for (;;) {}",
                             [&](const WebScriptResult& result) { waiting = result; });
    turn();
    const std::vector<int> processes = pageProcesses();
    EXPECT_FALSE(processes.empty());
    for (const int process : processes)
        kill(process, SIGKILL);
    EXPECT_TRUE(waitFor([&] { return crashes.count() == 1; }));
    EXPECT_TRUE(m_browser->hasCrashed());
    EXPECT_TRUE(waitFor([&] { return waiting.has_value(); }));
    EXPECT_EQ(waiting->outcome, WebScriptResult::Outcome::Gone);
    EXPECT_EQ(m_browser->evaluate("1").outcome, WebScriptResult::Outcome::Gone);
    EXPECT_TRUE(loads([&] { m_browser->reload(); }));
    EXPECT_FALSE(m_browser->hasCrashed());
    EXPECT_EQ(value("document.title"), L"t");
}

TEST_F(WebTest, keepsProfilesApart)
{
    const auto remembered = [&] { return value("localStorage.getItem('k')"); };
    EXPECT_TRUE(shows("<p>"));
    value("localStorage.setItem('k', 'private')");
    VXWebBrowser2 other;
    other.contentRequested().connect(
        this, [](const VXWebContentEvent2& event) { event.answer(WebContent("<p>")); });
    other.setAddress("app://x/shown");
    EXPECT_EQ(other.evaluate("localStorage.getItem('k')").value, L"");
    EXPECT_TRUE(loads([&] { m_browser->setProfile("voxi-test"); }));
    EXPECT_EQ(remembered(), L"");
    EXPECT_EQ(m_browser->address(), L"app://x/shown");
    value("localStorage.setItem('k', 'named')");
    other.setProfile("voxi-test");
    EXPECT_TRUE(
        waitFor([&] { return other.evaluate("localStorage.getItem('k')").value == L"named"; }));
    EXPECT_TRUE(loads([&] { m_browser->setProfile(""); }));
    EXPECT_EQ(remembered(), L"");
    other.evaluate("localStorage.clear()");
}

} // namespace
} // namespace VOXI
