// What pages need, and where it comes from.

#include "browsersupport.h"
#include "support/worker.h"
#include "voxi2_qt/kernel/qttext.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <thread>

namespace VOXI {
namespace {

ByteArray bytesOf(const QByteArray& bytes)
{
    return ByteArray(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

QByteArray picture(const QColor& colour)
{
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

class BrowserResources : public BrowserTest
{
protected:
    using Event = VXTextResourceEvent2;

    /// Answers what is in `m_answers`, and keeps the queries of the others for later.
    void answerThose()
    {
        m_browser->resourceRequested().connect(this, [this](const Event& event) {
            m_asked += event.url() + L" ";
            if (const auto found = m_answers.find(event.url()); found != m_answers.end()) {
                event.answer(found->second);
                return;
            }
            event.answerLater();
            m_kept[event.url()] = event.query();
        });
    }
    std::wstring takeAsked() { return std::exchange(m_asked, {}); }

    std::wstring m_asked;
    std::map<std::wstring, TextResource> m_answers;
    std::map<std::wstring, TextResourceQuery2> m_kept;
};

TEST_F(BrowserResources, pagesComeFromTheProgramWithAllTheyNeed)
{
    m_answers = {
        {L"help:/index.html", "<head><title>Help</title>"
                              "<link rel='stylesheet' type='text/css' href='look.css'></head>"
                              "<p class='x'>text</p><img src='sub/red.png'>"},
        {L"help:/look.css", ByteArray("p.x { color: #0000ff; font-weight: bold }")},
        {L"help:/sub/red.png", bytesOf(picture(Qt::red))},
        {L"help:/note.md", "# Note\n\n*text*"},
        {L"help:/plain", L"a\n\n\n  <b"},
        {L"help:/latin.html", ByteArray("<meta charset='iso-8859-1'>\xe4")},
    };
    answerThose();
    m_browser->setSource("help:/index.html#top");
    EXPECT_EQ(takeAsked(), L"help:/index.html ");
    EXPECT_EQ(m_browser->title(), L"Help");
    EXPECT_FALSE(shows(Qt::red));
    turn();
    EXPECT_EQ(takeAsked(), L"help:/look.css help:/sub/red.png ");
    EXPECT_TRUE(shows(Qt::red));
    EXPECT_EQ(view().document()->firstBlock().begin().fragment().charFormat().fontWeight(),
              QFont::Bold);

    m_browser->setSource("note.md");
    EXPECT_EQ(m_browser->text(), "Note\ntext");
    m_browser->goBack();
    m_browser->goForward();
    EXPECT_EQ(m_browser->text(), "Note\ntext");
    m_browser->setSource("help:/plain");
    EXPECT_EQ(m_browser->textU(), L"a\n\n\n  <b");
    m_browser->setSource("help:/latin.html");
    EXPECT_EQ(m_browser->textU(), L"\u00e4");
    m_answers[L"help:/plain"] = "new";
    m_browser->setSource("help:/plain");
    m_answers[L"help:/plain"] = "newer";
    EXPECT_EQ(m_browser->text(), "new");
    m_browser->reload();
    EXPECT_EQ(m_browser->text(), "newer");
    m_answers[L"help:/plain"] = {};
    m_browser->reload();
    EXPECT_EQ(m_browser->text(), "No document: help:/plain");
}

TEST_F(BrowserResources, picturesOfBuffersAreAskedByTheirNames)
{
    m_answers = {{L"red.png", Pixmap(2, 1, {0xff0000ff, 0xff0000ff})}};
    answerThose();
    m_browser->setBuffers({"<img src='red.png' width='40' height='40'>"});
    m_browser->setCurrentBuffer(1);
    turn();
    EXPECT_EQ(takeAsked(), L"red.png ");
    EXPECT_TRUE(shows(Qt::red));
}

TEST_F(BrowserResources, namesAreMeantFromThePageAlsoWhenTheHistoryComesBackToIt)
{
    m_answers = {{L"sub/page.html", "<a href='../other.html'>a long link</a>"},
                 {L"other.html", "other"},
                 {L"help:/a/b.html", "<a href='c.html#x'>a long link</a>"},
                 {L"help:/a/c.html", "c"}};
    answerThose();
    m_browser->setBuffers({"<a href='other.html'>a long link</a>"});
    m_browser->setSource("sub/page.html");
    clickLink();
    EXPECT_EQ(m_browser->text(), "other");
    m_browser->setSource("help:/a/b.html");
    clickLink();
    EXPECT_EQ(m_browser->source(), "help:/a/c.html#x");
    m_browser->setCurrentBuffer(1);
    clickLink();
    EXPECT_EQ(m_browser->text(), "other");
    std::string way;
    while (m_browser->isBackAvailable()) {
        m_browser->goBack();
        way += m_browser->text() + ",";
    }
    EXPECT_EQ(way, "a long link,c,a long link,other,a long link,");
    EXPECT_EQ(m_browser->source(), "sub/page.html");
}

TEST_F(BrowserResources, aPageThatComesLateIsGoneToWhenItCame)
{
    m_browser->setText("before");
    answerThose();
    Log gone(m_browser->sourceChanged());
    m_browser->imitateLink("help:/one");
    m_browser->setSource("help:/two");
    EXPECT_EQ(m_browser->text(), "before");
    EXPECT_EQ(m_browser->source(), "");
    EXPECT_FALSE(m_kept[L"help:/one"].isWanted());
    EXPECT_TRUE(m_kept[L"help:/two"].isWanted());
    m_kept[L"help:/one"].answer("1");
    EXPECT_EQ(m_browser->text(), "before");
    std::thread([query = m_kept[L"help:/two"]] {
        query.answer("2");
        query.answer("a second answer");
    }).join();
    ASSERT_TRUE(waitFor([&] { return m_browser->text() == "2"; }));
    EXPECT_EQ(m_browser->source(), "help:/two");
    EXPECT_TRUE(gone.isEmpty()) << "the program has gone there";

    m_browser->imitateLink("help:/three");
    EXPECT_TRUE(gone.isEmpty());
    m_kept[L"help:/three"].answer("3");
    EXPECT_EQ(gone.only().source(), L"help:/three");
    m_browser->imitateBack();
    EXPECT_EQ(m_browser->text(), "3");
    m_kept.clear(); // nobody will answer
    EXPECT_EQ(m_browser->text(), "No document: help:/two");
    EXPECT_FALSE(m_browser->isBackAvailable());
    EXPECT_TRUE(m_browser->isForwardAvailable());
}

TEST_F(BrowserResources, whatBelongsToAPageIsLaidOutWhenItComes)
{
    answerThose();
    m_browser->setText("<head><link rel='stylesheet' type='text/css' "
                       "href='a.css'></head><p>text</p><img src='red.png'>");
    turn();
    EXPECT_FALSE(shows(Qt::red));
    m_browser->setSelection({0, 4});
    const qreal height = view().document()->size().height();
    const TextResourceQuery2 red = m_kept[L"red.png"];
    EXPECT_TRUE(red.isWanted());
    std::thread([&] { red.answer(bytesOf(picture(Qt::red))); }).join();
    ASSERT_TRUE(waitFor([&] { return shows(Qt::red); }));
    EXPECT_GT(view().document()->size().height(), height + 20);
    m_kept[L"a.css"].answer("p { font-size: 40pt }");
    EXPECT_EQ(view().document()->firstBlock().begin().fragment().charFormat().fontPointSize(), 40);
    EXPECT_EQ(m_browser->selectedText(), L"text");
    EXPECT_TRUE(shows(Qt::red));

    m_browser->setText("another <img src='red.png'>");
    EXPECT_FALSE(red.isWanted());
    turn();
    EXPECT_FALSE(shows(Qt::red)) << "it is another page's";
    m_browser->setText("<body background='blue.png'>text");
    turn();
    m_kept[L"blue.png"].answer(bytesOf(picture(Qt::blue)));
    EXPECT_TRUE(shows(Qt::blue));
}

TEST_F(BrowserResources, handlersOnOtherThreadsAnswerToo)
{
    TROV::Worker worker;
    TROV::Listener listener;
    worker.run([&] {
        m_browser->resourceRequested().connect(&listener, [](const Event& event) {
            event.answer(event.type() == TextResourceType::Page ? TextResource("<img src='x'>page")
                                                                : bytesOf(picture(Qt::red)));
        });
    });
    m_browser->setSource("help:/page");
    EXPECT_TRUE(waitFor([&] { return shows(Qt::red); }));
    worker.run([&] { listener.disconnect(); });
}

TEST_F(BrowserResources, mayEndWhileTheyAreAskedFor)
{
    const auto end = [this] { delete m_browser; };
    const auto endInLoop = [this] {
        delete m_browser;
        turn();
        runDeletions();
    };
    end();
    for (const std::function<void()>& handler :
         {std::function<void()>(end), std::function<void()>(endInLoop)}) {
        for (const bool ofPage : {true, false}) {
            m_browser = new VXTextBrowser2;
            m_handle = m_browser;
            m_browser->show();
            m_browser->resourceRequested().connect(this, [=](const Event& event) {
                if (ofPage || event.type() == TextResourceType::Picture)
                    handler();
                else
                    event.answer("<img src='1'><img src='2'>");
            });
            m_browser->imitateLink("help:/index");
            if (m_handle.isValid())
                qt(*m_browser)->grab();
            turn();
            EXPECT_FALSE(m_handle.isValid());
            runDeletions();
        }
        m_browser = new VXTextBrowser2;
        m_handle = m_browser;
        m_browser->sourceChanged().connect(this, handler);
        m_browser->setBuffers({"1", "2"});
        m_browser->imitateLink("buffer://2");
        EXPECT_FALSE(m_handle.isValid());
        runDeletions();
    }
    // A late answer for one that has gone, with its Qt parent at once.
    m_browser = new VXTextBrowser2;
    m_handle = m_browser;
    answerThose();
    m_browser->setSource("help:/index");
    m_browser->setText("<img src='1'>");
    qt(*m_browser)->grab();
    delete qt(*m_browser);
    turn();
    EXPECT_FALSE(m_kept[L"help:/index"].isWanted());
    m_kept[L"help:/index"].answer("late");
    delete m_browser;
    m_kept.clear();
    turn();
}

TEST_F(BrowserResources, handlersMayGoElsewhere)
{
    m_browser->setBuffers({"buffer"});
    m_browser->resourceRequested().connect(this, [this](const Event& event) {
        if (event.url() == L"help:/away")
            m_browser->setCurrentBuffer(1);
        else if (event.url() == L"help:/self")
            event.answer("<img src='away.png'>");
        else
            m_browser->setText("text");
    });
    m_browser->imitateLink("help:/away");
    EXPECT_EQ(m_browser->text(), "buffer");
    m_browser->imitateLink("help:/self");
    turn();
    EXPECT_EQ(m_browser->text(), "text");
}

// Files -------------------------------------------------------------------------------------------

/// "in" is a folder that pages may read, with a page, a picture and links that lead out of it to
/// where the same lies once more, red.
class BrowserFiles : public BrowserTest
{
protected:
    BrowserFiles()
    {
        namespace fs = std::filesystem;
        m_root = fs::canonical(toFilePath(m_folder.path()));
        fs::create_directories(m_root / "in/below");
        fs::create_directories(m_root / "in2");
        write("in/below/green.png", picture(Qt::green));
        write("red.png", picture(Qt::red));
        write("in2/red.png", picture(Qt::red));
        write("secret.html", "secret");
        write("in2/secret.html", "secret");
        write("in/page.html", "<p>page</p>");
        fs::create_symlink(m_root / "red.png", m_root / "in/link.png");
        fs::create_symlink(m_root / "secret.html", m_root / "in/link.html");
        fs::create_directory_symlink(m_root, m_root / "in/up");
        fs::create_directory_symlink(m_root / "in", m_root / "other");
    }

    void write(const char* name, const QByteArray& bytes) const
    {
        QFile file(toQFileName(m_root / name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    /// What leads to `name`, from a page in "in".
    std::vector<std::string> waysTo(const std::string& name, const std::string& link) const
    {
        const std::string all = m_root.string();
        return {"../" + name,
                "below/../../" + name,
                "%2e%2e/" + name,
                all + "/" + name,
                all + "/in2/" + name,
                "file://" + all + "/" + name,
                "file:///in/.." + all + "/" + name,
                "file://localhost" + all + "/" + name,
                "up/" + name,
                "up/in2/" + name,
                link};
    }

    const QTemporaryDir m_folder;
    std::filesystem::path m_root;
};

TEST_F(BrowserFiles, areReadWhereTheProgramAllowsItAndNowhereElse)
{
    const std::string page = (m_root / "in/page.html").string();
    const auto expectKept = [&](const char* what) {
        SCOPED_TRACE(what);
        for (const std::string& way : waysTo("red.png", "link.png")) {
            m_browser->setText("<img src='" + way + "'><img src='below/green.png'>");
            turn();
            EXPECT_FALSE(shows(Qt::red)) << way;
            EXPECT_TRUE(shows(Qt::green)) << way;
            m_browser->setText("<body background='" + way + "'>text");
            EXPECT_FALSE(shows(Qt::red)) << way;
        }
        for (const std::string& way : waysTo("secret.html", "link.html")) {
            m_browser->imitateLink(way);
            EXPECT_EQ(m_browser->text().substr(0, 12), "No document:") << way;
            m_browser->goBack();
        }
    };
    m_browser->imitateLink(page);
    EXPECT_EQ(m_browser->text(), "No document: " + page);
    m_browser->setSource(page);
    EXPECT_EQ(m_browser->text(), "page");
    expectKept("by the program's own page");
    m_browser->imitateLink("below/../page.html");
    EXPECT_EQ(m_browser->text(), "page");

    delete m_browser;
    m_browser = new VXTextBrowser2;
    m_handle = m_browser;
    m_browser->show();
    m_browser->setFilePath({(m_root / "other").string()}); // a link that the program names itself
    m_browser->setSource("page.html");
    EXPECT_EQ(m_browser->text(), "page");
    expectKept("by the search paths");
    m_browser->setFilePath({});
    m_browser->setText("<img src='" + (m_root / "in/below/green.png").string() + "'>");
    EXPECT_TRUE(shows(Qt::green)) << "the program has gone to that folder";
}

TEST_F(BrowserFiles, areNotReachedByDrawingsNorTheNetwork)
{
    m_browser->setFilePath({(m_root / "in").string()});
    const std::string red = (m_root / "red.png").string();
    const auto drawing = [](const std::string& inside, const std::string& before = {}) {
        return QByteArray::fromStdString(
            before
            + "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink'"
              " width='40' height='40'><rect width='40' height='40' fill='#00ff00'/>"
            + inside + "</svg>");
    };
    const std::string image = "<image xlink:href='" + red + "' width='40' height='40'/>";
    const auto show = [&](const QByteArray& bytes) {
        write("in/drawing.svg", bytes);
        m_browser->setText("<img src='drawing.svg'>");
    };
    show(drawing(""));
    ASSERT_TRUE(shows(Qt::green)) << "there are drawings";
    for (const QByteArray& hostile :
         {drawing(image), "\xef\xbb\xbf" + drawing(image), "   \n" + drawing(image),
          drawing("&x;", "<!DOCTYPE svg [<!ENTITY x \"" + image + "\">]>"),
          drawing("<image xlink:href='data:image/svg+xml;base64,"
                  + drawing(image).toBase64().toStdString() + "' width='40' height='40'/>")}) {
        show(hostile);
        EXPECT_FALSE(shows(Qt::red)) << hostile.constData();
        m_browser->setText("<img src='data:image/svg+xml;base64," + hostile.toBase64().toStdString()
                           + "'>");
        EXPECT_FALSE(shows(Qt::red)) << hostile.constData();
    }
    m_browser->setText("<img src='data:image/png;base64,"
                       + picture(Qt::blue).toBase64().toStdString()
                       + "'><img src='data:,%'><img src='data:'>");
    EXPECT_TRUE(shows(Qt::blue));

    std::wstring asked;
    m_browser->resourceRequested().connect(
        this, [&](const VXTextResourceEvent2& event) { asked += event.url() + L" "; });
    m_browser->setText("<img src='http://localhost:1/a.png'>");
    turn();
    m_browser->imitateLink("https://localhost:1/page");
    EXPECT_EQ(asked, L"http://localhost:1/a.png https://localhost:1/page ");
    EXPECT_EQ(m_browser->text(), "No document: https://localhost:1/page");
}

TEST_F(BrowserFiles, letTheProgramRefuseThem)
{
    m_browser->resourceRequested().connect(
        this, [](const VXTextResourceEvent2& event) { event.refuse(); });
    m_browser->setSource((m_root / "in/page.html").string());
    EXPECT_EQ(m_browser->text().substr(0, 12), "No document:");
}

TEST_F(BrowserFiles, takeAnyAddress)
{
    for (const std::string& source :
         {std::string(), std::string("a\0b", 3), std::string("file:///a\0b", 11),
          std::string("file:///%00"), std::string(100000, '/'), std::string(100000, 'x'),
          std::string("::::"), std::string("file://"), std::string("qrc:"),
          std::string("qrc:/../etc"), std::string("http://[::"), std::string("\xff\xfe"),
          std::string("data:,x"), m_root.string(), std::string("/dev/zero")}) {
        m_browser->setSource(source);
        m_browser->imitateLink(source);
        m_browser->setText("<img src=\"" + source + "\"><a href=\"" + source + "\">x</a>");
        EXPECT_TRUE(view().viewport()->grab().width() > 0);
        m_browser->reload();
    }
    m_browser->setSource(std::wstring{L'h', wchar_t(0xd800), L':'});
    m_browser->scrollToAnchor(std::wstring(1, wchar_t(0xdfff)));
}

} // namespace
} // namespace VOXI
