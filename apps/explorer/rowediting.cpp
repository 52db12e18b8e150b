#include "rowediting.h"

#include "insertdialog.h"
#include "sql/text.h"
#include "textdialog.h"
#include "voxi2/kernel/vxhandle.h"

#include <algorithm>
#include <cctype>
#include <limits>
#include <utility>

namespace explorer {

using namespace VOXI;

namespace {

/// Longer texts, and those of several lines, are edited in a dialog.
constexpr std::size_t MostInCell = 4000;
constexpr std::size_t MostNulls = 10'000;

bool typeHas(const SQL::ColumnInfo& column, const char* word)
{
    std::string type = column.type;
    std::transform(type.begin(), type.end(), type.begin(),
                   [](unsigned char each) { return static_cast<char>(std::toupper(each)); });
    return type.find(word) != std::string::npos;
}

bool isInt(std::int64_t number)
{
    return number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
}

} // namespace

RowEditing::RowEditing(RowsPane& rows)
    : m_rows(rows),
      m_edit(new VXEdit2(rows.table())),
      m_spin(new VXSpinBox2(rows.table())),
      m_check(new VXCheckBox2(rows.table()))
{
    m_edit->setObjectName("cell-edit");
    m_spin->setObjectName("cell-spin");
    m_check->setObjectName("cell-check");
    for (VXWidget2* const editor : std::initializer_list<VXWidget2*>{m_edit, m_spin, m_check})
        editor->hide();
    m_spin->setRange({std::numeric_limits<int>::min(), std::numeric_limits<int>::max()});
    m_rows.table()->editRequested().connect(m_edit, [this](const VXEditRequestEvent2& event) {
        beginEdit({event.row(), event.column()});
    });
    m_rows.table()->editCompleted().connect(m_edit, [this](const VXEditCompleteEvent2& event) {
        if (event.isCommitted())
            commit({event.row(), event.column()}, textIn(event.editor()));
    });
}

void RowEditing::setDocument(Document* document) noexcept
{
    m_document = document;
    m_unanswered = 0; // a document that ends takes its answers along
}

void RowEditing::finish(std::function<void()> then)
{
    m_rows.endEditing();
    if (m_unanswered == 0)
        return then();
    m_document->whenAnswered(std::move(then));
}

template <class T>
void RowEditing::write(std::function<T(SQL::Database&)> work, Document::Answer<T> answer)
{
    ++m_unanswered;
    m_document->ask<T>(std::move(work), [this, answer = std::move(answer)](Outcome<T> outcome) {
        --m_unanswered;
        answer(std::move(outcome));
    });
}

bool RowEditing::isPossible() const
{
    return m_document && m_rows.model() && m_rows.reader()->isEditable();
}

void RowEditing::insertRow()
{
    if (!isPossible())
        return;
    const auto inserted = [this](unsigned row) {
        m_rows.model()->append({row});
        m_rows.addToCount(1);
        m_rows.table()->setActiveCell({row, 1, nullptr});
        m_rows.table()->scrollTo({row, 1, nullptr});
        m_rows.table()->setFocus();
    };
    if (needsForm()) {
        InsertDialog::open(m_rows.table(), *m_document, m_rows.reader(), inserted);
        return;
    }
    write<unsigned>([document = m_document, reader = m_rows.reader()](
                        SQL::Database&) { return document->editor(reader).insertRow(); },
                    [this, inserted](Outcome<unsigned> row) {
                        if (row.value)
                            inserted(*row.value);
                        else
                            m_events.failed(*row.error);
                    });
}

void RowEditing::deleteRows()
{
    const std::vector<unsigned> rows = m_rows.table()->selectedRows();
    if (!isPossible() || rows.empty())
        return;
    write<bool>(
        [document = m_document, reader = m_rows.reader(), rows](SQL::Database&) {
            document->editor(reader).deleteRows(rows);
            return true;
        },
        [this, rows, model = VXHandle<RowsModel>(m_rows.model())](Outcome<bool> done) {
            if (done.error)
                return m_events.failed(*done.error);
            if (RowsModel* const shown = model.get())
                shown->remove(rows);
            m_rows.addToCount(-static_cast<int>(rows.size()));
            m_events.told(std::to_string(rows.size()) + " rows deleted, until you roll back.");
        });
}

void RowEditing::setNull()
{
    if (!isPossible())
        return;
    std::vector<ModelCell2> cells;
    if (m_rows.table()->selectedRows().size() <= MostNulls)
        cells = m_rows.table()->selection();
    if (cells.empty())
        cells.push_back(m_rows.table()->activeCell());
    for (const ModelCell2& cell : cells) {
        if (!cell.isNull())
            change({cell.row, cell.column}, SQL::Value());
    }
}

void RowEditing::retry()
{
    if (!isPossible())
        return;
    const auto rejected = m_rows.model()->rejected();
    for (const auto& [place, what] : rejected)
        change(place, what.value);
}

/// The whole of it: what the table shows may be cut.
void RowEditing::beginEdit(Place place)
{
    if (!isPossible())
        return m_rows.table()->setEditor(place.first, place.second, nullptr);
    const auto& rejected = m_rows.model()->rejected();
    if (const auto found = rejected.find(place); found != rejected.end())
        return openEditor(place, found->second.value);
    m_document->askFirst<SQL::Value>(
        [reader = m_rows.reader(), place](SQL::Database&) {
            return reader->cell(place.first, place.second - 1);
        },
        [this, place, reader = m_rows.reader()](Outcome<SQL::Value> value) {
            if (reader != m_rows.reader())
                return;
            if (value.value)
                return openEditor(place, *value.value);
            m_rows.table()->setEditor(place.first, place.second, nullptr);
            m_events.failed(*value.error);
        });
}

void RowEditing::openEditor(Place place, const SQL::Value& value)
{
    VXTableView2& table = *m_rows.table();
    const auto refuse = [&] { table.setEditor(place.first, place.second, nullptr); };
    if (std::holds_alternative<SQL::Blob>(value)) {
        refuse();
        return m_events.told("Bytes are not typed in a cell: set it to NULL, or use SQL.");
    }
    const std::wstring text = SQL::wideFromUtf8(SQL::textOf(value));
    m_formerText = text;
    if (text.size() > MostInCell || text.find_first_of(L"\n\r") != std::wstring::npos) {
        refuse();
        return openTextDialog(place, text);
    }
    const SQL::ColumnInfo& column = m_rows.reader()->columns()[place.second - 1];
    table.setEditor(place.first, place.second, editorFor(column, value, text));
}

void RowEditing::openTextDialog(Place place, const std::wstring& text)
{
    TextDialog::open(m_rows.table(), m_rows.reader()->columns()[place.second - 1].name, text,
                     [this, place, reader = m_rows.reader()](const std::wstring& changed) {
                         if (reader == m_rows.reader())
                             commit(place, changed);
                     });
}

VXWidget2* RowEditing::editorFor(const SQL::ColumnInfo& column, const SQL::Value& value,
                                 const std::wstring& text)
{
    const auto* const number = std::get_if<std::int64_t>(&value);
    if (number && typeHas(column, "BOOL") && (*number == 0 || *number == 1)) {
        m_check->setChecked(*number == 1);
        return m_check;
    }
    if (number && isInt(*number) && typeHas(column, "INT")) {
        m_spin->setValue(static_cast<int>(*number));
        return m_spin;
    }
    m_edit->setText(text);
    m_edit->setPlaceholder(SQL::isNull(value) ? "NULL" : "");
    m_edit->selectAll();
    return m_edit;
}

std::wstring RowEditing::textIn(const VXWidget2* editor) const
{
    if (editor == m_check)
        return m_check->isChecked() ? L"1" : L"0";
    return editor == m_spin ? std::to_wstring(m_spin->value()) : m_edit->textU();
}

void RowEditing::commit(Place place, const std::wstring& text)
{
    const bool wasRejected = m_rows.model() && m_rows.model()->rejected().contains(place);
    if (!isPossible() || (text == m_formerText && !wasRejected))
        return;
    const std::string typed = SQL::utf8FromWide(text);
    const SQL::ColumnInfo& column = m_rows.reader()->columns()[place.second - 1];
    change(place, SQL::valueFromText(typed, column.type));
}

void RowEditing::change(Place place, const SQL::Value& value)
{
    write<bool>(
        [document = m_document, reader = m_rows.reader(), place, value](SQL::Database&) {
            document->editor(reader).setCell(place.first, place.second - 1, value);
            return true;
        },
        [this, place, value, model = VXHandle<RowsModel>(m_rows.model())](Outcome<bool> done) {
            RowsModel* const shown = model.get();
            if (done.value && shown) {
                shown->forgetRejected(place);
                shown->reread(place.first);
            } else if (done.error) {
                if (shown)
                    shown->reject(place, {value, done.error->what()});
                m_events.failed(*done.error);
            }
        });
}

/// What has to have a value, and has none by itself.
bool RowEditing::needsForm() const
{
    const auto& columns = m_rows.reader()->columns();
    return std::any_of(columns.begin(), columns.end(), [](const SQL::ColumnInfo& column) {
        return column.isNotNull && !column.defaultValue && !column.isGenerated;
    });
}

} // namespace explorer
