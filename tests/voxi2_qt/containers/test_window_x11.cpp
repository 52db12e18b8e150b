// What takes a window manager and a real pointer: states that the manager sets, windows that it
// closes, activates and stacks, and dock widgets that are dragged.

#include "../kernel/toolkit.h"
#include "support/realinput.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <vector>
#include <xcb/xcb.h>

namespace VOXI {
namespace {

/// What the window manager, and all other programs, see of windows.
class XServer
{
public:
    xcb_atom_t atom(const char* name) const
    {
        const auto asked =
            xcb_intern_atom(m_server, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_server, asked, nullptr),
                                                   &std::free);
        return reply->atom;
    }
    /// A list of atoms or windows; of the screen as a whole for 0.
    std::vector<std::uint32_t> property(const char* name, WId window = 0) const
    {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_server)).data->root;
        const auto asked =
            xcb_get_property(m_server, 0, window != 0 ? static_cast<xcb_window_t>(window) : root,
                             atom(name), XCB_ATOM_ANY, 0, 1000);
        const Reply<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(m_server, asked, nullptr), &std::free);
        if (!reply)
            return {};
        const auto* const first =
            static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
        return {first, first + reply->value_len};
    }

private:
    template <class T>
    using Reply = std::unique_ptr<T, decltype(&std::free)>;

    xcb_connection_t* const m_server =
        qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
};

class WindowX11 : public testing::Test
{
protected:
    WindowX11()
    {
        xdotool(QStringLiteral("mouseup 1 mousemove 1500 1100"));
        m_window.setPosition({200, 200, 600, 400});
        m_window.setCentralWidget(new VXPanel2(&m_window));
    }
    ~WindowX11() override { xdotool(QStringLiteral("mouseup 1")); }

    bool show()
    {
        m_window.show();
        return waitFor([&] { return qt(m_window)->isActiveWindow(); }, Patience)
               && waitFor([&] { return qt(m_window)->windowHandle()->isExposed(); }, Patience);
    }
    /// The window manager's, above the window.
    void doubleClickTitleBar()
    {
        const QRect inside = qt(m_window)->geometry();
        ASSERT_TRUE(waitFor([&] { return qt(m_window)->frameGeometry().top() < inside.top(); }));
        const QPoint title(inside.center().x(), inside.top() - 8);
        xdotool(at(title) + QStringLiteral(" click --repeat 2 --delay 50 1"));
    }
    QString id() const { return QString::number(m_window.winId()); }

    VXWindow2 m_window;
    Log<VXWindowStateEvent2> m_states{m_window.stateChanged()};
};

TEST_F(WindowX11, statesOfTheWindowManagerAreReported)
{
    ASSERT_TRUE(show());
    doubleClickTitleBar();
    ASSERT_TRUE(waitFor([&] { return m_window.isMaximized(); }, Patience));
    ASSERT_FALSE(m_states.isEmpty());
    EXPECT_EQ(m_states.last().window(), &m_window);
    EXPECT_TRUE(m_states.last().state().testFlag(WindowState::Maximized));
    ASSERT_TRUE(waitFor([&] { return m_window.position().width > 1500; }, Patience));
    doubleClickTitleBar();
    ASSERT_TRUE(waitFor([&] { return !m_window.isMaximized(); }, Patience));
    EXPECT_FALSE(m_states.last().state().testFlag(WindowState::Maximized));
    ASSERT_TRUE(waitFor([&] { return m_window.position().width == 600; }, Patience));

    xdotool(QStringLiteral("windowminimize ") + id());
    ASSERT_TRUE(waitFor([&] { return m_window.isMinimized(); }, Patience));
    EXPECT_FALSE(m_window.isVisible());
    EXPECT_TRUE(m_states.last().state().testFlag(WindowState::Minimized));
    xdotool(QStringLiteral("windowactivate ") + id());
    ASSERT_TRUE(waitFor([&] { return !m_window.isMinimized(); }, Patience));
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_FALSE(m_states.last().state().testFlag(WindowState::Minimized));
}

