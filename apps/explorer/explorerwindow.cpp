#include "explorerwindow.h"

#include "sql/shopsample.h"
#include "sql/text.h"
#include "voxi2/containers/vxmessage2.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace explorer {

using namespace VOXI;

namespace {

constexpr unsigned FailureUid = 1;
constexpr unsigned ForeignChangeUid = 2;

} // namespace

ExplorerWindow::ExplorerWindow(Settings settings)
    : m_settings(std::move(settings)),
      m_window(new VXWindow2("Explorer")),
      m_commands(m_window),
      m_center(new VXPanel2(m_window)),
      m_bar(new VXNotificationBar2(m_center)),
      m_tabs(new VXTabContainer2(m_center)),
      m_dataTab(new VXTab2("&Data", m_tabs)),
      m_queryTab(new VXTab2("&SQL", m_tabs)),
      m_rows(m_dataTab, "rows"),
      m_editing(m_rows),
      m_query(m_queryTab),
      m_schema(m_window),
      m_cell(m_window),
      m_log(m_window)
{
    makePanes();
    makeMenus();
    makeToolBar();
    connectCommands();
    connectPanes();
    connectDrops();
    restoreLayout();
    showState();
    m_window->show();
}

ExplorerWindow::~ExplorerWindow()
{
    // That of a window that was closed is kept: by now the program's end has closed its panes, too.
    if (m_window->isVisible())
        keepLayout();
    closeFile();
    m_window->destroy();
}

// The file
// -----------------------------------------------------------------------------------------

void ExplorerWindow::open(const Path& file)
{
    whenChangesAreDone([this, file] {
        m_bar->withdraw(FailureUid);
        m_window->setStatusText("Opening " + file.string() + " …");
        m_opening = std::make_unique<Document>(*m_window, std::filesystem::absolute(file));
        m_opening->readContents([this](Outcome<FileContents> contents) {
            m_window->setStatusText("");
            std::unique_ptr<Document> document = std::move(m_opening);
            if (contents.value)
                return take(std::move(document), std::move(*contents.value));
            fail(*contents.error);
            settle();
        });
    });
}

void ExplorerWindow::openSample(const Path& file)
{
    if (std::filesystem::exists(file))
        return open(file);
    whenChangesAreDone([this, file] {
        m_window->setStatusText("Making " + file.string() + " …");
        m_opening = std::make_unique<Document>(*m_window, std::filesystem::absolute(file));
        m_opening->worker().post([this, file, worker = &m_opening->worker()] {
            std::optional<SQL::Error> error;
            try {
                SQL::makeShop(file);
            } catch (const SQL::Error& thrown) {
                error = thrown;
            }
            worker->deliver([this, file, error] {
                if (error)
                    fail(*error);
                else
                    open(file);
            });
        });
    });
}

/// Asks what shall become of changes that are not committed, and of values that are in no file;
/// goes on unless the user cancels.
void ExplorerWindow::whenChangesAreDone(std::function<void()> then)
{
    if (m_editing.isUnfinished())
        return m_editing.finish([this, then] { whenChangesAreDone(then); });
    if (m_rows.hasRejected())
        return whenNothingIsRejected([this, then] { whenChangesAreDone(then); });
    if (!m_document || !m_document->hasChanges())
        return then();
    VXMessage2{.text = "There are changes that are not committed.",
               .details = "Do you want to keep them in the file?",
               .answers = MessageAnswer::Save | MessageAnswer::Discard | MessageAnswer::Cancel,
               .kind = MessageKind::Warning,
               .labels = {{MessageAnswer::Save, "&Commit"}, {MessageAnswer::Discard, "&Roll back"}}}
        .open(m_window, [this, then = std::move(then)](MessageAnswer answer) {
            if (answer == MessageAnswer::Save)
                commit(then);
            else if (answer == MessageAnswer::Discard)
                rollBack(then);
        });
}

/// What the database did not take is kept by what shows it, and by nothing else.
void ExplorerWindow::whenNothingIsRejected(std::function<void()> then,
                                           std::function<void()> otherwise)
{
    if (!m_rows.hasRejected())
        return then();
    VXMessage2{.text = "The database has not accepted all that you have typed.",
               .details = "What is shown in red is in no file. Do you want to go on without it?",
               .answers = MessageAnswer::Discard | MessageAnswer::Cancel,
               .defaultAnswer = MessageAnswer::Cancel,
               .kind = MessageKind::Warning}
        .open(m_window, [this, then = std::move(then),
                         otherwise = std::move(otherwise)](MessageAnswer answer) {
            if (answer != MessageAnswer::Discard)
                return otherwise ? otherwise() : void();
            if (RowsModel* const model = m_rows.model())
                model->forgetRejected();
            m_bar->withdraw(FailureUid); // with its offer to try again
            then();
        });
}

