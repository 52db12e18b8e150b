#include "../kernel/toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxscrollview2.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>
#include <limits>

namespace VOXI {
namespace {

class ScrollView : public testing::Test
{
protected:
    QScrollArea* qtView() const { return static_cast<QScrollArea*>(qt(m_view)); }
    VXPoint<int> offset() const
    {
        return {qtView()->horizontalScrollBar()->value(), qtView()->verticalScrollBar()->value()};
    }

    /// A shown view of 100 by 100 over a page of 500 by 400.
    void showPage()
    {
        m_page->setMinimumSize({500, 400});
        m_view.setWidget(m_page);
        m_view.resize({100, 100});
        m_view.show();
        turn();
    }

    VXPanel2 m_owner;
    VXScrollView2 m_view;
    VXPanel2* m_page = new VXPanel2(&m_owner);
};

TEST_F(ScrollView, hasNoFrameAndNoWidgetAtFirst)
{
    EXPECT_EQ(qtView()->frameShape(), QFrame::NoFrame);
    EXPECT_EQ(qtView()->frameShadow(), QFrame::Plain);
    m_view.ensurePointVisible({10, 10});
    m_view.ensureWidgetVisible(m_page);
    m_view.scrollBy({1, 1});
    m_view.setWidget(nullptr);
    m_view.setWidget(&m_view);
    EXPECT_EQ(m_view.widget(), nullptr);
    EXPECT_FALSE(m_view.isWidgetResizable());
    qtView()->setWidget(new QWidget);
    EXPECT_EQ(m_view.widget(), nullptr) << "that is no peer";
}

TEST_F(ScrollView, letsItsWidgetGoElsewhere)
{
    showPage();
    VXScrollView2 other(&m_owner);
    other.setWidget(m_page);
    other.resize({700, 600});
    m_view.resize({200, 200});
    m_owner.show();
    turn();
    EXPECT_EQ(qt(*m_page)->size(), static_cast<QScrollArea*>(qt(other))->viewport()->size());
    auto* neverShown = new VXPanel2(&m_owner);
    m_view.hide();
    m_view.setWidget(neverShown);
    (new VXBoxLayout2(m_page))->addWidget(neverShown);
    EXPECT_EQ(m_view.widget(), nullptr);
    EXPECT_EQ(neverShown->peerParent(), m_page);
}

TEST_F(ScrollView, itsWidgetGrowsWithItButNotBelowItsHint)
{
    auto* layout = new VXBoxLayout2(m_page);
    layout->setMargins({});
    layout->addSpacer({300, 80}, false);
    m_view.setWidget(m_page);
    EXPECT_TRUE(m_view.isWidgetResizable());
    EXPECT_EQ(qt(*m_page)->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
    m_view.resize({500, 200});
    m_view.show();
    turn();
    EXPECT_EQ(m_page->position().size(), (Size<int>{500, 200}));
    EXPECT_FALSE(qtView()->horizontalScrollBar()->isVisible());
    m_view.resize({100, 200});
    turn();
    EXPECT_EQ(m_page->position().width, 300);
    EXPECT_TRUE(qtView()->horizontalScrollBar()->isVisible());

    m_view.setWidgetResizable(false);
    m_page->resize({50, 60});
    turn();
    EXPECT_EQ(m_page->position().size(), (Size<int>{50, 60}));
    m_view.setWidget(m_page);
    EXPECT_TRUE(m_view.isWidgetResizable());
}

TEST_F(ScrollView, scrollsByAndStopsAtTheEnds)
{
    showPage();
    m_view.scrollBy({10, 20});
    EXPECT_EQ(offset(), (VXPoint<int>{10, 20}));
    m_view.scrollBy({10, -5});
    EXPECT_EQ(offset(), (VXPoint<int>{20, 15}));
    constexpr int far = std::numeric_limits<int>::max();
    m_view.scrollBy({-100, far});
    EXPECT_EQ(offset(), (VXPoint<int>{0, qtView()->verticalScrollBar()->maximum()}));
    m_view.scrollBy({far, -far});
    EXPECT_EQ(offset(), (VXPoint<int>{qtView()->horizontalScrollBar()->maximum(), 0}));
}

TEST_F(ScrollView, bringsPointsAndWidgetsIntoView)
{
    auto* inner = new VXPanel2(m_page);
    inner->setPosition({300, 250, 20, 20});
    showPage();
    const int width = qtView()->viewport()->width();
    const int height = qtView()->viewport()->height();
    m_view.ensurePointVisible({200, 150}, 5, 6);
    EXPECT_EQ(offset(), (VXPoint<int>{200 - width + 5, 150 - height + 6}));
    m_view.ensureWidgetVisible(inner, 1, 2);
    EXPECT_EQ(offset(), (VXPoint<int>{320 - width + 1, 270 - height + 2}));
    const VXPoint<int> before = offset();
    VXPanel2 other;
    m_view.ensureWidgetVisible(&other);
    m_view.ensureWidgetVisible(nullptr);
    EXPECT_EQ(offset(), before);
}

TEST_F(ScrollView, tellsWhereItsUserHasScrolled)
{
    const Log scrolled(m_view.scrolled());
    showPage();
    EXPECT_EQ(m_view.scrollEnd(), (VXPoint<int>{qtView()->horizontalScrollBar()->maximum(),
                                                qtView()->verticalScrollBar()->maximum()}));
    m_view.setScrollPosition({30, std::numeric_limits<int>::max()});
    EXPECT_EQ(m_view.scrollPosition(), (VXPoint<int>{30, m_view.scrollEnd().y}));
    m_view.scrollBy({5, -5});
    m_view.ensurePointVisible({0, 0});
    m_view.setScrollPosition({400, 300});
    m_page->setMinimumSize({200, 150});
    m_view.resize({150, 120});
    turn();
    EXPECT_LT(m_view.scrollPosition().x, 400) << "there is less to scroll";
    m_view.setWidgetResizable(false);
    m_view.setScrollPosition({0, 0});
    EXPECT_TRUE(scrolled.isEmpty());

    QTest::keyClick(qtView()->verticalScrollBar(), Qt::Key_Down);
    EXPECT_EQ(scrolled.only().scrollPosition(), m_view.scrollPosition());
    EXPECT_GT(m_view.scrollPosition().y, 0);
}

TEST_F(ScrollView, hasItsBarsAsItIsToldAndGivesItsWidgetBack)
{
    showPage();
    m_view.setScrollBarPolicy(Orientation::Horizontal, ScrollBarPolicy::Never);
    m_view.setScrollBarPolicy(Orientation::Vertical, static_cast<ScrollBarPolicy>(77));
    turn();
    EXPECT_EQ(m_view.scrollBarPolicy(Orientation::Horizontal), ScrollBarPolicy::Never);
    EXPECT_EQ(m_view.scrollBarPolicy(Orientation::Vertical), ScrollBarPolicy::AsNeeded);
    EXPECT_FALSE(qtView()->horizontalScrollBar()->isVisible());
    EXPECT_TRUE(qtView()->verticalScrollBar()->isVisible());
    m_view.setScrollBarPolicy(Orientation::Horizontal, ScrollBarPolicy::Always);

    const Comings comings({m_page});
    m_view.removeWidget();
    m_view.removeWidget();
    EXPECT_EQ(m_view.widget(), nullptr);
    EXPECT_EQ(qt(*m_page)->parentWidget(), nullptr);
    EXPECT_FALSE(m_page->isVisible());
    m_view.setWidget(m_page);
    EXPECT_TRUE(m_page->isVisible());
}

} // namespace
} // namespace VOXI
