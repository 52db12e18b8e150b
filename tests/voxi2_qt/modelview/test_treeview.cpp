#include "viewsupport.h"

#include <QAccessible>
#include <QTreeView>

namespace VOXI {
namespace {

class TreeView : public ShownView<VXTreeView2>
{
protected:
    TreeView()
    {
        m_fruit = m_model.appendRow(0, {L"Fruit", L"sweet"});
        m_apple = m_model.appendRow(m_fruit, {L"Apple", L"red"});
        m_lazy = m_model.appendRow(0, {L"Lazy"});
        m_model.setHasChildren(m_lazy);
        show(m_model);
    }

    /// No tester: it has trees show children below any column.
    void show(VXAbstractViewModel2& model)
    {
        m_view.setViewModel(&model);
        settle();
    }
    QTreeView& tree() { return static_cast<QTreeView&>(qtView()); }
    QModelIndex indexOf(unsigned row) { return tree().indexAt(centreOf(row, 1)); }
    void clickExpander(unsigned row)
    {
        const VXRect<int> rect = m_view.cellRect(row, 1);
        QTest::mouseClick(viewport(), Qt::LeftButton, {},
                          {rect.x - tree().indentation() / 2, rect.y + rect.height / 2});
        turn();
    }

    VXTreeModel2 m_model{{L"Name", L"Taste"}};
    unsigned m_fruit = 0;
    unsigned m_apple = 0;
    unsigned m_lazy = 0;
    Log<VXTreeExpandEvent2> m_expanded{m_view.expanded()};
    Log<VXTreeCollapseEvent2> m_collapsed{m_view.collapsed()};
};

TEST_F(TreeView, reportsWhatTheUserExpandsAndOtherwiseNothing)
{
    m_view.setRowExpanded(m_fruit, true);
    EXPECT_TRUE(m_view.isRowExpanded(m_fruit));
    EXPECT_TRUE(m_view.isCellVisible(m_apple, 1));
    m_view.setRowExpanded(m_fruit, false);
    m_view.expandAll();
    EXPECT_TRUE(m_view.isRowExpanded(m_fruit));
    m_view.collapseAll();
    EXPECT_FALSE(m_view.isRowExpanded(m_fruit));
    EXPECT_FALSE(m_view.isCellVisible(m_apple, 1));
    m_view.setRowExpanded(99, true);
    EXPECT_FALSE(m_view.isRowExpanded(99));
    EXPECT_TRUE(m_expanded.isEmpty());
    EXPECT_TRUE(m_collapsed.isEmpty());
    m_view.imitateExpand(m_fruit);
    EXPECT_EQ(m_expanded.only().row(), m_fruit);
    EXPECT_EQ(m_expanded.only().view(), &m_view);
    m_view.imitateCollapse(m_fruit);
    EXPECT_EQ(m_collapsed.only().row(), m_fruit);
    clickExpander(m_fruit);
    EXPECT_EQ(m_expanded.count(), 2);
}

TEST_F(TreeView, getsChildrenWhenARowIsExpanded)
{
    TROV::Listener listener;
    m_view.expanded().connect(&listener, [&](const VXTreeExpandEvent2& event) {
        if (event.row() == m_lazy) {
            m_model.appendRow(m_lazy, {L"late"});
            m_model.appendRow(m_lazy, {L"later"});
        }
    });
    clickExpander(m_lazy);
    settle();
    const auto children = m_model.childRows(m_lazy);
    ASSERT_EQ(children.size(), 2U);
    EXPECT_TRUE(m_view.isRowExpanded(m_lazy));
    EXPECT_TRUE(m_view.isCellVisible(children[1], 1));
    EXPECT_EQ(m_view.cellInfo(children[1], 1).text, L"later");
    // The first child of a row that had none
    EXPECT_FALSE(tree().model()->hasChildren(indexOf(children[0])));
    m_model.appendRow(children[0], {L"below"});
    settle();
    EXPECT_TRUE(tree().model()->hasChildren(indexOf(children[0])));
}

TEST_F(TreeView, hasRowsAndLooksAsSet)
{
    m_view.setRowHeight(m_fruit, 60);
    EXPECT_EQ(m_view.rowHeight(m_fruit), 60);
    EXPECT_EQ(m_view.cellRect(m_fruit, 1).height, 60);
    EXPECT_LT(m_view.rowHeight(m_lazy), 60);
    m_view.setRowVisible(m_lazy, false);
    EXPECT_FALSE(m_view.isRowVisible(m_lazy));
    EXPECT_FALSE(m_view.isCellVisible(m_lazy, 1));
    m_view.setRowVisible(m_lazy, true);
    m_model.moveRow(m_fruit, 0);
    settle();
    EXPECT_EQ(m_view.rowHeight(m_fruit), 60) << "heights go with their rows";
    m_model.removeRow(m_fruit);
    settle();
    EXPECT_EQ(m_view.rowHeight(m_fruit), 0);
    m_view.setRootIsDecorated(false);
    EXPECT_FALSE(m_view.rootIsDecorated() || tree().rootIsDecorated());
    m_view.setColumnMovable(true);
    EXPECT_TRUE(tree().header()->isFirstSectionMovable());
    m_view.setColumnWidth(1, 3);
    EXPECT_EQ(m_view.columnWidth(1), 3);
    m_view.setRowHeight(99, 9);
    m_view.setRowVisible(99, false);
    EXPECT_FALSE(m_view.isRowVisible(99));
}

TEST_F(TreeView, keepsSelectionExpansionAndPlaceAcrossMoves)
{
    for (int i = 0; i < 40; ++i) {
        const unsigned row = m_model.appendRow(0, {L"row " + std::to_wstring(i)});
        for (int j = 0; j < 3; ++j)
            m_model.appendRow(row, {L"child"});
        m_view.setRowExpanded(row, i % 2 == 0);
    }
    const auto rows = m_model.childRows(0);
    const unsigned kept = rows[20];
    const unsigned child = m_model.childRows(kept)[1];
    m_view.setRowExpanded(kept, true);
    const unsigned after = m_model.childRows(rows[30])[0];
    m_view.selectRows({child, rows[31], after, m_apple});
    m_view.scrollTo({child, 1, nullptr});
    settle();
    const unsigned top = m_view.cellAt(60, 2).row;
    m_model.insertRow(0, rows[0], {L"above"});
    m_model.removeRow(rows[3]);
    m_model.moveRow(rows[4], 0);
    settle();
    EXPECT_EQ(m_view.cellAt(60, 2).row, top);
    EXPECT_TRUE(m_view.isRowExpanded(kept));
    EXPECT_TRUE(m_view.isSelected(child, 2));
    m_model.moveRow(kept, 0, rows[0]);
    settle();
    EXPECT_TRUE(m_view.isRowExpanded(kept));
    EXPECT_EQ(m_view.selectedRows(), (std::vector<unsigned>{child, m_apple, after, rows[31]}));
}

TEST_F(TreeView, isThereForAssistiveTechnology)
{
    m_view.setRowExpanded(m_fruit, true);
    m_view.selectRows({m_apple});
    settle();
    QAccessibleInterface* const view = QAccessible::queryAccessibleInterface(&tree());
    ASSERT_NE(view, nullptr);
    QAccessibleTableInterface* const table = view->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 3);
    EXPECT_EQ(table->cellAt(1, 0)->text(QAccessible::Name), QStringLiteral("Apple"));
    EXPECT_TRUE(table->cellAt(1, 0)->state().selected);
    EXPECT_TRUE(table->cellAt(0, 0)->state().expanded);
    EXPECT_TRUE(table->cellAt(2, 0)->state().expandable);
}

} // namespace
} // namespace VOXI
