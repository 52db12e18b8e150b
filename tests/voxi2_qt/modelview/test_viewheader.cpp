#include "viewsupport.h"

#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

#include <cstdint>

namespace VOXI {
namespace {

using Uids = std::vector<unsigned>;

class ViewHeader : public ShownView<VXTableView2>
{
protected:
    ViewHeader() { show(m_model); }

    QHeaderView& header() { return *qtView().findChild<QHeaderView*>(); }
    QHeaderView& columnHeader()
    {
        for (auto* const each : qtView().findChildren<QHeaderView*>()) {
            if (each->orientation() == Qt::Horizontal && !each->isHidden())
                return *each;
        }
        return header();
    }
    int leftOf(int section) { return columnHeader().sectionViewportPosition(section); }
    void drag(int from, int to)
    {
        QWidget* const at = columnHeader().viewport();
        QTest::mousePress(at, Qt::LeftButton, {}, {from, 8});
        for (const int x : {from + (to - from) / 2, to, to})
            QTest::mouseMove(at, {x, 8});
        QTest::mouseRelease(at, Qt::LeftButton, {}, {to, 8});
        turn();
    }

    NumberedModel m_model{5};
    Log<VXColumnResizeEvent2> m_resized{m_view.columnResized()};
    Log<VXColumnMoveEvent2> m_moved{m_view.columnMoved()};
    Log<VXHeaderClickEvent2> m_clicked{m_view.headerClicked()};
};

TEST_F(ViewHeader, reportsClicksAndLeavesTheSortingToTheProgram)
{
    const auto click = [&](int section) {
        QTest::mouseClick(columnHeader().viewport(), Qt::LeftButton, {}, {leftOf(section) + 20, 8});
    };
    click(1);
    EXPECT_TRUE(m_clicked.isEmpty());
    m_view.setHeaderClickable(true);
    click(1);
    EXPECT_EQ(m_clicked.only().column(), 2U);
    EXPECT_EQ(m_clicked.only().order(), SortOrder::Ascending);
    EXPECT_EQ(m_clicked.only().button(), MouseButton::Left);
    m_view.setSortIndicator(2);
    EXPECT_EQ(m_view.sortIndicator(), (SortIndicator{2, SortOrder::Ascending}));
    click(1);
    EXPECT_EQ(m_clicked.last().order(), SortOrder::Descending);
    EXPECT_EQ(m_view.sortIndicator(), (SortIndicator{2, SortOrder::Ascending}));
    EXPECT_EQ(columnHeader().sortIndicatorOrder(), Qt::AscendingOrder) << "nobody has sorted";
    click(0);
    EXPECT_EQ(columnHeader().sortIndicatorSection(), 1);
    EXPECT_TRUE(m_view.selection().empty()) << "a click sorts and does not select";
    m_view.setSortIndicator(7);
    EXPECT_EQ(m_view.sortIndicator().column, 2U);
    m_model.insertColumn(1, L"new");
    settle();
    EXPECT_EQ(columnHeader().sortIndicatorSection(), 2);
    m_model.removeColumn(2);
    settle();
    EXPECT_EQ(m_view.sortIndicator(), SortIndicator());
    EXPECT_FALSE(columnHeader().isSortIndicatorShown());
}

TEST_F(ViewHeader, reportsSizesAndPlacesThatTheUserGives)
{
    m_view.setColumnMovable(true);
    m_view.setColumnWidth(1, 120);
    m_view.setColumnVisible(2, false);
    m_view.setColumnVisible(2, true);
    m_view.setColumnOrder({2, 1});
    m_view.setColumnOrder({1, 2});
    m_view.resizeColumnsToContents();
    EXPECT_TRUE(m_resized.isEmpty());
    EXPECT_TRUE(m_moved.isEmpty());
    m_view.setColumnWidth(1, 120);
    drag(119, 149);
    EXPECT_EQ(m_view.columnWidth(1), 150);
    EXPECT_EQ(m_resized.last().column(), 1U);
    EXPECT_EQ(m_resized.last().width(), 150);
    m_resized.clear();
    drag(leftOf(0) + 30, leftOf(2) + 60);
    EXPECT_EQ(m_moved.only().column(), 1U);
    EXPECT_EQ(m_moved.only().from(), 0);
    EXPECT_EQ(m_moved.only().to(), 2);
    EXPECT_EQ(m_view.columnOrder(), (Uids{2, 3, 1}));
    EXPECT_TRUE(m_resized.isEmpty());
    // What gives way to another column was not resized by the user, nor what a handler resizes.
    m_view.setColumnOrder({1, 2, 3});
    m_view.setColumnResizeMode(3, ColumnResizeMode::Stretch);
    m_resized.clear();
    std::set<unsigned> columns;
    TROV::Listener listener;
    m_view.columnResized().connect(&listener, [&](const VXColumnResizeEvent2& event) {
        columns.insert(event.column());
        m_view.setColumnWidth(2, 90);
    });
    drag(149, 139);
    EXPECT_EQ(columns, std::set<unsigned>{1});
}

/// For what a program puts over the columns.
TEST_F(ViewHeader, tellsWhereColumnsAreAndWhenTheUserScrolls)
{
    Log<VXViewScrollEvent2> scrolls{m_view.scrolled()};
    m_view.setColumnWidth(1, 900);
    settle();
    const VXRect<int> before = m_view.columnHeaderRect(1);
    EXPECT_EQ(before.width, 900);
    EXPECT_EQ(m_view.columnHeaderRect(2).x, before.x + 900);
    EXPECT_EQ(m_view.columnHeaderRect(9), VXRect<int>());
    m_view.scrollTo({1, 3, nullptr});
    EXPECT_LT(m_view.columnHeaderRect(1).x, before.x);
    m_view.scrollTo({1, 1, nullptr});
    m_view.setColumnVisible(2, false);
    EXPECT_EQ(m_view.columnHeaderRect(2), VXRect<int>());
    EXPECT_TRUE(scrolls.isEmpty());
    const int start = m_view.columnHeaderRect(1).x;
    qtView().horizontalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
    EXPECT_FALSE(scrolls.isEmpty());
    EXPECT_LT(m_view.columnHeaderRect(1).x, start);
}

TEST_F(ViewHeader, isSavedAndRestoredAndNoOtherTextIsTrusted)
{
    m_view.setColumnWidth(1, 111);
    m_view.setColumnWidth(2, 222);
    m_view.setColumnVisible(2, false);
    m_view.setColumnOrder({3, 2, 1});
    m_view.setSortIndicator(1, SortOrder::Descending);
    const std::string saved = m_view.saveHeaderState();
    VXTableModel2 other({L"only 1"});
    other.appendColumn(L"2");
    other.appendColumn(L"3");
    other.appendColumn(L"4");
    show(other);
    m_view.restoreHeaderState(saved);
    EXPECT_EQ(m_view.columnOrder(), (Uids{3, 2, 1, 4}));
    EXPECT_EQ(m_view.columnWidth(1), 111);
    EXPECT_FALSE(m_view.isColumnVisible(2));
    EXPECT_EQ(m_view.sortIndicator(), (SortIndicator{1, SortOrder::Descending}));
    m_view.setColumnVisible(2, true);
    EXPECT_EQ(m_view.columnWidth(2), 222) << "the width that it had";
    m_view.restoreHeaderState(saved);
    const std::string restored = m_view.saveHeaderState();
    std::vector<std::string> wrong{"", "header:1:", saved.substr(0, saved.size() - 4), saved + "A"};
    for (std::size_t i = 0; i < saved.size(); i += 3) {
        wrong.push_back(saved);
        wrong.back()[i] = wrong.back()[i] == 'x' ? 'y' : 'x';
    }
    m_view.setColumnOrder({1, 2});
    const std::string before = m_view.saveHeaderState();
    for (const std::string& text : wrong) {
        m_view.restoreHeaderState(text);
        EXPECT_EQ(m_view.saveHeaderState(), before) << text;
    }
    m_view.restoreHeaderState(restored);
    EXPECT_EQ(m_view.saveHeaderState(), restored);
    EXPECT_TRUE(m_resized.isEmpty());
    EXPECT_TRUE(m_moved.isEmpty());
}

/// The first two columns and rows are called the same; the second one has an icon and a tool tip.
class AdornedModel : public NumberedModel
{
public:
    using NumberedModel::NumberedModel;
    ~AdornedModel() override { retire(); }

