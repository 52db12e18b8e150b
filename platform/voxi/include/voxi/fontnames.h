#pragma once

#include "voxi/voxi_export.h"

#include <string>

namespace VOXI {

/// Finds the scalable family that comes closest to a name.
using FontNameResolver = std::string (*)(const std::string& family);

/// The family to use for `family`: itself when it is scalable, else what the system substitutes.
/// Without a back end, or for an empty name, the name itself. Any thread, but the answer of a back
/// end may need its GUI thread.
VOXI_EXPORT std::string getClosestScaleableFontName(const std::string& family);

/// Lets a back end answer the question above; null takes the answer back.
VOXI_EXPORT void installFontNameResolver(FontNameResolver resolver);

} // namespace VOXI
