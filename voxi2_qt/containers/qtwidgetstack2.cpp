#include "voxi2_qt/containers/qtwidgetstack2.h"

#include "../kernel/qtignored.h"
#include "../kernel/qttakeout.h"
#include "voxi2_qt/kernel/qteventblocker.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"

namespace VOXI {

namespace {

using E = VXWidgetStack2Emitters;
using P = QtWidgetStack2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::addWidget, &P::doAddWidget>(),
    TROV::row<&E::raiseWidget, &P::doRaiseWidget>(),
    TROV::row<&E::raiseWidgetWithID, &P::doRaiseWidgetWithID>(),
    TROV::row<&E::removeWidget, &P::doRemoveWidget>(),
    TROV::row<&E::getCurrentWidget, &P::doGetCurrentWidget>(),
    TROV::row<&E::getCurrentID, &P::doGetCurrentID>(),
    TROV::row<&E::getWidgetID, &P::doGetWidgetID>(),
    TROV::row<&E::count, &P::doCount>());
// clang-format on

} // namespace

QtWidgetStack2::QtWidgetStack2(VXWidgetStack2* object, VXWidgetStack2Emitters* emitters,
                               QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{}

// Requests ----------------------------------------------------------------------------------------

void QtWidgetStack2::doAddWidget(VXWidget2* widget, int index)
{
    withWidgetOf(widget, [&](QWidget* child) {
        if (!canHold(*this, this, child))
            return;
        const QtSignalBlocker signals(this);
        takeOut(child);
        const QtEventBlocker shown(child, {WidgetEvent::Show}); // the first of all
        insertWidget(index, child);
        if (child->parentWidget() != this) // a handler has moved it on
            removeWidget(child);
    });
}

void QtWidgetStack2::doRaiseWidget(VXWidget2* widget)
{
    doRaiseWidgetWithID(doGetWidgetID(widget));
}

void QtWidgetStack2::doRaiseWidgetWithID(int id)
{
    if (!widget(id)) {
        ignored(*this, Reason::NoIndex);
        return;
    }
    // Qt moves the focus from a page that it hides to the next one.
    const QtEventBlocker focus(*this, {WidgetEvent::FocusIn});
    const QtEventBlocker shown(widget(id), {WidgetEvent::Show});
    const QtEventBlocker hidden(currentWidget(), {WidgetEvent::Hide});
    const QtSignalBlocker signals(this);
    setCurrentIndex(id);
}

void QtWidgetStack2::doRemoveWidget(VXWidget2* widget)
{
    withWidgetOf(widget, [&](QWidget* child) {
        if (child && indexOf(child) >= 0) {
            const QtSignalBlocker signals(this);
            keepHidden(child, this);
        } else {
            ignored(*this, Reason::NotInThis);
        }
    });
}

VXWidget2* QtWidgetStack2::doGetCurrentWidget()
{
    return abstractObjectOf<VXWidget2>(currentWidget());
}

int QtWidgetStack2::doGetCurrentID() { return currentIndex(); }

int QtWidgetStack2::doGetWidgetID(VXWidget2* widget)
{
    int id = -1;
    withWidgetOf(widget, [&](QWidget* child) { id = child ? indexOf(child) : -1; });
    return id;
}

int QtWidgetStack2::doCount() { return count(); }

// Reports -----------------------------------------------------------------------------------------

void QtWidgetStack2::connectSignals()
{
    connect(this, &QStackedWidget::currentChanged, this, &QtWidgetStack2::slotCurrentChanged);
}

void QtWidgetStack2::slotCurrentChanged(int index)
{
    report(&E::currentGone, abstractObjectOf<VXWidget2>(widget(index)), index);
}

} // namespace VOXI
