#pragma once

namespace VOXI {

/// Notices when an operation is entered again from within itself.
///
///     TROVReentrancyProtector protector(m_inUpdate);
///     if (protector.isReentrant())
///         return;
///
/// The flag belongs to the operation and is only used on its thread. It must outlive the protector.
class TROVReentrancyProtector
{
public:
    explicit TROVReentrancyProtector(bool& flag) noexcept : m_flag(flag), m_reentrant(flag)
    {
        m_flag = true;
    }
    ~TROVReentrancyProtector()
    {
        if (!m_reentrant)
            m_flag = false;
    }
    TROVReentrancyProtector(const TROVReentrancyProtector&) = delete;
    TROVReentrancyProtector& operator=(const TROVReentrancyProtector&) = delete;

    /// True when an outer call of the operation is still running.
    bool isReentrant() const noexcept { return m_reentrant; }

private:
    bool& m_flag;
    const bool m_reentrant;
};

} // namespace VOXI
