#pragma once

#include "voxi2/kernel/vxevent2.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2/modelview/vxsimpleproperty2.h"

namespace VOXI {

class VXSimplePropertyBrowser2;

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
