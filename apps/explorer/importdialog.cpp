#include "importdialog.h"

#include "celllook.h"
#include "dialogbuttons.h"
#include "sql/csvimport.h"
#include "sql/text.h"
#include "voxi2/containers/vxformlayout2.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxprogressbar2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2/modelview/vxtablemodel2.h"
#include "voxi2/modelview/vxtableview2.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace explorer {

using namespace VOXI;

namespace {

constexpr std::size_t PreviewRows = 50;
constexpr std::size_t MostColumns = 200; ///< in the preview

struct Import
{
    Document& document;
    const std::filesystem::path file;
    const std::function<void(const std::string&)> done;
    VXDialog2* dialog = nullptr;
    VXEdit2* table = nullptr;
    VXCheckBox2* isNew = nullptr;
    VXCheckBox2* hasHeader = nullptr;
    VXTableView2* view = nullptr; ///< the first rows, then the bad ones
    VXProgressBar2* progress = nullptr;
    VXText2* message = nullptr;
    DialogButtons buttons{};
    SQL::CsvPreview preview{};
    SQL::CancelToken token{};
    bool isRunning = false;
};
using ImportPtr = std::shared_ptr<Import>;

void showTable(Import& self, std::vector<CellUIData> headers,
               const std::vector<std::vector<std::string>>& rows)
{
    auto* const model = new VXTableModel2(std::move(headers), self.dialog);
    for (const auto& row : rows) {
        std::vector<CellUIData> cells;
        for (std::size_t i = 0; i < std::min(row.size(), MostColumns); ++i)
            cells.emplace_back(SQL::wideFromUtf8(row[i].substr(0, ShownBytes)));
        model->appendRow(std::move(cells));
    }
    VXAbstractViewModel2* const former = self.view->viewModel();
    self.view->setViewModel(model);
    if (former)
        former->destroy();
}

void fail(Import& self, const SQL::Error& error)
{
    self.message->setText(SQL::wideFromUtf8(error.what()));
}

void takePreview(Import& self, SQL::CsvPreview preview)
{
    self.preview = std::move(preview);
    std::vector<CellUIData> headers;
    for (std::size_t i = 0; i < std::min(self.preview.columns.size(), MostColumns); ++i) {
        const SQL::CsvColumn& column = self.preview.columns[i];
        headers.push_back(CellUIData(SQL::wideFromUtf8(column.name)).setToolTip(column.type));
    }
    showTable(self, std::move(headers), self.preview.rows);
    self.hasHeader->setChecked(self.preview.format.hasHeader);
    self.buttons.accept->setEnabled(true);
}

void readPreview(const ImportPtr& self, std::optional<SQL::CsvFormat> format)
{
    self->buttons.accept->setEnabled(false);
    self->document.ask<SQL::CsvPreview>(
        [file = self->file, format](SQL::Database&) {
            return SQL::previewCsv(file, PreviewRows, format);
        },
        [self, dialog = VXHandle<VXDialog2>(self->dialog)](Outcome<SQL::CsvPreview> preview) {
            if (!dialog.get())
                return;
            if (preview.value)
                takePreview(*self, std::move(*preview.value));
            else
                fail(*self, *preview.error);
        });
}

void takeReport(Import& self, const SQL::CsvReport& report)
{
    const std::string table = SQL::utf8FromWide(self.table->textU());
    self.message->setText(grouped(report.imported) + " rows imported, " + grouped(report.badRows)
                          + " left out.");
    self.progress->hide();
    self.done(table);
    if (report.badRows == 0) {
        self.dialog->destroy();
        return;
    }
    std::vector<std::vector<std::string>> rows;
    for (const SQL::BadRow& bad : report.bad)
        rows.push_back({std::to_string(bad.line), bad.reason});
    showTable(self, {"Line", "Why it was left out"}, rows);
    self.buttons.cancel->setLabel("&Close");
    self.view->setColumnResizeMode(2, ColumnResizeMode::Stretch);
}

void begin(const ImportPtr& self)
{
    SQL::CsvImportOptions options;
    options.format = self->preview.format;
    options.table.name = SQL::utf8FromWide(self->table->textU());
    options.isNewTable = self->isNew->isChecked();
    options.columns = self->preview.columns;
    self->buttons.accept->setEnabled(false);
    self->isRunning = true;
    self->progress->show();
    self->document.ask<SQL::CsvReport>(
        [self, options, token = self->token](SQL::Database& database) {
            const auto report = [&](std::uint64_t rows) {
                self->document.worker().deliver(
                    [self, dialog = VXHandle<VXDialog2>(self->dialog), rows] {
                        if (dialog.get())
                            self->message->setText(grouped(rows) + " rows read");
                    });
            };
            return SQL::importCsv(database, self->file, options, report, token);
        },
        [self, dialog = VXHandle<VXDialog2>(self->dialog)](Outcome<SQL::CsvReport> report) {
            self->isRunning = false;
            if (!dialog.get())
                return;
            if (report.value)
                return takeReport(*self, *report.value);
            self->progress->hide();
            if (report.error->isCancelled())
                return self->dialog->destroy();
            fail(*self, *report.error);
            self->buttons.accept->setEnabled(true); // under another name, for example
        });
}

void build(const ImportPtr& self)
{
    VXDialog2* const dialog = self->dialog;
    auto* const rows = new VXBoxLayout2(dialog, Direction::TopToBottom);
    auto* const page = new VXPanel2(dialog);
    auto* const form = new VXFormLayout2(page);
    form->setMargins({0, 0, 0, 0});
    self->table = new VXEdit2(SQL::wideFromUtf8(self->file.stem().string()), page);
    self->table->setObjectName("table-name");
    self->isNew = new VXCheckBox2("Make a new table", page);
    self->isNew->setChecked(true);
    self->hasHeader = new VXCheckBox2("The first line has the names of the columns", page);
    form->addRow("&Table", self->table);
    form->addRow(self->isNew);
    form->addRow(self->hasHeader);
    self->view = new VXTableView2(dialog);
    self->view->setObjectName("preview");
    self->view->setRowHeaderVisible(false);
    self->progress = new VXProgressBar2(dialog);
    self->progress->setMaximum(0);
    self->progress->hide();
    self->message = new VXText2(dialog);
    self->message->setObjectName("import-message");
    self->message->setWordWrap(true);
    rows->addWidget(page);
    rows->addWidget(self->view, 1);
    rows->addWidget(self->progress);
    rows->addWidget(self->message);
    self->buttons = addButtons(*dialog, *rows, "&Import", false);
    self->hasHeader->clicked().connect(dialog, [self] {
        SQL::CsvFormat format = self->preview.format;
        format.hasHeader = self->hasHeader->isChecked();
        readPreview(self, format);
    });
    self->buttons.accept->clicked().connect(dialog, [self] { begin(self); });
}

} // namespace

void ImportDialog::open(VXObject2* parent, Document& document, const std::filesystem::path& file,
                        std::function<void(const std::string& table)> done)
{
    const ImportPtr self(new Import{document, file, std::move(done)});
    self->dialog = new VXDialog2("Import " + file.filename().string(), parent);
    self->dialog->setObjectName("import-dialog");
    build(self);
    self->dialog->finished().connect(self->dialog, [self](const VXDialogEvent2&) {
        self->token.cancel();
        if (!self->isRunning)
            self->dialog->destroy();
    });
    self->dialog->resize({640, 460});
    self->dialog->open();
    readPreview(self, {});
}

} // namespace explorer
