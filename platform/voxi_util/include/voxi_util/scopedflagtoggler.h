#pragma once

namespace VOXI {

/// Gives a flag a value for the length of a scope and restores the former one at its end.
///
/// The flag must outlive the toggler. Nesting is fine: an inner scope restores what the outer set.
class [[nodiscard]] ScopedFlagToggler
{
public:
    /// Sets `flag` to the opposite of what it is.
    explicit ScopedFlagToggler(bool& flag) noexcept : ScopedFlagToggler(flag, !flag) {}

    /// Sets `flag` to `value`.
    ScopedFlagToggler(bool& flag, bool value) noexcept : m_flag(flag), m_former(flag)
    {
        m_flag = value;
    }

    ~ScopedFlagToggler() { m_flag = m_former; }
    ScopedFlagToggler(const ScopedFlagToggler&) = delete;
    ScopedFlagToggler& operator=(const ScopedFlagToggler&) = delete;

private:
    bool& m_flag;
    bool m_former;
};

} // namespace VOXI
