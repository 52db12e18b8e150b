#include "voxi_util/anytext.h"
#include "voxi_util/textencoding.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <type_traits>

using namespace VOXI;
using namespace std::string_literals;

namespace {

/// The encoding belongs to the process; each test leaves it as it found it.
class TextEncoding : public testing::Test
{
protected:
    void TearDown() override { setNarrowTextEncoding(NarrowTextEncoding::Latin1); }
};

} // namespace

TEST_F(TextEncoding, latin1KeepsEveryByteBothWays)
{
    ASSERT_EQ(narrowTextEncoding(), NarrowTextEncoding::Latin1);
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    const std::wstring wide = wideFromNarrow(bytes);
    ASSERT_EQ(wide.size(), 256u);
    for (std::size_t i = 0; i < wide.size(); ++i)
        EXPECT_EQ(static_cast<std::size_t>(wide[i]), i);
    EXPECT_EQ(narrowFromWide(wide), bytes);
}

TEST_F(TextEncoding, latin1HasAQuestionMarkForEachUtf16UnitItCannotHold)
{
    EXPECT_EQ(narrowFromWide(L"\u00e4\u0100\u20ac!"), "\xe4?\?!");
    EXPECT_EQ(narrowFromWide(L"<\U0001f600>"), "<?\?>");
    const std::wstring pair{static_cast<wchar_t>(0xd83d), static_cast<wchar_t>(0xde00)};
    EXPECT_EQ(narrowFromWide(pair), "??");
    EXPECT_EQ(narrowFromWide(pair.substr(0, 1)), "?");
    EXPECT_EQ(narrowFromWide(std::wstring(1, static_cast<wchar_t>(0x110000))), "?");
}

TEST_F(TextEncoding, theSwitchChangesBothDirections)
{
    ASSERT_TRUE(setNarrowTextEncoding(NarrowTextEncoding::Utf8));
    EXPECT_EQ(wideFromNarrow("\xc3\xa4"), L"\u00e4");
    EXPECT_EQ(narrowFromWide(L"\u20ac"), "\xe2\x82\xac");
    ASSERT_TRUE(setNarrowTextEncoding(NarrowTextEncoding::Latin1));
    EXPECT_EQ(wideFromNarrow("\xc3\xa4"), L"\u00c3\u00a4");
}

TEST_F(TextEncoding, aTextToBeShownIsMadeFromAnyString)
{
    // Which way it goes, and what arrives there.
    const auto narrow = [](const AnyText& text) {
        std::string arrived = "another way";
        text.passTo([&](const std::string& each, int) { arrived = each; },
                    [](const std::wstring&, int) {}, 1);
        return arrived;
    };
    const auto wide = [](const AnyText& text) {
        std::wstring arrived = L"another way";
        text.passTo([](const std::string&) {}, [&](const std::wstring& each) { arrived = each; });
        EXPECT_EQ(text.toWide(), arrived);
        return arrived;
    };
    const std::string bytes("\xc3\xa4\0b", 4);
    const std::wstring letters(L"\u00e4\0b", 3);
    for (const auto encoding : {NarrowTextEncoding::Latin1, NarrowTextEncoding::Utf8}) {
        ASSERT_TRUE(setNarrowTextEncoding(encoding));
        EXPECT_EQ(narrow("\xc3\xa4"), "\xc3\xa4");
        EXPECT_EQ(narrow(bytes), bytes);
        EXPECT_EQ(narrow(std::string(bytes)), bytes);
        EXPECT_EQ(narrow(std::string_view(bytes)), bytes);
        EXPECT_EQ(AnyText(bytes).toWide(), wideFromNarrow(bytes));

        EXPECT_EQ(wide(u8"\u00e4\U0001f600"), L"\u00e4\U0001f600");
        EXPECT_EQ(wide(std::u8string(u8"\u00e4\0b", 4)), letters);
        EXPECT_EQ(wide(std::u8string_view(u8"\u00e4\0b", 4)), letters);
        EXPECT_EQ(wide(u"\u00e4\U0001f600"), L"\u00e4\U0001f600");
        EXPECT_EQ(wide(std::u16string(u"\u00e4\0b", 3)), letters);
        EXPECT_EQ(wide(std::u16string_view(u"\u00e4\0b", 3)), letters);
        EXPECT_EQ(wide(L"\u00e4"), L"\u00e4");
        EXPECT_EQ(wide(letters), letters);
        EXPECT_EQ(wide(std::wstring(letters)), letters);
        EXPECT_EQ(wide(std::wstring_view(letters)), letters);
    }

    // What is not kept is not copied.
    const std::string* arrived = nullptr;
    AnyText(bytes).passTo([&](const std::string& each) { arrived = &each; },
                          [](const std::wstring&) {});
    EXPECT_EQ(arrived, &bytes);
    auto gone = std::make_unique<std::string>(1000, 'x');
    const KeptText text = *gone;
    gone.reset();
    EXPECT_EQ(narrow(text), std::string(1000, 'x'));
    EXPECT_EQ(wide(KeptText(u"\u00e4")), L"\u00e4");

    EXPECT_TRUE(AnyText().isEmpty());
    EXPECT_EQ(narrow({}), "");
    EXPECT_EQ(narrow(static_cast<const char*>(nullptr)), "");
    EXPECT_EQ(wide(static_cast<const wchar_t*>(nullptr)), L"");
    // Where an object may be passed as well, null is one.
    static_assert(!std::is_convertible_v<std::nullptr_t, AnyText>);
    static_assert(!std::is_convertible_v<int, AnyText>);
}

