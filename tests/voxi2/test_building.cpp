// Objects that another thread is just making while their owners end.

#include "fakebackend.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxfiledialog2.h"
#include "voxi2/containers/vxmessage2.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/kernel/vxaction2.h"

#include <atomic>
#include <memory>

namespace VOXI {
namespace {

class Building : public BackEndTest
{
protected:
    Building()
    {
        VXFactory2& factory = m_backEnd.factory();
        const auto serve = [this](auto& request) {
            request.connect(&m_backEnd, [this](VXObject2* object) {
                if (const auto whenAsked = std::exchange(m_whenAsked, nullptr))
                    whenAsked();
                new FakePeer(object);
            });
        };
        serve(factory.createButton2);
        serve(factory.createMenu2);
        serve(factory.createAction2);
        serve(factory.createDockWidget2);
        serve(factory.createDialog2);
        serve(factory.createFileDialog2);
        m_backEnd.onButton = [](VXButton2*, VXButton2Emitters*, VXObject*) {};
    }
    ~Building() override { EXPECT_EQ(FakePeer::s_alive, 0); }

    FakeBackEnd m_backEnd;
    std::function<void()> m_whenAsked; ///< runs while a worker waits for the next peer
};

TEST_F(Building, aChildStandsAloneWhenItsParentEndsMeanwhile)
{
    auto* const panel = new VXPanel2;
    std::unique_ptr<VXButton2> button;
    m_whenAsked = [&] {
        EXPECT_TRUE(panel->children(true).empty()) << "nobody else meets what is half built";
        delete panel;
    };
    onWorker([&] {
        button.reset(new VXButton2(panel));
        EXPECT_EQ(button->parent(), nullptr);
        EXPECT_EQ(button->peerParent(), button.get()) << "its peer answers";
    });
    EXPECT_TRUE(VXObject::isObjectValid(button.get()));
}

TEST_F(Building, nobodyElseEndsWhatIsHalfBuilt)
{
    VXPanel2 panel;
    std::unique_ptr<VXButton2> button;
    m_whenAsked = [&] { // ids can be guessed
        VXPanel2 probe;
        for (unsigned id = probe.id() - 1; !button && id > panel.id(); --id)
            VXHandle<VXButton2>(static_cast<VXButton2*>(VXObject::objectById(id)))->destroy();
    };
    onWorker([&] { button.reset(new VXButton2(&panel)); });
    EXPECT_TRUE(VXObject::isObjectValid(button.get()));
    EXPECT_EQ(panel.children().size(), 1u);
}

TEST_F(Building, aClassOfTheApplicationEndsWhenItIsWhole)
{
    struct Page : VXPanel2
    {
        Page(VXObject2* parent, std::string& log) : VXPanel2(parent), m_log(log)
        {
            for (int i = 0; i < 3; ++i)
                m_last = new VXButton2(this);
            m_log += m_last->peerParent() == m_last ? "built " : "broken ";
        }
        ~Page() override { m_log += "ended"; }
        std::string& m_log;
        VXButton2* m_last = nullptr;
    };
    std::string log;
    const VXHandle<VXPanel2> window(new VXPanel2);
    m_whenAsked = [&] { window->destroy(); };
    onWorker([&] {
        window.with([&](VXPanel2& parent) {
            EXPECT_TRUE(VXObject::isObjectValid(new Page(&parent, log)));
            EXPECT_EQ(log, "built ");
        });
        EXPECT_EQ(log, "built ended");
    });
}

TEST_F(Building, callsThatMakeObjectsSurviveTheEndOfTheirOwner)
{
    const VXHandle<VXMenu2> menu(new VXMenu2);
    const VXHandle<VXDockWidget2> dock(new VXDockWidget2);
    onWorker([&] {
        m_whenAsked = [&] { menu->destroy(); };
        EXPECT_EQ(menu->addAction("x"), nullptr);
        EXPECT_EQ(menu->addAction("x"), nullptr);
        m_whenAsked = [&] { dock->destroy(); };
        EXPECT_EQ(dock->viewAction(), nullptr);
        EXPECT_EQ(dock->viewAction(), nullptr);
    });
}

TEST_F(Building, questionsOfThoseWhoEndAreAnsweredAsByEscape)
{
    const VXMessage2 message{.text = "text", .answers = MessageAnswer::Yes | MessageAnswer::No};
    std::atomic<int> answers{0};
    const auto count = [&](MessageAnswer answer) { answers += answer == MessageAnswer::No; };
    std::unique_ptr<VXPanel2> window;
    const auto ask = [&](const std::function<void(VXObject2*)>& question) {
        window = std::make_unique<VXPanel2>();
        VXObject2* const parent = window.get();
        m_whenAsked = [&] { window.reset(); };
        question(parent);
        question(parent); // it has ended before
    };
    onWorker([&] {
        ask([&](VXObject2* parent) { EXPECT_EQ(message.exec(parent), MessageAnswer::No); });
        ask([&](VXObject2* parent) { message.open(parent, count); });
        ask([&](VXObject2* parent) { EXPECT_TRUE(VXFileDialog2::openFile(parent, L"x").empty()); });
    });
    TROV::Thread::getCurrentThread()->process();
    EXPECT_EQ(answers, 2);
}

} // namespace
} // namespace VOXI
