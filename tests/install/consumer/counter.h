#pragma once

namespace VOXI {
class VXWindow2;
}

/// A window that counts the clicks on its button.
class Counter
{
public:
    Counter();
    ~Counter();

    Counter(const Counter&) = delete;
    Counter& operator=(const Counter&) = delete;

    /// Whether the back end shows the window under its title.
    bool isShown() const;

private:
    VOXI::VXWindow2* const m_window;
};
