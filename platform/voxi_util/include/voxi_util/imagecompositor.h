#pragma once

#include "voxi_util/icon.h"
#include "voxi_util/voxi_util_export.h"

namespace VOXI {

/// Works out what an icon looks like.
class VOXI_UTIL_EXPORT ImageCompositor
{
public:
    /// The most that a picture is composed of.
    static constexpr int MaxPixels = 1 << 24;

    /// A raw pixmap of exactly `pixels`. Any thread.
    ///
    /// Of each layer it takes the best source: of the mode and state asked for, else of mode
    /// Normal, else of the other state; of those the smallest that is large enough. One that
    /// cannot be decoded gives way to the next. A missing Disabled picture is made from another,
    /// grey and half transparent. Pictures keep their proportions and are centred. Layers without
    /// a picture are left out; the result is null when nothing is left, or `pixels` is empty or
    /// more than `MaxPixels`.
    static Pixmap compose(const Icon& icon, Size<int> pixels, Icon::IconMode mode,
                          Icon::IconState state);
};

} // namespace VOXI
