#pragma once

#include "trov/emitterstable.h"
#include "trov/listener.h"
#include "trov/requestbinding.h"

namespace bench {

struct CounterEmitters : TROV::EmittersTable<void>
{
    TROV::Request<void(int)> count{*this};
    TROV::Request<int(int)> answer{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(int)> changed{*this};
};

/// Serves requests with nearly nothing behind them, on the thread that makes it.
class CounterPeer : public TROV::Listener
{
public:
    explicit CounterPeer(CounterEmitters& emitters)
    {
        static const auto requests = TROV::operations<CounterEmitters>(
            TROV::row<&CounterEmitters::count, &CounterPeer::count>(),
            TROV::row<&CounterEmitters::answer, &CounterPeer::answer>());
        m_requests.bind(emitters, this, requests);
    }
    ~CounterPeer() override { m_requests.unbind(); }

    void count(int value)
    {
        m_sum += value;
        ++m_count;
    }
    int answer(int value) { return value + 1; }

    long m_sum = 0;
    long m_count = 0;

private:
    TROV::RequestBinding m_requests;
};

} // namespace bench
