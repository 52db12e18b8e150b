#include "apps/explorer/sql/testdatabase.h"
#include "sql/tableeditor.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace SQL {

namespace {

constexpr const char* Stock =
    "CREATE TABLE kinds(name TEXT PRIMARY KEY) WITHOUT ROWID; INSERT INTO kinds VALUES('a'), ('b');"
    "CREATE TABLE stock(id INTEGER PRIMARY KEY, kind TEXT NOT NULL REFERENCES kinds,"
    " pieces INTEGER DEFAULT 3 CHECK(pieces >= 0), code TEXT UNIQUE);"
    "INSERT INTO stock VALUES(1, 'a', 10, 'x'), (2, 'a', 20, 'y'), (3, 'b', 30, NULL);"
    "CREATE TRIGGER t BEFORE UPDATE OF pieces ON stock WHEN new.pieces = 13 BEGIN"
    " SELECT RAISE(IGNORE); END;"
    "CREATE TRIGGER u BEFORE UPDATE OF pieces ON stock WHEN new.pieces = 14 BEGIN"
    " SELECT RAISE(ROLLBACK, 'all is lost'); END";

class Edits : public DatabaseTest
{
protected:
    Database database{made("stock.db", Stock)};
    std::shared_ptr<RowReader> stock = RowReader::open(database, {"main", "stock"});
    TableEditor editor{stock};

    std::string pieces() { return texts(*stock, 2); }
    std::string committed() const
    {
        Database other(path("stock.db"), Database::Mode::ReadOnly);
        return texts(*RowReader::open(other, {"main", "stock"}), 2);
    }
};

} // namespace

TEST_F(Edits, AreSeenHereAndCommittedOrRolledBack)
{
    editor.setCell(2, 2, 21);
    editor.setCell(3, 2, Value());
    const unsigned row = editor.insertRow({{1, "b"}});
    editor.setCell(row, 3, "new");
    editor.deleteRows({1, 99});
    EXPECT_EQ(pieces(), "21//3/");
    EXPECT_EQ(committed(), "10/20/30/");
    using Cells = std::vector<TableEditor::ChangedCell>;
    EXPECT_EQ(editor.changedCells(), (Cells{{2, 2}, {3, 2}}));
    EXPECT_EQ(editor.insertedRows(), std::vector{row});
    EXPECT_EQ(editor.deletedRows(), std::vector{1U});
    EXPECT_TRUE(editor.isChanged(3, 2) && !editor.isChanged(3, 1) && editor.isInserted(row));

    database.rollBack();
    EXPECT_FALSE(editor.hasChanges());
    EXPECT_EQ(pieces(), "10/20/30/");

    editor.setCell(2, 2, 22);
    editor.deleteRows({editor.insertRow({{1, "a"}}), 3, 2});
    EXPECT_EQ(editor.deletedRows(), (std::vector{2U, 3U}));
    EXPECT_TRUE(editor.changedCells().empty());
    database.commit();
    EXPECT_FALSE(editor.hasChanges() || database.isInTransaction());
    EXPECT_EQ(committed(), "10/");
}

TEST_F(Edits, ThatFailLeaveTheOthers)
{
    // The first one alone leaves nothing open.
    EXPECT_EQ(errorOfCall([&] { editor.setCell(1, 2, -1); }).kind(), Error::Kind::Constraint);
    EXPECT_FALSE(database.isInTransaction());

    editor.setCell(1, 2, 11);
    const Error check = errorOfCall([&] { editor.setCell(2, 2, -1); });
    EXPECT_STREQ(check.what(), "CHECK constraint failed: pieces >= 0");
    EXPECT_EQ(errorOfCall([&] { editor.setCell(2, 3, "x"); }).columns(),
              std::vector<std::string>{"code"});
    EXPECT_EQ(errorOfCall([&] { editor.insertRow(); }).columns(), std::vector<std::string>{"kind"});
    EXPECT_STREQ(errorOfCall([&] { editor.setCell(1, 1, "none"); }).what(),
                 "FOREIGN KEY constraint failed");
    TableEditor kinds(RowReader::open(database, {"main", "kinds"}));
    kinds.insertRow({{0, "c"}});
    EXPECT_THROW(editor.setCell(2, 2, 13), Error);
    EXPECT_THROW(editor.setCell(99, 2, 1), Error);
    EXPECT_THROW(editor.setCell(1, 99, 1), Error);
    EXPECT_EQ(pieces(), "11/20/30/");
    EXPECT_EQ(editor.changedCells().size(), 1U);

    // A trigger may throw all away; nothing is marked then.
    EXPECT_STREQ(errorOfCall([&] { editor.setCell(2, 2, 14); }).what(), "all is lost");
    EXPECT_FALSE(editor.hasChanges() || kinds.hasChanges() || database.isInTransaction());
    EXPECT_EQ(pieces(), "10/20/30/");
}

