#include "fakebackend.h"
#include "voxi2/containers/vxmessage2.h"
#include "voxi2/controls/vxmenu2.h"

#include <memory>
#include <stdexcept>

namespace VOXI {
namespace {

TEST(FactoryRegistration, theFirstOneIsCurrentUntilItIsTakenOut)
{
    const StringID keyA("a");
    const StringID keyB("b");
    VXBridge* const bridge = VXBridge::getBridge(keyA);
    VXFactory2 a(bridge);
    EXPECT_EQ(a.getBridge(), bridge);
    EXPECT_EQ(bridge->thread(), TROV::Thread::getCurrentThread());
    EXPECT_EQ(VXFactory2::current(), nullptr);
    VXFactory2::registerFactory(keyA, &a);
    EXPECT_EQ(VXFactory2::current(), &a);
    {
        VXFactory2 b(nullptr);
        EXPECT_EQ(b.getBridge(), nullptr);
        VXFactory2::registerFactory(keyB, &b);
        EXPECT_EQ(VXFactory2::current(), &a);
        EXPECT_EQ(VXFactory2::getFactory(keyB), &b);
        VXFactory2::registerFactory(keyB, nullptr);
        VXFactory2::registerFactory(keyB, nullptr);
        EXPECT_EQ(VXFactory2::getFactory(keyB), nullptr);
        EXPECT_EQ(VXFactory2::current(), &a);
        VXFactory2::registerFactory(keyA, &b);
        EXPECT_EQ(VXFactory2::current(), &b);
    }
    // A factory that goes leaves nothing behind.
    EXPECT_EQ(VXFactory2::current(), nullptr);
    EXPECT_EQ(VXFactory2::getFactory(keyA), nullptr);
}

TEST(FactoryRegistration, theCurrentOneIsChosenByItsKey)
{
    const StringID a("a");
    const StringID b("b");
    const StringID nobody("nobody's key");
    FakeBackEnd first("a");
    FakeBackEnd second("b");
    VXFactory2* const other = &second.factory();
    EXPECT_FALSE(VXFactory2::setCurrent(nobody));
    EXPECT_EQ(VXFactory2::current(), &first.factory());
    EXPECT_TRUE(VXFactory2::setCurrent(b));
    EXPECT_EQ(VXFactory2::current(), other);
    {
        const VXFactory2::Scope scope(a);
        EXPECT_EQ(VXFactory2::current(), &first.factory());
        {
            const VXFactory2::Scope inner(nobody);
            EXPECT_EQ(lookup(std::make_unique<VXButton2>().get()), nullptr);
        }
        EXPECT_EQ(VXFactory2::current(), &first.factory());
        std::thread([&] { EXPECT_EQ(VXFactory2::current(), other); }).join();
        VXFactory2::registerFactory(a, nullptr);
        EXPECT_EQ(VXFactory2::current(), nullptr);
    }
    EXPECT_EQ(VXFactory2::current(), other);
}

TEST(FactoryRegistration, windowsAreRaisedAsTheBridgesOfTheRegisteredSay)
{
    FakeBackEnd backEnd;
    VXFactory2& factory = backEnd.factory();
    const auto& emitter = factory.getBridge()->emitter();
    TROV::Listener listener;
    std::vector<unsigned long long> raised;
    factory.createWindow2.connect(&listener, [&](VXWindow2*, VXWindow2Emitters* emitters) {
        emitters->base()->raiseNativeWindow.signal().connect(&listener, [&](unsigned long long id) {
            raised.push_back(id);
            return true;
        });
    });
    const VXWindow2 window;
    emitter(7);
    VXFactory2::registerFactory(StringID("again"), &factory);
    VXFactory2::registerFactory(StringID("fake"), nullptr);
    emitter(8);
    VXFactory2::unregisterAll();
    emitter(9);
    EXPECT_EQ(raised, (std::vector<unsigned long long>{7, 8}));
}

class CreationRequests : public BackEndTest
{
protected:
    FakeBackEnd m_backEnd;
};

TEST_F(CreationRequests, carryObjectEmittersParentAndExtra)
{
    struct Seen
    {
        VXObject* m_object;
        void* m_emitters;
        VXObject* m_parent;
        int m_extra;
        bool operator==(const Seen&) const = default;
    };
    std::vector<Seen> seen;
    VXFactory2& factory = m_backEnd.factory();
    factory.createBoxLayout2.connect(&m_backEnd, [&](VXBoxLayout2* object,
                                                     VXBoxLayout2Emitters* emitters,
                                                     VXObject* parent, Direction direction) {
        seen.push_back({object, emitters->base()->base(), parent, static_cast<int>(direction)});
    });
    factory.createWindow2.connect(
        &m_backEnd, [&](VXWindow2* object, VXWindow2Emitters* emitters, VXObject* parent) {
            seen.push_back({object, emitters->base()->base()->base(), parent, -1});
        });
    factory.createDragDelegate2.connect(
        &m_backEnd, [&](VXDragDelegate2* object, VXDragDelegate2Emitters* emitters) {
            seen.push_back({object, emitters->base(), nullptr, -1});
        });
    VXWindow2 window;
    auto* owned = new VXWindow2(&window);
    auto* layout = new VXBoxLayout2(&window, Direction::BottomToTop);
    auto* delegate = new VXDragDelegate2(&window);
    EXPECT_EQ(seen, (std::vector<Seen>{{&window, window.objectEmitters(), nullptr, -1},
                                       {owned, owned->objectEmitters(), &window, -1},
                                       {layout, layout->objectEmitters(), layout->parent(),
                                        static_cast<int>(Direction::BottomToTop)},
                                       {delegate, delegate->objectEmitters(), nullptr, -1}}));
}

TEST_F(CreationRequests, ofKindsThatNobodyServesMakeNoPeer)
{
    // Nobody ever listens to the first; the second has no listener here.
    EXPECT_EQ(m_backEnd.factory().createPropertyBrowser2.numberOfConnections(), 0);
    m_backEnd.factory().createPropertyBrowser2.emitAndWait(nullptr, nullptr, nullptr);
    const VXText2 text;
    EXPECT_EQ(lookup(&text), nullptr);
    EXPECT_EQ(text.text(), "");
    // Nobody shows a message, and nobody would ever answer it.
    std::vector<MessageAnswer> answers;
    const VXMessage2 question{.text = "?", .answers = MessageAnswer::Yes | MessageAnswer::No};
    question.open(nullptr, [&](MessageAnswer answer) { answers.push_back(answer); });
    EXPECT_EQ(answers, std::vector<MessageAnswer>{question.exec()});
}

TEST_F(CreationRequests, handlersRunWhereTheObjectIsServed)
{
    int popups = 0;
    m_backEnd.factory().createMenu2.connect(&m_backEnd, [&](VXMenu2*, VXMenu2Emitters* emitters) {
        emitters->popup.signal().connect(&m_backEnd, [&] { ++popups; });
    });
    VXButton2 button;
    VXMenu2 menu;
    std::unique_ptr<VXFactory2> other;
    std::thread([&] {
        other = std::make_unique<VXFactory2>(VXBridge::getBridge(StringID("elsewhere")));
    }).join();
    VXFactory2::registerFactory(StringID("fake"), other.get());
    menu.setContextMenuOf(&button);
    button.widgetEmitters()->contextMenu(
        VXContextMenuEvent2(&button, {1, 2}, {3, 4}, VXContextMenuEvent2::Reason::Mouse));
    EXPECT_EQ(popups, 1);
}

TEST_F(CreationRequests, aPeerThatThrowsLeavesNothingBehind)
{
    unsigned id = 0;
    VXPanel2 parent;
    const auto expectThrow = [&] {
        EXPECT_THROW(new VXButton2(&parent), std::runtime_error);
        EXPECT_NE(id, 0u);
        EXPECT_FALSE(VXObject::isObjectValid(id));
        EXPECT_EQ(lookup(id), nullptr);
        EXPECT_TRUE(parent.children().empty());
    };
    m_backEnd.onButton = [&](VXButton2* button, VXButton2Emitters*, VXObject*) {
        id = button->id();
        throw std::runtime_error("no peer");
    };
    expectThrow();
    onWorker(expectThrow);

    // The peer was made and only its finishing failed: it goes as well.
    const int alive = FakePeer::s_alive;
    m_backEnd.onButton = [&](VXButton2* button, VXButton2Emitters*, VXObject*) {
        id = button->id();
        new FakePeer(button);
        throw std::runtime_error("no end");
    };
    expectThrow();
    EXPECT_EQ(FakePeer::s_alive, alive);
    onWorker([&] { EXPECT_THROW(new VXButton2(&parent), std::runtime_error); });
    EXPECT_EQ(FakePeer::s_alive, alive);
    EXPECT_EQ(lookup(id), nullptr);
}

TEST_F(CreationRequests, returnWhenThePeerExistsOnAnyThread)
{
    TROV::Thread* const gui = TROV::Thread::getCurrentThread();
    m_backEnd.onButton = [&](VXButton2* button, VXButton2Emitters*, VXObject*) {
        EXPECT_EQ(TROV::Thread::getCurrentThread(), gui);
        new FakePeer(button);
    };
    onWorker([&] {
        // Holding the object lock must not keep the other thread from making the peer.
        const VXObjectDataLocker lock;
        const VXButton2 button;
        EXPECT_NE(lookup(&button), nullptr);
        EXPECT_EQ(button.peerParent(), &button);
    });
    EXPECT_EQ(FakePeer::s_alive, 0);
}

TEST_F(CreationRequests, requestsGoToTheThreadOfThePeer)
{
    VXButton2 button;
    onWorker([&] {
        VXPanel2 panel;
        button.setParent(&panel);
        EXPECT_EQ(button.peerParent(), &button);
        EXPECT_EQ(FakePeer::of(&button)->m_parents, std::vector<VXObject*>{&panel});
        button.setParent(nullptr);
    });
    EXPECT_EQ(FakePeer::of(&button)->m_parents.size(), 2u);
}

TEST_F(CreationRequests, anObjectThatEndsElsewhereTellsItsOwnPeer)
{
    auto* const button = new VXButton2;
    VXFactory2 other(VXBridge::getBridge(StringID("other")));
    VXFactory2::registerFactory(StringID("fake"), &other);
    EXPECT_EQ(FakePeer::s_alive, 1);
    onWorker([&] { delete button; });
    EXPECT_EQ(FakePeer::s_alive, 0);
}

} // namespace
} // namespace VOXI
