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

QtDragDelegate2::QtDragDelegate2(VXDragDelegate2* delegate, VXDragDelegate2Emitters* emitters)
    : QtObject2Shim(delegate, emitters),
      m_emitters(emitters)
{
    bindRequests(emitters, s_requests);
}

void QtDragDelegate2::dragEnter(VXWidget2* widget, QDragEnterEvent* event)
{
    ask(m_emitters->entered, widget, WidgetEvent::DragEnter, event);
}

void QtDragDelegate2::dragMove(VXWidget2* widget, QDragMoveEvent* event)
{
    ask(m_emitters->moved, widget, WidgetEvent::DragMove, event);
}

void QtDragDelegate2::dragLeave(VXWidget2* widget, QDragLeaveEvent*)
{
    report(m_emitters->left, widget, WidgetEvent::DragLeave);
}

void QtDragDelegate2::drop(VXWidget2* widget, QDropEvent* event)
{
    ask(m_emitters->dropped, widget, WidgetEvent::Drop, event);
}

void QtDragDelegate2::ask(const TROV::Event<void(const VXDragEvent2&)>& emitter, VXWidget2* widget,
                          WidgetEvent type, QDropEvent* event)
{
    if (!isVXObjectValid() || !emitter.isHeard())
        return;
    const auto* peer = dynamic_cast<QtWidget2*>(lookup(widget));
    if (!peer)
        return;
    const EventTarget target{widget, peer->asQWidget(), peer->pointerWidget()};
    const VXDragEvent2 question = dragEvent(target, type, *event);
    const QtHandlerFrame frame(*this);
    emitter(question);
    applyAnswer(question, *event);
}

} // namespace VOXI
