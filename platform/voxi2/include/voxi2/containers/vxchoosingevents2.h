#pragma once

#include "voxi2/kernel/vxevent2.h"
#include "voxi_util/color.h"
#include "voxi_util/vxfont.h"

namespace VOXI {

class VXColorDialog2;
class VXFontDialog2;

/// The user tries a colour.
class VXColorDialogEvent2 : public VXEvent2<VXColorDialog2, Color>
{
public:
    using VXEvent2::VXEvent2;
    VXColorDialog2* dialog() const noexcept { return sender(); }
    const Color& color() const noexcept { return value(); }
};

/// The user tries a font.
class VXFontDialogEvent2 : public VXEvent2<VXFontDialog2, VXFont>
{
public:
    using VXEvent2::VXEvent2;
    VXFontDialog2* dialog() const noexcept { return sender(); }
    const VXFont& font() const noexcept { return value(); }
};

} // namespace VOXI
