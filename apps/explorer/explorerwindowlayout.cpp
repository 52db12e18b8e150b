// The part of ExplorerWindow that is about what it is made of.

#include "explorerwindow.h"
#include "icons.h"
#include "sql/text.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/controls/vxmenubar2.h"
#include "voxi2/controls/vxtoolbar2.h"

namespace explorer {

using namespace VOXI;

namespace {

constexpr const char* GeometryName = "window.geometry";
constexpr const char* LayoutName = "window.layout";

/// What begins with an ampersand in a label is a key.
std::wstring labelOf(const std::filesystem::path& file)
{
    std::wstring label;
    for (const wchar_t each : SQL::wideFromUtf8(file.string()))
        label += each == L'&' ? std::wstring(L"&&") : std::wstring(1, each);
    return label;
}

void fill(VXTab2* tab, VXWidget2* widget)
{
    auto* const layout = new VXBoxLayout2(tab, Direction::TopToBottom);
    layout->setMargins({0, 0, 0, 0});
    layout->addWidget(widget, 1);
}

VXMenu2* menu(VXMenuBar2* bar, const char* title, std::initializer_list<VXAction2*> actions)
{
    auto* const made = new VXMenu2(bar);
    for (VXAction2* const action : actions) {
        if (action)
            made->addAction(action);
        else
            made->addSeparator();
    }
    bar->addMenu(title, made);
    return made;
}

} // namespace

void ExplorerWindow::makePanes()
{
    m_window->setObjectName("explorer");
    m_window->setIcon(icon(Picture::Program));
    m_window->resize({1180, 760});
    m_bar->setObjectName("messages");
    m_tabs->setDocumentMode(true);
    fill(m_dataTab, m_rows.panel());
    fill(m_queryTab, m_query.widget());
    auto* const rows = new VXBoxLayout2(m_center, Direction::TopToBottom);
    rows->setMargins({0, 0, 0, 0});
    rows->setSpacing(0);
    rows->addWidget(m_bar);
    rows->addWidget(m_tabs, 1);
    m_window->setCentralWidget(m_center);
    m_schemaDock = dock("schema-dock", "Database", m_schema.panel(), DockArea::Left);
    m_cellDock = dock("cell-dock", "Cell", m_cell.panel(), DockArea::Right);
    m_logDock = dock("log-dock", "Log", m_log.table(), DockArea::Bottom);
    m_logDock->close();
}

VXDockWidget2* ExplorerWindow::dock(const char* name, const char* title, VXWidget2* widget,
                                    DockArea area)
{
    auto* const made = new VXDockWidget2(title, m_window);
    made->setObjectName(name);
    made->setWidget(widget);
    m_window->addDockWidget(made, area);
    return made;
}

void ExplorerWindow::makeMenus()
{
    const Commands& all = m_commands;
    auto* const bar = new VXMenuBar2(m_window);
    auto* const file = new VXMenu2(bar);
    auto* const recent = new VXMenu2(bar);
    recent->setDigMenu(true);
    recent->aboutToShow().connect(recent, [this, recent, file](const VXMenuEvent2&) {
        fillRecent(recent);
        recent->digComplete(file);
    });
    file->addAction(all.open);
    file->addMenu("Open &recent", recent);
    file->addAction(all.sample);
    file->addAction(all.reload);
    file->addSeparator();
    file->addAction(all.importRows);
    file->addAction(all.exportRows);
    file->addSeparator();
    file->addAction(all.close);
    file->addAction(all.quit);
    bar->addMenu("&File", file);
    menu(bar, "&Edit",
         {all.commit, all.rollBack, nullptr, all.insertRow, all.deleteRows, all.setNull, nullptr,
          all.filter});
    menu(bar, "&Query", {all.run, all.stop, all.complete});
    menu(bar, "&View",
         {all.data, all.query, nullptr, m_schemaDock->viewAction(), m_cellDock->viewAction(),
          m_logDock->viewAction()});
    menu(bar, "&Help", {all.about});
    m_window->setMenuBar(bar);
}

void ExplorerWindow::makeToolBar()
{
    auto* const bar = new VXToolBar2("Commands", m_window);
    bar->setObjectName("commands");
    const Commands& all = m_commands;
    for (VXAction2* const action :
         {all.open, all.reload, static_cast<VXAction2*>(nullptr), all.commit, all.rollBack,
          static_cast<VXAction2*>(nullptr), all.insertRow, all.deleteRows, all.setNull,
          static_cast<VXAction2*>(nullptr), all.run, all.stop, static_cast<VXAction2*>(nullptr),
          all.importRows, all.exportRows}) {
        if (action)
            bar->addAction(action);
        else
            bar->addSeparator();
    }
    m_window->addToolBar(bar);
}

void ExplorerWindow::fillRecent(VXMenu2* menu)
{
    menu->destroyItems();
    for (const Path& file : m_settings.recentFiles()) {
        VXAction2* const action = menu->addAction(labelOf(file));
        action->triggered().connect(action,
                                    [this, file](const VXActionTriggerEvent2&) { open(file); });
    }
    if (menu->count() == 0)
        menu->addAction("No files yet")->setEnabled(false);
}

void ExplorerWindow::restoreLayout()
{
    m_window->VXAbstractWindow2::restoreGeometry(m_settings.value(GeometryName));
    m_window->restoreLayout(m_settings.value(LayoutName));
}

void ExplorerWindow::keepLayout()
{
    m_settings.setValue(GeometryName, m_window->VXAbstractWindow2::saveGeometry());
    m_settings.setValue(LayoutName, m_window->saveLayout());
}

} // namespace explorer
