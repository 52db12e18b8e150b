#include "sql/tokens.h"

#include <algorithm>
#include <sqlite3.h>

namespace SQL {

const std::vector<std::string_view>& keywords()
{
    // The database knows its own.
    static const std::vector<std::string_view> all = [] {
        std::vector<std::string_view> names;
        for (int i = 0; i < sqlite3_keyword_count(); ++i) {
            const char* name = nullptr;
            int size = 0;
            if (sqlite3_keyword_name(i, &name, &size) == SQLITE_OK)
                names.emplace_back(name, static_cast<std::size_t>(size));
        }
        std::sort(names.begin(), names.end());
        return names;
    }();
    return all;
}

} // namespace SQL
