#pragma once

#include "sql/exporter.h"

#include <cstdint>
#include <filesystem>

namespace SQL {

/// Makes a database of a shop: customers, articles with pictures (PNG) and long texts, orders and
/// their lines, with views, indexes, triggers and a table without row ids; about so many rows in
/// all, always the same for the same number. The file must not be there yet; half a one is removed.
/// Returns the number of rows.
std::uint64_t makeShop(const std::filesystem::path& file, std::uint64_t rows = 100000,
                       const Progress& progress = {}, const CancelToken& token = {});

} // namespace SQL
