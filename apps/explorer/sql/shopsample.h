#pragma once

#include "sql/exporter.h"

#include <cstdint>
#include <filesystem>

namespace SQL {

/// Makes a database of a shop: so many lines of orders (`order_lines`, with ids without gaps), a
/// fifth as many orders, a twentieth as many customers, articles with pictures (PNG) and long
/// texts, and a table without row ids, with views, indexes and a trigger; always the same for the
/// same number. The file must not be there yet; half a one is removed. Returns the number of all
/// rows.
std::uint64_t makeShop(const std::filesystem::path& file, std::uint64_t lines = 80000,
                       const Progress& progress = {}, const CancelToken& token = {});

} // namespace SQL
