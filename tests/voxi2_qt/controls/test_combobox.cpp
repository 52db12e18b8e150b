#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/modelview/vxabstractviewmodel2.h"
#include "voxi2/modelview/vxtablemodel2.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>
#include <numeric>

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

class ComboBoxOfModel : public ComboBox
{
protected:
    ComboBoxOfModel()
    {
        m_box.setViewModel(&m_model);
        m_box.setModelColumn(2);
        EXPECT_TRUE(waitFor([this] { return m_box.currentText() == "anna"; }));
    }

    /// Until the box shows what the model says.
    bool shows(const std::string& text)
    {
        qt(m_box)->grab();
        return waitFor([&] { return m_box.currentText() == text; });
    }

    VXTableModel2 m_model{{L"number", L"name"}};
    const unsigned m_anna = m_model.appendRow({L"1", L"anna"});
    const unsigned m_ben = m_model.appendRow({L"2", L"ben"});
    const unsigned m_carla = m_model.appendRow({L"3", L"carla"});
};

TEST_F(ComboBoxOfModel, theCurrentItemStaysWhateverComesAndGoes)
{
    EXPECT_EQ(m_box.count(), 3);
    m_box.addItem("not taken");
    m_box.removeItem(0);
    m_box.clear();
    EXPECT_EQ(m_box.count(), 3);
    m_box.setCurrentUid(m_ben);
    EXPECT_TRUE(shows("ben"));
    const unsigned zoe = m_model.insertRow(m_anna, {L"0", L"zoe"});
    m_model.removeRow(m_anna);
    m_model.moveRow(m_carla, zoe);
    EXPECT_TRUE(waitFor([&] { return m_box.find(m_carla) == 0; }));
    EXPECT_EQ(m_box.currentUid(), m_ben);
    EXPECT_EQ(m_box.currentIndex(), 2);
    EXPECT_EQ(m_box.find(m_anna), -1);
    m_model.setValue(m_ben, 2, L"benjamin");
    EXPECT_TRUE(shows("benjamin"));
    m_model.removeColumn(1);
    m_box.setEditable(true);
    EXPECT_TRUE(shows("benjamin"));
    m_model.setValue(m_ben, 2, L"b");
    EXPECT_TRUE(shows("b"));
    m_model.removeRow(m_ben);
    EXPECT_TRUE(waitFor([&] { return m_box.count() == 2; }));
    EXPECT_EQ(m_box.currentUid(), zoe);
    EXPECT_TRUE(m_chosen.isEmpty() && m_edited.isEmpty()) << "none of it is the user's";

    m_box.setEditable(false);
    m_box.imitateChoice(0);
    EXPECT_EQ(m_chosen.only().newUid(), m_carla);
    m_box.setViewModel(nullptr);
    EXPECT_EQ(m_box.viewModel(), nullptr);
    m_box.addItem("its own again", 5);
    EXPECT_EQ(m_box.currentUid(), 5u);
    EXPECT_EQ(m_chosen.count(), 1);
}

TEST_F(ComboBoxOfModel, theModelMayGoInAHandlerOfTheList)
{
    auto* const other = new VXTableModel2({L"name"});
    other->appendRow({L"of the other"});
    m_box.currentChanged().connect(other, [&] { m_box.setViewModel(other); });
    box().showPopup();
    QTest::keyClick(box().view(), Qt::Key_End);
    QTest::keyClick(box().view(), Qt::Key_Return);
    m_box.setModelColumn(0);
    EXPECT_TRUE(shows("of the other"));
    EXPECT_EQ(m_chosen.only().newUid(), m_carla);
    delete other;
    turn();
    EXPECT_EQ(m_box.viewModel(), nullptr);
    m_box.setCurrentIndex(0);
    qt(m_box)->grab();
}

/// A million rows, of which it counts those that it is asked for.
class CountingModel : public VXAbstractViewModel2
{
public:
    CountingModel()
    {
        std::vector<unsigned> rows(1'000'000);
        std::iota(rows.begin(), rows.end(), 1);
        changeSize(SizeChange2::appendColumns({1}));
        changeSize(SizeChange2::appendRows(rows));
    }

    void query(const ViewQuery2& query) override
    {
        QueryResult2 result;
        for (const unsigned row : query.rows()) {
            result.set(row, 1, L"row " + std::to_wstring(row));
            ++m_asked;
        }
        answer(query, std::move(result));
    }

    int m_asked = 0;
};

TEST_F(ComboBox, aModelIsAskedOnlyForWhatIsSeen)
{
    CountingModel model;
    m_box.setViewModel(&model);
    box().resize(box().sizeHint());
    box().showPopup();
    EXPECT_TRUE(waitFor([&] {
        box().view()->grab();
        return m_box.currentText() == "row 1";
    }));
    EXPECT_LT(box().view()->height(), 1000);
    box().hidePopup();
    m_box.setCurrentUid(500'000);
    press(Qt::Key_Down);
    EXPECT_EQ(m_chosen.last().newUid(), 500'001u) << "though it is not known yet";
    QTest::keyClicks(&box(), QStringLiteral("zzz"));
    m_box.setEditable(true);
    m_box.setCurrentText("typed");
    QTest::keyClick(box().lineEdit(), Qt::Key_Return);
    m_box.setCurrentUid(777'777);
    EXPECT_TRUE(waitFor([&] {
        box().grab();
        return m_box.currentText() == "row 777777";
    }));
    EXPECT_LT(model.m_asked, 2000);
}

} // namespace
} // namespace VOXI
