#include "support/inparallel.h"
#include "support/watchdog.h"
#include "voxi_util/color.h"
#include "voxi_util/stringid.h"
#include "voxi_util/textencoding.h"
#include "voxi_util/typeinfo.h"
#include "voxi_util/vxstringlist.h"

#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

using namespace VOXI;
using namespace std::string_literals;

namespace {

template <class T>
void expectRoundTrip(const T& value)
{
    const TypeInfo info = TypeInfo::of<T>();
    ASSERT_TRUE(info.isValid());
    const std::string text = info.convertToString(any(value));
    const any back = info.convertFromString(text);
    ASSERT_TRUE(std::any_cast<T>(&back)) << info.name() << ": " << text;
    EXPECT_EQ(std::any_cast<T>(back), value) << info.name() << ": " << text;
}

/// Whether the text stands for no value of the type.
template <class T>
bool refuses(const std::string& text)
{
    return !TypeInfo::of<T>().convertFromString(text).has_value();
}

} // namespace

template <class T>
class TypeInfoInteger : public testing::Test
{};
using Integers = testing::Types<char, signed char, unsigned char, short, unsigned short, int,
                                unsigned, long, unsigned long, long long, unsigned long long>;
TYPED_TEST_SUITE(TypeInfoInteger, Integers);

TYPED_TEST(TypeInfoInteger, holdsItsLimitsAndNothingBeyond)
{
    using Limits = std::numeric_limits<TypeParam>;
    EXPECT_EQ(TypeInfo::of<TypeParam>().family(), TypeFamily::Integer);
    expectRoundTrip<TypeParam>(Limits::min());
    expectRoundTrip<TypeParam>(Limits::max());
    // Ten times the limit, and one past it where that is an even last digit.
    const auto text = [](TypeParam value) {
        return TypeInfo::of<TypeParam>().convertToString(any(value));
    };
    EXPECT_TRUE(refuses<TypeParam>(text(Limits::max()) + "0"));
    std::string beyond = text(Limits::max());
    ++beyond.back();
    EXPECT_TRUE(refuses<TypeParam>(beyond)) << beyond;
    EXPECT_EQ(refuses<TypeParam>("-1"), !Limits::is_signed);
    EXPECT_EQ(text(TypeParam{65}), "65");
    for (const char* bad : {"", " 1", "1 ", "+1", "1.0", "0x1", "one", "1\n", "--1"})
        EXPECT_TRUE(refuses<TypeParam>(bad)) << bad;
}

TEST(TypeInfo, doublesComeBackExactly)
{
    using Limits = std::numeric_limits<double>;
    for (const double value : {0.1, 1.0 / 3, -2.5e-300, 1e300, Limits::max(), Limits::denorm_min(),
                               Limits::epsilon(), -0.0, 123456789.123456789, Limits::infinity()})
        expectRoundTrip(value);
    expectRoundTrip(0.1f);
    expectRoundTrip(std::numeric_limits<float>::max());
    const any nan = TypeInfo::of<double>().convertFromString(
        TypeInfo::of<double>().convertToString(any(Limits::quiet_NaN())));
    EXPECT_TRUE(std::isnan(std::any_cast<double>(nan)));
    for (const char* bad : {"", "1,5", "1.5 ", " 1.5", "1e", "1e999", "0x1p3", "1.5f"})
        EXPECT_TRUE(refuses<double>(bad)) << bad;
}

TEST(TypeInfo, boolsReadTwoSpellings)
{
    const TypeInfo info = TypeInfo::of<bool>();
    EXPECT_EQ(info.family(), TypeFamily::Bool);
    for (const char* yes : {"true", "1"})
        EXPECT_TRUE(std::any_cast<bool>(info.convertFromString(yes)));
    for (const char* no : {"false", "0"})
        EXPECT_FALSE(std::any_cast<bool>(info.convertFromString(no)));
    for (const char* bad : {"", "TRUE", "yes", "2", "true "})
        EXPECT_TRUE(refuses<bool>(bad)) << bad;
    expectRoundTrip(true);
    expectRoundTrip(false);
}

TEST(TypeInfo, textsNamesAndColorsRoundTrip)
{
    expectRoundTrip("a\0\xe4z"s);
    expectRoundTrip(L"\u00e4\0z"s);
    expectRoundTrip(StringID("name\0tail"s));
    expectRoundTrip(Color(1, 2, 3, 4));
    EXPECT_EQ(TypeInfo::of<Color>().convertToString(any(Color(255, 128, 0))), "#ff8000ff");
    EXPECT_TRUE(refuses<Color>("red"));
    EXPECT_TRUE(refuses<Color>("#12345"));
}

TEST(TypeInfo, listsRoundTripWhateverTheirItemsHold)
{
    const VXStringList lists[] = {
        {}, {""}, {"", ""}, {"a"}, {"a", ""}, {"", "a"}, {"a;b", "\\", "c\\;"}, {";"}, {"x\0y"s}};
    for (const VXStringList& list : lists)
        expectRoundTrip(list);
    EXPECT_EQ(TypeInfo::of<VXStringList>().convertToString(any(VXStringList{"a;b", "c"})),
              "a\\;b;c");
    for (const char* bad : {"\\", "a\\b", "a;\\"})
        EXPECT_TRUE(refuses<VXStringList>(bad)) << bad;
}

