#include "sql/samplepicture.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace SQL {

namespace {

using namespace std::string_view_literals;

std::string bigEndian(std::uint32_t number)
{
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(number >> shift & 0xFF);
    return bytes;
}

std::uint32_t crcOf(std::string_view bytes)
{
    static const auto table = [] {
        std::array<std::uint32_t, 256> entries{};
        for (std::uint32_t i = 0; i < 256; ++i) {
            std::uint32_t entry = i;
            for (int bit = 0; bit < 8; ++bit)
                entry = entry & 1 ? 0xEDB88320U ^ entry >> 1 : entry >> 1;
            entries[i] = entry;
        }
        return entries;
    }();
    std::uint32_t crc = ~0U;
    for (char each : bytes)
        crc = table[(crc ^ static_cast<unsigned char>(each)) & 0xFF] ^ crc >> 8;
    return ~crc;
}

std::string chunk(std::string_view type, std::string_view content)
{
    const std::string body = std::string(type) + std::string(content);
    return bigEndian(static_cast<std::uint32_t>(content.size())) + body + bigEndian(crcOf(body));
}

/// The format of zlib, without any compression: the picture is small.
std::string stored(std::string_view bytes)
{
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (char each : bytes) {
        a = (a + static_cast<unsigned char>(each)) % 65521;
        b = (b + a) % 65521;
    }
    std::string result = "\x78\x01";
    while (!bytes.empty()) {
        const auto size = std::min<std::size_t>(bytes.size(), 0xFFFF);
        result += size == bytes.size() ? '\1' : '\0';
        for (std::size_t number : {size, ~size & 0xFFFF}) {
            result += static_cast<char>(number & 0xFF);
            result += static_cast<char>(number >> 8);
        }
        result += bytes.substr(0, size);
        bytes.remove_prefix(size);
    }
    return result + bigEndian(b << 16 | a);
}

} // namespace

std::string samplePicture(std::uint64_t number, unsigned size)
{
    const unsigned red = static_cast<unsigned>(number * 97 % 156 + 100);
    const unsigned green = static_cast<unsigned>(number * 57 % 156 + 100);
    const unsigned blue = static_cast<unsigned>(number * 31 % 156 + 100);
    const unsigned stripe = static_cast<unsigned>(number % 7 + 4);
    std::string pixels;
    for (unsigned y = 0; y < size; ++y) {
        pixels += '\0'; // no filter in this line
        for (unsigned x = 0; x < size; ++x) {
            const unsigned shade =
                number % 2 ? (x + y) / stripe % 2 : (x / stripe + y / stripe) % 2;
            const unsigned dark = shade ? 60 : 0;
            for (unsigned colour : {red, green, blue})
                pixels += static_cast<char>(colour - dark);
        }
    }
    const std::string header = bigEndian(size) + bigEndian(size) + std::string("\x08\x02\0\0\0"sv);
    return std::string("\x89PNG\r\n\x1A\n"sv) + chunk("IHDR", header)
           + chunk("IDAT", stored(pixels)) + chunk("IEND", "");
}

} // namespace SQL
