#pragma once

#include <QHash>

#include <cstdint>
#include <span>
#include <vector>

namespace VOXI {

/// The columns of a view in their order. They are few, and seldom change.
class ColumnList
{
public:
    using Uid = std::uint32_t;
    using Uids = std::vector<Uid>;

    int count() const { return static_cast<int>(m_uids.size()); }
    /// 0 when there is none.
    Uid at(int place) const
    {
        return std::size_t(place) < m_uids.size() ? m_uids[std::size_t(place)] : 0;
    }
    /// -1 when it is not there.
    int placeOf(Uid column) const { return m_places.value(column, -1); }
    const Uids& uids() const { return m_uids; }

    /// Those of the columns that are new; each once, without 0.
    Uids insertable(std::span<const Uid> columns) const;
    void insert(int place, std::span<const Uid> columns);
    void remove(int first, int count);

private:
    void renumber(std::size_t first);

    Uids m_uids;
    QHash<Uid, int> m_places;
};

} // namespace VOXI
