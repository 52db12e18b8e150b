#pragma once

#include "voxi2_qt/kernel/qtpeerlevel.h"

#include <QEvent>

#include <cstddef>
#include <utility>

namespace VOXI {

/// Joins a peer base with a Qt object class that is no widget, for one abstract kind.
template <class Object, class Emitters, class Base, class Q>
class QtObject2Shim : public Q, public QtPeerLevel<Object, Emitters, Base>
{
public:
    ~QtObject2Shim() override { this->endPeer(); }

    QObject* asQObject() const noexcept override
    {
        return const_cast<Q*>(static_cast<const Q*>(this));
    }

protected:
    bool event(QEvent* event) override
    {
        return QtDeletionHold::postpones(*this, *event) || Q::event(event);
    }

    /// `arguments` go to the Qt class.
    template <std::size_t Count, class... Arguments>
    QtObject2Shim(Object* object, Emitters* emitters,
                  const TROV::Operations<Emitters, Count>& requests, Arguments&&... arguments)
        : Q(std::forward<Arguments>(arguments)...),
          QtPeerLevel<Object, Emitters, Base>(object, emitters)
    {
        this->bindRequests(emitters, requests);
    }
};

} // namespace VOXI