TEST_F(Edits, OfKeysLeaveTheRowsTheirNumbers)
{
    editor.setCell(1, 0, 50);
    editor.setCell(1, 2, 51);
    const unsigned other = editor.insertRow({{0, 1}, {1, "b"}});
    EXPECT_NE(other, 1U);
    EXPECT_EQ(stock->cell(1, 2), Value(51));
    EXPECT_EQ(stock->cell(other, 2), Value(3));
    EXPECT_THROW(editor.setCell(1, 0, 2), Error);
    EXPECT_EQ(stock->cell(1, 0), Value(50));
    EXPECT_EQ(all(*stock), (std::vector{other, 2U, 3U, 1U}));
    database.rollBack();
    EXPECT_EQ(stock->cell(1, 2), Value(10));
    EXPECT_EQ(all(*stock), (std::vector{1U, 2U, 3U}));

    const auto kinds = RowReader::open(database, {"main", "kinds"});
    TableEditor editKinds(kinds);
    const unsigned b = all(*kinds).at(1);
    const unsigned c = editKinds.insertRow({{0, "c"}});
    editKinds.setCell(c, 0, "0");
    EXPECT_EQ(all(*kinds).at(0), c);
    EXPECT_THROW(editKinds.setCell(b, 0, "d"), Error); // it is referred to
    EXPECT_EQ(kinds->cell(b, 0), Value("b"));
    EXPECT_THROW(editKinds.deleteRows({c, b}), Error); // all or none
    EXPECT_EQ(kinds->cell(c, 0), Value("0"));
    EXPECT_EQ(editKinds.insertedRows(), std::vector{c});
}

TEST_F(Edits, WaitForOthersAndLoseNothing)
{
    database.setBusyTimeout(std::chrono::milliseconds(0));
    Database other(path("stock.db"));
    other.begin();
    EXPECT_TRUE(errorOfCall([&] { editor.setCell(1, 2, 11); }).isBusy());
    EXPECT_FALSE(database.isInTransaction());
    other.rollBack();
    editor.setCell(1, 2, 11);

    // Somebody reads while this is to be committed.
    other.execute("BEGIN; SELECT * FROM stock");
    EXPECT_TRUE(errorOfCall([&] { database.commit(); }).isBusy());
    EXPECT_TRUE(database.isInTransaction());
    EXPECT_TRUE(editor.hasChanges());
    other.execute("COMMIT");
    database.commit();
    EXPECT_EQ(committed(), "11/20/30/");
    EXPECT_FALSE(database.wasChangedElsewhere());
    EXPECT_TRUE(other.wasChangedElsewhere());

    // A wait is ended by a token.
    other.begin();
    database.setBusyTimeout(std::chrono::hours(1));
    CancelToken token;
    token.cancel();
    EXPECT_TRUE(errorOfCall([&] { database.execute("DELETE FROM stock", token); }).isCancelled());
}

TEST_F(Edits, AreGoneWhenTheProgramIsKilled)
{
    database.execute(
        "CREATE TABLE many(a, b); WITH c(i) AS (VALUES(1) UNION ALL SELECT i + 1 FROM c"
        " WHERE i < 600) INSERT INTO many SELECT i, hex(zeroblob(100)) FROM c");
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        // With so small a cache changes are in the file long before the commit.
        Database own(path("stock.db"));
        own.execute("PRAGMA cache_size = 5");
        TableEditor many(RowReader::open(own, {"main", "many"}));
        for (unsigned row = 1; row <= 600; ++row)
            many.setCell(row, 0, Value());
        TableEditor(RowReader::open(own, {"main", "stock"})).deleteRows({1, 2, 3});
        [[maybe_unused]] const auto written = ::write(ends[1], "x", 1);
        for (;;)
            pause();
    }
    char ready = 0;
    ASSERT_EQ(::read(ends[0], &ready, 1), 1);
    EXPECT_TRUE(std::filesystem::exists(path("stock.db-journal")));
    // The database is open here as well, and sees nothing of it.
    database.setBusyTimeout(std::chrono::milliseconds(0));
    EXPECT_THROW(editor.setCell(1, 2, 5), Error);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(ends[0]);
    close(ends[1]);

    // Who may only look cannot put it right, and is told so.
    for (const std::string ending : {"", "-journal"})
        std::filesystem::copy_file(path("stock.db" + ending), path("copy.db" + ending));
    const auto look = [&] { Database(path("copy.db"), Database::Mode::ReadOnly); };
    EXPECT_EQ(errorOfCall(look).kind(), Error::Kind::ReadOnly);
    Database copy(path("copy.db"));
    EXPECT_EQ(copy.scalar("SELECT count(a) FROM many"), Value(600));

    EXPECT_EQ(pieces(), "10/20/30/");
    EXPECT_EQ(database.scalar("SELECT count(a) FROM many"), Value(600));
    EXPECT_EQ(database.scalar("PRAGMA integrity_check"), Value("ok"));
    editor.setCell(1, 2, 5);
}

} // namespace SQL
