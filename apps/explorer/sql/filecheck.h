#pragma once

#include <filesystem>
#include <string>

namespace SQL {

/// Throws an `Error` that says what is wrong with a file that cannot be a database, as far as its
/// first bytes and its length tell. Changes nothing. An empty file is an empty database.
void checkDatabaseFile(const std::filesystem::path& file);

/// As users know it.
std::string shownName(const std::filesystem::path& file);

} // namespace SQL
