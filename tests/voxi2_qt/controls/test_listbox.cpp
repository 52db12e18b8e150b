#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxlistbox2.h"
#include "voxi2/kernel/vxaction2.h"

#include <QListWidget>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

using testing::Test;

class ListBox : public Test
{
protected:
    ListBox() { m_list.addItems(VXStringList{"one", "two", "three"}); }

    QListWidget* widget() { return qobject_cast<QListWidget*>(qt(m_list)); }
    /// Clicks where the item of that row is.
    void press(int row, bool twice = false)
    {
        const QPoint at = widget()->visualItemRect(widget()->item(row)).center();
        QTest::mouseClick(widget()->viewport(), Qt::LeftButton, {}, at);
        if (twice)
            QTest::mouseDClick(widget()->viewport(), Qt::LeftButton, {}, at);
        turn();
    }

    VXWindow2 m_window;
    VXListBox2 m_list{&m_window};
};

TEST_F(ListBox, keepsTheOrderAndCleansTexts)
{
    m_list.removeItems();
    EXPECT_EQ(m_list.count(), 0);
    m_list.addItems(VXStringList{"a&nbsp;b", "A&NBSP;B", " &amp;nbsp; "});
    EXPECT_EQ(m_list.items(), (VXStringList{"a b", "A&NBSP;B", " &amp;nbsp; "}));
    m_list.insertItems(1, std::vector<std::wstring>{L"\x20ac&nbsp;", L"second"});
    EXPECT_EQ(m_list.itemAtU(1), L"\x20ac ");
    EXPECT_EQ(m_list.itemAtU(2), L"second");
    m_list.insertItems(-7, VXStringList{"first"});
    m_list.insertItems(99, VXStringList{"last"});
    EXPECT_EQ(m_list.itemAt(0), "first");
    EXPECT_EQ(m_list.itemsU().back(), L"last");
    EXPECT_EQ(m_list.itemAt(99), "");
    EXPECT_EQ(m_list.itemAtU(-1), L"");
}

TEST_F(ListBox, removesAllOrOneByItsOwnName)
{
    Log selected(m_list.selectionChanged());
    m_list.setCurrentRow(1);
    auto* shown = new QWidget;
    widget()->setItemWidget(widget()->item(0), shown);
    m_list.removeItems(0);
    EXPECT_EQ(widget()->itemWidget(widget()->item(0)), nullptr);
    EXPECT_EQ(m_list.count(), 3) << "the item stays";
    m_list.removeItems(17);
    m_list.eraseItem(17);
    m_list.eraseItem(1);
    EXPECT_EQ(m_list.items(), (VXStringList{"one", "three"}));
    m_list.removeItems(-1);
    EXPECT_EQ(m_list.count(), 0);
    EXPECT_EQ(m_list.currentRow(), -1);
    runDeletions();
    EXPECT_TRUE(selected.isEmpty());
}

TEST_F(ListBox, reportsWhatTheUserSelects)
{
    m_window.setCentralWidget(&m_list);
    m_window.show();
    Log selected(m_list.selectionChanged());
    m_list.setSelection(0, true);
    m_list.setSelection(9, true);
    m_list.setCurrentRow(2);
    m_list.setSelection(2, false);
    m_list.setSelection(0, true);
    turn();
    EXPECT_EQ(m_list.selections(), std::vector{0});
    EXPECT_TRUE(selected.isEmpty());
    press(1);
    ASSERT_EQ(selected.count(), 1);
    EXPECT_EQ(selected.last().listBox(), &m_list);
    EXPECT_EQ(selected.last().rows(), std::vector{1});
    m_list.imitateSelect(9);
    m_list.imitateSelect(2);
    EXPECT_EQ(selected.last().rows(), std::vector{2});

    m_list.setSelectionMode(SelectionMode::Multi);
    m_list.clearSelection();
    m_list.addItems(VXStringList{"one"});
    m_list.imitateSelectByString("one");
    m_list.imitateSelectByString("ONE");
    EXPECT_EQ(m_list.selections(), (std::vector{0, 3}));
    EXPECT_EQ(selected.count(), 4);

    Log clicked(m_list.doubleClicked());
    press(2, true);
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked.last().row(), 2);
}

TEST_F(ListBox, hasTheDeleteKeyForItself)
{
    VXAction2 action(&m_window);
    action.setAccelerator("Del");
    Log triggered(action.triggered());
    m_window.setCentralWidget(&m_list);
    m_window.show();
    m_window.setActiveWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(qt(m_window)));
    Log pressed(m_list.keyPressed());
    m_list.setFocus();
    QTest::keyClick(qt(m_list), Qt::Key_Delete);
    turn();
    EXPECT_TRUE(triggered.isEmpty());
    EXPECT_TRUE(pressed.takeOne());
}

/// Only where somebody gave the item a width.
TEST_F(ListBox, showsTextsThatAreTooWideAsToolTips)
{
    m_list.resize({100, 100});
    m_list.show();
    Q_EMIT widget()->itemEntered(widget()->item(0));
    EXPECT_FALSE(QToolTip::isVisible());
    widget()->item(0)->setSizeHint({1000, 20});
    Q_EMIT widget()->itemEntered(widget()->item(0));
    EXPECT_EQ(QToolTip::text(), QStringLiteral("one"));
    Q_EMIT widget()->itemEntered(widget()->item(1));
    EXPECT_TRUE(waitFor([] { return !QToolTip::isVisible(); }));
}

} // namespace
} // namespace VOXI
