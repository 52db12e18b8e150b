#include "voxi_util/color.h"
#include "voxi_util/imagecompositor.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

using namespace VOXI;
using namespace std::string_literals;
using Mode = Icon::IconMode;
using State = Icon::IconState;

namespace {

constexpr std::uint32_t red = 0xff0000ff;
constexpr std::uint32_t green = 0x00ff00ff;
constexpr std::uint32_t blue = 0x0000ffff;
constexpr std::uint32_t clear = 0;

Pixmap filled(int extent, std::uint32_t rgba)
{
    const auto count = static_cast<std::size_t>(extent) * static_cast<std::size_t>(extent);
    return Pixmap(extent, extent, std::vector<std::uint32_t>(count, rgba));
}

Pixmap composed(const Icon& icon, int extent, Mode mode = Mode::Normal, State state = State::Off)
{
    return ImageCompositor::compose(icon, {extent, extent}, mode, state);
}

/// What an icon of one colour per source shows.
std::uint32_t shown(const Icon& icon, int extent, Mode mode = Mode::Normal,
                    State state = State::Off)
{
    const Pixmap pixmap = composed(icon, extent, mode, state);
    EXPECT_EQ(pixmap.size(), (Size<int>{extent, extent}));
    return pixmap.isNull() ? clear : pixmap.pixels()[0];
}

void expectNear(std::uint32_t rgba, Color expected)
{
    const Color color = Color::fromRgba(rgba);
    for (const auto channel : {&Color::red, &Color::green, &Color::blue, &Color::alpha})
        EXPECT_LE(std::abs((color.*channel)() - (expected.*channel)()), 1) << color.toText();
}

/// Decodes the bytes "red" at the wanted size; anything else it cannot read.
class RedDecoder : public ImageDecoder
{
public:
    Pixmap decode(const Pixmap& source, Size<int> wanted) override
    {
        return source.data().bytes() == "red" ? filled(wanted.width, red) : Pixmap();
    }
};

} // namespace

TEST(Pixmap, isNullUnlessThePixelsFit)
{
    EXPECT_TRUE(Pixmap(2, 2, {1, 2, 3}).isNull());
    EXPECT_TRUE(Pixmap(0, 0, {}).isNull());
    EXPECT_TRUE(Pixmap(-1, -1, {1}).isNull());
    EXPECT_TRUE(Pixmap::fromFile("").isNull());
    EXPECT_TRUE(Pixmap::fromData({}).isNull());
    EXPECT_FALSE(Pixmap::fromFile("a.png").isRaw());
    EXPECT_EQ(Pixmap(1, 2, {1, 2}), Pixmap(1, 2, {1, 2}));
    EXPECT_NE(Pixmap(1, 2, {1, 2}), Pixmap(2, 1, {1, 2}));
    EXPECT_NE(Pixmap::fromFile("a.png"), Pixmap::fromData(ByteArray("a.png"s)));
    EXPECT_NE(Pixmap::fromFile("a.png"), Pixmap());
}

TEST(Icon, isEqualByContentAndUnsharedByChange)
{
    EXPECT_EQ(Icon::fromFile("a.svg"), Icon::fromFile("a.svg"));
    EXPECT_NE(Icon::fromFile("a.svg"), Icon::fromFile("b.svg"));
    EXPECT_NE(Icon::fromFile("a.svg"), Icon());
    EXPECT_TRUE(Icon::fromFile("").isNull());

    const Icon plain = Icon::fromPixmap(filled(2, red));
    Icon changed = plain;
    EXPECT_EQ(changed.identity(), plain.identity());
    changed.addPixmap(Pixmap());
    EXPECT_EQ(changed, plain);
    changed.addPixmap(filled(4, red), Mode::Selected);
    EXPECT_NE(changed, plain);
    EXPECT_EQ(plain.availableSizes(), (std::vector<Size<int>>{{2, 2}}));
    EXPECT_EQ(changed.availableSizes(Mode::Selected), (std::vector<Size<int>>{{4, 4}}));

    Icon faded;
    faded.addLayer(plain, {0, 0, 1, 1}, 0.5);
    EXPECT_NE(faded, plain);
}

