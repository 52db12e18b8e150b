#include "../kernel/toolkit.h"
#include "support/qtwarnings.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxtext2.h"

#include <QAccessible>
#include <QGridLayout>

#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace VOXI {
namespace {

using Cell = VXRect<int>;

class GridLayout : public testing::Test
{
protected:
    QGridLayout* qtLayout() const { return qobject_cast<QGridLayout*>(qt(m_panel)->layout()); }

    Cell cellOf(int index) const
    {
        Cell cell;
        qtLayout()->getItemPosition(index, &cell.x, &cell.y, &cell.width, &cell.height);
        return cell;
    }

    VXPanel2 m_panel;
    VXGridLayout2* m_layout = new VXGridLayout2(&m_panel);
    VXText2* m_first = new VXText2(&m_panel);
    VXText2* m_second = new VXText2(&m_panel);
    VXText2* m_third = new VXText2(&m_panel);
};

TEST_F(GridLayout, putsWidgetsIntoCells)
{
    m_layout->addWidget(m_first, Cell::cell(1, 2, 3, 4), AlignmentFlag::Right);
    m_layout->addWidget(m_second, 0, 1);
    m_layout->addWidget(m_third);
    ASSERT_EQ(qtLayout()->count(), 3);
    EXPECT_EQ(cellOf(0), Cell::cell(1, 2, 3, 4));
    EXPECT_EQ(qtLayout()->itemAt(0)->widget(), qt(*m_first));
    EXPECT_EQ(qtLayout()->itemAt(0)->alignment(), Qt::AlignRight);
    EXPECT_EQ(cellOf(1), Cell::cell(0, 1));
    EXPECT_EQ(cellOf(2), Cell::cell(4, 0)) << "behind the last cell";
    m_layout->addWidget(m_second, Cell::cell(2, 0, 1, -1));
    EXPECT_EQ(qtLayout()->count(), 3) << "it was moved";
    EXPECT_EQ(cellOf(2), Cell::cell(2, 0, 1, 6)) << "to the last column";
}

TEST_F(GridLayout, spacersKeepRoom)
{
    m_layout->addSpacer(Cell::cell(1, 2), {30, 40});
    ASSERT_EQ(qtLayout()->count(), 1);
    EXPECT_EQ(cellOf(0), Cell::cell(1, 2));
    const QSpacerItem* spacer = qtLayout()->itemAt(0)->spacerItem();
    ASSERT_NE(spacer, nullptr);
    EXPECT_EQ(spacer->sizeHint(), QSize(30, 40));
    EXPECT_EQ(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
    EXPECT_EQ(spacer->alignment(), Qt::Alignment());
}

TEST_F(GridLayout, stretches)
{
    m_layout->setRowStretch(2, 5);
    m_layout->setColStretch(1, 7);
    EXPECT_EQ(qtLayout()->columnStretch(1), 7);
    EXPECT_EQ(m_layout->colStretch(1), 7);
    m_layout->setStretchFactors({}, {});
    EXPECT_EQ(qtLayout()->rowCount(), 3);
    m_layout->setStretchFactors({1, 2}, {3, 4, 5});
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(m_layout->rowStretch(i), (std::array{1, 2, 5}[std::size_t(i)]))
            << "the others keep theirs";
        EXPECT_EQ(m_layout->colStretch(i), i + 3);
    }
}

TEST_F(GridLayout, ignoresWhatIsNoCell)
{
    constexpr int huge = std::numeric_limits<int>::max();
    for (const Cell& cell :
         {Cell::cell(-1, 0), Cell::cell(0, -1), Cell::cell(huge, 0), Cell::cell(0, huge),
          Cell::cell(1, 1, 0, 1), Cell::cell(0, 0, 1, -2), Cell::cell(0, 0, huge, 1)}) {
        m_layout->addWidget(m_first, cell);
        m_layout->addSpacer(cell, {1, 1});
    }
    for (const int line : {-1, huge}) {
        m_layout->setRowStretch(line, 1);
        m_layout->setColStretch(line, 1);
        EXPECT_EQ(m_layout->rowStretch(line), 0);
        EXPECT_EQ(m_layout->colStretch(line), 0);
    }
    m_layout->setRowStretch(999'999, 1);
    m_layout->addSpacer(Cell::cell(0, 999'999), {1, 1}); // Qt would fall over a table of so many
    m_layout->setColStretch(999'999, 1);
    m_layout->setStretchFactors({}, std::vector<int>(1000, 1));
    EXPECT_EQ(qtLayout()->rowCount(), 1'000'000);
    EXPECT_EQ(qtLayout()->columnCount(), 10);
    m_panel.show();
    m_layout->addWidget(nullptr, 0, 0);
    VXFactory2::current()->destroyObject(m_first->id());
    m_layout->addWidget(m_first, 0, 0); // has no peer any more
    const ExpectedQtWarning warning("null widget");
    m_layout->addWidget(m_layout, 0, 0); // is no widget
    EXPECT_EQ(qtLayout()->count(), 0);
}

TEST_F(GridLayout, isReadAsItIsSeen)
{
    m_layout->addWidget(m_third, 0, 1);
    m_layout->addWidget(m_first, 1, 1);
    auto* const box = new VXPanel2(&m_panel);
    m_layout->addWidget(box, 1, 0);
    auto* const reversed = new VXBoxLayout2(box, Direction::RightToLeft);
    for (const char* const text : {"right", "left"})
        reversed->addWidget(new VXText2(text, box));
    const auto childrenOf = [](const VXWidget2& widget) {
        QAccessibleInterface* const all = QAccessible::queryAccessibleInterface(qt(widget));
        std::vector<const QObject*> children;
        for (int i = 0; i < all->childCount(); ++i) {
            children.push_back(all->child(i)->object());
            EXPECT_EQ(all->indexOfChild(all->child(i)), i);
        }
        return children;
    };
    EXPECT_EQ(childrenOf(m_panel),
              (std::vector<const QObject*>{qt(*m_third), qt(*box), qt(*m_first), qt(*m_second)}));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(qt(*box))->child(0)->text(QAccessible::Name),
              QStringLiteral("left"));
}

TEST_F(GridLayout, keepsRoomAndMovesWhatIsInIt)
{
    m_layout->addWidget(m_first, 0, 0);
    m_layout->addWidget(m_second, Cell::cell(1, 1), AlignmentFlag::Right);
    m_layout->setRowMinimum(0, 90);
    m_layout->setColMinimum(1, 80);
    m_layout->setRowMinimum(-1, 5);
    m_layout->setColMinimum(std::numeric_limits<int>::max(), 5);
    EXPECT_EQ(m_layout->rowMinimum(0), 90);
    EXPECT_EQ(m_layout->colMinimum(1), 80);
    EXPECT_EQ(m_layout->rowMinimum(7) + m_layout->colMinimum(-7), 0);
    m_layout->setSpacing(5);
    m_layout->setVerticalSpacing(40);
    EXPECT_EQ(m_layout->horizontalSpacing(), 5);
    EXPECT_EQ(m_layout->spacing(), -1);
    m_panel.show();
    turn();
    EXPECT_EQ(qt(*m_second)->y() - qt(*m_first)->y(), 90 + 40);

    m_layout->setCell(m_second, Cell::cell(3, 2, 1, 2));
    m_layout->setCell(m_third, Cell::cell(4, 4));
    m_layout->setCell(m_first, Cell::cell(-1, 4));
    EXPECT_EQ(m_layout->cell(m_second), Cell::cell(3, 2, 1, 2));
    EXPECT_EQ(m_layout->alignment(m_second), AlignmentFlag::Right);
    EXPECT_EQ(m_layout->cell(m_third), Cell());
    EXPECT_EQ(m_layout->cell(m_first), Cell::cell(0, 0));
    EXPECT_EQ(m_layout->count(), 2);
    EXPECT_EQ(m_layout->rowCount(), 4);
    EXPECT_EQ(m_layout->colCount(), 4);
}

} // namespace
} // namespace VOXI
