#pragma once

namespace VOXI {

/// What the user copies, or what is selected at the moment, which some platforms paste by the
/// middle mouse button.
enum class ClipboardPlace : int { Clipboard = 0, Selection = 1 };

} // namespace VOXI
