// Actions, from the abstract object to the QAction and back.

#include "support/qtwarnings.h"
#include "toolkit.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2_qt/kernel/qtaction2.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

namespace VOXI {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QtAction2& qt(const VXAction2& action) { return dynamic_cast<QtAction2&>(*lookup(&action)); }

Icon iconOf(std::uint32_t rgba)
{
    return Icon::fromPixmap(Pixmap(4, 4, std::vector<std::uint32_t>(16, rgba)));
}

class Action : public testing::Test
{
protected:
    static void pressCtrlK(const VXWidget2& in)
    {
        QTest::keyClick(VOXI::qt(in), Qt::Key_K, Qt::ControlModifier);
    }

    VXPanel2 m_window;
    VXAction2& m_action = *new VXAction2(&m_window);
    QtAction2& m_qt = qt(m_action);
    QSignalSpy m_changes{&m_qt, &QAction::changed};
    Log<VXActionTriggerEvent2> m_triggers{m_action.triggered()};
    Log<VXActionToggleEvent2> m_toggles{m_action.toggled()};
};

TEST_F(Action, isHeldByWhateverItsOwnersPeerIs)
{
    EXPECT_EQ(m_qt.parent(), VOXI::qt(m_window));
    VXAction2 below(&m_action);
    EXPECT_EQ(qt(below).parent(), &m_qt);
    VXAction2 alone;
    EXPECT_EQ(qt(alone).parent(), nullptr);
}

TEST_F(Action, textsArriveInBothWidthsAndOnlyWhenTheyChange)
{
    m_action.setLabel("Caf\xe9");
    EXPECT_EQ(m_qt.text(), QStringLiteral(u"Caf\u00e9"));
    EXPECT_EQ(m_action.toolTip(), "Caf\xe9") << "Qt's own: the label";
    m_action.setToolTip(L"\u0394");
    m_action.setStatusTip(u"\u0394");
    EXPECT_EQ(m_action.toolTip() + m_action.statusTip(), "??");
    EXPECT_EQ(m_changes.count(), 3);
    m_action.setLabel(L"Caf\u00e9");
    m_action.setToolTip(u"\u0394");
    m_action.setStatusTip(L"\u0394");
    EXPECT_EQ(m_changes.count(), 3);
}

TEST_F(Action, anAcceleratorThatIsNoneChangesNothing)
{
    m_action.setAccelerator("Ctrl+S");
    EXPECT_EQ(m_qt.shortcut(), QKeySequence(Qt::CTRL | Qt::Key_S));
    EXPECT_EQ(m_action.accelerator(), "Ctrl+S");
    m_action.setAccelerator("");
    m_action.setAccelerator("Bogus");
    EXPECT_EQ(m_action.accelerator(), "Ctrl+S");
    EXPECT_EQ(m_changes.count(), 1);
    m_action.setAccelerator("Ctrl+K, Ctrl+C");
    EXPECT_EQ(m_qt.shortcut(), QKeySequence(Qt::CTRL | Qt::Key_K, Qt::CTRL | Qt::Key_C));
}

TEST_F(Action, ofSeveralAcceleratorsTheGoodOnesStay)
{
    m_action.setAccelerators({"Ctrl+A", "Bogus", "", "F5"});
    EXPECT_THAT(m_action.accelerators(), ElementsAre("Ctrl+A", "F5"));
    EXPECT_EQ(m_action.accelerator(), "Ctrl+A");
    m_action.setAccelerators({"Bogus"});
    EXPECT_THAT(m_action.accelerators(), IsEmpty());
    EXPECT_EQ(m_action.accelerator(), "");
    m_action.setAccelerator("F5");
    m_action.clearAccelerators();
    EXPECT_TRUE(m_qt.shortcuts().isEmpty());
}

TEST_F(Action, onlyWhatTheUserDoesIsToggled)
{
    m_action.setCheckable(true);
    m_action.setChecked(true);
    EXPECT_TRUE(m_qt.isChecked());
    EXPECT_TRUE(m_action.isChecked());
    EXPECT_TRUE(m_toggles.isEmpty());

    m_action.imitateToggle(true);
    EXPECT_TRUE(m_toggles.isEmpty());
    m_action.imitateToggle(false);
    ASSERT_EQ(m_toggles.count(), 1);
    EXPECT_EQ(m_toggles.last().action(), &m_action);
    EXPECT_FALSE(m_toggles.last().isChecked());
    EXPECT_TRUE(m_triggers.isEmpty());
    m_toggles.clear();

    m_action.imitateTrigger();
    EXPECT_TRUE(m_toggles.takeOne());
    EXPECT_TRUE(m_triggers.takeOne());
    EXPECT_TRUE(m_action.isChecked());
}

TEST_F(Action, keepsItsCheckedStateAsideWhileItIsNotCheckable)
{
    m_action.setChecked(true);
    EXPECT_FALSE(m_action.isChecked());
    m_action.setCheckable(true);
    EXPECT_TRUE(m_action.isChecked());
    m_action.setCheckable(false);
    EXPECT_FALSE(m_action.isChecked());
    m_action.setChecked(false);
    m_action.setCheckable(true);
    EXPECT_FALSE(m_action.isChecked());
    EXPECT_TRUE(m_toggles.isEmpty());
}

TEST_F(Action, requestsThatChangeNothingAreNotSeen)
{
    const Icon icon = iconOf(0xff0000ff);
    m_action.setIcon(icon);
    m_action.setCheckable(true);
    EXPECT_GT(m_changes.count(), 0);
    const qint64 key = m_qt.icon().cacheKey();
    m_changes.clear();
    m_action.setIcon(iconOf(0xff0000ff));
    m_action.setCheckable(true);
    m_action.setChecked(false);
    m_action.setEnabled(true);
    m_action.setVisible(true);
    m_action.setSeparator(false);
    m_action.setAutoRepeat(true);
    m_action.setShortcutContext(ShortcutContext::Window);
    EXPECT_EQ(m_changes.count(), 0);
    EXPECT_EQ(m_qt.icon().cacheKey(), key);
    m_action.setIcon(iconOf(0x00ff00ff));
    EXPECT_NE(m_qt.icon().cacheKey(), key);
    EXPECT_EQ(m_action.icon(), iconOf(0x00ff00ff));
    EXPECT_TRUE(VXAction2().icon().isNull());
}

TEST_F(Action, aHiddenOneIsDisabled)
{
    m_action.setVisible(false);
    EXPECT_FALSE(m_qt.isVisible());
    EXPECT_FALSE(m_action.isEnabled());
    m_action.setVisible(true);
    EXPECT_TRUE(m_action.isEnabled());
    m_action.setEnabled(false);
    EXPECT_FALSE(m_qt.isEnabled());
    m_action.imitateTrigger();
    EXPECT_TRUE(m_triggers.isEmpty());
}

TEST_F(Action, isTriggeredByItsAcceleratorWhereItIsAttached)
{
    VXPanel2 field(&m_window);
    m_window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(VOXI::qt(m_window)));
    m_action.setAccelerator("Ctrl+K");
    pressCtrlK(m_window);
    EXPECT_TRUE(m_triggers.isEmpty());
    m_action.attachTo(&m_window);
    pressCtrlK(field);
    EXPECT_TRUE(m_triggers.takeOne());

