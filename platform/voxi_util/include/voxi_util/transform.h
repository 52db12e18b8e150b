#pragma once

#include "voxi_util/geometry.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace VOXI {

/// An affine map of the plane: x' = a x + c y + dx, y' = b x + d y + dy. The default is identity.
struct Transform
{
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 1;
    double dx = 0;
    double dy = 0;

    static constexpr Transform translation(double x, double y) noexcept
    {
        return {1, 0, 0, 1, x, y};
    }
    static constexpr Transform scaling(double sx, double sy) noexcept
    {
        return {sx, 0, 0, sy, 0, 0};
    }
    /// A turn about the origin, clockwise on the screen (y grows downwards).
    static Transform rotation(double radians) noexcept
    {
        const double sine = std::sin(radians);
        const double cosine = std::cos(radians);
        return {cosine, sine, -sine, cosine, 0, 0};
    }

    constexpr VXPoint<double> map(const VXPoint<double>& point) const noexcept
    {
        return {a * point.x + c * point.y + dx, b * point.x + d * point.y + dy};
    }

    /// The smallest upright rectangle that holds the mapped corners.
    constexpr VXRect<double> mapRect(const VXRect<double>& rect) const noexcept
    {
        const VXPoint<double> end = rect.end();
        const VXPoint<double> corners[] = {map(rect.topLeft()), map({end.x, rect.y}),
                                           map({rect.x, end.y}), map(end)};
        VXPoint<double> low = corners[0];
        VXPoint<double> high = corners[0];
        for (const VXPoint<double>& corner : corners) {
            low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
            high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
        }
        return {low.x, low.y, high.x - low.x, high.y - low.y};
    }

    constexpr double determinant() const noexcept { return a * d - b * c; }
    constexpr bool isIdentity() const noexcept { return *this == Transform{}; }

    /// The map that undoes this one; none when this one flattens the plane or is no map at
    /// all (NaN).
    constexpr std::optional<Transform> inverted() const noexcept
    {
        const double det = determinant();
        if (!(det < 0 || det > 0))
            return std::nullopt;
        return Transform{
            d / det, -b / det, -c / det, a / det, (c * dy - d * dx) / det, (b * dx - a * dy) / det};
    }

    /// First the left map, then the right one.
    friend constexpr Transform operator*(const Transform& first, const Transform& then) noexcept
    {
        const VXPoint<double> offset = then.map({first.dx, first.dy});
        return {then.a * first.a + then.c * first.b,
                then.b * first.a + then.d * first.b,
                then.a * first.c + then.c * first.d,
                then.b * first.c + then.d * first.d,
                offset.x,
                offset.y};
    }

    friend constexpr bool operator==(const Transform&, const Transform&) = default;
};

} // namespace VOXI
