#include "sql/shopsample.h"

#include "sql/database.h"
#include "sql/filecheck.h"
#include "sql/samplepicture.h"
#include "sql/statement.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <system_error>

namespace SQL {

namespace {

constexpr const char* Tables = R"(
CREATE TABLE customers (
    id INTEGER PRIMARY KEY,
    name TEXT NOT NULL,
    email TEXT UNIQUE,
    city TEXT NOT NULL,
    born DATE,
    discount REAL NOT NULL DEFAULT 0 CHECK (discount BETWEEN 0 AND 50),
    note TEXT
);
CREATE TABLE articles (
    id INTEGER PRIMARY KEY,
    name TEXT NOT NULL UNIQUE,
    price REAL NOT NULL CHECK (price >= 0),
    stock INTEGER NOT NULL DEFAULT 0,
    picture BLOB,
    description TEXT,
    gross REAL AS (round(price * 1.19, 2))
);
CREATE TABLE shelves (
    shelf TEXT,
    place INTEGER,
    article INTEGER NOT NULL REFERENCES articles,
    PRIMARY KEY (shelf, place)
) WITHOUT ROWID;
CREATE TABLE orders (
    id INTEGER PRIMARY KEY,
    customer INTEGER NOT NULL REFERENCES customers,
    ordered DATE NOT NULL,
    state TEXT NOT NULL DEFAULT 'open' CHECK (state IN ('open', 'sent', 'paid', 'returned')),
    comment TEXT
);
CREATE TABLE order_lines (
    id INTEGER PRIMARY KEY,
    order_id INTEGER NOT NULL REFERENCES orders ON DELETE CASCADE,
    article INTEGER NOT NULL REFERENCES articles,
    quantity INTEGER NOT NULL CHECK (quantity > 0),
    price REAL NOT NULL,
    remark TEXT
);
CREATE TABLE price_changes (
    changed TEXT NOT NULL DEFAULT CURRENT_TIMESTAMP,
    article INTEGER NOT NULL,
    before REAL,
    after REAL
);
)";

/// Made when the rows are there, which takes a fraction of the time.
constexpr const char* Rest = R"(
CREATE INDEX orders_by_customer ON orders (customer);
CREATE INDEX order_lines_by_order ON order_lines (order_id);
CREATE INDEX customers_by_city ON customers (city, name);
CREATE VIEW order_totals AS
    SELECT o.id, c.name AS customer, o.ordered, o.state,
           (SELECT round(sum(l.quantity * l.price), 2) FROM order_lines l WHERE l.order_id = o.id)
               AS total
    FROM orders o JOIN customers c ON c.id = o.customer;
CREATE VIEW low_stock AS SELECT id, name, stock FROM articles WHERE stock < 20 ORDER BY stock;
CREATE TRIGGER price_is_logged AFTER UPDATE OF price ON articles WHEN old.price <> new.price BEGIN
    INSERT INTO price_changes (article, before, after) VALUES (new.id, old.price, new.price);
END;
)";

using Words = std::array<std::string_view, 16>;

constexpr Words FirstNames = {"Anna",  "Björn", "Carla",  "Dmitri", "Élodie", "Farid",
                              "Greta", "Hiro",  "Ines",   "Jürgen", "Kamala", "Luís",
                              "Maya",  "Noor",  "Øyvind", "Zoë"};
constexpr Words LastNames = {"Ackermann", "Berg",   "Castillo", "Dubois", "Eriksson", "Fischer",
                             "García",    "Haddad", "Ito",      "Jensen", "Kowalski", "Lindner",
                             "Müller",    "Novák",  "O'Neill",  "Yılmaz"};
constexpr Words Cities = {"Aarhus",   "Basel",    "Córdoba", "Dresden", "Eindhoven", "Firenze",
                          "Göteborg", "Helsinki", "İzmir",   "Jaipur",  "Kraków",    "Łódź",
                          "Málaga",   "Nantes",   "Oslo",    "Zürich"};
constexpr Words Materials = {"oak",    "steel",  "linen",   "cork",  "glass", "wool",
                             "brass",  "clay",   "felt",    "birch", "stone", "paper",
                             "copper", "bamboo", "leather", "wax"};
constexpr Words Things = {"lamp",  "chair", "bowl",  "clock", "basket", "shelf", "vase", "kettle",
                          "board", "stool", "frame", "brush", "tray",   "mug",   "box",  "candle"};
constexpr Words Adjectives = {"small", "tall",   "round", "light", "sturdy", "foldable",
                              "quiet", "bright", "warm",  "plain", "slim",   "heavy",
                              "old",   "soft",   "blue",  "red"};
constexpr std::array<std::string_view, 4> States = {"open", "sent", "paid", "returned"};

/// The same numbers on every machine.
class Dice
{
public:
    std::uint64_t below(std::uint64_t limit)
    {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = m_state;
        mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EBU;
        return (mixed ^ mixed >> 31) % limit;
    }
    std::string_view word(const Words& words) { return words[below(words.size())]; }
    double price() { return static_cast<double>(below(20000) + 100) / 100; }
    std::string date(unsigned firstYear, unsigned years)
    {
        char text[40];
        std::snprintf(text, sizeof text, "%04u-%02u-%02u", unsigned(firstYear + below(years)),
                      unsigned(1 + below(12)), unsigned(1 + below(28)));
        return text;
    }

private:
    std::uint64_t m_state = 19;
};

class ShopMaker
{
public:
    ShopMaker(Database& database, std::uint64_t lines, const Progress& progress,
              const CancelToken& token)
        : m_database(database),
          m_progress(progress),
          m_token(token),
          m_articles(std::clamp<std::uint64_t>(lines / 500, 10, 2000)),
          m_customers(lines / 20 + 1),
          m_orders(lines / 5 + 1),
          m_lines(lines)
    {}

