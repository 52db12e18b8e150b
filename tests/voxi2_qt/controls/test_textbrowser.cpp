#include "browsersupport.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2_qt/controls/qttextbrowser2.h"
#include "voxi2_qt/kernel/qttext.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFile>
#include <QGuiApplication>
#include <QMenu>
#include <QTemporaryDir>
#include <QWheelEvent>

#include <climits>
#include <limits>
#include <stdexcept>

namespace VOXI {
namespace {

class TextBrowserTest : public BrowserTest
{
protected:
    TextBrowserTest()
    {
        m_browser->setBuffers({"first", "  second,\n\n\nas it is ", "<b>third</b>"});
    }

    void expectShown(const char* text, const char* source) const
    {
        EXPECT_EQ(m_browser->text(), text);
        EXPECT_EQ(m_browser->source(), source);
    }
};

TEST_F(TextBrowserTest, showsBuffersByTheirNumbers)
{
    EXPECT_EQ(m_browser->currentBuffer(), -1);
    m_browser->setCurrentBuffer(3);
    expectShown("third", "buffer://3");
    m_browser->setCurrentBuffer(2);
    expectShown("  second,\n\n\nas it is ", "buffer://2");
    EXPECT_EQ(view().document()->firstBlock().begin().fragment().charFormat().fontWeight(),
              QFont::Normal);
    EXPECT_EQ(m_browser->currentBuffer(), 2);
    m_browser->setBuffersU({L"x", L"\u00e4\u20ac\U0001F600"});
    m_browser->setCurrentBuffer(2);
    EXPECT_EQ(m_browser->textU(), L"\u00e4\u20ac\U0001F600");

    for (const char* source :
         {"buffer://two", "buffer://", "buffer://1#x", "buffer://%31", "buffer://+9"}) {
        m_browser->setSource(source);
        EXPECT_EQ(m_browser->text(), std::string("Invalid buffer format: ") + source);
        EXPECT_EQ(m_browser->source(), source);
    }
    EXPECT_EQ(m_browser->currentBuffer(), 2);
    m_browser->setText("a text of its own");
    EXPECT_EQ(m_browser->currentBuffer(), 2);
}

TEST_F(TextBrowserTest, refusesBuffersThatThereAreNot)
{
    m_browser->setCurrentBuffer(1);
    for (const int number : {0, -1, 4, INT_MAX, INT_MIN})
        EXPECT_THROW(m_browser->setCurrentBuffer(number), std::out_of_range);
    EXPECT_THROW(m_browser->setSource("buffer://4"), std::out_of_range);
    EXPECT_THROW(m_browser->setSource(L"buffer://5"), std::out_of_range);
    expectShown("first", "buffer://1");
    EXPECT_EQ(m_browser->currentBuffer(), 1);
}

#ifndef NDEBUG
TEST_F(TextBrowserTest, diesOfALinkToABufferThatThereIsNot)
{
    EXPECT_DEATH(m_browser->imitateLink("buffer://4"), "index out of range");
}
#else
TEST_F(TextBrowserTest, saysThatALinkLeadsToNoBuffer)
{
    m_browser->setCurrentBuffer(1);
    m_browser->imitateLink("buffer://4");
    expectShown("No such buffer: buffer://4", "buffer://4");
    EXPECT_EQ(m_browser->currentBuffer(), 1);
}
#endif

TEST_F(TextBrowserTest, leavesLinksOfTheHostAlone)
{
    Log followed(m_browser->linkActivated());
    Log gone(m_browser->sourceChanged());
    for (const char* target : {"kestra:do?it=1#x", "ddgrefresh:"}) {
        m_browser->setBuffers({std::string("<a href='") + target + "'>a link to be clicked</a>"});
        m_browser->setCurrentBuffer(1);
        clickLink();
        EXPECT_EQ(narrowFromWide(followed.last().target()), target);
        EXPECT_TRUE(followed.takeOne());
        expectShown("a link to be clicked", "buffer://1");
        m_browser->setSource(target);
        expectShown("a link to be clicked", "buffer://1");
    }
    EXPECT_TRUE(gone.isEmpty());
    EXPECT_EQ(m_browser->history().size(), 1u);
}

TEST_F(TextBrowserTest, followsLinksAndTheHistoryAsItsUserWishes)
{
    Log gone(m_browser->sourceChanged());
    Log titled(m_browser->titleChanged());
    Log moved(m_browser->historyChanged());
    m_browser->setBuffers({"<title>one</title><p><a href='buffer://2'>a long link</a></p>"
                               + std::string(9000, 'x') + "<p>" + std::string(9000, 'x'),
                           "<title>two</title><p><a href='buffer://3'>another link</a></p>",
                           "three"});
    EXPECT_FALSE(button("Back").isEnabled());
    EXPECT_FALSE(button("Forward").isEnabled());
    m_browser->setCurrentBuffer(1);
    EXPECT_TRUE(gone.isEmpty() && titled.isEmpty() && moved.isEmpty());
    EXPECT_FALSE(m_browser->isBackAvailable());

    clickLink();
    expectShown("another link", "buffer://2");
    EXPECT_EQ(gone.only().source(), L"buffer://2");
    EXPECT_EQ(titled.only().title(), L"two");
    EXPECT_TRUE(moved.takeOne());
    clickLink();
    m_browser->goBack();
    m_browser->goBack();
    EXPECT_EQ(gone.count(), 2);
    EXPECT_EQ(m_browser->title(), L"one");
    view().verticalScrollBar()->setValue(50);
    const std::vector<PageVisit> all{
        {L"buffer://1", L"one"}, {L"buffer://2", L"two"}, {L"buffer://3", L""}};
    EXPECT_EQ(m_browser->history(), all);
    EXPECT_EQ(m_browser->historyPlace(), 0);

    m_browser->setHistoryPlace(2);
    expectShown("three", "buffer://3");
    m_browser->setHistoryPlace(3);
    m_browser->setHistoryPlace(-1);
    EXPECT_EQ(m_browser->historyPlace(), 2);
    m_browser->setHistoryPlace(0);
    EXPECT_EQ(m_browser->history(), all);
    EXPECT_EQ(m_browser->currentBuffer(), 3);
    EXPECT_EQ(gone.count(), 2);

    QTest::mouseClick(&button("Forward"), Qt::LeftButton);
    EXPECT_EQ(gone.count(), 3);
    QTest::mouseClick(&button("Back"), Qt::LeftButton);
    EXPECT_EQ(view().verticalScrollBar()->value(), 50);
    m_browser->imitateForward();
    m_browser->imitateHome();
    EXPECT_EQ(m_browser->source(), "buffer://1");
    EXPECT_EQ(gone.count(), 6);
    m_browser->clearHistory();
    EXPECT_EQ(m_browser->history().size(), 1u);
    EXPECT_FALSE(button("Back").isEnabled() || button("Forward").isEnabled());
    m_browser->imitateBack();
    EXPECT_EQ(gone.count(), 6);
}

TEST_F(TextBrowserTest, letsHandlersRefuseLinksAndGoElsewhere)
{
    m_browser->setCurrentBuffer(1);
    auto refusing = m_browser->linkActivated().connect(
        this, [](const VXTextBrowserLinkEvent2& event) { event.refuse(); });
    m_browser->imitateLink("buffer://3");
    expectShown("first", "buffer://1");
    refusing.disconnect();
    m_browser->linkActivated().connect(this, [this] { m_browser->setText("elsewhere"); });
    m_browser->imitateLink("buffer://3");
    expectShown("elsewhere", "buffer://1");
}

TEST_F(TextBrowserTest, isThroughWhenItTellsThatItHasGoneElsewhere)
{
    m_browser->setBuffers({"<a href='buffer://2'>a link to be clicked</a>", "second", "third"});
    m_browser->setCurrentBuffer(1);
    m_browser->sourceChanged().connect(this, [this] { m_browser->setCurrentBuffer(3); });
    clickLink();
    expectShown("third", "buffer://3");
    EXPECT_EQ(m_browser->historyPlace(), 2);
    m_browser->goBack();
    expectShown("second", "buffer://2");
}

TEST_F(TextBrowserTest, scrollsToAnchorsWithinABuffer)
{
    const std::string far = "<p>x</p><p>" + std::string(9000, 'x') + "</p><a name='far'>far</a>";
    m_browser->setBuffers({"<a href='#far'>a link down</a>" + far});
    m_browser->setCurrentBuffer(1);
    EXPECT_EQ(view().verticalScrollBar()->value(), 0);
    clickLink();
    EXPECT_GT(view().verticalScrollBar()->value(), 0);
    EXPECT_EQ(m_browser->source(), "buffer://1");
    EXPECT_FALSE(m_browser->isBackAvailable());
    view().verticalScrollBar()->setValue(0);
    m_browser->scrollToAnchor("far");
    EXPECT_GT(view().verticalScrollBar()->value(), 0);
}

TEST_F(TextBrowserTest, findsTextsAndSelectsThem)
{
    Log selected(m_browser->selectionChanged());
    m_browser->setText(L"\U0001F600 One and one, someone: one");
    EXPECT_TRUE(m_browser->find({L"one"}));
    EXPECT_EQ(m_browser->selection(), (TextRange{2, 3}));
    EXPECT_TRUE(m_browser->find({.text = L"one", .wholeWords = true}));
    EXPECT_TRUE(m_browser->find({.text = L"one", .wholeWords = true}));
    EXPECT_EQ(m_browser->selection(), (TextRange{24, 3}));
    EXPECT_TRUE(m_browser->find({.text = L"one", .isBackward = true}));
    EXPECT_EQ(m_browser->selection(), (TextRange{19, 3}));
    EXPECT_TRUE(m_browser->find({.text = L"One", .caseSensitive = true}));
    EXPECT_EQ(m_browser->selection(), (TextRange{2, 3})) << "it goes on at the start";
    for (const TextSearch& vain :
         {TextSearch{L""}, TextSearch{L"two"},
          TextSearch{.text = L"One", .caseSensitive = true, .wraps = false}}) {
        EXPECT_FALSE(m_browser->find(vain));
        EXPECT_EQ(m_browser->selectedText(), L"One");
    }
    m_browser->setSelection({-5, INT_MAX});
    EXPECT_EQ(m_browser->selectedText(), m_browser->textU());
    EXPECT_TRUE(selected.isEmpty());
    QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, {200, 200});
    EXPECT_FALSE(selected.isEmpty());
}

TEST_F(TextBrowserTest, givesTheSelectionInSeveralFormats)
{
    m_browser->setText("plain <b>bold</b>");
    EXPECT_TRUE(m_browser->selectedData().isEmpty());
    m_browser->selectAll();
    const VXMimeData2 data = m_browser->selectedData();
    EXPECT_EQ(data.text(), L"plain bold");
    EXPECT_NE(data.html().find(L"font-weight"), std::wstring::npos);
    m_browser->copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("plain bold"));
}

