#pragma once

namespace VOXI {

/// How many actions of a group may be checked.
enum class ActionExclusion : int {
    None,             ///< any number
    Exclusive,        ///< one; its user cannot uncheck it but by checking another
    ExclusiveOptional ///< one or none
};

} // namespace VOXI
