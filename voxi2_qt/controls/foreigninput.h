#pragma once

#include <QPointF>

#include <cstdint>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;
QT_END_NAMESPACE

namespace VOXI {

/// Sends the user's input on to a window of another program, by the X server; on other platforms
/// nothing happens. It is up to that program what it makes of it: some leave out what was sent by
/// others. GUI thread.
class ForeignInput
{
public:
    /// What comes from now on is for this window; 0 for none.
    void setWindow(unsigned long long id);

    /// The point is one of the window, in its pixels. What was pressed keeps the pointer until the
    /// buttons are released.
    void sendPointer(const QMouseEvent& event, const QPointF& point);
    void sendWheel(const QWheelEvent& event, const QPointF& point);
    /// To what was pressed last. What was not typed on a keyboard has no key there, and is left
    /// out.
    void sendKey(const QKeyEvent& event);

private:
    std::uint32_t m_window = 0;
    std::uint32_t m_held = 0;
    std::uint32_t m_typed = 0;
    QPoint m_turned; ///< of a wheel, less than a step
};

} // namespace VOXI
