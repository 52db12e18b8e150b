// The part of QtWindow2 that is about the status bar.

#include "../kernel/qtignored.h"
#include "../kernel/qttakeout.h"
#include "voxi2_qt/containers/qtwindow2.h"
#include "voxi2_qt/kernel/qtclock.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QStatusBar>

namespace VOXI {

// Requests ----------------------------------------------------------------------------------------

void QtWindow2::doSetStatusText(const std::string& text, int timeout)
{
    showStatus(toQString(text), timeout);
}

void QtWindow2::doSetStatusTextU(const std::wstring& text, int timeout)
{
    showStatus(toQString(text), timeout);
}

std::string QtWindow2::doGetStatusText()
{
    const QStatusBar* bar = knownStatusBar();
    return bar ? toStdString(bar->currentMessage()) : std::string();
}

std::wstring QtWindow2::doGetStatusTextU()
{
    const QStatusBar* bar = knownStatusBar();
    return bar ? toStdWString(bar->currentMessage()) : std::wstring();
}

void QtWindow2::doSetStatusBarVisible(bool visible)
{
    if (visible || knownStatusBar())
        ensuredStatusBar()->setVisible(visible);
}

bool QtWindow2::doIsStatusBarVisible()
{
    const QStatusBar* bar = knownStatusBar();
    return bar && !bar->isHidden();
}

void QtWindow2::doAddStatusWidget(VXWidget2* widget, int stretch)
{
    withWidgetOf(widget, [&](QWidget* child) {
        if (!canHold(*this, this, child))
            return;
        QStatusBar* bar = ensuredStatusBar();
        if (child->parentWidget() == bar)
            keepHidden(child, this); // it moves to the end
        takeOut(child);
        // Qt's other place, at the left, is hidden while there is a text.
        bar->addPermanentWidget(child, stretch);
    });
}

void QtWindow2::doRemoveStatusWidget(VXWidget2* widget)
{
    withWidgetOf(widget, [&](QWidget* child) {
        if (child && knownStatusBar() && child->parentWidget() == knownStatusBar())
            keepHidden(child, this);
    });
}

// Reports -----------------------------------------------------------------------------------------

void QtWindow2::slotStatusMessageChanged(const QString& message)
{
    m_statusTimer.reset();
    if (message.isEmpty() && !m_statusText.isEmpty())
        statusBar()->showMessage(m_statusText);
}

void QtWindow2::showEvent(QShowEvent* event)
{
    // Inside another window its corner is no handle.
    if (QStatusBar* bar = knownStatusBar())
        bar->setSizeGripEnabled(isWindow());
    QMainWindow::showEvent(event);
    finishFirstShow();
    if (!isWindow())
        showWaitingPanes();
}

// Helpers -----------------------------------------------------------------------------------------

void QtWindow2::showStatus(const QString& text, int timeout)
{
    m_statusTimer.reset();
    if (timeout <= 0)
        m_statusText = text;
    if (!text.isEmpty())
        ensuredStatusBar()->showMessage(text);
    else if (QStatusBar* bar = knownStatusBar())
        bar->clearMessage();
    if (timeout > 0 && !text.isEmpty())
        m_statusTimer = QtClock::current().startTimer(std::chrono::milliseconds(timeout),
                                                      [this] { statusBar()->clearMessage(); });
}

/// Qt's own getter makes one.
QStatusBar* QtWindow2::knownStatusBar() const
{
    return findChild<QStatusBar*>(QString(), Qt::FindDirectChildrenOnly);
}

QStatusBar* QtWindow2::ensuredStatusBar()
{
    QStatusBar* bar = knownStatusBar();
    if (!bar) {
        bar = statusBar();
        bar->setSizeGripEnabled(isWindow());
        connect(bar, &QStatusBar::messageChanged, this, &QtWindow2::slotStatusMessageChanged);
    }
    return bar;
}

} // namespace VOXI
