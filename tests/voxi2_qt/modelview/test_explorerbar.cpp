#include "support/randomseed.h"
#include "viewsupport.h"
#include "voxi2/modelview/vxexplorerbarview2.h"

#include <QAccessible>
#include <QScrollBar>

#include <numeric>
#include <random>

namespace VOXI {
namespace {

class ExplorerBarView : public ShownView<VXExplorerBarView2>
{
protected:
    ExplorerBarView()
    {
        m_files = m_model.appendRow(0, {L"File tasks"});
        m_copy = m_model.appendRow(m_files, {CellUIData(L"Copy").setToolTip(L"to another place")});
        m_erase = m_model.appendRow(m_files, {CellUIData(L"Erase").setEnabled(false)});
        m_places = m_model.appendRow(0, {L"Places"});
        m_home = m_model.appendRow(m_places, {L"Home"});
        m_empty = m_model.appendRow(0, {L"Nothing"});
        show(m_model);
    }

    void show(VXAbstractViewModel2& model)
    {
        m_view.setViewModel(&model);
        settle();
    }
    void click(unsigned row)
    {
        const VXRect<int> rect = m_view.rowRect(row);
        const QPoint at(rect.x + rect.width / 3, rect.y + rect.height / 2);
        QTest::mouseClick(viewport(), Qt::LeftButton, {}, viewport()->mapFrom(qt(m_view), at));
        turn();
    }
    void press(Qt::Key key)
    {
        QTest::keyClick(&qtView(), key);
        turn();
    }
    static std::string narrow(const std::wstring& text) { return {text.begin(), text.end()}; }
    /// What slides has come to rest.
    bool isAtRest(unsigned row, int top)
    {
        return waitFor([&] { return m_view.rowRect(row).y == top; });
    }
    /// What was reported, and of which row, since the last time.
    std::string reports()
    {
        std::string all;
        const auto add = [&](const char* what, auto& log) {
            for (int i = 0; i < log.count(); ++i)
                all += what + narrow(m_model.value(log[std::size_t(i)].row(), 1).textU()) + ' ';
            log.clear();
        };
        add("folded ", m_folded);
        add("unfolded ", m_unfolded);
        add("current ", m_current);
        add("activated ", m_activated);
        return all;
    }

