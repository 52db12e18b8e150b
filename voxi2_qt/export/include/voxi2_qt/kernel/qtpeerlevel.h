#pragma once

#include "voxi2_qt/kernel/qtobject2.h"

#include <cstddef>
#include <optional>
#include <utility>

namespace VOXI {

/// What each class of a peer derives from that serves a class of the abstract side: it serves the
/// requests of that class's table, and reports the table's events with the object as their sender.
template <class Object, class Emitters, class Base>
class QtPeerLevel : public Base
{
public:
    /// Reports something: sends the event `E(object, arguments...)`, where it is heard.
    template <class E, class... Arguments>
    void report(TROV::Event<void(const E&)> Emitters::*event, Arguments&&... arguments) const
    {
        this->reportMade(event, [&] { return E(sender(), std::forward<Arguments>(arguments)...); });
    }

    /// The same for a question: gives the event back, which carries the handlers' answer; nothing
    /// where it is not heard.
    template <class E, class... Arguments>
    std::optional<E> ask(TROV::Event<void(const E&)> Emitters::*event,
                         Arguments&&... arguments) const
    {
        return this->askMade(event,
                             [&] { return E(sender(), std::forward<Arguments>(arguments)...); });
    }

protected:
    /// For the bases of peers.
    template <std::size_t Count>
    QtPeerLevel(Object* object, Emitters* emitters,
                const TROV::Operations<Emitters, Count>& requests)
        : QtPeerLevel(object, emitters)
    {
        this->bindRequests(emitters, requests);
    }

    /// For the shims, which bind the requests when there is a Qt object to serve them.
    QtPeerLevel(Object* object, Emitters* emitters) : Base(object, emitters->base()) {}

private:
    Object* sender() const noexcept { return this->template abstractObject<Object>(); }
};

} // namespace VOXI
