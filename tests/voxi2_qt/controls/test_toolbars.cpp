#include "menusupport.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxtoolbar2.h"
#include "voxi2_qt/controls/qttoolbar2.h"

#include <QLayout>
#include <QMainWindow>
#include <QToolButton>

#include <functional>

namespace VOXI {

namespace {

class Resizes : public QObject
{
public:
    explicit Resizes(QObject* watched) { watched->installEventFilter(this); }
    std::vector<QSize> m_sizes;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Resize)
            m_sizes.push_back(static_cast<QResizeEvent*>(event)->size());
        return false;
    }
};

class ToolBars : public testing::Test
{
protected:
    ToolBars() : m_outer(static_cast<QtToolBar2*>(qt(*m_bar)))
    {
        m_window->addToolBar(m_bar);
        m_window->resize({500, 300});
        m_window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(qt(*m_window)));
    }
    ~ToolBars() override
    {
        m_window.reset();
        runDeletions();
    }
    VXAction2* addAction(const std::string& label)
    {
        auto* action = new VXAction2(m_window.get());
        action->setLabel(label);
        m_bar->addAction(action);
        return action;
    }
    QList<InnerToolBar*> innerBars() const { return m_outer->findChildren<InnerToolBar*>(); }
    QWidget* buttonOf(VXAction2* action) const { return m_outer->widgetForAction(qt(*action)); }

    std::unique_ptr<VXWindow2> m_window = std::make_unique<VXWindow2>();
    VXToolBar2* m_bar = new VXToolBar2(m_window.get());
    QPointer<QtToolBar2> m_outer;
};

TEST_F(ToolBars, put_the_first_items_into_the_inner_bar)
{
    m_bar->setMinimumVisibleItems(0);
    m_bar->setMinimumVisibleItems(1);
    EXPECT_TRUE(innerBars().isEmpty());
    EXPECT_EQ(m_bar->minimumVisibleItems(), 1);
    m_bar->setMinimumVisibleItems(3);
    ASSERT_EQ(innerBars().size(), 1);
    InnerToolBar* inner = innerBars().first();

    VXAction2* first = addAction("first");
    m_bar->addSeparator();
    auto* button = new VXButton2(m_window.get());
    m_bar->addWidget(button);
    VXAction2* fourth = addAction("fourth");
    EXPECT_EQ(inner->actions().size(), 3);
    EXPECT_TRUE(inner->widgetForAction(qt(*first)));
    EXPECT_TRUE(inner->isAncestorOf(qt(*button)));
    EXPECT_TRUE(buttonOf(fourth));
    EXPECT_EQ(m_outer->actions().size(), 2) << "the inner bar and the fourth item";
    m_bar->addAction(nullptr);
    m_bar->addWidget(nullptr);
    EXPECT_EQ(m_outer->actions().size(), 2);

    // The button's own visibility is that of its place.
    button->setVisible(false);
    EXPECT_FALSE(inner->actions().last()->isVisible());

    m_bar->removeAction(first);
    EXPECT_EQ(inner->actions().size(), 2);
    m_bar->setMinimumVisibleItems(2); // a further one, for what comes now
    ASSERT_EQ(innerBars().size(), 2);
    addAction("fifth");
    EXPECT_EQ(innerBars().last()->actions().size(), 1);
    EXPECT_EQ(inner->actions().size(), 2);
}

TEST_F(ToolBars, never_put_the_inner_items_behind_the_arrow)
{
    m_bar->setMinimumVisibleItems(3);
    std::vector<VXAction2*> actions(12);
    for (std::size_t i = 0; i < actions.size(); ++i)
        actions[i] = addAction("A long label " + std::to_string(i));
    qt(*m_window)->setMinimumWidth(0);
    m_window->resize({450, 300});
    auto* arrow = m_outer->findChild<QWidget*>(QStringLiteral("qt_toolbar_ext_button"));
    ASSERT_TRUE(arrow);
    ASSERT_TRUE(waitFor([&] { return arrow->isVisible(); }));
    const InnerToolBar* inner = innerBars().first();
    for (int i = 0; i < 3; ++i) {
        const QWidget* button = inner->widgetForAction(qt(*actions[std::size_t(i)]));
        ASSERT_TRUE(button);
        EXPECT_TRUE(button->isVisible()) << i;
    }
    EXPECT_FALSE(buttonOf(actions.back())->isVisible());
}

