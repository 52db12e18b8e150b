#pragma once

namespace VOXI {

class VXAbstractButton2;

/// A button was clicked.
class VXButtonClickEvent2
{
public:
    explicit VXButtonClickEvent2(VXAbstractButton2* button) noexcept : m_button(button) {}

    VXAbstractButton2* button() const noexcept { return m_button; }

private:
    VXAbstractButton2* m_button;
};

/// A checkable button changed its state.
class VXButtonToggleEvent2
{
public:
    VXButtonToggleEvent2(VXAbstractButton2* button, bool checked) noexcept
        : m_button(button),
          m_checked(checked)
    {}

    VXAbstractButton2* button() const noexcept { return m_button; }
    bool isChecked() const noexcept { return m_checked; }

private:
    VXAbstractButton2* m_button;
    bool m_checked;
};

} // namespace VOXI
