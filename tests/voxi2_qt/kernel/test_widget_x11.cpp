// What needs a real window manager, a real pointer and another program: activation that comes later
// than the request, and drags.

#include "probe.h"
#include "support/realinput.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/kernel/vxdragdelegate2.h"
#include "voxi2/kernel/vxdragmanager2.h"
#include "voxi2_qt/kernel/qtglobalfocusblocker.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

QString at(VXPoint<int> point) { return VOXI::at(QPoint(point.x, point.y)); }

/// Two windows, each with a widget that takes the focus.
class Activation : public testing::Test
{
protected:
    struct Window
    {
        VXPanel2 m_panel;
        VXProbe2& m_child = *new VXProbe2(&m_panel);
        Log<VXFocusEvent2> m_panelGained{m_panel.focusGained()};
        Log<VXFocusEvent2> m_childGained{m_child.focusGained()};

        explicit Window(int x)
        {
            m_panel.setPosition({x, 200, 300, 200});
            m_child.setPosition({50, 50, 100, 100});
            m_child.setFocusPolicy(FocusPolicy::Strong);
        }
        bool isSettled() const
        {
            return qt(m_panel)->isActiveWindow() && m_child.hasFocus()
                   && !QtGlobalFocusBlocker::instance().isRegistered(qt(m_panel));
        }
        int reports() const { return m_panelGained.count() + m_childGained.count(); }
    };

    Window m_first{200};
    Window m_second{700};
};

TEST_F(Activation, byTheProgramIsNotReported)
{
    m_first.m_panel.show();
    m_first.m_child.setFocus();
    ASSERT_TRUE(waitFor([&] { return m_first.isSettled(); }, Patience));
    m_second.m_panel.show();
    ASSERT_TRUE(waitFor([&] { return m_second.isSettled(); }, Patience));
    m_first.m_panel.setActiveWindow();
    EXPECT_FALSE(m_first.m_panel.isActiveWindow()) << "it takes the window manager";
    ASSERT_TRUE(waitFor([&] { return m_first.isSettled(); }, Patience));
    EXPECT_EQ(m_first.reports() + m_second.reports(), 0);

    // The program may be busy for longer than it waits for the window manager.
    m_second.m_panel.setActiveWindow();
    QElapsedTimer busy;
    busy.start();
    while (busy.elapsed() < 800) {
    }
    ASSERT_TRUE(waitFor([&] { return m_second.isSettled(); }, Patience));
    EXPECT_EQ(m_first.reports() + m_second.reports(), 0);
}

TEST_F(Activation, byTheUserIsReported)
{
    m_first.m_panel.show();
    ASSERT_TRUE(waitFor([&] { return m_first.isSettled(); }, Patience));
    m_second.m_panel.show();
    ASSERT_TRUE(waitFor([&] { return m_second.isSettled(); }, Patience));

    xdotool(at(m_first.m_child.mapToGlobal({20, 20})) + QStringLiteral(" click 1"));
    EXPECT_TRUE(waitFor([&] { return m_first.m_childGained.count() > 0; }, Patience));
    EXPECT_EQ(m_second.reports(), 0);
    EXPECT_TRUE(waitFor([&] { return m_first.isSettled(); }, Patience));

    // Without a click on a widget, as from a task bar.
    xdotool(QStringLiteral("windowactivate %1").arg(m_second.m_panel.winId()));
    ASSERT_TRUE(waitFor([&] { return m_second.m_childGained.count() > 0; }, Patience));
    EXPECT_EQ(m_second.m_childGained.last().reason(), FocusReason::ActiveWindow);
}

/// Moves the pointer on, step by step, until what a test waits for has happened. A drag runs an
/// event loop of its own, so the steps are taken from a timer.
class Hand
{
public:
    explicit Hand(std::function<QString()> step) : m_step(std::move(step))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            if (m_process.state() != QProcess::NotRunning)
                return;
            if (const QString commands = m_step(); !commands.isEmpty())
                m_process.start(QStringLiteral("xdotool"), commands.split(QLatin1Char(' ')));
        });
        m_timer.start(20);
    }
    ~Hand() { m_process.waitForFinished(); }

private:
    std::function<QString()> m_step;
    QProcess m_process;
    QTimer m_timer;
};

/// Another position near the point each time, so that the pointer really moves.
QString near(VXPoint<int> point)
{
    static int s_turn = 0;
    s_turn = (s_turn + 1) % 5;
    return at({point.x + 2 * s_turn, point.y + s_turn});
}