TEST_F(TextBrowserTest, zoomsByTheWheelAndKeepsItsFont)
{
    Log zoomed(m_browser->zoomChanged());
    m_browser->setFont(VXFont("DejaVu Sans", 10));
    m_browser->setZoom(200);
    EXPECT_EQ(view().font().pointSizeF(), 20);
    m_browser->setFont(VXFont("DejaVu Serif", 12));
    EXPECT_EQ(view().font().pointSizeF(), 24);
    EXPECT_EQ(view().font().family(), QStringLiteral("DejaVu Serif"));
    EXPECT_TRUE(zoomed.isEmpty());
    QWheelEvent wheel({9, 9}, view().viewport()->mapToGlobal(QPointF(9, 9)), {}, {0, -240}, {},
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view().viewport(), &wheel);
    EXPECT_EQ(zoomed.only().percent(), 180);
    m_browser->setZoom(-7);
    EXPECT_EQ(m_browser->zoom(), 10);
    m_browser->setZoom(100);
    EXPECT_EQ(view().font().pointSizeF(), 12);
}

TEST_F(TextBrowserTest, printsIntoAFileOrLeavesItAlone)
{
    const QTemporaryDir folder;
    const std::filesystem::path file = toFilePath(folder.filePath(QStringLiteral("p\u00e4ge.pdf")));
    const auto begin = [&] {
        QFile read(toQFileName(file));
        EXPECT_TRUE(read.open(QIODevice::ReadOnly));
        return read.read(5);
    };
    m_browser->setText("<h1>Title</h1>" + std::string(20000, 'x'));
    EXPECT_TRUE(m_browser->printToPdf(file));
    EXPECT_EQ(begin(), "%PDF-");
    QFile kept(toQFileName(file));
    ASSERT_TRUE(kept.open(QIODevice::WriteOnly));
    kept.write("mine.");
    kept.close();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const PaperSize& paper :
         {PaperSize{0, 100}, PaperSize{-1, 9}, PaperSize{100, nan}, PaperSize{1e9, 1e9}})
        EXPECT_FALSE(m_browser->printToPdf(file, paper));
    EXPECT_EQ(begin(), "mine.");
    EXPECT_FALSE(m_browser->printToPdf({}));
    EXPECT_FALSE(m_browser->printToPdf(file / "below.pdf"));
}

