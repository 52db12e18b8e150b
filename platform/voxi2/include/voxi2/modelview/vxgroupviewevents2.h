#pragma once

#include "voxi2/kernel/vxevent2.h"

namespace VOXI {

class VXAbstractGroupView2;

/// Something about one row of a view that shows groups.
class VXGroupViewRowEvent2 : public VXEvent2<VXAbstractGroupView2, unsigned>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractGroupView2* view() const noexcept { return sender(); }
    unsigned row() const noexcept { return value(); }
};

/// A row, of a group or in one, became the current one.
class VXGroupViewCurrentEvent2 : public VXGroupViewRowEvent2
{
public:
    using VXGroupViewRowEvent2::VXGroupViewRowEvent2;
};

/// The user wants what a row in a group stands for.
class VXGroupViewActivateEvent2 : public VXGroupViewRowEvent2
{
public:
    using VXGroupViewRowEvent2::VXGroupViewRowEvent2;
};

/// A group shows nothing but its header from now on.
class VXGroupFoldEvent2 : public VXGroupViewRowEvent2
{
public:
    using VXGroupViewRowEvent2::VXGroupViewRowEvent2;
};

/// A group shows what is in it from now on.
class VXGroupUnfoldEvent2 : public VXGroupViewRowEvent2
{
public:
    using VXGroupViewRowEvent2::VXGroupViewRowEvent2;
};

} // namespace VOXI
