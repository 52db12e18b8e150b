#pragma once

#include "voxi2/kernel/vxevent2.h"

#include <vector>

namespace VOXI {

class VXListBox2;

/// The user has selected other items of a list box.
class VXListBoxSelectEvent2 : public VXEvent2<VXListBox2, std::vector<int>>
{
public:
    using VXEvent2::VXEvent2;
    VXListBox2* listBox() const noexcept { return sender(); }
    /// The rows that are selected now, in no certain order.
    const std::vector<int>& rows() const noexcept { return value(); }
};

/// The user has double-clicked an item of a list box.
class VXListBoxClickEvent2 : public VXEvent2<VXListBox2, int>
{
public:
    using VXEvent2::VXEvent2;
    VXListBox2* listBox() const noexcept { return sender(); }
    int row() const noexcept { return value(); }
};

} // namespace VOXI
