#pragma once

namespace VOXI {

/// How the entries of a palette stand.
enum class PaletteLayout : int {
    Grid, ///< side by side, each with its text below its icon
    List  ///< one below the other, each with its text beside its icon
};

} // namespace VOXI
