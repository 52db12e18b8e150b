#include "menusupport.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxmenubar2.h"
#include "voxi2_qt/controls/qtmenubar2.h"

#include <QMainWindow>
#include <QScreen>
#include <QSignalSpy>
#include <QWindow>

#include <limits>

namespace VOXI {

namespace {

class Menus : public MenuTest
{};

TEST_F(Menus, show_what_they_are_given_in_its_order)
{
    VXMenu2 menu;
    VXAction2 first;
    menu.addAction(&first);
    menu.addSeparator();
    VXMenu2 more;
    menu.addMenu(std::string("Caf\xe9\0hidden", 11), &more);
    VXAction2* own = menu.addAction(L"Own \x03a9");
    const QList<QAction*> actions = qt(menu)->actions();
    ASSERT_EQ(actions.size(), 4);
    EXPECT_EQ(actions[0], qt(first));
    EXPECT_TRUE(actions[1]->isSeparator());
    EXPECT_EQ(actions[2], qt(more)->menuAction());
    EXPECT_EQ(actions[2]->text(), QStringLiteral(u"Caf\u00e9"));
    EXPECT_EQ(actions[3]->text(), QStringLiteral(u"Own \u03a9"));
    EXPECT_EQ(own->parent(), &menu);

    more.setActionEnabled(false);
    EXPECT_FALSE(actions[2]->isEnabled() || more.isActionEnabled());

    menu.addAction(&first); // moves to the end
    EXPECT_EQ(qt(menu)->actions().last(), qt(first));
    menu.removeAction(&first);
    menu.removeMenu(&more);
    menu.addMenu("itself", &menu);
    menu.addAction(static_cast<VXAction2*>(nullptr));
    menu.addMenu("none", nullptr);
    EXPECT_EQ(menu.count(), 2);
}

TEST_F(Menus, survive_clicks_and_parents_that_a_user_could_not_give)
{
    VXMenu2 menu;
    VXAction2* const entry = menu.addAction("entry");
    menu.addAction("other");
    menu.popup(0, 0);
    menu.hide();
    const QRect place = qt(menu)->actionGeometry(qt(*entry));
    // Of a hidden menu Qt keeps the places of entries that have gone.
    menu.destroyItems();
    runDeletions();
    for (const WidgetEvent type :
         {WidgetEvent::MousePress, WidgetEvent::MouseMove, WidgetEvent::MouseRelease})
        menu.imitateMouse(type, {&menu,
                                 type,
                                 {place.center().x(), place.center().y()},
                                 {},
                                 MouseButton::Left,
                                 MouseButton::Left,
                                 {}});
    EXPECT_EQ(qt(menu)->activeAction(), nullptr);

    VXPanel2 panel;
    (new VXBoxLayout2(&menu))->addWidget(&panel);
    ASSERT_EQ(qt(panel)->parentWidget(), qt(menu));
    menu.setParent(&panel); // which lies in it
    EXPECT_EQ(qt(menu)->parentWidget(), nullptr);
    menu.setParent(nullptr);
}

TEST_F(Menus, may_be_hidden_while_they_open_another)
{
    for (const bool early : {true, false}) {
        VXMenu2 menu;
        VXMenu2 inner;
        inner.addAction("entry");
        menu.addMenu("inner", &inner);
        menu.popup(0, 0);
        TROV::Listener listener;
        const auto hide = [&] { menu.hide(); };
        if (early)
            inner.aboutToShow().connect(&listener, hide);
        else
            inner.shown().connect(&listener, hide);
        qt(menu)->setActiveAction(qt(inner)->menuAction()); // opens it at once
        EXPECT_FALSE(qt(menu)->isVisible());
        EXPECT_TRUE(waitFor([&] { return !qt(inner)->isVisible(); }));
        menu.popup(0, 0);
        EXPECT_TRUE(qt(menu)->isVisible());
        menu.hide();
    }
}

/// A handler's event loop brings them; Qt would write to the sub-menu that it has closed.
TEST_F(Menus, wait_for_clicks_until_another_has_opened)
{
    VXMenu2 menu;
    VXMenu2 inner;
    inner.addAction("entry");
    menu.addMenu("inner", &inner);
    menu.addAction("other");
    menu.popup(0, 0);
    TROV::Listener listener;
    inner.shown().connect(&listener, [&] {
        QTest::mouseClick(qt(menu), Qt::LeftButton, {}, {-50, -50});
        QTest::mouseClick(qt(inner), Qt::LeftButton, {}, {-50, -50});
        QTest::keyClick(qt(menu), Qt::Key_Down);
        QTest::keyClick(qt(inner), Qt::Key_Escape);
    });
    qt(menu)->setActiveAction(qt(inner)->menuAction());
    EXPECT_TRUE(qt(inner)->isVisible());
    QTest::keyClick(qt(inner), Qt::Key_Escape);
    EXPECT_FALSE(qt(inner)->isVisible());
    EXPECT_TRUE(qt(menu)->isVisible());
}

TEST_F(Menus, keep_their_own_actions_alive_when_cleared_until_they_are_destroyed)
{
    VXMenu2 menu;
    const VXHandle<VXAction2> own = menu.addAction("own");
    const VXHandle<VXMenu2> sub = new VXMenu2(&menu);
    menu.addMenu("sub", sub.get());
    menu.clear();
    EXPECT_EQ(menu.count(), 0);
    menu.addAction(own.get());
    EXPECT_EQ(menu.count(), 1);
    EXPECT_EQ(own->label(), "own");
    menu.destroyItems();
    runDeletions();
    EXPECT_EQ(menu.count(), 0);
    EXPECT_FALSE(own.isValid());
    EXPECT_FALSE(sub.isValid());
}

TEST_F(Menus, pop_up_at_whole_pixels_and_reopen_when_they_are_open)
{
    QSignalSpy shows(m_top, &QMenu::aboutToShow);
    QSignalSpy hides(m_top, &QMenu::aboutToHide);
    m_menu->popup(10.9, -0.5);
    EXPECT_TRUE(m_menu->isVisible());
    EXPECT_EQ(m_top->pos(), QPoint(10, 0));
    m_menu->popup(30.2, 40.7);
    EXPECT_EQ(m_top->pos(), QPoint(30, 40));
    EXPECT_EQ(shows.count(), 2);
    EXPECT_EQ(hides.count(), 1);
}

TEST_F(Menus, cut_fractions_off_below_zero_as_well)
{
    // Qt moves a menu onto the screen, so that -1 would look like 0; but one that opens within
    // three pixels of the pointer, and reads from the right, ends there.
    m_top->setLayoutDirection(Qt::RightToLeft);
    const QPoint pointer(500, 2);
    QCursor::setPos(pointer);
    m_menu->popup(500, -0.5);
    EXPECT_EQ(m_top->pos(), QPoint(pointer.x() - m_top->width(), 0));
    m_menu->hide();
}

TEST_F(Menus, open_on_the_screen_whatever_position_is_asked_for)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    const QRect area = m_top->screen()->geometry();
    for (const double x : {nan, infinite, -infinite, 1e300, -3e9}) {
        m_menu->popup(x, 20);
        EXPECT_TRUE(area.contains(m_top->geometry())) << x;
        m_menu->popup(20, x);
        EXPECT_TRUE(area.contains(m_top->geometry())) << x;
        // Far out is out on the same side.
        EXPECT_EQ(m_top->y() > area.center().y(), x > 0) << x;
    }
}

TEST_F(Menus, are_not_put_into_menus_that_they_hold)
{
    VXMenu2 a, b, c;
    a.addMenu("b", &b);
    b.addMenu("c", &c);
    a.addMenu("c", &c); // twice is no circle
    EXPECT_EQ(a.count(), 2);
    b.addMenu("a", &a);
    c.addMenu("a", &a);
    c.addMenu(L"b", &b);
    EXPECT_EQ(b.count(), 1);
    EXPECT_EQ(c.count(), 0);
    EXPECT_EQ(b.titleU(), L"b");
    // Qt would follow them for ever in search of it.
    VXAction2* action = c.addAction("x");
    action->setAccelerator("Ctrl+J");
    Log triggers(action->triggered());
    auto* bar = new VXMenuBar2(m_window.get());
    bar->addMenu("a", &a);
    m_window->setMenuBar(bar);
    m_window->setActiveWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(qt(*m_window)));
    QTest::keyClick(qt(*m_window), Qt::Key_J, Qt::ControlModifier);
    EXPECT_TRUE(triggers.takeOne());
    a.removeMenu(&b);
    b.addMenu("a", &a); // no longer
    EXPECT_EQ(b.count(), 2);
}

