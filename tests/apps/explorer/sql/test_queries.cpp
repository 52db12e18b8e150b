#include "apps/explorer/sql/testdatabase.h"
#include "sql/completion.h"
#include "sql/script.h"
#include "sql/tokens.h"

namespace SQL {

namespace {

using Queries = DatabaseTest;

std::string colours(const std::string& line, LineState& state)
{
    constexpr std::string_view Letters = "ksnciov";
    std::string letters(line.size(), ' ');
    const LineTokens tokens = tokenize(std::string_view(line), state);
    for (const Token& token : tokens.tokens)
        letters.replace(token.begin, token.length, token.length,
                        Letters[static_cast<std::size_t>(token.kind)]);
    state = tokens.state;
    return letters;
}

/// The candidates at the bar.
std::string completed(std::string text, const Catalog& catalog)
{
    const std::size_t bar = text.find('|');
    text.erase(bar, 1);
    const Completions narrow = complete(text, bar, catalog);
    std::string all = std::to_string(bar - narrow.begin) + ":";
    for (const Candidate& candidate : narrow.candidates)
        if (candidate.kind != CandidateKind::Keyword)
            all += candidate.text + "/";
    return all;
}

} // namespace

TEST_F(Queries, GiveRowsChangesAndMessages)
{
    Database database(made("q.db", "CREATE TABLE t(a INTEGER, b TEXT)"));
    std::size_t observed = 0;
    const auto results =
        runScript(database,
                  "INSERT INTO t VALUES(1, 'x;y'), (2, NULL); -- a comment\n"
                  "SELECT b, a AS n FROM t;;\n/* more */ UPDATE t SET a = a + 1 RETURNING a;"
                  "SELECT 'ä', missing FROM t; DROP TABLE t",
                  {}, {}, [&](const StatementResult&) { ++observed; });
    ASSERT_EQ(results.size(), 4U);
    EXPECT_EQ(observed, 4U);
    EXPECT_EQ(results[0].changes, 2);
    EXPECT_FALSE(results[0].rows);
    ASSERT_TRUE(results[1].rows);
    EXPECT_EQ(results[1].rows->columns().at(1).name, "n");
    EXPECT_EQ(results[1].rows->columns().at(1).type, "INTEGER");
    EXPECT_EQ(texts(*results[1].rows, 1, {1, true, {{0, "!null"}}}), "1/");
    EXPECT_EQ(results[2].changes, 2);
    EXPECT_EQ(texts(*results[2].rows, 0), "2/3/");
    ASSERT_TRUE(results[3].error);
    EXPECT_STREQ(results[3].error->what(), "no such column: missing");
    const std::string script = "INSERT INTO t VALUES(1, 'x;y'), (2, NULL); -- a comment\n"
                               "SELECT b, a AS n FROM t;;\n/* more */ UPDATE t SET a = a + 1"
                               " RETURNING a;SELECT 'ä', missing FROM t; DROP TABLE t";
    EXPECT_EQ(results[3].error->position(), static_cast<int>(script.find("missing")));

    // All is undone, and the copies are still there.
    EXPECT_TRUE(database.isInTransaction());
    database.rollBack();
    EXPECT_EQ(database.scalar("SELECT count(*) FROM t"), Value(0));
    EXPECT_EQ(texts(*results[2].rows, 0), "2/3/");

    EXPECT_TRUE(runScript(database, " ; -- nothing\n /* at all */ ").empty());
    EXPECT_TRUE(runScript(database, std::string("\0SELECT 1", 9)).at(0).error);
    EXPECT_TRUE(runScript(database, "INSERT INTO t VALUES(1)").at(0).error);
    EXPECT_FALSE(database.isInTransaction());
    runScript(database, "INSERT INTO t VALUES(1, 2)", {100, false});
    EXPECT_FALSE(database.isInTransaction());
    EXPECT_FALSE(runScript(database, "VACUUM").at(0).error);
}

TEST_F(Queries, EndAtTheirLimitAndWhenStopped)
{
    Database database;
    database.execute("CREATE TABLE t(a)");
    const std::string numbers = "WITH c(i) AS (VALUES(1) UNION ALL SELECT i + 1 FROM c) ";
    const auto limited = runScript(database, numbers + "SELECT i FROM c", {10, true});
    EXPECT_EQ(limited.at(0).rowCount, 10U);
    EXPECT_TRUE(limited[0].isLimited);
    const auto exact = runScript(database, numbers + "SELECT i FROM c LIMIT 10", {10, true});
    EXPECT_FALSE(exact.at(0).isLimited);
    runScript(database, "INSERT INTO t VALUES(1), (2), (3) RETURNING a", {1, true});
    EXPECT_EQ(database.scalar("SELECT count(*) FROM t"), Value(3));

    CancelToken token;
    const auto stopAt = [&](const StatementResult&) { token.cancel(); };
    const auto read = runScript(database, "SELECT 1; " + numbers + "SELECT i FROM c WHERE i < 0",
                                {}, token, stopAt);
    ASSERT_EQ(read.size(), 2U);
    EXPECT_TRUE(read[1].error && read[1].error->isCancelled());
    EXPECT_TRUE(database.isInTransaction());
}

TEST(Tokens, AreKnownFromLineToLine)
{
    LineState state = LineState::None;
    EXPECT_EQ(colours("select \"a\"\"b\", x'1F', 'it''s' -- no", state),
              "kkkkkk iiiiiio ssssso sssssss ccccc");
    EXPECT_EQ(state, LineState::None);
    EXPECT_EQ(colours("FROM t1 WHERE a>=-1.5e+3+.5*0x1F AND ?1=:n [x y] /* begun", state),
              "kkkk ii kkkkk iooonnnnnnonnonnnn kkk vvovv iiiii cccccccc");
    EXPECT_EQ(state, LineState::Comment);
    EXPECT_EQ(colours("still * /", state), "ccccccccc");
    EXPECT_EQ(colours("*/größe 'open", state), "cciiiiiii sssss");
    EXPECT_EQ(state, LineState::String);
    EXPECT_EQ(colours("''' ;", state), "sss o");
    EXPECT_EQ(tokenize(std::wstring_view(L"größe = 'ß'")).tokens,
              (std::vector<Token>{{0, 5, TokenKind::Identifier},
                                  {6, 1, TokenKind::Operator},
                                  {8, 3, TokenKind::String}}));
}

TEST_F(Queries, AreCompletedByWhatTheyName)
{
    Database database;
    database.execute("CREATE TABLE orders(id, number, \"order\"); CREATE TABLE other(zip, näme);"
                     "CREATE VIEW gone AS SELECT * FROM nowhere; ATTACH ':memory:' AS more;"
                     "CREATE TABLE more.extra(size)");
    const Catalog catalog = catalogOf(database);
    EXPECT_EQ(completed("SELECT nu| FROM orders", catalog), "2:number/");
    EXPECT_EQ(completed("SELECT nu| FROM other; SELECT * FROM orders", catalog), "2:");
    EXPECT_EQ(completed("SELECT o.| FROM Orders AS o, other x", catalog), "0:id/number/\"order\"/");
    EXPECT_EQ(completed("SELECT x.Z| FROM orders o, \"other\" x", catalog), "1:zip/");
    EXPECT_EQ(completed("SELECT * FROM o|", catalog), "1:orders/other/");
    EXPECT_EQ(completed("SELECT * FROM more.|", catalog), "0:extra/");
    EXPECT_EQ(completed("SELECT 'o|'", catalog), "0:");
    EXPECT_EQ(completed("SELECT 1 -- o|", catalog), "0:");
    EXPECT_EQ(completed("SELECT \"or| FROM orders", catalog), "3:\"orders\"/");
    EXPECT_EQ(completed("|", catalog), "0:orders/other/gone/extra/main/more/");
    EXPECT_EQ(complete(std::string("sel"), 99, catalog).candidates.at(0).text, "SELECT");

    const std::wstring wide = L"SELECT 'größe', n FROM other";
    const Completions found = complete(wide, wide.find(L"n FROM") + 1, catalog);
    EXPECT_EQ(found.begin, wide.find(L"n FROM"));
    EXPECT_EQ(found.candidates.at(0).text, "näme");
}

} // namespace SQL