    std::uint64_t run()
    {
        m_database.execute("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF;"
                           "PRAGMA foreign_keys = OFF; BEGIN");
        m_database.execute(Tables);
        makeCustomers();
        makeArticles();
        makeShelves();
        makeOrders();
        makeLines();
        m_database.execute(Rest, m_token);
        m_database.execute("COMMIT");
        return m_rows;
    }

private:
    void countRow()
    {
        if (++m_rows % 10000 != 0)
            return;
        if (m_progress)
            m_progress(m_rows);
        if (m_token.isCancelled())
            throw Error(Error::Kind::Cancelled, "cancelled");
    }

    std::string sentences(std::uint64_t count)
    {
        std::string text;
        for (std::uint64_t i = 0; i < count; ++i) {
            text += "A " + std::string(m_dice.word(Adjectives)) + " "
                    + std::string(m_dice.word(Things)) + " of "
                    + std::string(m_dice.word(Materials)) + ", made in "
                    + std::string(m_dice.word(Cities)) + ".";
            text += i % 5 == 4 ? "\n" : " ";
        }
        return text;
    }

    void makeCustomers()
    {
        Statement insert(m_database,
                         "INSERT INTO customers (name, email, city, born, discount, note)"
                         " VALUES (?1, ?2, ?3, ?4, ?5, ?6)");
        for (std::uint64_t i = 1; i <= m_customers; ++i, countRow()) {
            const auto first = std::string(m_dice.word(FirstNames));
            insert.bindText(1, first + " " + std::string(m_dice.word(LastNames)));
            if (i % 9 == 0)
                insert.bind(2, Value());
            else
                insert.bindText(2, "customer" + std::to_string(i) + "@example.org");
            insert.bindText(3, m_dice.word(Cities)).bindText(4, m_dice.date(1940, 65));
            insert.bind(5, Value(static_cast<double>(m_dice.below(11)) * 0.5));
            if (i % 20 == 0)
                insert.bindText(6, sentences(3));
            else
                insert.bind(6, Value());
            insert.run();
        }
    }

    void makeArticles()
    {
        Statement insert(m_database,
                         "INSERT INTO articles (name, price, stock, picture, description)"
                         " VALUES (?1, ?2, ?3, ?4, ?5)");
        for (std::uint64_t i = 1; i <= m_articles; ++i, countRow()) {
            const Value picture = i % 25 == 0 ? Value() : Value(Blob{samplePicture(i)});
            insert.bindText(1, std::string(m_dice.word(Materials)) + " "
                                   + std::string(m_dice.word(Things)) + " " + std::to_string(i));
            insert.bind(2, Value(m_dice.price()));
            insert.bind(3, static_cast<std::int64_t>(m_dice.below(200)));
            insert.bind(4, picture);
            insert.bindText(5, sentences(10 + m_dice.below(60)));
            insert.run();
        }
    }

    void makeShelves()
    {
        Statement insert(m_database, "INSERT INTO shelves VALUES (?1, ?2, ?3)");
        for (std::uint64_t i = 0; i < m_articles; ++i, countRow()) {
            insert.bindText(1, std::string(1, static_cast<char>('A' + i % 20)));
            insert.bind(2, static_cast<std::int64_t>(i / 20 + 1));
            insert.bind(3, static_cast<std::int64_t>(i + 1)).run();
        }
    }

    void makeOrders()
    {
        Statement insert(m_database, "INSERT INTO orders (customer, ordered, state, comment)"
                                     " VALUES (?1, ?2, ?3, ?4)");
        for (std::uint64_t i = 1; i <= m_orders; ++i, countRow()) {
            insert.bind(1, static_cast<std::int64_t>(1 + m_dice.below(m_customers)));
            insert.bindText(2, m_dice.date(2018, 8)).bindText(3, States[m_dice.below(4)]);
            if (i % 10 == 0)
                insert.bindText(4, sentences(2));
            else
                insert.bind(4, Value());
            insert.run();
        }
    }

    void makeLines()
    {
        Statement insert(m_database,
                         "INSERT INTO order_lines (order_id, article, quantity, price, remark)"
                         " VALUES (?1, ?2, ?3, ?4, ?5)");
        for (std::uint64_t i = 0; i < m_lines; ++i, countRow()) {
            insert.bind(1, static_cast<std::int64_t>(1 + i / 5));
            insert.bind(2, static_cast<std::int64_t>(1 + m_dice.below(m_articles)));
            insert.bind(3, static_cast<std::int64_t>(1 + m_dice.below(9)));
            insert.bind(4, Value(m_dice.price()));
            if (i % 16 == 0)
                insert.bindText(5, m_dice.word(Adjectives));
            else
                insert.bind(5, Value());
            insert.run();
        }
    }

    Database& m_database;
    const Progress& m_progress;
    const CancelToken& m_token;
    const std::uint64_t m_articles;
    const std::uint64_t m_customers;
    const std::uint64_t m_orders;
    const std::uint64_t m_lines;
    std::uint64_t m_rows = 0;
    Dice m_dice;
};

} // namespace

std::uint64_t makeShop(const std::filesystem::path& file, std::uint64_t lines,
                       const Progress& progress, const CancelToken& token)
{
    std::error_code ignored;
    if (std::filesystem::exists(file, ignored))
        throw Error(Error::Kind::Other, shownName(file) + " is there already");
    try {
        Database database(file, Database::Mode::Create);
        return ShopMaker(database, lines, progress, token).run();
    } catch (...) {
        std::filesystem::remove(file, ignored);
        throw;
    }
}

} // namespace SQL
