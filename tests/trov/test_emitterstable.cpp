#include "support/reportederrors.h"
#include "support/watchedtest.h"
#include "support/worker.h"
#include "trov/emitterstable.h"
#include "trov/requestbinding.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace TROV {
namespace {

struct ThingEmitters : EmittersTable<void>
{
    Request<void(int)> setSize{*this};
    Request<int()> size{*this};
    Request<void(std::string)> setName{*this};
    RequestsEnd requestsEnd{*this};
    Event<void(int)> resized{*this};
};

struct ButtonEmitters : EmittersTable<ThingEmitters>
{
    using EmittersTable::EmittersTable;
    Request<void(bool)> setDown{*this};
    Request<std::string(std::string, int)> repeat{*this};
    RequestsEnd requestsEnd{*this};
    Event<void()> clicked{*this};
};

struct Button
{
    ThingEmitters thing;
    ButtonEmitters button{thing};
};

class Peer : public Listener
{
public:
    explicit Peer(Button& object) { bind(object); }

    void bind(Button& object)
    {
        static const auto thing = operations(row<&ThingEmitters::setSize, &Peer::doSetSize>(),
                                             row<&ThingEmitters::size, &Peer::doSize>(),
                                             row<&ThingEmitters::setName, &Peer::doSetName>());
        static const auto button = operations(row<&ButtonEmitters::setDown, &Peer::doSetDown>(),
                                              row<&ButtonEmitters::repeat, &Peer::doRepeat>());
        m_binding.bind(object.thing, this, thing);
        m_binding.bind(object.button, this, button);
    }

    virtual void doSetSize(int size)
    {
        m_size = size;
        if (m_onSetSize)
            m_onSetSize();
    }
    int doSize() const { return m_size; }
    void doSetName(const std::string& name) { m_name = name; }
    void doSetDown(bool down) { m_size = down; }
    std::string doRepeat(const std::string& text, int times)
    {
        std::string result;
        while (times-- > 0)
            result += text;
        return result;
    }

    void becomeHeard() override { ++m_timesHeard; }

    RequestBinding m_binding;
    int m_size = 0;
    int m_timesHeard = 0;
    std::string m_name;
    std::function<void()> m_onSetSize;
};

class DoublingPeer : public Peer
{
public:
    using Peer::Peer;
    void doSetSize(int size) override { Peer::doSetSize(2 * size); }
};

/// Serves the root table only, and is laid out otherwise than `Peer`.
class RootPeer : public Listener
{
public:
    explicit RootPeer(Button& object)
    {
        static const auto thing = operations(row<&ThingEmitters::setSize, &RootPeer::doSetSize>(),
                                             row<&ThingEmitters::size, &RootPeer::doSize>(),
                                             row<&ThingEmitters::setName, &RootPeer::doSetName>());
        m_binding.bind(object.thing, this, thing);
    }
    void doSetSize(int) {}
    int doSize() { return -1; }
    void doSetName(std::string) {}

    RequestBinding m_binding;
};

class EmittersTableTest : public VOXI::WatchedTest
{
protected:
    static std::optional<int> askByPacket(const Button& object)
    {
        auto* const question = new Payload0<int>;
        const Packet packet(question);
        object.thing.size.sendPacket(packet, SendDirect, true);
        return question->result();
    }

