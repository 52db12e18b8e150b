// The library as a host finds it: loaded by name, without its headers. What is brought up once in a
// process is tested in processes of its own.

#include "jhost_services/raisewindow.h"
#include "qthost/eventloopbinding.h"
#include "support/waitfor.h"
#include "support/watchdog.h"
#include "voxi/guiobject.h"
#include "voxi/vxbridge.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxmessage2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxhgscene2.h"
#include "voxi2/controls/vxsvgimage2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/customcursorregistry.h"
#include "voxi2/kernel/eventthrottler.h"
#include "voxi2/kernel/vxclipboard2.h"
#include "voxi2/kernel/vxdragmanager2.h"
#include "voxi2/kernel/vxfactory2.h"
#include "voxi_util/textencoding.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

namespace VOXI {
namespace {

void* find(const char* name)
{
    void* const library = dlopen(VOXI2_QT_LIBRARY, RTLD_NOW | RTLD_GLOBAL);
    if (!library)
        ADD_FAILURE() << dlerror();
    return library ? dlsym(library, name) : nullptr;
}

void call(const char* function) { reinterpret_cast<void (*)()>(find(function))(); }
void initialize() { call("initialize_voxi2_qt"); }
void terminate() { call("terminate_voxi2_qt"); }

template <class Q>
Q* qt(const VXObject& object)
{
    return dynamic_cast<Q*>(lookup(&object));
}

/// Runs `body` in a process of its own; what fails there fails here.
class EntryTest : public testing::Test
{
protected:
    static void inOwnProcess(const std::function<void()>& body)
    {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        const auto run = [&] {
            const Watchdog watchdog(std::chrono::seconds(50), "own process");
            body();
            std::fflush(nullptr);
            std::_Exit(testing::Test::HasFailure() ? 1 : 0);
        };
        EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
    }