    m_action.setShortcutContext(ShortcutContext::Widget);
    field.setFocusPolicy(FocusPolicy::Strong);
    field.setFocus();
    pressCtrlK(field);
    EXPECT_TRUE(m_triggers.isEmpty());
    m_action.attachTo(&field);
    pressCtrlK(field);
    EXPECT_TRUE(m_triggers.takeOne());
    m_action.detachFrom(&field);
    pressCtrlK(field);
    EXPECT_TRUE(m_triggers.isEmpty());
    m_action.attachTo(nullptr);
}

TEST_F(Action, anAmbiguousAcceleratorIsReported)
{
    VXAction2 other;
    for (VXAction2* action : {&m_action, &other}) {
        action->setAccelerator("Ctrl+K");
        action->attachTo(&m_window);
    }
    m_window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(VOXI::qt(m_window)));
    {
        ExpectedQtWarning warning("Ambiguous shortcut overload: Ctrl\\+K");
        pressCtrlK(m_window);
    }
    Log first(m_action.ambiguous());
    Log second(other.ambiguous());
    pressCtrlK(m_window);
    pressCtrlK(m_window);
    ASSERT_EQ(first.count(), 1);
    ASSERT_EQ(second.count(), 1);
    EXPECT_EQ(first.last().action(), &m_action);
    EXPECT_EQ(first.last().accelerator(), "Ctrl+K");
    EXPECT_TRUE(m_triggers.isEmpty());

    other.clearAccelerators();
    pressCtrlK(m_window);
    EXPECT_TRUE(m_triggers.takeOne());
}

TEST_F(Action, isSharedByAllThatShowIt)
{
    VXPanel2 other;
    m_action.attachTo(&m_window);
    m_action.attachTo(&other);
    EXPECT_TRUE(VOXI::qt(m_window)->actions().contains(&m_qt));
    EXPECT_TRUE(VOXI::qt(other)->actions().contains(&m_qt));
    delete &m_action;
    runDeletions();
    EXPECT_TRUE(VOXI::qt(m_window)->actions().isEmpty());
    EXPECT_TRUE(VOXI::qt(other)->actions().isEmpty());
}

TEST_F(Action, mayEndInItsOwnHandler)
{
    const QPointer<QAction> watched(&m_qt);
    VXAction2* const action = &m_action;
    TROV::Listener listener;
    action->toggled().connect(&listener, [action] { delete action; });
    action->setCheckable(true);
    watched->trigger(); // toggled comes before triggered
    EXPECT_TRUE(m_triggers.isEmpty());
    runDeletions();
    EXPECT_FALSE(watched);
}

TEST_F(Action, servesItsQtActionAfterItsObjectHasGone)
{
    delete &m_action;
    m_qt.setCheckable(true);
    m_qt.trigger();
    EXPECT_TRUE(m_qt.isChecked());
    EXPECT_TRUE(m_toggles.isEmpty());
    EXPECT_TRUE(m_triggers.isEmpty());
}

} // namespace
} // namespace VOXI