    std::unique_ptr<Button> m_object = std::make_unique<Button>();
    Listener m_listener;
};

TEST_F(EmittersTableTest, ReachesThePeerVirtuallyAndCountsAsAConnection)
{
    static_assert(sizeof(ThingEmitters::setSize) == 1 && sizeof(ButtonEmitters::clicked) == 1);
    Button& object = *m_object;
    const auto expectUnbound = [&] {
        object.thing.setSize(9);
        object.button.clicked();
        EXPECT_EQ(object.thing.size(), 0);
        EXPECT_EQ(object.button.repeat("a", 2), "");
        EXPECT_EQ(object.thing.size.numberOfConnections(), 0);
        EXPECT_EQ(object.button.clicked.numberOfConnections(), 0);
    };
    expectUnbound();
    DoublingPeer peer(object);
    EXPECT_EQ(peer.m_binding.table<ThingEmitters>(), &object.thing);
    EXPECT_EQ(peer.m_binding.table<ButtonEmitters>(), &object.button);
    object.thing.setSize(3);
    EXPECT_EQ(object.thing.size(), 6);
    object.thing.setName("n");
    EXPECT_EQ(peer.m_name, "n");
    EXPECT_EQ(object.button.repeat("ab", 2), "abab");
    EXPECT_EQ(object.thing.size.numberOfConnections(), 1);
    EXPECT_EQ(object.button.setDown.numberOfConnections(), 1);
    EXPECT_EQ(object.button.clicked.numberOfConnections(), 0);

    peer.m_binding.unbind();
    EXPECT_FALSE(peer.m_binding.isBound());
    EXPECT_EQ(peer.m_binding.table<ThingEmitters>(), nullptr);
    expectUnbound();
    EXPECT_EQ(peer.m_size, 6);
}

TEST_F(EmittersTableTest, ListenersBesideTheOperationComeAfterIt)
{
    Button& object = *m_object;
    std::vector<std::string> log;
    // Before there is a peer, and after.
    object.thing.setSize.signal().connect(
        &m_listener, [&](int a) { log.push_back("early" + std::to_string(a)); });
    object.thing.setSize(0);
    Peer peer(object);
    peer.m_onSetSize = [&] { log.push_back("peer"); };
    object.thing.setSize.signal().connect(&m_listener, [&] { log.push_back("late"); });
    object.thing.setSize(1);
    EXPECT_EQ(log, (std::vector<std::string>{"early0", "peer", "early1", "late"}));
    EXPECT_EQ(object.thing.setSize.numberOfConnections(), 3);
}

TEST_F(EmittersTableTest, ListenersBesideTheOperationDoNotAnswerForIt)
{
    Button& object = *m_object;
    Peer peer(object);
    peer.m_size = 1;
    int watched = 0;
    object.thing.size.signal().connect(&m_listener, [&] {
        ++watched;
        return 70;
    });
    EXPECT_EQ(object.thing.size(), 1);
    EXPECT_EQ(askByPacket(object), 1);
    Worker worker;
    worker.run([&] { peer.bind(object); });
    EXPECT_EQ(object.thing.size(), 1);
    EXPECT_EQ(watched, 3);
    worker.run([&] { peer.m_binding.unbind(); });
    EXPECT_EQ(object.thing.size(), 70);
}

TEST_F(EmittersTableTest, OneRequestCanBeCutFromItsPeer)
{
    Button& object = *m_object;
    Peer peer(object);
    object.thing.setSize(4);
    object.thing.size.disconnect(&peer);
    EXPECT_EQ(object.thing.size.numberOfConnections(), 0);
    EXPECT_EQ(object.thing.size(), 0);
    std::thread([&] {
        object.thing.setSize(5);
        object.button.setDown(true);
    }).join();
    object.thing.setSize.disconnect(&peer);
    Thread::getCurrentThread()->process();
    EXPECT_EQ(peer.m_size, 1) << "what was on its way to a request that was cut is dropped";
    // What was cut was the connection to that peer, not to every later one.
    Peer next(object);
    next.m_size = 8;
    EXPECT_EQ(object.thing.size(), 8);
}

TEST_F(EmittersTableTest, ReportsEvents)
{
    Button& object = *m_object;
    int last = 0;
    object.thing.resized.signal().connect(&m_listener, [&](int a) { last = a; });
    EXPECT_EQ(object.thing.resized.numberOfConnections(), 1);
    object.thing.resized(12);
    EXPECT_EQ(last, 12);
    object.thing.resized.disconnect(&m_listener);
    object.thing.resized(13);
    EXPECT_EQ(last, 12);
    object.button.clicked.signal().connect(&m_listener, [&] { m_object.reset(); });
    object.button.clicked();
    EXPECT_EQ(m_listener.numberOfConnections(), 0);
}

TEST_F(EmittersTableTest, WhatListenersOfEventsThrowGoesToTheHandlerOrTheProgram)
{
    using Texts = std::vector<std::string>;
    ReportedErrors reported;
    const auto& clicked = m_object->button.clicked;
    int called = 0;
    for (const char* text : {"first", "second"})
        clicked.signal().connect(&m_listener, [text] { throw std::runtime_error(text); });
    clicked.signal().connect(&m_listener, [&] { ++called; });
    clicked();
    EXPECT_EQ(reported.take(), (Texts{"first", "second"}));

    const auto emitAsUser = [&](EventErrors& errors) -> std::string {
        clicked();
        try {
            errors.rethrow();
            errors.rethrow();
        } catch (...) {
            return textOf(std::current_exception());
        }
        return "";
    };
    struct OfTheUser : EventErrors
    {
        bool isCause() const noexcept override { return false; }
    };
    {
        EventErrors outer;
        EventErrors errors;
        EXPECT_EQ(emitAsUser(errors), "first");
        EXPECT_EQ(reported.take(), Texts{"second"});
        OfTheUser inner;
        EXPECT_EQ(emitAsUser(inner), "");
        EXPECT_EQ(reported.take(), (Texts{"first", "second"}));
    }
    {
        const EventErrors forgotten;
        clicked();
    }
    EXPECT_EQ(reported.take(), (Texts{"second", "first"}));
    EXPECT_EQ(called, 4);
}

TEST_F(EmittersTableTest, ThePeerIsToldOfTheFirstListenerOnItsThread)
{
    Button& object = *m_object;
    auto peer = std::make_unique<Peer>(object);
    EXPECT_FALSE(peer->m_binding.mayBeHeard());
    std::thread([&] { object.button.clicked.signal().connect(&m_listener, [] {}); }).join();
    EXPECT_EQ(peer->m_timesHeard, 0);
    Thread::getCurrentThread()->process();
    EXPECT_EQ(peer->m_timesHeard, 1);
    object.thing.resized.signal().connect(&m_listener, [](int) {});
    EXPECT_EQ(peer->m_timesHeard, 1);

    Button other;
    Peer direct(other);
    other.thing.resized.signal().connect(&m_listener, [](int) {});
    EXPECT_EQ(direct.m_timesHeard, 1);

    Button third; // whose peer goes while the news are on their way
    peer = std::make_unique<Peer>(third);
    std::thread([&] { third.button.clicked.signal().connect(&m_listener, [] {}); }).join();
    peer.reset();
    const Peer next(third);
    EXPECT_TRUE(next.m_binding.mayBeHeard());
    Thread::getCurrentThread()->process();
    EXPECT_EQ(next.m_timesHeard, 0) << "it can see for itself";
}

TEST_F(EmittersTableTest, ASecondPeerTakesOver)
{
    Button& object = *m_object;
    auto first = std::make_unique<Peer>(object);
    std::thread([&] {
        object.thing.setSize(1);
        object.button.setDown(true);
    }).join(); // for the first one
    Peer second(object);
    Thread::getCurrentThread()->process();
    EXPECT_EQ(first->m_size + second.m_size, 0);
    object.thing.setSize(2);
    first.reset();
    object.thing.setSize(object.thing.size() + 1);
    EXPECT_EQ(second.m_size, 3);
}

TEST_F(EmittersTableTest, OperationsNeverMeetAPeerOfAnotherClass)
{
    Button& object = *m_object;
    {
        const Peer peer(object);
    }
    const RootPeer other(object);
    EXPECT_EQ(object.thing.size(), -1);
    EXPECT_EQ(object.button.repeat("a", 3), ""); // of nobody's
    EXPECT_EQ(object.button.repeat.numberOfConnections(), 0);
}

TEST_F(EmittersTableTest, OnePeerCanServeAnotherObject)
{
    Button second;
    Peer peer(*m_object);
    peer.bind(second);
    m_object->thing.setSize(3);
    EXPECT_EQ(peer.m_size, 0);
    second.thing.setSize(4);
    EXPECT_EQ(peer.m_size, 4);
}

TEST_F(EmittersTableTest, AnOperationMayEndPeerAndObject)
{
    int beside = 0;
    m_object->thing.setSize.signal().connect(&m_listener, [&] { ++beside; });
    auto peer = std::make_unique<Peer>(*m_object);
    peer->m_onSetSize = [&] { peer->m_binding.unbind(); };
    m_object->thing.setSize(1);
    EXPECT_EQ(beside, 1);
    peer->bind(*m_object);
    peer->m_onSetSize = [&] { m_object.reset(); };
    m_object->thing.setSize(1);
    EXPECT_EQ(beside, 1);
    m_object = std::make_unique<Button>();
    peer->bind(*m_object);
    peer->m_onSetSize = [&] {
        const std::function<void()> keep = std::move(peer->m_onSetSize);
        peer.reset();
    };
    m_object->thing.setSize(1);
    EXPECT_EQ(m_object->thing.setSize.numberOfConnections(), 0);
}

TEST_F(EmittersTableTest, QueuedCallsNeverOutliveObjectOrService)
{
    // Bindings are recycled, and the next object gets the very one of the last.
    Peer peer(*m_object);
    for (int i = 0; i < 200; ++i) {
        std::thread([&] { m_object->thing.setSize(-1); }).join();
        if (i % 2) {
            m_object = std::make_unique<Button>();
        } else {
            peer.m_binding.unbind();
        }
        peer.bind(*m_object);
        m_object->thing.setSize(i);
        Thread::getCurrentThread()->process();
        ASSERT_EQ(peer.m_size, i);
    }
}

TEST_F(EmittersTableTest, PacketsReachTheOperation)
{
    Button& object = *m_object;
    Peer peer(object);
    object.thing.setSize.sendPacket(Packet(new Payload1<void, int>(6)), SendDirect, false);
    EXPECT_EQ(peer.m_size, 6);
    object.thing.setSize.sendPacket(Packet(new Payload1<void, long long, 1>(7)), SendDirect, true);
    object.thing.setSize.sendPacket(Packet(new Payload1<void, int>(8)), SendQueued, false);
    EXPECT_EQ(peer.m_size, 6);
    EXPECT_EQ(askByPacket(object), 6);
    Thread::getCurrentThread()->process();
    EXPECT_EQ(peer.m_size, 8);
}

// A wrong table of operations must end the first run of its class, also where another class has
// bound the same requests rightly before.
TEST_F(EmittersTableTest, WrongRowsEndTheProgram)
{
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    RootPeer peer(*m_object);
    const auto setSize = row<&ThingEmitters::setSize, &RootPeer::doSetSize>();
    const auto size = row<&ThingEmitters::size, &RootPeer::doSize>();
    const auto setName = row<&ThingEmitters::setName, &RootPeer::doSetName>();
    const auto bind = [&](auto... rows) {
        const auto table = operations(rows...);
        RequestBinding binding;
        binding.bind(m_object->thing, &peer, table);
    };
    bind(setSize, size, setName);
    EXPECT_DEATH(bind(size, setSize, setName),
                 "ThingEmitters: row 0 is not .* but .*ThingEmitters::size");
    EXPECT_DEATH(bind(setSize, setName), "row 1 is not");
    EXPECT_DEATH(bind(setSize, size), "row 2 is not");
    EXPECT_DEATH(bind(setSize, setSize, size, setName), "row 1 is not");
    EXPECT_DEATH(bind(setSize, size, setName, setName), "row 3 is not");
}

} // namespace
} // namespace TROV