    /// The same with an event loop and the toolkit on it.
    static void inOwnHost(const std::function<void()>& body)
    {
        inOwnProcess([&] {
            const EventLoopBinding binding;
            initialize();
            body();
        });
    }
};

TEST_F(EntryTest, fourNamesAreFoundUnmangled)
{
    EXPECT_NE(find("initialize_voxi2_qt"), nullptr);
    EXPECT_NE(find("terminate_voxi2_qt"), nullptr);
    void* const version = find("voxi2_qt_version");
    void* const date = find("voxi2_qt_build_date");
    ASSERT_NE(version, nullptr);
    ASSERT_NE(date, nullptr);
    EXPECT_STREQ(*static_cast<const char**>(version), "8.3.0.441");
    EXPECT_STREQ(*static_cast<const char**>(date), "Jan 29 2014");
    // Loading alone brings nothing up.
    EXPECT_EQ(VXFactory2::current(), nullptr);
    EXPECT_FALSE(voxiRaiseWindow(1));
}

TEST_F(EntryTest, comesUpOnceAndStaysDown)
{
    inOwnHost([] {
        VXFactory2* const factory = VXFactory2::getFactory(StringID("qt"));
        ASSERT_NE(factory, nullptr);
        EXPECT_EQ(VXFactory2::current(), factory);
        EXPECT_EQ(factory->getBridge(), VXBridge::getBridge(StringID("qt")));
        EXPECT_EQ(factory->getBridge()->thread(), TROV::Thread::getCurrentThread());
        EXPECT_NE(lookup(VXDragManager2::instance()), nullptr);
        const auto services = [] {
            return std::tuple(VXFactory2::getFactory(StringID("qt")), VXDragManager2::instance(),
                              CustomCursorRegistry::instance(),
                              EventThrottlerFactoryBase::instance());
        };
        const auto first = services();
        EXPECT_NE(std::get<2>(first), nullptr);
        EXPECT_NE(std::get<3>(first), nullptr);
        initialize();
        EXPECT_EQ(services(), first);
        // Exactly one peer factory listens.
        EXPECT_EQ(factory->createButton2.numberOfConnections(), 1);
        EXPECT_EQ(factory->destroyObject.numberOfConnections(), 1);
        EXPECT_EQ(factory->createPropertyBrowser2.numberOfConnections(), 0);

        terminate();
        // A second time it takes nothing down that is not its own.
        voxiSetRaiseWindowHook([](long long) {});
        terminate();
        EXPECT_TRUE(voxiRaiseWindow(1));
        voxiSetRaiseWindowHook({});
        EXPECT_EQ(VXFactory2::current(), nullptr);
        EXPECT_EQ(VXDragManager2::instance(), nullptr);
        initialize();
        EXPECT_EQ(VXFactory2::current(), nullptr);
        EXPECT_EQ(VXFactory2::getFactory(StringID("qt")), nullptr);
        EXPECT_EQ(VXDragManager2::instance(), nullptr);
        EXPECT_FALSE(voxiRaiseWindow(1));
        const VXButton2 button;
        EXPECT_EQ(lookup(&button), nullptr);
    });
}

TEST_F(EntryTest, librariesThatFewNeedComeWithTheFirstThatNeedsThem)
{
    inOwnHost([] {
        const auto isLoaded = [](const char* name) {
            return dlopen(name, RTLD_NOW | RTLD_NOLOAD) != nullptr;
        };
        VXWindow2 window;
        const VXButton2 button(&window);
        window.show();
        EXPECT_FALSE(isLoaded("libQt6OpenGLWidgets.so.6"));
        EXPECT_FALSE(isLoaded("libQt6SvgWidgets.so.6"));
        const VXHGScene2 scene(&window);
        EXPECT_NE(lookup(&scene), nullptr);
        EXPECT_TRUE(isLoaded("libQt6OpenGLWidgets.so.6"));
        EXPECT_FALSE(isLoaded("libQt6SvgWidgets.so.6"));
        const VXSvgImage2 drawing(&window);
        EXPECT_TRUE(isLoaded("libQt6SvgWidgets.so.6"));
    });
}

TEST_F(EntryTest, requestsAfterTheEndAreAnsweredWithDefaults)
{
    inOwnHost([] {
        auto* window = new VXWindow2;
        auto* layout = new VXBoxLayout2(window, Direction::LeftToRight);
        auto* button = new VXButton2(window);
        layout->addWidget(button);
        window->show();
        button->setLabel("label");
        EXPECT_EQ(button->label(), "label");
        const QPointer<QWidget> shown = qt<QWidget>(*window);
        terminate();

        button->setLabel("another");
        window->setTitle("title");
        layout->setSpacing(3);
        EXPECT_EQ(button->label(), "");
        EXPECT_FALSE(window->isVisible());
        EXPECT_EQ(layout->spacing(), 0);
        EXPECT_EQ(lookup(button), nullptr);
        EXPECT_EQ(button->widgetEmitters()->show.numberOfConnections(), 0);
        EXPECT_EQ(button->parent(), window);
        // Asked from elsewhere, it must not wait for a thread that serves no more.
        std::thread([&] { EXPECT_EQ(button->label(), ""); }).join();
        EXPECT_TRUE(waitFor([&] { return shown.isNull(); }));
        std::thread([&] { delete window; }).join();
        EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
    });
}

TEST_F(EntryTest, theHostRaisesTheWindowItNames)
{
    inOwnHost([] {
        VXWindow2 first;
        VXWindow2 second;
        VXWindow2 hidden;
        first.show();
        second.show();
        const auto isActive = [](const VXWindow2& window) {
            return waitFor([&] { return QApplication::activeWindow() == qt<QWidget>(window); });
        };
        second.setActiveWindow();
        ASSERT_TRUE(isActive(second));
        EXPECT_TRUE(voxiRaiseWindow(static_cast<long long>(first.winId())));
        EXPECT_TRUE(isActive(first));
        // From any thread, too.
        std::thread([id = second.winId()] {
            EXPECT_TRUE(voxiRaiseWindow(static_cast<long long>(id)));
        }).join();
        EXPECT_TRUE(isActive(second));
        // Values of no window, or of one that is not shown, change nothing.
        for (const long long value : {0ll, -1ll, static_cast<long long>(hidden.winId())})
            EXPECT_TRUE(voxiRaiseWindow(value));
        QCoreApplication::processEvents();
        EXPECT_TRUE(isActive(second));
        EXPECT_FALSE(hidden.isVisible());

        terminate();
        EXPECT_FALSE(voxiRaiseWindow(static_cast<long long>(first.winId())));
    });
}

TEST_F(EntryTest, aHookMayComeBackWhenItGoes)
{
    inOwnProcess([] {
        struct Last
        {
            ~Last() { voxiRaiseWindow(0); }
        };
        voxiSetRaiseWindowHook([last = std::make_shared<Last>()](long long) {});
        voxiSetRaiseWindowHook({});
        EXPECT_FALSE(voxiRaiseWindow(1));
        // One that takes itself out lives until it returns.
        int calls = 0;
        const auto kept = std::make_shared<int>(3);
        voxiSetRaiseWindowHook([&, kept](long long) {
            voxiSetRaiseWindowHook({});
            calls += *kept;
        });
        EXPECT_TRUE(voxiRaiseWindow(1));
        EXPECT_EQ(calls, 3);
        EXPECT_EQ(kept.use_count(), 1);
    });
}

TEST_F(EntryTest, dragManagerAndClipboardAreOfTheBackEndThatIsNamed)
{
    inOwnProcess([] {
        const EventLoopBinding binding;
        VXFactory2 other(VXBridge::getBridge(StringID("other")));
        VXFactory2::registerFactory(StringID("other"), &other);
        int asked = 0;
        TROV::Listener listener;
        other.createDragManager2.connect(&listener, [&] { ++asked; });
        other.createClipboard2.connect(&listener, [&] { ++asked; });
        initialize();
        EXPECT_EQ(VXFactory2::current(), &other);
        EXPECT_EQ(asked, 0);
        EXPECT_NE(lookup(VXDragManager2::instance()), nullptr);
        // The back end that asks may be another one.
        delete VXClipboard2::instance();
        VXClipboard2::initImpl(StringID("other"));
        EXPECT_EQ(asked, 1);
        terminate();
        EXPECT_EQ(VXClipboard2::instance(), nullptr);
    });
}

TEST_F(EntryTest, messagesThatWaitAreAnsweredAtTheEnd)
{
    inOwnHost([] {
        std::vector<MessageAnswer> answers;
        const VXMessage2 message{.text = "?", .answers = MessageAnswer::Yes | MessageAnswer::No};
        message.open(nullptr, [&](MessageAnswer answer) {
            answers.push_back(answer);
            message.open(nullptr, [&](MessageAnswer late) { answers.push_back(late); });
            throw std::runtime_error("nobody catches it");
        });
        auto* window = new VXWindow2;
        message.open(window, [&](MessageAnswer answer) { answers.push_back(answer); });
        QCoreApplication::processEvents();
        delete window; // and no turn of the loop after it
        EXPECT_TRUE(answers.empty());
        terminate();
        EXPECT_EQ(answers, std::vector<MessageAnswer>(3, MessageAnswer::No));
        EXPECT_TRUE(VXAbstractWindow2::windows().empty());
        QCoreApplication::processEvents();
        EXPECT_EQ(answers.size(), 3u);
    });
}

TEST_F(EntryTest, narrowTextsAreUtf8ForAProgramThatChoseSo)
{
    inOwnProcess([] {
        EXPECT_TRUE(setNarrowTextEncoding(NarrowTextEncoding::Utf8));
        const EventLoopBinding binding;
        initialize();
        VXButton2 button;
        VXText2 text;
        button.setLabel("gr\xc3\xbc\xc3\x9f \xe2\x82\xac");
        EXPECT_EQ(qt<QPushButton>(button)->text(), QStringLiteral("gr\u00fc\u00df \u20ac"));
        EXPECT_EQ(button.label(), "gr\xc3\xbc\xc3\x9f \xe2\x82\xac");
        text.setText(std::string("a\0b", 3));
        EXPECT_EQ(text.text(), std::string("a\0b", 3));
        text.setText("bad \xff\xc3 end");
        EXPECT_EQ(text.textU(), L"bad \xfffd\xfffd end");
        // Too late now.
        EXPECT_FALSE(setNarrowTextEncoding(NarrowTextEncoding::Latin1));
        EXPECT_EQ(button.label(), "gr\xc3\xbc\xc3\x9f \xe2\x82\xac");
        terminate();
    });
}

} // namespace
} // namespace VOXI
