#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>

namespace SQL {

/// Which number a row of a 64-bit row id has: its id, where that is a small one; or else one of its
/// own, given when it is first asked for.
class RowNumbers
{
public:
    static constexpr unsigned LargestDirect = 0x7FFFFFFF;

    unsigned numberOf(std::int64_t id);
    /// None for a number that was never given.
    std::optional<std::int64_t> idOf(unsigned number) const;
    /// The row has another id now, and keeps its number.
    void rename(std::int64_t from, std::int64_t to);

private:
    // Of rows whose number is not their id.
    std::unordered_map<std::int64_t, unsigned> m_numbers;
    std::unordered_map<unsigned, std::int64_t> m_ids;
    unsigned m_last = LargestDirect;
};

} // namespace SQL
