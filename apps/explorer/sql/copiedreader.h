#pragma once

#include "sql/rowidreader.h"
#include "sql/rowreader.h"
#include "sql/statement.h"

namespace SQL {

/// Rows that were copied into a scratch database: those of a view, as they are asked for, or those
/// that a statement has given.
class CopiedReader : public RowReader
{
public:
    /// Of a view, or of a table whose rows cannot be named.
    CopiedReader(Database& database, ObjectName name, std::vector<ColumnInfo> columns);
    /// Of a statement, whose rows are then `add`ed.
    CopiedReader(Database& database, std::vector<ColumnInfo> columns);

    /// Copies the statement's row.
    void add(const Statement& row);
    std::uint64_t copied() const noexcept { return m_copied; }

    bool isEditable() const override { return false; }
    std::unique_ptr<RowListing> list(const RowOrder& order, const CancelToken& token) override;
    std::uint64_t count(const CancelToken& token) override;
    std::vector<Row> read(const std::vector<unsigned>& rows,
                          const std::vector<std::size_t>& columns, std::size_t limit,
                          const CancelToken& token) override;
    Value cell(unsigned row, std::size_t column, const CancelToken& token) override;
    std::string bytes(unsigned row, std::size_t column, std::int64_t offset,
                      std::size_t size) override;
    void forEach(const RowOrder& order, const std::function<bool(const std::vector<Value>&)>& sink,
                 const CancelToken& token) override;
    void refresh() override;

private:
    class Listing;

    void begin();
    /// Until so many rows are there, or all.
    void copyUpTo(std::uint64_t rows, const CancelToken& token);
    void copyAll(const CancelToken& token) { copyUpTo(static_cast<std::uint64_t>(-1), token); }

    const bool m_isOfStatement;
    std::unique_ptr<Database> m_scratch;
    std::unique_ptr<RowIdReader> m_copy;
    Statement m_insert;
    Statement m_source; // while it gives rows
    bool m_isBegun = false;
    bool m_isComplete = false;
    std::uint64_t m_copied = 0;
};

} // namespace SQL
