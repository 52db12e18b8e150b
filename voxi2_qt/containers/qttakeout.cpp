#include "qttakeout.h"

#include "voxi2_qt/kernel/qteventblocker.h"

#include <QStackedWidget>

namespace VOXI {

void takeOut(QWidget* widget)
{
    auto* const stack = qobject_cast<QStackedWidget*>(widget->parentWidget());
    const bool isPage = stack && stack->indexOf(widget) >= 0;
    if (!isPage && !widget->isVisible())
        return; // where the program has hidden it, it stays so
    const QtEventBlocker blocker(widget, {WidgetEvent::Hide});
    if (isPage)
        stack->removeWidget(widget);
    widget->hide();
    widget->setAttribute(Qt::WA_WState_ExplicitShowHide, false);
}

void takeOutFor(QWidget* target, QWidget* widget)
{
    if (target && widget->parentWidget() != target)
        takeOut(widget);
}

void keepHidden(QWidget* widget, QWidget* keeper)
{
    if (!widget)
        return;
    takeOut(widget);
    widget->hide();
    widget->setParent(keeper);
    widget->setAttribute(Qt::WA_WState_ExplicitShowHide, false);
}

} // namespace VOXI