TEST_F(ToolBars, keep_inner_and_outer_bar_alike)
{
    m_bar->setIconSize({20, 20});
    m_bar->setMinimumVisibleItems(2);
    InnerToolBar* inner = innerBars().first();
    EXPECT_EQ(inner->iconSize(), QSize(20, 20));
    EXPECT_FALSE(inner->isMovable());
    EXPECT_EQ(inner->layout()->contentsMargins(), QMargins()) << "the outer one has some";
    m_bar->setIconSize({31, 32});
    EXPECT_EQ(inner->iconSize(), QSize(31, 32));
    EXPECT_EQ(m_bar->iconSize(), (Size<int>{31, 32}));
    m_bar->setToolButtonStyle(ToolButtonStyle::TextOnly);
    EXPECT_EQ(inner->toolButtonStyle(), Qt::ToolButtonTextOnly);
    EXPECT_EQ(m_bar->toolButtonStyle(), ToolButtonStyle::TextOnly);
    m_window->removeToolBar(m_bar);
    m_bar->setOrientation(Orientation::Vertical);
    EXPECT_EQ(m_outer->orientation(), Qt::Vertical);
    EXPECT_EQ(inner->orientation(), Qt::Vertical);
    EXPECT_EQ(m_bar->orientation(), Orientation::Vertical);
    m_bar->setOrientation(Orientation::Horizontal);
    m_window->addToolBar(m_bar, ToolBarArea::Left); // which turns it
    EXPECT_EQ(inner->orientation(), Qt::Vertical);
    m_window->addToolBar(m_bar, ToolBarArea::Bottom);
    EXPECT_EQ(inner->orientation(), Qt::Horizontal);
}

TEST_F(ToolBars, may_be_fixed)
{
    m_bar->setMovable(false);
    m_bar->setFloatable(false);
    EXPECT_FALSE(m_bar->isMovable());
    EXPECT_FALSE(m_bar->isFloatable() || m_outer->isFloatable());
}

TEST_F(ToolBars, repair_their_layout_once_for_several_items_that_leave)
{
    // Alone, so that no window's layout joins in.
    m_window->removeToolBar(m_bar);
    m_bar->setParent(nullptr);
    std::vector<VXAction2*> actions(4);
    for (std::size_t i = 0; i < actions.size(); ++i)
        actions[i] = addAction(std::to_string(i));
    m_bar->resize({300, 60});
    m_bar->show();
    ASSERT_TRUE(waitFor([&] { return buttonOf(actions[3])->isVisible(); }));
    int reported = 0;
    m_bar->resized().connect(m_window.get(), [&] { ++reported; });
    const Resizes resizes(m_outer);
    const QSize size = m_outer->size();
    for (VXAction2* action : actions)
        m_bar->removeAction(action);
    EXPECT_TRUE(m_outer->actions().isEmpty());
    runDeletions(); // the buttons
    ASSERT_TRUE(waitFor([&] { return resizes.m_sizes.size() >= 2; }));
    EXPECT_FALSE(
        waitFor([&] { return resizes.m_sizes.size() > 2; }, std::chrono::milliseconds(50)));
    EXPECT_EQ(resizes.m_sizes[0], size + QSize(1, 0));
    EXPECT_EQ(resizes.m_sizes[1], size);

    // And again, where there is no room for a pixel more.
    m_bar->setMaximumSize({size.width(), 100});
    m_bar->removeAction(addAction("late"));
    runDeletions();
    ASSERT_TRUE(waitFor([&] { return resizes.m_sizes.size() >= 4; }));
    EXPECT_EQ(resizes.m_sizes[2], size - QSize(1, 0));
    EXPECT_EQ(m_outer->size(), size);
    EXPECT_EQ(reported, 0);
    m_bar->destroy();
}

