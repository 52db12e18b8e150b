// The small values: flags, geometry, colours, fonts, lists of texts, counters and scopes.

#include "support/inparallel.h"
#include "voxi_util/ascending.h"
#include "voxi_util/atomiccounter.h"
#include "voxi_util/color.h"
#include "voxi_util/geometry.h"
#include "voxi_util/readwritelock.h"
#include "voxi_util/scopedflagtoggler.h"
#include "voxi_util/transform.h"
#include "voxi_util/vxflags.h"
#include "voxi_util/vxfont.h"
#include "voxi_util/vxstringlist.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <mutex>
#include <numbers>
#include <numeric>
#include <shared_mutex>
#include <utility>
#include <vector>

namespace {

enum class Part : unsigned { None = 0, A = 1, B = 2, AB = 3, Top = 0x80000000u };
enum Plain { PlainA = 1, PlainB = 4 };

} // namespace

template <>
inline constexpr bool VOXI::EnableFlags<Part> = true;

using namespace VOXI;

TEST(VXFlags, combinationNeedsAllOfItsBits)
{
    constexpr VXFlags<Part> flags = Part::A | Part::Top;
    static_assert(flags.toInt() == 0x80000001u);
    EXPECT_TRUE(flags.testFlag(Part::Top));
    EXPECT_FALSE(flags.testFlag(Part::AB));
    EXPECT_TRUE((flags | Part::B).testFlag(Part::AB));
    EXPECT_FALSE(flags.testFlag(Part::None));
    EXPECT_TRUE(VXFlags<Part>().testFlag(Part::None));
}

TEST(VXFlags, operatorsWorkOnTheWholeSet)
{
    VXFlags<Part> flags = Part::A | Part::B;
    flags.setFlag(Part::A, false).setFlag(Part::Top);
    EXPECT_EQ(flags, Part::B | Part::Top);
    EXPECT_EQ(flags & Part::AB, Part::B);
    EXPECT_EQ(flags ^ Part::AB, Part::A | Part::Top);
    EXPECT_EQ(~flags & VXFlags<Part>(Part::AB), Part::A);
    EXPECT_EQ(VXFlags<Part>::fromInt(flags.toInt()), flags);
    EXPECT_FALSE(flags & Part::A);

    VXFlags<Plain> plain = PlainA;
    plain |= PlainB;
    EXPECT_EQ(plain.toInt(), 5u);
}

TEST(Geometry, insideEndsBeforeTheFarEdges)
{
    constexpr VXRect<int> rect{10, 20, 5, 4};
    EXPECT_TRUE(rect.contains({10, 20}));
    EXPECT_TRUE(rect.contains({14, 23}));
    EXPECT_FALSE(rect.contains({15, 23}));
    EXPECT_FALSE(rect.contains({14, 24}));
    EXPECT_FALSE(rect.contains({9, 20}));
    EXPECT_FALSE((VXRect<int>{10, 20, 0, 4}.contains({10, 20})));

    EXPECT_TRUE(rect.intersects({14, 23, 9, 9}));
    EXPECT_FALSE(rect.intersects({15, 20, 9, 9}));
    EXPECT_FALSE(rect.intersects({5, 20, 5, 4}));
    EXPECT_FALSE(rect.intersects({12, 21, 0, 2}));
}

TEST(Geometry, marginsAndCellsKeepTheirOrder)
{
    const auto margins = VXRect<int>::margins(1, 2, 3, 4);
    EXPECT_EQ(margins, (VXRect<int>{1, 2, 3, 4}));
    EXPECT_EQ((std::array{margins.marginLeft(), margins.marginTop(), margins.marginRight(),
                          margins.marginBottom()}),
              (std::array{1, 2, 3, 4}));
    const auto cell = VXRect<int>::cell(5, 6, 1, 2);
    EXPECT_EQ((std::array{cell.row(), cell.column(), cell.rowSpan(), cell.columnSpan()}),
              (std::array{5, 6, 1, 2}));
}

namespace {
void expectNear(VXPoint<double> point, VXPoint<double> expected)
{
    EXPECT_NEAR(point.x, expected.x, 1e-12);
    EXPECT_NEAR(point.y, expected.y, 1e-12);
}
} // namespace

TEST(Transform, composesInReadingOrderAndInverts)
{
    const Transform move = Transform::translation(10, 0);
    const Transform grow = Transform::scaling(2, 3);
    EXPECT_EQ((move * grow).map({1, 1}), (VXPoint<double>{22, 3}));
    EXPECT_EQ((grow * move).map({1, 1}), (VXPoint<double>{12, 3}));

    // Clockwise where y grows downwards: right turns to down.
    const Transform turn = Transform::rotation(std::numbers::pi / 2);
    expectNear(turn.map({1, 0}), {0, 1});

    const Transform all = turn * grow * move;
    const auto inverse = all.inverted();
    ASSERT_TRUE(inverse);
    expectNear(inverse->map(all.map({3, -7})), {3, -7});
    EXPECT_FALSE(Transform::scaling(0, 1).inverted());
    EXPECT_FALSE(Transform::scaling(std::nan(""), 1).inverted());
}

