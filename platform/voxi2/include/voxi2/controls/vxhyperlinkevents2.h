#pragma once

#include "voxi2/kernel/vxevent2.h"

namespace VOXI {

class VXHyperLink2;

/// The user has followed a link. Nothing is opened by that.
class VXHyperLinkEvent2 : public VXEvent2<VXHyperLink2>
{
public:
    using VXEvent2::VXEvent2;
    VXHyperLink2* link() const noexcept { return sender(); }
};

} // namespace VOXI