/// Widgets in a bar, and a layout in the same window.
class ToolBarWidgets : public ToolBars
{
protected:
    ToolBarWidgets()
    {
        m_window->setCentralWidget(m_panel);
        m_button->setLabel("button");
    }
    void dockNewBar(int minimumVisibleItems)
    {
        if (m_bar)
            m_bar->destroy();
        m_bar = new VXToolBar2(m_window.get());
        m_bar->setMinimumVisibleItems(minimumVisibleItems);
        m_window->addToolBar(m_bar);
        m_outer = static_cast<QtToolBar2*>(qt(*m_bar));
    }
    bool isButtonShown(bool shown = true) const
    {
        return waitFor([&] { return m_button->isVisible() == shown; });
    }

    VXPanel2* m_panel = new VXPanel2(m_window.get());
    VXBoxLayout2* m_layout = new VXBoxLayout2(m_panel, Direction::TopToBottom);
    VXButton2* m_button = new VXButton2(m_window.get());
};

TEST_F(ToolBarWidgets, outlive_a_bar_that_they_have_left_and_are_shown_where_they_went)
{
    auto* other = new VXToolBar2(m_window.get());
    m_window->addToolBar(other, ToolBarArea::Bottom);
    const struct
    {
        const char* m_name;
        std::function<void()> m_leave;
        bool m_isShown;
    } ways[] = {
        {"removed", [&] { m_bar->removeWidget(m_button); }, false},
        {"removed and laid out",
         [&] {
             m_bar->removeWidget(m_button);
             m_layout->addWidget(m_button);
         },
         true},
        {"laid out", [&] { m_layout->addWidget(m_button); }, true},
        {"given a parent",
         [&] {
             m_button->setParent(m_panel);
             m_button->show();
         },
         true},
        {"put into another bar and back twice",
         [&] {
             other->addWidget(m_button);
             m_bar->addWidget(m_button);
             other->addWidget(m_button);
         },
         true},
        {"moved by somebody else", [&] { qt(*m_button)->setParent(qt(*m_panel)); }, false},
        {"left alone", [] {}, false},
    };
    for (const int minimumVisibleItems : {0, 3}) {
        for (const auto& way : ways) {
            SCOPED_TRACE(way.m_name);
            dockNewBar(minimumVisibleItems);
            m_bar->addWidget(m_button);
            EXPECT_TRUE(isButtonShown());
            way.m_leave();
            runDeletions();
            std::exchange(m_bar, nullptr)->destroy();
            runDeletions();
            EXPECT_FALSE(m_outer);
            ASSERT_TRUE(qt(*m_button));
            EXPECT_EQ(m_button->label(), "button");
            EXPECT_TRUE(isButtonShown(way.m_isShown));
        }
    }
    // With the bar goes what it owns, and the bar does without what goes first.
    dockNewBar(3);
    auto* owned = new VXButton2(m_bar);
    const QPointer<QWidget> qtOwned = qt(*owned);
    m_bar->addWidget(owned);
    m_bar->addWidget(m_button);
    m_button->destroy();
    runDeletions();
    EXPECT_EQ(innerBars().first()->actions().size(), 1);
    m_bar->destroy();
    runDeletions();
    EXPECT_FALSE(qtOwned);
}

