#pragma once

#include "sql/ordersql.h"
#include "sql/rownumbers.h"
#include "sql/rowreader.h"
#include "sql/statement.h"

#include <string>

namespace SQL {

/// All row ids of a table in their order, found piece by piece by those before.
class GrowingRowIds : public RowListing
{
public:
    GrowingRowIds(Database& database, std::string table, std::string id, RowNumbers& numbers,
                  const CancelToken& token);

    std::vector<unsigned> next(std::size_t most) override;
    bool isDone() const noexcept override { return m_isDone; }

private:
    void begin();
    bool looksGapless();
    std::vector<unsigned> readPiece(std::size_t most);
    std::vector<unsigned> countPiece(std::size_t most);

    Database& m_database;
    const std::string m_table;
    const std::string m_id;
    RowNumbers& m_numbers;
    const CancelToken m_token;
    std::int64_t m_next = 0; // the smallest id that the next row may have
    std::int64_t m_first = 0;
    std::int64_t m_last = 0;
    int m_pieces = 0;
    bool m_isGapless = false;
    bool m_isDone = false;
};

/// The row ids that a statement gives.
class SelectedRowIds : public RowListing
{
public:
    SelectedRowIds(Database& database, Statement statement, OrderSql order, RowNumbers& numbers,
                   const CancelToken& token);

    std::vector<unsigned> next(std::size_t most) override;
    bool isDone() const noexcept override { return m_isDone; }

private:
    Database& m_database;
    const OrderSql m_order; // its values are bound
    Statement m_statement;
    RowNumbers& m_numbers;
    const CancelToken m_token;
    bool m_isDone = false;
};

} // namespace SQL
