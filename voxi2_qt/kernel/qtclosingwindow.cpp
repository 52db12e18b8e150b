#include "voxi2_qt/kernel/qtclosingwindow.h"

#include <utility>

namespace VOXI {

QtClosingWindow* QtClosingWindow::s_innermost = nullptr;

QtClosingWindow::QtClosingWindow(QWidget* window)
    : m_window(window),
      m_outer(std::exchange(s_innermost, this))
{}

QtClosingWindow::~QtClosingWindow() { s_innermost = m_outer; }

void QtClosingWindow::finish(QWidget& window)
{
    for (const QtClosingWindow* mark = s_innermost; mark; mark = mark->m_outer) {
        if (mark->m_window == &window && mark->m_isClosed)
            return window.hide();
    }
}

void QtClosingWindow::makeWayFor(const QWidget& window)
{
    const Qt::WindowType type = window.windowType();
    if (!window.isWindow() || type == Qt::Popup || type == Qt::Tool || type == Qt::ToolTip)
        return;
    // Hiding may run handlers, which come back to this.
    for (const QtClosingWindow* mark = s_innermost; mark; mark = mark->m_outer) {
        if (mark->m_window && mark->m_window->windowType() == Qt::Popup)
            mark->m_window->hide();
    }
}

} // namespace VOXI
