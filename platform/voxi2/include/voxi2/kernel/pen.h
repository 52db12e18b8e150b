#pragma once

#include "voxi_util/color.h"

#include <cstddef>
#include <vector>

namespace VOXI {

enum class PenStyle { None, Solid, Dash, Dot, DashDot, DashDotDot, Custom };

/// How a line ends.
enum class PenCap {
    Flat,   ///< at its end
    Square, ///< half the pen's width beyond it
    Round   ///< the same with a half circle
};

/// What two lines look like where they meet.
enum class PenJoin { Miter, Bevel, Round };

/// What lines are drawn with. A value.
///
///     canvas.setPen({.color = {200, 48, 48}, .width = 2, .style = PenStyle::Dash});
struct Pen
{
    static constexpr std::size_t MostDashes = 256;

    Color color{};
    /// In the canvas's units, along with its transform; 0 or less, or no number, is the thinnest
    /// line that there is.
    double width = 1;
    PenStyle style = PenStyle::Solid;
    PenCap cap = PenCap::Flat;
    PenJoin join = PenJoin::Miter;
    /// For `PenStyle::Custom`: the lengths of dash, gap, dash ... in widths of the pen. Lengths
    /// that are no numbers or less than 0 count as 0; without any length the line is solid. The
    /// first `MostDashes` count.
    std::vector<double> dashes{};
    /// Where in the dashes a line begins, in widths of the pen.
    double dashOffset = 0;
    /// Whether the width stays what it is whatever the transform.
    bool isCosmetic = false;

    friend bool operator==(const Pen&, const Pen&) = default;
};

} // namespace VOXI
