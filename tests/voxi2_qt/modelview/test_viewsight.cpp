#include "support/steppedclock.h"
#include "viewsupport.h"
#include "voxi2/kernel/vxdragdelegate2.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMimeData>

namespace VOXI {
namespace {

class ViewSight : public ShownView<VXTableView2>
{};

TEST_F(ViewSight, tellsTheModelWhatIsWanted)
{
    SlowModel model(10'000);
    show(model);
    ASSERT_FALSE(model.m_queries.empty());
    const ViewQuery2 first = model.m_queries.front();
    EXPECT_TRUE(first.isWanted());
    m_view.scrollTo({5'000, 1, nullptr});
    settle();
    EXPECT_FALSE(first.isWanted());
    EXPECT_TRUE(model.m_queries.back().isWanted());
    m_view.scrollTo({1, 1, nullptr});
    settle();
    EXPECT_TRUE(first.isWanted());
    m_view.setColumnVisible(1, false);
    m_view.setColumnVisible(2, false);
    settle();
    EXPECT_FALSE(first.isWanted());
}

TEST_F(ViewSight, forgetsNothingThatIsInSight)
{
    NumberedModel model(1'000);
    m_view.setCacheLimit(50);
    EXPECT_EQ(m_view.cacheLimit(), 50);
    show(model);
    m_view.scrollTo({500, 1, nullptr});
    settle();
    EXPECT_FALSE(m_view.cellInfo(1, 1).isKnown);
    for (int y = 1; y < viewport()->height(); y += 10) {
        const ModelCell2 cell = m_view.cellAt(5, y);
        EXPECT_TRUE(m_view.cellInfo(cell.row, cell.column).isKnown);
    }
}

TEST_F(ViewSight, showsProgressWhereCellsTakeLong)
{
    SteppedClock clock;
    SlowModel model(5);
    const auto picture = [&] {
        turn();
        return viewport()->grab().toImage();
    };
    m_view.setViewModel(&model);
    const QImage empty = picture();
    clock.advance(std::chrono::milliseconds(99));
    EXPECT_EQ(picture(), empty) << "nothing flashes";
    clock.advance(std::chrono::milliseconds(60));
    EXPECT_NE(picture(), empty);
    model.answerAll();
    turn();
    EXPECT_EQ(m_view.cellInfo(1, 1).text, L"1");
    const QImage full = picture();
    EXPECT_NE(full, empty);
    clock.advance(std::chrono::seconds(1));
    EXPECT_EQ(picture(), full);
}

TEST_F(ViewSight, describesACellAsItIsDrawn)
{
    NumberedModel model(3);
    model.setCell(2, 2,
                  CellUIData(1.5)
                      .setBold()
                      .setForeground(Color(200, 0, 0))
                      .setBackground(Color(0, 0, 99))
                      .setToolTip("tip")
                      .setAlignment(AlignmentFlag::Right)
                      .setRenderer(CellRenderer::CheckBox, L"label"));
    show(model);
    m_view.setActiveCell({2, 2, nullptr});
    m_view.selectRows({2});
    const CellInfo info = m_view.cellInfo(2, 2);
    EXPECT_EQ(info.cell, (ModelCell2{2, 2, &model}));
    EXPECT_EQ(info.text, L"1.5");
    EXPECT_TRUE(info.font.isBold());
    EXPECT_EQ(info.font.family(), m_view.font().family());
    EXPECT_EQ(info.foreground, Color(200, 0, 0));
    EXPECT_EQ(info.background, Color(0, 0, 99));
    EXPECT_EQ(info.toolTip, L"tip");
    EXPECT_EQ(info.alignment, AlignmentFlag::Right);
    EXPECT_EQ(info.renderer, CellRenderer::CheckBox);
    EXPECT_EQ(info.rendererText, L"label");
    EXPECT_TRUE(info.isCurrent && info.isSelected && info.isVisible && info.isKnown);
    EXPECT_EQ(info.rect, m_view.cellRect(2, 2));
    EXPECT_TRUE(m_view.cellInfo(9, 9).cell.isNull());
    EXPECT_FALSE(m_view.isHScrollbarVisible());
    m_view.setColumnWidth(1, 5'000);
    EXPECT_TRUE(m_view.isHScrollbarVisible());
    EXPECT_FALSE(m_view.isVScrollbarVisible());
    EXPECT_FALSE(m_view.isCellVisible(2, 2));
}

TEST_F(ViewSight, hasAContextMenuForEachCell)
{
    NumberedModel model(3);
    show(model);
    Log menus(m_view.cellContextMenu());
    Log plain(m_view.contextMenuRequested());
    m_view.setActiveCell({3, 2, nullptr});
    const QPoint at = centreOf(2, 1);
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, at, viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(viewport(), &byMouse);
    EXPECT_EQ(menus.only().cell(), (ModelCell2{2, 1, &model}));
    EXPECT_EQ(menus.only().menu().position(), plain.only().position());
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {1, 1}, {1, 1});
    QCoreApplication::sendEvent(&qtView(), &byKey);
    EXPECT_EQ(menus.count(), 2);
    EXPECT_EQ(menus.last().cell(), (ModelCell2{3, 2, &model}));
    const QPoint beside(viewport()->width() - 2, viewport()->height() - 2);
    QContextMenuEvent outside(QContextMenuEvent::Mouse, beside, viewport()->mapToGlobal(beside));
    QCoreApplication::sendEvent(viewport(), &outside);
    EXPECT_TRUE(menus.last().cell().isNull());
}

TEST_F(ViewSight, letsCellsBeDraggedOutAndDroppedOn)
{
    NumberedModel model(10);
    show(model);
    m_view.setSelectionMode(SelectionMode::Extended);
    m_view.selectRows({2, 3, 4});
    const auto move = [&](QPoint to) {
        QMouseEvent event(QEvent::MouseMove, QPointF(to), viewport()->mapToGlobal(QPointF(to)),
                          Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(viewport(), &event);
    };
    Log drags(m_view.dragDetected());
    QTest::mousePress(viewport(), Qt::LeftButton, {}, centreOf(3, 1));
    move(centreOf(3, 1) + QPoint(2, 0));
    move(centreOf(6, 1));
    EXPECT_EQ(m_view.cellAt(drags.only().position()), (ModelCell2{3, 1, &model}));
    EXPECT_EQ(m_view.selectedRows(), (std::vector<unsigned>{2, 3, 4}));
    QTest::mouseRelease(viewport(), Qt::LeftButton, {}, centreOf(6, 1));
    QTest::mousePress(viewport(), Qt::LeftButton, {}, centreOf(7, 1));
    move(centreOf(9, 1));
    EXPECT_EQ(m_view.selectedRows(), (std::vector<unsigned>{7, 8, 9})) << "not selected before";
    QTest::mouseRelease(viewport(), Qt::LeftButton, {}, centreOf(9, 1));

    VXDragDelegate2 delegate(&m_view);
    m_view.setDragDelegate(&delegate);
    m_view.setAcceptDrops(true);
    ModelCell2 target;
    TROV::Listener listener;
    delegate.entered().connect(&listener, [](const VXDragEvent2& drag) { drag.acceptProposed(); });
    delegate.dropped().connect(&listener, [&](const VXDragEvent2& drop) {
        target = m_view.cellAt(drop.position());
        drop.acceptProposed();
    });
    QMimeData data;
    data.setText(QStringLiteral("dropped"));
    QDragEnterEvent enter(centreOf(5, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport(), &enter);
    QDropEvent drop(centreOf(5, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport(), &drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(target, (ModelCell2{5, 2, &model}));
}

TEST_F(ViewSight, isThereForAssistiveTechnology)
{
    NumberedModel model(3);
    show(model);
    m_view.selectRows({2});
    QAccessibleInterface* const view = QAccessible::queryAccessibleInterface(&qtView());
    ASSERT_NE(view, nullptr);
    QAccessibleTableInterface* const table = view->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 3);
    EXPECT_EQ(table->cellAt(1, 2)->text(QAccessible::Name), QStringLiteral("row 2, column 3"));
    EXPECT_TRUE(table->cellAt(1, 2)->state().selected);
    EXPECT_FALSE(table->cellAt(0, 2)->state().selected);
    EXPECT_EQ(table->columnDescription(1), QStringLiteral("column 2"));
    EXPECT_EQ(table->selectedRows(), QList<int>{1});
}

} // namespace
} // namespace VOXI
