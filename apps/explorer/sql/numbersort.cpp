#include "sql/numbersort.h"

#include "sql/rowidlistings.h"

#include <algorithm>
#include <limits>

namespace SQL {

namespace {

constexpr std::size_t MostEntries = 20000000; // 16 bytes each
constexpr std::size_t SortedAtOnce = 100000;
constexpr std::int64_t LargestExact = std::int64_t(1) << 53; // in a double

void checkToken(const CancelToken& token)
{
    if (token.isCancelled())
        throw Error(Error::Kind::Cancelled, "cancelled");
}

} // namespace

NumberSortedRowIds::NumberSortedRowIds(Database& database, Statements statements, bool isDescending,
                                       OrderSql order, RowNumbers& numbers,
                                       const CancelToken& token)
    : m_database(database),
      m_statements(std::move(statements)),
      m_isDescending(isDescending),
      m_order(std::move(order)),
      m_numbers(numbers),
      m_token(token)
{}

/// False when the column does not hold numbers only.
bool NumberSortedRowIds::readAll()
{
    const CancelScope scope(m_database, m_token);
    Statement statement(m_database, m_statements.unsorted);
    m_order.bindTo(statement);
    while (statement.step()) {
        double number = -std::numeric_limits<double>::infinity(); // NULL is before all others
        if (!statement.isNullAt(0)) {
            const Value value = statement.value(0);
            const auto* whole = std::get_if<std::int64_t>(&value);
            const bool isExact = whole && *whole <= LargestExact && *whole >= -LargestExact;
            const auto* real = std::get_if<double>(&value);
            const bool isFinite = real && *real >= std::numeric_limits<double>::lowest();
            if ((!isExact && !isFinite) || m_entries.size() == MostEntries)
                return false;
            number = whole ? static_cast<double>(*whole) : *real;
        }
        m_entries.emplace_back(number, statement.integer(1));
    }
    return true;
}

/// By halves, so that a token is looked at now and then.
void NumberSortedRowIds::sort(std::size_t begin, std::size_t end)
{
    checkToken(m_token);
    const auto at = [&](std::size_t index) {
        return m_entries.begin() + static_cast<std::ptrdiff_t>(index);
    };
    if (end - begin <= SortedAtOnce) {
        std::sort(at(begin), at(end));
        return;
    }
    const std::size_t middle = begin + (end - begin) / 2;
    sort(begin, middle);
    sort(middle, end);
    std::inplace_merge(at(begin), at(middle), at(end));
}

void NumberSortedRowIds::begin()
{
    if (readAll()) {
        sort(0, m_entries.size());
        if (m_isDescending)
            std::reverse(m_entries.begin(), m_entries.end());
        return;
    }
    m_entries = {};
    m_other = std::make_unique<SelectedRowIds>(
        m_database, Statement(m_database, m_statements.sorted), m_order, m_numbers, m_token);
}

std::vector<unsigned> NumberSortedRowIds::next(std::size_t most)
{
    checkToken(m_token);
    if (!std::exchange(m_isBegun, true))
        begin();
    if (m_other)
        return m_other->next(most);
    std::vector<unsigned> rows;
    const std::size_t count = std::min(most, m_entries.size() - m_next);
    rows.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        rows.push_back(m_numbers.numberOf(m_entries[m_next++].second));
    return rows;
}

bool NumberSortedRowIds::isDone() const noexcept
{
    return m_other ? m_other->isDone() : m_isBegun && m_next == m_entries.size();
}

} // namespace SQL
