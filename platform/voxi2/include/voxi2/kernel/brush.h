#pragma once

#include "voxi2/voxi2_export.h"
#include "voxi_util/color.h"
#include "voxi_util/geometry.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace VOXI {

/// A colour on a gradient's way from its beginning, 0, to its end, 1. Positions outside become the
/// nearer end; stops without a number are left out, and of one position the last one counts.
struct GradientStop
{
    double position = 0;
    Color color{};

    friend bool operator==(const GradientStop&, const GradientStop&) = default;
};

/// What a gradient looks like before its beginning and beyond its end.
enum class GradientSpread {
    Pad, ///< the first and the last colour
    Repeat,
    Reflect
};

/// What areas are filled with: nothing, a colour, or colours that go over into each other. A value;
/// copying one copies a pointer.
class VOXI2_EXPORT Brush
{
public:
    static constexpr std::size_t MostStops = 256;

    enum class Style { None, Color, Linear, Radial };

    struct Gradient
    {
        /// The first `MostStops` count.
        std::vector<GradientStop> stops;
        GradientSpread spread = GradientSpread::Pad;
        /// Of a linear gradient where it begins and ends; of a radial one its centre.
        VXPoint<double> from{};
        VXPoint<double> to{};
        /// Of a radial gradient: where it ends.
        double radius = 0;

        friend bool operator==(const Gradient&, const Gradient&) = default;
    };

    /// Fills nothing.
    Brush() noexcept = default;
    Brush(VOXI::Color color) noexcept : m_color(color), m_style(Style::Color) {}

    /// Points are the canvas's. Without any stop it fills nothing.
    static Brush linear(const VXPoint<double>& from, const VXPoint<double>& to,
                        std::vector<GradientStop> stops,
                        GradientSpread spread = GradientSpread::Pad);
    /// The first stop is at the centre, the last one on the circle.
    static Brush radial(const VXPoint<double>& center, double radius,
                        std::vector<GradientStop> stops,
                        GradientSpread spread = GradientSpread::Pad);

    Style style() const noexcept { return m_style; }
    /// Of a brush of one colour.
    VOXI::Color color() const noexcept { return m_color; }
    /// Null for a brush that is no gradient.
    const Gradient* gradient() const noexcept { return m_gradient.get(); }

    friend bool operator==(const Brush& a, const Brush& b) noexcept
    {
        return a.m_style == b.m_style && a.m_color == b.m_color
               && (a.m_gradient == b.m_gradient
                   || (a.m_gradient && b.m_gradient && *a.m_gradient == *b.m_gradient));
    }

private:
    Brush(Style style, Gradient gradient);

    std::shared_ptr<const Gradient> m_gradient;
    VOXI::Color m_color;
    Style m_style = Style::None;
};

} // namespace VOXI