TEST_F(WindowX11, statesOfTheProgramAreNot)
{
    ASSERT_TRUE(show());
    const auto width = [&] { return qt(m_window)->width(); };
    m_window.showMaximized();
    ASSERT_TRUE(waitFor([&] { return width() > 1500; }, Patience));
    m_window.showFullScreen();
    ASSERT_TRUE(waitFor([&] { return qt(m_window)->size() == QSize(1600, 1200); }, Patience));
    m_window.showNormal();
    ASSERT_TRUE(waitFor([&] { return width() == 600; }, Patience));
    m_window.showMinimized();
    ASSERT_TRUE(waitFor([&] { return !qt(m_window)->windowHandle()->isExposed(); }, Patience));
    EXPECT_TRUE(m_window.isMinimized());
    m_window.showNormal();
    ASSERT_TRUE(waitFor([&] { return qt(m_window)->windowHandle()->isExposed(); }, Patience));
    EXPECT_TRUE(m_states.isEmpty());

    // A maximised window comes back maximised, and knows the size that it had before.
    m_window.showMaximized();
    ASSERT_TRUE(waitFor([&] { return width() > 1500; }, Patience));
    const std::string geometry = m_window.savePlacement();
    VXWindow2 next;
    auto nextStates = Log(next.stateChanged());
    EXPECT_TRUE(next.restorePlacement(geometry));
    next.show();
    ASSERT_TRUE(waitFor([&] { return qt(next)->width() > 1500; }, Patience));
    EXPECT_TRUE(next.isMaximized());
    next.showNormal();
    ASSERT_TRUE(waitFor([&] { return qt(next)->width() == 600; }, Patience));
    EXPECT_TRUE(nextStates.isEmpty());
}

TEST_F(WindowX11, mayRefuseTheWindowManagersWishToClose)
{
    ASSERT_TRUE(show());
    bool refuse = true;
    int asked = 0;
    m_window.closing().connect(&m_window, [&](const VXCloseEvent2& event) {
        ++asked;
        if (refuse)
            event.refuse();
    });
    const auto log = Log(m_window.hidden());
    // Again if need be: the window manager may just have been busy with another window.
    const auto wasAsked = [&] {
        const int before = asked;
        return waitFor(
            [&] {
                xdotool(QStringLiteral("key alt+F4"));
                return waitFor([&] { return asked > before; }, std::chrono::seconds(1));
            },
            Patience);
    };
    ASSERT_TRUE(wasAsked());
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_TRUE(log.isEmpty());
    refuse = false;
    ASSERT_TRUE(wasAsked());
    EXPECT_TRUE(waitFor([&] { return !m_window.isVisible(); }, Patience));
    EXPECT_EQ(log.count(), 1);
    m_window.show();
    EXPECT_TRUE(waitFor([&] { return qt(m_window)->windowHandle()->isExposed(); }, Patience));
}

TEST_F(WindowX11, isLeftAndEnteredByItsUserAndAsksForHim)
{
    ASSERT_TRUE(show());
    const Log changed(m_window.activationChanged());
    VXWindow2 other;
    other.setPosition({900, 200, 300, 200});
    const Log others(other.activationChanged());
    other.show();
    ASSERT_TRUE(waitFor([&] { return qt(other)->isActiveWindow(); }, Patience));
    EXPECT_TRUE(others.isEmpty()) << "the program has shown it";
    ASSERT_TRUE(waitFor([&] { return !changed.isEmpty(); }, Patience));
    EXPECT_FALSE(changed.last().isActive());

    const XServer server;
    const auto isAsking = [&] {
        const auto states = server.property("_NET_WM_STATE", m_window.winId());
        return std::ranges::count(states, server.atom("_NET_WM_STATE_DEMANDS_ATTENTION")) > 0;
    };
    EXPECT_FALSE(isAsking());
    m_window.alert();
    EXPECT_TRUE(waitFor(isAsking, Patience));
    xdotool(QStringLiteral("windowactivate ") + id());
    ASSERT_TRUE(waitFor([&] { return changed.last().isActive(); }, Patience));
    EXPECT_TRUE(waitFor([&] { return !isAsking(); }, Patience));
    ASSERT_TRUE(waitFor([&] { return others.count() == 1; }, Patience));
    EXPECT_FALSE(others.last().isActive());

    const VXRect<int> inside = m_window.globalPosition();
    const VXRect<int> frame = m_window.frameGeometry();
    EXPECT_LT(frame.y, inside.y);
    EXPECT_GT(frame.height, inside.height);
    EXPECT_EQ(m_window.screens()[static_cast<std::size_t>(m_window.screen())].geometry,
              (VXRect<int>{0, 0, 1600, 1200}));
}

