#include "support/waitfor.h"
#include "viewsupport.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/modelview/vxexplorerbarview2.h"
#include "voxi2/modelview/vxsimplepropertybrowser2.h"
#include "voxi2/modelview/vxtreemodel2.h"

#include <QClipboard>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>

#include <utility>

namespace VOXI {
namespace {

using Uids = std::vector<unsigned>;

class ViewSelection : public ShownView<VXTableView2>
{
protected:
    ViewSelection() { show(m_model); }

    NumberedModel m_model{20};
    Log<VXViewSelectionChangeEvent2> m_selected{m_view.selectionChanged()};
    Log<VXEditRequestEvent2> m_current{m_view.activeCellChanged()};
};

TEST_F(ViewSelection, isReportedWhenTheUserSelectsAndOtherwiseNot)
{
    m_view.selectRows({2, 3});
    m_view.selectColumns({2});
    m_view.setSelection({{5, 1, nullptr}, {6, 2, nullptr}});
    m_view.setActiveCell({5, 1, nullptr});
    EXPECT_TRUE(m_view.isSelected(6, 2));
    EXPECT_FALSE(m_view.isSelected(6, 3));
    EXPECT_TRUE(m_view.isSelected(2, 3));
    EXPECT_TRUE(m_view.isSelected(20, 2));
    EXPECT_EQ(m_view.activeCell(), (ModelCell2{5, 1, &m_model}));
    m_model.removeRow(2);
    m_model.moveRow(3, 0);
    settle();
    EXPECT_TRUE(m_view.isSelected(3, 3));
    m_view.clearSelection();
    EXPECT_TRUE(m_view.selection().empty());
    m_view.selectAll();
    EXPECT_EQ(m_view.selection().size(), 19U * 3);
    EXPECT_TRUE(m_selected.isEmpty());
    EXPECT_TRUE(m_current.isEmpty());

    click(4, 2);
    EXPECT_EQ(m_selected.only().cells(), (std::vector<ModelCell2>{{4, 2, &m_model}}));
    EXPECT_EQ(m_selected.only().view(), &m_view);
    EXPECT_EQ(m_current.only().row(), 4U);
    EXPECT_EQ(m_current.only().column(), 2U);
    m_selected.clear();
    m_view.imitateSetSelection({{7, 1, nullptr}, {8, 1, nullptr}});
    EXPECT_EQ(m_selected.only().numberOfCells(), 3U);
    m_view.imitateSetActiveCell({8, 1, nullptr});
    EXPECT_EQ(m_current.last().row(), 8U);
    EXPECT_EQ(m_current.count(), 2);
    m_model.removeRow(8); // the current one
    settle();
    EXPECT_EQ(m_current.count(), 3);
    EXPECT_EQ(m_current.last().row(), m_view.activeCell().row);
    EXPECT_EQ(m_selected.count(), 1);
}

TEST_F(ViewSelection, goesByTheBehaviourAndTheNumbersThatThereAre)
{
    m_view.setSelectionBehavior(SelectionBehavior::Rows);
    EXPECT_EQ(m_view.selectionBehavior(), SelectionBehavior::Rows);
    m_view.setSelection({{5, 2, nullptr}, {6, 2, nullptr}});
    EXPECT_EQ(m_view.selection().size(), 6U);
    EXPECT_EQ(m_view.selectedRows(), (Uids{5, 6}));
    m_view.selectRows({9, 77, 8, 9});
    EXPECT_EQ(m_view.selectedRows(), (Uids{5, 6, 8, 9}));
    EXPECT_EQ(qtView().selectionModel()->selection().size(), 2) << "neighbours are one range";
    m_view.setSelectionBehavior(SelectionBehavior::Columns);
    m_view.clearSelection();
    m_view.setSelection({{5, 2, nullptr}, {6, 2, nullptr}});
    EXPECT_EQ(m_view.selection().size(), 20U);
    NumberedModel other(2);
    m_view.clearSelection();
    m_view.setSelection({{1, 1, &other}, {2, 1, &other}});
    EXPECT_TRUE(m_view.selection().empty()) << "cells of another model";
    VXTableModel2 empty;
    m_view.setViewModel(&empty);
    m_view.selectRows({1});
    EXPECT_TRUE(m_view.selectedRows().empty());
    m_tester.reset();
}

TEST_F(ViewSelection, namesCellsThatAreNotKnownYet)
{
    NumberedModel large(5000);
    show(large);
    m_view.selectAll();
    EXPECT_EQ(m_view.selection().size(), 15000U);
    EXPECT_TRUE(m_view.isSelected(4000, 1));
    EXPECT_FALSE(m_view.cellInfo(4000, 1).isKnown);
}

TEST_F(ViewSelection, mayEndTheViewAndItsModelInItsHandler)
{
    auto view = std::make_unique<VXTableView2>(&m_window);
    auto model = std::make_unique<NumberedModel>(5);
    m_window.setCentralWidget(view.get());
    view->show();
    view->setViewModel(model.get());
    turn();
    qt(*view)->grab();
    turn();
    qt(*view)->grab();
    QPointer<QWidget> gone = qt(*view);
    view->selectionChanged().connect(nullptr, [&](const VXViewSelectionChangeEvent2&) {
        view->setViewModel(&m_model);
        model.reset();
        view.reset();
        runDeletions();
    });
    auto* const table = qobject_cast<QAbstractItemView*>(gone.data());
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                      table->visualRect(table->model()->index(1, 1)).center());
    EXPECT_FALSE(view);
    runDeletions();
    EXPECT_TRUE(gone.isNull());
}

TEST_F(ViewSelection, isToldOfWhenTheRowsAreInPlaceAgain)
{
    auto model = std::make_unique<NumberedModel>(30);
    show(*model);
    m_view.setActiveCell({10, 1, nullptr});
    int rows = 0;
    TROV::Listener listener;
    m_view.activeCellChanged().connect(&listener, [&](const VXEditRequestEvent2& event) {
        EXPECT_EQ(event.row(), m_view.activeCell().row);
        rows = qtModel().rowCount();
        m_tester.reset();
        m_view.setViewModel(nullptr);
        model.reset();
    });
    model->removeRow(10);
    turn();
    EXPECT_EQ(rows, 29);
    EXPECT_FALSE(model);
    runDeletions();
    settle();
    EXPECT_TRUE(m_view.activeCell().isNull());
}

TEST_F(ViewSelection, isCopiedAsTextAndAsTable)
{
    m_model.setValue(2, 2, L"a\tb \"c\"");
    m_model.setValue(2, 1, L"<b>");
    settle();
    m_view.setSelection({{2, 1, nullptr}, {2, 2, nullptr}});
    m_view.setSelection({{4, 3, nullptr}, {4, 3, nullptr}});
    m_view.setColumnOrder({3, 1});
    EXPECT_EQ(m_view.selectionAsText(), L"\t<b>\t\"a\tb \"\"c\"\"\"\nrow 4, column 3\t\t");
    EXPECT_EQ(m_view.selectionAsHtml(),
              L"<table><tr><td></td><td>&lt;b&gt;</td><td>a\tb &quot;c&quot;</td></tr>"
              L"<tr><td>row 4, column 3</td><td></td><td></td></tr></table>");
    m_view.setColumnVisible(1, false);
    QTest::keySequence(&qtView(), QKeySequence::Copy);
    const QMimeData* const copied = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(copied->text(), QStringLiteral("\t\"a\tb \"\"c\"\"\"\nrow 4, column 3\t"));
    EXPECT_TRUE(copied->hasHtml());
    m_view.clearSelection();
    m_view.copySelection();
    EXPECT_FALSE(QGuiApplication::clipboard()->text().isEmpty()) << "nothing to copy";
    EXPECT_EQ(m_view.selectionAsText(), L"");
}

TEST_F(ViewSelection, isFetchedToBeCopied)
{
    NumberedModel large(3'000);
    m_view.setCacheLimit(100);
    show(large);
    m_tester.reset(); // it looks at all rows for each answer
    m_view.selectColumns({2});
    ASSERT_FALSE(m_view.cellInfo(2'000, 2).isKnown);
    QClipboard* const clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    m_view.copySelection();
    m_view.clearSelection();
    large.moveRow(3'000, 1);
    EXPECT_TRUE(waitFor([&] { return !clipboard->text().isEmpty(); }));
    const QStringList lines = clipboard->text().split(u'\n');
    ASSERT_EQ(lines.size(), 3'000);
    EXPECT_EQ(lines[0], QStringLiteral("row 3000, column 2"));
    EXPECT_EQ(lines[1'999], QStringLiteral("row 1999, column 2"));
    EXPECT_FALSE(lines.contains(QString()));
    settle();
    m_view.scrollTo({1, 1, nullptr});
    settle();
    m_view.scrollTo({500, 1, nullptr});
    settle();
    EXPECT_FALSE(m_view.cellInfo(2'000, 2).isKnown) << "it need not be kept";
}

TEST_F(ViewSelection, isSearchedByKeysAmongWhatIsKnown)
{
    NumberedModel large(1'000);
    show(large);
    for (const unsigned row : {5U, 7U})
        large.setValue(row, 1, L"Anna " + std::to_wstring(row));
    settle();
    m_view.setActiveCell({1, 1, nullptr});
    const int known = [&] { return m_view.cellInfo(900, 1).isKnown; }();
    type(QStringLiteral("anna 7"));
    EXPECT_EQ(m_view.activeCell().row, 7U);
    EXPECT_EQ(m_selected.last().rows(), Uids{7});
    settle();
    EXPECT_EQ(m_view.cellInfo(900, 1).isKnown, known);
}

/// A key goes where it means to, also where nothing is known yet.
TEST_F(ViewSelection, keysGoToCellsThatAreNotKnown)
{
    SlowModel silent(3000);
    show(silent);
    m_view.setActiveCell({1, 1, nullptr});
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&qtView(), key, modifiers);
        return m_view.activeCell().row;
    };
    EXPECT_EQ(press(Qt::Key_Down), 2U);
    EXPECT_EQ(press(Qt::Key_End, Qt::ControlModifier), 3000U);
    EXPECT_EQ(press(Qt::Key_Up), 2999U);
    EXPECT_EQ(press(Qt::Key_Home, Qt::ControlModifier), 1U);
    EXPECT_FALSE(m_view.cellInfo(1, 1).isEnabled);
}

TEST_F(ViewSelection, aKeyGoesItsWayThroughALoopThatAHandlerRuns)
{
    SlowModel silent(3000);
    show(silent);
    m_view.setActiveCell({1, 1, nullptr});
    std::vector<bool> isOpen;
    const auto look = [&] {
        const QModelIndex unknown = qtModel().index(2000, 0);
        isOpen.push_back(qtModel().flags(unknown).testFlag(Qt::ItemIsEnabled));
    };
    TROV::Listener listener;
    bool isFirst = true;
    m_view.activeCellChanged().connect(&listener, [&](const VXEditRequestEvent2&) {
        look();
        if (!std::exchange(isFirst, false))
            return;
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&] {
            look();
            QTest::keyClick(&qtView(), Qt::Key_Down);
            loop.quit();
        });
        loop.exec();
        look();
    });
    QTest::keyClick(&qtView(), Qt::Key_Down);
    look();
    EXPECT_EQ(isOpen, (std::vector<bool>{true, false, true, true, false}));
    EXPECT_EQ(m_view.activeCell().row, 3U);
}

/// Qt makes the first row the current one when the focus comes and there is none.
TEST(ViewFocus, isFollowedByNoReportWhereTheProgramGivesIt)
{
    VXTreeModel2 model({"header"});
    model.appendRow(0, {"row"});
    VXSimpleProperty2 property("name");
    VXPanel2 page(nullptr);
    VXBoxLayout2 row(&page);
    VXTableView2 table(&page);
    VXExplorerBarView2 bar(&page);
    VXSimplePropertyBrowser2 properties(&page);
    table.setViewModel(&model);
    bar.setViewModel(&model);
    properties.addProperty(&property);
    for (VXWidget2* const each : std::initializer_list<VXWidget2*>{&table, &bar, &properties})
        row.addWidget(each);
    Log tables(table.activeCellChanged());
    Log bars(bar.currentChanged());
    Log browsers(properties.currentChanged());
    VXPanel2 other(nullptr);
    page.show();
    for (int i = 0; i < 3; ++i) {
        qt(page)->grab();
        turn();
    }
    for (VXWidget2* const each : std::initializer_list<VXWidget2*>{&table, &bar, &properties}) {
        other.show();
        other.setActiveWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(qt(other)));
        each->setFocus();
        page.setActiveWindow();
        EXPECT_TRUE(waitFor([&] { return isWithin(qt(*each), QApplication::focusWidget()); }));
    }
    EXPECT_EQ(table.activeCell().row, 1U);
    EXPECT_EQ(bar.currentRow(), 1U);
    EXPECT_EQ(properties.current(), &property);
    EXPECT_TRUE(tables.isEmpty() && bars.isEmpty() && browsers.isEmpty());
}

} // namespace
} // namespace VOXI
