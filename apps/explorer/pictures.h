#pragma once

#include "voxi_util/pixmap.h"

#include <string>
#include <string_view>

namespace explorer {

/// By the first bytes.
bool looksLikePicture(std::string_view bytes);

/// The pixels, made smaller if there are more than a window shows; null for what is no picture. Any
/// thread.
VOXI::Pixmap decodePicture(const std::string& bytes);

} // namespace explorer
