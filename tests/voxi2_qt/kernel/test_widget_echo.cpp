// What the program sets is not reported; what the user does afterwards is.

#include "probe.h"
#include "reports.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2_qt/kernel/qteventblocker.h"
#include "voxi2_qt/kernel/qtglobalfocusblocker.h"

#include <QApplication>
#include <QWindow>

#include <functional>
#include <gtest/gtest.h>
#include <utility>

namespace VOXI {
namespace {

class Echo : public testing::Test
{
protected:
    Echo()
    {
        m_window.setPosition({100, 80, 300, 200});
        m_window.show();
        m_window.setActiveWindow();
        settle();
    }

    /// Until no window is kept back any more.
    void settle()
    {
        turn();
        EXPECT_TRUE(
            waitFor([&] { return !QtGlobalFocusBlocker::instance().isRegistered(qt(m_window)); }));
    }

    VXPanel2 m_window;
    VXProbe2& m_probe = *new VXProbe2(&m_window);
    QWidget* m_widget = qt(m_probe);
};

TEST_F(Echo, ofAHiddenWidgetsGeometryIsNotReportedWhenItIsShown)
{
    auto& late = *new VXProbe2(&m_window);
    Reports reports(late);
    late.setPosition({10, 20, 30, 40});
    late.resize({50, 60});
    late.show();
    EXPECT_EQ(reports.takeAfterTurn(), "");
    // The same again by the user is news.
    qt(late)->move(11, 20);
    qt(late)->move(10, 20);
    qt(late)->resize(51, 60);
    qt(late)->resize(50, 60);
    EXPECT_EQ(reports.takeAfterTurn(), "moved 10,20>11,20; moved 11,20>10,20; "
                                       "resized 50x60>51x60; resized 51x60>50x60");

    // What became of it otherwise is news too.
    auto& later = *new VXProbe2(&m_window);
    Reports squeezed(later);
    later.setPosition({1, 2, 50, 60});
    qt(later)->resize(40, 30); // as a layout would
    later.show();
    EXPECT_EQ(squeezed.takeAfterTurn(), "resized -1x-1>40x30");
}

TEST_F(Echo, aSwitchedOffBitStaysOff)
{
    auto shown = Log(m_probe.shown());
    peer(m_probe).disableEventBroadcasting(WidgetEvent::Show);
    m_probe.hide();
    m_probe.show();
    EXPECT_FALSE(peer(m_probe).isEventBroadcastingEnabled(WidgetEvent::Show));
    m_widget->hide();
    m_widget->show();
    EXPECT_TRUE(shown.isEmpty());
}

TEST_F(Echo, blockersNest)
{
    QtWidget2& widget = peer(m_probe);
    const auto isOn = [&](WidgetEvent event) { return widget.isEventBroadcastingEnabled(event); };
    {
        const QtEventBlocker outer(widget, {WidgetEvent::Move, WidgetEvent::Resize});
        {
            const QtEventBlocker inner(widget, {WidgetEvent::Resize, WidgetEvent::Hide});
            EXPECT_FALSE(isOn(WidgetEvent::Resize) || isOn(WidgetEvent::Hide));
        }
        EXPECT_TRUE(isOn(WidgetEvent::Hide));
        EXPECT_FALSE(isOn(WidgetEvent::Resize) || isOn(WidgetEvent::Move));
    }
    EXPECT_TRUE(isOn(WidgetEvent::Resize) && isOn(WidgetEvent::Move));

    try {
        const QtEventBlocker blocker(widget, {WidgetEvent::Show});
        throw std::runtime_error("the request failed");
    } catch (const std::runtime_error&) {
    }
    EXPECT_TRUE(isOn(WidgetEvent::Show));

    // The widget may go meanwhile.
    auto* const other = new VXProbe2(&m_window);
    {
        const QtEventBlocker blocker(peer(*other), {WidgetEvent::Show, WidgetEvent::FocusIn});
        QWidget* const dying = qt(*other);
        delete dying;
    }
    delete other;
}

TEST_F(Echo, focusInIsSuppressedForWindowAndProxyAsWell)
{
    auto& proxy = *new VXProbe2(&m_window);
    proxy.show();
    proxy.setFocusPolicy(FocusPolicy::Strong);
    m_probe.setFocusPolicy(FocusPolicy::Strong);
    m_probe.setFocusProxy(&proxy);
    auto gained = Log(proxy.focusGained());
    const auto isOn = [](const VXWidget2& widget) {
        return peer(widget).isEventBroadcastingEnabled(WidgetEvent::FocusIn);
    };
    m_probe.setFocus();
    EXPECT_TRUE(proxy.hasFocus());
    EXPECT_TRUE(gained.isEmpty());
    EXPECT_TRUE(isOn(m_probe) && isOn(proxy) && isOn(m_window));

    // Those of the window and the proxy are on afterwards, whatever they were.
    peer(m_window).disableEventBroadcasting(WidgetEvent::FocusIn);
    peer(proxy).disableEventBroadcasting(WidgetEvent::FocusIn);
    {
        const QtEventBlocker blocker(peer(m_probe), {WidgetEvent::FocusIn});
        EXPECT_FALSE(isOn(m_probe) || isOn(proxy) || isOn(m_window));
    }
    EXPECT_TRUE(isOn(m_probe) && isOn(proxy) && isOn(m_window));

    // With its own bit off nothing of it happens.
    peer(m_probe).disableEventBroadcasting(WidgetEvent::FocusIn);
    settle();
    {
        const QtEventBlocker blocker(peer(m_probe), {WidgetEvent::FocusIn});
        EXPECT_TRUE(isOn(proxy) && isOn(m_window));
        EXPECT_FALSE(QtGlobalFocusBlocker::instance().isRegistered(qt(m_window)));
    }
    EXPECT_FALSE(isOn(m_probe));
}

TEST_F(Echo, ofFocusIsNotReportedButTheUsersIs)
{
    auto& other = *new VXProbe2(&m_window);
    other.moveTo({100, 100});
    other.show();
    for (VXProbe2* probe : {&m_probe, &other})
        probe->setFocusPolicy(FocusPolicy::Strong);
    auto gained = Log(m_probe.focusGained());
    auto otherGained = Log(other.focusGained());
    m_probe.setFocus();
    m_probe.raise();
    m_window.setActiveWindow();
    EXPECT_TRUE(m_probe.hasFocus());
    EXPECT_TRUE(gained.isEmpty());

    // Even while the window is kept back.
    ASSERT_TRUE(QtGlobalFocusBlocker::instance().isRegistered(qt(m_window)));
    QTest::keyClick(m_widget, Qt::Key_Tab);
    EXPECT_TRUE(otherGained.takeOne());
    QTest::mouseClick(m_widget, Qt::LeftButton);
    EXPECT_TRUE(gained.takeOne());
    settle();
    other.imitateFocus(WidgetEvent::FocusIn);
    EXPECT_TRUE(otherGained.takeOne());
}

TEST_F(Echo, ofFocusThatGoesOnIsNotReported)
{
    VXProbe2* holder = &m_probe;
    VXPanel2 elsewhere;
    const struct
    {
        const char* m_name;
        std::function<void()> m_takeFocus;
        bool m_byUser;
    } ways[] = {
        {"hide", [&] { holder->hide(); }, false},
        {"setVisible", [&] { holder->setVisible(false); }, false},
        {"setEnabled", [&] { holder->setEnabled(false); }, false},
        {"setParent", [&] { holder->setParent(&elsewhere); }, false},
        {"destroy", [&] { delete holder; }, false},
        {"the user hides", [&] { qt(*holder)->hide(); }, true},
        {"the user disables", [&] { qt(*holder)->setEnabled(false); }, true},
    };
    auto& next = *new VXProbe2(&m_window);
    next.show();
    next.setFocusPolicy(FocusPolicy::Strong);
    auto gained = Log(next.focusGained());
    for (const auto& way : ways) {
        SCOPED_TRACE(way.m_name);
        holder = new VXProbe2(&m_window);
        holder->show();
        holder->setFocusPolicy(FocusPolicy::Strong);
        holder->setFocus();
        settle();
        ASSERT_TRUE(holder->hasFocus());
        const unsigned id = holder->id();
        way.m_takeFocus();
        runDeletions();
        settle();
        EXPECT_EQ(gained.count(), way.m_byUser);
        EXPECT_TRUE(next.hasFocus() || !VXObject::isObjectValid(id));
        gained.clear();
        if (VXObject::isObjectValid(id))
            delete holder;
    }
}

TEST_F(Echo, endsWhileHandlersRun)
{
    // A handler may run a loop in which the user goes on: that is no echo of the request.
    auto& holder = *new VXPanel2(&m_window);
    auto& child = *new VXProbe2(&holder);
    auto& other = *new VXProbe2(&m_window);
    other.show();
    other.setFocusPolicy(FocusPolicy::Strong);
    auto hidden = Log(holder.hidden());
    auto resized = Log(m_window.resized());
    auto gained = Log(other.focusGained());
    TROV::Listener listener;
    bool first = true;
    child.shown().connect(&listener, [&] {
        if (!std::exchange(first, false))
            return;
        EXPECT_TRUE(peer(holder).isEventBroadcastingEnabled(WidgetEvent::Show));
        QTest::mouseClick(qt(other), Qt::LeftButton);
        EXPECT_TRUE(gained.takeOne());
        qt(other)->clearFocus();
        qt(m_window)->resize(310, 210);
        turn();
        EXPECT_TRUE(resized.takeOne());
        qt(holder)->hide();
        EXPECT_TRUE(hidden.takeOne());
        qt(holder)->show();
    });
    holder.setVisible(true);
    settle();
    hidden.clear();
    holder.hide();
    EXPECT_TRUE(hidden.isEmpty()) << "the request's own, as before";
    EXPECT_TRUE(peer(holder).isEventBroadcastingEnabled(WidgetEvent::Hide));
}

TEST_F(Echo, ofAWindowThatIsSlowToShowIsNotReported)
{
    for (const bool bySetVisible : {false, true}) {
        VXWindow2 window;
        auto& child = *new VXProbe2(&window);
        child.setFocusPolicy(FocusPolicy::Strong);
        auto gained = Log(child.focusGained());
        TROV::Listener listener;
        child.shown().connect(&listener, [&] {
            // Longer than any window is waited for.
            EXPECT_TRUE(waitFor(
                [&] { return !QtGlobalFocusBlocker::instance().isRegistered(qt(window)); }));
        });
        if (bySetVisible)
            window.setVisible(true);
        else
            window.show();
        EXPECT_TRUE(waitFor([&] { return child.hasFocus(); }));
        turn();
        EXPECT_TRUE(gained.isEmpty());
    }
}

TEST_F(Echo, ofRaisingDoesNotHideThatTheUserActivates)
{
    VXWindow2 palette;
    auto& child = *new VXProbe2(&palette);
    child.setFocusPolicy(FocusPolicy::Strong);
    palette.show();
    ASSERT_TRUE(waitFor([&] { return child.hasFocus(); }));
    auto gained = Log(child.focusGained());
    m_window.setActiveWindow();
    ASSERT_TRUE(waitFor([&] { return qt(m_window)->isActiveWindow(); }));
    settle();
    for (int i = 0; i < 3; ++i) {
        palette.raise();
        turn();
        turn();
        EXPECT_FALSE(QtGlobalFocusBlocker::instance().isRegistered(qt(palette)));
    }
    qt(palette)->windowHandle()->requestActivate();
    EXPECT_TRUE(waitFor([&] { return child.hasFocus() && !gained.isEmpty(); }));
    EXPECT_TRUE(gained.takeOne());
}

} // namespace
} // namespace VOXI
