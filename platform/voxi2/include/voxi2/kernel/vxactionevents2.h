#pragma once

#include "voxi2/kernel/vxevent2.h"

#include <string>

namespace VOXI {

class VXAction2;

/// An action was triggered.
class VXActionTriggerEvent2 : public VXEvent2<VXAction2>
{
public:
    using VXEvent2::VXEvent2;
    VXAction2* action() const noexcept { return sender(); }
};

/// A checkable action changed its state.
class VXActionToggleEvent2 : public VXEvent2<VXAction2, bool>
{
public:
    using VXEvent2::VXEvent2;
    VXAction2* action() const noexcept { return sender(); }
    /// The new state.
    bool isChecked() const noexcept { return value(); }
};

/// An accelerator of an action was pressed that something else in reach has as well, so that
/// nothing was carried out.
class VXActionAmbiguityEvent2 : public VXEvent2<VXAction2, std::string>
{
public:
    using VXEvent2::VXEvent2;
    /// One of those that have the accelerator; at the next press it is another.
    VXAction2* action() const noexcept { return sender(); }
    /// What was pressed, in portable notation.
    const std::string& accelerator() const noexcept { return value(); }
};

} // namespace VOXI
