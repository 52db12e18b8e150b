#include "document.h"

#include <utility>

namespace explorer {

Document::Document(const VOXI::VXObject2& home, Path file) : m_file(std::move(file)), m_worker(home)
{
    m_worker.setIdleJob([this] { lookForChanges(); });
}

void Document::readContents(Answer<FileContents> answer)
{
    ask<FileContents>(&contentsOf, std::move(answer));
}

void Document::commit(Answer<bool> answer)
{
    ask<bool>(
        [this](SQL::Database& database) {
            database.commit();
            m_editors.clear();
            return true;
        },
        std::move(answer));
}

void Document::rollBack(Answer<bool> answer)
{
    ask<bool>(
        [this](SQL::Database& database) {
            database.rollBack();
            m_editors.clear();
            return true;
        },
        std::move(answer));
}

SQL::TableEditor& Document::editor(const std::shared_ptr<SQL::RowReader>& reader)
{
    std::unique_ptr<SQL::TableEditor>& editor = m_editors[reader.get()];
    if (!editor)
        editor = std::make_unique<SQL::TableEditor>(reader);
    return *editor;
}

const SQL::TableEditor* Document::editorOf(const SQL::RowReader& reader) const
{
    const auto found = m_editors.find(&reader);
    return found == m_editors.end() ? nullptr : found->second.get();
}

void Document::noteChanges(bool hasChanges)
{
    if (std::exchange(m_hasChanges, hasChanges) != hasChanges && onChangesChanged)
        onChangesChanged();
}

/// On the worker. Who has the right to write is the only one who changes anything.
void Document::lookForChanges()
{
    try {
        if (!m_database || m_database->isInTransaction() || !m_database->wasChangedElsewhere())
            return;
    } catch (const SQL::Error&) {
        return; // whoever needs the file is told
    }
    m_worker.deliver([this] {
        if (onChangedElsewhere)
            onChangedElsewhere();
    });
}

FileContents Document::contentsOf(SQL::Database& database)
{
    FileContents contents;
    contents.isReadOnly = database.isReadOnly();
    for (const SQL::DatabaseInfo& info : database.databases()) {
        auto& [_, tables] = contents.databases.emplace_back(info, std::vector<TableDetails>());
        for (SQL::SchemaObject& object : database.schema(info.name).objects) {
            TableDetails& details = tables.emplace_back();
            details.object = std::move(object);
            if (details.object.kind != SQL::ObjectKind::Table
                && details.object.kind != SQL::ObjectKind::View)
                continue;
            try {
                details.columns = database.columns(details.object.name);
            } catch (const SQL::Error& error) {
                details.failure = error.what();
            }
        }
    }
    contents.catalog = SQL::catalogOf(database);
    return contents;
}

} // namespace explorer
