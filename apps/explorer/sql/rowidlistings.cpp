#include "sql/rowidlistings.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace SQL {

GrowingRowIds::GrowingRowIds(Database& database, std::string table, std::string id,
                             RowNumbers& numbers, const CancelToken& token)
    : m_database(database),
      m_table(std::move(table)),
      m_id(std::move(id)),
      m_numbers(numbers),
      m_token(token)
{}

void GrowingRowIds::begin()
{
    // One at a time: for both together the database would read the table.
    Statement ends(m_database, "SELECT (SELECT min(" + m_id + ") FROM " + m_table
                                   + "), (SELECT max(" + m_id + ") FROM " + m_table + ")");
    m_isDone = !ends.step() || ends.isNullAt(0);
    if (m_isDone)
        return;
    m_first = m_next = ends.integer(0);
    m_last = ends.integer(1);
}

/// Counting takes a fraction of the time that reading the ids does, so it is worth the try, behind
/// the first piece, which is wanted at once.
bool GrowingRowIds::looksGapless()
{
    const std::uint64_t span =
        static_cast<std::uint64_t>(m_last) - static_cast<std::uint64_t>(m_first);
    if (span >= std::numeric_limits<unsigned>::max())
        return false;
    return m_database.scalar("SELECT count(*) FROM " + m_table, m_token)
           == Value(static_cast<std::int64_t>(span + 1));
}

std::vector<unsigned> GrowingRowIds::countPiece(std::size_t most)
{
    std::vector<unsigned> rows;
    const std::size_t left = m_next > m_last ? 0 : static_cast<std::size_t>(m_last - m_next) + 1;
    rows.reserve(std::min(most, left));
    for (std::size_t i = std::min(most, left); i > 0; --i)
        rows.push_back(m_numbers.numberOf(m_next++));
    m_isDone = left <= most;
    return rows;
}

std::vector<unsigned> GrowingRowIds::readPiece(std::size_t most)
{
    std::vector<unsigned> rows;
    Statement piece(m_database, "SELECT " + m_id + " FROM " + m_table + " WHERE " + m_id
                                    + " >= ?1 ORDER BY " + m_id + " LIMIT ?2");
    piece.bind(1, m_next);
    piece.bind(2, static_cast<std::int64_t>(std::min<std::size_t>(most, 1U << 31)));
    std::int64_t id = m_last;
    while (piece.step()) {
        id = piece.integer(0);
        rows.push_back(m_numbers.numberOf(id));
    }
    m_isDone = rows.size() < most || id == std::numeric_limits<std::int64_t>::max();
    if (!m_isDone)
        m_next = id + 1;
    return rows;
}

std::vector<unsigned> GrowingRowIds::next(std::size_t most)
{
    if (m_isDone || most == 0)
        return {};
    const CancelScope scope(m_database, m_token);
    if (m_pieces == 0)
        begin();
    else if (m_pieces == 1)
        m_isGapless = looksGapless();
    ++m_pieces;
    if (m_isDone)
        return {};
    if (m_isGapless)
        return countPiece(most);
    return readPiece(most);
}

SelectedRowIds::SelectedRowIds(Database& database, Statement statement, OrderSql order,
                               RowNumbers& numbers, const CancelToken& token)
    : m_database(database),
      m_order(std::move(order)),
      m_statement(std::move(statement)),
      m_numbers(numbers),
      m_token(token)
{
    m_order.bindTo(m_statement);
}

std::vector<unsigned> SelectedRowIds::next(std::size_t most)
{
    std::vector<unsigned> rows;
    if (m_isDone || most == 0)
        return rows;
    const CancelScope scope(m_database, m_token);
    m_isDone = true; // should it fail
    while (rows.size() < most && m_statement.step())
        rows.push_back(m_numbers.numberOf(m_statement.integer(0)));
    m_isDone = rows.size() < most;
    return rows;
}

} // namespace SQL