TEST_F(ToolBarWidgets, are_hidden_in_a_layout_only_where_the_program_has_hidden_them)
{
    for (const bool hidden : {false, true}) {
        // What a bar has no room for, or what was never shown in it, Qt has hidden as well.
        m_bar->hide();
        m_bar->addWidget(m_button);
        EXPECT_FALSE(m_button->isVisible());
        if (hidden)
            m_button->setVisible(false);
        m_layout->addWidget(m_button);
        EXPECT_TRUE(isButtonShown(!hidden));
    }
    // Neither does the bar show it, until the program does.
    m_bar->show();
    m_bar->addWidget(m_button);
    turn();
    EXPECT_FALSE(m_button->isVisible());
    m_button->show();
    EXPECT_TRUE(m_button->isVisible());
    m_button->setEnabled(false);
    m_button->hide();
    m_button->show();
    EXPECT_FALSE(m_button->isEnabled());
}

TEST_F(ToolBarWidgets, are_quiet_when_the_program_moves_shows_and_hides_them)
{
    // A second bar in the row: this one grows and shrinks with what it shows.
    auto* second = new VXToolBar2(m_window.get());
    m_window->addToolBar(second);
    auto* neighbour = new VXButton2(m_window.get());
    m_bar->addWidget(neighbour);
    m_layout->addWidget(m_button);
    ASSERT_TRUE(waitFor([&] { return neighbour->isVisible() && m_button->isVisible(); }));
    int reports = 0;
    for (VXWidget2* widget : {m_button, neighbour}) {
        widget->shown().connect(m_window.get(), [&] { ++reports; });
        widget->hidden().connect(m_window.get(), [&] { ++reports; });
    }
    m_button->moved().connect(m_window.get(), [&] { ++reports; });
    m_button->resized().connect(m_window.get(), [&] { ++reports; });
    const auto settled = [&](bool shown) {
        // What the bar does, it does a turn later.
        turn();
        runDeletions();
        turn();
        return m_button->isVisible() == shown && neighbour->isVisible()
               && std::exchange(reports, 0) == 0;
    };
    for (int i = 0; i < 2; ++i) {
        m_bar->addWidget(m_button);
        EXPECT_TRUE(settled(true));
        m_button->setVisible(false);
        EXPECT_TRUE(settled(false));
        m_button->setVisible(true);
        EXPECT_TRUE(settled(true));
        m_button->hide();
        EXPECT_TRUE(settled(false));
        m_button->show();
        EXPECT_TRUE(settled(true));
        m_bar->removeWidget(m_button);
        EXPECT_TRUE(settled(false));
    }
}

TEST_F(ToolBarWidgets, do_not_hold_the_bar_that_they_are_put_into)
{
    m_window->removeToolBar(m_bar);
    m_bar->setParent(m_panel);
    for (VXWidget2* holder : {static_cast<VXWidget2*>(m_bar), static_cast<VXWidget2*>(m_panel),
                              static_cast<VXWidget2*>(m_window.get())}) {
        m_bar->addWidget(holder);
        EXPECT_NE(qt(*holder)->parentWidget(), qt(*m_bar));
    }
    EXPECT_EQ(qt(*m_bar)->parentWidget(), qt(*m_panel));
    EXPECT_TRUE(m_outer->actions().isEmpty());
    turn();
}

