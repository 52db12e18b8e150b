#pragma once

#include "voxi2_qt/kernel/qtwidget2shim.h"

#include <QKeyEvent>
#include <QWidget>

#include <cstddef>
#include <utility>

namespace VOXI {

/// For peers that have another widget in them do the work, a `QtInnerWidget`: what the user does in
/// that one is reported as the peer's own.
template <class Object, class Emitters, class Base>
class QtOuterWidget2Shim : public QtWidget2Shim<Object, Emitters, Base, QWidget>
{
    using Shim = QtWidget2Shim<Object, Emitters, Base, QWidget>;

public:
    /// Passes an event of the inner widget, or of one in it, back; true when it is consumed.
    bool passOn(QWidget* receiver, QEvent& event) { return this->filterEvent(receiver, &event); }
    /// The inner widget does not want the event that was passed on: it comes here at once.
    void expectAgain(const QEvent& event) { m_passed = &event; }

protected:
    template <std::size_t Count>
    QtOuterWidget2Shim(Object* object, Emitters* emitters,
                       const TROV::Operations<Emitters, Count>& requests, QWidget* parent)
        : Shim(object, emitters, requests, parent)
    {}

    bool showToPeer(QWidget* receiver, QEvent* event) override
    {
        return event != std::exchange(m_passed, nullptr) && Shim::showToPeer(receiver, event);
    }

private:
    const QEvent* m_passed = nullptr; ///< compared, never followed
};

/// The widget in such a peer: a `Q` that passes its keys and its focus on.
template <class Q, class Outer>
class QtInnerWidget : public Q
{
protected:
    template <class... Arguments>
    explicit QtInnerWidget(Outer& outer, Arguments&&... arguments)
        : Q(&outer, std::forward<Arguments>(arguments)...),
          m_outer(outer)
    {}

    Outer& outer() const { return m_outer; }

    bool event(QEvent* event) override
    {
        const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
        const bool isFocus = event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut;
        const QtDeletionHold hold(&m_outer);
        if ((isKey || isFocus) && m_outer.passOn(&m_outer, *event))
            return true;
        const bool isHandled = Q::event(event);
        if (hold.isAlive() && isKey && !event->isAccepted())
            m_outer.expectAgain(*event);
        return isHandled;
    }

private:
    Outer& m_outer;
};

} // namespace VOXI
