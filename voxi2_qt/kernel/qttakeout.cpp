#include "qttakeout.h"

#include "qtcomposedwindows.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QStackedWidget>

namespace VOXI {

namespace {

constexpr std::initializer_list<WidgetEvent> ComingAndGoing = {WidgetEvent::Show,
                                                               WidgetEvent::Hide};

// Qt shows what is put into a layout a turn later, unless it was hidden on purpose; by then it may
// have been taken out again. So what stands aside is hidden on purpose, and this says whose it was.
constexpr char IsAside[] = "voxi_isAside";

bool isAside(const QWidget* widget)
{
    // Qt looks through the properties of all classes first.
    return !widget->dynamicPropertyNames().isEmpty() && widget->property(IsAside).isValid();
}

void setAside(QWidget* widget)
{
    widget->hide();
    widget->setAttribute(Qt::WA_WState_ExplicitShowHide);
    widget->setProperty(IsAside, true);
}

QtWidget2* widgetPeerOf(const QWidget* widget) { return dynamic_cast<QtWidget2*>(peerOf(widget)); }

void leaveBar(const QWidget* widget)
{
    if (QtWidget2* const peer = widgetPeerOf(widget))
        peer->leaveBar();
}

bool isHiddenByProgram(QWidget* widget)
{
    const bool isHidden =
        widget->isHidden() && widget->testAttribute(Qt::WA_WState_ExplicitShowHide);
    // Stacks hide all pages but one in the same way.
    return isHidden && !isAside(widget) && !stackOfPage(widget);
}

} // namespace

QStackedWidget* stackOfPage(QWidget* widget)
{
    auto* const stack = qobject_cast<QStackedWidget*>(widget->parentWidget());
    return stack && stack->indexOf(widget) >= 0 ? stack : nullptr;
}

PageBlocker::PageBlocker(QWidget* page)
{
    m_blockers.emplace_back(page, ComingAndGoing);
    const QStackedWidget* const stack = stackOfPage(page);
    if (!stack || stack->currentWidget() != page)
        return;
    for (int i = 0; i < stack->count(); ++i) {
        if (const QWidget* other = stack->widget(i); other != page)
            m_blockers.emplace_back(other, ComingAndGoing);
    }
}

void endAside(QWidget* widget, bool comesIntoSight)
{
    if (!isAside(widget))
        return;
    widget->setProperty(IsAside, QVariant());
    if (comesIntoSight)
        widget->setAttribute(Qt::WA_WState_ExplicitShowHide, false);
}

void endDrag(const QWidget* widget)
{
    if (QtWidget2* const peer = widget ? widgetPeerOf(widget) : nullptr)
        peer->endDrag();
}

void takeOut(QWidget* widget)
{
    endDrag(widget);
    leaveBar(widget);
    endAside(widget, true);
    QStackedWidget* const stack = stackOfPage(widget);
    if (!stack && !widget->isVisible())
        return; // where the program has hidden it, it stays so
    const PageBlocker blocker(widget);
    if (stack)
        stack->removeWidget(widget);
    widget->hide();
    widget->setAttribute(Qt::WA_WState_ExplicitShowHide, false);
}

void takeOutFor(QWidget* target, QWidget* widget)
{
    if (target && widget->parentWidget() != target)
        takeOut(widget);
    else
        endAside(widget, true);
}

void keepHidden(QWidget* widget, QWidget* keeper)
{
    if (!widget)
        return;
    takeOut(widget);
    setAside(widget);
    widget->setParent(keeper);
    QtComposedWindows::settle(*widget);
}

void takeOutAlone(QWidget* widget)
{
    leaveBar(widget);
    const bool staysHidden = isHiddenByProgram(widget);
    const QtEventBlocker blocker(widget, {WidgetEvent::Hide, WidgetEvent::FocusIn});
    takeOut(widget);
    const Qt::WindowFlags flags = widget->windowFlags();
    if (!staysHidden)
        setAside(widget);
    if (widget->parentWidget()) {
        widget->setParent(nullptr, widget->isWindow() ? flags : flags & ~Qt::WindowType_Mask);
        QtComposedWindows::settle(*widget);
    }
}

} // namespace VOXI
