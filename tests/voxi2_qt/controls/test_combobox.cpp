#include "../kernel/toolkit.h"
#include "voxi2/controls/vxcombobox2.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

class ComboBox : public testing::Test
{
protected:
    ComboBox()
    {
        m_box.addItems({{L"red", 7}, {L"green", 8}, {L"blue", 9, {}, L"cold", false}});
        m_box.addSeparator();
        m_box.addItem("none");
        m_box.show();
        m_box.setFocus();
        turn();
    }

    QComboBox& box() const { return dynamic_cast<QComboBox&>(*qt(m_box)); }
    void press(Qt::Key key) const
    {
        QTest::keyClick(&box(), key);
        turn();
    }

    VXComboBox2 m_box;
    Log<VXComboBoxSelectEvent2> m_chosen{m_box.currentChanged()};
    Log<VXComboBoxTextEvent2> m_edited{m_box.textEdited()};
};

TEST_F(ComboBox, itemsAreFoundByIndexNumberAndText)
{
    EXPECT_EQ(m_box.count(), 5);
    EXPECT_EQ(m_box.currentIndex(), 0);
    EXPECT_EQ(m_box.currentUid(), 7u);
    EXPECT_EQ(m_box.find(9), 2);
    EXPECT_EQ(m_box.find(0), -1);
    EXPECT_EQ(m_box.findText("none"), 4);
    EXPECT_EQ(m_box.findText("None"), -1);
    const ComboItem blue{L"blue", 9, {}, L"cold", false};
    EXPECT_EQ(m_box.item(2), blue);
    EXPECT_EQ(m_box.item(-1), ComboItem());
    m_box.setItem(2, {L"azure", 0});
    EXPECT_EQ(m_box.item(2), (ComboItem{L"azure", 0}));
    m_box.setCurrentUid(8);
    m_box.setCurrentUid(4711);
    m_box.setCurrentIndex(99);
    EXPECT_EQ(m_box.currentText(), "green");
    m_box.insertItems(1, {{L"cyan", 3}});
    EXPECT_EQ(m_box.currentIndex(), 2);
    m_box.removeItem(2);
    m_box.removeItem(-3);
    EXPECT_EQ(m_box.count(), 5);
    m_box.clear();
    EXPECT_EQ(m_box.currentIndex(), -1);
    turn();
    EXPECT_TRUE(m_chosen.isEmpty());
}

TEST_F(ComboBox, theUsersChoiceIsReported)
{
    press(Qt::Key_Down);
    ASSERT_EQ(m_chosen.count(), 1);
    EXPECT_EQ(m_chosen.last().comboBox(), &m_box);
    EXPECT_EQ(m_chosen.last().newIndex(), 1);
    EXPECT_EQ(m_chosen.last().newUid(), 8u);
    press(Qt::Key_Down); // over what cannot be chosen
    EXPECT_EQ(m_chosen.last().newIndex(), 4);
    m_box.imitateChoice(2);
    m_box.imitateChoice(3);
    EXPECT_EQ(m_box.currentIndex(), 4);

    // By the list, whose handler ends it.
    box().showPopup();
    QAbstractItemView* const list = box().view();
    ASSERT_TRUE(list->isVisible());
    auto* const other = new VXComboBox2;
    m_chosen.clear();
    m_box.currentChanged().connect(other, [&](const VXComboBoxSelectEvent2&) {
        m_box.clear();
        m_box.addItem("again");
        other->destroy();
    });
    QTest::keyClick(list, Qt::Key_Home);
    QTest::keyClick(list, Qt::Key_Return);
    turn();
    ASSERT_EQ(m_chosen.count(), 1);
    EXPECT_EQ(m_chosen.last().newUid(), 7u);
    EXPECT_EQ(m_box.currentText(), "again");
}

TEST_F(ComboBox, typedTextsAreReportedAndKeptWhereThePolicySays)
{
    m_box.setEditable(true);
    m_box.setInsertPolicy(ComboInsertPolicy::AtTop);
    m_box.setCurrentText("any");
    EXPECT_EQ(m_box.currentTextU(), L"any");
    turn();
    EXPECT_TRUE(m_edited.isEmpty() && m_chosen.isEmpty());
    box().lineEdit()->selectAll();
    QTest::keyClicks(box().lineEdit(), QStringLiteral("xy"));
    turn();
    ASSERT_EQ(m_edited.count(), 2);
    EXPECT_EQ(m_edited.last().newText(), L"xy");
    EXPECT_EQ(m_box.count(), 5);
    QTest::keyClick(box().lineEdit(), Qt::Key_Return);
    turn();
    EXPECT_EQ(m_box.item(0).text, L"xy");
    EXPECT_EQ(m_chosen.last().newIndex(), 0);
}

} // namespace
} // namespace VOXI
