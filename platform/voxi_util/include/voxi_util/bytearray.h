#pragma once

#include "voxi_util/voxi_util_export.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace VOXI {

/// A run of bytes that is not meant as text.
class VOXI_UTIL_EXPORT ByteArray
{
public:
    ByteArray() = default;
    /// The bytes of a text as they are, those of value 0 too.
    explicit ByteArray(std::string bytes) noexcept : m_bytes(std::move(bytes)) {}
    ByteArray(const void* bytes, std::size_t size) : m_bytes(static_cast<const char*>(bytes), size)
    {}

    /// Never null; followed by a byte of value 0 that does not count.
    const char* data() const noexcept { return m_bytes.data(); }
    std::size_t size() const noexcept { return m_bytes.size(); }
    bool isEmpty() const noexcept { return m_bytes.empty(); }
    const std::string& bytes() const noexcept { return m_bytes; }
    std::string_view view() const noexcept { return m_bytes; }

    void append(const ByteArray& other) { m_bytes += other.m_bytes; }
    void clear() noexcept { m_bytes.clear(); }

    /// With padding, without line breaks.
    std::string toBase64() const;
    /// None unless the whole text is well-formed; the padding may be missing.
    static std::optional<ByteArray> fromBase64(std::string_view text);

    /// Two lower-case digits for each byte.
    std::string toHex() const;
    /// None unless the whole text is pairs of digits of either case.
    static std::optional<ByteArray> fromHex(std::string_view text);

    friend bool operator==(const ByteArray&, const ByteArray&) = default;

private:
    std::string m_bytes;
};

} // namespace VOXI
