#pragma once

#include "sql/value.h"

#include <optional>
#include <string>
#include <vector>

namespace SQL {

/// What an editor needs to know of a reader: how a row is named in SQL.
class EditableRows
{
public:
    using Key = std::vector<Value>;

    virtual ~EditableRows() = default;

    /// Of the table, quoted.
    virtual std::string tableSql() const = 0;
    /// The columns that name a row, quoted.
    virtual const std::vector<std::string>& keyNames() const = 0;
    /// None for a number without a row, as far as that is known.
    virtual std::optional<Key> keyOf(unsigned row) = 0;
    virtual unsigned rowOf(const Key& key) = 0;
    /// A row has got another key, and keeps its number.
    virtual void changeKey(const Key& from, const Key& to) = 0;
};

/// `"a" = ?1 AND "b" = ?2`, with parameters from the given one.
std::string keyCondition(const std::vector<std::string>& names, std::size_t firstParameter = 1);

} // namespace SQL
