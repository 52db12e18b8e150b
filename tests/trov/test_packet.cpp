#include "support/watchedtest.h"
#include "support/worker.h"
#include "trov/emitterstable.h"

#include <atomic>
#include <stdexcept>

namespace TROV {
namespace {

class PacketTest : public VOXI::WatchedTest
{
protected:
    Listener m_listener;
    Emitter1<void, long long> m_emitter;
    std::vector<long long> m_seen;

    void record()
    {
        m_emitter.connect(&m_listener, [this](long long a) { m_seen.push_back(a); });
    }
};

struct Counted : Payload1<void, long long, 1>
{
    explicit Counted(int& deleted) : PayloadOf(5), m_deleted(deleted) {}
    ~Counted() override { ++m_deleted; }
    int& m_deleted;
};

TEST_F(PacketTest, IsDeletedExactlyOnce)
{
    int deleted = 0;
    {
        Packet packet(new Counted(deleted));
        Packet copy = packet;
        const Packet moved(static_cast<Packet&&>(packet));
        copy = moved;
        copy = Packet();
        EXPECT_TRUE(copy.isEmpty() && packet.isEmpty());
        EXPECT_FALSE(moved.isEmpty());
        EXPECT_EQ(deleted, 0);
    }
    EXPECT_EQ(deleted, 1);
    {
        Worker worker;
        for (int i = 0; i < 2; ++i)
            m_emitter.connect(
                &m_listener, [] {}, worker.thread());
        m_emitter.sendPacket(Packet(new Counted(deleted)), SendDirect, false);
        worker.run([] {});
        EXPECT_EQ(deleted, 2);
        worker.stop();
        m_emitter.sendPacket(Packet(new Counted(deleted)), SendDirect, false);
        EXPECT_EQ(deleted, 3);
    }
}

TEST_F(PacketTest, ReachesListenersOfItsSignatureOnly)
{
    record();
    const auto reached = [&](Payload* payload, bool wait) {
        return m_emitter.sendPacket(Packet(payload), SendDirect, wait);
    };
    EXPECT_EQ(reached(new Payload1<void, long long, 1>(8), false), 1);
    EXPECT_EQ(reached(new Payload1<void, long>(9), false), 0);
    EXPECT_EQ(reached(new Payload0<void>(), true), 0);
    EXPECT_EQ(reached(nullptr, false), 0);
    EXPECT_EQ(m_seen, std::vector<long long>{8});
}

TEST_F(PacketTest, QueuedModeWaitsForTheOwnLoop)
{
    record();
    const Packet packet(new Payload1<void, long long>(3));
    m_emitter.sendPacket(packet, SendQueued, false);
    EXPECT_TRUE(m_seen.empty());
    Thread::getCurrentThread()->process();
    EXPECT_EQ(m_seen, std::vector<long long>{3});
    // Who waits cannot wait for itself.
    m_emitter.sendPacket(packet, SendQueued, true);
    EXPECT_EQ(m_seen.size(), 2u);
    m_emitter.sendPacket(packet, SendQueued, false);
    m_listener.disconnect();
    Thread::getCurrentThread()->process();
    EXPECT_EQ(m_seen.size(), 2u);
}

TEST_F(PacketTest, BringsResultsAndExceptionsBack)
{
    Worker worker;
    Emitter2<int, int, int> sum;
    sum.connect(
        &m_listener,
        [](int a, int b) {
            if (b < 0)
                throw std::domain_error("b");
            return a + b;
        },
        worker.thread());
    auto* payload = new Payload2<int, int, int>(4, 5);
    const Packet packet(payload);
    EXPECT_FALSE(payload->result().has_value());
    sum.sendPacket(packet, SendDirect, true);
    EXPECT_EQ(payload->result(), 9);
    EXPECT_THROW(sum.sendPacket(Packet(new Payload2<int, int, int>(4, -5)), SendDirect, true),
                 std::domain_error);
}

TEST_F(PacketTest, SeveralThreadsMayAnswerOnePacket)
{
    Worker first;
    Worker second;
    Emitter0<std::string> emitter;
    for (const Worker* worker : {&first, &second})
        emitter.connect(
            &m_listener, [] { return std::string(40, 'r'); }, worker->thread());
    for (int i = 0; i < 200; ++i) {
        auto* payload = new Payload0<std::string>;
        const Packet packet(payload);
        emitter.sendPacket(packet, SendDirect, false);
        first.run([] {});
        second.run([] {});
        EXPECT_EQ(payload->result(), std::string(40, 'r'));
    }
}

} // namespace
} // namespace TROV
