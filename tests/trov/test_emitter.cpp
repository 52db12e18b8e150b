#include "support/watchedtest.h"
#include "support/worker.h"
#include "trov/emitter.h"

#include <memory>
#include <string>
#include <vector>

namespace TROV {
namespace {

class EmitterTest : public VOXI::WatchedTest
{
protected:
    Listener m_listener;
    std::vector<int> m_seen;

    auto note(int value)
    {
        return [this, value] { m_seen.push_back(value); };
    }
};

struct Recorder : Listener
{
    std::string m_log;

    void nothing() { m_log += "n"; }
    void two(int a, const std::string& b) { m_log += std::to_string(a) + b; }
    int twice(int a) const { return 2 * a; }
};

TEST_F(EmitterTest, CallsInTheOrderOfConnectingAndTheLastResultCounts)
{
    Emitter0<int> emitter;
    EXPECT_EQ(emitter(), 0);
    for (int i = 1; i <= 5; ++i)
        emitter.connect(&m_listener, [this, i] {
            m_seen.push_back(i);
            return i * 10;
        });
    EXPECT_EQ(emitter(), 50);
    EXPECT_EQ(m_seen, (std::vector{1, 2, 3, 4, 5}));
}

TEST_F(EmitterTest, OnTheSameThreadNothingIsCopied)
{
    struct Argument
    {
        Argument() = default;
        Argument(const Argument&) { ADD_FAILURE() << "copied"; }
    };
    Emitter1<void, Argument> emitter;
    const Argument* seen = nullptr;
    emitter.connect(&m_listener, [&](const Argument& argument) { seen = &argument; });
    const Argument argument;
    emitter(argument);
    EXPECT_EQ(seen, &argument);
}

TEST_F(EmitterTest, CarriesUpToFourArgumentsToHandlersThatMayTakeFewer)
{
    Recorder recorder;
    Emitter4<int, int, std::string, double, char> asking;
    asking.connect(&recorder, [&](int a, const std::string& b, double c, char d) {
        recorder.m_log += std::to_string(a) + b + std::to_string(int(c)) + d;
        return 1;
    });
    asking.connect(&recorder, &Recorder::twice);
    EXPECT_EQ(asking(7, "x", 4.0, 'd'), 14);

    Emitter3<void, int, std::string, char> telling;
    telling.connect(&recorder, [&](int a) { recorder.m_log += std::to_string(a); });
    telling.connect(&recorder, &Recorder::nothing);
    telling.connect(&recorder, &Recorder::two);
    telling.connect(&recorder, &Recorder::twice);
    telling(3, "b", 'c');
    EXPECT_EQ(recorder.m_log, "7x4d3n3b");
}

TEST_F(EmitterTest, CountsConnectionsAtEveryEnd)
{
    Emitter1<void, int> first;
    Emitter0<> second;
    {
        Listener brief;
        ConnectionHandle a = first.connect(&m_listener, [] {});
        first.connect(&brief, [] {});
        second.connect(&m_listener, [] {});
        EXPECT_EQ(first.numberOfConnections(), 2);
        EXPECT_EQ(first.signal().numberOfConnections(), 2);
        EXPECT_EQ(m_listener.numberOfConnections(), 2);
        a.disconnect();
        a.disconnect();
        EXPECT_FALSE(a.isConnected());
        EXPECT_EQ(first.numberOfConnections(), 1);
        EXPECT_EQ(m_listener.numberOfConnections(), 1);
    }
    EXPECT_EQ(first.numberOfConnections(), 0);
    first.connect(&m_listener, [] {});
    first.connect(&m_listener, [] {});
    first.disconnect(&m_listener);
    EXPECT_EQ(first.numberOfConnections(), 0);
    EXPECT_EQ(second.numberOfConnections(), 1);
    m_listener.disconnect();
    EXPECT_EQ(second.numberOfConnections(), 0);
    EXPECT_EQ(m_listener.numberOfConnections(), 0);
}

TEST_F(EmitterTest, HandlesNameOneConnection)
{
    ConnectionHandle handle;
    EXPECT_FALSE(handle.isConnected());
    handle.disconnect();
    {
        Emitter0<> emitter;
        handle = emitter.connect(static_cast<Listener*>(nullptr), note(1));
        ConnectionHandle copy = handle;
        const ConnectionHandle moved = std::move(handle);
        emitter.disconnect(nullptr); // cuts nothing that is nobody's
        emitter();
        EXPECT_TRUE(copy.isConnected() && moved.isConnected());
        copy.disconnect();
        EXPECT_FALSE(moved.isConnected());
        emitter();
        handle = emitter.connect(static_cast<Listener*>(nullptr), note(2));
    }
    EXPECT_FALSE(handle.isConnected());
    EXPECT_EQ(m_seen, std::vector{1});
}

TEST_F(EmitterTest, ACopiedListenerHasNoConnections)
{
    Emitter0<> emitter;
    auto original = std::make_unique<Recorder>();
    emitter.connect(original.get(), &Recorder::nothing);
    Recorder copy(*original);
    Recorder assigned;
    emitter.connect(&assigned, &Recorder::nothing);
    assigned = *original;
    EXPECT_EQ(copy.numberOfConnections(), 0);
    EXPECT_EQ(assigned.numberOfConnections(), 1);
    original.reset();
    emitter();
    EXPECT_EQ(assigned.m_log, "n");
}

// Re-entrancy -------------------------------------------------------------------------------------

TEST_F(EmitterTest, ConnectingDuringAnEmissionIsForTheNextOne)
{
    Emitter0<> emitter;
    emitter.connect(&m_listener, [&] {
        m_seen.push_back(1);
        if (m_seen.size() == 1)
            emitter.connect(&m_listener, note(2));
    });
    emitter();
    EXPECT_EQ(m_seen, std::vector{1});
    emitter();
    EXPECT_EQ(m_seen, (std::vector{1, 1, 2}));
}

TEST_F(EmitterTest, WhatIsCutDuringAnEmissionIsNotCalledAnyMore)
{
    Emitter0<> emitter;
    auto victim = std::make_unique<Listener>();
    ConnectionHandle own;
    ConnectionHandle later;
    own = emitter.connect(&m_listener, [&] {
        m_seen.push_back(1);
        own.disconnect();
        later.disconnect();
        victim.reset();
        m_seen.push_back(2); // the closure is still there
    });
    later = emitter.connect(&m_listener, note(3));
    emitter.connect(victim.get(), note(4));
    emitter.connect(&m_listener, note(5));
    emitter();
    emitter();
    EXPECT_EQ(m_seen, (std::vector{1, 2, 5, 5}));
}

TEST_F(EmitterTest, KeepsTheOrderThroughManyCutsAndConnections)
{
    Emitter0<> emitter;
    std::vector<ConnectionHandle> handles;
    std::vector<int> expected;
    const auto closure = std::make_shared<int>();
    for (int i = 0; i < 300; ++i) {
        handles.push_back(
            emitter.connect(&m_listener, [this, i, closure] { m_seen.push_back(i); }));
        // In the middle of an emission, too, which goes on in what it found.
        if (i % 7 == 3) {
            const auto inside = emitter.connect(&m_listener, [&] {
                for (int cut = i - 3; cut <= i; cut += 2) {
                    handles[std::size_t(cut)].disconnect();
                    handles[std::size_t(cut)] = {};
                }
            });
            emitter();
            ConnectionHandle(inside).disconnect();
        }
        m_seen.clear();
        expected.clear();
        for (int j = 0; j <= i; ++j) {
            if (handles[std::size_t(j)].isConnected())
                expected.push_back(j);
        }
        emitter();
        ASSERT_EQ(m_seen, expected);
        ASSERT_EQ(emitter.numberOfConnections(), int(expected.size()));
        ASSERT_EQ(closure.use_count(), long(expected.size()) + 1);
    }
    EXPECT_LT(expected.size(), 300u);
}

// Quadratic in the listeners, this would outlast the watchdog.
TEST_F(EmitterTest, TakesAnyNumberOfListeners)
{
    Emitter0<> emitter;
    std::vector<std::unique_ptr<Listener>> listeners;
    int calls = 0;
    for (int i = 0; i < 300'000; ++i) {
        listeners.push_back(std::make_unique<Listener>());
        emitter.connect(listeners.back().get(), [&] { ++calls; });
    }
    emitter();
    EXPECT_EQ(calls, 300'000);
    listeners.clear();
    EXPECT_EQ(emitter.numberOfConnections(), 0);
}

TEST_F(EmitterTest, AHandlerMayDestroyTheEmitterAndItsOwnListener)
{
    auto emitter = std::make_unique<Emitter1<int, int>>();
    auto listener = std::make_unique<Listener>();
    emitter->connect(listener.get(), [&](int a) {
        listener.reset();
        emitter.reset();
        m_seen.push_back(a);
        return a + 1;
    });
    emitter->connect(&m_listener, [&](int) { return m_seen.push_back(-1), 0; });
    EXPECT_EQ((*emitter)(5), 6);
    EXPECT_EQ(m_seen, std::vector{5});
    EXPECT_EQ(m_listener.numberOfConnections(), 0);
}

TEST_F(EmitterTest, ExceptionsReachTheSender)
{
    Emitter1<void, int> emitter;
    emitter.connect(&m_listener, [&](int a) {
        if (a < 0)
            throw std::runtime_error("negative");
        m_seen.push_back(a);
    });
    emitter.connect(&m_listener, note(100));
    EXPECT_THROW(emitter(-1), std::runtime_error);
    EXPECT_THROW(emitter.emitAndWait(-1), std::runtime_error);
    EXPECT_TRUE(m_seen.empty());
    emitter(1);
    EXPECT_EQ(m_seen, (std::vector{1, 100}));
}

TEST_F(EmitterTest, EmissionsNestDeeplyWhileConnectionsComeAndGo)
{
    constexpr int Deep = 100; // beyond what a thread keeps track of in its own place
    Emitter1<int, int> emitter;
    const auto watched = std::make_shared<int>();
    std::vector<ConnectionHandle> handles;
    emitter.connect(&m_listener, [&](int depth) -> int {
        handles.push_back(emitter.connect(&m_listener, [watched](int) { return 0; }));
        const int below = depth == 0 ? 0 : emitter(depth - 1);
        handles.back().disconnect();
        handles.pop_back();
        return below;
    });
    int calls = 0;
    ConnectionHandle last = emitter.connect(&m_listener, [&](int depth) {
        ++calls;
        if (depth == 50)
            last.disconnect(); // within fifty emissions that were to call it
        return depth;
    });
    emitter(Deep);
    EXPECT_EQ(calls, 51);
    EXPECT_EQ(emitter.numberOfConnections(), 1);
    EXPECT_EQ(watched.use_count(), 1);
}

// What the closures hold --------------------------------------------------------------------------

TEST_F(EmitterTest, ClosuresGoWithTheirConnection)
{
    const auto watched = std::make_shared<int>();
    auto handler = [watched] {};
    const long idle = watched.use_count();
    auto emitter = std::make_unique<Emitter0<>>();
    auto listener = std::make_unique<Listener>();
    ConnectionHandle byHandle = emitter->connect(&m_listener, handler);
    emitter->connect(listener.get(), handler);
    emitter->connect(&m_listener, handler);
    EXPECT_EQ(watched.use_count(), idle + 3);
    byHandle.disconnect();
    byHandle = ConnectionHandle();
    EXPECT_EQ(watched.use_count(), idle + 2);
    listener.reset();
    EXPECT_EQ(watched.use_count(), idle + 1);
    emitter.reset();
    EXPECT_EQ(watched.use_count(), idle);
}

TEST_F(EmitterTest, AClosureCutInItsOwnCallGoesWhenTheCallEnds)
{
    std::weak_ptr<int> watched;
    Emitter0<> inner;
    Emitter0<> outer;
    {
        const auto owned = std::make_shared<int>(7);
        watched = owned;
        inner.connect(&m_listener, [this, owned] {
            m_listener.disconnect();
            m_seen.push_back(*owned);
        });
    }
    bool goneInside = false;
    Listener other;
    outer.connect(&other, [&] {
        inner();
        goneInside = watched.expired(); // though an emission is still going on around it
    });
    outer();
    EXPECT_EQ(m_seen, std::vector{7});
    EXPECT_TRUE(goneInside);
}

TEST_F(EmitterTest, AClosureMayUseTheLibraryWhenItGoes)
{
    Emitter0<> farewell;
    Listener other;
    farewell.connect(&other, note(1));
    struct Guard
    {
        Emitter0<>* m_farewell;
        Listener* m_other;
        ~Guard()
        {
            (*m_farewell)();
            m_other->disconnect();
        }
    };
    Emitter0<> emitter;
    emitter.connect(&m_listener, [this, guard = std::make_shared<Guard>(Guard{&farewell, &other})] {
        m_listener.disconnect();
    });
    m_seen.clear(); // of the temporaries above
    farewell.connect(&other, note(2));
    emitter();
    EXPECT_EQ(m_seen, std::vector{2});
    EXPECT_EQ(farewell.numberOfConnections(), 0);
}

// Other threads -----------------------------------------------------------------------------------

TEST_F(EmitterTest, ReferencesAreCopiedForOtherThreads)
{
    Worker worker;
    Emitter2<void, const std::string&, std::string&> emitter;
    std::promise<std::string> seen;
    emitter.connect(
        &m_listener,
        [&](const std::string& a, std::string& b) {
            b += "!";
            seen.set_value(a + b);
        },
        worker.thread());
    {
        std::string a(100, 'a');
        std::string b = "b";
        emitter(a, b);
        a.assign(100, 'x');
        EXPECT_EQ(b, "b");
    }
    EXPECT_EQ(seen.get_future().get(), std::string(100, 'a') + "b!");
}

TEST_F(EmitterTest, WaitsOnDemandAlsoForWhatHasNoResult)
{
    Worker worker;
    Emitter0<> emitter;
    emitter.connect(&m_listener, note(1), worker.thread());
    emitter.emitAndWait();
    EXPECT_EQ(m_seen, std::vector{1});
}

TEST_F(EmitterTest, NothingArrivesAfterTheCutOnTheDeliveringThread)
{
    Worker worker;
    Emitter0<> emitter;
    auto listener = std::make_unique<Listener>();
    auto second = std::make_unique<Listener>();
    emitter.connect(listener.get(), note(1), worker.thread());
    emitter.connect(second.get(), note(2), worker.thread());
    ConnectionHandle third = emitter.connect(&m_listener, note(3), worker.thread());
    worker.run([&] {
        std::thread([&] { emitter(); }).join(); // queued behind this call
        listener->disconnect();
        second.reset();
        third.disconnect();
    });
    worker.run([] {});
    EXPECT_TRUE(m_seen.empty());
}

} // namespace
} // namespace TROV
