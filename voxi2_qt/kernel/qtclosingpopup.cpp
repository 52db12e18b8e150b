#include "voxi2_qt/kernel/qtclosingpopup.h"

#include <utility>

namespace VOXI {

QtClosingPopup* QtClosingPopup::s_innermost = nullptr;

QtClosingPopup::QtClosingPopup(QWidget* popup)
    : m_popup(popup),
      m_outer(std::exchange(s_innermost, this))
{}

QtClosingPopup::~QtClosingPopup() { s_innermost = m_outer; }

void QtClosingPopup::makeWayFor(const QWidget& window)
{
    const Qt::WindowType type = window.windowType();
    if (!window.isWindow() || type == Qt::Popup || type == Qt::Tool || type == Qt::ToolTip)
        return;
    // Hiding may run handlers, which come back to this.
    for (const QtClosingPopup* mark = s_innermost; mark; mark = mark->m_outer) {
        if (mark->m_popup)
            mark->m_popup->hide();
    }
}

} // namespace VOXI
