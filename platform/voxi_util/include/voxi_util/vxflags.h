#pragma once

#include <type_traits>

namespace VOXI {

/// Specialise to true for an enumeration whose enumerators are bits: `A | B` is then a VXFlags.
template <class Enum>
inline constexpr bool EnableFlags = false;

/// A set of flags out of an enumeration whose enumerators are bits.
template <class Enum>
class VXFlags
{
    static_assert(std::is_enum_v<Enum>);

public:
    /// No flag set.
    constexpr VXFlags() noexcept = default;

    /// Implicit, so that a single enumerator may stand for a set.
    constexpr VXFlags(Enum flag) noexcept : m_bits(static_cast<unsigned>(flag)) {}

    static constexpr VXFlags fromInt(unsigned bits) noexcept
    {
        VXFlags flags;
        flags.m_bits = bits;
        return flags;
    }

    constexpr unsigned toInt() const noexcept { return m_bits; }
    constexpr explicit operator bool() const noexcept { return m_bits != 0; }

    /// Whether all bits of `flag` are set. An enumerator of value 0 is set in the empty set only.
    constexpr bool testFlag(Enum flag) const noexcept
    {
        const auto bits = static_cast<unsigned>(flag);
        return bits == 0 ? m_bits == 0 : (m_bits & bits) == bits;
    }

    constexpr VXFlags& setFlag(Enum flag, bool on = true) noexcept
    {
        const auto bits = static_cast<unsigned>(flag);
        m_bits = on ? m_bits | bits : m_bits & ~bits;
        return *this;
    }

    constexpr VXFlags& operator|=(VXFlags other) noexcept
    {
        m_bits |= other.m_bits;
        return *this;
    }
    constexpr VXFlags& operator&=(VXFlags other) noexcept
    {
        m_bits &= other.m_bits;
        return *this;
    }
    constexpr VXFlags& operator^=(VXFlags other) noexcept
    {
        m_bits ^= other.m_bits;
        return *this;
    }

    friend constexpr VXFlags operator|(VXFlags a, VXFlags b) noexcept { return a |= b; }
    friend constexpr VXFlags operator&(VXFlags a, VXFlags b) noexcept { return a &= b; }
    friend constexpr VXFlags operator^(VXFlags a, VXFlags b) noexcept { return a ^= b; }
    friend constexpr VXFlags operator~(VXFlags a) noexcept { return fromInt(~a.m_bits); }
    friend constexpr bool operator==(VXFlags a, VXFlags b) noexcept = default;

private:
    unsigned m_bits = 0;
};

/// Two flags of an enumeration that takes part by EnableFlags.
template <class Enum>
requires EnableFlags<Enum>
constexpr VXFlags<Enum> operator|(Enum a, Enum b) noexcept
{
    return VXFlags<Enum>(a) | VXFlags<Enum>(b);
}

} // namespace VOXI
