#pragma once

#include "trov/trov_export.h"
#include "trov/types.h"

namespace TROV {

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

private:
    friend class Connection;
    Connection* m_first = nullptr; // guarded by the global connection lock
};

} // namespace TROV
