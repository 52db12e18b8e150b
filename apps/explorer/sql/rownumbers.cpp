#include "sql/rownumbers.h"

#include "sql/error.h"

namespace SQL {

unsigned RowNumbers::numberOf(std::int64_t id)
{
    if (!m_numbers.empty()) {
        const auto found = m_numbers.find(id);
        if (found != m_numbers.end())
            return found->second;
    }
    const bool isSmall = id > 0 && id <= std::int64_t(LargestDirect);
    // Unless another row, which has had the id before, still goes by it.
    if (isSmall && (m_ids.empty() || !m_ids.contains(static_cast<unsigned>(id))))
        return static_cast<unsigned>(id);
    if (m_last == ~0U)
        throw Error(Error::Kind::Full, "there are too many rows");
    m_numbers.emplace(id, ++m_last);
    m_ids.emplace(m_last, id);
    return m_last;
}

std::optional<std::int64_t> RowNumbers::idOf(unsigned number) const
{
    const auto found = m_ids.find(number);
    if (found != m_ids.end())
        return found->second;
    if (number == 0 || number > LargestDirect)
        return {};
    return number;
}

void RowNumbers::rename(std::int64_t from, std::int64_t to)
{
    if (from == to)
        return;
    const unsigned number = numberOf(from);
    m_numbers.erase(from);
    m_ids.erase(number);
    // A row that was there, as it was known, has gone.
    if (const auto other = m_numbers.find(to); other != m_numbers.end()) {
        m_ids.erase(other->second);
        m_numbers.erase(other);
    }
    if (to == std::int64_t(number))
        return;
    m_numbers.emplace(to, number);
    m_ids.emplace(number, to);
}

} // namespace SQL
