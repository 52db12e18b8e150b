#include "trov/operations.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <string>

namespace TROV::detail {

void checkRows(const TableHead& table, const std::type_info& emitters, const RowRequest* rows,
               std::size_t count, std::size_t requests)
{
    std::size_t row = 0;
    while (row < count && rows[row].m_place(table) == row)
        ++row;
    if (row == count && count == requests)
        return;
    char* const readable = abi::__cxa_demangle(emitters.name(), nullptr, nullptr, nullptr);
    std::string request = "nothing";
    if (const char* const field = row < count ? std::strstr(rows[row].m_name, "Field = ") : nullptr)
        request.assign(field + 8, std::strcspn(field + 8, ";,]"));
    std::fprintf(stderr, "Operations of %s: row %zu is not the request that stands there, but %s\n",
                 readable ? readable : emitters.name(), row, request.c_str());
    std::abort();
}

} // namespace TROV::detail
