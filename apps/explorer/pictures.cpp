#include "pictures.h"

#include "voxi_util/bytearray.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace explorer {

using namespace VOXI;

namespace {

constexpr int LongestSide = 1024;

/// Each pixel the mean of those in whose place it stands.
Pixmap shrunken(const Pixmap& picture, int factor)
{
    const int width = picture.width() / factor;
    const int height = picture.height() / factor;
    const std::vector<std::uint32_t>& from = picture.pixels();
    std::vector<std::uint32_t> to;
    to.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            std::array<std::uint32_t, 4> sums{};
            for (int i = 0; i < factor * factor; ++i) {
                const auto at = static_cast<std::size_t>(y * factor + i / factor)
                                    * static_cast<std::size_t>(picture.width())
                                + static_cast<std::size_t>(x * factor + i % factor);
                for (std::size_t channel = 0; channel < sums.size(); ++channel)
                    sums[channel] += from[at] >> (8 * channel) & 0xff;
            }
            std::uint32_t pixel = 0;
            for (std::size_t channel = 0; channel < sums.size(); ++channel)
                pixel |= sums[channel] / static_cast<std::uint32_t>(factor * factor)
                         << (8 * channel);
            to.push_back(pixel);
        }
    }
    return Pixmap(width, height, std::move(to));
}

} // namespace

bool looksLikePicture(std::string_view bytes)
{
    using namespace std::string_view_literals;
    constexpr std::array Starts{"\x89PNG"sv, "\xff\xd8\xff"sv, "GIF8"sv, "BM"sv,
                                "RIFF"sv,    "<svg"sv,         "<?xml"sv};
    return std::any_of(Starts.begin(), Starts.end(),
                       [bytes](std::string_view start) { return bytes.starts_with(start); });
}

Pixmap decodePicture(const std::string& bytes)
{
    const auto decoder = ImageDecoder::installed();
    if (!decoder)
        return {};
    const Pixmap picture = decoder->decode(Pixmap::fromData(ByteArray(bytes)), {0, 0});
    const int longest = std::max(picture.width(), picture.height());
    const int factor = (longest + LongestSide - 1) / LongestSide;
    return factor > 1 ? shrunken(picture, factor) : picture;
}

} // namespace explorer
