#pragma once

#include "sql/rowreader.h"

#include <filesystem>
#include <functional>

namespace SQL {

enum class ExportFormat {
    Csv,  ///< NULL is nothing, an empty text is "", bytes are x'0102'
    Json, ///< a list of objects; bytes are texts x'0102', wrong UTF-8 is U+FFFD
    Sql   ///< CREATE TABLE and INSERTs, one transaction; cells come back exactly
};

struct ExportOptions
{
    ExportFormat format = ExportFormat::Csv;
    char separator = ',';
    bool hasHeader = true;      ///< the names of the columns, in CSV
    std::string tableName = {}; ///< for SQL; by itself that of the reader, or "result"
    RowOrder order = {};
};

/// Told how many rows are written, now and then, on the thread that exports.
using Progress = std::function<void(std::uint64_t rows)>;

/// Returns how many rows were written. The file is written beside its place, and put there when it
/// is complete: what fails or is cancelled leaves what was there before.
std::uint64_t exportRows(RowReader& reader, const std::filesystem::path& file,
                         const ExportOptions& options, const Progress& progress = {},
                         const CancelToken& token = {});

} // namespace SQL
