#include "trov/operations.h"

#include <cstdio>
#include <cstdlib>

namespace TROV::detail {

void checkRows(const TableHead& table, const std::type_info& emitters, const PlaceOfRow* rows,
               std::size_t count, std::size_t requests)
{
    std::size_t row = 0;
    while (row < count && rows[row](table) == row)
        ++row;
    if (row == count && count == requests)
        return;
    std::fprintf(stderr, "Operations of %s: row %zu is not the request that stands there\n",
                 emitters.name(), row);
    std::abort();
}

} // namespace TROV::detail
