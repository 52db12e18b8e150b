#pragma once

#include "voxi2/kernel/vxevent2.h"

#include <string>

namespace VOXI {

class VXText2;

/// The user has followed a link in a text. Nothing is opened by that.
class VXTextLinkEvent2 : public VXEvent2<VXText2, std::wstring>
{
public:
    using VXEvent2::VXEvent2;
    VXText2* text() const noexcept { return sender(); }
    /// What the link's `href` says.
    const std::wstring& target() const noexcept { return value(); }
};

} // namespace VOXI
