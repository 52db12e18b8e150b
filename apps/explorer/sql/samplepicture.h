#pragma once

#include <cstdint>
#include <string>

namespace SQL {

/// A PNG file: a square picture of a pattern in colours that the number chooses.
std::string samplePicture(std::uint64_t number, unsigned size = 48);

} // namespace SQL
