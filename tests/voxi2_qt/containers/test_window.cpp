#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"

#include <QMainWindow>
#include <QPointer>

#include <gtest/gtest.h>

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

TEST_F(Window, titleIconAndMark)
{
    m_window->setTitle("Caf\xe9 [*]");
    EXPECT_EQ(qtWindow()->windowTitle(), QStringLiteral("Café [*]"));
    EXPECT_EQ(m_window->title(), "Caf\xe9 [*]");
    m_window->setTitle(L"\x20ac");
    EXPECT_EQ(m_window->titleU(), L"\x20ac");
    EXPECT_EQ(m_window->title(), "?");
    m_window->setModified(true);
    EXPECT_TRUE(m_window->isModified());
    EXPECT_TRUE(qtWindow()->isWindowModified());

    const Icon icon = Icon::fromPixmap(Pixmap(1, 1, {0xff0000ffu}));
    m_window->setIcon(icon);
    EXPECT_EQ(m_window->icon(), icon);
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

TEST_F(Window, centralWidgetsComeAndGoAlive)
{
    auto* first = new VXPanel2(m_window);
    auto* second = new VXPanel2(m_window);
    m_window->setCentralWidget(first);
    EXPECT_EQ(m_window->centralWidget(), first);
    m_window->setCentralWidget(second);
    runDeletions();
    EXPECT_EQ(qtWindow()->centralWidget(), qt(*second));
    ASSERT_NE(qt(*first), nullptr) << "the former one lives";
    EXPECT_TRUE(qt(*first)->isHidden());

    m_window->setCentralWidget(first);
    EXPECT_EQ(m_window->centralWidget(), first);
    m_window->show();
    EXPECT_TRUE(first->isVisible()) << "in sight again";
    delete first;
    runDeletions();
    EXPECT_EQ(m_window->centralWidget(), nullptr);
    m_window->setCentralWidget(second);
    m_window->setCentralWidget(nullptr);
    EXPECT_EQ(qtWindow()->centralWidget(), nullptr);
    EXPECT_NE(qt(*second), nullptr);
}

TEST_F(Window, theApplicationMayRefuseToClose)
{
    bool refuse = true;
    int asked = 0;
    m_window->closing().connect(m_window, [&](const VXCloseEvent2& event) {
        ++asked;
        if (refuse)
            event.refuse();
    });
    m_window->show();
    EXPECT_FALSE(m_window->close());
    EXPECT_TRUE(m_window->isVisible());
    refuse = false;
    EXPECT_TRUE(m_window->close());
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_EQ(asked, 2);
    runDeletions();
    m_window->show();
    EXPECT_TRUE(m_window->isVisible()) << "closed is hidden, not destroyed";
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

TEST_F(Window, windowsAreKnownWhileTheyLive)
{
    const auto known = [&] {
        const auto all = VXAbstractWindow2::windows();
        return std::find(all.begin(), all.end(), m_window) != all.end();
    };
    EXPECT_TRUE(known());
    delete std::exchange(m_window, nullptr);
    EXPECT_TRUE(VXAbstractWindow2::windows().empty());
}

} // namespace
} // namespace VOXI
