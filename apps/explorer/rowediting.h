#pragma once

#include "document.h"
#include "rowspane.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxspinbox2.h"

#include <functional>
#include <string>
#include <vector>

namespace explorer {

/// Has the user change the rows of a pane: cells in place, by an editor for the column's type,
/// whole rows by insertion and deletion. All of it stays in the file's transaction until that ends.
class RowEditing
{
public:
    explicit RowEditing(RowsPane& rows);

    struct Events
    {
        std::function<void(const std::string&)> told = {};
        /// What was typed stays in the cell, marked.
        std::function<void(const SQL::Error&)> failed = {};
    };
    void setEvents(Events events) { m_events = std::move(events); }

    /// Null: there is nothing to change.
    void setDocument(Document* document) noexcept;

    bool isPossible() const;
    void insertRow();
    void deleteRows();
    void setNull();
    /// Tries once more what the database did not take.
    void retry();

    /// Whether something is being typed, or on its way to the database.
    bool isUnfinished() const { return m_unanswered > 0 || m_rows.isEdited(); }
    /// Has what is being typed taken over, and goes on when the database has answered.
    void finish(std::function<void()> then);

private:
    using Place = RowsModel::Place;

    void beginEdit(Place place);
    void openEditor(Place place, const SQL::Value& value);
    void openTextDialog(Place place, const std::wstring& text);
    VOXI::VXWidget2* editorFor(const SQL::ColumnInfo& column, const SQL::Value& value,
                               const std::wstring& text);
    std::wstring textIn(const VOXI::VXWidget2* editor) const;
    void commit(Place place, const std::wstring& text);
    void change(Place place, const SQL::Value& value);
    bool needsForm() const;
    template <class T>
    void write(std::function<T(SQL::Database&)> work, Document::Answer<T> answer);

    RowsPane& m_rows;
    VOXI::VXEdit2* const m_edit;
    VOXI::VXSpinBox2* const m_spin;
    VOXI::VXCheckBox2* const m_check;
    Events m_events;
    Document* m_document = nullptr;
    std::wstring m_formerText; ///< of the cell that is edited
    int m_unanswered = 0;      ///< changes
};

} // namespace explorer
