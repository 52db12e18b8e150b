#include "voxi_util/color.h"

#include <charconv>

namespace VOXI {

std::optional<Color> Color::fromText(std::string_view text)
{
    if ((text.size() != 7 && text.size() != 9) || text.front() != '#')
        return std::nullopt;
    std::uint32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + 1, end, value, 16);
    if (error != std::errc{} || stop != end)
        return std::nullopt;
    return fromRgba(text.size() == 9 ? value : value << 8 | 0xffu);
}

std::string Color::toText() const
{
    constexpr char digits[] = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 28; shift >= 0; shift -= 4)
        text += digits[m_rgba >> shift & 0xfu];
    return text;
}

} // namespace VOXI
