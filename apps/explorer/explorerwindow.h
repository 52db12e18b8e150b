#pragma once

#include "cellpane.h"
#include "commands.h"
#include "document.h"
#include "logpane.h"
#include "querypane.h"
#include "rowediting.h"
#include "rowspane.h"
#include "schemapane.h"
#include "settings.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxtab2.h"
#include "voxi2/containers/vxtabcontainer2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxnotificationbar2.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace explorer {

/// The program's window: a file's tree on the left, rows or SQL in the middle, one cell on the
/// right, what was run below.
class ExplorerWindow
{
public:
    using Path = std::filesystem::path;

    explicit ExplorerWindow(Settings settings = {});
    ~ExplorerWindow();
    ExplorerWindow(const ExplorerWindow&) = delete;
    ExplorerWindow& operator=(const ExplorerWindow&) = delete;

    /// What fails is said in the window, where the former file stays open.
    void open(const Path& file);
    /// Makes a sample file first. One that is there is only opened.
    void openSample(const Path& file);

    /// Calls back once, when the file that is being opened can be seen with all of its rows, or
    /// what is wrong with it.
    void whenSettled(std::function<void()> then) { m_settled = std::move(then); }

    VOXI::VXWindow2* window() const noexcept { return m_window; }
    RowsPane& rows() noexcept { return m_rows; }
    QueryPane& query() noexcept { return m_query; }
    Document* document() const noexcept { return m_document.get(); }

private:
    // explorerwindowlayout.cpp: what it is made of
    void makePanes();
    VOXI::VXDockWidget2* dock(const char* name, const char* title, VOXI::VXWidget2* widget,
                              VOXI::DockArea area);
    void makeMenus();
    void makeToolBar();
    void fillRecent(VOXI::VXMenu2* menu);
    void restoreLayout();
    void keepLayout();

    // explorerwindowcommands.cpp: what its user can have done
    void connectCommands();
    void connectPanes();
    void connectDrops();
    void showState();
    void noteRows(const RowsPane& pane, const std::string& status);
    void chooseFile();
    void chooseSample();
    void chooseImport();
    void exportShown();
    void commit(std::function<void()> then = {});
    void rollBack(std::function<void()> then = {});
    void about();

    // explorerwindow.cpp: the file
    void whenChangesAreDone(std::function<void()> then);
    void whenNothingIsRejected(std::function<void()> then, std::function<void()> otherwise = {});
    void take(std::unique_ptr<Document> document, FileContents contents);
    void settle();
    void closeFile();
    void reload();
    void showContents(const FileContents& contents);
    bool isAsShown(const FileContents& contents) const;
    void chooseTable(const SQL::ObjectName& table);
    void showTable(const SQL::ObjectName& table);
    void noteForeignChange();
    bool isQueryShown() const;
    RowsPane& shownRows() { return isQueryShown() ? m_query.rows() : m_rows; }

    void tell(const std::string& text,
              VOXI::NotificationKind kind = VOXI::NotificationKind::Information);
    void fail(const SQL::Error& error);

    static constexpr int TryAgainButton = 1; ///< in the bar, as the next
    static constexpr int ReloadButton = 2;

    Settings m_settings;
    VOXI::VXWindow2* const m_window;
    Commands m_commands;
    VOXI::VXPanel2* const m_center;
    VOXI::VXNotificationBar2* const m_bar;
    VOXI::VXTabContainer2* const m_tabs;
    VOXI::VXTab2* const m_dataTab;
    VOXI::VXTab2* const m_queryTab;
    RowsPane m_rows;
    RowEditing m_editing;
    QueryPane m_query;
    SchemaPane m_schema;
    CellPane m_cell;
    LogPane m_log;
    VOXI::VXDockWidget2* m_schemaDock = nullptr;
    VOXI::VXDockWidget2* m_cellDock = nullptr;
    VOXI::VXDockWidget2* m_logDock = nullptr;
    SQL::ObjectName m_table; ///< that is shown
    bool m_isReadOnly = false;
    bool m_mayClose = false;
    std::function<void()> m_settled;
    std::unique_ptr<Document> m_opening; ///< that is not yet shown
    std::unique_ptr<Document> m_document;
};

} // namespace explorer
