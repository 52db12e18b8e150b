#pragma once

#include "voxi2/kernel/canvaspath.h"

#include <QPointF>
#include <QRectF>

#include <algorithm>

namespace VOXI {

inline constexpr double FarthestOnCanvas = CanvasPath::Farthest;

/// In points; what is larger takes Qt's fonts long and shows nothing but the inside of a letter.
inline constexpr int LargestFont = 2048;

/// The place of a point, within what Qt reckons with; false when it is none.
inline bool place(QPointF& result, const VXPoint<double>& point) noexcept
{
    constexpr double Most = FarthestOnCanvas;
    result = {std::clamp(point.x, -Most, Most), std::clamp(point.y, -Most, Most)};
    return point.x - point.x + (point.y - point.y) == 0; // no number else
}

/// The same of a rectangle, whatever the signs of its size.
inline bool place(QRectF& result, const VXRect<double>& rect) noexcept
{
    QPointF begin;
    QPointF end;
    if (!place(begin, rect.topLeft()) || !place(end, rect.end()))
        return false;
    result = QRectF(begin, end).normalized();
    return true;
}

} // namespace VOXI
