#include "apps/explorer/sql/testdatabase.h"
#include "sql/statement.h"
#include "sql/tableeditor.h"

#include <numeric>
#include <thread>

namespace SQL {

namespace {

constexpr const char* Fruit =
    "CREATE TABLE fruit(id INTEGER PRIMARY KEY, name TEXT, weight, code TEXT);"
    "INSERT INTO fruit VALUES(-5, 'Apple', 120, '007'), (2, 'pear', NULL, '7'),"
    "(2147483648, '100%_ juice', 9.5, NULL), (9, 'pineapple', 'heavy', ''),"
    "(10, 'Äpfel', x'6170706c65', 'a\\b')";

using RowsOf = DatabaseTest;

/// All of that for a table, one without row ids, and a view.
std::vector<std::string> kinds() { return {"fruit", "keyed", "seen"}; }

std::string withOtherKinds()
{
    return std::string(Fruit)
           + "; CREATE TABLE keyed(id INTEGER, name TEXT, weight, code TEXT,"
             " PRIMARY KEY(name DESC, id)) WITHOUT ROWID; INSERT INTO keyed SELECT * FROM fruit;"
             "CREATE VIEW seen AS SELECT * FROM fruit";
}

} // namespace

TEST_F(RowsOf, AllKindsAreSortedAndFilteredAlike)
{
    Database database(made("f.db", withOtherKinds()));
    for (const std::string& name : kinds()) {
        SCOPED_TRACE(name);
        const auto reader = RowReader::open(database, {"main", name});
        const auto sorted = [&](std::size_t column, bool isDescending = false) {
            return texts(*reader, 0, {column, isDescending, {}});
        };
        const auto filtered = [&](std::size_t column, const std::string& text) {
            return texts(*reader, 0, {0, false, {{column, text}}});
        };
        EXPECT_EQ(reader->count(), 5U);
        EXPECT_EQ(sorted(0), "-5/2/9/10/2147483648/");
        EXPECT_EQ(sorted(0, true), "2147483648/10/9/2/-5/");
        EXPECT_EQ(sorted(2), "2/2147483648/-5/9/10/"); // NULL, numbers, texts, bytes

        EXPECT_EQ(filtered(1, "APPLE"), "-5/9/");
        EXPECT_EQ(filtered(1, "%_"), "2147483648/");
        EXPECT_EQ(filtered(1, "ä"), "");
        EXPECT_EQ(filtered(1, "Ä"), "10/");
        EXPECT_EQ(filtered(1, "=pear"), "2/");
        EXPECT_EQ(filtered(1, ""), "-5/2/9/10/2147483648/");
        EXPECT_EQ(filtered(1, "\\=pear"), "");
        EXPECT_EQ(filtered(1, std::string(200000, '%')), "");
        EXPECT_EQ(filtered(2, "null"), "2/");
        EXPECT_EQ(filtered(2, "!NULL"), "-5/9/10/2147483648/");
        EXPECT_EQ(filtered(2, "<=9.50"), "2147483648/");
        EXPECT_EQ(filtered(2, ">9.5"), "-5/9/10/"); // what is no number is larger than one
        EXPECT_EQ(filtered(2, "2"), "-5/");
        EXPECT_EQ(filtered(2, "app"), ""); // bytes are no text
        EXPECT_EQ(filtered(3, "=007"), "-5/");
        EXPECT_EQ(filtered(3, "="), "9/");
        EXPECT_EQ(filtered(3, "!=7"), "-5/9/10/2147483648/");
        EXPECT_EQ(filtered(3, "\\\\"), "10/");
        EXPECT_EQ(filtered(3, "a\\"), "10/");
        EXPECT_EQ(texts(*reader, 0, {1, false, {{1, "p"}, {0, ">0"}, {9, "x"}}}), "2/9/10/");
    }
}

TEST_F(RowsOf, NumbersStayWhateverTheOrder)
{
    Database database(made("f.db", withOtherKinds()));
    for (const std::string& name : kinds()) {
        SCOPED_TRACE(name);
        const auto reader = RowReader::open(database, {"main", name});
        const auto one = reader->list({0, true, {}})->next(1); // the largest id
        ASSERT_EQ(one.size(), 1U);
        EXPECT_EQ(all(*reader).size(), 5U);
        EXPECT_EQ(all(*reader, {0, false, {}}, 2).back(), one[0]);
        EXPECT_EQ(reader->cell(one[0], 1), Value("100%_ juice"));
        EXPECT_FALSE(reader->read({0}, {0}).at(0).isThere);
        EXPECT_FALSE(reader->read({77}, {0}).at(0).isThere);
        EXPECT_TRUE(isNull(reader->cell(one[0], 77)));
        EXPECT_EQ(reader->read(one, {}).at(0).isThere, true);
    }
}

TEST_F(RowsOf, TablesWithAndWithoutGapsAreListedInPieces)
{
    Database database;
    database.execute("CREATE TABLE n(id INTEGER PRIMARY KEY, rowid, oid, _rowid_);"
                     "WITH c(i) AS (VALUES(3) UNION ALL SELECT i + 1 FROM c WHERE i < 5002)"
                     " INSERT INTO n(id) SELECT i FROM c");
    std::vector<unsigned> expected(5000);
    std::iota(expected.begin(), expected.end(), 3U);
    std::size_t size = 0;
    const auto check = [&](std::size_t piece) {
        const auto reader = RowReader::open(database, {"main", "n"});
        const auto rows = all(*reader, {}, piece);
        size = rows.size();
        return size == expected.size();
    };
    for (std::size_t piece : {7, 4999, 5000, 5001})
        EXPECT_TRUE(check(piece)) << piece << ": " << size;
}

TEST_F(RowsOf, NumbersAreSortedAsTheDatabaseDoes)
{
    Database database;
    database.execute(
        "CREATE TABLE n(i INTEGER, r REAL, mixed NUMERIC); WITH c(i) AS (VALUES(1) UNION"
        " ALL SELECT i + 1 FROM c WHERE i < 3000) INSERT INTO n SELECT i * 7919 % 997,"
        " CASE WHEN i % 5 THEN i * 7919 % 1013 / 8.0 END, i % 9 FROM c");
    const auto reader = RowReader::open(database, {"main", "n"});
    for (const char* change : {"INSERT INTO n VALUES(NULL, 9e999, NULL)", // sorted by hand
                               "INSERT INTO n VALUES(9007199254740993, -9e999, 'text'),"
                               " (9007199254740992, 1, 1), (NULL, -1.5, x'00')",
                               "CREATE INDEX x ON n(r)"}) {
        database.execute(change);
        for (std::size_t column : {0, 1, 2})
            for (const std::string way : {"", " DESC"}) {
                std::string expected;
                Statement statement(database, "SELECT rowid FROM n WHERE mixed IS NOT 3 ORDER BY "
                                                  + reader->columns()[column].name + way + ", rowid"
                                                  + way);
                while (statement.step())
                    expected += statement.text(0) + "/";
                std::string listed;
                for (unsigned row : all(*reader, {column, !way.empty(), {{2, "!=3"}}}))
                    listed += std::to_string(row) + "/";
                EXPECT_TRUE(listed == expected) << column << way;
            }
    }
}

TEST_F(RowsOf, IdsAreFoundUnderAnyName)
{
    Database database;
    database.execute("CREATE TABLE n(a, rowid, oid); INSERT INTO n VALUES(1, 2, 3);"
                     "DELETE FROM n; INSERT INTO n(_rowid_) VALUES(9223372036854775807), (4), (5);"
                     "CREATE TABLE none(rowid, oid, _rowid_); INSERT INTO none VALUES(1, 2, 3)");
    const auto reader = RowReader::open(database, {"main", "n"});
    const auto rows = all(*reader, {}, 2);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[1], 5U);
    EXPECT_EQ(rows[2], 2147483648U);
    EXPECT_TRUE(reader->read({rows[2]}, {0}).at(0).isThere);

