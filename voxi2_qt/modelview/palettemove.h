#pragma once

#include "voxi2_qt/modelview/qtpaletteview2.h"

namespace VOXI {

/// An entry that goes before another one of a group, to its end with 0.
struct QtPaletteView2::Move
{
    unsigned entry;
    unsigned group;
    unsigned before;

    friend bool operator==(const Move&, const Move&) = default;
};

} // namespace VOXI
