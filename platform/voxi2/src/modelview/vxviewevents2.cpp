#include "voxi2/modelview/vxviewevents2.h"

#include <unordered_set>

namespace VOXI {

std::size_t VXViewSelectionChangeEvent2::numberOfCells() const noexcept
{
    std::size_t count = 0;
    for (const ModelBlock& block : blocks())
        count += block.rows.size() * block.columns.size();
    return count;
}

std::vector<unsigned> VXViewSelectionChangeEvent2::rows() const
{
    std::vector<unsigned> result;
    std::unordered_set<unsigned> known;
    for (const ModelBlock& block : blocks()) {
        if (block.columns.empty())
            continue;
        for (const unsigned row : block.rows) {
            if (blocks().size() == 1 || known.insert(row).second)
                result.push_back(row);
        }
    }
    return result;
}

std::vector<ModelCell2> VXViewSelectionChangeEvent2::cells() const
{
    std::vector<ModelCell2> result;
    result.reserve(numberOfCells());
    for (const ModelBlock& block : blocks()) {
        for (const unsigned row : block.rows) {
            for (const unsigned column : block.columns)
                result.push_back({row, column, value<0>()});
        }
    }
    return result;
}

} // namespace VOXI
