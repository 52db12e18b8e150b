#pragma once

#include "trov/emitterstable.h"
#include "trov/requestbinding.h"
#include "worker.h"

#include <functional>
#include <optional>

namespace TROV {

struct CounterEmitters : EmittersTable<void>
{
    Request<void(int)> set{*this};
    Request<int()> get{*this};
    Request<int(int)> ask{*this};
    RequestsEnd requestsEnd{*this};
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
    void doSet(int value) { m_value = value; }
    int doGet() { return m_value; }
    int doAsk(int value) { return m_ask(value); }

    RequestBinding m_binding;
    int m_value = 0;
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

} // namespace TROV
