#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QPointer>
#include <QWidget>

namespace VOXI {

/// Marks a window while Qt closes it, during which handlers run that may show it again.
///
/// Qt closes one at a time: while that lasts, to close it does nothing and is said to have worked.
/// Qt closes all popups before it shows a window, and goes on until none is left.
class VOXI2_QT_EXPORT QtClosingWindow
{
public:
    /// Null marks nothing.
    explicit QtClosingWindow(QWidget* window);
    ~QtClosingWindow();
    QtClosingWindow(const QtClosingWindow&) = delete;
    QtClosingWindow& operator=(const QtClosingWindow&) = delete;

    /// From now on it is closed; what follows are handlers.
    void setClosed() noexcept { m_isClosed = true; }

    /// Ends the closing of a window that was closed before and is shown again: Qt has done nothing.
    static void finish(QWidget& window);

    /// Hides the popups that are marked, if `window` is one for which Qt closes popups.
    static void makeWayFor(const QWidget& window);

private:
    QPointer<QWidget> m_window;
    QtClosingWindow* m_outer;
    bool m_isClosed = false;

    static QtClosingWindow* s_innermost;
};

} // namespace VOXI