TEST(ImageCompositor, takesTheSmallestPictureThatIsLargeEnough)
{
    Icon icon = Icon::fromPixmap(filled(8, red));
    icon.addPixmap(filled(32, blue));
    icon.addPixmap(filled(16, green));
    EXPECT_EQ(shown(icon, 8), red);
    EXPECT_EQ(shown(icon, 9), green);
    EXPECT_EQ(shown(icon, 16), green);
    EXPECT_EQ(shown(icon, 20), blue);
    EXPECT_EQ(shown(icon, 64), blue);
}

TEST(ImageCompositor, fallsBackBetweenModesAndStates)
{
    Icon icon = Icon::fromPixmap(filled(4, red));
    for (const Mode mode : {Mode::Active, Mode::Selected})
        EXPECT_EQ(shown(icon, 4, mode, State::On), red);
    icon.addPixmap(filled(4, green), Mode::Normal, State::On);
    icon.addPixmap(filled(4, blue), Mode::Selected, State::Off);
    EXPECT_EQ(shown(icon, 4, Mode::Normal, State::On), green);
    EXPECT_EQ(shown(icon, 4, Mode::Active, State::On), green);
    EXPECT_EQ(shown(icon, 4, Mode::Selected, State::Off), blue);
    EXPECT_EQ(shown(icon, 4, Mode::Normal, State::Off), red);

    Icon onlyOn;
    onlyOn.addPixmap(filled(4, green), Mode::Normal, State::On);
    EXPECT_EQ(shown(onlyOn, 4), green);
}

TEST(ImageCompositor, derivesAMissingDisabledPicture)
{
    Icon icon = Icon::fromPixmap(filled(4, red));
    expectNear(shown(icon, 4, Mode::Disabled), Color(76, 76, 76, 128));
    icon.addPixmap(filled(4, blue), Mode::Disabled);
    EXPECT_EQ(shown(icon, 4, Mode::Disabled), blue);
}

TEST(ImageCompositor, averagesDownAndInterpolatesUp)
{
    // Hidden colour does not bleed: a clear pixel weighs nothing.
    const Icon half = Icon::fromPixmap(Pixmap(2, 2, {red, 0x00ff0000, 0x00ff0000, red}));
    expectNear(composed(half, 1).pixels()[0], Color(255, 0, 0, 128));
    // Three to two: the middle row and column are shared.
    const Icon third =
        Icon::fromPixmap(Pixmap(3, 3, {red, blue, blue, red, blue, blue, red, blue, blue}));
    const Pixmap two = composed(third, 2);
    expectNear(two.pixels()[0], Color(170, 0, 85));
    expectNear(two.pixels()[1], Color(0, 0, 255));

    const Icon pair = Icon::fromPixmap(Pixmap(2, 2, {red, blue, red, blue}));
    const Pixmap four = composed(pair, 4);
    EXPECT_EQ(four.pixels()[0], red);
    expectNear(four.pixels()[1], Color(191, 0, 64));
    expectNear(four.pixels()[2], Color(64, 0, 191));
    EXPECT_EQ(four.pixels()[3], blue);
}

TEST(ImageCompositor, keepsProportionsInTheMiddle)
{
    const Icon flat = Icon::fromPixmap(Pixmap(4, 2, std::vector<std::uint32_t>(8, green)));
    const Pixmap square = composed(flat, 4);
    EXPECT_EQ(square.pixels(),
              (std::vector<std::uint32_t>{clear, clear, clear, clear, green, green, green, green,
                                          green, green, green, green, clear, clear, clear, clear}));
}

