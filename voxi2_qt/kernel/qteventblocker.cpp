#include "voxi2_qt/kernel/qteventblocker.h"

#include "voxi2_qt/kernel/qtwidget2.h"

namespace VOXI {

namespace {

QtWidget2* widgetPeerOf(const QWidget* widget)
{
    return dynamic_cast<QtWidget2*>(peerOf(widget));
}

} // namespace

QtEventBlocker::QtEventBlocker(QtWidget2& widget, std::initializer_list<WidgetEvent> events)
    : m_widget(&widget),
      m_alive(widget.asQWidget())
{
    block(events);
}

QtEventBlocker::QtEventBlocker(const QWidget* widget, std::initializer_list<WidgetEvent> events)
    : m_widget(widgetPeerOf(widget)),
      m_alive(m_widget ? m_widget->asQWidget() : nullptr)
{
    if (m_widget)
        block(events);
}

void QtEventBlocker::block(std::initializer_list<WidgetEvent> events)
{
    for (const WidgetEvent event : events) {
        if (!m_widget->isEventBroadcastingEnabled(event))
            continue;
        m_blocked |= 1u << static_cast<unsigned>(event);
        m_widget->disableEventBroadcasting(event);
        if (event == WidgetEvent::FocusIn)
            blockFocusIn();
    }
}

void QtEventBlocker::blockFocusIn()
{
    const QWidget* self = m_alive;
    QWidget* window = self->window();
    if (window != self) {
        if (QtWidget2* peer = widgetPeerOf(window)) {
            peer->disableEventBroadcasting(WidgetEvent::FocusIn);
            m_window = window;
        }
    }
    QWidget* proxy = self->focusProxy();
    if (QtWidget2* peer = widgetPeerOf(proxy)) {
        peer->disableEventBroadcasting(WidgetEvent::FocusIn);
        m_proxy = proxy;
    }
    QtGlobalFocusBlocker::instance().registerWindow(window);
    m_focusRequest.emplace();
}

QtEventBlocker::~QtEventBlocker()
{
    for (QWidget* other : {m_window.data(), m_proxy.data()}) {
        if (QtWidget2* peer = widgetPeerOf(other))
            peer->enableEventBroadcasting(WidgetEvent::FocusIn);
    }
    if (!m_alive)
        return;
    for (unsigned event = 0; m_blocked != 0; ++event, m_blocked >>= 1) {
        if (m_blocked & 1u)
            m_widget->enableEventBroadcasting(static_cast<WidgetEvent>(event));
    }
}

} // namespace VOXI
