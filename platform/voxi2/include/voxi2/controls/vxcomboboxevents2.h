#pragma once

#include "voxi2/kernel/vxevent2.h"

#include <string>

namespace VOXI {

class VXComboBox2;

/// The user has chosen another item of a combo box.
class VXComboBoxSelectEvent2 : public VXEvent2<VXComboBox2, int, unsigned>
{
public:
    using VXEvent2::VXEvent2;
    VXComboBox2* comboBox() const noexcept { return sender(); }
    /// -1 for none.
    int newIndex() const noexcept { return value<0>(); }
    /// The number that the program has given the item; 0 for none.
    unsigned newUid() const noexcept { return value<1>(); }
};

/// The user has changed the text in a combo box, by a key or by choosing an item.
class VXComboBoxTextEvent2 : public VXEvent2<VXComboBox2, std::wstring>
{
public:
    using VXEvent2::VXEvent2;
    VXComboBox2* comboBox() const noexcept { return sender(); }
    const std::wstring& newText() const noexcept { return value(); }
};

} // namespace VOXI
