#pragma once

#include "voxi2/kernel/vxevent2.h"

namespace VOXI {

class VXGroupBox2;

/// A checkable group box was switched on or off.
class VXGroupBoxEvent2 : public VXEvent2<VXGroupBox2, bool>
{
public:
    using VXEvent2::VXEvent2;
    VXGroupBox2* groupBox() const noexcept { return sender(); }
    bool isChecked() const noexcept { return value(); }
};

} // namespace VOXI
