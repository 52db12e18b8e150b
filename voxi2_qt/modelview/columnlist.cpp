#include "columnlist.h"

#include <QSet>

namespace VOXI {

ColumnList::Uids ColumnList::insertable(std::span<const Uid> columns) const
{
    Uids fresh;
    QSet<Uid> seen{0};
    for (const Uid column : columns) {
        const qsizetype before = seen.size();
        seen.insert(column);
        if (seen.size() > before && !m_places.contains(column))
            fresh.push_back(column);
    }
    return fresh;
}

void ColumnList::insert(int place, std::span<const Uid> columns)
{
    m_uids.insert(m_uids.begin() + place, columns.begin(), columns.end());
    renumber(static_cast<std::size_t>(place));
}

void ColumnList::remove(int first, int count)
{
    const auto begin = m_uids.begin() + first;
    for (auto uid = begin; uid != begin + count; ++uid)
        m_places.remove(*uid);
    m_uids.erase(begin, begin + count);
    renumber(static_cast<std::size_t>(first));
}

void ColumnList::renumber(std::size_t first)
{
    for (std::size_t place = first; place < m_uids.size(); ++place)
        m_places[m_uids[place]] = static_cast<int>(place);
}

} // namespace VOXI
