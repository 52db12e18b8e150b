#pragma once

namespace VOXI {

class VXAction2;

/// An action was triggered.
class VXActionTriggerEvent2
{
public:
    explicit VXActionTriggerEvent2(VXAction2* action) noexcept : m_action(action) {}

    /// Never null. In a handler on another thread than the toolkit's it may be gone.
    VXAction2* action() const noexcept { return m_action; }

private:
    VXAction2* m_action;
};

/// A checkable action changed its state.
class VXActionToggleEvent2
{
public:
    VXActionToggleEvent2(VXAction2* action, bool checked) noexcept
        : m_action(action),
          m_checked(checked)
    {}

    /// Never null. In a handler on another thread than the toolkit's it may be gone.
    VXAction2* action() const noexcept { return m_action; }
    /// The new state.
    bool isChecked() const noexcept { return m_checked; }

private:
    VXAction2* m_action;
    bool m_checked;
};

} // namespace VOXI
