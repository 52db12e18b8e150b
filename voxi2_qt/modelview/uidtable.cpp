#include "uidtable.h"

namespace VOXI {

namespace {
// Sixty-four UIDs in each of the many are enough for them to take no more memory than the one.
constexpr qsizetype SizeOfOne = 16384;
constexpr std::size_t Many = 256;
} // namespace

std::uint32_t& UidTable::operator[](Uid uid)
{
    if (m_size == SizeOfOne && m_tables.size() == 1) {
        const Table all = std::exchange(m_tables, std::vector<Table>(Many)).front();
        for (auto entry = all.cbegin(); entry != all.cend(); ++entry)
            m_tables[placeOf(entry.key())].insert(entry.key(), entry.value());
    }
    Table& table = m_tables[placeOf(uid)];
    const qsizetype before = table.size();
    std::uint32_t& number = table[uid];
    m_size += table.size() - before;
    return number;
}

} // namespace VOXI
