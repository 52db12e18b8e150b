#pragma once

#include "sql/database.h"
#include "sql/exporter.h"

#include <filesystem>
#include <optional>

namespace SQL {

/// How a CSV file is read. Its text is UTF-8, with or without a byte order mark.
struct CsvFormat
{
    char separator = ',';
    bool hasHeader = true;
};

struct CsvColumn
{
    std::string name; ///< unique; made up where the file has none
    std::string type; ///< "INTEGER", "REAL" or "TEXT", as the first rows have it
};

struct CsvPreview
{
    CsvFormat format;
    std::vector<CsvColumn> columns;
    std::vector<std::vector<std::string>> rows; ///< the first ones, without the header
};

/// Reads the first rows and guesses; with a format it is taken as it is. Throws when the file
/// cannot be read.
CsvPreview previewCsv(const std::filesystem::path& file, std::size_t rows = 50,
                      const std::optional<CsvFormat>& format = {});

struct CsvImportOptions
{
    CsvFormat format;
    ObjectName table;
    /// The table is made, with these columns; or else it is there, and the fields of the file go
    /// into its columns of these names. An empty name leaves the field out.
    bool isNewTable = true;
    std::vector<CsvColumn> columns;
};

struct BadRow
{
    std::uint64_t line = 0; ///< where it begins, from 1
    std::string reason;
};

struct CsvReport
{
    std::uint64_t imported = 0;
    std::uint64_t badRows = 0;
    std::vector<BadRow> bad; ///< the first thousand of them
};

/// In one transaction, which is committed at the end unless one was open before; rows that do not
/// fit (another number of fields, wrong UTF-8, a constraint) are left out and reported. What fails
/// or is cancelled leaves the database as it was. A field that is empty and not in quotes is NULL.
CsvReport importCsv(Database& database, const std::filesystem::path& file,
                    const CsvImportOptions& options, const Progress& progress = {},
                    const CancelToken& token = {});

} // namespace SQL
