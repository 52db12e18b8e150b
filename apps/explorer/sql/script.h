#pragma once

#include "sql/rowreader.h"

#include <chrono>
#include <functional>
#include <optional>

namespace SQL {

/// What became of one statement of a script.
struct StatementResult
{
    std::string sql;
    std::size_t begin = 0;           ///< where it stands in the script, in bytes
    std::shared_ptr<RowReader> rows; ///< a copy; null for a statement without columns
    std::uint64_t rowCount = 0;
    bool isLimited = false; ///< there were more rows than the limit
    std::int64_t changes = 0;
    std::chrono::microseconds duration{0};
    std::optional<Error> error; ///< the script ended here; its position is one in the script
};

struct ScriptOptions
{
    /// More rows of a statement are not read.
    std::uint64_t rowLimit = 1000000;
    /// What changes something does so inside the database's transaction, as editors do, to be
    /// committed or rolled back later; or else at once. Statements that cannot be in one (VACUUM,
    /// PRAGMA, ATTACH ...) are run as they are.
    bool isHeldOpen = true;
};

/// Runs all statements of a text, up to the first that fails, and returns what became of each. Rows
/// are copied into a scratch database on disk. The observer, if any, is called after each
/// statement, on this thread. A token that is cancelled ends the script with that error in the last
/// result, and leaves what the statements before have done; but when the statement that it stops
/// has begun to change something, the database rolls back all of the transaction, and the error's
/// message says so.
std::vector<StatementResult> runScript(
    Database& database, const std::string& sql, const ScriptOptions& options = {},
    const CancelToken& token = {},
    const std::function<void(const StatementResult&)>& observer = {});

} // namespace SQL