TEST(TypeInfo, wideTextLosesNothingOnTheWideWay)
{
    const std::wstring text = L"\u20ac \U0001f600";
    const TypeInfo info = TypeInfo::of<std::wstring>();
    EXPECT_EQ(info.convertToUString(any(text)), text);
    EXPECT_EQ(std::any_cast<std::wstring>(info.convertFromUString(text)), text);
    EXPECT_EQ(info.convertToString(any(text)), "? ??");
    EXPECT_EQ(TypeInfo::of<std::string>().convertToUString(any("\xe4"s)), L"\u00e4");
    EXPECT_EQ(std::any_cast<int>(TypeInfo::of<int>().convertFromUString(L"42")), 42);
    EXPECT_FALSE(TypeInfo::of<int>().convertFromUString(L"42\u20ac").has_value());
}

TEST(TypeInfo, unknownTypesHaveNoTextAndNoValue)
{
    struct Unknown
    {};
    for (const TypeInfo& info : {TypeInfo(), TypeInfo::of<Unknown>(), TypeInfo::of(any()),
                                 TypeInfo::byName("no such type")}) {
        EXPECT_FALSE(info.isValid());
        EXPECT_EQ(info.family(), TypeFamily::None);
        EXPECT_EQ(info.name(), "");
        EXPECT_FALSE(info.convertFromString("1").has_value());
    }
    const TypeInfo known = TypeInfo::of<int>();
    EXPECT_EQ(known.convertToString(any()), "");
    EXPECT_EQ(known.convertToString(any(Unknown{})), "");
    // A value of another type than the cell's still shows.
    EXPECT_EQ(known.convertToString(any(true)), "true");
    EXPECT_EQ(TypeInfo::byName(known.name()), known);
}

TEST(TypeInfo, registeredTypesConvertAndKeepWhatTheyHad)
{
    struct Celsius
    {
        int degrees;
    };
    struct Other
    {};
    const auto write = [](const Celsius& value) { return std::to_string(value.degrees) + " C"; };
    const auto read = [](const std::string& text) -> std::optional<Celsius> {
        if (!text.ends_with(" C"))
            return std::nullopt;
        return Celsius{std::stoi(text)};
    };
    const TypeInfo info = TypeInfo::registerType<Celsius>("celsius", write, read);
    ASSERT_TRUE(info.isValid());
    EXPECT_EQ(info.family(), TypeFamily::User);
    EXPECT_EQ(TypeInfo::byName("celsius"), info);
    EXPECT_EQ(TypeInfo::of(any(Celsius{1})), info);
    EXPECT_EQ(info.convertToUString(any(Celsius{21})), L"21 C");
    EXPECT_EQ(std::any_cast<Celsius>(info.convertFromString("-3 C")).degrees, -3);
    EXPECT_FALSE(info.convertFromString("-3 F").has_value());

    EXPECT_EQ(TypeInfo::registerType<Celsius>("kelvin", {}, {}), info);
    EXPECT_FALSE(TypeInfo::byName("kelvin").isValid());
    EXPECT_FALSE(TypeInfo::registerType<Other>("celsius", {}, {}).isValid());
    EXPECT_FALSE(TypeInfo::of<Other>().isValid());
}

namespace {

template <int Number>
struct Numbered
{};

template <int Number>
TypeInfo registerNumbered()
{
    return TypeInfo::registerType<Numbered<Number>>(
        "numbered " + std::to_string(Number),
        [](const Numbered<Number>&) { return std::to_string(Number); },
        [](const std::string&) { return std::optional(Numbered<Number>{}); });
}

template <int... Numbers>
std::array<TypeInfo, sizeof...(Numbers)> registerAll(std::integer_sequence<int, Numbers...>)
{
    return {registerNumbered<Numbers>()...};
}

} // namespace

TEST(TypeInfo, threadsMayRegisterAndLookUpAtTheSameTime)
{
    const Watchdog watchdog(std::chrono::seconds(60), "TypeInfo threads");
    constexpr int typeCount = 64;
    constexpr int threadCount = 4;
    std::array<std::array<TypeInfo, typeCount>, threadCount> found;
    std::atomic<int> wrong{0};
    inParallel(threadCount, [&](int thread) {
        found[std::size_t(thread)] = registerAll(std::make_integer_sequence<int, typeCount>());
        for (int i = 0; i < typeCount; ++i) {
            const TypeInfo info = TypeInfo::byName("numbered " + std::to_string(i));
            const any value = info.convertFromString("");
            if (TypeInfo::of(value) != info || info.convertToString(value) != std::to_string(i))
                ++wrong;
        }
    });
    EXPECT_EQ(wrong, 0);
    for (const auto& other : found)
        EXPECT_EQ(other, found.front());
}