class Partner
{
public:
    Partner(const char* role, int x, int y)
    {
        m_process.start(QStringLiteral(VOXI_DRAG_PARTNER),
                        {QLatin1String(role), QString::number(x), QString::number(y)});
    }
    ~Partner()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    bool hasSaid(const char* text)
    {
        m_output += m_process.readAllStandardOutput();
        return m_output.contains(text);
    }
    VXPoint<int> middle()
    {
        const QList<QByteArray> words = m_output.left(m_output.indexOf('\n')).split(' ');
        return {words.value(1).toInt(), words.value(2).toInt()};
    }
    const QByteArray& output() const { return m_output; }

private:
    QProcess m_process;
    QByteArray m_output;
};

class Dragging : public testing::Test
{
protected:
    Dragging()
    {
        m_source.setPosition({150, 250, 200, 150});
        m_target.setPosition({900, 250, 200, 150});
        m_target.setAcceptDrops(true);
        m_target.setDragDelegate(&m_delegate);
        m_source.dragDetected().connect(&m_listener, [this] {
            VXDrag2 drag;
            drag.source = &m_source;
            drag.mimeData.setText(L"gr\u00fc\u00dfe");
            drag.actions = DropAction::Copy | DropAction::Move;
            drag.defaultAction = DropAction::Move;
            drag.pixmap = Pixmap(8, 8, std::vector<std::uint32_t>(64, 0xff0000ffu));
            VXDragManager2::instance()->startDrag(drag);
            VXDragManager2::instance()->startDrag(drag); // ignored: one goes on
        });
        xdotool(QStringLiteral("mouseup 1 mousemove 1500 1100"));
    }
    ~Dragging() override { xdotool(QStringLiteral("mouseup 1")); }

    bool show(VXWidget2& window)
    {
        window.show();
        return waitFor([&] { return qt(window)->isActiveWindow(); }, Patience)
               && waitFor([&] { return qt(window)->windowHandle()->isExposed(); }, Patience);
    }

    void pressSource()
    {
        const VXPoint<int> start = m_source.mapToGlobal({50, 50});
        xdotool(at(start) + QStringLiteral(" mousedown 1"));
    }

    /// What the hand does next: moves over `from` until a drag goes on and to `to` until it has
    /// arrived there, and lets go once.
    QString drag(VXPoint<int> from, VXPoint<int> to, bool hasArrived, bool goesOn)
    {
        if (!goesOn)
            return m_released ? QString() : near(from);
        if (!hasArrived)
            return near(to);
        return std::exchange(m_released, true) ? QString() : QStringLiteral("mouseup 1");
    }
    QString dragSource(VXPoint<int> to, bool hasArrived)
    {
        return drag(m_source.mapToGlobal({80, 80}), to, hasArrived,
                    VXDragManager2::instance()->isDragging());
    }

    bool m_released = false;
    VXPanel2 m_source;
    VXPanel2 m_target;
    VXDragDelegate2 m_delegate;
    TROV::Listener m_listener;
    Log<VXDragFinishedEvent2> m_finished{VXDragManager2::instance()->finished()};
};

TEST_F(Dragging, withinTheProgram)
{
    ASSERT_TRUE(show(m_source) && show(m_target));
    bool welcome = false;
    auto dropped = Log(m_delegate.dropped());
    m_delegate.moved().connect(&m_listener, [&](const VXDragEvent2& event) {
        event.accept(DropAction::Copy);
        welcome = true;
    });
    m_delegate.entered().connect(&m_listener, [](const VXDragEvent2& event) {
        EXPECT_EQ(event.proposedAction(), DropAction::Move);
        event.acceptProposed();
    });
    m_delegate.dropped().connect(&m_listener,
                                 [](const VXDragEvent2& event) { event.accept(DropAction::Copy); });
    pressSource();
    const VXPoint<int> goal = m_target.mapToGlobal({100, 70});
    bool seenDragging = false;
    const Hand hand([&] {
        seenDragging |= VXDragManager2::instance()->isDragging();
        return dragSource(goal, welcome);
    });
    ASSERT_TRUE(waitFor([&] { return m_finished.count() > 0; }, Patience));
    EXPECT_TRUE(seenDragging);
    ASSERT_EQ(m_finished.count(), 1);
    EXPECT_EQ(m_finished.last().source(), &m_source);
    EXPECT_EQ(m_finished.last().action(), DropAction::Copy);
    ASSERT_EQ(dropped.count(), 1);
    EXPECT_EQ(dropped.last().mimeData().text(), L"gr\u00fc\u00dfe");
    EXPECT_EQ(dropped.last().source(), &m_source);
    EXPECT_FALSE(VXDragManager2::instance()->isDragging());
}

