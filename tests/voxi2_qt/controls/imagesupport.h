#pragma once

#include "voxi_util/bytearray.h"
#include "voxi_util/pixmap.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace VOXI {

inline Pixmap filled(int width, int height, std::uint32_t rgba)
{
    return Pixmap(width, height,
                  std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), rgba));
}

inline std::string svg(const std::string& inside, const char* size = "width='200' height='100'")
{
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
           + std::string(size) + ">" + inside + "</svg>";
}

inline const std::string GreenSvg = svg("<rect width='200' height='100' fill='#00ff00'/>");

inline ByteArray bytes(std::string text) { return ByteArray(std::move(text)); }

} // namespace VOXI
