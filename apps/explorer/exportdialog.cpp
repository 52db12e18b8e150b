#include "exportdialog.h"

#include "celllook.h"
#include "dialogbuttons.h"
#include "sql/exporter.h"
#include "sql/text.h"
#include "voxi2/containers/vxfiledialog2.h"
#include "voxi2/containers/vxformlayout2.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxprogressbar2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/vxhandle.h"

#include <algorithm>
#include <array>
#include <utility>

namespace explorer {

using namespace VOXI;

namespace {

struct Format
{
    SQL::ExportFormat format;
    const char* name;
    const char* ending;
};
constexpr std::array Formats{Format{SQL::ExportFormat::Csv, "CSV", ".csv"},
                             Format{SQL::ExportFormat::Json, "JSON", ".json"},
                             Format{SQL::ExportFormat::Sql, "SQL", ".sql"}};
constexpr int FullBar = 1000;

/// The dialog's widgets and what it is at.
struct Export
{
    Document& document;
    const ExportDialog::Job job;
    const std::function<void(const std::string&)> done;
    VXDialog2* dialog = nullptr;
    VXComboBox2* format = nullptr;
    VXCheckBox2* header = nullptr;
    VXEdit2* file = nullptr;
    VXProgressBar2* progress = nullptr;
    VXText2* message = nullptr;
    VXButton2* start = nullptr;
    SQL::CancelToken token{};

    const Format& chosen() const
    {
        return Formats[static_cast<std::size_t>(std::max(format->currentIndex(), 0))];
    }
    std::filesystem::path path() const { return SQL::utf8FromWide(file->textU()); }

    /// The name of a table may have a point in it.
    void followFormat() const
    {
        const auto isOurs = [ending = path().extension()](const Format& each) {
            return ending == each.ending;
        };
        std::filesystem::path named = path();
        if (std::any_of(Formats.begin(), Formats.end(), isOurs))
            named.replace_extension();
        named += chosen().ending;
        file->setText(SQL::wideFromUtf8(named.string()));
        header->setEnabled(chosen().format == SQL::ExportFormat::Csv);
    }
    void browse() const
    {
        const auto chosenFile = VXFileDialog2::saveFile(dialog, "Export", path());
        if (!chosenFile.empty())
            file->setText(SQL::wideFromUtf8(chosenFile.string()));
    }
    void showProgress(std::uint64_t rows) const
    {
        if (job.expectedRows > 0)
            progress->setValue(static_cast<int>(
                std::min<std::uint64_t>(FullBar, rows * FullBar / job.expectedRows)));
        message->setText(grouped(rows) + " rows written");
    }
};

void end(const std::shared_ptr<Export>& self, const Outcome<std::uint64_t>& rows)
{
    if (rows.value)
        self->done(grouped(*rows.value) + " rows written to " + self->path().string());
    else if (rows.error->isCancelled())
        self->done("The export was cancelled; no file was written.");
    if (rows.value || rows.error->isCancelled()) {
        self->dialog->destroy();
        return;
    }
    self->message->setText(SQL::wideFromUtf8(rows.error->what()));
    self->start->setEnabled(true);
}

void begin(const std::shared_ptr<Export>& self)
{
    SQL::ExportOptions options;
    options.format = self->chosen().format;
    options.hasHeader = self->header->isChecked();
    options.order = self->job.order;
    self->start->setEnabled(false);
    self->token = {};
    self->document.ask<std::uint64_t>(
        [self, options, file = self->path(), token = self->token](SQL::Database&) {
            const auto report = [&](std::uint64_t rows) {
                self->document.worker().deliver(
                    [self, dialog = VXHandle<VXDialog2>(self->dialog), rows] {
                        if (dialog.get())
                            self->showProgress(rows);
                    });
            };
            return SQL::exportRows(*self->job.reader, file, options, report, token);
        },
        [self, dialog = VXHandle<VXDialog2>(self->dialog)](Outcome<std::uint64_t> rows) {
            if (dialog.get())
                end(self, rows);
        });
}

void build(const std::shared_ptr<Export>& self)
{
    VXDialog2* const dialog = self->dialog;
    auto* const rows = new VXBoxLayout2(dialog, Direction::TopToBottom);
    auto* const page = new VXPanel2(dialog);
    auto* const form = new VXFormLayout2(page);
    form->setMargins({0, 0, 0, 0});
    self->format = new VXComboBox2(page);
    self->format->setObjectName("format");
    for (const Format& each : Formats)
        self->format->addItem(each.name);
    self->header = new VXCheckBox2("Names of the columns in the first line", page);
    self->header->setChecked(true);
    self->file = new VXEdit2(page);
    self->file->setObjectName("file");
    self->file->setText(SQL::wideFromUtf8(self->job.file.string()));
    auto* const browse = new VXButton2("&Browse …", page);
    form->addRow("F&ormat", self->format);
    form->addRow("&File", self->file);
    form->addRow(browse);
    form->addRow(self->header);
    self->progress = new VXProgressBar2(dialog);
    self->progress->setMaximum(self->job.expectedRows > 0 ? FullBar : 0);
    self->message = new VXText2(dialog);
    self->message->setObjectName("export-message");
    self->message->setWordWrap(true);
    rows->addWidget(page);
    rows->addWidget(self->progress);
    rows->addWidget(self->message);
    rows->addStretch();
    self->start = addButtons(*dialog, *rows, "&Export", false).accept;
    browse->clicked().connect(dialog, [self] { self->browse(); });
    self->format->currentChanged().connect(
        dialog, [self](const VXComboBoxSelectEvent2&) { self->followFormat(); });
    self->start->clicked().connect(dialog, [self] { begin(self); });
}

} // namespace

void ExportDialog::open(VXObject2* parent, Document& document, Job job,
                        std::function<void(const std::string&)> done)
{
    const std::shared_ptr<Export> self(new Export{document, std::move(job), std::move(done)});
    self->dialog = new VXDialog2("Export rows", parent);
    self->dialog->setObjectName("export-dialog");
    build(self);
    self->followFormat();
    self->dialog->finished().connect(self->dialog, [self](const VXDialogEvent2&) {
        self->token.cancel();
        // A running export answers, and that ends the dialog.
        if (self->start->isEnabled())
            self->dialog->destroy();
    });
    self->dialog->resize({520, 260});
    self->dialog->open();
}

} // namespace explorer