    VXTreeModel2 m_model{{L"Task"}};
    unsigned m_files = 0;
    unsigned m_copy = 0;
    unsigned m_erase = 0;
    unsigned m_places = 0;
    unsigned m_home = 0;
    unsigned m_empty = 0;
    Log<VXGroupViewCurrentEvent2> m_current{m_view.currentChanged()};
    Log<VXGroupViewActivateEvent2> m_activated{m_view.activated()};
    Log<VXGroupFoldEvent2> m_folded{m_view.folded()};
    Log<VXGroupUnfoldEvent2> m_unfolded{m_view.unfolded()};
};

TEST_F(ExplorerBarView, foldsAndActivatesByThePointer)
{
    const int places = m_view.rowRect(m_places).y;
    click(m_files);
    EXPECT_EQ(reports(), "folded File tasks current File tasks ");
    EXPECT_TRUE(m_view.isGroupFolded(m_files));
    EXPECT_TRUE(isAtRest(m_places, m_view.rowRect(m_files).y + m_view.rowRect(m_files).height + 8));
    EXPECT_FALSE(m_view.isRowInSight(m_copy));
    EXPECT_EQ(m_view.rowRect(m_copy), VXRect<int>());
    click(m_files);
    EXPECT_EQ(reports(), "unfolded File tasks ");
    EXPECT_TRUE(isAtRest(m_places, places));

    const VXRect<int> copy = m_view.rowRect(m_copy);
    EXPECT_EQ(m_view.rowAt({copy.x + 9, copy.y + 1}), m_copy);
    click(m_copy);
    EXPECT_EQ(reports(), "current Copy activated Copy ");
    click(m_erase); // is disabled
    EXPECT_EQ(reports(), "current Erase ");
    click(m_empty); // has nothing to fold
    EXPECT_EQ(reports(), "current Nothing ");
    // Pressed on one, let go on another
    QTest::mousePress(viewport(), Qt::LeftButton, {}, {copy.x + 20, copy.y + 5});
    const VXRect<int> home = m_view.rowRect(m_home);
    QTest::mouseRelease(viewport(), Qt::LeftButton, {}, {home.x + 20, home.y + 5});
    EXPECT_EQ(reports(), "current Copy ");
}

TEST_F(ExplorerBarView, reportsNothingThatTheProgramDoes)
{
    m_view.setCurrentRow(m_copy);
    EXPECT_EQ(m_view.currentRow(), m_copy);
    m_view.setGroupFolded(m_files);
    EXPECT_EQ(m_view.currentRow(), m_files) << "of what folds the header stays";
    m_view.setGroupFolded(m_copy);
    EXPECT_FALSE(m_view.isGroupFolded(m_copy));
    m_view.setGroupFolded(4711);
    m_view.foldAll();
    EXPECT_TRUE(m_view.isGroupFolded(m_places));
    const unsigned late = m_model.appendRow(0, {L"Late"});
    EXPECT_TRUE(m_view.isGroupFolded(late));
    m_view.setCurrentRow(m_home);
    EXPECT_FALSE(m_view.isGroupFolded(m_places));
    m_view.scrollTo(m_copy);
    EXPECT_TRUE(m_view.isRowInSight(m_copy));
    m_view.unfoldAll();
    EXPECT_FALSE(m_view.isGroupFolded(late));
    m_view.setCurrentRow(0);
    EXPECT_EQ(m_view.currentRow(), 0U);
    EXPECT_EQ(reports(), "");
    m_view.imitateFold(m_empty);
    m_view.imitateActivate(m_erase);
    m_view.imitateActivate(m_files);
    EXPECT_EQ(reports(), "") << "the user cannot do that either";
}

TEST_F(ExplorerBarView, isUsedByKeys)
{
    m_view.setFocus();
    turn();
    reports();
    m_view.setCurrentRow(m_files);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_End, Qt::Key_Up, Qt::Key_Space,
                              Qt::Key_Left, Qt::Key_Left, Qt::Key_Up, Qt::Key_Home})
        press(key);
    EXPECT_EQ(reports(), "folded Places current Copy current Nothing current Home current Places "
                         "current Erase current File tasks activated Copy activated Home ");
    EXPECT_TRUE(m_view.isGroupFolded(m_places));
    press(Qt::Key_Left);
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(reports(), "folded File tasks unfolded Places current Places current Home ");
    press(Qt::Key_PageUp);
    press(Qt::Key_PageDown);
    EXPECT_EQ(reports(), "current File tasks current Nothing ");
    press(Qt::Key_F); // to what begins so, from the top again
    EXPECT_EQ(reports(), "current File tasks ");
    press(Qt::Key_I);
    press(Qt::Key_Space); // a part of what is typed, or it would unfold
    EXPECT_EQ(reports(), "");
    EXPECT_TRUE(m_view.isGroupFolded(m_files));
}

TEST_F(ExplorerBarView, keepsWhatIsFoldedWhateverComesAndGoes)
{
    m_view.setGroupFolded(m_places);
    m_view.setCurrentRow(m_copy);
    const unsigned first = m_model.insertRow(0, m_files, {L"First"});
    m_model.moveRow(m_places, 0, first);
    const unsigned inside = m_model.appendRow(m_places, {L"inside"});
    m_model.removeRow(m_home);
    settle();
    EXPECT_TRUE(m_view.isGroupFolded(m_places));
    EXPECT_FALSE(m_view.isGroupFolded(first));
    EXPECT_EQ(m_view.rowRect(inside), VXRect<int>());
    EXPECT_LT(m_view.rowRect(m_places).y, m_view.rowRect(first).y);
    EXPECT_EQ(m_view.currentRow(), m_copy);
    m_view.setGroupFolded(m_places, false);
    const int height = m_view.rowRect(inside).height;
    EXPECT_GT(m_view.rowRect(first).y, m_view.rowRect(inside).y + height);
    EXPECT_EQ(reports(), "");
    m_model.removeRow(m_copy); // its neighbour takes its place
    settle();
    EXPECT_EQ(reports(), "current Erase ");
    m_model.clear();
    settle();
    EXPECT_EQ(m_view.rowAt({20, 20}), 0U);
    EXPECT_EQ(m_view.currentRow(), 0U);
}

