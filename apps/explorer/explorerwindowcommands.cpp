// The part of ExplorerWindow that is about what its user can have done.

#include "explorerwindow.h"
#include "exportdialog.h"
#include "importdialog.h"
#include "sql/text.h"
#include "voxi2/containers/vxfiledialog2.h"
#include "voxi2/containers/vxmessage2.h"
#include "voxi_util/stringid.h"

#include <algorithm>
#include <utility>

namespace explorer {

using namespace VOXI;

namespace {

const std::vector<FileFilter>& databaseFilters()
{
    static const std::vector<FileFilter> filters{
        {"Databases", {"*.db", "*.sqlite", "*.sqlite3", "*.db3"}}, {"All files"}};
    return filters;
}

/// "file:///a%20b" as a path; empty for what is no local file.
std::filesystem::path localFile(const std::string& uri)
{
    constexpr std::string_view Start = "file://";
    if (!uri.starts_with(Start))
        return {};
    const auto slash = uri.find('/', Start.size());
    std::string path;
    for (std::size_t i = slash; i < uri.size(); ++i) {
        if (uri[i] == '%' && i + 2 < uri.size()) {
            path += static_cast<char>(std::strtol(uri.substr(i + 1, 2).c_str(), nullptr, 16));
            i += 2;
        } else {
            path += uri[i];
        }
    }
    return path;
}

/// What a file may be called that holds the rows of a table.
std::string fileNameFor(std::string table)
{
    std::replace(table.begin(), table.end(), '/', '_');
    return table.empty() || table == "." || table == ".." ? "result" : table;
}

} // namespace

void ExplorerWindow::connectCommands()
{
    const auto when = [this](VXAction2* action, std::function<void()> act) {
        action->triggered().connect(
            m_window, [act = std::move(act)](const VXActionTriggerEvent2&) { act(); });
    };
    when(m_commands.open, [this] { chooseFile(); });
    when(m_commands.sample, [this] { chooseSample(); });
    when(m_commands.reload, [this] { m_editing.finish([this] { reload(); }); });
    when(m_commands.exportRows, [this] { exportShown(); });
    when(m_commands.importRows, [this] { chooseImport(); });
    when(m_commands.close, [this] { whenChangesAreDone([this] { closeFile(); }); });
    when(m_commands.quit, [this] { m_window->close(); });
    when(m_commands.commit, [this] { m_editing.finish([this] { commit(); }); });
    when(m_commands.rollBack, [this] { m_editing.finish([this] { rollBack(); }); });
    when(m_commands.insertRow, [this] { m_editing.insertRow(); });
    when(m_commands.deleteRows, [this] { m_editing.deleteRows(); });
    when(m_commands.setNull, [this] { m_editing.setNull(); });
    when(m_commands.filter, [this] { shownRows().focusFilter(); });
    when(m_commands.run, [this] {
        m_tabs->setCurrentTab(m_queryTab);
        m_query.run();
    });
    when(m_commands.stop, [this] {
        m_query.stop();
        shownRows().stop();
    });
    when(m_commands.complete, [this] { m_query.complete(); });
    when(m_commands.data, [this] {
        m_tabs->setCurrentTab(m_dataTab);
        m_rows.table()->setFocus();
        showState();
    });
    when(m_commands.query, [this] {
        m_tabs->setCurrentTab(m_queryTab);
        m_query.editor()->setFocus();
        showState();
    });
    when(m_commands.about, [this] { about(); });

    m_window->closing().connect(m_window, [this](const VXCloseEvent2& event) {
        const bool hasChanges = m_document && m_document->hasChanges();
        if (m_mayClose || !(hasChanges || m_rows.hasRejected() || m_editing.isUnfinished())) {
            keepLayout();
            return;
        }
        event.refuse();
        whenChangesAreDone([this] {
            m_mayClose = true;
            m_window->close();
        });
    });
}

void ExplorerWindow::connectPanes()
{
    const auto eventsOf = [this](RowsPane& pane) {
        return RowsPane::Events{
            .status = [this, &pane](const std::string& text) { noteRows(pane, text); },
            .failed = [this](const SQL::Error& error) { fail(error); },
            .cellChosen =
                [this, &pane](unsigned row, unsigned column) {
                    if (m_document)
                        m_cell.show(*m_document, pane.reader(), row, column);
                }};
    };
    m_rows.setEvents(eventsOf(m_rows));
    m_query.rows().setEvents(eventsOf(m_query.rows()));
    m_editing.setEvents({.told = [this](const std::string& text) { tell(text); },
                         .failed = [this](const SQL::Error& error) { fail(error); }});
    m_query.setEvents({.runningChanged = [this] { showState(); },
                       .finished =
                           [this](const std::vector<SQL::StatementResult>& results) {
                               for (const SQL::StatementResult& each : results)
                                   m_log.add(each);
                               const auto reads = [](const SQL::StatementResult& each) {
                                   return each.rows && each.changes == 0;
                               };
                               // What is no question may have changed anything.
                               if (!std::all_of(results.begin(), results.end(), reads))
                                   reload();
                           }});
    m_log.onStatementChosen = [this](const std::string& sql) {
        m_tabs->setCurrentTab(m_queryTab);
        m_query.setText(sql);
    };
    m_schema.onTableChosen = [this](const SQL::ObjectName& table) {
        if (table != m_table)
            chooseTable(table);
    };
    m_tabs->currentTabChanged().connect(m_window, [this](const VXTabEvent2&) { showState(); });
    m_bar->buttonClicked().connect(m_window, [this](const VXNotificationButtonEvent2& event) {
        if (event.buttonId() == TryAgainButton)
            m_editing.retry();
        else
            m_editing.finish([this] { reload(); });
    });
}

void ExplorerWindow::connectDrops()
{
    m_window->setAcceptDrops(true);
    m_window->dragEntered().connect(m_window, [](const VXDragEvent2& event) {
        const std::vector<StringID> formats = event.formats();
        if (std::find(formats.begin(), formats.end(), StringID("text/uri-list")) != formats.end())
            event.accept(DropAction::Copy);
    });
    m_window->dropped().connect(m_window, [this](const VXDragEvent2& event) {
        for (const std::string& uri : event.mimeData().uris()) {
            if (const Path file = localFile(uri); !file.empty()) {
                event.accept(DropAction::Copy);
                return open(file);
            }
        }
    });
}

void ExplorerWindow::noteRows(const RowsPane& pane, const std::string& status)
{
    m_window->setStatusText(status);
    showState();
    if (pane.isListing() || !m_document || !m_settled)
        return;
    pane.table()->refresh(); // which asks for the cells in sight; the answer comes behind them
    m_document->whenAnswered([this] { settle(); });
}

/// What can be done now, and what the title says.
void ExplorerWindow::showState()
{
    const bool hasFile = m_document != nullptr;
    const bool hasChanges = hasFile && m_document->hasChanges();
    const bool mayEdit = !isQueryShown() && m_editing.isPossible();
    for (VXAction2* const action : {m_commands.reload, m_commands.close, m_commands.exportRows})
        action->setEnabled(hasFile);
    m_commands.importRows->setEnabled(hasFile && !m_isReadOnly);
    for (VXAction2* const action : {m_commands.commit, m_commands.rollBack})
        action->setEnabled(hasChanges);
    for (VXAction2* const action :
         {m_commands.insertRow, m_commands.deleteRows, m_commands.setNull})
        action->setEnabled(mayEdit);
    m_commands.run->setEnabled(hasFile && !m_query.isRunning());
    m_commands.stop->setEnabled(m_query.isRunning() || shownRows().isListing());
    m_window->setTitle(hasFile ? m_document->file().filename().string() + "[*] — Explorer"
                               : std::string("Explorer"));
    m_window->setModified(hasChanges);
}

void ExplorerWindow::chooseFile()
{
    const Path file = VXFileDialog2::openFile(m_window, "Open a database", {}, databaseFilters());
    if (!file.empty())
        open(file);
}

void ExplorerWindow::chooseSample()
{
    const Path file =
        VXFileDialog2::saveFile(m_window, "Make a sample", "shop.db", databaseFilters(), "db");
    if (!file.empty())
        openSample(file);
}

void ExplorerWindow::chooseImport()
{
    const Path file = VXFileDialog2::openFile(m_window, "Import a CSV file", {},
                                              {{"CSV", {"*.csv", "*.txt"}}, {"All files"}});
    if (file.empty() || !m_document)
        return;
    ImportDialog::open(m_window, *m_document, file, [this](const std::string& table) {
        reload();
        chooseTable({"main", table});
    });
}

void ExplorerWindow::exportShown()
{
    RowsPane& shown = shownRows();
    if (!m_document || !shown.reader())
        return;
    ExportDialog::open(
        m_window, *m_document,
        {.reader = shown.reader(),
         .order = shown.order(),
         .expectedRows = shown.count(),
         .file = m_document->file().parent_path() / fileNameFor(shown.reader()->name().name)},
        [this](const std::string& text) { tell(text); });
}

void ExplorerWindow::commit(std::function<void()> then)
{
    if (!m_document)
        return;
    m_document->commit([this, then = std::move(then)](Outcome<bool> done) {
        if (done.error)
            return fail(*done.error);
        if (then)
            return then();
        if (RowsModel* const model = m_rows.model())
            model->reread();
        tell("All changes are in the file.", NotificationKind::Success);
    });
}

void ExplorerWindow::rollBack(std::function<void()> then)
{
    if (!m_document)
        return;
    m_document->rollBack([this, then = std::move(then)](Outcome<bool> done) {
        if (done.error)
            return fail(*done.error);
        if (then)
            return then();
        if (RowsModel* const model = m_rows.model())
            model->forgetRejected();
        reload();
        tell("Everything is as it was.");
    });
}

void ExplorerWindow::about()
{
    VXMessage2{.text = "Explorer",
               .details = "Looks into SQLite files, and changes them. Its windows know no toolkit: "
                          "they are made of VOXI's abstract objects.",
               .title = "About Explorer",
               .kind = MessageKind::Information}
        .open(m_window, [](MessageAnswer) {});
}

} // namespace explorer
