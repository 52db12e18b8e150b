#include "../kernel/toolkit.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxsplitter2.h"
#include "voxi2/containers/vxwidgetstack2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QApplication>
#include <QStackedWidget>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

class WidgetStack : public testing::Test
{
protected:
    QStackedWidget* qtStack() const { return static_cast<QStackedWidget*>(qt(m_stack)); }

    VXPanel2 m_owner;
    VXWidgetStack2 m_stack;
    VXButton2* m_first = new VXButton2(&m_owner);
    VXButton2* m_second = new VXButton2(&m_owner);
    VXButton2* m_third = new VXButton2(&m_owner);
};

TEST_F(WidgetStack, showsOneAtATime)
{
    EXPECT_EQ(m_stack.currentWidget(), nullptr);
    EXPECT_EQ(m_stack.currentID(), -1);
    m_stack.addWidget(m_first);
    m_stack.addWidget(m_third, 99);
    m_stack.addWidget(m_second, 1);
    EXPECT_EQ(m_stack.count(), 3);
    EXPECT_EQ(m_stack.widgetID(m_third), 2);
    EXPECT_EQ(m_stack.currentWidget(), m_first);
    m_stack.raiseWidgetWithID(1);
    EXPECT_EQ(qtStack()->currentWidget(), qt(*m_second));
    m_stack.raiseWidget(m_third);
    EXPECT_EQ(m_stack.currentID(), 2);
}

TEST_F(WidgetStack, ignoresWhatIsNotInIt)
{
    m_stack.addWidget(m_first);
    m_stack.addWidget(&m_stack);
    VXButton2* const dead = m_third;
    delete m_third;
    for (VXButton2* each : {static_cast<VXButton2*>(nullptr), m_second, dead}) {
        m_stack.raiseWidget(each);
        m_stack.removeWidget(each);
        EXPECT_EQ(m_stack.widgetID(each), -1);
    }
    m_stack.raiseWidgetWithID(-1);
    m_stack.raiseWidgetWithID(1);
    EXPECT_EQ(m_stack.count(), 1);
    EXPECT_EQ(m_stack.currentWidget(), m_first);
    EXPECT_EQ(m_second->peerParent(), &m_owner);
}

TEST_F(WidgetStack, whatTheProgramDoesToPagesIsNotReported)
{
    Comings comings({m_first, m_second, m_third});
    m_stack.show();
    m_stack.addWidget(m_first);
    EXPECT_FALSE(comings.areReported()) << "the first comes into sight";
    m_stack.addWidget(m_second);
    m_stack.addWidget(m_third);
    m_stack.addWidget(m_first, 2); // another takes its place
    EXPECT_EQ(m_stack.currentWidget(), m_second);
    EXPECT_TRUE(m_second->isVisible() && !m_first->isVisible());
    EXPECT_FALSE(comings.areReported());
    m_stack.removeWidget(m_second);
    EXPECT_EQ(m_stack.currentWidget(), m_third);
    EXPECT_FALSE(comings.areReported());
    m_stack.addWidget(m_second, 0);
    m_stack.raiseWidget(m_second);
    EXPECT_FALSE(comings.areReported());
    VXSplitter2 splitter;
    splitter.addWidget(m_second);
    EXPECT_EQ(m_stack.currentWidget(), m_third);
    EXPECT_FALSE(comings.areReported());
    delete m_third;
    EXPECT_EQ(m_stack.count(), 1) << "true at once";
    runDeletions();
    EXPECT_EQ(m_stack.currentWidget(), m_first);
    EXPECT_TRUE(m_first->isVisible());
    EXPECT_FALSE(comings.areReported());
}

TEST_F(WidgetStack, theFocusThatRaisingMovesIsNotReported)
{
    m_stack.addWidget(m_first);
    m_stack.addWidget(m_second);
    m_stack.show();
    QApplication::setActiveWindow(qtStack());
    qt(*m_first)->setFocus();
    turn();
    ASSERT_TRUE(m_first->hasFocus());
    Log gained(m_second->focusGained());
    m_stack.raiseWidget(m_second);
    turn();
    EXPECT_TRUE(m_second->hasFocus());
    EXPECT_TRUE(gained.isEmpty());
}

TEST_F(WidgetStack, tellsWhenItsPageGoes)
{
    VXPanel2 owner;
    VXWidgetStack2 stack;
    const Log gone(stack.currentGone());
    std::vector<VXPanel2*> pages;
    for (int i = 0; i < 4; ++i) {
        pages.push_back(new VXPanel2(&owner));
        stack.addWidget(pages.back());
    }
    stack.addWidget(pages[0], 2); // it is the one shown
    stack.raiseWidget(pages[1]);
    stack.removeWidget(pages[1]);
    delete pages[3];
    runDeletions();
    EXPECT_TRUE(gone.isEmpty()) << "asked for, or not shown";
    VXWidget2* const shown = stack.currentWidget();
    VXWidget2* const other = shown == pages[0] ? pages[2] : pages[0];
    delete shown;
    runDeletions();
    EXPECT_EQ(gone.only().current(), other);
    EXPECT_EQ(gone.only().currentID(), 0);
    other->setParent(nullptr);
    EXPECT_EQ(gone.count(), 2);
    EXPECT_EQ(gone.last().current(), nullptr);
    EXPECT_EQ(gone.last().currentID(), -1);
    delete other;
}

} // namespace
} // namespace VOXI
