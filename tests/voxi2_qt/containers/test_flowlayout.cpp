#include "../kernel/toolkit.h"
#include "voxi2/containers/vxflowlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2_qt/containers/qtlayout2.h"

#include <QLayout>

#include <gtest/gtest.h>
#include <limits>
#include <memory>

namespace VOXI {
namespace {

/// An item of a fixed size that notes where it is put.
class Item : public QLayoutItem
{
public:
    explicit Item(const QSize& size) : m_size(size) { ++s_alive; }
    ~Item() override { --s_alive; }

    QSize sizeHint() const override { return m_size; }
    QSize minimumSize() const override { return m_size; }
    QSize maximumSize() const override { return m_size; }
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    void setGeometry(const QRect& rect) override { m_geometry = rect; }
    QRect geometry() const override { return m_geometry; }
    bool isEmpty() const override { return false; }

    static inline int s_alive = 0;

private:
    QSize m_size;
    QRect m_geometry;
};

const std::vector<QSize> s_sizes = {{30, 10}, {50, 20}, {20, 15}, {40, 5}, {60, 10}};

/// For the messages of failed tests.
std::string text(const std::vector<QPoint>& points)
{
    std::string result;
    for (const QPoint& point : points)
        result += "(" + std::to_string(point.x()) + ", " + std::to_string(point.y()) + ") ";
    return result;
}

struct Flow
{
    explicit Flow(Direction direction, const std::vector<QSize>& sizes = s_sizes, int spacing = 4)
        : m_layout(nullptr, direction)
    {
        m_layout.setSpacing(spacing);
        for (const QSize& size : sizes)
            m_qt->addItem(new Item(size));
    }

    std::vector<QPoint> positionsIn(const QRect& rect) const
    {
        m_qt->setGeometry(rect);
        std::vector<QPoint> result;
        for (int i = 0; i < m_qt->count(); ++i) {
            EXPECT_EQ(m_qt->itemAt(i)->geometry().size(), m_qt->itemAt(i)->sizeHint());
            result.push_back(m_qt->itemAt(i)->geometry().topLeft());
        }
        return result;
    }

