#pragma once

#include <QtGlobal>

#include <vector>

namespace VOXI {

/// How high each of many things is that stand one below the other: where one begins, and which one
/// is at a place, is found in O(log n), as is said that one has another height. Some may be 0 high,
/// and are at no place.
class ExtentSums
{
public:
    /// All anew: O(n).
    void assign(const std::vector<int>& extents);
    void set(int at, int extent);

    int count() const { return static_cast<int>(m_extents.size()); }
    int extent(int at) const { return m_extents[static_cast<std::size_t>(at)]; }
    /// Where it begins; of `count()` the end of all.
    qint64 before(int at) const;
    qint64 total() const { return before(count()); }
    /// `count()` behind the last; of negative places the first that has an extent.
    int at(qint64 place) const;

private:
    std::vector<int> m_extents;
    /// At i - 1 the sum of as many extents before i as the lowest bit of i says.
    std::vector<qint64> m_sums;
};

} // namespace VOXI
