#include "apps/explorer/sql/testdatabase.h"
#include "sql/quoting.h"
#include "sql/script.h"
#include "sql/tableeditor.h"

#include <random>
#include <sys/stat.h>

namespace SQL {

namespace {

class HostileFile : public DatabaseTest
{
protected:
    std::string shop() const
    {
        return contentOf(made("good.db", "CREATE TABLE t(a INTEGER PRIMARY KEY, b TEXT, c BLOB);"
                                         "CREATE INDEX i ON t(b);"
                                         "CREATE VIEW v AS SELECT a, b FROM t WHERE a > 2;"
                                         "CREATE TABLE w(k TEXT PRIMARY KEY, x) WITHOUT ROWID;"
                                         "WITH n(i) AS (VALUES(1) UNION ALL SELECT i + 1 FROM n"
                                         " WHERE i < 200) INSERT INTO t SELECT i, 'text ' || i,"
                                         " zeroblob(i * 3) FROM n;"
                                         "INSERT INTO w SELECT b, a FROM t"));
    }

    /// Everything that a program does with a file that is only looked at.
    static void lookAtAll(Database& database)
    {
        for (const SchemaObject& object : database.schema().objects) {
            if (object.kind != ObjectKind::Table && object.kind != ObjectKind::View)
                continue;
            database.indexes(object.name);
            database.foreignKeys(object.name);
            const auto reader = RowReader::open(database, object.name);
            std::vector<std::size_t> columns(reader->columns().size());
            for (std::size_t i = 0; i < columns.size(); ++i)
                columns[i] = i;
            reader->read(all(*reader), columns);
            reader->read(all(*reader, {0, true, {{0, "1"}}}), columns);
        }
    }
};

Error::Kind kindOfOpening(const std::filesystem::path& file)
{
    try {
        Database database(file, Database::Mode::ReadOnly);
    } catch (const Error& error) {
        EXPECT_NE(std::string(error.what()).find(file.filename().string()), std::string::npos)
            << error.what();
        return error.kind();
    }
    ADD_FAILURE() << file << " opens";
    return Error::Kind::Other;
}

} // namespace

TEST_F(HostileFile, IsToldWhatItIs)
{
    const std::string good = shop();
    std::string random(8192, '\0');
    std::mt19937 dice(7);
    for (char& each : random)
        each = static_cast<char>(dice());
    const auto withBytes = [&](std::size_t at, const std::string& bytes) {
        return std::string(good).replace(at, bytes.size(), bytes);
    };

    const std::vector<std::pair<std::string, Error::Kind>> cases = {
        {"just a text", Error::Kind::NotADatabase},
        {std::string(9000, 'x'), Error::Kind::NotADatabase},
        {random, Error::Kind::Encrypted},
        {"\x89PNG" + random, Error::Kind::NotADatabase},
        {good.substr(0, 9), Error::Kind::Truncated},
        {good.substr(0, 70), Error::Kind::Truncated},
        {good.substr(0, good.size() - 5000), Error::Kind::Truncated},
        {withBytes(16, "\x03\xE8"), Error::Kind::WrongPageSize},
        {withBytes(16, std::string(2, '\0')), Error::Kind::WrongPageSize},
        {withBytes(16, "\x80\x01"), Error::Kind::WrongPageSize},
        {withBytes(100, std::string(12, '\x55')), Error::Kind::Corrupt},
        {withBytes(18, "\x09\x09"), Error::Kind::NotADatabase}};
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(kindOfOpening(write(path("case" + std::to_string(i)), cases[i].first)),
                  cases[i].second)
            << i;

    EXPECT_EQ(kindOfOpening(path("nothing")), Error::Kind::NotFound);
    EXPECT_EQ(kindOfOpening(path("")), Error::Kind::NotFound);
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(kindOfOpening(path("pipe")), Error::Kind::NotFound);
    EXPECT_TRUE(
        Database(write(path("empty"), ""), Database::Mode::ReadOnly).schema().objects.empty());
}

TEST_F(HostileFile, DoesNotHarmWithDamageAnywhere)
{
    const std::string good = shop();
    std::mt19937 dice(3);
    for (int round = 0; round < 50; ++round) {
        std::string bad = good;
        for (int i = 0; i < 4; ++i)
            bad[dice() % (round % 2 ? bad.size() : 8192)] = static_cast<char>(dice());
        const auto file = write(path("bad.db"), bad);
        try {
            Database database(file, Database::Mode::ReadOnly);
            lookAtAll(database);
        } catch (const Error&) {
            // Said is said.
        }
        EXPECT_TRUE(contentOf(file) == bad);
    }
}

TEST_F(HostileFile, IsLeftAsItIsByLooking)
{
    const auto file = write(path("looked.db"), shop());
    std::filesystem::remove(path("good.db"));
    const auto before = contentOf(file);
    for (const auto mode : {Database::Mode::ReadOnly, Database::Mode::ReadWrite}) {
        Database database(file, mode);
        lookAtAll(database);
        runScript(database, "SELECT * FROM t; PRAGMA table_info(t); EXPLAIN DELETE FROM t");
        EXPECT_EQ(files(), std::vector<std::string>{"looked.db"});
    }
    EXPECT_TRUE(contentOf(file) == before);

    Database database(file, Database::Mode::ReadOnly);
    EXPECT_TRUE(database.isReadOnly());
    EXPECT_EQ(errorOfCall([&] { database.begin(); }).kind(), Error::Kind::ReadOnly);
    TableEditor editor(RowReader::open(database, {"main", "t"}));
    EXPECT_EQ(errorOfCall([&] { editor.setCell(1, 1, {}); }).kind(), Error::Kind::ReadOnly);
}

TEST_F(HostileFile, MayNameThingsAsItLikes)
{
    const std::string table = "a \"table\" 'of' `all` [kinds]; -- \xF0\x9F\x92\xBE";
    const std::string column = "col\"umn\n\xF0\x9F\x98\x80?1 = :x";
    Database database(path("odd name?mode=ro#%41.db"), Database::Mode::Create);
    database.execute("CREATE TABLE " + quoteName(table) + "(" + quoteName(column)
                     + " TEXT UNIQUE, \"rowid\", \"oid\")");
    database.attach(path("other.db"), "an \"other\"", Database::Mode::Create);
    database.execute("CREATE TABLE \"an \"\"other\"\"\".\"select\"(\"from\" PRIMARY KEY, \"\")"
                     " WITHOUT ROWID");

    const auto reader = RowReader::open(database, {"main", table});
    TableEditor editor(reader);
    const std::string odd("NUL \0 '\"", 8);
    const unsigned row = editor.insertRow({{0, odd}, {1, 5}});
    EXPECT_EQ(reader->cell(row, 0), Value(odd));
    EXPECT_EQ(all(*reader, {0, false, {{0, "=" + odd}}}), std::vector{row});
    EXPECT_EQ(errorOfCall([&] { editor.insertRow({{0, odd}}); }).columns(), std::vector{column});

    const auto keyed = RowReader::open(database, {"an \"other\"", "select"});
    TableEditor keyedEditor(keyed);
    keyedEditor.setCell(keyedEditor.insertRow({{0, odd}}), 1, odd);
    EXPECT_EQ(texts(*keyed, 1), odd + "/");
    EXPECT_EQ(database.scalar("SELECT " + quoteValue(odd)), Value(odd));
    EXPECT_EQ(database.scalar("SELECT " + quoteValue(std::string("\xFF'"))), Value("\xFF'"));
    EXPECT_THROW(quoteName(odd), Error);
    EXPECT_THROW(RowReader::open(database, {"main", odd}), Error);
    database.rollBack();

    // A schema that was tampered with may name a table so that no SQL can.
    made("nul.db", "CREATE TABLE zzzz(a)");
    std::string bytes = contentOf(path("nul.db"));
    bytes[bytes.find("zzzz") + 1] = '\0';
    EXPECT_THROW(
        {
            Database tampered(write(path("nul.db"), bytes), Database::Mode::ReadOnly);
            lookAtAll(tampered);
        },
        Error);
}

TEST_F(HostileFile, MayHoldLargeThings)
{
    Database database(path("large.db"), Database::Mode::Create);
    std::string columns;
    for (int i = 0; i < 2000; ++i)
        columns += (i ? ", c" : "c") + std::to_string(i) + " DEFAULT " + std::to_string(i);
    database.execute("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF;"
                     "CREATE TABLE wide("
                     + columns
                     + "); INSERT INTO wide DEFAULT VALUES;"
                       "CREATE VIEW wide_view AS SELECT * FROM wide;"
                       "CREATE TABLE blobs(id INTEGER PRIMARY KEY, t TEXT, b);"
                       "INSERT INTO blobs VALUES(7, 'ärger', zeroblob(100000000))");
    std::vector<std::size_t> places(2001);
    for (std::size_t i = 0; i < places.size(); ++i)
        places[i] = i;
    for (const char* name : {"wide", "wide_view"}) {
        const auto reader = RowReader::open(database, {"main", name});
        const auto rows = reader->read(all(*reader), places);
        ASSERT_EQ(rows.at(0).cells.size(), 2001U) << name;
        EXPECT_EQ(rows[0].cells[1999].value, Value(1999));
        EXPECT_TRUE(isNull(rows[0].cells[2000].value));
    }

    const auto blobs = RowReader::open(database, {"main", "blobs"});
    for (int i = 0; i < 50; ++i) { // seconds, if it read all of the blob
        const auto row = blobs->read({7}, {2, 1}, 10).at(0);
        ASSERT_EQ(row.cells.at(0).size, 100000000);
        ASSERT_EQ(std::get<Blob>(row.cells[0].value).bytes, std::string(10, '\0'));
        ASSERT_TRUE(row.cells[0].isCut);
    }
    EXPECT_EQ(blobs->read({7}, {1}, 1).at(0).cells.at(0).value, Value(""));
    EXPECT_EQ(blobs->read({7}, {1}, 2).at(0).cells.at(0).value, Value("ä"));
    EXPECT_EQ(blobs->bytes(7, 2, 99999998, 10), std::string(2, '\0'));
    EXPECT_EQ(blobs->bytes(7, 2, 1LL << 60, 10), "");
    EXPECT_EQ(blobs->bytes(7, 1, 1, 3), "\xA4rg");
    EXPECT_EQ(blobs->bytes(7, 0, 0, 3), ""); // a number
}

TEST_F(HostileFile, MayHaveViewsThatFailOrDoNotEnd)
{
    Database database(made("views.db", "CREATE TABLE t(a); CREATE VIEW gone AS SELECT * FROM t;"
                                       "CREATE VIEW deep AS SELECT a.a, abs(-9223372036854775808)"
                                       " FROM (SELECT 1 AS a) a;"
                                       "CREATE VIEW endless AS WITH n(i) AS (VALUES(1) UNION ALL"
                                       " SELECT i + 1 FROM n) SELECT i FROM n;"
                                       "DROP TABLE t"));
    EXPECT_EQ(database.schema().objects.size(), 3U);
    const Error error = errorOfCall([&] { RowReader::open(database, {"main", "gone"}); });
    EXPECT_NE(std::string(error.what()).find("no such table: main.t"), std::string::npos);
    const auto deep = RowReader::open(database, {"main", "deep"});
    EXPECT_STREQ(errorOfCall([&] { all(*deep); }).what(), "integer overflow");

    const auto endless = RowReader::open(database, {"main", "endless"});
    EXPECT_EQ(endless->list({})->next(100).size(), 100U);
    EXPECT_EQ(endless->read({100}, {0}).at(0).cells.at(0).value, Value(100));
}

} // namespace SQL
