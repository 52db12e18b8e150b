#pragma once

#include "voxi_util/voxi_util_export.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace VOXI {

/// A colour of eight bits each of red, green, blue and opacity. The default is opaque black.
///
/// Channels are numbers of 0 to 255, fractions of 0.0 to 1.0; what lies outside is clamped.
class Color
{
public:
    constexpr Color() noexcept = default;
    constexpr Color(int red, int green, int blue, int alpha = 255) noexcept
        : m_rgba(channel(red) << 24 | channel(green) << 16 | channel(blue) << 8 | channel(alpha))
    {}

    /// From 0xRRGGBBAA.
    static constexpr Color fromRgba(std::uint32_t rgba) noexcept
    {
        Color color;
        color.m_rgba = rgba;
        return color;
    }

    /// From "#rrggbb" or "#rrggbbaa", in either case; none when the text is anything else.
    VOXI_UTIL_EXPORT static std::optional<Color> fromText(std::string_view text);

    /// "#rrggbbaa".
    VOXI_UTIL_EXPORT std::string toText() const;

    /// As 0xRRGGBBAA.
    constexpr std::uint32_t rgba() const noexcept { return m_rgba; }

    constexpr int red() const noexcept { return at(24); }
    constexpr int green() const noexcept { return at(16); }
    constexpr int blue() const noexcept { return at(8); }
    constexpr int alpha() const noexcept { return at(0); }

    constexpr double redF() const noexcept { return red() / 255.0; }
    constexpr double greenF() const noexcept { return green() / 255.0; }
    constexpr double blueF() const noexcept { return blue() / 255.0; }
    constexpr double alphaF() const noexcept { return alpha() / 255.0; }

    constexpr void setRed(int value) noexcept { put(24, value); }
    constexpr void setGreen(int value) noexcept { put(16, value); }
    constexpr void setBlue(int value) noexcept { put(8, value); }
    constexpr void setAlpha(int value) noexcept { put(0, value); }

    constexpr void setRedF(double value) noexcept { setRed(fromFraction(value)); }
    constexpr void setGreenF(double value) noexcept { setGreen(fromFraction(value)); }
    constexpr void setBlueF(double value) noexcept { setBlue(fromFraction(value)); }
    constexpr void setAlphaF(double value) noexcept { setAlpha(fromFraction(value)); }

    friend constexpr bool operator==(Color, Color) noexcept = default;

private:
    static constexpr std::uint32_t channel(int value) noexcept
    {
        return static_cast<std::uint32_t>(value < 0 ? 0 : value > 255 ? 255 : value);
    }
    /// Written so that NaN becomes 0.
    static constexpr int fromFraction(double value) noexcept
    {
        return value >= 1 ? 255 : value > 0 ? static_cast<int>(value * 255 + 0.5) : 0;
    }
    constexpr int at(int shift) const noexcept { return static_cast<int>(m_rgba >> shift & 0xffu); }
    constexpr void put(int shift, int value) noexcept
    {
        m_rgba = (m_rgba & ~(0xffu << shift)) | channel(value) << shift;
    }

    std::uint32_t m_rgba = 0x000000ffu;
};

} // namespace VOXI

template <>
struct std::hash<VOXI::Color>
{
    std::size_t operator()(VOXI::Color color) const noexcept
    {
        return std::hash<std::uint32_t>{}(color.rgba());
    }
};
