#include "voxi2_qt/kernel/qtdragdelegate2.h"

#include "qteventbuild.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QDropEvent>

namespace VOXI {

namespace {

using E = VXDragDelegate2Emitters;

const auto s_requests = TROV::operations<E>();

} // namespace

QtDragDelegate2::QtDragDelegate2(VXDragDelegate2* object, VXDragDelegate2Emitters* emitters)
    : QtObject2Shim(object, emitters, s_requests)
{}

// Reports -----------------------------------------------------------------------------------------

void QtDragDelegate2::dragEnter(const QtWidget2& widget, QDragEnterEvent* event)
{
    pass(&E::entered, widget, WidgetEvent::DragEnter, *event);
}

void QtDragDelegate2::dragMove(const QtWidget2& widget, QDragMoveEvent* event)
{
    pass(&E::moved, widget, WidgetEvent::DragMove, *event);
}

void QtDragDelegate2::dragLeave(const QtWidget2& widget, QDragLeaveEvent*)
{
    reportMade(&E::left,
               [&] { return VXDragEvent2(widget.abstractWidget(), WidgetEvent::DragLeave); });
}

void QtDragDelegate2::drop(const QtWidget2& widget, QDropEvent* event)
{
    pass(&E::dropped, widget, WidgetEvent::Drop, *event);
}

// Helpers -----------------------------------------------------------------------------------------

void QtDragDelegate2::pass(TROV::Event<void(const VXDragEvent2&)> E::*event,
                           const QtWidget2& widget, WidgetEvent type, QDropEvent& qtEvent)
{
    const EventTarget target{widget.abstractWidget(), widget.asQWidget(), widget.pointerWidget()};
    const auto make = [&] { return dragEvent(target, type, qtEvent); };
    if (const auto asked = askMade(event, make))
        applyAnswer(*asked, qtEvent);
}

} // namespace VOXI