class DockX11 : public WindowX11
{
protected:
    DockX11()
    {
        m_dock->setTitle("Dock");
        auto* content = new VXPanel2(m_dock);
        content->setMinimumSize({150, 100});
        m_dock->setWidget(content);
        m_window.addDockWidget(m_dock);
    }

    QPoint title() const { return qt(*m_dock)->mapToGlobal(QPoint(40, 8)); }

    /// Presses on the title and moves step by step towards the goal, and there until `arrived`.
    /// Then it lets go. Each step is another place, so that the pointer really moves. After a while
    /// it tries again: the window manager may have moved the title away just before the press.
    bool drag(const QPoint& goal, const std::function<bool()>& arrived)
    {
        constexpr int Steps = 12;
        constexpr int StepsOfATry = 5 * Steps;
        QPoint start;
        int step = 0;
        const bool done = waitFor(
            [&] {
                if (step % StepsOfATry == 0) {
                    xdotool(QStringLiteral("mouseup 1"));
                    start = title();
                    xdotool(at(start) + QStringLiteral(" mousedown 1"));
                }
                const int part = std::min(++step % StepsOfATry, Steps);
                const QPoint wobble(step % 3, step % 2);
                xdotool(at(start + (goal - start) * part / Steps + wobble));
                return part == Steps && arrived();
            },
            Patience);
        xdotool(QStringLiteral("mouseup 1"));
        return done;
    }

    VXDockWidget2* m_dock = new VXDockWidget2(&m_window);
    Log<VXDockFloatEvent2> m_floated{m_dock->floatingChanged()};
    Log<VXDockAreaEvent2> m_moved{m_dock->areaChanged()};
    Log<VXDockVisibilityEvent2> m_seen{m_dock->visibilityChanged()};
};

TEST_F(DockX11, isDraggedOutAndBackIn)
{
    ASSERT_TRUE(show());
    ASSERT_TRUE(waitFor([&] { return m_dock->isVisible(); }, Patience));
    ASSERT_TRUE(drag(QPoint(1100, 800), [&] { return m_dock->isFloating(); }));
    ASSERT_TRUE(waitFor([&] { return m_floated.count() == 1; }, Patience));
    EXPECT_TRUE(m_floated.last().isFloating());
    EXPECT_EQ(m_floated.last().dock(), m_dock);
    EXPECT_TRUE(m_dock->isVisible());
    EXPECT_TRUE(m_moved.isEmpty());

    // Into the right side. While the window's layout is in motion no title is a handle.
    const auto* central = qobject_cast<QMainWindow*>(qt(m_window))->centralWidget();
    const int whole = qt(m_window)->width();
    ASSERT_TRUE(waitFor([&] { return central->width() == whole; }, Patience));
    const VXRect<int> window = m_window.globalPosition();
    const QPoint goal(window.x + window.width - 30, window.y + window.height / 2);
    // The central widget makes room where the pane would go.
    ASSERT_TRUE(drag(goal, [&] { return central->width() < whole; }));
    ASSERT_TRUE(waitFor([&] { return m_floated.count() == 2; }, Patience));
    EXPECT_FALSE(m_floated.last().isFloating());
    ASSERT_TRUE(waitFor([&] { return m_moved.count() == 1; }, Patience));
    EXPECT_EQ(m_moved.last().area(), DockArea::Right);
    EXPECT_EQ(m_window.dockArea(m_dock), DockArea::Right);
    EXPECT_TRUE(m_seen.isEmpty());
}

