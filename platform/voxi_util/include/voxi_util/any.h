#pragma once

#include <any>

namespace VOXI {

/// A value of any copyable type; empty means "no value". What the types are called and how they
/// become text is the matter of TypeInfo.
using any = std::any;

} // namespace VOXI
