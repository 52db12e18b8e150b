#include "extentsums.h"

#include <algorithm>
#include <bit>

namespace VOXI {

void ExtentSums::assign(const std::vector<int>& extents)
{
    m_extents = extents;
    m_sums.assign(extents.begin(), extents.end());
    for (std::size_t i = 1; i <= m_sums.size(); ++i) {
        const std::size_t above = i + (i & -i);
        if (above <= m_sums.size())
            m_sums[above - 1] += m_sums[i - 1];
    }
}

void ExtentSums::set(int at, int extent)
{
    const auto place = static_cast<std::size_t>(at);
    const int difference = extent - m_extents[place];
    m_extents[place] = extent;
    for (std::size_t i = place + 1; i <= m_sums.size() && difference != 0; i += i & -i)
        m_sums[i - 1] += difference;
}

qint64 ExtentSums::before(int at) const
{
    qint64 sum = 0;
    for (auto i = static_cast<std::size_t>(at); i > 0; i &= i - 1)
        sum += m_sums[i - 1];
    return sum;
}

int ExtentSums::at(qint64 place) const
{
    qint64 rest = std::max<qint64>(place, 0);
    std::size_t passed = 0;
    for (std::size_t step = std::bit_floor(m_sums.size()); step > 0; step /= 2) {
        const std::size_t next = passed + step;
        if (next <= m_sums.size() && m_sums[next - 1] <= rest) {
            passed = next;
            rest -= m_sums[next - 1];
        }
    }
    return static_cast<int>(passed);
}

} // namespace VOXI
