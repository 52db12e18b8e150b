#pragma once

#include "sql/completion.h"
#include "sql/database.h"
#include "sql/tableeditor.h"
#include "worker.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace explorer {

/// What came of a job: a value, or what went wrong.
template <class T>
struct Outcome
{
    std::optional<T> value;
    std::optional<SQL::Error> error;
};

/// All that the tree shows of one table.
struct TableDetails
{
    SQL::SchemaObject object;
    std::vector<SQL::ColumnInfo> columns;
    std::string failure; ///< what the database says of a view that fails
};

/// What a file looks like, read as a whole.
struct FileContents
{
    std::vector<std::pair<SQL::DatabaseInfo, std::vector<TableDetails>>> databases;
    SQL::Catalog catalog;
    bool isReadOnly = false;
};

/// An open file. Everything that is asked of the database is asked on its worker, and answered on
/// the toolkit's thread, to whose events it belongs.
class Document
{
public:
    using Path = std::filesystem::path;
    template <class T>
    using Answer = std::function<void(Outcome<T>)>;

    Document(const VOXI::VXObject2& home, Path file);

    const Path& file() const noexcept { return m_file; }

    /// Runs `work` with the database, and `answer` with what it returned or threw.
    template <class T>
    void ask(std::function<T(SQL::Database&)> work, Answer<T> answer)
    {
        m_worker.post([this, work = std::move(work), answer = std::move(answer)] {
            deliver(outcomeOf<T>(work), answer);
        });
    }
    /// The same, at once: for what somebody looks at.
    template <class T>
    void askFirst(std::function<T(SQL::Database&)> work, Answer<T> answer)
    {
        m_worker.postFirst([this, work = std::move(work), answer = std::move(answer)] {
            deliver(outcomeOf<T>(work), answer);
        });
    }
    /// Runs `then` when all that was asked before has been answered.
    void whenAnswered(std::function<void()> then)
    {
        ask<bool>([](SQL::Database&) { return true; },
                  [then = std::move(then)](Outcome<bool>) { then(); });
    }
    /// For jobs that answer more than once.
    Worker& worker() noexcept { return m_worker; }

    /// What belongs to the worker, held by whomever: the last who lets go of it has the worker
    /// destroy it, before the database. On the worker.
    template <class T>
    std::shared_ptr<T> lend(std::shared_ptr<T> object)
    {
        T* const raw = object.get();
        // The object first.
        auto held = std::make_shared<std::pair<std::shared_ptr<const void>, std::shared_ptr<T>>>(
            m_database, std::move(object));
        return std::shared_ptr<T>(raw,
                                  [held = std::move(held), queue = m_worker.queue()](T*) mutable {
                                      Worker::release(*queue, std::move(held));
                                  });
    }

    void readContents(Answer<FileContents> answer);

    /// Another program has changed the file. On the toolkit's thread.
    std::function<void()> onChangedElsewhere;

    // The transaction

    /// Whether something is not yet committed, as the last job left it.
    bool hasChanges() const noexcept { return m_hasChanges; }
    /// Told of on the toolkit's thread.
    std::function<void()> onChangesChanged;
    void commit(Answer<bool> answer);
    void rollBack(Answer<bool> answer);

    /// Of a table's rows; on the worker only. Editors live as long as their transaction does.
    SQL::TableEditor& editor(const std::shared_ptr<SQL::RowReader>& reader);
    /// Null when nothing of it was changed; on the worker only.
    const SQL::TableEditor* editorOf(const SQL::RowReader& reader) const;

private:
    template <class T>
    Outcome<T> outcomeOf(const std::function<T(SQL::Database&)>& work)
    {
        Outcome<T> outcome;
        try {
            if (!m_database) {
                m_database = std::make_shared<SQL::Database>(m_file);
                m_database->setBusyTimeout(std::chrono::seconds(1));
            }
            outcome.value = work(*m_database);
        } catch (const SQL::Error& error) {
            outcome.error = error;
        } catch (const std::exception& error) {
            outcome.error = SQL::Error(SQL::Error::Kind::Other, error.what());
        }
        return outcome;
    }
    /// With what has become of the transaction.
    template <class T>
    void deliver(Outcome<T> outcome, const Answer<T>& answer)
    {
        const bool hasChanges = m_database && m_database->isInTransaction();
        m_worker.deliver([this, outcome = std::move(outcome), answer, hasChanges]() mutable {
            noteChanges(hasChanges);
            if (answer)
                answer(std::move(outcome));
        });
    }
    void noteChanges(bool hasChanges);
    void lookForChanges();
    static FileContents contentsOf(SQL::Database& database);

    const Path m_file;
    bool m_hasChanges = false;
    // The worker's
    std::shared_ptr<SQL::Database> m_database;
    std::map<const SQL::RowReader*, std::unique_ptr<SQL::TableEditor>> m_editors;
    Worker m_worker; ///< the last: it uses the others
};

} // namespace explorer
