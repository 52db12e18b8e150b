#pragma once

#include "support/watchedtest.h"
#include "support/worker.h"
#include "trov/emitterstable.h"
#include "trov/requestbinding.h"
#include "trov/waithooks.h"
#include "voxi_util/recursivelock.h"

#include <functional>
#include <optional>

namespace TROV {

struct CounterEmitters : EmittersTable<void>
{
    Request<void(int)> set{*this};
    Request<int()> get{*this};
    Request<int(int)> ask{*this};
    RequestsEnd requestsEnd{*this};
    Event<void()> changed{*this};
};

struct CounterPeer : Listener
{
    explicit CounterPeer(CounterEmitters& emitters)
    {
        static const auto table = operations(row<&CounterEmitters::set, &CounterPeer::doSet>(),
                                             row<&CounterEmitters::get, &CounterPeer::doGet>(),
                                             row<&CounterEmitters::ask, &CounterPeer::doAsk>());
        m_binding.bind(emitters, this, table);
    }
    void doSet(int value)
    {
        m_value = value;
        if (m_whenSet)
            m_whenSet(value);
    }
    int doGet() { return m_value; }
    int doAsk(int value) { return m_ask(value); }

    RequestBinding m_binding;
    int m_value = 0;
    std::function<void(int)> m_whenSet;
    std::function<int(int)> m_ask = [](int value) { return value; };
};

/// A counter whose peer is served by a worker.
struct Counter
{
    Counter()
    {
        m_worker.run([this] { m_peer.emplace(m_emitters); });
    }
    ~Counter()
    {
        if (m_worker.thread()->isAccepting())
            m_worker.run([this] { m_peer.reset(); });
    }
    CounterEmitters m_emitters;
    std::optional<CounterPeer> m_peer;
    Worker m_worker;
};

/// Installs a lock that those who wait give up meanwhile.
struct WaitLock : VOXI::RecursiveLock
{
    WaitLock()
    {
        s_installed = this;
        installWaitHooks({[] { return s_installed->releaseAll(); },
                          [](unsigned holds) { s_installed->reacquire(holds); }});
    }
    ~WaitLock() { installWaitHooks({}); }

    static inline WaitLock* s_installed = nullptr;
};

} // namespace TROV
