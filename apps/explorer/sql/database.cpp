#include "sql/database.h"

#include "sql/filecheck.h"
#include "sql/quoting.h"
#include "sql/statement.h"

#include <algorithm>
#include <array>
#include <sqlite3.h>
#include <string_view>
#include <utility>

namespace SQL {

namespace {

/// So that no character of the path has another meaning.
std::string uriOf(const std::filesystem::path& file, Database::Mode mode)
{
    constexpr char Digits[] = "0123456789ABCDEF";
    constexpr std::string_view Plain = "/._-";
    std::string uri = "file:";
    for (char each : std::filesystem::absolute(file).string()) {
        const auto byte = static_cast<unsigned char>(each);
        const bool isPlain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z')
                             || (byte >= 'a' && byte <= 'z')
                             || Plain.find(each) != std::string_view::npos;
        if (isPlain)
            uri += each;
        else
            uri.append({'%', Digits[byte >> 4], Digits[byte & 15]});
    }
    switch (mode) {
    case Database::Mode::ReadOnly:
        return uri + "?mode=ro";
    case Database::Mode::ReadWrite:
        return uri + "?mode=rw";
    case Database::Mode::Create:
        return uri + "?mode=rwc";
    }
    return uri;
}

void checkUnlessMade(const std::filesystem::path& file, Database::Mode mode)
{
    if (mode != Database::Mode::Create || std::filesystem::exists(file))
        checkDatabaseFile(file);
}

} // namespace

Database::Database() { open(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE); }

Database::Database(const std::filesystem::path& file, Mode mode)
    : m_file(std::filesystem::absolute(file))
{
    checkUnlessMade(m_file, mode);
    try {
        open(uriOf(m_file, mode),
             mode == Mode::ReadOnly
                 ? SQLITE_OPEN_READONLY
                 : SQLITE_OPEN_READWRITE | (mode == Mode::Create ? SQLITE_OPEN_CREATE : 0));
    } catch (const Error& error) {
        const bool isRefused =
            error.kind() == Error::Kind::ReadOnly || error.kind() == Error::Kind::NotReadable;
        if (!isRefused || !isInLogMode(m_file))
            throw;
        openBesideNothing();
    }
}

/// To read a file with a log takes two more beside it, where they cannot be made. Without a log the
/// file is all there is.
void Database::openBesideNothing()
{
    if (!isWithoutLogFile(m_file))
        throw Error(Error::Kind::NotReadable,
                    shownName(m_file) + " has a log beside it (" + m_file.filename().string()
                        + "-wal), which cannot be read where nothing can be written; copy both to"
                          " another folder");
    open(uriOf(m_file, Mode::ReadOnly) + "&immutable=1", SQLITE_OPEN_READONLY);
}

std::unique_ptr<Database> Database::scratch()
{
    auto database = std::make_unique<Database>();
    sqlite3_close_v2(std::exchange(database->m_handle, nullptr));
    // Without a name it lies in memory until it is too large for its cache, and on disk from then
    // on.
    database->open("", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    database->execute("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
    return database;
}

/// Who has only looked leaves a log that others have left as it is, instead of putting what it says
/// into the file.
Database::~Database()
{
    if (m_handle && !m_hasWritten && !m_file.empty() && hasLog(m_file))
        sqlite3_db_config(m_handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    sqlite3_close_v2(m_handle);
}

void Database::open(const std::string& name, int flags)
{
    // SQLite's own lock costs little, and keeps a mistake with threads from wrecking memory.
    const int code = sqlite3_open_v2(name.c_str(), &m_handle,
                                     flags | SQLITE_OPEN_URI | SQLITE_OPEN_FULLMUTEX, nullptr);
    try {
        if (code != SQLITE_OK)
            throw errorOf(m_handle, m_handle ? sqlite3_extended_errcode(m_handle) : code);
        configure();
    } catch (const Error& error) {
        sqlite3_close_v2(std::exchange(m_handle, nullptr));
        if (m_file.empty())
            throw;
        throw Error(error.kind(), shownName(m_file) + " cannot be opened: " + error.what());
    }
}

void Database::configure()
{
    sqlite3_extended_result_codes(m_handle, 1);
    sqlite3_progress_handler(m_handle, 1000, &Database::onProgress, this);
    sqlite3_busy_handler(m_handle, &Database::onBusy, this);
    sqlite3_commit_hook(m_handle, &Database::onCommit, this);
    sqlite3_rollback_hook(m_handle, &Database::onRollBack, this);
    // What stands in a file that somebody else has made is not trusted.
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    execute("PRAGMA cell_size_check = ON; PRAGMA foreign_keys = ON;"
            // For sorting millions of rows.
            "PRAGMA cache_size = -32000; PRAGMA threads = 1");
    // What is wrong with the file shows with the first look into it.
    scalar("SELECT count(*) FROM sqlite_schema");
    m_hasUtf8 = scalar("PRAGMA encoding") == Value("UTF-8");
    wasChangedElsewhere();
}

int Database::onProgress(void* self)
{
    const CancelToken* token = static_cast<Database*>(self)->m_token;
    return token && token->isCancelled();
}

int Database::onBusy(void* self, int count)
{
    auto& database = *static_cast<Database*>(self);
    const auto now = std::chrono::steady_clock::now();
    if (count == 0)
        database.m_busySince = now;
    if (onProgress(self) || now - database.m_busySince >= database.m_busyTimeout)
        return 0;
    sqlite3_sleep(5);
    return 1;
}

int Database::onCommit(void* self)
{
    static_cast<Database*>(self)->m_hasWritten = true;
    return 0;
}

void Database::onRollBack(void* self) { static_cast<Database*>(self)->m_isRolledBack = true; }

void Database::noteTransaction()
{
    const bool isOpen = isInTransaction();
    if (isOpen == m_isOpen)
        return;
    m_isOpen = isOpen;
    if (isOpen)
        m_isRolledBack = false;
    else
        m_endings.push_back(!m_isRolledBack);
}

bool Database::isReadOnly() const noexcept { return sqlite3_db_readonly(m_handle, "main") == 1; }

void Database::attach(const std::filesystem::path& file, const std::string& name, Mode mode)
{
    checkUnlessMade(file, mode);
    Statement(*this, "ATTACH ?1 AS ?2").bindText(1, uriOf(file, mode)).bindText(2, name).run();
    try {
        scalar("SELECT count(*) FROM " + quoteName(name) + ".sqlite_schema");
    } catch (const Error&) {
        detach(name);
        throw;
    }
}

void Database::detach(const std::string& name)
{
    Statement(*this, "DETACH ?1").bindText(1, name).run();
}

bool Database::isInTransaction() const noexcept { return sqlite3_get_autocommit(m_handle) == 0; }

void Database::begin()
{
    if (isInTransaction())
        return;
    if (isReadOnly())
        throw Error(Error::Kind::ReadOnly, "the database is open for reading only");
    execute("BEGIN IMMEDIATE");
}

void Database::commit()
{
    if (isInTransaction())
        execute("COMMIT");
}

void Database::rollBack()
{
    if (isInTransaction())
        execute("ROLLBACK");
}

bool Database::wasChangedElsewhere()
{
    const Value version = scalar("PRAGMA main.data_version");
    const std::int64_t before = std::exchange(m_dataVersion, std::get<std::int64_t>(version));
    return before != m_dataVersion;
}

void Database::execute(const std::string& sql, const CancelToken& token)
{
    const CancelScope scope(*this, token);
    std::string_view rest = sql;
    while (!rest.empty()) {
        std::size_t used = 0;
        Statement statement(*this, rest, used);
        if (!statement.isNull())
            statement.run();
        rest.remove_prefix(used);
    }
}

Value Database::scalar(const std::string& sql, const CancelToken& token)
{
    const CancelScope scope(*this, token);
    Statement statement(*this, sql);
    return statement.step() ? statement.value(0) : Value();
}

} // namespace SQL