TEST_F(Dragging, isRefusedOrCancelled)
{
    ASSERT_TRUE(show(m_source) && show(m_target));
    auto entered = Log(m_delegate.entered()); // nobody accepts
    pressSource();
    const VXPoint<int> goal = m_target.mapToGlobal({100, 70});
    {
        const Hand hand([&] { return dragSource(goal, !entered.isEmpty()); });
        ASSERT_TRUE(waitFor([&] { return m_finished.count() == 1; }, Patience));
    }
    EXPECT_EQ(m_finished.last().action(), DropAction::Ignore);

    xdotool(QStringLiteral("mouseup 1"));
    pressSource();
    {
        const Hand hand([&]() -> QString {
            if (VXDragManager2::instance()->isDragging())
                VXDragManager2::instance()->cancelDrag();
            return m_finished.count() == 2 ? QString() : near(m_source.mapToGlobal({80, 80}));
        });
        ASSERT_TRUE(waitFor([&] { return m_finished.count() == 2; }, Patience));
    }
    EXPECT_EQ(m_finished.last().action(), DropAction::Ignore);
}

TEST_F(Dragging, survivesTheEndOfItsSource)
{
    auto* const source = new VXPanel2;
    source->setPosition({500, 600, 200, 150});
    ASSERT_TRUE(show(*source) && show(m_target));
    source->dragDetected().connect(&m_listener, [&] {
        VXDrag2 drag;
        drag.source = source;
        drag.mimeData.setText(L"orphan");
        VXDragManager2::instance()->startDrag(drag);
    });
    m_delegate.entered().connect(&m_listener, [](const VXDragEvent2& e) { e.acceptProposed(); });
    auto entered = Log(m_delegate.entered());
    const VXPoint<int> start = source->mapToGlobal({50, 50});
    const VXPoint<int> goal = m_target.mapToGlobal({100, 70});
    xdotool(at(start) + QStringLiteral(" mousedown 1"));
    bool alive = true;
    const Hand hand([&]() -> QString {
        if (!VXDragManager2::instance()->isDragging())
            return alive ? near(source->mapToGlobal({80, 80})) : QString();
        if (entered.isEmpty())
            return near(goal);
        if (std::exchange(alive, false)) {
            delete source;
            runDeletions();
        }
        return QString();
    });
    ASSERT_TRUE(waitFor([&] { return m_finished.count() == 1; }, Patience));
    EXPECT_EQ(m_finished.last().source(), nullptr);
    EXPECT_EQ(m_finished.last().action(), DropAction::Ignore)
        << "its window went, and the pointer's grab";
}

TEST_F(Dragging, toAnotherProgram)
{
    Partner partner("target", 500, 600);
    ASSERT_TRUE(waitFor([&] { return partner.hasSaid("shown"); }, Patience));
    ASSERT_TRUE(show(m_source));
    pressSource();
    const Hand hand([&] { return dragSource(partner.middle(), partner.hasSaid("entered")); });
    ASSERT_TRUE(waitFor([&] { return m_finished.count() > 0; }, Patience))
        << partner.output().data();
    EXPECT_TRUE(waitFor([&] { return partner.hasSaid("dropped gr\u00fc\u00dfe"); }, Patience));
    EXPECT_EQ(m_finished.last().action(), DropAction::Move);
}

TEST_F(Dragging, fromAnotherProgram)
{
    Partner partner("source", 500, 600);
    ASSERT_TRUE(waitFor([&] { return partner.hasSaid("shown"); }, Patience));
    ASSERT_TRUE(show(m_target));
    int entered = 0;
    std::vector<std::wstring> texts;
    m_delegate.entered().connect(&m_listener, [&](const VXDragEvent2& event) {
        ++entered;
        EXPECT_EQ(event.source(), nullptr);
        EXPECT_EQ(event.possibleActions(), DropAction::Copy | DropAction::Move);
        event.accept(DropAction::Copy);
    });
    m_delegate.dropped().connect(&m_listener, [&](const VXDragEvent2& event) {
        texts.push_back(event.mimeData().text());
        event.accept(DropAction::Copy);
    });
    const VXPoint<int> goal = m_target.mapToGlobal({100, 70});
    xdotool(at(partner.middle()) + QStringLiteral(" mousedown 1"));
    const Hand hand(
        [&] { return drag(partner.middle(), goal, entered > 0, partner.hasSaid("dragging")); });
    ASSERT_TRUE(waitFor([&] { return !texts.empty(); }, Patience)) << partner.output().data();
    EXPECT_EQ(texts, std::vector<std::wstring>{L"from outside"});
    EXPECT_TRUE(waitFor([&] { return partner.hasSaid("finished 1"); }, Patience))
        << partner.output().data();
}

} // namespace
} // namespace VOXI
