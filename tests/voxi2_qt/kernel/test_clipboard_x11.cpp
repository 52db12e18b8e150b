// The clipboard between programs, as the X server and they make it.

#include "support/realinput.h"
#include "toolkit.h"
#include "voxi2/kernel/vxclipboard2.h"
#include "voxi_util/vxlazydata.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImage>
#include <QProcess>

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

namespace VOXI {
namespace {

const char* const Format = "application/x-own";
constexpr qsizetype Much = 50'000'000;

/// Another program, which is ended with this.
class Program
{
public:
    Program(const char* name, const QStringList& arguments, const QByteArray& input = {})
    {
        m_process.start(QLatin1String(name), arguments);
        m_process.write(input);
        m_process.closeWriteChannel();
    }
    ~Program()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    /// What it has said when it has ended.
    QByteArray output()
    {
        EXPECT_TRUE(waitFor([&] { return m_process.state() == QProcess::NotRunning; }, Patience));
        return m_process.readAllStandardOutput();
    }

private:
    QProcess m_process;
};

QStringList words(const char* text) { return QString::fromLatin1(text).split(u' '); }

std::unique_ptr<Program> partner(const char* words)
{
    return std::make_unique<Program>(VOXI_CLIPBOARD_PARTNER, VOXI::words(words));
}

QByteArray manyBytes(qsizetype size)
{
    QByteArray bytes(size, '\0');
    for (qsizetype i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(i * 31 / 7);
    return bytes;
}

ByteArray toolkitBytes(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

QByteArray asRead(const QByteArray& bytes)
{
    return "read " + QByteArray::number(bytes.size()) + ' '
           + QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
}

class ClipboardOfMany : public testing::Test
{
protected:
    ByteArray read(const char* format = Format,
                   ClipboardPlace place = ClipboardPlace::Clipboard) const
    {
        const any value = m_clipboard.data(format, place);
        const auto* const bytes = std::any_cast<ByteArray>(&value);
        return bytes ? *bytes : ByteArray();
    }

    void put(const QByteArray& bytes)
    {
        VXMimeData2 data;
        data.setText(L"own \u20ac");
        data.setHtml(L"<b>own</b>");
        data.setUris({"file:///one", "file:///two"});
        data.setData(Format, toolkitBytes(bytes));
        m_clipboard.setMimeData(data);
    }

    /// Has another program copy, and waits until it is announced. It then serves what it has
    /// copied, by a process of its own, until somebody else copies.
    void copy(const QStringList& xclip, const QByteArray& input)
    {
        Program("xclip", xclip, input).output();
        EXPECT_TRUE(
            waitFor([&] { return !m_changed.isEmpty() || !m_selected.isEmpty(); }, Patience));
    }

    /// Whether nothing more is announced: what the server has to tell is here when it has answered.
    bool isQuiet()
    {
        const int before = m_changed.count() + m_selected.count();
        for (int i = 0; i < 3; ++i) {
            m_clipboard.formats();
            turn();
        }
        return m_changed.count() + m_selected.count() == before;
    }

    VXClipboard2& m_clipboard = *VXClipboard2::instance();
    Log<VXClipboardEvent2> m_changed{m_clipboard.changed()};
    Log<VXClipboardEvent2> m_selected{m_clipboard.selectionChanged()};
};

TEST_F(ClipboardOfMany, othersReadEveryFormat)
{
    const QByteArray bytes("\0\xff any\0bytes", 11);
    put(bytes);
    EXPECT_EQ(Program("xclip", words("-o -selection clipboard -t application/x-own")).output(),
              bytes);
    EXPECT_EQ(Program("xclip", words("-o -selection clipboard -t UTF8_STRING")).output(),
              "own \xe2\x82\xac");
    EXPECT_EQ(Program("xclip", words("-o -selection clipboard -t text/html")).output(),
              "<b>own</b>");
    EXPECT_EQ(Program("xclip", words("-o -selection clipboard -t text/uri-list")).output(),
              "file:///one\r\nfile:///two\r\n");
    EXPECT_TRUE(isQuiet());
    EXPECT_TRUE(m_changed.isEmpty());

    VXMimeData2 picture;
    picture.setImage(Pixmap(2, 1, {0xff0000ff, 0x0000ffff}));
    m_clipboard.setMimeData(picture);
    const QByteArray png = Program("xclip", words("-o -selection clipboard -t image/png")).output();
    EXPECT_EQ(QImage::fromData(png, "PNG").pixelColor(1, 0), QColor(0, 0, 255));
}

TEST_F(ClipboardOfMany, aCopyElsewhereIsAnnouncedOnceAndRead)
{
    put("own");
    const QByteArray bytes("\0\xff\0", 3);
    copy(words("-i -selection clipboard -t application/x-own"), bytes);
    EXPECT_TRUE(isQuiet());
    EXPECT_EQ(m_changed.only().change(), 1u);
    EXPECT_EQ(
        std::count(m_changed.last().formats().begin(), m_changed.last().formats().end(), Format),
        1);
    EXPECT_FALSE(m_clipboard.retrieveData(Format).has_value());
    m_clipboard.sync(1);
    EXPECT_TRUE(m_clipboard.retrieveData(Format).has_value());
    EXPECT_EQ(read(), toolkitBytes(bytes));

    m_changed.clear();
    copy(words("-i -selection clipboard"), "text \xe2\x82\xac");
    EXPECT_TRUE(isQuiet());
    EXPECT_EQ(m_changed.only().change(), 1u);
    EXPECT_EQ(m_clipboard.text(), L"text \u20ac");
    m_changed.clear();
    put("own");
    EXPECT_TRUE(isQuiet());
    EXPECT_TRUE(m_changed.isEmpty());
    EXPECT_EQ(m_clipboard.text(), L"own \u20ac");
}

TEST_F(ClipboardOfMany, picturesAndMarkupAndAddressesOfOthersAreRead)
{
    copy(words("-i -selection clipboard -t text/html"), "<b>bold</b>");
    VXMimeData2 data;
    data.setData("text/html", m_clipboard.data("text/html"));
    EXPECT_EQ(data.html(), L"<b>bold</b>");
    m_changed.clear();
    copy(words("-i -selection clipboard -t text/uri-list"), "file:///one\r\nfile:///two\r\n");
    data.setData("text/uri-list", m_clipboard.data("text/uri-list"));
    EXPECT_EQ(data.uris(), (VXStringList{"file:///one", "file:///two"}));

    QImage drawn(3, 2, QImage::Format_RGB32);
    drawn.fill(Qt::red);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    drawn.save(&buffer, "PNG");
    m_changed.clear();
    copy(words("-i -selection clipboard -t image/png"), png);
    EXPECT_EQ(read("image/png"), toolkitBytes(png));
    const any picture = m_clipboard.data("application/x-voxi-image");
    ASSERT_NE(std::any_cast<Pixmap>(&picture), nullptr);
    EXPECT_EQ(std::any_cast<Pixmap>(picture), Pixmap(3, 2, std::vector(6, 0xff0000ffu)));
}

TEST_F(ClipboardOfMany, aClearingIsAnnouncedOnce)
{
    put("own");
    m_clipboard.clear();
    EXPECT_TRUE(isQuiet());
    EXPECT_TRUE(m_changed.only().formats().empty());
    m_changed.clear();
    copy(words("-i -selection clipboard"), "text");
    EXPECT_TRUE(isQuiet());
    EXPECT_TRUE(m_changed.takeOne());
    m_clipboard.clear();
    EXPECT_TRUE(isQuiet());
    EXPECT_TRUE(m_changed.takeOne());

    // Another program copies before the server's word on the clearing is heard, all words on what
    // was before being heard with a copy.
    copy(words("-i -selection clipboard"), "text");
    m_changed.clear();
    put("own");
    m_clipboard.clear();
    m_changed.clear();
    QProcess other;
    other.start(QStringLiteral("xclip"), words("-i -selection clipboard"));
    other.write("soon");
    other.closeWriteChannel();
    EXPECT_TRUE(other.waitForFinished());
    EXPECT_TRUE(waitFor([&] { return !m_changed.isEmpty(); }, Patience));
    EXPECT_TRUE(isQuiet());
    EXPECT_EQ(m_changed.only().change(), 2u);
    EXPECT_EQ(m_clipboard.text(), L"soon");
}

TEST_F(ClipboardOfMany, theSelectionIsAPlaceOfItsOwn)
{
    ASSERT_TRUE(m_clipboard.hasSelection());
    put("own");
    VXMimeData2 data;
    data.setText(L"selected");
    m_clipboard.setSelection(data);
    EXPECT_EQ(Program("xclip", words("-o -selection primary")).output(), "selected");
    EXPECT_EQ(m_clipboard.text(), L"own \u20ac");
    EXPECT_EQ(m_clipboard.text(ClipboardPlace::Selection), L"selected");
    EXPECT_TRUE(isQuiet());
    EXPECT_TRUE(m_selected.isEmpty());
    copy(words("-i -selection primary"), "elsewhere");
    EXPECT_TRUE(isQuiet());
    EXPECT_TRUE(m_selected.takeOne());
    EXPECT_TRUE(m_changed.isEmpty());
    EXPECT_EQ(m_clipboard.text(ClipboardPlace::Selection), L"elsewhere");
    m_clipboard.clearSelection();
    EXPECT_TRUE(m_clipboard.formats(ClipboardPlace::Selection).empty());
    EXPECT_EQ(m_clipboard.text(), L"own \u20ac");
}

TEST_F(ClipboardOfMany, muchGoesBothWays)
{
    const QByteArray bytes = manyBytes(Much);
    put(bytes);
    EXPECT_EQ(partner("read application/x-own")->output().trimmed(), asRead(bytes));
    const auto other = partner("offer application/x-own 50000000");
    ASSERT_TRUE(waitFor([&] { return !m_changed.isEmpty(); }, Patience));
    EXPECT_EQ(read(), toolkitBytes(bytes));
    EXPECT_TRUE(isQuiet());
    EXPECT_EQ(m_changed.count(), 1);
}

TEST_F(ClipboardOfMany, whatIsPastedElsewhereIsMadeThen)
{
    int made = 0;
    VXMimeData2 data;
    data.setData(Format, VXLazyData([&] {
                     ++made;
                     put("new"); // Qt still sends what is being made
                     return any(toolkitBytes("old"));
                 }));
    m_clipboard.setMimeData(data);
    EXPECT_EQ(Program("xclip", words("-o -selection clipboard -t TARGETS")).output().count(Format),
              1);
    EXPECT_EQ(made, 0);
    EXPECT_EQ(Program("xclip", words("-o -selection clipboard -t application/x-own")).output(),
              "old");
    EXPECT_EQ(made, 1);
    EXPECT_EQ(Program("xclip", words("-o -selection clipboard -t application/x-own")).output(),
              "new");
    EXPECT_TRUE(m_changed.isEmpty());
}

TEST_F(ClipboardOfMany, anOwnerMayDieOrLoseTheClipboardWhileItIsRead)
{
    const auto losing = partner("losing application/x-own");
    ASSERT_TRUE(waitFor([&] { return !m_changed.isEmpty(); }, Patience));
    m_changed.clear();
    const ByteArray late = read();
    EXPECT_TRUE(late.isEmpty() || late == toolkitBytes("late"));
    EXPECT_TRUE(waitFor([&] { return !m_changed.isEmpty(); }, Patience));
    EXPECT_TRUE(isQuiet());
    EXPECT_EQ(m_changed.count(), 1);
    EXPECT_EQ(m_clipboard.text(), L"taken");

    m_changed.clear();
    const auto dying = partner("dying application/x-own");
    ASSERT_TRUE(waitFor([&] { return !m_changed.isEmpty(); }, Patience));
    m_changed.clear();
    EXPECT_TRUE(read().isEmpty());
    EXPECT_TRUE(waitFor([&] { return !m_changed.isEmpty(); }, Patience));
    EXPECT_TRUE(isQuiet());
    EXPECT_TRUE(m_changed.only().formats().empty());
    put("own");
    EXPECT_EQ(read(), toolkitBytes("own")) << "the clipboard works on";
}

} // namespace
} // namespace VOXI