    // They cannot be named, so they are looked at only.
    const auto none = RowReader::open(database, {"main", "none"});
    EXPECT_EQ(texts(*none, 1), "2/");
    EXPECT_FALSE(none->isEditable());
    EXPECT_THROW(TableEditor{none}, Error);
}

TEST_F(RowsOf, WhatOthersChangeMeanwhileIsGoneOrThere)
{
    Database database(made("f.db", Fruit));
    const auto reader = RowReader::open(database, {"main", "fruit"});
    const auto listing = reader->list({});
    const auto first = listing->next(2);
    EXPECT_FALSE(database.wasChangedElsewhere());
    Database(path("f.db"))
        .execute("DELETE FROM fruit WHERE id IN (2, 10);"
                 "INSERT INTO fruit(id) VALUES(3000000000)");
    EXPECT_TRUE(database.wasChangedElsewhere());
    EXPECT_FALSE(database.wasChangedElsewhere());
    EXPECT_FALSE(reader->read(first, {1}).at(1).isThere);
    EXPECT_EQ(listing->next(9).size(), 3U);
    EXPECT_TRUE(listing->isDone());

    const auto view = RowReader::open(database, {"main", "fruit"});
    database.execute("DROP TABLE fruit");
    EXPECT_THROW(view->read({9}, {0}), Error);
    EXPECT_THROW(all(*view), Error);
}

TEST_F(RowsOf, AreStoppedFromAnotherThread)
{
    Database database;
    database.execute("CREATE TABLE n(i); CREATE VIEW endless AS WITH c(i) AS (VALUES(1) UNION ALL"
                     " SELECT i + 1 FROM c) SELECT i FROM c WHERE i < 0;"
                     "WITH c(i) AS (VALUES(1) UNION ALL SELECT i + 1 FROM c WHERE i < 3000)"
                     " INSERT INTO n SELECT i FROM c");
    const auto reader = RowReader::open(database, {"main", "endless"});
    CancelToken token;
    std::thread other([token] { token.cancel(); });
    const auto sort = [&] { reader->list({0, false, {}}, token)->next(1); };
    EXPECT_TRUE(errorOfCall(sort).isCancelled());
    other.join();

    // What is stopped before it begins, and what comes after.
    const auto table = RowReader::open(database, {"main", "n"});
    const auto listing = table->list({}, token);
    EXPECT_TRUE(errorOfCall([&] { listing->next(1); }).isCancelled());
    EXPECT_EQ(all(*table).size(), 3000U);
}

} // namespace SQL
