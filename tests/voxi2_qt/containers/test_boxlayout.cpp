#include "../kernel/toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2_qt/containers/qtlayout2.h"

#include <QBoxLayout>
#include <QPointer>

#include <gtest/gtest.h>
#include <limits>

namespace VOXI {
namespace {

class BoxLayout : public ::testing::Test
{
protected:
    QBoxLayout* qtLayout() const { return qobject_cast<QBoxLayout*>(qt(m_panel)->layout()); }

    VXPanel2 m_panel;
    VXBoxLayout2* m_layout = new VXBoxLayout2(&m_panel, Direction::LeftToRight);
    VXText2* m_first = new VXText2(&m_panel);
    VXText2* m_second = new VXText2(&m_panel);
};

TEST_F(BoxLayout, goesInTheDirectionItWasMadeWith)
{
    EXPECT_EQ(qtLayout()->direction(), QBoxLayout::LeftToRight);
    VXPanel2 other;
    auto* const upwards = new VXBoxLayout2(&other, Direction::BottomToTop);
    EXPECT_EQ(static_cast<QBoxLayout*>(qt(other)->layout())->direction(), QBoxLayout::BottomToTop);
    upwards->setEnabled(false);
    EXPECT_FALSE(upwards->isEnabled() || qt(other)->layout()->isEnabled());
}

TEST_F(BoxLayout, placesWidgetsWhereTheyAreToGo)
{
    m_layout->addWidget(m_second, 3, AlignmentFlag::Top);
    m_layout->insertWidget(m_first, 0, 1);
    ASSERT_EQ(qtLayout()->count(), 2);
    EXPECT_EQ(qtLayout()->itemAt(0)->widget(), qt(*m_first));
    EXPECT_EQ(qtLayout()->itemAt(1)->widget(), qt(*m_second));
    EXPECT_EQ(qtLayout()->itemAt(1)->alignment(), Qt::AlignTop);
    EXPECT_EQ(qtLayout()->stretch(0), 1);
    EXPECT_EQ(qtLayout()->stretch(1), 3);

    m_layout->setStretchFactor(m_first, 5);
    EXPECT_EQ(qtLayout()->stretch(0), 5);
    m_layout->removeWidget(m_first);
    EXPECT_EQ(qtLayout()->count(), 1);
    EXPECT_EQ(qt(*m_first)->parentWidget(), qt(m_panel)) << "it stays where it is";
    m_layout->addWidget(m_first, 1);
    m_layout->insertWidget(m_second, 2); // which is beyond the end without it
    ASSERT_EQ(qtLayout()->count(), 2);
    EXPECT_EQ(qtLayout()->itemAt(1)->widget(), qt(*m_second));
}

TEST_F(BoxLayout, spacersAreFixedOrGrow)
{
    m_layout->insertSpacer(-1, 20, 0);
    m_layout->insertSpacer(-1, 20, 2);
    m_layout->addSpacer({7, 8}, false);
    m_layout->addSpacer({7, 8}, true);
    m_layout->addSpacing(20);
    m_layout->addStretch(2);
    const Qt::Orientations everywhere = Qt::Horizontal | Qt::Vertical;
    const struct
    {
        QSize m_size;
        int m_stretch;
        Qt::Orientations m_expanding;
    } expected[] = {{{20, 0}, 0, {}}, {{0, 0}, 2, Qt::Horizontal},
                    {{7, 8}, 0, {}},  {{7, 8}, 0, everywhere},
                    {{20, 0}, 0, {}}, {{0, 0}, 2, Qt::Horizontal}};
    ASSERT_EQ(qtLayout()->count(), 6);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(qtLayout()->itemAt(i)->sizeHint(), expected[i].m_size) << i;
        EXPECT_EQ(qtLayout()->stretch(i), expected[i].m_stretch) << i;
        EXPECT_EQ(qtLayout()->itemAt(i)->expandingDirections(), expected[i].m_expanding) << i;
    }
}

TEST_F(BoxLayout, laysOutAtOnceOrWhenTheProgramIsIdle)
{
    m_panel.resize({200, 50});
    m_layout->setMargins({});
    m_layout->addWidget(m_first);
    m_panel.show();
    m_first->setMinimumSize({150, 20});
    m_layout->refresh();
    EXPECT_GE(m_first->position().width, 150);
    const VXRect<int> place = m_first->position();
    turn();
    m_first->moveTo({7, 8});
    m_layout->invalidate();
    EXPECT_NE(m_first->position(), place);
    turn();
    EXPECT_EQ(m_first->position(), place) << "laid out when the program is idle";
}

TEST_F(BoxLayout, staysWhereItIsIfItCannotMove)
{
    m_layout->addWidget(m_first);
    VXPanel2 other;
    const VXBoxLayout2 present(&other);
    VXAction2 noWidget;
    auto* const dead = new VXPanel2;
    delete dead;
    for (VXObject2* parent :
         std::initializer_list<VXObject2*>{&other, m_first, &noWidget, dead, nullptr}) {
        m_layout->setParent(parent);
        static_cast<VXObject2*>(m_layout)->setParent(parent);
        EXPECT_EQ(m_layout->parent(), &m_panel);
        EXPECT_EQ(m_layout->peerParent(), &m_panel);
        EXPECT_EQ(m_first->peerParent(), &m_panel);
    }
    EXPECT_EQ(qt(other)->layout(), qObjectOf(lookup(&present)));
}

TEST_F(BoxLayout, aloneItKnowsItsItemsAsWell)
{
    VXPanel2 other; // which will own it
    VXBoxLayout2& alone = *new VXBoxLayout2;
    QLayout* const qtAlone = QtLayout2::asQLayout(lookup(&alone));
    auto* brief = new VXText2(&m_panel);
    alone.addWidget(brief);
    alone.addWidget(m_first);
    alone.addWidget(m_second, 1);
    alone.addWidget(m_first, 2);
    EXPECT_EQ(qtAlone->count(), 3);
    EXPECT_EQ(qtAlone->itemAt(2)->widget(), qt(*m_first)) << "it moved to the end";
    delete brief;
    runDeletions();
    EXPECT_EQ(qtAlone->count(), 2);
    alone.removeWidget(m_second);
    alone.setParent(&other);
    EXPECT_EQ(m_first->peerParent(), &other);
    EXPECT_EQ(m_second->peerParent(), &m_panel);
}

TEST_F(BoxLayout, holdsALayout)
{
    m_panel.show();
    auto* const line = new VXBoxLayout2(&m_panel); // which has a layout
    VXPanel2 elsewhere;
    m_first->setParent(&elsewhere);
    line->addWidget(m_first);
    m_layout->addWidget(m_second);
    m_layout->addLayout(line, 2);
    ASSERT_EQ(qtLayout()->count(), 2);
    EXPECT_EQ(qtLayout()->itemAt(1)->layout(), qObjectOf(lookup(line)));
    EXPECT_EQ(qtLayout()->stretch(1), 2);
    EXPECT_EQ(line->parent(), m_layout);
    EXPECT_EQ(line->peerParent(), m_layout);
    EXPECT_EQ(m_first->peerParent(), &m_panel);
    turn();
    EXPECT_TRUE(m_first->isVisible());
    EXPECT_GT(qt(*m_first)->x(), qt(*m_second)->x());

    // It stays there, and goes along.
    VXPanel2 other;
    line->setParent(&other);
    VXBoxLayout2 second(&other);
    second.addLayout(line);
    EXPECT_EQ(line->parent(), m_layout);
    EXPECT_EQ(qtLayout()->count(), 2);
    VXPanel2 third;
    m_layout->setParent(&third);
    EXPECT_EQ(m_first->peerParent(), &third);
    line->addWidget(m_second);
    delete m_first;
    runDeletions();
    EXPECT_EQ(QtLayout2::asQLayout(lookup(line))->count(), 1);
}

TEST_F(BoxLayout, layoutsInLayoutsEndInAnyOrder)
{
    for (const bool withWidget : {true, false}) {
        auto* const outer = withWidget ? m_layout : new VXBoxLayout2;
        const QPointer<QLayout> qtOuter = QtLayout2::asQLayout(lookup(outer));
        auto* const line = new VXBoxLayout2(outer);
        auto* const grid = new VXGridLayout2;
        line->addWidget(m_first);
        grid->addWidget(m_second, 0, 0);
        outer->addLayout(line);
        line->addLayout(grid);
        EXPECT_EQ(grid->parent(), line);
        delete line;
        EXPECT_FALSE(VXObject::isObjectValid(grid));
        runDeletions();
        EXPECT_EQ(qtOuter->count(), 0);

        auto* const inner = new VXBoxLayout2;
        auto* const brief = new VXText2(&m_panel);
        inner->addWidget(m_first);
        inner->addWidget(brief);
        outer->addLayout(inner);
        delete brief;
        runDeletions();
        EXPECT_EQ(QtLayout2::asQLayout(lookup(inner))->count(), 1);
        delete outer;
        EXPECT_FALSE(VXObject::isObjectValid(inner));
        runDeletions();
        EXPECT_TRUE(qtOuter.isNull());
        EXPECT_EQ(qt(*m_first)->parentWidget(), qt(m_panel));
    }
}

TEST_F(BoxLayout, refusesLayoutsThatCannotLieInIt)
{
    VXPanel2 other;
    VXBoxLayout2 filling(&other);
    auto* const dead = new VXBoxLayout2;
    delete dead;
    // The widget around would come to lie in itself.
    VXPanel2 outside;
    m_panel.setParent(&outside);
    VXBoxLayout2 around;
    VXBoxLayout2 deeper;
    deeper.addWidget(&outside);
    around.addLayout(&deeper);
    for (VXLayout2* each :
         std::initializer_list<VXLayout2*>{nullptr, dead, m_layout, &filling, &around})
        m_layout->addLayout(each);
    EXPECT_EQ(qtLayout()->count(), 0);
    EXPECT_EQ(filling.parent(), &other);
    EXPECT_EQ(around.parent(), nullptr);
    around.setParent(&m_panel);
    EXPECT_EQ(around.parent(), nullptr);
    deeper.addLayout(&around);
    EXPECT_EQ(around.parent(), nullptr);
    m_panel.setParent(nullptr);
}

TEST_F(BoxLayout, isChangedAndAskedAfterwards)
{
    VXPanel2 page;
    auto* const row = new VXBoxLayout2(&page);
    auto* const first = new VXText2("first", &page);
    auto* const second = new VXText2("second", &page);
    auto* const inner = new VXBoxLayout2;
    row->addWidget(first);
    row->addStretch();
    row->addLayout(inner);
    row->addWidget(second);
    EXPECT_EQ(row->count(), 4);
    EXPECT_EQ(row->widgetAt(0), first);
    EXPECT_EQ(row->itemAt(1), nullptr);
    EXPECT_EQ(row->itemAt(2), inner);
    EXPECT_EQ(row->widgetAt(2), nullptr);
    for (const int nowhere : {-1, 4, std::numeric_limits<int>::max()})
        EXPECT_EQ(row->itemAt(nowhere), nullptr);
    EXPECT_EQ(row->indexOf(second), 3);
    EXPECT_EQ(row->indexOf(inner), 2);
    for (VXObject* other : {static_cast<VXObject*>(nullptr), static_cast<VXObject*>(&page)})
        EXPECT_EQ(row->indexOf(other), -1);

    page.resize({400, 300});
    page.show();
    turn();
    ASSERT_EQ(qt(*second)->height(), page.contentsRect().height - 2 * row->margins().marginTop());
    row->setAlignment(second, AlignmentFlag::Bottom | AlignmentFlag::Right);
    EXPECT_EQ(row->alignment(second), AlignmentFlag::Bottom | AlignmentFlag::Right);
    row->setAlignment(&page, AlignmentFlag::Top);
    EXPECT_EQ(row->alignment(&page), Alignment());
    row->refresh();
    EXPECT_EQ(qt(*second)->height(), qt(*second)->sizeHint().height());
    row->setDirection(Direction::BottomToTop);
    row->refresh();
    EXPECT_GT(qt(*first)->y(), qt(*second)->y());
    row->setDirection(static_cast<Direction>(77));
    EXPECT_EQ(row->direction(), Direction::LeftToRight);
}

} // namespace
} // namespace VOXI
