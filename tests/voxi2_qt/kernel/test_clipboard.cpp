// The clipboard inside of one program; with others: test_clipboard_x11.cpp.

#include "support/reportederrors.h"
#include "support/waitfor.h"
#include "toolkit.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/kernel/vxclipboard2.h"
#include "voxi2_qt/kernel/qtclipboard2.h"
#include "voxi2_qt/kernel/qtmime.h"
#include "voxi_util/vxlazydata.h"

#include <QApplication>
#include <QClipboard>
#include <QEventLoop>
#include <QMimeData>

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace VOXI {
namespace {

using Texts = std::vector<std::string>;

const StringID Own("application/x-own");
const std::string AnyBytes("\0\xff a\0b", 6);

QClipboard& qtClipboard() { return *QApplication::clipboard(); }

ByteArray bytesOf(const any& value)
{
    const auto* const bytes = std::any_cast<ByteArray>(&value);
    return bytes ? *bytes : ByteArray();
}

class Clipboard : public testing::Test
{
protected:
    Clipboard() { m_clipboard.sync(~0u); }
    ~Clipboard() override { m_clipboard.clear(); }

    /// What another program does, as far as Qt tells.
    static void copyElsewhere(const char* text)
    {
        auto* const data = new QMimeData;
        data->setText(QString::fromLatin1(text));
        data->setData(QStringLiteral("application/x-own"), QByteArray::fromStdString(AnyBytes));
        qtClipboard().setMimeData(data);
    }

    std::string retrieved(const StringID& format) const
    {
        return bytesOf(m_clipboard.retrieveData(format)).bytes();
    }

    /// What Qt, or another program by it, gets.
    static std::string pasted(const char* format = "application/x-own")
    {
        const QMimeData* const data = qtClipboard().mimeData();
        return data ? data->data(QLatin1String(format)).toStdString() : std::string();
    }

    VXClipboard2& m_clipboard = *VXClipboard2::instance();
    Log<VXClipboardEvent2> m_changed{m_clipboard.changed()};
};

TEST_F(Clipboard, givesBackWhatItWasGivenWithoutAWord)
{
    EXPECT_NE(QtClipboard2::instance(), nullptr);
    copyElsewhere("before");
    m_changed.clear();
    VXMimeData2 data;
    data.setText(L"\u20ac");
    data.setData(Own, ByteArray(AnyBytes));
    data.setData("application/x-empty", ByteArray());
    m_clipboard.setMimeData(data);
    turn();
    EXPECT_TRUE(m_changed.isEmpty());
    EXPECT_EQ(retrieved(Own), AnyBytes) << "which opens it for reading";
    EXPECT_EQ(m_clipboard.text(), L"\u20ac");
    EXPECT_EQ(m_clipboard.formats(),
              (Texts{"text/plain", "application/x-own", "application/x-empty"}));
    EXPECT_TRUE(m_clipboard.retrieveData("application/x-empty").has_value());
    EXPECT_FALSE(m_clipboard.retrieveData("text/html").has_value());
    EXPECT_FALSE(qtClipboard().signalsBlocked());
}

TEST_F(Clipboard, holdsBackWhatHasNotBeenSeen)
{
    copyElsewhere("one");
    EXPECT_EQ(m_changed.only().change(), 1u);
    EXPECT_EQ(m_changed.only().formats(), (Texts{"text/plain", "application/x-own"}));
    EXPECT_EQ(m_changed.only().clipboard(), &m_clipboard);
    EXPECT_FALSE(m_clipboard.retrieveData(Own).has_value());
    EXPECT_EQ(bytesOf(m_clipboard.data(Own)).bytes(), AnyBytes) << "who asks for what is there now";
    copyElsewhere("two");
    EXPECT_EQ(m_changed.last().change(), 2u);
    m_clipboard.sync(1);
    EXPECT_FALSE(m_clipboard.retrieveData(Own).has_value());
    m_clipboard.sync(2);
    EXPECT_EQ(retrieved("text/plain"), "two");
    EXPECT_EQ(retrieved(Own), AnyBytes);

    m_clipboard.clear();
    ASSERT_EQ(m_changed.count(), 3);
    EXPECT_EQ(m_changed.last().change(), 1u);
    EXPECT_TRUE(m_changed.last().formats().empty());
    m_clipboard.sync(7);
    EXPECT_FALSE(m_clipboard.retrieveData(Own).has_value());
    EXPECT_TRUE(m_clipboard.formats().empty());
    EXPECT_EQ(m_clipboard.text(), L"");
}

TEST_F(Clipboard, hasNoSelectionWhereThePlatformHasNone)
{
    ASSERT_FALSE(m_clipboard.hasSelection());
    VXMimeData2 data;
    data.setText(L"text");
    m_clipboard.setSelection(data);
    EXPECT_TRUE(m_clipboard.formats(ClipboardPlace::Selection).empty());
    EXPECT_FALSE(m_clipboard.data("text/plain", ClipboardPlace::Selection).has_value());
    EXPECT_TRUE(m_clipboard.formats().empty());
    m_clipboard.clearSelection();
}

TEST_F(Clipboard, givesColoursAndPicturesToOthers)
{
    VXMimeData2 data;
    data.setColor(Color(1, 2, 3, 4));
    data.setImage(Pixmap(2, 1, {0xff0000ff, 0x0000ffff}));
    m_clipboard.setMimeData(data);
    EXPECT_EQ(qtClipboard().mimeData()->colorData().value<QColor>(), QColor(1, 2, 3, 4));
    EXPECT_EQ(qtClipboard().image().pixelColor(1, 0), QColor(0, 0, 255));
    const any picture = m_clipboard.data("application/x-voxi-image");
    ASSERT_NE(std::any_cast<Pixmap>(&picture), nullptr);
}

TEST_F(Clipboard, isReadAndWrittenByOtherThreads)
{
    std::atomic<bool> isOver = false;
    const std::jthread worker([&] {
        VXMimeData2 data;
        data.setData(Own, VXLazyData([] { return any(ByteArray(AnyBytes)); }));
        m_clipboard.setMimeData(data);
        EXPECT_EQ(retrieved(Own), AnyBytes);
        isOver = true;
    });
    EXPECT_TRUE(waitFor([&] { return isOver.load(); }));
    EXPECT_EQ(pasted(), AnyBytes);
}

// What is made when it is pasted ------------------------------------------------------------------

class LazyClipboard : public Clipboard
{
protected:
    /// What `make` gives is made when it is asked for.
    void offer(std::function<any()> make)
    {
        VXMimeData2 data;
        data.setData(Own, VXLazyData([this, make] {
                         ++m_made;
                         EXPECT_EQ(std::this_thread::get_id(), m_thread);
                         return make();
                     }));
        m_clipboard.setMimeData(data);
    }

    void put(const char* bytes)
    {
        VXMimeData2 data;
        data.setData(Own, ByteArray(std::string(bytes)));
        m_clipboard.setMimeData(data);
    }

    const std::thread::id m_thread = std::this_thread::get_id();
    int m_made = 0;
    TROV::ReportedErrors m_errors;
};

TEST_F(LazyClipboard, isMadeOnceAndOnlyWhenItIsPasted)
{
    offer([] { return any(ByteArray(AnyBytes)); });
    EXPECT_EQ(m_clipboard.formats(), Texts{"application/x-own"});
    EXPECT_TRUE(qtClipboard().mimeData()->hasFormat(QStringLiteral("application/x-own")));
    EXPECT_EQ(m_made, 0);
    EXPECT_EQ(pasted(), AnyBytes);
    EXPECT_EQ(pasted(), AnyBytes);
    EXPECT_EQ(retrieved(Own), AnyBytes);
    EXPECT_EQ(m_made, 1);
}

TEST_F(LazyClipboard, maySayNoOrThrow)
{
    bool isReady = false;
    offer([&] { return isReady ? any(std::string("text")) : any(); });
    EXPECT_EQ(pasted(), "");
    isReady = true;
    EXPECT_EQ(pasted(), "text");
    EXPECT_EQ(m_made, 2);

    offer([]() -> any { throw std::runtime_error("no"); });
    EXPECT_EQ(pasted(), "");
    EXPECT_EQ(m_errors.take(), Texts{"no"});
    EXPECT_THROW(m_clipboard.retrieveData(Own), std::runtime_error);
    EXPECT_TRUE(m_errors.take().empty());
}

TEST_F(LazyClipboard, mayPutSomethingElseOnTheClipboardMeanwhile)
{
    offer([this] {
        put("new");
        EXPECT_EQ(retrieved(Own), "new") << "which is in force at once";
        EXPECT_EQ(m_clipboard.formats(), Texts{"application/x-own"});
        m_clipboard.clear();
        EXPECT_TRUE(m_clipboard.formats().empty());
        put("newer");
        EXPECT_EQ(pasted(), "") << "Qt has still the old data, which are being made";
        return any(std::string("old"));
    });
    EXPECT_EQ(pasted(), "old");
    EXPECT_EQ(retrieved(Own), "newer");
    EXPECT_TRUE(waitFor([&] { return pasted() == "newer"; }));
    EXPECT_TRUE(m_changed.isEmpty());

    // When the program itself asks, Qt does not.
    offer([this] {
        put("new");
        return any(std::string("old"));
    });
    EXPECT_TRUE(m_clipboard.retrieveData(Own).has_value());
    EXPECT_EQ(pasted(), "new");
}

TEST_F(LazyClipboard, mayDestroyThingsAndLoseTheClipboardInALoop)
{
    auto* const panel = new VXPanel2;
    offer([panel] {
        delete panel;
        QEventLoop loop;
        QMetaObject::invokeMethod(
            &loop,
            [&loop] {
                copyElsewhere("taken"); // Qt destroys the data that are being made
                loop.quit();
            },
            Qt::QueuedConnection);
        loop.exec();
        return any(std::string("too late"));
    });
    EXPECT_EQ(pasted(), "too late");
    EXPECT_EQ(m_changed.only().change(), 1u);
    EXPECT_EQ(pasted("text/plain"), "taken");
    runDeletions();

    // Text is what Qt looks for elsewhere where it finds none.
    VXMimeData2 data;
    data.setData("text/plain", VXLazyData([] {
                     copyElsewhere("taken");
                     return any();
                 }));
    m_clipboard.setMimeData(data);
    EXPECT_EQ(pasted("text/plain"), "");
}

TEST_F(LazyClipboard, isNotMadeAnyMoreWhenTheBackEndHasGone)
{
    auto* const panel = new VXPanel2; // for the clipboard
    VXMimeData2 data;
    data.setData(Own, VXLazyData([this] {
                     ++m_made;
                     return any();
                 }));
    qtClipboard().setMimeData(VX2Qt(data, &peer(*panel)));
    EXPECT_EQ(pasted(), "");
    EXPECT_EQ(m_made, 1);
    delete panel;
    runDeletions();
    EXPECT_EQ(pasted(), "");
    EXPECT_EQ(m_made, 1);
}

} // namespace
} // namespace VOXI