TEST_F(ExplorerBarView, getsWhatIsInAGroupWhenItUnfolds)
{
    m_model.setHasChildren(m_empty);
    m_view.setGroupFolded(m_empty);
    m_view.unfolded().connect(nullptr, [this](const VXGroupUnfoldEvent2& event) {
        m_model.appendRow(event.row(), {L"late"});
    });
    m_view.setFocus();
    m_view.setCurrentRow(m_empty);
    press(Qt::Key_Right);
    ASSERT_EQ(m_model.childRows(m_empty).size(), 1U);
    const unsigned late = m_model.childRows(m_empty).front();
    EXPECT_TRUE(waitFor([&] { return m_view.isRowInSight(late); }));
}

TEST_F(ExplorerBarView, knowsThePlacesWhateverHappens)
{
    const int margin = m_view.rowRect(m_files).y;
    const int header = m_view.rowRect(m_files).height;
    const int height = m_view.rowRect(m_copy).height;
    const int pad = m_view.rowRect(m_copy).y - margin - header;
    const int gap = m_view.rowRect(m_places).y - m_view.rowRect(m_erase).y - height - pad;
    std::mt19937 random(randomSeed());
    const auto any = [&](const std::vector<unsigned>& rows) {
        return rows.empty() ? 0 : rows[random() % rows.size()];
    };
    for (int step = 0; step < 400; ++step) {
        const auto groups = m_model.childRows(0);
        const unsigned group = any(groups);
        const unsigned row = any(m_model.childRows(group));
        switch (random() % 7) {
        case 0:
            m_model.insertRow(0, group, {L"group"});
            break;
        case 1:
            m_model.insertRow(group, group != 0 ? row : 0, {L"row"});
            break;
        case 2:
            m_model.moveRow(group, 0, any(groups));
            break;
        case 3:
            if (group != 0 && row != 0)
                m_model.moveRow(row, any(groups));
            break;
        case 4:
            m_model.removeRow(random() % 3 == 0 ? group : row);
            break;
        default:
            m_view.setGroupFolded(group, random() % 2 == 0);
        }
        if (random() % 8 != 0)
            continue;
        m_view.rowRect(group); // has all laid out
        int y = margin - qtView().verticalScrollBar()->value();
        for (const unsigned each : m_model.childRows(0)) {
            ASSERT_EQ(m_view.rowRect(each).y, y) << step;
            y += header;
            const auto rows = m_model.childRows(each);
            const bool isOpen = !m_view.isGroupFolded(each) && !rows.empty();
            for (std::size_t i = 0; i < rows.size(); ++i) {
                const VXRect<int> rect = m_view.rowRect(rows[i]);
                ASSERT_EQ(rect.y, isOpen ? y + pad + int(i) * height : 0) << step;
                if (isOpen && rect.y > 0 && rect.y + height < 390) {
                    ASSERT_EQ(m_view.rowAt({rect.x + 1, rect.y + 1}), rows[i]) << step;
                }
            }
            y += (isOpen ? 2 * pad + int(rows.size()) * height : 0) + gap;
        }
    }
}

/// A million rows in one group; they are answered when it is told so.
class ManyRows : public VXAbstractViewModel2
{
public:
    static constexpr unsigned Last = 1'000'001;

    ManyRows()
    {
        changeSize(SizeChange2::appendColumns({1}));
        changeSize(SizeChange2::appendRows({1, Last + 1}));
        std::vector<unsigned> rows(Last - 1);
        std::iota(rows.begin(), rows.end(), 2);
        changeSize(SizeChange2::appendRows(std::move(rows), 1));
    }
    ~ManyRows() override { retire(); }
    void query(const ViewQuery2& query) override
    {
        m_asked += query.rows().size();
        QueryResult2 result;
        for (const unsigned row : query.rows())
            result.set(row, 1, std::to_wstring(row));
        answer(query, std::move(result));
    }
    using VXAbstractViewModel2::changeSize;

    std::size_t m_asked = 0;
};

