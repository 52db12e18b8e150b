#pragma once

#include "voxi2/kernel/vxevent2.h"
#include "voxi_util/any.h"

#include <string>

namespace VOXI {

class VXSimpleProperty2;

/// The user has given a property another value.
class VXPropertyValueEvent2 : public VXEvent2<VXSimpleProperty2, any>
{
public:
    using VXEvent2::VXEvent2;
    VXSimpleProperty2* property() const noexcept { return sender(); }
    const any& newValue() const noexcept { return value(); }
};

/// The user has tried to give a property a value that it cannot have.
class VXPropertyRefusalEvent2 : public VXEvent2<VXSimpleProperty2, std::wstring>
{
public:
    using VXEvent2::VXEvent2;
    VXSimpleProperty2* property() const noexcept { return sender(); }
    /// Why not, for the user.
    const std::wstring& message() const noexcept { return value(); }
};

} // namespace VOXI