TEST(ImageCompositor, laysLayersOverEachOther)
{
    Icon icon = Icon::fromPixmap(filled(4, red));
    icon.addLayer(Icon::fromPixmap(filled(2, blue)), {0.5, 0.5, 0.5, 0.5});
    const Pixmap cornered = composed(icon, 4);
    EXPECT_EQ(cornered.pixels()[4 * 1 + 1], red);
    EXPECT_EQ(cornered.pixels()[4 * 1 + 2], red);
    EXPECT_EQ(cornered.pixels()[4 * 2 + 2], blue);
    EXPECT_EQ(cornered.pixels()[4 * 3 + 3], blue);

    Icon tinted = Icon::fromPixmap(filled(4, red));
    tinted.addLayer(Icon::fromPixmap(filled(4, blue)), {0, 0, 1, 1}, 0.25);
    expectNear(shown(tinted, 4), Color(191, 0, 64));

    // A layer of a layer is placed within it.
    Icon nested;
    nested.addLayer(icon, {0, 0, 0.5, 0.5});
    const Pixmap small = composed(nested, 4);
    EXPECT_EQ(small.pixels()[0], red);
    EXPECT_EQ(small.pixels()[4 * 1 + 1], blue);
    EXPECT_EQ(small.pixels()[4 * 2 + 2], clear);

    // What sticks out on either side is cut off.
    Icon outside;
    outside.addLayer(Icon::fromPixmap(filled(4, green)), {-0.5, -0.5, 1, 1});
    outside.addLayer(Icon::fromPixmap(filled(4, blue)), {0.5, 0.5, 1, 1});
    EXPECT_EQ(composed(outside, 4).pixels()[0], green);
    EXPECT_EQ(composed(outside, 4).pixels()[3], clear);
    EXPECT_EQ(composed(outside, 4).pixels()[15], blue);
}

TEST(ImageCompositor, undecodablePicturesLeaveNothing)
{
    const Icon coded = Icon::fromPixmap(Pixmap::fromData(ByteArray("red"s)));
    EXPECT_TRUE(composed(coded, 4).isNull());
    EXPECT_TRUE(composed(Icon(), 4).isNull());
    EXPECT_TRUE(composed(Icon::fromPixmap(filled(4, red)), 0).isNull());

    const auto decoder = std::make_shared<RedDecoder>();
    ImageDecoder::install(decoder);
    EXPECT_EQ(shown(coded, 4), red);
    Icon partly = Icon::fromPixmap(filled(8, green));
    partly.addPixmap(Pixmap::fromFile("no such file"), Mode::Normal, State::Off, {4, 4});
    partly.addPixmap(Pixmap::fromFile("no such file"), Mode::Disabled);
    EXPECT_EQ(shown(partly, 4), green);
    expectNear(shown(partly, 4, Mode::Disabled), Color(150, 150, 150, 128));
    Icon mixed = Icon::fromFile("no such file");
    EXPECT_TRUE(composed(mixed, 4).isNull());
    mixed.addLayer(coded);
    EXPECT_EQ(shown(mixed, 4), red);
    ImageDecoder::install(nullptr);
    EXPECT_EQ(decoder.use_count(), 1);
    EXPECT_TRUE(composed(coded, 4).isNull());
}

TEST(ImageCompositor, onlyWhatIsSeenOfALayerIsMade)
{
    const Icon checks = Icon::fromPixmap(Pixmap(2, 2, {red, green, blue, red}));
    // A layer three times as large shows its middle.
    Icon middle = Icon::fromPixmap(filled(1, red));
    middle.addLayer(checks, {-1, -1, 3, 3});
    const Pixmap whole = composed(checks, 12);
    const Pixmap part = composed(middle, 4);
    for (std::size_t y = 0; y < 4; ++y)
        for (std::size_t x = 0; x < 4; ++x)
            EXPECT_EQ(part.pixels()[y * 4 + x], whole.pixels()[(y + 4) * 12 + x + 4]);
    EXPECT_TRUE(composed(checks, 4097).isNull()) << "too large";
    EXPECT_EQ(ImageCompositor::compose(checks, {1 << 24, 1}, Mode::Normal, State::Off).height(), 1);
}

TEST(ImageCompositor, picturesMuchTooLargeAreLookedAtHereAndThere)
{
    std::vector<std::uint32_t> pixels(1000 * 1000, blue);
    std::fill_n(pixels.begin(), 500 * 1000, red);
    const Pixmap small = composed(Icon::fromPixmap(Pixmap(1000, 1000, std::move(pixels))), 2);
    EXPECT_EQ(small.pixels(), (std::vector<std::uint32_t>{red, red, blue, blue}));
}
