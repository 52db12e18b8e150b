#include "support/inparallel.h"
#include "testobject.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <numeric>
#include <random>
#include <set>
#include <thread>
#include <vector>

namespace VOXI {
namespace {

TEST(Identity, validityEndsWithTheObjectOrBefore)
{
    auto object = std::make_unique<TestObject>();
    const VXObject* address = object.get();
    const unsigned id = object->id();
    EXPECT_NE(id, 0u);
    EXPECT_TRUE(VXObject::isObjectValid(address));
    EXPECT_TRUE(VXObject::isObjectValid(id));
    EXPECT_EQ(VXObject::objectById(id), address);

    object->invalidate();
    EXPECT_FALSE(VXObject::isObjectValid(address));
    EXPECT_FALSE(VXObject::isObjectValid(id));
    EXPECT_EQ(VXObject::objectById(id), nullptr);
    object->invalidate();
    object.reset();
    EXPECT_FALSE(VXObject::isObjectValid(address));

    int noObject = 0;
    EXPECT_FALSE(VXObject::isObjectValid(nullptr));
    EXPECT_FALSE(VXObject::isObjectValid(reinterpret_cast<const VXObject*>(&noObject)));
    for (const unsigned never : {0u, id + 1000000, 0x80000000u, 0xffffffffu}) {
        EXPECT_FALSE(VXObject::isObjectValid(never)) << never;
        EXPECT_EQ(VXObject::objectById(never), nullptr) << never;
    }
}

TEST(Identity, detachedObjectsStayOut)
{
    std::unique_ptr<TestObject> detached;
    {
        const VXObject::DetachedScope outer;
        {
            const VXObject::DetachedScope inner;
        }
        EXPECT_TRUE(VXObject::DetachedScope::isActive());
        detached = std::make_unique<TestObject>();
        std::thread([] {
            const TestObject elsewhere;
            EXPECT_NE(elsewhere.id(), 0u);
        }).join();
    }
    EXPECT_FALSE(VXObject::DetachedScope::isActive());
    EXPECT_EQ(detached->id(), 0u);
    EXPECT_FALSE(VXObject::isObjectValid(detached.get()));
    EXPECT_EQ(lookup(detached.get()), nullptr);
    // Its end takes nothing of anybody else's out.
    const TestObject other;
    detached.reset();
    EXPECT_TRUE(VXObject::isObjectValid(&other));
}

TEST(Identity, everyLiveObjectIsVisitedAlsoWhileTheVisitEndsSome)
{
    std::vector<std::unique_ptr<TestObject>> objects(50);
    for (auto& object : objects)
        object = std::make_unique<TestObject>();
    std::set<VXObject*> seen;
    TestObject::forEachObject([&](VXObject* object) {
        EXPECT_TRUE(VXObject::m_lock.isHeldByCurrentThread());
        EXPECT_TRUE(seen.insert(object).second);
        // The first one visited ends all others but one.
        if (seen.size() == 1)
            std::erase_if(objects, [&](const auto& each) {
                return each.get() != object && each != objects.front();
            });
    });
    EXPECT_LE(seen.size(), 2u);
    EXPECT_GE(seen.size(), 1u);
}

TEST(Registry, findsThePeerByIdAndByObject)
{
    const TestObject object;
    TestPeer first;
    TestPeer second;
    EXPECT_EQ(lookup(object.id()), nullptr);
    EXPECT_EQ(lookup(&object), nullptr);

    addObject(object.id(), &first);
    EXPECT_EQ(lookup(object.id()), &first);
    EXPECT_EQ(lookup(&object), &first);
    addObject(object.id(), &second);
    EXPECT_EQ(lookup(&object), &second);

    removeObject(object.id());
    EXPECT_EQ(lookup(&object), nullptr);
    EXPECT_TRUE(VXObject::isObjectValid(&object));
    removeObject(object.id());
    addObject(object.id(), &first);
    addObject(object.id(), nullptr);
    EXPECT_EQ(lookup(object.id()), nullptr);
    EXPECT_EQ(lookup(static_cast<const VXObject*>(nullptr)), nullptr);
}

TEST(Registry, takesEveryIdThereCanBe)
{
    TestPeer peer;
    // Both ends of every kind of page that a table of 32-bit ids could have.
    std::set<unsigned> ids{0u, 0xffffffffu};
    for (int bit = 0; bit < 32; ++bit)
        ids.insert({1u << bit, (1u << bit) - 1, 0u - (1u << bit)});
    // Ids that live objects of this process have are theirs.
    std::erase_if(ids, [](unsigned id) { return VXObject::isObjectValid(id); });

    const auto expectAll = [&](const GuiObject* expected) {
        for (const unsigned id : ids)
            EXPECT_EQ(lookup(id), expected) << id;
    };
    for (const unsigned id : ids)
        removeObject(id);
    expectAll(nullptr);
    for (const unsigned id : ids)
        addObject(id, &peer);
    expectAll(&peer);
    for (const unsigned id : ids)
        removeObject(id);
    expectAll(nullptr);
}

TEST(Registry, knowsExactlyTheLiveOnesOfManyInAnyOrderOfDeath)
{
    // Neighbours share pages and collide in the address set; the order of death must not matter.
    constexpr std::size_t Count = 20000;
    std::vector<std::unique_ptr<TestObject>> objects;
    std::vector<TestPeer> peers(Count);
    for (std::size_t i = 0; i < Count; ++i) {
        objects.push_back(std::make_unique<TestObject>());
        addObject(objects[i]->id(), &peers[i]);
    }
    std::vector<std::size_t> order(Count);
    std::iota(order.begin(), order.end(), 0u);
    std::shuffle(order.begin(), order.end(), std::mt19937(4711));

    std::size_t wrong = 0;
    for (std::size_t n = 0; n < Count; ++n) {
        const std::size_t i = order[n];
        const VXObject* const address = objects[i].get();
        const unsigned id = objects[i]->id();
        wrong += lookup(address) != &peers[i] || VXObject::objectById(id) != address;
        if (n % 2 == 0)
            removeObject(id);
        objects[i].reset();
        wrong += VXObject::isObjectValid(address) || lookup(address) != nullptr;
        wrong += lookup(id) != (n % 2 == 0 ? nullptr : &peers[i]);
        removeObject(id);
        if (n + 1 < Count) {
            const std::size_t next = order[n + 1];
            wrong += !VXObject::isObjectValid(objects[next].get())
                     || lookup(objects[next].get()) != &peers[next];
        }
    }
    EXPECT_EQ(wrong, 0u);
}

class RegistryThreads : public WatchedTest
{};

TEST_F(RegistryThreads, makeFindAndEndObjectsAtTheSameTime)
{
    constexpr int Rounds = 3000;
    std::mutex idsMutex;
    std::set<unsigned> ids;
    inParallel(4, [&](int) {
        TestPeer peer;
        std::vector<unsigned> mine;
        for (int i = 0; i < Rounds; ++i) {
            auto object = std::make_unique<TestObject>();
            addObject(object->id(), &peer);
            EXPECT_EQ(lookup(object.get()), &peer);
            EXPECT_TRUE(VXObject::isObjectValid(object->id()));
            removeObject(object->id());
            mine.push_back(object->id());
        }
        const std::lock_guard lock(idsMutex);
        ids.insert(mine.begin(), mine.end());
    });
    EXPECT_EQ(ids.size(), 4u * Rounds);
}

} // namespace
} // namespace VOXI
