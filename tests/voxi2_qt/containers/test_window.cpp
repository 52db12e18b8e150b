#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2_qt/kernel/qtgeometry.h"

#include <QApplication>
#include <QMainWindow>
#include <QPointer>
#include <QScreen>
#include <QWindow>

#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <utility>

namespace VOXI {
namespace {

class Window : public ::testing::Test
{
protected:
    ~Window() override
    {
        delete m_window;
        runDeletions();
    }

    QMainWindow* qtWindow() const { return qobject_cast<QMainWindow*>(qt(*m_window)); }

    VXWindow2* m_window = new VXWindow2;
};

TEST_F(Window, showsItsTitleAndIcon)
{
    m_window->setTitle("Caf\xe9 [*]");
    EXPECT_EQ(qtWindow()->windowTitle(), QStringLiteral("Café [*]"));
    EXPECT_EQ(m_window->title(), "Caf\xe9 [*]");
    m_window->setIcon(Icon::fromPixmap(Pixmap(1, 1, {0xff0000ffu})));
    EXPECT_FALSE(qtWindow()->windowIcon().isNull());
}

TEST_F(Window, flagsChangeWithoutHidingIt)
{
    m_window->show();
    m_window->setWindowFlags(WindowFlagWindow | WindowFlagTitle | WindowFlagStaysOnTop);
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_TRUE(qtWindow()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(qtWindow()->isWindow());
    EXPECT_NE(m_window->windowFlags() & WindowFlagStaysOnTop, 0u);
}

TEST_F(Window, aStateThatIsNotGrantedIsReported)
{
    m_window->show();
    turn();
    Log states(m_window->stateChanged());
    m_window->showMaximized();
    turn();
    EXPECT_TRUE(states.isEmpty());
    m_window->showMaximized();
    qtWindow()->showNormal(); // as a window manager that knows better
    EXPECT_TRUE(states.isEmpty()) << "it may come yet";
    ASSERT_TRUE(waitFor([&] { return states.count() == 1; }));
    EXPECT_EQ(states.last().state(), WindowState::Normal);
}

TEST_F(Window, statesAreSetAndTold)
{
    m_window->show();
    Comings comings({m_window});
    m_window->setWindowState(WindowState::Minimized);
    EXPECT_TRUE(m_window->windowState().testFlag(WindowState::Minimized));
    EXPECT_FALSE(m_window->isVisible()) << "minimised is not visible";
    m_window->setWindowState(WindowState::Maximized);
    EXPECT_TRUE(waitFor([&] { return qtWindow()->isMaximized(); }));
    m_window->hide();
    m_window->showFullScreen();
    EXPECT_TRUE(m_window->isFullScreen());
    m_window->showMaximized();
    EXPECT_TRUE(m_window->isMaximized());
    EXPECT_FALSE(m_window->isFullScreen());
    m_window->showMinimized();
    EXPECT_TRUE(m_window->isMinimized());
    EXPECT_TRUE(m_window->isMaximized()) << "what it will be again";
    m_window->showNormal();
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_FALSE(m_window->isMinimized() || m_window->isMaximized());
    EXPECT_FALSE(comings.areReported());
}

/// Calls a function when the window's state changes, amid the change.
class WhenStateChanges : public QObject
{
public:
    WhenStateChanges(QObject* window, std::function<void()> call) : m_call(std::move(call))
    {
        window->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::WindowStateChange)
            m_call();
        return false;
    }

private:
    std::function<void()> m_call;
};

TEST_F(Window, mayEndWhileItChangesItsState)
{
    using W = VXWindow2;
    const struct
    {
        void (W::*m_before)();
        void (W::*m_operation)();
    } cases[] = {{&W::showNormal, &W::showMinimized},
                 {&W::showNormal, &W::showMaximized},
                 {&W::showNormal, &W::showFullScreen},
                 {&W::showMaximized, &W::showNormal}};
    for (const auto& each : cases) {
        SCOPED_TRACE(&each - cases);
        auto* window = new W;
        (window->*each.m_before)();
        turn();
        const QPointer<QWidget> shown = qt(*window);
        const WhenStateChanges when(shown, [&] {
            if (window) {
                std::exchange(window, nullptr)->destroy();
                shown->hide(); // so that showing it again would be seen
            }
        });
        (window->*each.m_operation)();
        EXPECT_EQ(window, nullptr) << "it ended meanwhile";
        EXPECT_FALSE(shown->isVisible());
        runDeletions();
    }
    // By a handler as well.
    auto* panel = new VXPanel2(m_window);
    m_window->setCentralWidget(panel);
    m_window->show();
    const QPointer<QWidget> shown = qt(*m_window);
    panel->hidden().connect(panel, [&] {
        delete std::exchange(m_window, nullptr);
        shown->hide();
    });
    m_window->showMinimized();
    EXPECT_EQ(m_window, nullptr);
    EXPECT_FALSE(shown->isVisible());
}

TEST_F(Window, isRaisedByWhatTheWindowSystemCallsIt)
{
    VXWindow2 other;
    VXWindow2 hidden;
    auto& embedded = *new VXWindow2(m_window);
    auto* panel = new VXPanel2(&embedded);
    embedded.setCentralWidget(panel);
    embedded.setWindowFlags(0);
    m_window->setCentralWidget(&embedded);
    const auto isActive = [](const VXWindow2& window) {
        return waitFor([&] { return window.isActiveWindow(); });
    };
    m_window->showMaximized();
    other.show();
    Log states(m_window->stateChanged());
    const auto value = m_window->winId();
    m_window->showMinimized();
    other.setActiveWindow();
    ASSERT_TRUE(isActive(other));
    VXAbstractWindow2::raiseNativeWindow(value);
    EXPECT_TRUE(isActive(*m_window));
    EXPECT_TRUE(m_window->isVisible() && m_window->isMaximized());
    for (const unsigned long long none : {0ull, ~0ull, hidden.winId()})
        VXAbstractWindow2::raiseNativeWindow(none);
    EXPECT_TRUE(m_window->isActiveWindow());
    EXPECT_FALSE(hidden.isVisible());
    EXPECT_FALSE(qt(embedded)->testAttribute(Qt::WA_NativeWindow)) << "only for the question";
    EXPECT_TRUE(states.isEmpty()) << "the program's doing";
    // It may end on its way to the front.
    m_window->showMinimized();
    panel->shown().connect(panel, [this] { delete std::exchange(m_window, nullptr); });
    VXAbstractWindow2::raiseNativeWindow(value);
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(Window, isPartOfItsParentWithoutFlags)
{
    auto* inner = new VXWindow2(m_window);
    EXPECT_TRUE(qt(*inner)->isWindow());
    inner->setWindowFlags(0);
    m_window->setCentralWidget(inner);
    m_window->show();
    EXPECT_FALSE(qt(*inner)->isWindow());
    EXPECT_TRUE(inner->isVisible());
    inner->setWindowFlags(WindowFlagWindow);
    EXPECT_TRUE(qt(*inner)->isWindow());
    m_window->setWindowFlags(0);
    EXPECT_TRUE(qtWindow()->isWindow()) << "it has no parent";
}

TEST_F(Window, remainsAWindowWhateverParentItGets)
{
    VXWindow2 other;
    auto* const above = new VXWindow2;
    for (VXObject2* parent : {m_window, &other, static_cast<VXWindow2*>(nullptr), &other}) {
        above->setParent(parent);
        EXPECT_TRUE(qt(*above)->isWindow());
        EXPECT_EQ(above->peerParent(), parent);
    }
    above->setWindowFlags(0);
    above->setParent(m_window);
    EXPECT_FALSE(qt(*above)->isWindow()) << "it was a part, and is one";
}

TEST_F(Window, aDialogRemainsOneWhateverItsFlags)
{
    VXDialog2 alone;
    VXDialog2 above(m_window);
    for (VXDialog2* dialog : {&alone, &above}) {
        for (const unsigned flags :
             {0u, unsigned(WindowFlagStaysOnTop), unsigned(WindowFlagWindow | WindowFlagTitle)}) {
            dialog->setWindowFlags(flags);
            EXPECT_EQ(qt(*dialog)->windowType(), Qt::Dialog) << flags;
        }
    }
    EXPECT_TRUE(qt(alone)->windowFlags().testFlag(Qt::WindowTitleHint));
}

TEST_F(Window, aCentralWidgetThatWasReplacedComesIntoSightAgain)
{
    auto* const first = new VXPanel2(m_window);
    m_window->setCentralWidget(first);
    m_window->setCentralWidget(new VXPanel2(m_window));
    m_window->setCentralWidget(first);
    m_window->show();
    EXPECT_TRUE(first->isVisible());
}

TEST_F(Window, mayBeDestroyedByTheHandlerOfItsClosing)
{
    const QPointer<QWidget> widget(qt(*m_window));
    m_window->show();
    m_window->closing().connect(m_window, [&] { delete std::exchange(m_window, nullptr); });
    widget->close();
    runDeletions();
    EXPECT_TRUE(widget.isNull());
}

TEST_F(Window, neverLieAboveEachOtherInACircle)
{
    VXWindow2 other;
    auto* const part = new VXPanel2(m_window);
    auto* const dialog = new VXDialog2(part);
    for (VXWidget2* const each : std::initializer_list<VXWidget2*>{m_window, &other, dialog})
        each->show();
    QWindow* const handle = qt(*dialog)->windowHandle();
    ASSERT_EQ(handle->transientParent(), qtWindow()->windowHandle());
    // Qt does not move the dialog's QWindow along.
    part->setParent(&other);
    m_window->setParent(dialog);
    EXPECT_EQ(qtWindow()->windowHandle()->transientParent(), handle);
    EXPECT_EQ(handle->transientParent(), qt(other)->windowHandle());
    m_window->setParent(nullptr);
}

TEST(WindowOnTheScreen, isAskedAndToldOfIt)
{
    VXWindow2 window;
    VXWindow2 other;
    window.setOpacity(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(window.opacity(), 0);
    window.setOpacity(7);
    EXPECT_EQ(window.opacity(), 1);
    const std::vector<Screen> screens = window.screens();
    ASSERT_EQ(screens.size(), static_cast<std::size_t>(QGuiApplication::screens().size()));
    EXPECT_EQ(screens[0].geometry, Qt2VX(QGuiApplication::primaryScreen()->geometry()));
    EXPECT_EQ(screens[0].scale, QGuiApplication::primaryScreen()->devicePixelRatio());
    EXPECT_EQ(window.screen(), 0);

    window.setCloseButtonVisible(false);
    EXPECT_FALSE(window.isCloseButtonVisible());
    window.setWindowFlags(WindowFlagTitle | WindowFlagSystemMenu);
    EXPECT_FALSE(window.isCloseButtonVisible());
    window.show();
    window.setCloseButtonVisible(true);
    EXPECT_TRUE(qt(window)->isVisible());
    EXPECT_TRUE(window.isCloseButtonVisible());
    EXPECT_EQ(window.frameGeometry(), Qt2VX(qt(window)->frameGeometry()));

    const Log changed(window.activationChanged());
    other.show();
    window.setActiveWindow();
    ASSERT_TRUE(waitFor([&] { return window.isActiveWindow(); }));
    QApplication::setActiveWindow(qt(other));
    ASSERT_TRUE(waitFor([&] { return other.isActiveWindow(); }));
    ASSERT_FALSE(changed.isEmpty());
    EXPECT_FALSE(changed.last().isActive());
    QApplication::setActiveWindow(qt(window));
    ASSERT_TRUE(waitFor([&] { return window.isActiveWindow(); }));
    EXPECT_TRUE(changed.last().isActive()) << "by the user";
    window.alert(-5);
}

} // namespace
} // namespace VOXI
