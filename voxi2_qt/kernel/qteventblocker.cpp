#include "voxi2_qt/kernel/qteventblocker.h"

#include "voxi2_qt/kernel/qtglobalfocusblocker.h"
#include "voxi2_qt/kernel/qtwidget2.h"

namespace VOXI {

namespace {

QtWidget2* widgetPeerOf(const QWidget* widget) { return dynamic_cast<QtWidget2*>(peerOf(widget)); }

} // namespace

QtEventBlocker::QtEventBlocker(QtWidget2& widget, std::initializer_list<WidgetEvent> events)
    : QtEventBlocker(Inert(), &widget, events)
{}

QtEventBlocker::QtEventBlocker(const QWidget* widget, std::initializer_list<WidgetEvent> events)
    : QtEventBlocker(Inert(), widgetPeerOf(widget), events)
{}

QtEventBlocker::QtEventBlocker(Inert inert, QtWidget2* widget,
                               std::initializer_list<WidgetEvent> events)
    : QtProgramScope(inert),
      m_widget(widget),
      m_hold(widget)
{
    if (!widget)
        return;
    link();
    for (const WidgetEvent event : events) {
        if (!widget->isEventBroadcastingEnabled(event))
            continue;
        m_blocked |= 1u << static_cast<unsigned>(event);
        if (event == WidgetEvent::FocusIn)
            prepareFocusIn();
    }
    setBroadcast(false);
}

QtEventBlocker::~QtEventBlocker() { setBroadcast(true); }

void QtEventBlocker::prepareFocusIn()
{
    const QWidget* self = m_widget->asQWidget();
    m_window = self->window();
    m_proxy = self->focusProxy();
    QtGlobalFocusBlocker::instance().registerWindow(m_window);
}

void QtEventBlocker::resume()
{
    setBroadcast(false);
    // A handler may have taken longer than the window was waited for.
    QtGlobalFocusBlocker::instance().registerWindow(m_window);
}

void QtEventBlocker::setBroadcast(bool on)
{
    for (QWidget* other : {m_window.data(), m_proxy.data()}) {
        QtWidget2* const peer = widgetPeerOf(other);
        if (!peer || peer == m_widget)
            continue;
        if (on)
            peer->enableEventBroadcasting(WidgetEvent::FocusIn);
        else
            peer->disableEventBroadcasting(WidgetEvent::FocusIn);
    }
    if (!m_hold.isAlive())
        return;
    for (unsigned event = 0, left = m_blocked; left != 0; ++event, left >>= 1) {
        if ((left & 1u) == 0)
            continue;
        if (on)
            m_widget->enableEventBroadcasting(static_cast<WidgetEvent>(event));
        else
            m_widget->disableEventBroadcasting(static_cast<WidgetEvent>(event));
    }
}

} // namespace VOXI
