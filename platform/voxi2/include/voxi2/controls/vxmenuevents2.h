#pragma once

#include "voxi2/kernel/vxevent2.h"

namespace VOXI {

class VXMenu2;

/// A menu is about to be shown.
class VXMenuEvent2 : public VXEvent2<VXMenu2>
{
public:
    using VXEvent2::VXEvent2;
    VXMenu2* menu() const noexcept { return sender(); }
};

} // namespace VOXI