TEST(Transform, mapsARectangleToItsBounds)
{
    const VXRect<double> mirrored = Transform::scaling(-2, 1).mapRect(VXRect<double>{1, 2, 3, 4});
    EXPECT_EQ(mirrored, (VXRect<double>{-8, 2, 6, 4}));
    const double half = std::sqrt(0.5);
    const VXRect<double> turned =
        Transform::rotation(std::numbers::pi / 4).mapRect(VXRect<double>{0, 0, 1, 1});
    expectNear({turned.x, turned.y}, {-half, 0});
    expectNear({turned.width, turned.height}, {2 * half, 2 * half});
}

TEST(Color, channelsLieFromRedOnTopToAlphaBelow)
{
    constexpr Color color(0x12, 0x34, 0x56, 0x78);
    static_assert(color.rgba() == 0x12345678u);
    EXPECT_EQ(color, Color::fromRgba(0x12345678u));
    EXPECT_EQ(Color().rgba(), 0x000000ffu);
    EXPECT_EQ(Color(-5, 300, 0).rgba(), 0x00ff00ffu);

    Color changed = color;
    changed.setGreen(0xff);
    changed.setAlphaF(0.5);
    EXPECT_EQ(changed.rgba(), 0x12ff5680u);
    changed.setRedF(std::numeric_limits<double>::quiet_NaN());
    changed.setBlueF(7);
    EXPECT_EQ(changed.rgba(), 0x00ffff80u);
    for (int value = 0; value < 256; ++value) {
        Color again;
        again.setGreenF(Color(0, value, 0).greenF());
        EXPECT_EQ(again.green(), value);
    }
}

TEST(Color, textsOfTwoLengthsAreRead)
{
    EXPECT_EQ(Color::fromText("#1a2B3c"), Color(0x1a, 0x2b, 0x3c));
    EXPECT_EQ(Color::fromText("#1a2B3c00"), Color(0x1a, 0x2b, 0x3c, 0));
    EXPECT_EQ(Color(1, 2, 3, 4).toText(), "#01020304");
    for (const char* bad : {"", "#", "1a2b3c", "#1a2b3", "#1a2b3c4", "#1a2b3g", "#-1a2b3",
                            "#0x1234", "# 1a2b3", "#1a2b3c4d5"})
        EXPECT_FALSE(Color::fromText(bad)) << bad;
}

TEST(VXFont, comparesAllItsParts)
{
    const VXFont font("Sans", 12, VXFont::Bold, FontStyle::Italic);
    VXFont other = font;
    EXPECT_EQ(font, other);
    other.setUnderline(true);
    EXPECT_NE(font, other);
    other = font;
    other.setWeight(1000);
    EXPECT_EQ(other.weight(), 99);
    EXPECT_NE(font, other);
    EXPECT_TRUE(font.isBold());
    EXPECT_FALSE(VXFont().isBold());
}

TEST(VXStringList, joinsAndSplits)
{
    const VXStringList list{"a", "", "b"};
    EXPECT_EQ(list.join(", "), "a, , b");
    EXPECT_EQ(VXStringList::split("a, , b", ", "), list);
    EXPECT_EQ(VXStringList::split("", ","), VXStringList{""});
    EXPECT_EQ(VXStringList::split(",", ","), (VXStringList{"", ""}));
    EXPECT_EQ(VXStringList::split("a,b", ""), VXStringList{"a,b"});
    EXPECT_EQ(VXStringList().join(","), "");
    EXPECT_TRUE(list.contains(""));
    EXPECT_FALSE(list.contains("c"));
}

TEST(ScopedFlagToggler, restoresTheFormerValueAtEachLevel)
{
    bool flag = true;
    {
        const ScopedFlagToggler outer(flag);
        EXPECT_FALSE(flag);
        {
            const ScopedFlagToggler inner(flag, false);
            flag = true;
        }
        EXPECT_FALSE(flag);
    }
    EXPECT_TRUE(flag);
}

// The plain numbers are what the locks guard: the thread sanitizer watches them.
TEST(ReadWriteLock, writersAloneAndReadersBetweenThem)
{
    ReadWriteLock lock;
    AtomicCounter readsThatSawHalf;
    int first = 0;
    int second = 0;
    inParallel(4, [&](int t) {
        const auto write = [&](const auto& /*locker*/) {
            ++first;
            ++second;
        };
        const auto read = [&](const auto& /*locker*/) {
            if (first != second)
                ++readsThatSawHalf;
        };
        for (int i = 0; i < 1000; ++i) {
            if (t % 2 == 0)
                i % 2 ? write(WriteLocker(lock)) : write(std::unique_lock(lock));
            else
                i % 2 ? read(ReadLocker(lock)) : read(std::shared_lock(lock));
        }
    });
    EXPECT_EQ(first, 2000);
    EXPECT_EQ(readsThatSawHalf.value(), 0);
}

/// Whichever way several are compared at once.
TEST(Ascending, isOnlyWhatHasNoFaultAnywhere)
{
    constexpr unsigned Size = 70;
    for (const unsigned first : {0U, 0x7fffffe0U, 0xffffff00U}) {
        for (unsigned size = 0; size < Size; ++size) {
            std::vector<unsigned> values(size);
            std::iota(values.begin(), values.end(), first);
            EXPECT_TRUE(isAscending(values));
            for (unsigned i = 1; i < size; ++i) {
                const unsigned right = std::exchange(values[i], values[i - 1]);
                EXPECT_FALSE(isAscending(values)) << first << ' ' << size << ' ' << i;
                values[i] = right;
            }
        }
    }
}
