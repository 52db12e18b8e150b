#include "apps/explorer/sql/testdatabase.h"
#include "sql/csvimport.h"
#include "sql/exporter.h"
#include "sql/samplepicture.h"
#include "sql/shopsample.h"

#include <cmath>

namespace SQL {

namespace {

constexpr const char* Mixed =
    "CREATE TABLE mixed(\"the key\" INTEGER PRIMARY KEY, \"t,ext\" VARCHAR(20), n NUMERIC, b BLOB);"
    "INSERT INTO mixed VALUES(1, 'a \"quoted\", one', 1.0, x'00ff'), (2, '', 9e999, NULL),"
    " (3, NULL, -0.1, x''), (4, 'line' || char(13, 10) || 'two ', 9007199254740993, 'text'),"
    " (5, 'a' || char(0) || 'b', -9223372036854775808, CAST(x'ff41' AS TEXT))";

using Transfer = DatabaseTest;

} // namespace

TEST_F(Transfer, AsSqlBringsEveryCellBack)
{
    Database database(made("m.db", Mixed));
    const auto mixed = RowReader::open(database, {"main", "mixed"});
    EXPECT_EQ(exportRows(*mixed, path("m.sql"), {ExportFormat::Sql}), 5U);
    Database back;
    back.execute(contentOf(path("m.sql")));
    const auto copy = RowReader::open(back, {"main", "mixed"});
    for (std::size_t column = 0; column < 4; ++column) {
        EXPECT_EQ(copy->columns()[column].type, mixed->columns()[column].type);
        for (unsigned row = 1; row <= 5; ++row)
            EXPECT_EQ(copy->cell(row, column), mixed->cell(row, column)) << row << " " << column;
    }
}

TEST_F(Transfer, AsJsonIsJson)
{
    Database database(made("m.db", Mixed));
    const auto mixed = RowReader::open(database, {"main", "mixed"});
    ExportOptions options{ExportFormat::Json};
    options.order = {0, true, {{0, ">3"}}};
    exportRows(*mixed, path("m.json"), options);
    EXPECT_EQ(contentOf(path("m.json")),
              "[\n{\"the key\": 5, \"t,ext\": \"a\\u0000b\", \"n\": -9223372036854775808,"
              " \"b\": \"\xEF\xBF\xBD"
              "A\"},\n"
              "{\"the key\": 4, \"t,ext\": \"line\\u000d\\ntwo \", \"n\": 9007199254740993,"
              " \"b\": \"text\"}\n]\n");
}

TEST_F(Transfer, AsCsvComesBack)
{
    Database database(made("m.db", Mixed));
    const auto mixed = RowReader::open(database, {"main", "mixed"});
    for (char separator : {',', ';', '\t'}) {
        ExportOptions options;
        options.separator = separator;
        options.order.filters = {{0, "<5"}}; // the last one is no UTF-8
        exportRows(*mixed, path("m.csv"), options);
        const CsvPreview preview = previewCsv(path("m.csv"), 2);
        EXPECT_EQ(preview.format.separator, separator);
        EXPECT_TRUE(preview.format.hasHeader);
        EXPECT_EQ(preview.rows.size(), 2U);
        EXPECT_EQ(preview.columns.at(0).type, "INTEGER");
        EXPECT_EQ(preview.columns.at(1).name, "t,ext");

        Database back;
        back.execute(
            "CREATE TABLE mixed(\"the key\" INTEGER PRIMARY KEY, \"t,ext\" TEXT, n NUMERIC,"
            " b BLOB)");
        const CsvReport report = importCsv(
            back, path("m.csv"), {preview.format, {"main", "mixed"}, false, preview.columns});
        EXPECT_EQ(report.imported, 3U) << separator;
        EXPECT_EQ(report.badRows, 1U); // "inf" is no number
        const auto copy = RowReader::open(back, {"main", "mixed"});
        for (std::size_t column = 0; column < 4; ++column)
            for (unsigned row : {1U, 3U, 4U})
                EXPECT_EQ(copy->cell(row, column), mixed->cell(row, column))
                    << row << " " << column;
    }
}

TEST_F(Transfer, ThatIsStoppedLeavesTheFileBefore)
{
    Database database;
    database.execute("CREATE TABLE n(i); WITH c(i) AS (VALUES(1) UNION ALL SELECT i + 1 FROM c"
                     " WHERE i < 5000) INSERT INTO n SELECT i FROM c");
    const auto numbers = RowReader::open(database, {"main", "n"});
    write(path("out.csv"), "before");
    CancelToken token;
    const auto stop = [&](std::uint64_t) { token.cancel(); };
    EXPECT_TRUE(
        errorOfCall([&] { exportRows(*numbers, path("out.csv"), {}, stop, token); }).isCancelled());
    EXPECT_EQ(contentOf(path("out.csv")), "before");
    EXPECT_EQ(files().size(), 1U);
    EXPECT_THROW(exportRows(*numbers, path("none") / "out.csv", {}), Error);
    EXPECT_THROW(exportRows(*numbers, path(""), {}), Error);

    exportRows(*numbers, path("out.csv"), {});
    const CsvPreview preview = previewCsv(path("out.csv"));
    CancelToken second;
    const auto stopSecond = [&](std::uint64_t) { second.cancel(); };
    const CsvImportOptions options{preview.format, {"main", "m"}, true, preview.columns};
    database.execute("BEGIN; INSERT INTO n VALUES(-1)");
    EXPECT_THROW(importCsv(database, path("out.csv"), options, stopSecond, second), Error);
    EXPECT_THROW(database.find({"main", "m"}), Error);
    EXPECT_TRUE(database.isInTransaction());
    EXPECT_EQ(database.scalar("SELECT min(i) FROM n"), Value(-1));
    database.commit();
    EXPECT_EQ(importCsv(database, path("out.csv"), options).imported, 5000U);
    EXPECT_FALSE(database.isInTransaction());
}

TEST_F(Transfer, ReportsRowsThatDoNotFit)
{
    const auto file = write(path("bad.csv"),
                            "\xEF\xBB\xBFname;size;;name\r\na;1;;x\r\n\r\nb;2\r\n\"c\nc\";three;;\n"
                            "d;4;;\xFF\r\na;5;;\r\ne;;\"\";7\ro;\"6\" ;z;\"w");
    const CsvPreview preview = previewCsv(file);
    ASSERT_EQ(preview.columns.size(), 4U);
    EXPECT_FALSE(preview.format.hasHeader); // two are called alike, and one is not
    CsvImportOptions options{
        {';', true}, {"main", "t"}, false, {{"name", ""}, {"size", ""}, {"", ""}, {"more", ""}}};
    Database database;
    database.execute("CREATE TABLE t(name TEXT PRIMARY KEY, size INTEGER, more)");
    const CsvReport report = importCsv(database, file, options);
    EXPECT_EQ(report.imported, 2U);
    std::string bad;
    for (const BadRow& row : report.bad)
        bad += std::to_string(row.line) + " " + row.reason + "\n";
    EXPECT_EQ(bad, "4 2 fields instead of 4\n5 size: \"three\" is no number\n"
                   "7 there are bytes that are no UTF-8\n8 UNIQUE constraint failed: t.name\n"
                   "10 a quote is not closed\n");
    EXPECT_EQ(texts(*RowReader::open(database, {"main", "t"}), 1), "1//");

    EXPECT_EQ(previewCsv(write(path("plain.csv"), "007,1.5,+1,99999999999999999999\n"
                                                  "8,2,2,1\n"))
                  .columns.at(1)
                  .type,
              "REAL");
    const CsvPreview plain = previewCsv(path("plain.csv"));
    EXPECT_FALSE(plain.format.hasHeader);
    for (std::size_t column : {0, 2, 3})
        EXPECT_EQ(plain.columns.at(column).type, "TEXT") << column;
    EXPECT_TRUE(previewCsv(write(path("none.csv"), "")).columns.empty());
    EXPECT_THROW(previewCsv(write(path("utf16.csv"), "\xFF\xFE"
                                                     "a")),
                 Error);
    EXPECT_THROW(previewCsv(path("missing.csv")), Error);
}

TEST_F(Transfer, AShopIsMadeFromNothing)
{
    const std::uint64_t rows = makeShop(path("shop.db"), 3000);
    EXPECT_GT(rows, 3700U);
    Database shop(path("shop.db"));
    EXPECT_EQ(shop.scalar("PRAGMA integrity_check"), Value("ok"));
    EXPECT_FALSE(shop.scalar("SELECT 1 FROM pragma_foreign_key_check") == Value(1));
    EXPECT_EQ(shop.scalar("SELECT count(*) FROM order_totals WHERE total > 0"), Value(600));
    EXPECT_THROW(makeShop(path("shop.db")), Error);

    CancelToken token;
    const auto stop = [&](std::uint64_t) { token.cancel(); };
    EXPECT_THROW(makeShop(path("half.db"), 100000, stop, token), Error);
    EXPECT_EQ(files().size(), 1U);
}

TEST(Values, AreReadAsTyped)
{
    EXPECT_EQ(valueFromText(" 12 ", "INTEGER"), Value(12));
    EXPECT_EQ(valueFromText("1e3", ""), Value(1000.0));
    EXPECT_EQ(valueFromText("12", "VARCHAR(5)"), Value("12"));
    EXPECT_EQ(valueFromText("x'0aFF'", "blob"), Value(Blob{"\x0A\xFF"}));
    EXPECT_EQ(valueFromText("x'0'", "BLOB"), Value("x'0'"));
    EXPECT_EQ(valueFromText("inf", "REAL"), Value("inf"));
    EXPECT_EQ(valueFromText("99999999999999999999", "INT"), Value(1e20));
    EXPECT_EQ(valueFromText("", "INT"), Value(""));
    EXPECT_EQ(textOf(Value(2.0)), "2.0");
    EXPECT_EQ(textOf(Value(0.1)), "0.1");
}

} // namespace SQL
