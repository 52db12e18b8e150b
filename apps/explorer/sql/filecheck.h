#pragma once

#include <filesystem>
#include <string>

namespace SQL {

/// Throws an `Error` that says what is wrong with a file that cannot be a database, as far as its
/// first bytes and its length tell. Changes nothing. An empty file is an empty database.
void checkDatabaseFile(const std::filesystem::path& file);

/// As users know it.
std::string shownName(const std::filesystem::path& file);

/// Whether what was written last is in a log beside the file (WAL), and not in the file itself.
bool hasLog(const std::filesystem::path& file);
/// Whether there is surely not even an empty one: then nobody has the file open who uses logs.
bool isWithoutLogFile(const std::filesystem::path& file);
/// Whether the file is written by way of such logs.
bool isInLogMode(const std::filesystem::path& file);

} // namespace SQL
