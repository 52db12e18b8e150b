#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxsplitter2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/kernel/vxaction2.h"

#include <QAbstractButton>
#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QPointer>
#include <QTabBar>

#include <array>
#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

namespace VOXI {
namespace {

class DockWidget : public testing::Test
{
protected:
    DockWidget()
    {
        m_dock->setTitle("First");
        m_window->setCentralWidget(new VXPanel2(m_window.get()));
        m_window->resize({600, 400});
        m_window->show();
        m_window->addDockWidget(m_dock);
        turn();
    }
    ~DockWidget() override
    {
        m_window.reset();
        runDeletions();
    }

    static QDockWidget* qtDock(VXDockWidget2* dock)
    {
        return qobject_cast<QDockWidget*>(qt(*dock));
    }
    static void clickButton(VXDockWidget2* dock, const char* name)
    {
        auto* button = qt(*dock)->findChild<QAbstractButton*>(QLatin1String(name));
        ASSERT_TRUE(button);
        QTest::mouseClick(button, Qt::LeftButton);
        turn();
    }
    VXDockWidget2* addTab(const char* title)
    {
        auto* dock = new VXDockWidget2(m_window.get());
        dock->setTitle(title);
        m_window->tabifyDockWidget(m_dock, dock);
        turn();
        return dock;
    }
    QTabBar* tabs() const { return qt(*m_window)->findChild<QTabBar*>(); }