TEST_F(ToolBars, dock_at_the_sides_of_a_window)
{
    auto* main = qobject_cast<QMainWindow*>(qt(*m_window));
    EXPECT_EQ(m_window->toolBarArea(m_bar), ToolBarArea::Top);
    m_window->addToolBar(m_bar, ToolBarArea::Left);
    EXPECT_EQ(m_window->toolBarArea(m_bar), ToolBarArea::Left);
    EXPECT_EQ(m_bar->orientation(), Orientation::Vertical);
    m_window->addToolBar(m_bar, ToolBarArea::None);
    EXPECT_EQ(main->toolBarArea(m_outer), Qt::TopToolBarArea);

    VXToolBar2 second;
    EXPECT_EQ(m_window->toolBarArea(&second), ToolBarArea::None);
    m_window->removeToolBar(&second);
    m_window->insertToolBarBreak(&second);
    m_window->addToolBar(&second);
    m_window->insertToolBarBreak(&second);
    EXPECT_TRUE(main->toolBarBreak(static_cast<QtToolBar2*>(qt(second))));

    m_window->removeToolBar(m_bar);
    runDeletions();
    EXPECT_FALSE(m_bar->isVisible());
    EXPECT_EQ(m_window->toolBarArea(m_bar), ToolBarArea::None);
    m_window->addToolBar(m_bar, ToolBarArea::Right);
    EXPECT_TRUE(m_bar->isVisible());
    m_window->removeToolBar(&second);

    // One that follows another takes its place in what is saved; nothing is kept of those before.
    const std::string layout = m_window->saveLayout();
    for (int i = 0; i < 3; ++i) {
        m_bar->destroy();
        runDeletions();
        m_bar = new VXToolBar2(m_window.get());
        m_window->addToolBar(m_bar, ToolBarArea::Right);
        EXPECT_EQ(m_window->saveLayout(), layout);
    }
}

TEST_F(ToolBars, may_be_put_elsewhere_while_they_are_dragged)
{
    addAction("action");
    auto* const page = new VXPanel2(m_window.get());
    auto* const row = new VXBoxLayout2(page);
    m_window->setCentralWidget(page);
    m_window->addToolBar(new VXToolBar2(m_window.get()));
    const auto layout = m_window->saveLayout();
    const std::function<void()> moves[] = {[&] { row->addWidget(m_bar); },
                                           [&] { m_bar->setParent(page); },
                                           [&] { m_bar->setParent(nullptr); },
                                           [&] { m_window->removeToolBar(m_bar); },
                                           [&] { m_window->addToolBar(m_bar, ToolBarArea::Left); },
                                           [&] { m_window->restoreLayout(layout); },
                                           [&] { m_window->setCentralWidget(m_bar); }};
    for (const auto& move : moves) {
        m_window->addToolBar(m_bar);
        m_bar->show();
        turn();
        const QPoint handle = m_outer->mapToGlobal(QPoint(4, m_outer->height() / 2));
        const auto send = [&](QEvent::Type type, const QPoint& at, Qt::MouseButtons held) {
            const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
            QMouseEvent event(type, m_outer->mapFromGlobal(at), at, button, held, {});
            QCoreApplication::sendEvent(m_outer, &event);
        };
        send(QEvent::MouseButtonPress, handle, Qt::LeftButton);
        for (const int way : {25, 100, 200, 250}) {
            send(QEvent::MouseMove, handle + QPoint(way, way / 2), Qt::LeftButton);
            turn();
        }
        EXPECT_TRUE(m_outer->isWindow());
        move();
        EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
        send(QEvent::MouseMove, handle + QPoint(10, 10), Qt::LeftButton);
        send(QEvent::MouseButtonRelease, handle, Qt::NoButton);
        turn();
        qt(*m_window)->grab();
    }
}

TEST_F(ToolBars, let_go_of_what_is_destroyed_under_the_pointer)
{
    VXAction2* action = addAction("goes");
    VXAction2* closing = addAction("closes");
    ASSERT_TRUE(waitFor([&] { return buttonOf(action)->isVisible(); }));
    QPointer<QWidget> button = buttonOf(action);
    Pointer().moveTo(button->mapToGlobal(button->rect().center()));
    QTest::mousePress(button, Qt::LeftButton);
    action->destroy();
    runDeletions();
    EXPECT_TRUE(waitFor([&] { return !button; }));
    EXPECT_EQ(m_outer->actions().size(), 1);

    closing->triggered().connect(m_window.get(), [&] { m_bar->destroy(); });
    QTest::mouseClick(buttonOf(closing), Qt::LeftButton);
    EXPECT_TRUE(waitFor([&] { return !m_outer; }));
}

} // namespace

} // namespace VOXI
