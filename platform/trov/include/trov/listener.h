#pragma once

#include "trov/trov_export.h"
#include "trov/types.h"

#include <atomic>
#include <functional>
#include <typeinfo>

namespace TROV {

namespace detail {
struct Binding;
}

/// Owns the connections that call it, or that live as long as it does.
///
/// A connection is cut when its listener is destroyed. On the thread that a connection delivers on,
/// nothing of it arrives after `disconnect()` or the destructor has returned; a call that is
/// running on another thread at that moment runs to its end.
class TROV_EXPORT Listener
{
public:
    Listener() = default;
    /// Connections belong to one listener: a copy starts without any.
    Listener(const Listener&) noexcept {}
    Listener& operator=(const Listener&) noexcept { return *this; }
    virtual ~Listener();

    /// Cuts all connections. Safe at any time, from any thread, also inside one of their calls.
    virtual void disconnect();

    /// How many connections there are at the moment.
    int numberOfConnections() const;

    /// Calls `function` with the class that the listener was when it connected, once for each
    /// connection: in a destructor it may be more than is left of it.
    void forEachListenerType(const std::function<void(const std::type_info&)>& function) const;

protected:
    /// Of one that serves an object's requests: called when somebody listens to an emitter of that
    /// object for the first time, on the serving thread, so that only then what is worth hearing is
    /// looked after. Who listened before the service began is not told of: see
    /// `RequestBinding::mayBeHeard`. May come more than once.
    virtual void becomeHeard() {}

private:
    friend class Connection;
    friend struct detail::Binding;
    std::atomic<Connection*> m_first{nullptr}; // changed under the global connection lock
};

} // namespace TROV
