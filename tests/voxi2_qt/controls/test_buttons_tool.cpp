// Tool buttons: their menus and actions, and what becomes of the button when those go.

#include "menusupport.h"
#include "support/qtwarnings.h"
#include "support/watchdog.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxtoolbutton2.h"
#include "voxi2/kernel/vxactiongroup2.h"

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <QToolButton>

#include <chrono>
#include <gtest/gtest.h>
#include <optional>

namespace VOXI {
namespace {

class ToolButton : public testing::Test
{
protected:
    VXPanel2 m_window;
    VXToolButton2& m_button = *new VXToolButton2(&m_window);
    QToolButton& m_qt = dynamic_cast<QToolButton&>(*qt(m_button));
    Log<VXButtonClickEvent2> m_clicks{m_button.clicked()};
    Log<VXButtonToggleEvent2> m_toggles{m_button.toggled()};
};

TEST_F(ToolButton, keepsItsMenuAndActionUntilToldOtherwise)
{
    VXMenu2 menu;
    VXAction2 action;
    action.setLabel("Bold");
    m_button.setMenu(&menu);
    m_button.setMenu(nullptr);
    EXPECT_EQ(m_button.menu(), &menu);
    m_button.clearMenu();
    EXPECT_EQ(m_button.menu(), nullptr);
    m_button.setDefaultAction(&action);
    m_button.setDefaultAction(nullptr);
    EXPECT_EQ(m_button.defaultAction(), &action);
    EXPECT_EQ(m_button.label(), "Bold");
    Log triggers(action.triggered());
    m_button.imitateClick();
    EXPECT_TRUE(triggers.takeOne());
    EXPECT_TRUE(m_clicks.takeOne());

    m_button.clearDefaultAction();
    EXPECT_EQ(m_button.defaultAction(), nullptr);
    EXPECT_TRUE(m_qt.actions().isEmpty());
    m_button.imitateClick();
    EXPECT_TRUE(triggers.isEmpty());
    EXPECT_TRUE(m_clicks.takeOne());

    // Actions and menus of the host's own are nobody's.
    QAction foreign;
    QMenu foreignMenu;
    m_qt.setDefaultAction(&foreign);
    m_qt.setMenu(&foreignMenu);
    EXPECT_EQ(m_button.defaultAction(), nullptr);
    EXPECT_EQ(m_button.menu(), nullptr);
}

TEST_F(ToolButton, showsOneActionAtATime)
{
    VXAction2 play, pause;
    Log plays(play.triggered());
    Log pauses(pause.triggered());
    m_button.setDefaultAction(&play);
    m_button.setDefaultAction(&pause);
    m_button.setDefaultAction(&pause);
    ASSERT_EQ(m_qt.actions(), QList<QAction*>{qt(pause)}) << "of two it would show a menu";
    m_window.show();
    QTest::mouseClick(&m_qt, Qt::LeftButton);
    EXPECT_TRUE(pauses.takeOne());
    EXPECT_TRUE(plays.isEmpty());
}

TEST_F(ToolButton, isQuietToItsExclusiveNeighboursAsWell)
{
    auto& other = *new VXToolButton2(&m_window);
    for (VXToolButton2* button : {&m_button, &other}) {
        button->setCheckable(true);
        button->setExclusive(true);
    }
    VXAction2 checked;
    checked.setCheckable(true);
    checked.setChecked(true);
    m_button.setChecked(true);
    other.setDefaultAction(&checked);
    EXPECT_FALSE(m_button.isChecked());
    EXPECT_TRUE(m_toggles.isEmpty());
}

TEST_F(ToolButton, isQuietWhenTheProgramChangesItsAction)
{
    VXAction2 bold;
    bold.setCheckable(true);
    bold.setChecked(true);
    m_button.setDefaultAction(&bold);
    EXPECT_TRUE(m_button.isChecked());
    bold.setChecked(false);
    EXPECT_FALSE(m_button.isChecked());
    bold.setCheckable(false);
    bold.setChecked(true);
    bold.setCheckable(true);
    EXPECT_TRUE(m_button.isChecked());
    VXActionGroup2 group;
    group.addAction(&bold);
    VXAction2 italic;
    italic.setCheckable(true);
    group.addAction(&italic);
    italic.setChecked(true);
    EXPECT_FALSE(m_button.isChecked());
    EXPECT_TRUE(m_toggles.isEmpty());

    Log actionToggles(bold.toggled());
    m_button.imitateClick();
    EXPECT_TRUE(m_toggles.takeOne());
    EXPECT_TRUE(actionToggles.takeOne());
    EXPECT_FALSE(italic.isChecked());
    qt(italic)->trigger(); // the user, elsewhere
    EXPECT_TRUE(m_toggles.takeOne());
}

TEST_F(ToolButton, isThroughWhenItsMenuIsHiddenAsItComes)
{
    VXMenu2 menu;
    menu.addAction("entry");
    m_button.setMenu(&menu);
    m_window.show();
    menu.shown().connect(&menu, &VXMenu2::hide);
    const Watchdog watchdog(std::chrono::seconds(20), "the menu's loop");
    QTest::mousePress(&m_qt, Qt::LeftButton, {}, QPoint(3, m_qt.height() / 2));
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(ToolButton, opensItsMenuAsItsModeSays)
{
    VXMenu2 menu;
    menu.addAction("entry");
    m_button.setMenu(&menu);
    QtMenu2* const qtMenu = qt(menu);
    m_window.show();
    int opened = 0;
    // The button runs an event loop of its own while its menu is open.
    QObject::connect(qtMenu, &QMenu::aboutToShow, qtMenu, [&] {
        ++opened;
        QTimer::singleShot(0, qtMenu, &QWidget::hide);
    });
    const QPoint face(3, m_qt.height() / 2);
    QTest::mouseClick(&m_qt, Qt::LeftButton, {}, face);
    EXPECT_EQ(opened, 1);
    EXPECT_TRUE(m_clicks.isEmpty());

    m_button.setPopupMode(ToolButtonPopupMode::MenuButton);
    turn();
    QTest::mouseClick(&m_qt, Qt::LeftButton, {}, face);
    EXPECT_EQ(opened, 1);
    EXPECT_TRUE(m_clicks.takeOne());
    QTest::mouseClick(&m_qt, Qt::LeftButton, {}, QPoint(m_qt.width() - 3, m_qt.height() / 2));
    EXPECT_EQ(opened, 2);
    EXPECT_TRUE(m_clicks.isEmpty());
}

/// What is destroyed while the menu of a pressed button is open.
enum class Victim { Button, Menu, Entry, Window };

class OpenToolButton : public testing::TestWithParam<Victim>
{};

TEST_P(OpenToolButton, survivesWhateverEnds)
{
    auto* window = new VXPanel2;
    auto* button = new VXToolButton2(window);
    auto* menu = new VXMenu2;
    VXAction2* entry = menu->addAction("entry");
    button->setMenu(menu);
    button->setDefaultAction(entry);
    window->show();
    const QPointer<QWidget> qtButton(qt(*button));
    const QPointer<QWidget> qtMenu(qt(*menu));
    VXObject2* const objects[] = {button, menu, entry, window};
    bool reached = false;
    QTimer::singleShot(0, qtMenu, [&] {
        reached = qtMenu->isVisible();
        delete objects[static_cast<int>(GetParam())];
        if (qtMenu)
            QTimer::singleShot(0, qtMenu, &QWidget::close);
    });
    // QToolButton cuts itself off from a menu without a look whether that is still there.
    std::optional<ExpectedQtWarning> warning;
    if (GetParam() == Victim::Menu)
        warning.emplace("QObject::disconnect: Unexpected nullptr parameter");
    QTest::mousePress(qtButton.data(), Qt::LeftButton);
    EXPECT_TRUE(reached);
    runDeletions();
    EXPECT_EQ(qtMenu.isNull(), GetParam() == Victim::Menu);
    EXPECT_EQ(qtButton.isNull(), GetParam() == Victim::Button || GetParam() == Victim::Window);
    if (GetParam() != Victim::Window)
        delete window;
    if (GetParam() != Victim::Menu)
        delete menu;
    runDeletions();
}

INSTANTIATE_TEST_SUITE_P(, OpenToolButton,
                         testing::Values(Victim::Button, Victim::Menu, Victim::Entry,
                                         Victim::Window));

} // namespace
} // namespace VOXI
