#pragma once

#include "sql/canceltoken.h"
#include "sql/error.h"
#include "sql/schema.h"
#include "sql/value.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

struct sqlite3;

namespace SQL {

class Statement;

/// A connection to a database file. Used by one thread at a time, whichever; several may be open on
/// one file. Whatever fails throws an `Error`.
///
/// Opening and looking change no byte of the file, and leave no file beside it, unless the file is
/// one with a write-ahead log. Opened for writing, it recovers what a crash has left.
///
/// Rows that were changed and not yet committed are seen by readers of the same `Database` only.
class Database
{
public:
    enum class Mode {
        ReadOnly,
        ReadWrite, ///< read-only when the file is; see `isReadOnly`
        Create     ///< as ReadWrite, and made when it is not there
    };

    /// An empty one in memory.
    Database();
    explicit Database(const std::filesystem::path& file, Mode mode = Mode::ReadWrite);
    /// An empty one on disk that nobody else sees and that is gone with the object.
    static std::unique_ptr<Database> scratch();
    /// Rolls back what is not committed. Readers and editors of it must be gone.
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Empty in memory.
    const std::filesystem::path& file() const noexcept { return m_file; }
    bool isReadOnly() const noexcept;

    void attach(const std::filesystem::path& file, const std::string& name,
                Mode mode = Mode::ReadWrite);
    void detach(const std::string& name);

    /// "main" first, then "temp" when there is one, then attached ones.
    std::vector<DatabaseInfo> databases();
    Schema schema(const std::string& database = "main");
    /// Of a table or view. Throws what the database says of a view that fails.
    std::vector<ColumnInfo> columns(const ObjectName& table);
    std::vector<IndexInfo> indexes(const ObjectName& table);
    std::vector<ForeignKeyInfo> foreignKeys(const ObjectName& table);
    /// The SQL that made it; empty when there is none.
    std::string sqlOf(const ObjectName& object);
    /// The object; throws when there is none of the name.
    SchemaObject find(const ObjectName& table);

    // Transactions

    /// Whether something is not yet committed.
    bool isInTransaction() const noexcept;
    /// Takes the right to write, so that nobody else gets it until commit or roll back; nothing
    /// when it is taken already. Kind `Busy` when somebody else has it.
    void begin();
    /// Of kind `Busy` while others read: nothing is lost, try again. Nothing outside of a
    /// transaction.
    void commit();
    void rollBack();
    /// How many transactions have ended; by which editors know that theirs is over.
    std::size_t endedTransactions() const noexcept { return m_endings.size(); }
    /// Whether one of them was committed, by number from 0.
    bool wasCommitted(std::size_t transaction) const { return m_endings.at(transaction); }

    /// Whether another connection has committed something to the main file since the last call (the
    /// first time: since the opening). Asks the file; cheap.
    bool wasChangedElsewhere();

    /// How long to wait for locks of others; 2 seconds at first. Cancelling ends the wait.
    void setBusyTimeout(std::chrono::milliseconds timeout) noexcept { m_busyTimeout = timeout; }

    /// Runs one or more statements without looking at their rows.
    void execute(const std::string& sql, const CancelToken& token = {});
    /// The first cell of the first row of a statement; NULL without one.
    Value scalar(const std::string& sql, const CancelToken& token = {});

    /// Whether texts are kept in the main file as they are given here; others are converted.
    bool hasUtf8() const noexcept { return m_hasUtf8; }
    /// For this library.
    sqlite3* handle() const noexcept { return m_handle; }

private:
    friend class CancelScope;
    friend class Statement;

    void open(const std::string& name, int flags);
    void openBesideNothing();
    void configure();
    void noteTransaction();
    static int onProgress(void* self);
    static int onBusy(void* self, int count);
    static int onCommit(void* self);
    static void onRollBack(void* self);

    std::filesystem::path m_file;
    sqlite3* m_handle = nullptr;
    std::chrono::milliseconds m_busyTimeout{2000};
    std::chrono::steady_clock::time_point m_busySince;
    const CancelToken* m_token = nullptr; // of what runs
    bool m_isOpen = false;                // a transaction, when it was last looked at
    bool m_isRolledBack = false;          // that one, or one of a single statement
    std::vector<bool> m_endings;          // of transactions: whether by a commit
    std::int64_t m_dataVersion = 0;
    bool m_hasUtf8 = true;
    bool m_hasWritten = false; // and kept it
};

} // namespace SQL
