#include "viewsupport.h"
#include "voxi2_qt/modelview/qttableview2.h"

#include <QScrollBar>
#include <QTableView>

#include <climits>
#include <random>

namespace VOXI {
namespace {

class TableView : public ShownView<VXTableView2>
{
protected:
    QTableView& table() { return static_cast<QTableView&>(qtView()); }
    QtTableView2& tablePeer() { return dynamic_cast<QtTableView2&>(peer(m_view)); }

    unsigned topRow() { return m_view.cellAt(5, 2).row; }
};

TEST_F(TableView, showsCellsAndFollowsTheModel)
{
    NumberedModel model(3);
    show(model);
    EXPECT_EQ(m_view.viewModel(), &model);
    EXPECT_EQ(m_view.cellInfo(2, 3).text, L"row 2, column 3");
    EXPECT_EQ(qtModel().headerData(1, Qt::Horizontal).toString(), QStringLiteral("column 2"));
    model.setValue(2, 3, L"other");
    const unsigned row = model.insertRow(1, {L"before"});
    settle();
    EXPECT_EQ(m_view.cellInfo(2, 3).text, L"other");
    EXPECT_EQ(m_view.cellAt(5, 2), (ModelCell2{row, 1, &model}));
    EXPECT_TRUE(m_view.isCellVisible(1, 1));
    EXPECT_EQ(m_view.cellRect(1, 1).y, table().rowHeight(0));
}

TEST_F(TableView, aModelIsShownInViewsOfTheHostToo)
{
    auto model = std::make_unique<NumberedModel>(3);
    show(*model);
    QTableView own;
    model->createItemModel();
    own.setModel(qobject_cast<QAbstractItemModel*>(qObjectOf(lookup(model.get()))));
    ASSERT_TRUE(own.model());
    EXPECT_NE(own.model(), &qtModel());
    own.show();
    settle();
    EXPECT_EQ(own.model()->index(1, 2).data().toString(), QStringLiteral("row 2, column 3"));
    model->removeRow(1);
    settle();
    EXPECT_EQ(own.model()->rowCount(), 2);
    m_tester.reset();
    model.reset();
    runDeletions();
    EXPECT_FALSE(own.model());
}

TEST_F(TableView, takesAnotherModelAndLeavesNothingOfTheOld)
{
    auto first = std::make_unique<NumberedModel>(3);
    NumberedModel second(5);
    show(*first);
    const QPointer<QAbstractItemModel> old = &qtModel();
    const QPointer<QItemSelectionModel> oldSelection = qtView().selectionModel();
    m_view.setColumnVisible(2, false);
    m_view.setSortIndicator(1);
    show(second);
    EXPECT_TRUE(old.isNull());
    EXPECT_TRUE(oldSelection.isNull());
    EXPECT_TRUE(m_view.isColumnVisible(2));
    EXPECT_EQ(m_view.sortIndicator(), SortIndicator());
    first->appendRow({L"nobody sees it"});
    settle();
    EXPECT_EQ(qtModel().rowCount(), 5);
    m_view.setViewModel(nullptr);
    EXPECT_EQ(m_view.viewModel(), nullptr);
    EXPECT_EQ(qtModel().rowCount(), 0);
    m_view.setActiveCell({1, 1, &second});
    EXPECT_TRUE(m_view.activeCell().isNull());
    m_tester.reset();
}

TEST_F(TableView, outlivesItsModelAndTheOtherWayRound)
{
    auto model = std::make_unique<NumberedModel>(3);
    show(*model);
    auto other = std::make_unique<VXTableView2>(&m_window);
    other->setViewModel(model.get());
    other->selectRows({2});
    EXPECT_FALSE(m_view.isSelected(2, 1)) << "each view has its own selection";
    other.reset();
    runDeletions();
    model->setValue(1, 1, L"new");
    settle();
    EXPECT_EQ(m_view.cellInfo(1, 1).text, L"new");
    model.reset();
    EXPECT_EQ(m_view.viewModel(), nullptr);
    settle();
    m_view.selectAll();
    m_view.scrollTo({2, 1, nullptr});
    EXPECT_TRUE(m_view.activeCell().isNull());
}

TEST_F(TableView, hasRowsColumnsAndHeadersAsSet)
{
    NumberedModel model(4);
    show(model);
    m_view.setColumnWidth(2, 3);
    EXPECT_EQ(m_view.columnWidth(2), 3) << "any width";
    m_view.setRowHeight(2, 55);
    EXPECT_EQ(m_view.rowHeight(2), 55);
    EXPECT_EQ(tablePeer().doGetRowHeight(2), 55);
    m_view.setRowVisible(3, false);
    EXPECT_FALSE(m_view.isRowVisible(3));
    m_view.setColumnVisible(2, false);
    EXPECT_FALSE(m_view.isColumnVisible(2));
    EXPECT_EQ(m_view.columnWidth(2), 0);
    m_view.setColumnWidth(2, 77);
    m_view.setColumnVisible(2, true);
    EXPECT_EQ(m_view.columnWidth(2), 77);
    m_view.setColumnResizeMode(1, ColumnResizeMode::Fixed);
    EXPECT_EQ(m_view.columnResizeMode(1), ColumnResizeMode::Fixed);
    m_view.setColumnHeaderVisible(false);
    m_view.setRowHeaderVisible(false);
    EXPECT_FALSE(table().horizontalHeader()->isVisible());
    EXPECT_FALSE(table().verticalHeader()->isVisible());
    EXPECT_FALSE(m_view.isColumnHeaderVisible() || m_view.isRowHeaderVisible());
    m_view.setGridVisible(false);
    EXPECT_FALSE(m_view.isGridVisible() || table().showGrid());
    m_view.setWordWrap(false);
    EXPECT_FALSE(m_view.wordWrap() || table().wordWrap());
    // Numbers that are not there
    m_view.setColumnWidth(9, 50);
    m_view.setRowHeight(9, 50);
    m_view.setColumnVisible(9, false);
    m_view.setRowVisible(9, false);
    m_view.setColumnResizeMode(9, ColumnResizeMode::Fixed);
    m_view.resizeColumnToContents(9);
    m_view.resizeRowToContents(9);
    EXPECT_EQ(m_view.columnWidth(9), 0);
    EXPECT_EQ(m_view.rowHeight(9), 0);
    EXPECT_FALSE(m_view.isColumnVisible(9));
    m_view.resizeColumnToContents(1);
    EXPECT_EQ(m_view.columnWidth(1), table().columnWidth(0));
    model.moveRow(2, 0);
    settle();
    EXPECT_EQ(m_view.rowHeight(2), 55) << "sizes go with their rows";
    EXPECT_FALSE(m_view.isRowVisible(3));
}

TEST_F(TableView, measuresColumnsInCharactersAndKeepsThatAcrossFonts)
{
    NumberedModel model(3);
    show(model);
    const auto w = [&] { return table().fontMetrics().horizontalAdvance(QLatin1Char('W')); };
    m_view.setColumnWidthInCharacters(1, 10);
    EXPECT_EQ(m_view.columnWidth(1), 10 * w());
    m_view.setColumnWidth(2, 100);
    EXPECT_EQ(m_view.columnWidthInCharacters(2), int(100.0 / w() + 0.5));
    m_view.setRowHeight(2, 80);
    const int before = w();
    const int line = table().fontMetrics().height();
    const int plain = m_view.rowHeight(1);
    VXFont font = m_view.font();
    m_view.setFont(VXFont(font.family(), 2 * font.pointSize()));
    const double lines = double(table().fontMetrics().height()) / line;
    EXPECT_GT(w(), before);
    EXPECT_EQ(m_view.columnWidth(2), int(100.0 * w() / before + 0.5));
    EXPECT_EQ(m_view.columnWidthInCharacters(1), 10);
    EXPECT_EQ(m_view.rowHeight(2), int(80 * lines + 0.5));
    EXPECT_EQ(m_view.rowHeight(1), int(plain * lines + 0.5));
    m_view.setFont(VXFont(font.family(), 4));
    const int least = table().verticalHeader()->minimumSectionSize();
    EXPECT_GE(m_view.rowHeight(1), least);
    EXPECT_GE(m_view.rowHeight(2), least);
}

TEST_F(TableView, keepsThePlaceOfWhatIsInSight)
{
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937 generator(seed);
    const auto random = [&] { return static_cast<unsigned>(generator()); };
    NumberedModel model(300, 2);
    show(model);
    m_view.scrollTo({150, 1, nullptr});
    m_view.setActiveCell({150, 1, nullptr});
    m_view.selectRows({3, 150, 151, 299});
    settle();
    std::vector<unsigned> rows = model.rows();
    std::set<unsigned> selected{3, 150, 151, 299};
    for (int step = 0; step < 200; ++step) {
        const unsigned top = topRow();
        for (int change = 0; change < 5; ++change) {
            rows = model.rows();
            const unsigned row = rows[random() % rows.size()];
            const unsigned kind = random() % 3;
            if (kind == 0) {
                model.insertRow(row, {L"new"});
            } else if (row != top && row != 150) {
                if (kind == 1) {
                    model.removeRow(row);
                    selected.erase(row);
                } else {
                    model.moveRow(row, rows[random() % rows.size()]);
                }
            }
        }
        turn();
        rows = model.rows();
        const bool atEnd =
            table().verticalScrollBar()->value() == table().verticalScrollBar()->maximum();
        ASSERT_TRUE(topRow() == top || atEnd) << step;
        const std::vector<unsigned> now = m_view.selectedRows();
        ASSERT_EQ(std::set<unsigned>(now.begin(), now.end()), selected) << step;
        ASSERT_EQ(m_view.activeCell().row, 150U) << step;
    }
}

TEST_F(TableView, whatIsHiddenKeepsItsSizeWhenTheFontChanges)
{
    NumberedModel model(5);
    show(model);
    m_view.setRowVisible(2, false);
    m_view.setColumnVisible(2, false);
    m_view.setFont(VXFont(std::string(), 30, 0));
    settle();
    m_view.setRowVisible(2, true);
    m_view.setColumnVisible(2, true);
    EXPECT_GT(m_view.rowHeight(2), 10);
    EXPECT_GT(m_view.columnWidth(2), 10);
    m_view.setColumnWidthInCharacters(1, INT_MAX);
    EXPECT_GT(m_view.columnWidth(1), 1000);
}

} // namespace
} // namespace VOXI
