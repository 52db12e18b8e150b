#pragma once

#include "voxi2/kernel/vxevent2.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi_util/any.h"

#include <string>

namespace VOXI {

class VXSimpleProperty2;
class VXSimplePropertyBrowser2;

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

/// What the user has done to a property in a browser, or wants to.
class VXPropertyEvent2 : public VXEvent2<VXSimplePropertyBrowser2, VXHandle<VXSimpleProperty2>>
{
public:
    using VXEvent2::VXEvent2;
    VXSimplePropertyBrowser2* browser() const noexcept { return sender(); }
    /// Null if it has ended since.
    VXSimpleProperty2* property() const { return value().get(); }
};

/// The user has left the editor of a property.
class VXPropertyEditorCloseEvent2
    : public VXEvent2<VXSimplePropertyBrowser2, VXHandle<VXSimpleProperty2>, bool>
{
public:
    using VXEvent2::VXEvent2;
    VXSimplePropertyBrowser2* browser() const noexcept { return sender(); }
    /// Null if it has ended since.
    VXSimpleProperty2* property() const { return value<0>().get(); }
    /// False where he gave up, by Escape.
    bool isCommitted() const noexcept { return value<1>(); }
};

} // namespace VOXI