// The widget --------------------------------------------------------------------------------------

TEST_F(TextBrowserTest, hasABarOfButtonsThatCanBeHidden)
{
    const QAbstractButton& back = button("Back");
    const QAbstractButton& forward = button("Forward");
    const QAbstractButton& home = button("Home");
    EXPECT_EQ(back.pos(), QPoint(0, 0));
    EXPECT_EQ(forward.pos(), QPoint(back.width(), 0));
    EXPECT_EQ(home.pos(), QPoint(back.width() + forward.width(), 0));
    EXPECT_EQ(back.parentWidget()->height(), back.height());
    EXPECT_TRUE(home.isEnabled());
    EXPECT_EQ(home.accessibleName(), QStringLiteral("Home"));
    EXPECT_EQ(view().backgroundRole(), QPalette::Base);

    const int height = view().height();
    m_browser->hideToolBar();
    turn();
    EXPECT_FALSE(back.isVisible());
    EXPECT_FALSE(m_browser->isToolBarVisible());
    EXPECT_GT(view().height(), height);
    m_browser->showToolBar();
    EXPECT_TRUE(back.isVisible());
}

TEST_F(TextBrowserTest, drawsItsButtonsForBothScalesAndAllTheirStates)
{
    QAbstractButton& home = button("Home");
    EXPECT_TRUE(view().hasFocus()) << "the page comes first";
    const QImage plain = home.grab().toImage();
    const QPixmap small = home.icon().pixmap(home.iconSize(), 1);
    const QPixmap large = home.icon().pixmap(home.iconSize(), 2);
    EXPECT_EQ(small.size(), QSize(24, 24));
    EXPECT_EQ(large.size(), QSize(48, 48));
    EXPECT_NE(large.toImage(), small.scaled(large.size(), {}, Qt::SmoothTransformation).toImage());
    m_browser->setActiveWindow();
    home.setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(home.hasFocus());
    const QImage focused = home.grab().toImage();
    EXPECT_NE(focused, plain);
    home.setDown(true);
    EXPECT_NE(home.grab().toImage(), focused);
    home.setDown(false);
    home.setEnabled(false);
    EXPECT_NE(home.grab().toImage(), plain);
}

