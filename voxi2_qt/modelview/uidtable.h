#pragma once

#include <QHash>

#include <cstdint>
#include <utility>
#include <vector>

namespace VOXI {

/// A number for each UID. What is large lies in many tables, because one that grows at a million
/// UIDs would hold up the insertion that it happens in.
class UidTable
{
public:
    using Uid = std::uint32_t;

    /// Null when there is none; valid until the next change.
    const std::uint32_t* find(Uid uid) const
    {
        const Table& table = m_tables[placeOf(uid)];
        const auto found = table.constFind(uid);
        return found == table.cend() ? nullptr : &found.value();
    }
    /// Valid until the next change. A number that is new is 0.
    std::uint32_t& operator[](Uid uid);
    /// Gives a UID that is not here the number 0; false if it is.
    bool add(Uid uid);
    /// For so many more.
    void makeRoom(std::size_t count);
    void remove(Uid uid) { m_size -= m_tables[placeOf(uid)].remove(uid); }
    qsizetype size() const { return m_size; }

private:
    using Table = QHash<Uid, std::uint32_t>;

    void divide();

    std::size_t placeOf(Uid uid) const
    {
        return (std::uint64_t(uid * 0x9E3779B1u) * m_tables.size()) >> 32;
    }

    std::vector<Table> m_tables{1};
    qsizetype m_size = 0;
};

} // namespace VOXI
