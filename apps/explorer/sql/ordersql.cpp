#include "sql/ordersql.h"

#include "sql/statement.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace SQL {

namespace {

constexpr std::size_t LongestPattern = 10000; // of LIKE, in bytes; the database has a limit

std::string patternFor(std::string_view text)
{
    std::string pattern = "%";
    for (char each : text) {
        if (each == '%' || each == '_' || each == '\\')
            pattern += '\\';
        pattern += each;
    }
    return pattern += '%';
}

std::string inSmallLetters(std::string_view text)
{
    std::string small(text);
    std::transform(small.begin(), small.end(), small.begin(),
                   [](char each) { return each >= 'A' && each <= 'Z' ? char(each + 32) : each; });
    return small;
}

/// One condition, and the value of its parameter if it has one.
struct Condition
{
    std::string sql;
    std::optional<Value> value;
};

Condition contains(const std::string& column, std::string_view text, const std::string& parameter)
{
    // Bytes are no text; asking for their type does not read them.
    const std::string noBytes = "typeof(" + column + ") <> 'blob' AND ";
    if (text.size() > LongestPattern)
        return {noBytes + "instr(" + column + ", " + parameter + ") > 0", std::string(text)};
    return {noBytes + column + " LIKE " + parameter + " ESCAPE '\\'", patternFor(text)};
}

Condition conditionFor(const std::string& column, const std::string& type, std::string_view text,
                       const std::string& parameter)
{
    const std::string small = inSmallLetters(text.substr(0, 9));
    if (small == "null")
        return {column + " IS NULL", {}};
    if (small == "!null")
        return {column + " IS NOT NULL", {}};
    // Longer ones first.
    constexpr std::array<std::string_view, 7> Operators = {"!=", "<>", "<=", ">=", "=", "<", ">"};
    for (std::string_view each : Operators) {
        if (!text.starts_with(each))
            continue;
        const Value value = valueFromText(std::string(text.substr(each.size())), type);
        if (each == "!=" || each == "<>")
            return {column + " IS NOT " + parameter, value};
        return {column + " " + std::string(each) + " " + parameter, value};
    }
    if (text.starts_with('\\'))
        text.remove_prefix(1);
    return contains(column, text, parameter);
}

} // namespace

std::string joined(const std::vector<std::string>& texts, const std::string& between)
{
    std::string all;
    for (const std::string& text : texts)
        all += all.empty() ? text : between + text;
    return all;
}

void OrderSql::bindTo(Statement& statement) const
{
    for (std::size_t i = 0; i < values.size(); ++i)
        statement.bind(static_cast<int>(i + 1), values[i]);
}

OrderSql orderSql(const RowOrder& order, const std::vector<ColumnInfo>& columns,
                  const std::vector<std::string>& names, const std::vector<std::string>& tie)
{
    OrderSql sql;
    std::vector<std::string> conditions;
    for (const ColumnFilter& filter : order.filters) {
        if (filter.text.empty() || filter.column >= columns.size())
            continue;
        Condition condition =
            conditionFor(names[filter.column], columns[filter.column].type, filter.text,
                         "?" + std::to_string(sql.values.size() + 1));
        conditions.push_back("(" + condition.sql + ")");
        if (condition.value)
            sql.values.push_back(std::move(*condition.value));
    }
    sql.hasFilter = !conditions.empty();
    if (sql.hasFilter)
        sql.clauses = " WHERE " + joined(conditions, " AND ");

    std::vector<std::string> by;
    if (order.column < columns.size())
        by.push_back(names[order.column]);
    by.insert(by.end(), tie.begin(), tie.end());
    // All of it descends, so that an index can be read backwards.
    if (order.isDescending)
        for (std::string& each : by)
            each += " DESC";
    if (!by.empty())
        sql.clauses += " ORDER BY " + joined(by);
    return sql;
}

} // namespace SQL
