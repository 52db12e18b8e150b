#include "voxi_util/imagecompositor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace VOXI {
namespace {

/// Red, green, blue and alpha of 0 to 1, premultiplied: only so may pixels be averaged.
using Sample = std::array<float, 4>;

struct Plane
{
    int width = 0;
    int height = 0;
    std::vector<Sample> samples;

    Plane(int w, int h)
        : width(w),
          height(h),
          samples(static_cast<std::size_t>(w) * static_cast<std::size_t>(h))
    {}
    Sample& at(int x, int y) { return samples[index(x, y)]; }
    const Sample& at(int x, int y) const { return samples[index(x, y)]; }

private:
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width)
               + static_cast<std::size_t>(x);
    }
};

/// 0 for a source of exactly the mode and state; the less it suits, the more.
int mismatch(const Icon::Source& source, Icon::IconMode mode, Icon::IconState state)
{
    const int modeStep = source.mode == mode ? 0 : source.mode == Icon::IconMode::Normal ? 1 : 4;
    return modeStep + (source.state == state ? 0 : 2);
}

bool coversSize(Size<int> size, Size<int> wanted)
{
    return size.width >= wanted.width && size.height >= wanted.height;
}

/// Large enough and as small as possible, else of no size of its own, else as large as possible.
bool suitsBetter(Size<int> a, Size<int> b, Size<int> wanted)
{
    const auto rank = [wanted](Size<int> size) {
        return size.isEmpty() ? 1 : coversSize(size, wanted) ? 0 : 2;
    };
    const auto area = [](Size<int> size) { return static_cast<double>(size.width) * size.height; };
    if (rank(a) != rank(b))
        return rank(a) < rank(b);
    return rank(a) == 0 ? area(a) < area(b) : area(a) > area(b);
}

/// All sources of the layer, those that suit best first.
std::vector<const Icon::Source*> bySuitability(const Icon::Layer& layer, Size<int> wanted,
                                               Icon::IconMode mode, Icon::IconState state)
{
    std::vector<const Icon::Source*> sources;
    for (const Icon::Source& source : layer.sources)
        sources.push_back(&source);
    std::stable_sort(
        sources.begin(), sources.end(), [=](const Icon::Source* a, const Icon::Source* b) {
            const int difference = mismatch(*a, mode, state) - mismatch(*b, mode, state);
            return difference != 0 ? difference < 0
                                   : suitsBetter(a->nominalSize, b->nominalSize, wanted);
        });
    return sources;
}

/// Null when it cannot be decoded.
Pixmap rawPixmap(const Pixmap& pixmap, Size<int> wanted)
{
    if (pixmap.isRaw())
        return pixmap;
    const std::shared_ptr<ImageDecoder> decoder = ImageDecoder::installed();
    const Pixmap decoded = decoder ? decoder->decode(pixmap, wanted) : Pixmap();
    return decoded.isRaw() ? decoded : Pixmap();
}

struct Picture
{
    Pixmap pixmap;
    bool isForMode = false;
};

/// The best picture of a layer that can be decoded; a null one when there is none.
Picture bestPicture(const Icon::Layer& layer, Size<int> wanted, Icon::IconMode mode,
                    Icon::IconState state)
{
    for (const Icon::Source* const source : bySuitability(layer, wanted, mode, state)) {
        Pixmap pixmap = rawPixmap(source->pixmap, wanted);
        if (!pixmap.isNull())
            return {std::move(pixmap), source->mode == mode};
    }
    return {};
}

Sample sampleOf(std::uint32_t rgba)
{
    const float alpha = static_cast<float>(rgba & 0xffu) / 255.f;
    const auto premultiplied = [rgba, alpha](int shift) {
        return static_cast<float>(rgba >> shift & 0xffu) / 255.f * alpha;
    };
    return {premultiplied(24), premultiplied(16), premultiplied(8), alpha};
}