/// As a program does that shows its window as it was left.
TEST_F(DockX11, standsBeforeAWindowThatGotItsLayoutFirst)
{
    ASSERT_TRUE(show());
    m_dock->setFloating(true);
    const std::string layout = m_window.saveLayout();
    m_window.hide();
    m_dock->setFloating(false);
    ASSERT_TRUE(waitFor([] { return !QGuiApplication::focusWindow(); }, Patience));
    ASSERT_TRUE(m_window.restoreLayout(layout));
    ASSERT_TRUE(show());
    ASSERT_TRUE(waitFor([&] { return qt(*m_dock)->windowHandle()->isExposed(); }, Patience));
    EXPECT_TRUE(m_dock->isFloating());
    const XServer server;
    const auto isInFront = [&] {
        const auto stacked = server.property("_NET_CLIENT_LIST_STACKING");
        const auto window = std::ranges::find(stacked, m_window.winId());
        const auto pane = std::ranges::find(stacked, m_dock->winId());
        return window != stacked.end() && pane != stacked.end() && pane > window;
    };
    EXPECT_TRUE(waitFor(isInFront, Patience));
    EXPECT_TRUE(m_floated.isEmpty());
}

TEST_F(DockX11, mayBeTakenFromTheHandThatDragsIt)
{
    ASSERT_TRUE(show());
    ASSERT_TRUE(waitFor([&] { return m_dock->isVisible(); }, Patience));
    const std::string layout = m_window.saveLayout();
    const auto dragAnd = [&](const std::function<void()>& act) {
        bool done = false;
        auto connection = m_dock->floatingChanged().connect(&m_window, [&] {
            if (!std::exchange(done, true))
                act();
        });
        EXPECT_TRUE(drag(QPoint(1100, 800), [&] { return done; }));
        turn();
        connection.disconnect();
    };
    dragAnd([&] { m_window.addDockWidget(m_dock, DockArea::Top); });
    EXPECT_FALSE(m_dock->isFloating());
    EXPECT_EQ(m_window.dockArea(m_dock), DockArea::Top);
    dragAnd([&] { EXPECT_TRUE(m_window.restoreLayout(layout)); });
    EXPECT_FALSE(m_dock->isFloating());
    EXPECT_EQ(m_window.dockArea(m_dock), DockArea::Left);
    dragAnd([&] { m_dock->setFloating(false); });
    EXPECT_FALSE(m_dock->isFloating());
    EXPECT_EQ(m_window.dockArea(m_dock), DockArea::Left);
    dragAnd([&] { m_window.removeDockWidget(m_dock); });
    EXPECT_FALSE(m_dock->isVisible());
    m_window.addDockWidget(m_dock);

    const QPointer<QWidget> widget(qt(*m_dock));
    dragAnd([&] { delete m_dock; });
    EXPECT_TRUE(waitFor([&] { return widget.isNull(); }, Patience));
    auto* next = new VXDockWidget2(&m_window);
    m_window.addDockWidget(next, DockArea::Bottom);
    EXPECT_TRUE(waitFor([&] { return next->isVisible(); }, Patience));
}

TEST_F(DockX11, mayLoseItsWindowWhileItIsDragged)
{
    ASSERT_TRUE(show());
    auto* window = new VXWindow2;
    window->setPosition({500, 300, 400, 300});
    window->addDockWidget(m_dock);
    window->show();
    ASSERT_TRUE(waitFor([&] { return qt(*window)->isActiveWindow(); }, Patience));
    TROV::Listener listener;
    bool done = false;
    m_dock->floatingChanged().connect(&listener, [&] {
        delete std::exchange(window, nullptr);
        done = true;
    });
    EXPECT_TRUE(drag(QPoint(1100, 800), [&] { return done; }));
    runDeletions();
    EXPECT_FALSE(m_dock->isVisible());
    EXPECT_NE(lookup(m_dock), nullptr) << "it belongs to another window";
}

} // namespace
} // namespace VOXI
