#include "apps/explorer/sql/testdatabase.h"
#include "sql/tableeditor.h"

#include <gtest/gtest.h>
#include <memory>
#include <unistd.h>

namespace SQL {
namespace {

/// Files that are written by way of a log beside them (WAL).
class LoggedFile : public DatabaseTest
{
protected:
    std::filesystem::path shop() const
    {
        return made("shop.db",
                    "PRAGMA journal_mode = WAL; CREATE TABLE t(a INTEGER PRIMARY KEY, b);"
                    "INSERT INTO t VALUES(1, 'one'), (2, 'two')");
    }
    /// As a program leaves it that is killed.
    std::filesystem::path left() const
    {
        const auto file = shop();
        Database open(file);
        open.execute("INSERT INTO t VALUES(3, 'three')");
        for (const char* ending : {"", "-wal"})
            std::filesystem::copy_file(path(std::string("shop.db") + ending),
                                       path(std::string("left.db") + ending));
        return path("left.db");
    }
    static std::string shown(Database& database)
    {
        return texts(*RowReader::open(database, {"main", "t"}), 1, {0});
    }
};

/// Works where nothing can be written, as root can everywhere.
class Unprivileged
{
public:
    explicit Unprivileged(const std::filesystem::path& folder) : m_folder(folder)
    {
        using std::filesystem::perms;
        const auto all = perms::owner_read | perms::group_read | perms::others_read;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            std::filesystem::permissions(entry.path(), all);
        std::filesystem::permissions(folder, all | perms::owner_exec | perms::group_exec
                                                 | perms::others_exec);
        if (m_wasRoot)
            m_isDone = seteuid(65534) == 0;
    }
    ~Unprivileged()
    {
        if (m_wasRoot)
            m_isDone = seteuid(0) == 0;
        std::filesystem::permissions(m_folder, std::filesystem::perms::owner_all);
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
    bool isDone() const noexcept { return m_isDone; }

private:
    const std::filesystem::path m_folder;
    const bool m_wasRoot = geteuid() == 0;
    bool m_isDone = true;
};

TEST_F(LoggedFile, isLeftAsItIsByLooking)
{
    const auto clean = shop();
    const std::string before = contentOf(clean);
    for (const auto mode : {Database::Mode::ReadOnly, Database::Mode::ReadWrite}) {
        Database database(clean, mode);
        EXPECT_EQ(shown(database), "one/two/");
    }
    EXPECT_EQ(files(), std::vector<std::string>{"shop.db"}) << "nothing stays beside it";
    EXPECT_TRUE(contentOf(clean) == before);

    std::filesystem::remove(clean);
    const auto file = left();
    const std::string log = contentOf(path("left.db-wal"));
    const std::string main = contentOf(file);
    for (const auto mode : {Database::Mode::ReadOnly, Database::Mode::ReadWrite}) {
        {
            Database database(file, mode);
            EXPECT_EQ(shown(database), "one/two/three/");
            if (mode == Database::Mode::ReadWrite) {
                TableEditor editor(RowReader::open(database, {"main", "t"}));
                editor.setCell(1, 1, Value("not kept"));
                database.rollBack();
            }
        }
        EXPECT_TRUE(contentOf(file) == main);
        EXPECT_TRUE(contentOf(path("left.db-wal")) == log);
    }
    {
        Database database(file);
        database.execute("INSERT INTO t VALUES(4, 'four')");
    }
    EXPECT_FALSE(std::filesystem::exists(path("left.db-wal"))) << "who writes tidies up";
    Database database(file, Database::Mode::ReadOnly);
    EXPECT_EQ(shown(database), "one/two/three/four/");
}

TEST_F(LoggedFile, isReadWhileOthersWrite)
{
    const auto file = shop();
    Database database(file);
    database.setBusyTimeout(std::chrono::milliseconds(20));
    const auto reader = RowReader::open(database, {"main", "t"});
    TableEditor editor(reader);
    Database other(file);
    other.execute("BEGIN IMMEDIATE; INSERT INTO t VALUES(3, 'three')");
    EXPECT_EQ(shown(database), "one/two/");
    EXPECT_TRUE(errorOfCall([&] { editor.setCell(1, 1, Value("mine")); }).isBusy());
    other.execute("COMMIT");
    EXPECT_TRUE(database.wasChangedElsewhere());
    EXPECT_EQ(shown(database), "one/two/three/");

    // Who reads an older state cannot write before he has done with it.
    auto listing = reader->list({1, true, {}});
    EXPECT_EQ(listing->next(1).size(), 1U);
    other.execute("INSERT INTO t VALUES(4, 'four')");
    EXPECT_TRUE(errorOfCall([&] { editor.setCell(1, 1, Value("mine")); }).isBusy());
    listing.reset();
    editor.setCell(1, 1, Value("mine"));
    EXPECT_EQ(shown(other), "one/two/three/four/");
    database.commit();
    EXPECT_EQ(shown(other), "mine/two/three/four/");
}

TEST_F(LoggedFile, isReadOrRefusedWhereNothingCanBeWritten)
{
    const auto file = left();
    const auto clean = path("shop.db");
    const std::string before = contentOf(clean);
    const auto folder = clean.parent_path();
    const Unprivileged unprivileged(folder);
    if (!unprivileged.isDone())
        GTEST_SKIP() << "cannot become another user";
    {
        Database database(clean);
        EXPECT_TRUE(database.isReadOnly());
        EXPECT_EQ(shown(database), "one/two/three/");
        EXPECT_EQ(errorOfCall([&] { database.begin(); }).kind(), Error::Kind::ReadOnly);
    }
    EXPECT_TRUE(contentOf(clean) == before);
    const Error refused = errorOfCall([&] { Database database(file); });
    EXPECT_EQ(refused.kind(), Error::Kind::NotReadable);
    EXPECT_NE(std::string(refused.what()).find("left.db-wal"), std::string::npos);
}

} // namespace
} // namespace SQL
