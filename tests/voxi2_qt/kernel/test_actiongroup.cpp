// Groups of actions of which one is checked.

#include "toolkit.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/kernel/vxactiongroup2.h"

#include <QAction>
#include <QActionGroup>

#include <gmock/gmock.h>

namespace VOXI {
namespace {

using testing::ElementsAre;

QAction* qt(const VXAction2& action) { return dynamic_cast<QAction*>(qObjectOf(lookup(&action))); }

class ActionGroup : public testing::Test
{
protected:
    ActionGroup()
    {
        for (VXAction2* action : {&m_left, &m_centre, &m_right}) {
            action->setCheckable(true);
            m_group.addAction(action);
        }
    }

    VXActionGroup2 m_group;
    VXAction2 m_left;
    VXAction2 m_centre;
    VXAction2 m_right;
    Log<VXActionToggleEvent2> m_leftToggles{m_left.toggled()};
    Log<VXActionToggleEvent2> m_rightToggles{m_right.toggled()};
};

TEST_F(ActionGroup, whatTheProgramChecksStaysQuiet)
{
    EXPECT_EQ(m_group.checkedAction(), nullptr);
    m_left.setChecked(true);
    m_right.setChecked(true);
    EXPECT_FALSE(m_left.isChecked());
    EXPECT_EQ(m_group.checkedAction(), &m_right);
    EXPECT_TRUE(m_leftToggles.isEmpty() && m_rightToggles.isEmpty());

    // The user's next choice starts from there.
    qt(m_centre)->trigger();
    EXPECT_EQ(m_group.checkedAction(), &m_centre);
    EXPECT_FALSE(m_right.isChecked());
    EXPECT_TRUE(m_rightToggles.takeOne());
    EXPECT_TRUE(m_leftToggles.isEmpty());
    qt(m_centre)->trigger();
    EXPECT_TRUE(m_centre.isChecked());
}

TEST_F(ActionGroup, hasAnExclusionThatCanBeChanged)
{
    EXPECT_EQ(m_group.exclusion(), ActionExclusion::Exclusive);
    m_left.setChecked(true);
    m_group.setExclusion(ActionExclusion::ExclusiveOptional);
    qt(m_left)->trigger();
    EXPECT_EQ(m_group.checkedAction(), nullptr);
    m_group.setExclusion(ActionExclusion::None);
    m_left.setChecked(true);
    m_right.setChecked(true);
    EXPECT_TRUE(m_left.isChecked());
    EXPECT_TRUE(m_right.isChecked());
    EXPECT_FALSE(qt(m_left)->actionGroup()->isExclusive());
    // Menus show the one as a choice, the other as boxes to tick.
    m_group.setExclusion(ActionExclusion::Exclusive);
    EXPECT_TRUE(qt(m_left)->actionGroup()->isExclusive());
}

TEST_F(ActionGroup, unchecksAllThatWereCheckedBeforeItWasExclusive)
{
    for (const bool byUser : {false, true}) {
        m_group.setExclusion(ActionExclusion::None);
        m_centre.setChecked(false);
        m_left.setChecked(true);
        m_right.setChecked(true);
        m_group.setExclusion(ActionExclusion::Exclusive);
        EXPECT_TRUE(m_left.isChecked() && m_right.isChecked()) << "until the next choice";
        EXPECT_TRUE(m_leftToggles.isEmpty() && m_rightToggles.isEmpty());
        if (byUser)
            qt(m_centre)->trigger();
        else
            m_centre.setChecked(true);
        EXPECT_EQ(m_leftToggles.takeOne(), byUser);
        EXPECT_EQ(m_rightToggles.takeOne(), byUser);
        EXPECT_FALSE(m_left.isChecked() || m_right.isChecked());
        EXPECT_EQ(m_group.checkedAction(), &m_centre);
    }
}

TEST_F(ActionGroup, staysWithItsCheckedActionUntilAnotherShowsThatItIs)
{
    m_left.setChecked(true);
    m_right.setCheckable(false);
    m_right.setChecked(true); // remembered, not shown
    EXPECT_TRUE(m_left.isChecked());
    m_right.setCheckable(true);
    EXPECT_TRUE(m_right.isChecked());
    EXPECT_FALSE(m_left.isChecked());
    EXPECT_TRUE(m_leftToggles.isEmpty());
    EXPECT_TRUE(m_rightToggles.isEmpty());
    qt(m_centre)->trigger();
    EXPECT_TRUE(m_rightToggles.takeOne());
}

TEST_F(ActionGroup, anActionIsInOneGroupAtMost)
{
    EXPECT_THAT(m_group.actions(), ElementsAre(&m_left, &m_centre, &m_right));
    VXActionGroup2 other;
    other.addAction(&m_left);
    other.addAction(&m_left);
    EXPECT_EQ(m_left.group(), &other);
    EXPECT_THAT(other.actions(), ElementsAre(&m_left));
    EXPECT_THAT(m_group.actions(), ElementsAre(&m_centre, &m_right));
    m_left.setChecked(true);
    m_right.setChecked(true);
    EXPECT_TRUE(m_left.isChecked());

    m_group.addAction(&m_left); // the newcomer is the one
    EXPECT_EQ(m_group.checkedAction(), &m_left);
    EXPECT_FALSE(m_right.isChecked());
    m_group.removeAction(&m_left);
    EXPECT_EQ(m_left.group(), nullptr);
    EXPECT_EQ(qt(m_left)->actionGroup(), nullptr);
    m_right.setChecked(true);
    EXPECT_TRUE(m_left.isChecked());
    m_group.removeAction(&m_left);
    m_group.addAction(nullptr);
    EXPECT_THAT(m_group.actions(), ElementsAre(&m_centre, &m_right));
}

TEST_F(ActionGroup, switchesAllItsActions)
{
    m_group.setEnabled(false);
    EXPECT_FALSE(m_left.isEnabled() || m_right.isEnabled());
    m_group.setEnabled(true);
    m_group.setVisible(false);
    EXPECT_FALSE(m_left.isVisible() || m_right.isVisible());
}

TEST_F(ActionGroup, outlivesItsActionsAndTheyIt)
{
    VXActionGroup2* const group = new VXActionGroup2;
    auto* owned = new VXAction2(group);
    owned->setCheckable(true);
    group->addAction(owned);
    group->addAction(&m_left);
    owned->setChecked(true);
    m_left.setChecked(true);
    EXPECT_FALSE(owned->isChecked());
    owned->setChecked(true);
    delete owned;
    runDeletions();
    EXPECT_THAT(group->actions(), ElementsAre(&m_left));
    EXPECT_EQ(group->checkedAction(), nullptr);
    m_left.setChecked(true);
    delete group;
    EXPECT_EQ(m_left.group(), nullptr);
    EXPECT_EQ(qt(m_left)->actionGroup(), nullptr);
    qt(m_left)->trigger();
    EXPECT_FALSE(m_left.isChecked());
}

} // namespace
} // namespace VOXI
