#pragma once

#include "voxi_util/vxflags.h"

namespace VOXI {

/// What the user may answer to a message, and what the standard buttons of a dialog stand for.
enum class MessageAnswer : unsigned {
    None = 0,
    Yes = 0x1,
    YesToAll = 0x2,
    Ok = 0x4,
    Save = 0x8,
    SaveAll = 0x10,
    Retry = 0x20,
    Ignore = 0x40,
    Discard = 0x80,
    No = 0x100,
    NoToAll = 0x200,
    Abort = 0x400,
    Close = 0x800,
    Cancel = 0x1000,
    Open = 0x2000,
    // For dialogs, which they do not end; messages do not offer them.
    Apply = 0x4000,
    Reset = 0x8000,
    RestoreDefaults = 0x10000,
    Help = 0x20000
};
template <>
inline constexpr bool EnableFlags<MessageAnswer> = true;

} // namespace VOXI