Pixmap pixmapOf(const Plane& plane)
{
    std::vector<std::uint32_t> pixels;
    pixels.reserve(plane.samples.size());
    for (const Sample& sample : plane.samples) {
        const auto byte = [](float value) {
            return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.f, 1.f) * 255.f));
        };
        const float alpha = sample[3];
        if (byte(alpha) == 0) {
            pixels.push_back(0);
            continue;
        }
        pixels.push_back(byte(sample[0] / alpha) << 24 | byte(sample[1] / alpha) << 16
                         | byte(sample[2] / alpha) << 8 | byte(alpha));
    }
    return Pixmap(plane.width, plane.height, std::move(pixels));
}

struct Share
{
    int from;
    float weight;
};

/// Which source positions each of `count` positions from `first` on, of `target` in all, is made
/// of: by area when there are fewer than in the source, else linear between the two nearest.
std::vector<std::vector<Share>> sharesOf(int source, int target, int first, int count)
{
    constexpr double Enough = 64; // more for one position would not be seen
    std::vector<std::vector<Share>> shares;
    const double step = static_cast<double>(source) / target;
    for (int i = first; i < first + count; ++i) {
        std::vector<Share>& own = shares.emplace_back();
        if (step > Enough) {
            for (double k = 0; k < Enough; ++k) {
                const double at = (i + (k + 0.5) / Enough) * step;
                own.push_back({std::min(static_cast<int>(at), source - 1), float(1 / Enough)});
            }
        } else if (target < source) {
            const double begin = i * step;
            const double end = begin + step;
            for (int k = static_cast<int>(begin); k < source && k < end; ++k) {
                const double covered = std::min(end, k + 1.0) - std::max(begin, double(k));
                own.push_back({k, static_cast<float>(covered / step)});
            }
        } else {
            const double centre = std::clamp((i + 0.5) * step - 0.5, 0.0, source - 1.0);
            const int low = static_cast<int>(centre);
            const auto part = static_cast<float>(centre - low);
            own.push_back({low, 1 - part});
            if (part > 0)
                own.push_back({low + 1, part});
        }
    }
    return shares;
}

void addWeighted(Sample& sum, const Sample& sample, float weight)
{
    for (std::size_t i = 0; i < sum.size(); ++i)
        sum[i] += sample[i] * weight;
}

/// The part `shown` of what the pixmap becomes when it is scaled to `size`. Works row by row: a
/// pixmap may be much larger than what is seen of it.
Plane scaled(const Pixmap& source, Size<int> size, const VXRect<int>& shown)
{
    const auto columns = sharesOf(source.width(), size.width, shown.x, shown.width);
    const auto rows = sharesOf(source.height(), size.height, shown.y, shown.height);
    struct Row
    {
        int m_y = -1;
        std::vector<Sample> m_samples;
    };
    std::array<Row, 2> recent; // neighbours are asked for again
    const auto narrowed = [&](int y) -> const std::vector<Sample>& {
        Row& row = recent[static_cast<std::size_t>(y) % recent.size()];
        if (row.m_y != y) {
            row.m_y = y;
            row.m_samples.assign(columns.size(), Sample{});
            const auto* const pixels =
                source.pixels().data()
                + static_cast<std::size_t>(y) * static_cast<std::size_t>(source.width());
            for (std::size_t x = 0; x < columns.size(); ++x)
                for (const Share& share : columns[x])
                    addWeighted(row.m_samples[x], sampleOf(pixels[share.from]), share.weight);
        }
        return row.m_samples;
    };
    Plane result(shown.width, shown.height);
    for (int y = 0; y < shown.height; ++y) {
        for (const Share& share : rows[static_cast<std::size_t>(y)]) {
            const std::vector<Sample>& row = narrowed(share.from);
            for (int x = 0; x < shown.width; ++x)
                addWeighted(result.at(x, y), row[static_cast<std::size_t>(x)], share.weight);
        }
    }
    return result;
}