// A lock cannot be undone, so the test takes place in a process of its own.
TEST(TextEncodingDeathTest, aLockedEncodingStaysAsItIs)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            const bool chosen = setNarrowTextEncoding(NarrowTextEncoding::Utf8);
            lockNarrowTextEncoding();
            const bool refused = !setNarrowTextEncoding(NarrowTextEncoding::Latin1);
            const bool same = setNarrowTextEncoding(NarrowTextEncoding::Utf8);
            const bool kept = narrowTextEncoding() == NarrowTextEncoding::Utf8;
            std::exit(chosen && refused && same && kept ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(TextEncoding, utf8RoundTripsAtEveryLengthBoundary)
{
    for (const char32_t c : {U'\0', U'\x7f', U'\x80', U'\x7ff', U'\x800', U'\xd7ff', U'\xe000',
                             U'\xffff', U'\x10000', U'\x10ffff'}) {
        const std::wstring wide{L'a', static_cast<wchar_t>(c), L'z'};
        const std::string utf8 = utf8FromWide(wide);
        EXPECT_EQ(utf8.size(), 2u + (c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4));
        EXPECT_EQ(wideFromUtf8(utf8), wide) << static_cast<unsigned>(c);
    }
}

TEST_F(TextEncoding, illFormedUtf8GivesReplacementsAndGoesOn)
{
    const std::wstring bad(1, L'\ufffd');
    EXPECT_EQ(wideFromUtf8("a\x80z"), L"a" + bad + L"z");               // no lead
    EXPECT_EQ(wideFromUtf8("\xc3"), bad);                               // cut off
    EXPECT_EQ(wideFromUtf8("\xe2\x82|"), bad + L"|");                   // cut off by another
    EXPECT_EQ(wideFromUtf8("\xf0\x9f\x98\xc3\xa4"), bad + L"\u00e4");   // cut off by a good one
    EXPECT_EQ(wideFromUtf8("\xc0\xaf"), bad + bad);                     // overlong
    EXPECT_EQ(wideFromUtf8("\xe0\x80\xaf"), bad + bad + bad);           // overlong
    EXPECT_EQ(wideFromUtf8("\xed\xa0\x80"), bad + bad + bad);           // surrogate
    EXPECT_EQ(wideFromUtf8("\xf4\x90\x80\x80"), bad + bad + bad + bad); // beyond the last
    EXPECT_EQ(wideFromUtf8("\xff"), bad);
    const std::wstring lone{static_cast<wchar_t>(0xdc00)};
    EXPECT_EQ(utf8FromWide(lone), "\xef\xbf\xbd");
}

TEST_F(TextEncoding, utf16SurvivesTheWayThereAndBack)
{
    const std::u16string text = u"a\u20ac\U0001f600\0z"s;
    const std::wstring wide = wideFromUtf16(text);
    EXPECT_EQ(wide, L"a\u20ac\U0001f600\0z"s);
    EXPECT_EQ(utf16FromWide(wide), text);
    // Lone halves, in the wrong order too.
    const std::u16string lone{0xde00, 0xd83d, u'x', 0xd83d};
    EXPECT_EQ(utf16FromWide(wideFromUtf16(lone)), lone);
    EXPECT_EQ(utf16FromWide(std::wstring(1, static_cast<wchar_t>(0x7fffffff))), u"\ufffd");
}
