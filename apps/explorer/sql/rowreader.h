#pragma once

#include "sql/canceltoken.h"
#include "sql/database.h"
#include "sql/schema.h"
#include "sql/value.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace SQL {

/// What a user types over a column: `x` contains, capitals or not; `=x` is, `!=x` is not, `<x`,
/// `<=x`,
/// `>x`, `>=x` (numbers when they read as such), `null`, `!null`; `\` takes what follows as it
/// stands.
struct ColumnFilter
{
    std::size_t column = 0; ///< as in `RowReader::columns`
    std::string text;       ///< empty: all
};

/// Which rows, in which order.
struct RowOrder
{
    static constexpr std::size_t Natural = static_cast<std::size_t>(-1);

    std::size_t column = Natural; ///< by which; as they stand in the table with `Natural`
    bool isDescending = false;
    std::vector<ColumnFilter> filters = {}; ///< all must hold
};

/// The rows of a reader in an order, taken piece by piece. Must not outlive its reader.
///
///     auto listing = reader->list(order, token);
///     while (!listing->isDone())
///         show(listing->next(50000));
class RowListing
{
public:
    virtual ~RowListing() = default;
    RowListing(const RowListing&) = delete;
    RowListing& operator=(const RowListing&) = delete;

    /// Up to so many row numbers; fewer only at the end. With a sorting the first call takes as
    /// long as the sorting; in natural order without a filter each is quick. Others that run on the
    /// database may come in between; changes to the rows are better listed anew.
    virtual std::vector<unsigned> next(std::size_t most) = 0;
    virtual bool isDone() const noexcept = 0;

protected:
    RowListing() = default;
};

/// Reads rows of a table, a view or the result of a query. On the thread of its `Database`, which
/// must outlive it.
///
/// Rows are named by numbers from 1 that fit a view model's; a row keeps its number as long as the
/// reader lives, whatever the order. How they are found:
/// - a table with row ids: the number is the row id where that is from 1 to 2147483647 (so for all
///   readers of it the same), and one from 2147483648 otherwise. Listing in natural order holds no
///   lock between the pieces and reads nothing at all when the ids have no gaps.
/// - a table without row ids: the primary keys are copied, as they are listed, into a scratch
///   database of the reader's own on disk.
/// - a view, a query: all cells are copied, as they come, into such a scratch database, and sorted
///   and filtered there; a view is read anew by `refresh`.
class RowReader
{
public:
    /// Of a table or view.
    static std::shared_ptr<RowReader> open(Database& database, const ObjectName& table);

    virtual ~RowReader() = default;
    RowReader(const RowReader&) = delete;
    RowReader& operator=(const RowReader&) = delete;

    /// Without those that are hidden. Columns are named by their index here.
    const std::vector<ColumnInfo>& columns() const noexcept { return m_columns; }
    /// Of the table or view; empty for a query.
    const ObjectName& name() const noexcept { return m_name; }
    Database& database() const noexcept { return *m_database; }
    /// Whether its rows can be changed by a `TableEditor`.
    virtual bool isEditable() const = 0;

    /// The token also stops later calls of the listing's `next`.
    virtual std::unique_ptr<RowListing> list(const RowOrder& order,
                                             const CancelToken& token = {}) = 0;
    /// How many rows there are in all. Reads an index or the table once.
    virtual std::uint64_t count(const CancelToken& token = {}) = 0;

    struct Row
    {
        unsigned number = 0;
        bool isThere = false; ///< or else somebody has deleted it, and it has no cells
        std::vector<Cell> cells;
    };
    /// Some columns of some rows, in the orders asked for; texts and bytes up to a limit. Columns
    /// that are not there are NULL.
    virtual std::vector<Row> read(const std::vector<unsigned>& rows,
                                  const std::vector<std::size_t>& columns, std::size_t limit = 1024,
                                  const CancelToken& token = {}) = 0;
    /// A cell whole, 100 MB if need be; NULL when the row is not there.
    virtual Value cell(unsigned row, std::size_t column, const CancelToken& token = {}) = 0;
    /// A part of a text's or blob's bytes, without reading the rest where the table lets that be.
    virtual std::string bytes(unsigned row, std::size_t column, std::int64_t offset,
                              std::size_t size) = 0;

    /// The rows of an order as they are, each cell whole; for exports. Stops when the sink gives
    /// false.
    virtual void forEach(const RowOrder& order,
                         const std::function<bool(const std::vector<Value>&)>& sink,
                         const CancelToken& token = {}) = 0;

    /// Reads a view anew with the next listing; for tables nothing, they are read as they are.
    virtual void refresh() {}

protected:
    RowReader(Database& database, ObjectName name) : m_database(&database), m_name(std::move(name))
    {}

    /// Of a text's or blob's bytes.
    static std::string partOf(const Value& value, std::int64_t offset, std::size_t size);

    Database* m_database;
    ObjectName m_name;
    std::vector<ColumnInfo> m_columns;
};

} // namespace SQL