    VXFlowLayout2 m_layout;
    QLayout* m_qt = QtLayout2::asQLayout(lookup(&m_layout));
};

struct Row
{
    Direction m_direction;
    int m_length; // of the rectangle along the lines
    std::vector<QPoint> m_positions;
    QSize m_size;
};

// Worked out by hand for the items above, 4 pixels between them, in a rectangle from (10, 20).
const std::vector<Row> s_table = {
    // An item must end before the last pixel: the first two are 84 wide together.
    {Direction::LeftToRight, 300, {{10, 20}, {44, 20}, {98, 20}, {122, 20}, {166, 20}}, {156, 20}},
    {Direction::LeftToRight, 100, {{10, 20}, {44, 20}, {10, 44}, {34, 44}, {10, 63}}, {99, 53}},
    {Direction::LeftToRight, 85, {{10, 20}, {44, 20}, {10, 44}, {34, 44}, {10, 63}}, {84, 53}},
    {Direction::LeftToRight, 84, {{10, 20}, {10, 34}, {64, 34}, {10, 58}, {10, 67}}, {83, 57}},
    {Direction::LeftToRight, 20, {{10, 20}, {10, 34}, {10, 58}, {10, 77}, {10, 86}}, {60, 76}},
    // Wider items overlap the one to their right.
    {Direction::RightToLeft,
     300,
     {{275, 20}, {241, 20}, {187, 20}, {163, 20}, {119, 20}},
     {190, 20}},
    {Direction::RightToLeft, 100, {{75, 20}, {41, 20}, {85, 44}, {61, 44}, {17, 44}}, {99, 39}},
    {Direction::RightToLeft, 84, {{59, 20}, {25, 20}, {69, 44}, {45, 44}, {29, 63}}, {83, 53}},
    {Direction::RightToLeft, 20, {{-5, 20}, {-25, 34}, {5, 58}, {-15, 77}, {-35, 86}}, {64, 76}},
    {Direction::TopToBottom, 300, {{10, 20}, {10, 34}, {10, 58}, {10, 77}, {10, 86}}, {60, 66}},
    {Direction::TopToBottom, 50, {{10, 20}, {10, 34}, {64, 20}, {64, 39}, {64, 48}}, {114, 49}},
    {Direction::TopToBottom, 35, {{10, 20}, {10, 34}, {64, 20}, {64, 39}, {108, 20}}, {158, 34}},
    {Direction::TopToBottom, 34, {{10, 20}, {44, 20}, {98, 20}, {98, 39}, {142, 20}}, {192, 33}},
    {Direction::BottomToTop, 50, {{10, 55}, {10, 41}, {64, 50}, {64, 31}, {64, 22}}, {114, 49}},
    {Direction::BottomToTop, 34, {{10, 39}, {10, 25}, {64, 34}, {88, 44}, {88, 35}}, {138, 33}},
};

TEST(FlowLayout, placesItemsAsWorkedOutByHand)
{
    for (const Row& row : s_table) {
        const bool isVertical = row.m_direction >= Direction::TopToBottom;
        const Flow flow(row.m_direction);
        SCOPED_TRACE("direction " + std::to_string(static_cast<int>(row.m_direction)) + ", length "
                     + std::to_string(row.m_length));
        const QSize size(isVertical ? 500 : row.m_length, isVertical ? row.m_length : 500);
        EXPECT_EQ(text(flow.positionsIn(QRect(QPoint(10, 20), size))), text(row.m_positions));
        EXPECT_EQ(flow.m_qt->minimumSize(), row.m_size);
        EXPECT_EQ(flow.m_qt->sizeHint(), row.m_size);
        EXPECT_EQ(flow.m_qt->hasHeightForWidth(), !isVertical);
        EXPECT_EQ(flow.m_layout.direction(), row.m_direction);
        EXPECT_EQ(flow.m_qt->expandingDirections(), Qt::Orientations());
        if (isVertical)
            continue;
        EXPECT_EQ(flow.m_qt->heightForWidth(row.m_length), row.m_size.height());
        EXPECT_EQ(flow.m_qt->heightForWidth(300), 20);
        EXPECT_EQ(flow.m_qt->itemAt(0)->geometry().topLeft(), row.m_positions[0]) << "only tested";
        EXPECT_EQ(flow.m_qt->minimumSize(), row.m_size);
    }
}

TEST(FlowLayout, hasNoSizeUntilItLaidOut)
{
    const Flow flow(Direction::RightToLeft, {});
    EXPECT_EQ(flow.m_qt->minimumSize(), QSize(-1, -1));
    EXPECT_EQ(flow.m_qt->sizeHint(), QSize(-1, -1));
    flow.m_qt->setGeometry({3, 4, 50, 60});
    EXPECT_EQ(flow.m_qt->minimumSize(), QSize(0, 0));
    EXPECT_EQ(flow.m_qt->heightForWidth(7), 0);
}

TEST(FlowLayout, aLineDoesNotBreakBeforeSomethingDeepStandsInIt)
{
    const Flow flat(Direction::LeftToRight, {{60, 0}, {60, 10}, {60, 10}});
    EXPECT_EQ(flat.positionsIn({0, 0, 100, 100}), (std::vector<QPoint>{{0, 0}, {64, 0}, {0, 14}}));
    const Flow wide(Direction::LeftToRight, {{150, 10}, {10, 10}});
    EXPECT_EQ(wide.positionsIn({0, 0, 100, 100}), (std::vector<QPoint>{{0, 0}, {0, 14}}));
    EXPECT_EQ(wide.m_qt->minimumSize(), QSize(150, 24));
}

TEST(FlowLayout, aPositionOfMinusOneCountsAsNone)
{
    // The first item stands at 49, and the next would at -1.
    const Flow leftwards(Direction::RightToLeft, {{45, 10}, {30, 10}, {10, 10}}, 5);
    EXPECT_EQ(leftwards.positionsIn({0, 0, 100, 100}),
              (std::vector<QPoint>{{49, 0}, {64, 0}, {29, 0}}));
    EXPECT_EQ(leftwards.m_qt->minimumSize(), QSize(70, 10));
    const Flow upwards(Direction::BottomToTop, {{10, 45}, {10, 30}, {10, 10}}, 5);
    EXPECT_EQ(upwards.positionsIn({0, 0, 100, 100}),
              (std::vector<QPoint>{{0, 49}, {0, 64}, {0, 29}}));
}

TEST(FlowLayout, anotherDirectionPlacesNothing)
{
    const Flow flow(static_cast<Direction>(4));
    flow.m_qt->setGeometry({10, 20, 100, 100});
    EXPECT_EQ(flow.m_qt->itemAt(1)->geometry(), QRect());
    EXPECT_EQ(flow.m_qt->minimumSize(), QSize(-1, -1));
    EXPECT_EQ(flow.m_qt->heightForWidth(100), -1);
}

TEST(FlowLayout, keepsItsItemsInOrderAndOwnsThem)
{
    runDeletions();
    ASSERT_EQ(Item::s_alive, 0);
    {
        const Flow flow(Direction::LeftToRight);
        QLayoutItem* const second = flow.m_qt->itemAt(1);
        EXPECT_EQ(flow.m_qt->itemAt(-1), nullptr);
        EXPECT_EQ(flow.m_qt->itemAt(5), nullptr);
        EXPECT_EQ(flow.m_qt->takeAt(-1), nullptr);
        EXPECT_EQ(flow.m_qt->takeAt(5), nullptr);
        const std::unique_ptr<QLayoutItem> taken(flow.m_qt->takeAt(1));
        EXPECT_EQ(taken.get(), second);
        EXPECT_EQ(flow.m_qt->count(), 4);
        EXPECT_EQ(flow.m_qt->itemAt(1)->sizeHint(), QSize(20, 15));
    }
    runDeletions();
    EXPECT_EQ(Item::s_alive, 0);
}

/// Buttons of a fixed size in a shown panel.
class FlowOfWidgets : public testing::Test
{
protected:
    FlowOfWidgets()
    {
        m_layout->setSpacing(5);
        m_panel.setContentsMargins(VXRect<int>::margins(1, 1, 1, 1));
        for (VXButton2*& button : m_buttons) {
            button = new VXButton2(&m_panel);
            button->setFixedSize({40, 20});
            m_layout->addWidget(button);
        }
        m_panel.resize({100, 100});
        m_panel.show();
        turn();
    }
    VXPoint<int> place(std::size_t i) const { return m_buttons[i]->position().topLeft(); }

