#pragma once

#include <string>
#include <utility>

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

/// An accelerator of an action was pressed that something else in reach has as well, so that
/// nothing was carried out.
class VXActionAmbiguityEvent2
{
public:
    VXActionAmbiguityEvent2(VXAction2* action, std::string accelerator)
        : m_action(action),
          m_accelerator(std::move(accelerator))
    {}

    /// One of those that have the accelerator; at the next press it is another.
    VXAction2* action() const noexcept { return m_action; }
    /// What was pressed, in portable notation.
    const std::string& accelerator() const noexcept { return m_accelerator; }

private:
    VXAction2* m_action;
    std::string m_accelerator;
};

} // namespace VOXI
