#pragma once

#include "sql/schema.h"
#include "sql/value.h"
#include "voxi2/modelview/celluidata.h"

#include <cstdint>
#include <string>

namespace explorer {

/// How many bytes of a text or blob are read for a row of a table.
inline constexpr std::size_t ShownBytes = 256;

/// What a table view shows of a cell.
VOXI::CellUIData lookOf(const SQL::Cell& cell);
/// Not yet committed.
void markChanged(VOXI::CellUIData& cell);
void markInserted(VOXI::CellUIData& cell);
/// Not taken by the database, which says why.
VOXI::CellUIData lookOfRejected(const SQL::Value& value, const std::string& message);
VOXI::CellUIData lookOfHeader(const SQL::ColumnInfo& column);

/// "1 234 567"
std::string grouped(std::uint64_t number);
/// "12 KB"
std::string sizeText(std::int64_t bytes);

} // namespace explorer