    VXPanel2 m_panel;
    VXFlowLayout2* m_layout = new VXFlowLayout2(&m_panel);
    std::array<VXButton2*, 3> m_buttons{};
};

TEST_F(FlowOfWidgets, wrapsThemAgainWhenItIsResizedOrTheyGo)
{
    EXPECT_EQ(place(1), (VXPoint<int>{46, 1}));
    EXPECT_EQ(place(2), (VXPoint<int>{1, 26}));
    m_panel.resize({200, 100});
    EXPECT_EQ(place(2), (VXPoint<int>{91, 1}));
    delete m_buttons[0];
    runDeletions();
    m_layout->refresh();
    EXPECT_EQ(place(1), (VXPoint<int>{1, 1}));
    m_layout->removeWidget(m_buttons[1]);
    m_layout->refresh();
    EXPECT_EQ(place(2), (VXPoint<int>{1, 1}));
    EXPECT_EQ(m_buttons[1]->peerParent(), &m_panel) << "it stays where it is";
    constexpr int huge = std::numeric_limits<int>::max();
    m_layout->setSpacing(huge);
    m_layout->addSpacer({huge, huge}, false);
    m_layout->addWidget(m_buttons[1]);
    m_layout->refresh();
    EXPECT_EQ(place(2), (VXPoint<int>{1, 1}));
    EXPECT_GT(place(1).y, 1'000'000) << "far away, and not beyond what a number can say";
}

TEST_F(FlowOfWidgets, itemsMayGoWhileItPlacesThem)
{
    int calls = 0;
    m_buttons[0]->moved().connect(m_buttons[0], [&] {
        ++calls;
        m_layout->removeWidget(m_buttons[2]);
        delete std::exchange(m_buttons[1], nullptr);
        runDeletions();
    });
    qt(m_panel)->setContentsMargins(10, 10, 10, 10);
    m_layout->refresh();
    turn();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(qt(m_panel)->layout()->count(), 1);
    EXPECT_EQ(place(0), (VXPoint<int>{10, 10}));
}

} // namespace
} // namespace VOXI
