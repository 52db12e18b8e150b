#include "support/inparallel.h"
#include "testobject.h"
#include "voxi/fontnames.h"
#include "voxi/reentrancyprotector.h"
#include "voxi/vxbridge.h"

#include <string>
#include <thread>
#include <vector>

namespace VOXI {
namespace {

TEST(Bridge, thereIsOneForEachKey)
{
    VXBridge* const bridge = VXBridge::getBridge(StringID("one"));
    ASSERT_NE(bridge, nullptr);
    EXPECT_EQ(VXBridge::getBridge(StringID(std::string("o") + "ne")), bridge);
    EXPECT_NE(VXBridge::getBridge(StringID("other")), bridge);
    EXPECT_EQ(bridge->key(), StringID("one"));
    EXPECT_NE(VXBridge::getBridge(StringID()), nullptr);

    std::vector<VXBridge*> found(8);
    inParallel(8,
               [&](int i) { found[std::size_t(i)] = VXBridge::getBridge(StringID("raced for")); });
    EXPECT_EQ(std::vector<VXBridge*>(8, found.front()), found);
}

TEST(Bridge, keepsTheIdentityOfItsThread)
{
    VXBridge* const bridge = VXBridge::getBridge(StringID("with thread"));
    EXPECT_EQ(bridge->thread(), nullptr);
    std::thread([&] { bridge->setThread(TROV::Thread::getCurrentThread()); }).join();
    TROV::Thread* const served = bridge->thread();
    ASSERT_NE(served, nullptr);
    EXPECT_FALSE(served->isAccepting());
    // A later thread must not be taken for the one that has ended.
    std::thread([&] { EXPECT_NE(TROV::Thread::getCurrentThread(), served); }).join();
    bridge->setThread(nullptr);
    EXPECT_EQ(bridge->thread(), nullptr);
}

TEST(ReentrancyProtector, onlyTheOutermostIsNotReentrant)
{
    bool flag = false;
    std::vector<bool> reentrant;
    const auto operation = [&](auto self, int depth) -> void {
        const TROVReentrancyProtector protector(flag);
        reentrant.push_back(protector.isReentrant());
        if (depth == 3)
            throw 1;
        self(self, depth + 1);
    };
    for (int round = 0; round < 2; ++round) {
        reentrant.clear();
        EXPECT_THROW(operation(operation, 1), int);
        EXPECT_EQ(reentrant, (std::vector<bool>{false, true, true}));
        EXPECT_FALSE(flag);
    }
}

TEST(FontNames, theBackEndAnswersForNamesThatAreNone)
{
    EXPECT_EQ(getClosestScaleableFontName("Bitmap"), "Bitmap");
    installFontNameResolver([](const std::string& family) { return family + " Scalable"; });
    EXPECT_EQ(getClosestScaleableFontName("Bitmap"), "Bitmap Scalable");
    EXPECT_EQ(getClosestScaleableFontName(""), "");
    installFontNameResolver(nullptr);
    EXPECT_EQ(getClosestScaleableFontName("Bitmap"), "Bitmap");
}

} // namespace
} // namespace VOXI