TEST_F(Menus, make_way_for_a_window_that_their_closing_handler_shows)
{
    for (const bool refuses : {false, true}) {
        VXWindow2 shown;
        VXMenu2 menu;
        menu.addAction("entry");
        int asked = 0;
        menu.closing().connect(&menu, [&](const VXCloseEvent2& event) {
            ++asked;
            shown.show();
            if (refuses)
                event.refuse();
        });
        menu.popup(50, 50);
        qt(menu)->close();
        EXPECT_EQ(asked, 1);
        EXPECT_TRUE(shown.isVisible());
        EXPECT_FALSE(menu.isVisible());
    }
}

TEST_F(Menus, serve_as_context_menus_instead_of_the_widget_s_own)
{
    auto* panel = new VXPanel2(m_window.get());
    VXMenu2 other;
    m_menu->setContextMenuOf(panel);
    m_menu->setContextMenuOf(panel); // still one
    QSignalSpy shows(m_top, &QMenu::aboutToShow);
    panel->imitateContextMenu({5, 6}, {105, 106});
    EXPECT_EQ(m_top->pos(), QPoint(105, 106));
    EXPECT_EQ(shows.count(), 1);
    m_menu->hide();
    m_menu->unsetContextMenuOf(panel);
    panel->imitateContextMenu({5, 6}, {105, 106});
    EXPECT_FALSE(m_menu->isVisible());
    EXPECT_FALSE(panel->isEventConsumed(WidgetEvent::ContextMenu));
    // Neither end outliving the other is a problem.
    m_menu->setContextMenuOf(panel);
    panel->destroy();
    m_menu->setContextMenuOf(panel);
}