void ExplorerWindow::take(std::unique_ptr<Document> document, FileContents contents)
{
    closeFile();
    m_document = std::move(document);
    m_isReadOnly = contents.isReadOnly;
    m_document->onChangesChanged = [this] { showState(); };
    m_document->onChangedElsewhere = [this] { noteForeignChange(); };
    m_editing.setDocument(m_isReadOnly ? nullptr : m_document.get());
    m_query.setDocument(m_document.get());
    m_settings.addRecentFile(m_document->file());
    showContents(contents);
    if (m_isReadOnly)
        tell("The file can only be read.");
    if (const SQL::ObjectName first = m_schema.firstTable(); !first.name.empty()) {
        m_schema.select(first);
        showTable(first);
    } else {
        settle();
    }
    showState();
}

void ExplorerWindow::settle()
{
    if (const auto then = std::exchange(m_settled, nullptr))
        then();
}

/// What belongs to the file first.
void ExplorerWindow::closeFile()
{
    m_cell.clear();
    m_rows.clear();
    m_query.setDocument(nullptr);
    m_editing.setDocument(nullptr);
    m_schema.clear();
    m_bar->clear();
    m_table = {};
    m_document.reset();
    showState();
}

void ExplorerWindow::reload()
{
    if (!m_document)
        return;
    m_document->readContents([this](Outcome<FileContents> contents) {
        if (contents.error)
            return fail(*contents.error);
        showContents(*contents.value);
        m_schema.select(m_table);
        if (isAsShown(*contents.value))
            m_rows.refresh();
        else
            showTable(m_table);
    });
}

void ExplorerWindow::showContents(const FileContents& contents)
{
    m_schema.show(contents);
    m_query.setCatalog(contents.catalog);
}

/// Whether the table that is shown still has its columns.
bool ExplorerWindow::isAsShown(const FileContents& contents) const
{
    if (!m_rows.reader())
        return m_table.name.empty();
    const auto& shown = m_rows.reader()->columns();
    const auto isSame = [](const SQL::ColumnInfo& a, const SQL::ColumnInfo& b) {
        return a.name == b.name && a.type == b.type;
    };
    for (const auto& [_, tables] : contents.databases) {
        for (const TableDetails& table : tables) {
            if (table.object.name != m_table)
                continue;
            auto columns = table.columns;
            std::erase_if(columns, [](const SQL::ColumnInfo& each) { return each.isHidden; });
            return std::equal(shown.begin(), shown.end(), columns.begin(), columns.end(), isSame);
        }
    }
    return false;
}

void ExplorerWindow::chooseTable(const SQL::ObjectName& table)
{
    m_editing.finish([this, table] {
        whenNothingIsRejected([this, table] { showTable(table); },
                              [this] { m_schema.select(m_table); });
    });
}

void ExplorerWindow::showTable(const SQL::ObjectName& table)
{
    if (!m_document)
        return;
    m_table = table;
    m_rows.clear();
    m_cell.clear();
    m_tabs->setCurrentTab(m_dataTab);
    m_document->askFirst<std::shared_ptr<SQL::RowReader>>(
        [document = m_document.get(), table](SQL::Database& database) {
            return document->lend(SQL::RowReader::open(database, table));
        },
        [this, table](Outcome<std::shared_ptr<SQL::RowReader>> reader) {
            if (table != m_table)
                return;
            if (reader.error)
                return fail(*reader.error);
            m_rows.show(*m_document, std::move(*reader.value));
            showState();
        });
}

/// Who has changes of his own keeps others from writing: at stake is only what is being typed.
void ExplorerWindow::noteForeignChange()
{
    m_bar->withdraw(ForeignChangeUid);
    if (m_rows.isEdited()) {
        m_bar->notify({.text = L"Another program has changed the file.",
                       .buttons = {{.text = L"&Reload", .id = ReloadButton}},
                       .uid = ForeignChangeUid});
        return;
    }
    m_bar->notify({.text = L"Another program has changed the file; this is how it is now.",
                   .timeout = 8000,
                   .uid = ForeignChangeUid});
    reload();
}

bool ExplorerWindow::isQueryShown() const { return m_tabs->currentTab() == m_queryTab; }

// Messages ----------------------------------------------------------------------------------------

void ExplorerWindow::tell(const std::string& text, NotificationKind kind)
{
    m_bar->notify(SQL::wideFromUtf8(text), kind, 8000);
}

void ExplorerWindow::fail(const SQL::Error& error)
{
    Notification notification;
    notification.text = SQL::wideFromUtf8(error.what());
    notification.kind = NotificationKind::Error;
    notification.uid = FailureUid;
    if (error.isBusy() && m_rows.hasRejected())
        notification.buttons = {{.text = L"&Try again", .id = TryAgainButton}};
    m_bar->withdraw(FailureUid);
    m_bar->notify(notification, NotificationArrival::Replaces);
}

} // namespace explorer