TEST_F(TextBrowserTest, reportsTheFocusOfWhatIsInsideAsItsOwn)
{
    VXPanel2 window;
    auto& first = *new VXTextBrowser2(&window);
    auto& second = *new VXTextBrowser2(&window);
    second.moveTo({0, 100});
    window.show();
    window.setActiveWindow();
    ASSERT_TRUE(waitFor([&] { return qt(window)->isActiveWindow(); }));
    Log gained(second.focusGained());
    Log lost(first.focusLost());
    first.setFocus();
    EXPECT_TRUE(first.hasFocus());
    second.setFocus();
    EXPECT_TRUE(second.hasFocus());
    EXPECT_TRUE(gained.isEmpty());
    EXPECT_TRUE(lost.takeOne());
    first.setFocus();
    QTest::mouseClick(qt(second)->findChild<QTextBrowser*>()->viewport(), Qt::LeftButton);
    EXPECT_TRUE(gained.takeOne());
}

TEST_F(TextBrowserTest, makesWayForTheProgramsContextMenu)
{
    const auto ask = [this] {
        const QPoint place(20, 20);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                view().viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(view().viewport(), &event);
    };
    ask();
    auto* const own = view().findChild<QMenu*>();
    ASSERT_NE(own, nullptr);
    delete own;
    Log asked(m_browser->contextMenuRequested());
    ask();
    const QPoint place = view().viewport()->mapTo(qt(*m_browser), QPoint(20, 20));
    EXPECT_EQ(asked.only().position(), (VXPoint<int>{place.x(), place.y()}));
    EXPECT_EQ(view().findChild<QMenu*>(), nullptr);
}

TEST_F(TextBrowserTest, passesTheWishToStayOnTopOn)
{
    Log wished(m_browser->alwaysOnTop());
    dynamic_cast<QtTextBrowser2&>(peer(*m_browser)).setAlwaysOnTop(true);
    EXPECT_TRUE(wished.only().isOnTop());
}

} // namespace
} // namespace VOXI
