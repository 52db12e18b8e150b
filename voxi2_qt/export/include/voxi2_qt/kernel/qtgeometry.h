#pragma once

#include "voxi_util/geometry.h"

#include <QMargins>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QSize>

#include <algorithm>

namespace VOXI {

/// The largest extent of a widget, and the farthest coordinate, that Qt reckons with: the sums that
/// it makes of some stay numbers. What goes to Qt is kept within it.
inline constexpr int Farthest = (1 << 24) - 1;

inline constexpr int bounded(int value) noexcept { return std::clamp(value, -Farthest, Farthest); }

inline constexpr QPoint VX2Qt(const VXPoint<int>& point) noexcept
{
    return {bounded(point.x), bounded(point.y)};
}

inline constexpr VXPoint<int> Qt2VX(const QPoint& point) noexcept { return {point.x(), point.y()}; }
inline constexpr QPointF VX2Qt(const VXPoint<double>& point) noexcept { return {point.x, point.y}; }

inline constexpr VXPoint<double> Qt2VX(const QPointF& point) noexcept
{
    return {point.x(), point.y()};
}

inline constexpr QSize VX2Qt(const Size<int>& size) noexcept
{
    return {bounded(size.width), bounded(size.height)};
}

inline constexpr Size<int> Qt2VX(const QSize& size) noexcept
{
    return {size.width(), size.height()};
}

/// A rectangle: x, y, width and height.
inline constexpr QRect VX2Qt(const VXRect<int>& rect) noexcept
{
    return {bounded(rect.x), bounded(rect.y), bounded(rect.width), bounded(rect.height)};
}

/// The rectangle, as x, y, width and height.
inline constexpr VXRect<int> Qt2VX(const QRect& rect) noexcept
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

/// Four numbers that stand for margins, in the order left, top, right, bottom. Qt keeps those of
/// widgets in 16 bits.
inline constexpr QMargins toQMargins(const VXRect<int>& margins) noexcept
{
    constexpr auto bound = [](int margin) { return std::clamp(margin, -0x7fff, 0x7fff); };
    return {bound(margins.marginLeft()), bound(margins.marginTop()), bound(margins.marginRight()),
            bound(margins.marginBottom())};
}

/// Margins as four numbers, in the order left, top, right, bottom.
inline constexpr VXRect<int> toVXMargins(const QMargins& margins) noexcept
{
    return VXRect<int>::margins(margins.left(), margins.top(), margins.right(), margins.bottom());
}

} // namespace VOXI
