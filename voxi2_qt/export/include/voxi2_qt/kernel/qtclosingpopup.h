#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QPointer>
#include <QWidget>

namespace VOXI {

/// Marks a popup while its handlers are asked whether it may close.
///
/// Qt closes all popups before it shows a window, and goes on until none is left. One that is
/// being closed already cannot be closed again, so that would take for ever when its handler shows
/// the window.
class VOXI2_QT_EXPORT QtClosingPopup
{
public:
    explicit QtClosingPopup(QWidget* popup);
    ~QtClosingPopup();
    QtClosingPopup(const QtClosingPopup&) = delete;
    QtClosingPopup& operator=(const QtClosingPopup&) = delete;

    /// Hides those that are marked, if `window` is one for which Qt closes popups.
    static void makeWayFor(const QWidget& window);

private:
    QPointer<QWidget> m_popup;
    QtClosingPopup* m_outer;

    static QtClosingPopup* s_innermost;
};

} // namespace VOXI
