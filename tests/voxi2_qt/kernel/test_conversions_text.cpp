#include "voxi2_qt/kernel/qttext.h"

#include <QString>

#include <gtest/gtest.h>

using namespace VOXI;

namespace {
class Utf8Scope
{
public:
    Utf8Scope() { EXPECT_TRUE(setNarrowTextEncoding(NarrowTextEncoding::Utf8)); }
    ~Utf8Scope() { setNarrowTextEncoding(NarrowTextEncoding::Latin1); }
};

std::string allBytes()
{
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    return bytes;
}

const QString LoneSurrogate = QStringLiteral("a") + QChar(0xd800) + QStringLiteral("b");
} // namespace

TEST(ConvertText, Latin1KeepsEveryByte)
{
    const QString text = toQString(allBytes());
    ASSERT_EQ(text.size(), 256);
    for (int i = 0; i < 256; ++i)
        EXPECT_EQ(text.at(i).unicode(), i);
    EXPECT_EQ(toStdString(text), allBytes());
    EXPECT_TRUE(toQString(std::string()).isEmpty());
    EXPECT_EQ(toStdString(QString()), "");
}

TEST(ConvertText, Latin1WritesAQuestionMarkForEachForeignUnit)
{
    EXPECT_EQ(toStdString(toQString(u"\u20ac=\u00ff")), "?=\xff");
    EXPECT_EQ(toStdString(toQString(u"\U0001f600\u0100")), "???");
    // At every place of texts of every length.
    for (qsizetype length = 1; length < 100; ++length) {
        for (qsizetype place = 0; place < length; ++place) {
            QString text(length, QChar(0xe9));
            text[place] = QChar(place % 2 ? 0x100 : 0xd83d);
            std::string expected(static_cast<std::size_t>(length), '\xe9');
            expected[static_cast<std::size_t>(place)] = '?';
            ASSERT_EQ(toStdString(text), expected) << length << ", " << place;
        }
    }
}

TEST(ConvertText, TextUpToNul)
{
    const std::string text("one\0two", 7);
    EXPECT_EQ(toQString(text).size(), 7);
    EXPECT_EQ(toQStringUpToNul(text), QStringLiteral("one"));
    EXPECT_EQ(toQStringUpToNul("whole"), QStringLiteral("whole"));
    EXPECT_EQ(toQStringUpToNul(std::string(1, '\0')), QString());
}

TEST(ConvertText, WideTextComesBackUnchanged)
{
    const std::wstring texts[] = {L"", L"plain", L"\u00e9\u20ac\uffff", L"a\U0001f600b\U0010ffff",
                                  std::wstring(L"a\0b", 3)};
    for (const std::wstring& text : texts)
        EXPECT_EQ(toStdWString(toQString(text)), text);
    EXPECT_EQ(toQString(std::wstring(L"a\U0001f600")), toQString(u"a\U0001f600"));
    EXPECT_EQ(toQString(std::wstring(L"a\U0001f600")).size(), 3);
    EXPECT_EQ(toQString(toStdWString(LoneSurrogate)), LoneSurrogate);
    EXPECT_EQ(toQString(std::wstring(1, static_cast<wchar_t>(0x110000))), toQString(u"\ufffd"));
}

TEST(ConvertText, Utf8)
{
    const Utf8Scope utf8;
    EXPECT_EQ(toQString("\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80"),
              toQString(u"\u00e9\u20ac\U0001f600"));
    EXPECT_EQ(toStdString(toQString(u"\u00e9\u20ac\U0001f600")),
              "\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80");
    const std::string withNul("\xc3\xa9\0x", 4);
    EXPECT_EQ(toStdString(toQString(withNul)), withNul);
    EXPECT_EQ(toQStringUpToNul(withNul), toQString(u"\u00e9"));
    // A byte order mark is a character of the text.
    const std::string withMark = "\xef\xbb\xbftext";
    EXPECT_EQ(toQString(withMark), toQString(u"\ufefftext"));
    EXPECT_EQ(toStdString(toQString(withMark)), withMark);
}

TEST(ConvertText, IllFormedUtf8BecomesReplacementCharacters)
{
    const Utf8Scope utf8;
    EXPECT_EQ(toQString("a\xff"), toQString(u"a\ufffd"));
    EXPECT_EQ(toQString("a\xe9z"), toQString(u"a\ufffdz"));
    EXPECT_EQ(toQString("\xe2\x82"), toQString(u"\ufffd"));
    EXPECT_EQ(toStdString(LoneSurrogate), "a\xef\xbf\xbd"
                                          "b");
}