void makeDisabled(Plane& plane)
{
    for (Sample& sample : plane.samples) {
        const float grey = 0.299f * sample[0] + 0.587f * sample[1] + 0.114f * sample[2];
        sample = {grey / 2, grey / 2, grey / 2, sample[3] / 2};
    }
}

/// Source over: what is below shows as far as the source, which fits, is transparent.
void draw(Plane& canvas, const Plane& source, VXPoint<int> at, double opacity)
{
    const auto factor = static_cast<float>(opacity > 0 ? std::min(opacity, 1.0) : 0.0);
    for (int y = 0; y < source.height; ++y) {
        for (int x = 0; x < source.width; ++x) {
            const Sample& above = source.at(x, y);
            Sample& pixel = canvas.at(at.x + x, at.y + y);
            const float remaining = 1 - above[3] * factor;
            for (std::size_t i = 0; i < pixel.size(); ++i)
                pixel[i] = above[i] * factor + pixel[i] * remaining;
        }
    }
}

/// The placement in pixels; fractions far outside would ask for pictures of any size.
VXRect<int> boxOf(const VXRect<double>& placement, Size<int> pixels)
{
    const auto edge = [](double fraction, int extent) {
        const double limited = fraction > -4 ? std::min(fraction, 4.0) : -4.0;
        return static_cast<int>(std::lround(limited * extent));
    };
    const int left = edge(placement.x, pixels.width);
    const int top = edge(placement.y, pixels.height);
    return {left, top, edge(placement.x + placement.width, pixels.width) - left,
            edge(placement.y + placement.height, pixels.height) - top};
}

/// The largest of the picture's proportions that fits.
Size<int> fitted(Size<int> picture, Size<int> box)
{
    const double factor = std::min(static_cast<double>(box.width) / picture.width,
                                   static_cast<double>(box.height) / picture.height);
    const auto extent = [factor](int value) {
        return std::max(1, static_cast<int>(std::lround(value * factor)));
    };
    return {extent(picture.width), extent(picture.height)};
}

} // namespace

Pixmap ImageCompositor::compose(const Icon& icon, Size<int> pixels, Icon::IconMode mode,
                                Icon::IconState state)
{
    if (pixels.isEmpty() || icon.isNull() || pixels.width > MaxPixels / pixels.height)
        return {};
    Plane canvas(pixels.width, pixels.height);
    bool anything = false;
    for (const Icon::Layer& layer : icon.layers()) {
        const VXRect<int> box = boxOf(layer.placement, pixels);
        if (box.isEmpty())
            continue;
        const auto [pixmap, isForMode] = bestPicture(layer, box.size(), mode, state);
        if (pixmap.isNull())
            continue;
        const bool derive = mode == Icon::IconMode::Disabled && !isForMode;
        // The everyday case costs nothing: one picture that is as it should be.
        if (icon.layers().size() == 1 && !derive && pixmap.size() == pixels
            && box == VXRect<int>{0, 0, pixels.width, pixels.height} && layer.opacity >= 1)
            return pixmap;

        anything = true;
        const Size<int> size = fitted(pixmap.size(), box.size());
        const VXPoint<int> at{box.x + (box.width - size.width) / 2,
                              box.y + (box.height - size.height) / 2};
        const VXPoint<int> seen{std::max(0, at.x), std::max(0, at.y)};
        const Size<int> seenSize{std::min(at.x + size.width, pixels.width) - seen.x,
                                 std::min(at.y + size.height, pixels.height) - seen.y};
        if (seenSize.isEmpty())
            continue;
        Plane picture =
            scaled(pixmap, size, {seen.x - at.x, seen.y - at.y, seenSize.width, seenSize.height});
        if (derive)
            makeDisabled(picture);
        draw(canvas, picture, seen, layer.opacity);
    }
    return anything ? pixmapOf(canvas) : Pixmap();
}

} // namespace VOXI
