#include "insertdialog.h"

#include "dialogbuttons.h"
#include "sql/text.h"
#include "voxi2/containers/vxformlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxscrollview2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/vxhandle.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace explorer {

using namespace VOXI;

namespace {

/// Of a table with more columns the others are set in their cells afterwards.
constexpr std::size_t MostFields = 60;

/// The fields of the dialog, as long as it lives.
struct Form
{
    Document& document;
    const std::shared_ptr<SQL::RowReader> reader;
    const std::function<void(unsigned)> inserted;
    VXDialog2* dialog = nullptr;
    VXFormLayout2* layout = nullptr;
    VXText2* message = nullptr;
    std::vector<std::pair<std::size_t, VXEdit2*>> fields{};

    void addField(VXObject2* parent, std::size_t column)
    {
        const SQL::ColumnInfo& info = reader->columns()[column];
        auto* const field = new VXEdit2(parent);
        field->setObjectName("field-" + info.name);
        field->setPlaceholder(info.defaultValue ? "default" : info.isNotNull ? "" : "NULL");
        layout->addRow(SQL::wideFromUtf8(info.name), field);
        fields.emplace_back(column, field);
    }

    std::vector<std::pair<std::size_t, SQL::Value>> cells() const
    {
        std::vector<std::pair<std::size_t, SQL::Value>> result;
        for (const auto& [column, field] : fields) {
            const std::string text = SQL::utf8FromWide(field->textU());
            if (!text.empty())
                result.emplace_back(column,
                                    SQL::valueFromText(text, reader->columns()[column].type));
        }
        return result;
    }

    /// To the first one that has to be filled in.
    void focusFirst() const
    {
        const auto isNeeded = [this](const auto& field) {
            const SQL::ColumnInfo& column = reader->columns()[field.first];
            return column.isNotNull && !column.defaultValue;
        };
        const auto needed = std::find_if(fields.begin(), fields.end(), isNeeded);
        if (!fields.empty())
            (needed == fields.end() ? fields.begin() : needed)->second->setFocus();
    }

    void show(const SQL::Error& error) const
    {
        const std::wstring text = SQL::wideFromUtf8(error.what());
        message->setText(text);
        for (const auto& [column, field] : fields) {
            const auto& named = error.columns();
            const bool isNamed =
                std::find(named.begin(), named.end(), reader->columns()[column].name)
                != named.end();
            layout->setValidationState(field,
                                       isNamed ? ValidationState::Error : ValidationState::None,
                                       isNamed ? text : std::wstring());
        }
    }
};

void insert(const std::shared_ptr<Form>& form)
{
    form->document.ask<unsigned>(
        [form, cells = form->cells()](SQL::Database&) {
            return form->document.editor(form->reader).insertRow(cells);
        },
        [form, dialog = VXHandle<VXDialog2>(form->dialog)](Outcome<unsigned> row) {
            if (row.value)
                form->inserted(*row.value);
            if (VXDialog2* const shown = dialog.get()) {
                if (row.value)
                    shown->destroy();
                else
                    form->show(*row.error);
            }
        });
}

} // namespace

void InsertDialog::open(VXObject2* parent, Document& document,
                        const std::shared_ptr<SQL::RowReader>& reader,
                        std::function<void(unsigned row)> inserted)
{
    const std::shared_ptr<Form> form(new Form{document, reader, std::move(inserted)});
    form->dialog = new VXDialog2("Insert a row", parent);
    form->dialog->setObjectName("insert-dialog");
    auto* const rows = new VXBoxLayout2(form->dialog, Direction::TopToBottom);
    auto* const view = new VXScrollView2(form->dialog);
    auto* const page = new VXPanel2(view);
    form->layout = new VXFormLayout2(page);
    const auto& columns = reader->columns();
    for (std::size_t i = 0; i < columns.size() && form->fields.size() < MostFields; ++i) {
        if (!columns[i].isGenerated)
            form->addField(page, i);
    }
    view->setWidget(page);
    view->setWidgetResizable(true);
    rows->addWidget(view, 1);
    form->message = new VXText2(form->dialog);
    form->message->setWordWrap(true);
    form->message->setObjectName("insert-message");
    rows->addWidget(form->message);
    const DialogButtons buttons = addButtons(*form->dialog, *rows, "&Insert", false);
    buttons.accept->clicked().connect(form->dialog, [form] { insert(form); });
    form->dialog->finished().connect(
        form->dialog, [dialog = form->dialog](const VXDialogEvent2&) { dialog->destroy(); });
    form->dialog->resize({460, std::min(140 + 44 * static_cast<int>(form->fields.size()), 560)});
    form->dialog->open();
    form->focusFirst();
}

} // namespace explorer
