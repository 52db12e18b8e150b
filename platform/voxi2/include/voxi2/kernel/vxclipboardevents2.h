#pragma once

#include "voxi2/kernel/vxevent2.h"

#include <string>
#include <vector>

namespace VOXI {

class VXClipboard2;

/// Something else lies on the clipboard, or is selected elsewhere.
class VXClipboardEvent2 : public VXEvent2<VXClipboard2, std::vector<std::string>, unsigned>
{
public:
    using VXEvent2::VXEvent2;
    VXClipboard2* clipboard() const noexcept { return sender(); }
    /// The names of its formats, as the back end orders them; none when it was cleared.
    const std::vector<std::string>& formats() const noexcept { return value<0>(); }
    /// The number of the change, for `sync`; 0 for the selection.
    unsigned change() const noexcept { return value<1>(); }
};

} // namespace VOXI