TEST_F(Menus, stay_menus_when_they_change_their_parent)
{
    VXMenu2 menu;
    menu.setParent(m_window.get());
    EXPECT_TRUE(qt(menu)->isWindow());
    menu.setParent(nullptr);
    EXPECT_EQ(qt(menu)->windowType(), Qt::Popup);
}

TEST_F(Menus, hang_in_the_menu_bar_of_a_window)
{
    auto* bar = new VXMenuBar2(m_window.get());
    bar->addMenu("&File\xb7", m_menu);
    VXMenu2 edit;
    bar->addMenu(L"&Edit \x4e2d", &edit);
    m_window->setMenuBar(bar);
    EXPECT_TRUE(bar->isVisible());
    auto* widget = dynamic_cast<QMenuBar*>(qt(*bar));
    ASSERT_EQ(widget->actions().size(), 2);
    EXPECT_EQ(widget->actions()[0]->text(), QStringLiteral(u"&File\u00b7"));
    EXPECT_EQ(edit.titleU(), L"&Edit \x4e2d");

    m_window->setMenuBar(new VXMenuBar2(m_window.get()));
    runDeletions();
    EXPECT_FALSE(bar->isVisible());
    bar->removeMenu(&edit);
    EXPECT_EQ(widget->actions().size(), 1);
    bar->clear();
    EXPECT_TRUE(widget->actions().isEmpty());
    m_window->setMenuBar(bar);
    EXPECT_TRUE(bar->isVisible());
}

TEST_F(Menus, may_be_hidden_as_they_open_from_the_menu_bar)
{
    auto* const bar = new VXMenuBar2(m_window.get());
    m_menu->addAction("entry");
    bar->addMenu("&File", m_menu);
    m_window->setMenuBar(bar);
    m_window->setActiveWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(qt(*m_window)));
    Log shown(m_menu->shown());
    m_menu->shown().connect(m_menu, &VXMenu2::hide);
    QTest::keyClick(qt(*m_window)->windowHandle(), Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(shown.count(), 1);
    EXPECT_FALSE(m_menu->isVisible());
    turn();
    EXPECT_EQ(dynamic_cast<QMenuBar*>(qt(*bar))->activeAction(), nullptr);
}

TEST_F(Menus, let_go_of_what_is_destroyed_while_it_is_used)
{
    // Each while the menu is open, the entry active and the button down on it.
    const auto hold = [&](QAction* action) {
        m_menu->popup(20, 20);
        m_top->setActiveAction(action);
        QTest::mousePress(m_top, Qt::LeftButton, {}, m_top->actionGeometry(action).center());
    };
    const auto letGo = [&] {
        runDeletions();
        if (m_top) {
            QTest::mouseRelease(m_top, Qt::LeftButton, {}, QPoint(8, 8));
            m_top->hide();
        }
    };
    auto* action = new VXAction2(m_window.get());
    m_menu->addAction(action);
    hold(qt(*action));
    action->destroy();
    letGo();
    hold(m_sub->menuAction());
    m_dig->destroy();
    letGo();
    EXPECT_EQ(m_menu->count(), 9);
    hold(entry(0));
    m_menu->destroy();
    letGo();
    EXPECT_FALSE(m_top);
}

TEST_F(Menus, may_be_destroyed_by_the_handler_of_their_own_entry)
{
    VXAction2* action = m_menu->addAction("Close everything");
    action->triggered().connect(m_window.get(), [&] { m_menu->destroy(); });
    m_menu->popup(20, 20);
    QTest::mouseClick(m_top, Qt::LeftButton, {}, m_top->actionGeometry(qt(*action)).center());
    EXPECT_TRUE(waitFor([&] { return !m_top; }));
}

} // namespace

} // namespace VOXI