TEST_F(ExplorerBarView, knowsOfAMillionRowsOnlyThoseInSight)
{
    ManyRows model;
    show(model);
    EXPECT_TRUE(m_view.rowInfo(2).isKnown);
    const int height = m_view.rowRect(2).height;
    EXPECT_EQ(m_view.rowRect(ManyRows::Last).y - m_view.rowRect(2).y, 999'999 * height);
    m_view.scrollTo(500'000);
    settle();
    EXPECT_EQ(narrow(m_view.rowInfo(500'000).text), "500000");
    const int place = m_view.rowRect(500'000).y;
    EXPECT_EQ(m_view.rowAt({30, place + 1}), 500'000U);
    model.changeSize(SizeChange2::prependRows({2'000'000}, 1));
    model.changeSize(SizeChange2::removeRows({7, 8, 9}));
    settle();
    EXPECT_EQ(m_view.rowRect(500'000).y, place) << "what is in sight stays where it is";
    m_view.setCurrentRow(500'000);
    press(Qt::Key_End);
    EXPECT_EQ(m_view.currentRow(), ManyRows::Last + 1);
    press(Qt::Key_Up);
    EXPECT_EQ(m_view.currentRow(), ManyRows::Last);
    settle();
    m_view.imitateFold(1);
    EXPECT_EQ(m_view.currentRow(), 1U);
    EXPECT_TRUE(waitFor([&] {
        const VXRect<int> header = m_view.rowRect(1);
        return m_view.rowRect(ManyRows::Last + 1).y == header.y + header.height + 8;
    }));
    EXPECT_EQ(qtView().verticalScrollBar()->maximum(), 0);
    EXPECT_LT(model.m_asked, 400U);
}

TEST_F(ExplorerBarView, isThereForAssistiveTechnology)
{
    QAccessibleInterface* const view = QAccessible::queryAccessibleInterface(&qtView());
    ASSERT_EQ(view->childCount(), 3);
    QAccessibleInterface* const files = view->child(0);
    EXPECT_EQ(files->text(QAccessible::Name), QStringLiteral("File tasks"));
    EXPECT_TRUE(files->state().expanded);
    EXPECT_EQ(view->indexOfChild(files), 0);
    ASSERT_EQ(files->childCount(), 2);
    QAccessibleInterface* const copy = files->child(0);
    EXPECT_EQ(copy->role(), QAccessible::Link);
    EXPECT_EQ(copy->text(QAccessible::Description), QStringLiteral("to another place"));
    EXPECT_EQ(copy->parent(), files);
    EXPECT_EQ(files->parent(), view);
    EXPECT_TRUE(files->child(1)->state().disabled);
    const QRect place = copy->rect();
    EXPECT_EQ(view->childAt(place.center().x(), place.center().y()), copy);
    EXPECT_FALSE(view->child(2)->state().expandable);

    copy->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(reports(), "activated Copy ");
    files->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(reports(), "folded File tasks ");
    EXPECT_TRUE(files->state().collapsed);
    EXPECT_EQ(files->childCount(), 0);
    const QAccessible::Id id = QAccessible::uniqueId(copy);
    m_model.moveRow(m_files, 0); // it is the same one wherever it stands
    settle();
    EXPECT_EQ(view->indexOfChild(files), 2);
    m_model.removeRow(m_copy);
    settle();
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

TEST_F(ExplorerBarView, mayEndInItsHandlers)
{
    auto* const bar = new VXExplorerBarView2(&m_window);
    bar->resize({200, 200});
    bar->setViewModel(&m_model);
    bar->show();
    settle();
    bar->activated().connect(nullptr, [bar](const VXGroupViewActivateEvent2&) { delete bar; });
    QWidget* const widget = qt(*bar);
    const VXRect<int> rect = bar->rowRect(m_copy);
    const QPointer<QWidget> guard(widget);
    QTest::mouseClick(qobject_cast<QAbstractScrollArea*>(widget)->viewport(), Qt::LeftButton, {},
                      {rect.x + 20, rect.y + 5});
    runDeletions();
    EXPECT_FALSE(guard);
    m_view.folded().connect(nullptr, [this](const VXGroupFoldEvent2&) { m_model.clear(); });
    click(m_files);
    settle();
    EXPECT_FALSE(m_view.isGroupFolded(m_files));
}

} // namespace
} // namespace VOXI
