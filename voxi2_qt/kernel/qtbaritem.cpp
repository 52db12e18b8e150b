#include "voxi2_qt/kernel/qtbaritem.h"

#include "voxi2_qt/kernel/qteventblocker.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QEvent>
#include <QLayout>
#include <QPointer>

#include <list>

namespace VOXI {

QtBarItem::QtBarItem(QtWidget2& peer) : QWidgetAction(peer.asQWidget()), m_peer(peer)
{
    const QWidget* widget = peer.asQWidget();
    setVisible(!widget->isHidden() || !widget->testAttribute(Qt::WA_WState_ExplicitShowHide));
    peer.addWidgetAction(this);
}

QtBarItem::~QtBarItem()
{
    // While it is still known for what it is; a bar takes it for one of its own buttons afterwards.
    leave();
}

void QtBarItem::leave()
{
    for (QObject* holder : associatedObjects()) {
        if (auto* bar = qobject_cast<QWidget*>(holder))
            bar->removeAction(this);
    }
}

void QtBarItem::settle()
{
    QPointer<QWidget> holder = m_peer.asQWidget()->parentWidget();
    if (!holder || !holder->isVisible())
        return;
    std::list<QtEventBlocker> blockers;
    for (const QObject* child : holder->children()) {
        if (child->isWidgetType())
            blockers.emplace_back(
                static_cast<const QWidget*>(child),
                std::initializer_list<WidgetEvent>{WidgetEvent::Show, WidgetEvent::Hide});
    }
    // Whether there is room the window's layout decides: it makes the bar larger.
    while (holder) {
        if (QLayout* layout = holder->layout())
            layout->activate();
        if (holder)
            holder = holder->isWindow() ? nullptr : holder->parentWidget();
    }
}

QWidget* QtBarItem::createWidget(QWidget* parent)
{
    if (!createdWidgets().isEmpty())
        return nullptr; // one widget is in one place
    const QtEventBlocker blocker(m_peer, {WidgetEvent::Hide});
    m_peer.asQWidget()->setParent(parent);
    return m_peer.asQWidget();
}

void QtBarItem::deleteWidget(QWidget* widget)
{
    m_peer.addWidgetAction(nullptr);
    deleteLater(); // the bar is still busy with it
    const QWidget* bar = widget->parentWidget();
    // A widget whose object has gone may count on being deleted with the bar.
    if (!bar || !m_peer.getHandle())
        return;
    // Unless the widget is on its way to another parent already.
    if (bar->children().contains(widget)) {
        const QtEventBlocker blocker(m_peer, {WidgetEvent::Hide});
        widget->hide();
        widget->setParent(nullptr);
    }
    // What the bar has hidden for want of room is not hidden where it goes.
    widget->setAttribute(Qt::WA_WState_ExplicitShowHide, !isVisible());
}

bool QtBarItem::event(QEvent* event)
{
    // Whether the widget is enabled the program says, not the action.
    return event->type() == QEvent::ActionChanged ? QAction::event(event)
                                                  : QWidgetAction::event(event);
}

} // namespace VOXI