    void queryHeader(const HeaderQuery2& query) override
    {
        const bool isColumn = query.orientation() == Orientation::Horizontal;
        HeaderQueryResult2 result;
        result.set(1, CellUIData("same"));
        result.set(2, CellUIData("same")
                          .setIcon(Icon::fromPixmap(
                              Pixmap(16, 16, std::vector<std::uint32_t>(256, 0xff00ffff))))
                          .setToolTip(isColumn ? "of a column" : "of a row"));
        answer(query, std::move(result));
    }
};

TEST_F(ViewHeader, showsIconsAndToolTipsByRolesOfItsOwn)
{
    AdornedModel model(5);
    show(model);
    for (auto* const each : qtView().findChildren<QHeaderView*>()) {
        const Qt::Orientation orientation = each->orientation();
        const bool isColumn = orientation == Qt::Horizontal;
        const int begin = each->sectionViewportPosition(1);
        const QRect section = isColumn ? QRect(begin, 0, each->sectionSize(1), each->height())
                                       : QRect(0, begin, each->width(), each->sectionSize(1));
        const QImage shown = each->viewport()->grab(section).toImage();
        int inColor = 0;
        for (int x = 0; x < shown.width(); ++x) {
            for (int y = 0; y < shown.height(); ++y)
                inColor += shown.pixelColor(x, y) == QColor(255, 0, 255);
        }
        EXPECT_GE(inColor, 100);
        const QPoint at = section.topLeft() + QPoint(5, 5);
        QHelpEvent rest(QEvent::ToolTip, at, each->viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(each->viewport(), &rest);
        EXPECT_EQ(QToolTip::text(),
                  isColumn ? QStringLiteral("of a column") : QStringLiteral("of a row"));
        EXPECT_GE(each->sectionSizeHint(1), each->sectionSizeHint(0) + (isColumn ? 16 : 0));
        for (const int role : {Qt::DecorationRole, Qt::ToolTipRole})
            EXPECT_FALSE(qtModel().headerData(1, orientation, role).isValid());
    }
}

} // namespace
} // namespace VOXI
