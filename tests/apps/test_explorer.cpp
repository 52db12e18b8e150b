// The explorer's window, worked through the abstract side as its user would.

#include "explorersupport.h"
#include "qthost/qthost.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/controls/vxbutton2.h"

#include <algorithm>
#include <random>

namespace VOXI {
namespace {

/// A process has one host.
class Explorer : public ExplorerTest
{
protected:
    static void SetUpTestSuite() { s_host = std::make_unique<QtHost>(); }
    static void TearDownTestSuite() { s_host.reset(); }

    /// Has the user begin to type into a cell.
    VXEdit2* edit(unsigned row, unsigned column, const std::string& typed)
    {
        text(row, column); // a cell that is not known cannot be edited
        rows().imitateEdit(row, column, EditTrigger::EditKeyPressed);
        waitFor([&] { return rows().editor(row, column) != nullptr; }, Patience);
        auto* const edit = dynamic_cast<VXEdit2*>(rows().editor(row, column));
        if (edit) {
            edit->selectAll();
            edit->imitateTyping(typed);
        }
        return edit;
    }
    /// The same, and press Return.
    void type(unsigned row, unsigned column, const std::string& typed)
    {
        VXEdit2* const editor = edit(row, column, typed);
        ASSERT_NE(editor, nullptr);
        press(*editor, Key::Return);
        ASSERT_TRUE(waitFor([&] { return rows().editor(row, column) == nullptr; }, Patience));
    }
    static void press(VXWidget2& widget, Key key, Modifier modifier = Modifier::None)
    {
        const auto type = WidgetEvent::KeyPress;
        widget.imitateKey(type, VXKeyEvent2(&widget, type, key, modifier));
    }
    /// Clicks a button of the dialog that asks something.
    void answer(const std::wstring& label)
    {
        VXAbstractButton2* found = nullptr;
        ASSERT_TRUE(waitFor(
            [&] {
                for (VXObject2* object : explorer().window()->children(true)) {
                    auto* const button = dynamic_cast<VXAbstractButton2*>(object);
                    if (button && button->isVisible() && button->labelU() == label)
                        found = button;
                }
                return found != nullptr;
            },
            Patience));
        found->imitateClick();
    }
    bool hasChanges() { return explorer().document() && explorer().document()->hasChanges(); }
    static SQL::Value stored(const Path& file, const std::string& sql)
    {
        return SQL::Database(file, SQL::Database::Mode::ReadOnly).scalar(sql);
    }

private:
    static inline std::unique_ptr<QtHost> s_host;
};

TEST_F(Explorer, showsSortsAndFiltersTables)
{
    open(shop());
    show("customers");
    const auto all = explorer().rows().count();
    EXPECT_GT(all, 10U);
    EXPECT_EQ(text(1, 1), L"1");
    // Down from the greatest: the row keeps its number.
    explorer().rows().sortBy(1, SortOrder::Descending);
    ASSERT_TRUE(waitFor([&] { return !explorer().rows().isListing(); }, Patience));
    rows().scrollTo({static_cast<unsigned>(all), 1, nullptr});
    EXPECT_EQ(rows().cellAt(5, 5).row, static_cast<unsigned>(all));
    EXPECT_EQ(rows().sortIndicator(), (SortIndicator{1, SortOrder::Descending}));
    // Each key begins a new search.
    auto* const filter = find<VXEdit2>("filter-1");
    ASSERT_NE(filter, nullptr);
    EXPECT_EQ(filter->position().width, rows().columnWidth(1));
    filter->imitateTyping("=1");
    filter->imitateTyping("2");
    ASSERT_TRUE(waitFor([&] { return !explorer().rows().isListing(); }, Patience));
    EXPECT_EQ(explorer().rows().count(), 1U);
    EXPECT_EQ(text(12, 1), L"12");
    filter->selectAll();
    filter->imitateTyping("nothing like it");
    ASSERT_TRUE(waitFor([&] { return explorer().rows().count() == 0; }, Patience));
    EXPECT_TRUE(filter->isVisible()) << "where there are no rows, too";
    show("low_stock"); // a view
    EXPECT_TRUE(filter->text().empty());
}

TEST_F(Explorer, keepsChangesUntilTheyAreCommittedOrRolledBack)
{
    const Path file = shop();
    open(file);
    show("customers");
    const std::string name = "SELECT name FROM customers WHERE id = 1";
    const SQL::Value before = stored(file, name);
    const Color paper = rows().cellInfo(2, 2).background;
    type(1, 2, "Somebody Else");
    ASSERT_TRUE(waitFor([&] { return hasChanges(); }, Patience)) << message();
    EXPECT_TRUE(waitFor([&] { return text(1, 2) == L"Somebody Else"; }, Patience));
    EXPECT_NE(rows().cellInfo(1, 2).background, paper);
    EXPECT_EQ(stored(file, name), before);
    EXPECT_TRUE(explorer().window()->isModified());
    trigger("rollback");
    ASSERT_TRUE(waitFor([&] { return !hasChanges() && !explorer().rows().isListing(); }, Patience));
    EXPECT_TRUE(waitFor([&] { return text(1, 2) != L"Somebody Else"; }, Patience));

    type(1, 2, "Another");
    ASSERT_TRUE(waitFor([&] { return hasChanges(); }, Patience));
    trigger("commit");
    ASSERT_TRUE(waitFor([&] { return !hasChanges(); }, Patience));
    EXPECT_EQ(stored(file, name), SQL::Value(std::string("Another")));
    EXPECT_TRUE(waitFor([&] { return rows().cellInfo(1, 2).background == paper; }, Patience));

    // What the table does not let in is said at the cell, and stays there.
    rows().imitateSetActiveCell({2, 2, nullptr});
    rows().imitateSetSelection({{2, 2, nullptr}, {2, 2, nullptr}});
    trigger("null");
    ASSERT_TRUE(waitFor([&] { return !rows().cellInfo(2, 2).toolTip.empty(); }, Patience));
    EXPECT_NE(rows().cellInfo(2, 2).toolTip.find(L"NOT NULL"), std::wstring::npos);
    EXPECT_NE(message().find(L"NOT NULL"), std::wstring::npos);
    // Nothing takes it away without a question.
    choose("articles");
    answer(L"Cancel");
    EXPECT_FALSE(explorer().window()->close());
    answer(L"Cancel");
    EXPECT_FALSE(rows().cellInfo(2, 2).toolTip.empty());
    choose("articles");
    answer(L"&Discard");
    waitUntilShown("articles");
    EXPECT_TRUE(message().empty());
    EXPECT_TRUE(explorer().window()->close());
}

TEST_F(Explorer, losesNothingToOthersAndAsksBeforeItCloses)
{
    const Path file = shop();
    open(file);
    show("customers");
    {
        SQL::Database other(file);
        other.begin();
        type(1, 2, "In the way");
        ASSERT_TRUE(waitFor([&] { return !message().empty(); }, Patience));
        EXPECT_TRUE(waitFor([&] { return text(1, 2) == L"In the way"; }, Patience));
        EXPECT_FALSE(hasChanges());
        other.rollBack();
    }
    find<VXNotificationBar2>("messages")->imitateButton(1);
    ASSERT_TRUE(waitFor([&] { return hasChanges(); }, Patience)) << "tried again";

    EXPECT_FALSE(explorer().window()->close());
    answer(L"Cancel");
    EXPECT_TRUE(explorer().window()->isVisible());
    EXPECT_TRUE(hasChanges());
    EXPECT_FALSE(explorer().window()->close());
    answer(L"&Commit");
    EXPECT_TRUE(waitFor([&] { return !explorer().window()->isVisible(); }, Patience));
    EXPECT_EQ(stored(file, "SELECT name FROM customers WHERE id = 1"),
              SQL::Value(std::string("In the way")));
}

TEST_F(Explorer, takesOverWhatIsBeingTyped)
{
    const Path file = shop();
    open(file);
    show("customers");
    const auto isEdited = [&] { return explorer().rows().isEdited(); };
    // It is neither lost nor cut short by rows that are read anew.
    ASSERT_NE(edit(1, 2, "Sorted"), nullptr);
    explorer().rows().refresh();
    EXPECT_TRUE(isEdited());
    explorer().rows().sortBy(1, SortOrder::Descending);
    EXPECT_FALSE(isEdited());
    EXPECT_TRUE(waitFor([&] { return hasChanges(); }, Patience));
    ASSERT_TRUE(waitFor([&] { return !explorer().rows().isListing(); }, Patience));
    rows().scrollTo({1, 2, nullptr});
    ASSERT_NE(edit(1, 2, "Committed"), nullptr);
    trigger("commit");
    ASSERT_TRUE(waitFor([&] { return !hasChanges(); }, Patience));
    const std::string name = "SELECT name FROM customers WHERE id = 1";
    EXPECT_EQ(stored(file, name), SQL::Value(std::string("Committed")));
    ASSERT_NE(edit(1, 2, "Closed"), nullptr);
    EXPECT_FALSE(explorer().window()->close());
    answer(L"&Commit");
    EXPECT_TRUE(waitFor([&] { return !explorer().window()->isVisible(); }, Patience));
    EXPECT_EQ(stored(file, name), SQL::Value(std::string("Closed")));
}

TEST_F(Explorer, goesToTheEndBeforeItKnowsWhereThatIs)
{
    const Path file = m_folder / "long.db";
    constexpr unsigned Count = 300'000;
    SQL::Database(file, SQL::Database::Mode::Create)
        .execute("CREATE TABLE long (a INTEGER PRIMARY KEY, b); WITH n(i) AS (VALUES(1) UNION ALL "
                 "SELECT i + 1 FROM n WHERE i < "
                 + std::to_string(Count) + ") INSERT INTO long SELECT i, i FROM n");
    explorer().open(file);
    ASSERT_TRUE(waitFor([&] { return explorer().rows().model() != nullptr; }, Patience));
    const auto isListed = [&] { return !explorer().rows().isListing(); };
    const auto isAtEnd = [&] {
        return isListed() && rows().activeCell().row == Count && rows().isCellVisible(Count, 1);
    };
    press(rows(), Key::End, Modifier::Control);
    ASSERT_TRUE(waitFor(isAtEnd, Patience));
    EXPECT_TRUE(rows().isSelected(Count, rows().activeCell().column));
    // And when it knows it, too; but not when its user goes elsewhere meanwhile.
    press(rows(), Key::Home, Modifier::Control);
    ASSERT_TRUE(waitFor([&] { return rows().activeCell().row < Count; }, Patience));
    press(rows(), Key::End, Modifier::Control);
    ASSERT_TRUE(waitFor(isAtEnd, Patience));
    explorer().rows().refresh();
    press(rows(), Key::End, Modifier::Control);
    waitFor([turns = 0]() mutable { return ++turns > 3; }, Patience); // until that is reported
    rows().imitateSetActiveCell({1, 1, nullptr});
    ASSERT_TRUE(waitFor(isListed, Patience));
    EXPECT_EQ(rows().activeCell().row, 1U);
}

TEST_F(Explorer, keepsPanesThatStandAlone)
{
    explorer();
    auto* const pane = find<VXDockWidget2>("schema-dock");
    pane->setFloating(true);
    ASSERT_TRUE(pane->isVisible());
    explorer().window()->close();
    QApplication::closeAllWindows(); // as at the end of a program
    end();

    explorer();
    auto* const again = find<VXDockWidget2>("schema-dock");
    EXPECT_TRUE(again->isFloating());
    EXPECT_TRUE(waitFor([&] { return again->isVisible(); }));
}

TEST_F(Explorer, noticesWhatAnotherProgramChanges)
{
    const Path file = shop();
    open(file);
    show("customers");
    const auto& tree = static_cast<VXTreeModel2&>(*find<VXTreeView2>("schema")->viewModel());
    const std::size_t before = tree.rowCount();
    SQL::Database(file).execute("CREATE TABLE brand_new (a)");
    EXPECT_TRUE(waitFor([&] { return tree.rowCount() > before; }, Patience));
    EXPECT_FALSE(message().empty());
    show("brand_new");
    EXPECT_EQ(explorer().rows().count(), 0U);
}

TEST_F(Explorer, runsAndStopsWhatIsTyped)
{
    open(shop());
    auto* const sql = find<VXEditArea2>("sql");
    auto* const summary = find<VXText2>("query-summary");
    const auto run = [&](const std::string& text) {
        explorer().query().setText(text);
        trigger("run");
    };
    const auto isDone = [&] { return !explorer().query().isRunning(); };
    run("SELECT 1 AS one; SELECT 'b' AS letter UNION SELECT 'a'");
    ASSERT_TRUE(waitFor(isDone, Patience));
    ASSERT_TRUE(waitFor([&] { return explorer().query().rows().count() == 2; }, Patience));
    EXPECT_EQ(find<VXComboBox2>("results")->count(), 2);
    run("SELECT\n  nonsense FROM nowhere");
    ASSERT_TRUE(waitFor(isDone, Patience));
    EXPECT_NE(summary->text().find("nowhere"), std::string::npos);
    run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT max(i) FROM n");
    EXPECT_TRUE(explorer().query().isRunning());
    trigger("stop");
    ASSERT_TRUE(waitFor(isDone, Patience));
    EXPECT_EQ(summary->text(), "Stopped.");
    explorer().query().setText("SELECT * FROM cust");
    trigger("complete");
    ASSERT_TRUE(waitFor([&] { return !sql->suggestions().empty(); }, Patience));
    EXPECT_EQ(sql->suggestions().front().text, L"customers");
    sql->imitateTyping("omers WHERE nam");
    ASSERT_TRUE(waitFor([&] { return sql->suggestions().size() == 1; }, Patience));
    EXPECT_EQ(sql->suggestions().front().detail, L"customers");
    sql->imitateSuggestion(0);
    EXPECT_EQ(sql->text(), "SELECT * FROM customers WHERE name");
    EXPECT_EQ(static_cast<VXTableModel2*>(find<VXTableView2>("log")->viewModel())->rowCount(), 4U);
}

TEST_F(Explorer, saysWhatIsWrongWithFilesAndLeavesThemAlone)
{
    const std::string good = read(shop());
    std::string noise(8192, '\0');
    std::mt19937 random(7);
    std::generate(noise.begin(), noise.end(), [&] { return static_cast<char>(random()); });
    std::string pages = good;
    pages[16] = 3; // no power of two
    const std::vector<Path> files{
        write("text.db", "this is no database at all, but it is long enough to be looked at"),
        write("noise.db", noise),
        write("short.db", good.substr(0, good.size() / 2 + 100)),
        write("pages.db", pages),
        m_folder.path(),
        m_folder / "missing.db"};
    for (const Path& file : files) {
        const bool isFile = std::filesystem::is_regular_file(file);
        const std::string bytes = isFile ? read(file) : std::string();
        explorer().open(file);
        EXPECT_TRUE(waitFor([&] { return !message().empty(); }, Patience)) << file;
        EXPECT_EQ(explorer().document(), nullptr) << file;
        if (isFile) {
            EXPECT_EQ(read(file), bytes) << file;
        }
        find<VXNotificationBar2>("messages")->clear();
    }
    EXPECT_FALSE(std::filesystem::exists(m_folder / "missing.db"));
}

TEST_F(Explorer, showsTablesOfAnyKind)
{
    const Path file = m_folder / "odd.db";
    {
        SQL::Database odd(file, SQL::Database::Mode::Create);
        std::string wide = "CREATE TABLE wide (c0";
        for (int i = 1; i < 2'000; ++i)
            wide += ", c" + std::to_string(i);
        odd.execute(wide + ")");
        odd.execute("INSERT INTO wide (c0, c1999) VALUES ('first', 'last')");
        odd.execute("CREATE TABLE \"a \"\"b\"\" \U0001f600\" (\"x'y\" BLOB); "
                    "INSERT INTO \"a \"\"b\"\" \U0001f600\" VALUES (zeroblob(100000000)); "
                    "CREATE TABLE keyed (k TEXT PRIMARY KEY, v) WITHOUT ROWID; "
                    "INSERT INTO keyed VALUES ('\xff', 1), (x'00', char(0, 65)); "
                    "CREATE VIEW fails AS SELECT missing FROM keyed;");
    }
    open(file);
    show("wide");
    EXPECT_EQ(text(1, 1), L"first");
    rows().scrollTo({1, 2000, nullptr});
    EXPECT_EQ(text(1, 2000), L"last");
    show("keyed");
    EXPECT_EQ(explorer().rows().count(), 2U);
    auto* const tree = find<VXTreeView2>("schema");
    auto& model = static_cast<VXTreeModel2&>(*tree->viewModel());
    const unsigned tables = model.childRows(model.childRows(0).front()).front();
    const unsigned strange = model.childRows(tables).front();
    tree->clearSelection();
    tree->imitateSetSelection({{strange, 1, nullptr}, {strange, 1, nullptr}});
    auto* const bytes = find<VXTableView2>("cell-bytes");
    ASSERT_TRUE(waitFor([&] { return bytes->cellInfo(1, 2).isKnown; }, Patience));
    EXPECT_EQ(bytes->cellInfo(1, 2).text.substr(0, 6), L"00 00 ");
    EXPECT_EQ(text(1, 1), L"bytes, 95 MB");
    const unsigned views = model.childRows(model.childRows(0).front())[1];
    const unsigned fails = model.childRows(views).front();
    tree->clearSelection();
    tree->imitateSetSelection({{fails, 1, nullptr}, {fails, 1, nullptr}});
    EXPECT_TRUE(
        waitFor([&] { return message().find(L"missing") != std::wstring::npos; }, Patience));
}

TEST_F(Explorer, exportsAndImportsRows)
{
    open(shop());
    show("customers");
    trigger("export");
    const Path file = m_folder / "customers.csv";
    EXPECT_EQ(find<VXEdit2>("file")->text(), file.string());
    find<VXButton2>("accept")->imitateClick();
    ASSERT_TRUE(waitFor([&] { return std::filesystem::exists(file); }, Patience));
    EXPECT_TRUE(waitFor([&] { return !find<VXDialog2>("export-dialog"); }, Patience));
    EXPECT_NE(message().find(L"rows written"), std::wstring::npos);
}

} // namespace
} // namespace VOXI
