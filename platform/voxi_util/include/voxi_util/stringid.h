#pragma once

#include "voxi_util/voxi_util_export.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace VOXI {

/// A text that is kept once per process, so that equal texts are the same pointer.
///
/// Comparing, ordering and hashing take constant time; making one from a text is a look-up. The
/// texts are never freed: use it for names, not for data. Any thread may do anything with it.
class VOXI_UTIL_EXPORT StringID
{
public:
    /// The empty text.
    constexpr StringID() noexcept = default;
    /// Implicit, so that literals may be passed for names. Characters of value 0 belong to it.
    StringID(const std::string& text);
    /// Null is the empty text.
    StringID(const char* text);

    /// Valid until the process ends.
    const std::string& getString() const noexcept;
    constexpr bool isEmpty() const noexcept { return m_entry == nullptr; }

    friend constexpr bool operator==(StringID, StringID) noexcept = default;
    /// The order in which the texts were first seen in this process, the empty one before all.
    friend std::strong_ordering operator<=>(StringID a, StringID b) noexcept
    {
        return a.number() <=> b.number();
    }

private:
    friend struct std::hash<StringID>;

    struct Entry;
    static const Entry* intern(const std::string& text);
    std::uint64_t number() const noexcept;

    const Entry* m_entry = nullptr;
};

} // namespace VOXI

template <>
struct std::hash<VOXI::StringID>
{
    std::size_t operator()(VOXI::StringID id) const noexcept
    {
        return std::hash<const void*>{}(id.m_entry);
    }
};
