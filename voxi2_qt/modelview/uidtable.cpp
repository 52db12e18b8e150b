#include "uidtable.h"

namespace VOXI {

namespace {
// Sixty-four UIDs in each of the many are enough for them to take no more memory than the one.
constexpr qsizetype SizeOfOne = 16384;
constexpr std::size_t Many = 256;

/// They fill evenly: each is made larger at another size, between three quarters of its room and
/// all of it, or some insertion would have to wait for all of them.
bool isFull(qsizetype size, qsizetype room, std::size_t place)
{
    const auto left = static_cast<qsizetype>(Many - place);
    return size >= room - room / 4 * left / qsizetype(Many);
}
} // namespace

std::uint32_t& UidTable::operator[](Uid uid)
{
    if (m_size == SizeOfOne)
        divide();
    const std::size_t place = placeOf(uid);
    Table& table = m_tables[place];
    const qsizetype before = table.size();
    if (m_tables.size() == Many && isFull(before, table.capacity(), place))
        table.reserve(table.capacity() + 1);
    std::uint32_t& number = table[uid];
    m_size += table.size() - before;
    return number;
}

bool UidTable::add(Uid uid)
{
    const qsizetype before = m_size;
    (*this)[uid];
    return m_size > before;
}

void UidTable::makeRoom(std::size_t count)
{
    const qsizetype size = m_size + static_cast<qsizetype>(count);
    if (static_cast<qsizetype>(count) < m_size)
        return; // all of them would grow at once, for few
    if (size >= SizeOfOne)
        divide();
    for (Table& table : m_tables)
        table.reserve(size / static_cast<qsizetype>(m_tables.size()));
}

void UidTable::divide()
{
    if (m_tables.size() != 1)
        return;
    const Table all = std::exchange(m_tables, std::vector<Table>(Many)).front();
    for (auto entry = all.cbegin(); entry != all.cend(); ++entry)
        m_tables[placeOf(entry.key())].insert(entry.key(), entry.value());
}

} // namespace VOXI
