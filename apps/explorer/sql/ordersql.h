#pragma once

#include "sql/rowreader.h"

#include <string>
#include <vector>

namespace SQL {

class Statement;

/// What stands behind FROM for an order of rows.
struct OrderSql
{
    std::string clauses; ///< " WHERE … ORDER BY …", with parameters from 1
    std::vector<Value> values;
    bool hasFilter = false;

    void bindTo(Statement& statement) const;
};

/// The names are those of the columns, quoted; the tie breaks what is alike, and may be empty.
OrderSql orderSql(const RowOrder& order, const std::vector<ColumnInfo>& columns,
                  const std::vector<std::string>& names, const std::vector<std::string>& tie);

/// With commas.
std::string joined(const std::vector<std::string>& texts, const std::string& between = ", ");

} // namespace SQL