    std::unique_ptr<VXWindow2> m_window = std::make_unique<VXWindow2>();
    VXDockWidget2* m_dock = new VXDockWidget2(m_window.get());
    Log<VXDockFloatEvent2> m_floated{m_dock->floatingChanged()};
    Log<VXDockAreaEvent2> m_moved{m_dock->areaChanged()};
    Log<VXDockVisibilityEvent2> m_seen{m_dock->visibilityChanged()};
};

TEST_F(DockWidget, saysWhatItIs)
{
    EXPECT_EQ(spokenName(*m_dock), QStringLiteral("First"));
    EXPECT_EQ(m_dock->title(), "First");
    const Icon icon = Icon::fromPixmap(Pixmap(1, 1, {0xff0000ffu}));
    for (const Icon& each : {icon, Icon()}) {
        m_dock->setIcon(each);
        EXPECT_EQ(m_dock->viewAction()->icon(), each);
    }
    EXPECT_EQ(m_dock->allowedAreas(), AllDockAreas);
    EXPECT_EQ(m_dock->features(),
              DockFeature::Closable | DockFeature::Movable | DockFeature::Floatable);
}

TEST_F(DockWidget, hasOneViewActionForAllThreads)
{
    std::atomic<int> ready = 0;
    std::array<VXAction2*, 2> actions{};
    std::vector<std::thread> workers;
    workers.reserve(actions.size());
    for (VXAction2*& action : actions)
        workers.emplace_back([&] {
            action = m_dock->viewAction();
            ++ready;
        });
    EXPECT_TRUE(waitFor([&] { return ready == 2; }));
    for (std::thread& worker : workers)
        worker.join();
    EXPECT_NE(actions[0], nullptr);
    EXPECT_EQ(actions[0], actions[1]);
    EXPECT_EQ(m_dock->viewAction(), actions[0]);
    m_dock->hide();
    EXPECT_FALSE(actions[0]->isChecked());
}

TEST_F(DockWidget, isNotReportedWhatTheProgramDoes)
{
    auto hidden = Log(m_dock->hidden());
    auto shown = Log(m_dock->shown());
    VXDockWidget2* other = addTab("Second");
    auto otherSeen = Log(other->visibilityChanged());
    const std::string layout = m_window->saveLayout();
    const std::function<void()> steps[] = {
        [&] {
            m_dock->setFloating(true);
            EXPECT_TRUE(m_dock->isFloating() && qt(*m_dock)->isWindow());
        },
        [&] { m_dock->setTitleBarWidget(new VXPanel2(m_dock)); },
        [&] { m_dock->setFloating(false); },
        [&] { m_window->raiseDockWidget(m_dock); },
        [&] { m_window->raiseDockWidget(other); },
        [&] { m_window->addDockWidget(m_dock, DockArea::Right); },
        [&] { m_window->splitDockWidget(m_dock, other, Orientation::Vertical); },
        [&] { EXPECT_TRUE(m_window->restoreLayout(layout)); },
        [&] { m_dock->hide(); },
        [&] {
            m_dock->show();
            m_window->raiseDockWidget(m_dock);
        },
        [&] {
            m_dock->setVisible(false);
            EXPECT_FALSE(m_dock->isVisible());
        },
        [&] {
            m_dock->setVisible(true);
            EXPECT_TRUE(m_dock->isVisible());
        },
        [&] {
            m_window->hide();
            m_window->show();
            turn();
            shown.clear(); // it came and went with its window
            hidden.clear();
        },
        [&] {
            m_dock->hide();
            m_window->raiseDockWidget(m_dock);
            EXPECT_TRUE(m_dock->isVisible());
        },
        [&] { m_window->removeDockWidget(m_dock); },
        [&] {
            m_window->addDockWidget(m_dock);
            m_dock->setParent(nullptr);
        }};
    for (const auto& step : steps) {
        step();
        turn();
        EXPECT_TRUE(shown.isEmpty() && hidden.isEmpty() && m_floated.isEmpty() && m_moved.isEmpty()
                    && m_seen.isEmpty() && otherSeen.isEmpty())
            << "step " << &step - steps;
    }
}

TEST_F(DockWidget, isClosedAndTornOffByItsButtons)
{
    m_dock->setTitleBarWidget(new VXPanel2(m_dock));
    m_dock->setTitleBarWidget(nullptr); // the usual one comes back
    turn();
    bool refuse = true;
    m_dock->closing().connect(m_dock, [&](const VXCloseEvent2& event) {
        if (refuse)
            event.refuse();
    });
    clickButton(m_dock, "qt_dockwidget_closebutton");
    EXPECT_TRUE(m_dock->isVisible());
    EXPECT_FALSE(m_dock->close());
    EXPECT_TRUE(m_seen.isEmpty());
    refuse = false;
    clickButton(m_dock, "qt_dockwidget_closebutton");
    EXPECT_FALSE(m_dock->isVisible());
    EXPECT_FALSE(m_seen.only().isVisible());
    EXPECT_EQ(m_seen.last().dock(), m_dock);
    EXPECT_EQ(m_window->dockArea(m_dock), DockArea::Left) << "it keeps its place";
    m_dock->show();
    turn();
    EXPECT_EQ(m_seen.count(), 1);

    clickButton(m_dock, "qt_dockwidget_floatbutton");
    EXPECT_TRUE(m_floated.only().isFloating());
    EXPECT_TRUE(m_dock->isFloating());
    clickButton(m_dock, "qt_dockwidget_floatbutton");
    ASSERT_EQ(m_floated.count(), 2);
    EXPECT_FALSE(m_floated.last().isFloating());
    EXPECT_EQ(m_seen.count(), 1) << "tearing off is no coming and going";
    EXPECT_TRUE(m_moved.isEmpty());
}

TEST_F(DockWidget, isReportedWhereItsUserPutsIt)
{
    auto* const window = qobject_cast<QMainWindow*>(qt(*m_window));
    window->addDockWidget(Qt::RightDockWidgetArea, qtDock(m_dock)); // as Qt does for a drop
    turn();
    EXPECT_EQ(m_moved.only().area(), DockArea::Right);
    EXPECT_EQ(m_moved.last().dock(), m_dock);
}

TEST_F(DockWidget, isShownAndClosedByItsViewAction)
{
    VXAction2* action = m_dock->viewAction();
    EXPECT_EQ(m_dock->viewAction(), action);
    EXPECT_EQ(action->label(), "First");
    m_dock->setTitle("Other");
    EXPECT_EQ(action->label(), "Other");
    EXPECT_TRUE(action->isChecked());

    auto toggled = Log(action->toggled());
    m_dock->hide();
    EXPECT_FALSE(action->isChecked());
    m_dock->show();
    EXPECT_TRUE(action->isChecked());
    m_window->hide();
    EXPECT_TRUE(action->isChecked()) << "it is the window that is hidden";
    m_window->show();
    EXPECT_TRUE(toggled.isEmpty());

    action->imitateTrigger();
    turn();
    EXPECT_FALSE(m_dock->isVisible());
    EXPECT_TRUE(m_seen.takeOne());
    action->imitateTrigger();
    turn();
    EXPECT_TRUE(m_dock->isVisible());
    EXPECT_TRUE(m_seen.takeOne());

    m_dock->closing().connect(m_dock, [](const VXCloseEvent2& event) { event.refuse(); });
    action->imitateTrigger();
    turn();
    EXPECT_TRUE(m_dock->isVisible());
    EXPECT_TRUE(action->isChecked()) << "refused";
    EXPECT_TRUE(m_seen.isEmpty());

    m_window->removeDockWidget(m_dock);
    EXPECT_FALSE(action->isChecked());
    action->imitateTrigger();
    turn();
    EXPECT_FALSE(action->isChecked()) << "there is no place for it";
    delete action;
    runDeletions();
    EXPECT_NE(m_dock->viewAction(), nullptr);
}

TEST_F(DockWidget, isSeenAndUnseenByItsTab)
{
    VXDockWidget2* other = addTab("Second");
    auto otherSeen = Log(other->visibilityChanged());
    ASSERT_TRUE(waitFor([&] { return tabs() && tabs()->count() == 2; }));
    const auto choose = [&](const char* title) {
        for (int i = 0; i < tabs()->count(); ++i) {
            if (tabs()->tabText(i) == QLatin1String(title))
                QTest::mouseClick(tabs(), Qt::LeftButton, {}, tabs()->tabRect(i).center());
        }
        turn();
    };
    m_window->raiseDockWidget(other);
    turn();
    choose("First");
    EXPECT_TRUE(m_seen.only().isVisible());
    EXPECT_FALSE(otherSeen.only().isVisible());
    choose("Second");
    EXPECT_EQ(m_seen.count(), 2);
    EXPECT_EQ(otherSeen.count(), 2);
}

TEST_F(DockWidget, mayBePutElsewhereWhileItIsDragged)
{
    auto* const centre = m_window->centralWidget();
    auto* const row = new VXBoxLayout2(centre);
    auto* const splitter = new VXSplitter2(centre);
    row->addWidget(splitter);
    VXPanel2 other(nullptr);
    const std::function<void()> moves[] = {
        [&] { row->addWidget(m_dock); }, [&] { splitter->addWidget(m_dock); },
        [&] { m_dock->setParent(centre); }, [&] { m_dock->setParent(&other); },
        [&] { m_dock->setParent(nullptr); }};
    for (const auto& move : moves) {
        m_window->addDockWidget(m_dock);
        m_dock->setFloating(false);
        turn();
        const QPoint title = qt(*m_dock)->mapToGlobal(QPoint(20, 8));
        const auto send = [&](QEvent::Type type, const QPoint& at, Qt::MouseButtons held) {
            const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
            QMouseEvent event(type, qt(*m_dock)->mapFromGlobal(at), at, button, held, {});
            QCoreApplication::sendEvent(qt(*m_dock), &event);
        };
        send(QEvent::MouseButtonPress, title, Qt::LeftButton);
        for (const int way : {20, 40, 300})
            send(QEvent::MouseMove, title + QPoint(way, way), Qt::LeftButton);
        EXPECT_TRUE(m_dock->isFloating());
        move();
        EXPECT_EQ(m_window->dockArea(m_dock), DockArea::None);
        send(QEvent::MouseMove, title + QPoint(10, 10), Qt::LeftButton);
        send(QEvent::MouseButtonRelease, title, Qt::NoButton);
        turn();
        EXPECT_TRUE(m_floated.isEmpty() && m_moved.isEmpty());
    }
}

TEST_F(DockWidget, mayBeDestroyedInEveryState)
{
    delete addTab("Second");
    runDeletions();
    // By its own handler, floating.
    const QPointer<QWidget> widget(qt(*m_dock));
    m_dock->floatingChanged().connect(m_window.get(), [&] { delete m_dock; });
    clickButton(m_dock, "qt_dockwidget_floatbutton");
    runDeletions();
    EXPECT_TRUE(widget.isNull());
}

} // namespace
} // namespace VOXI
