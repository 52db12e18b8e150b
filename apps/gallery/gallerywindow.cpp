#include "gallerywindow.h"

#include "voxi2/containers/vxscrollview2.h"
#include "voxi2/containers/vxsplitter2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/controls/vxmenubar2.h"
#include "voxi2/kernel/vxaction2.h"

#include <algorithm>

namespace gallery {

using namespace VOXI;

namespace {

constexpr int ListWidth = 200; // with letters of 9 points
constexpr Size<int> WantedSize{990, 760};
constexpr Size<int> FrameSize{20, 50}; // more than window managers add

/// What is wanted, or as much of it as the screen has room for.
Size<int> sizeOn(const VXWindow2& window)
{
    const std::vector<Screen> screens = window.screens();
    const auto place = static_cast<std::size_t>(window.screen());
    if (place >= screens.size())
        return WantedSize;
    const VXRect<int>& room = screens[place].available;
    return {std::min(WantedSize.width, room.width - FrameSize.width),
            std::min(WantedSize.height, room.height - FrameSize.height)};
}

} // namespace

GalleryWindow::GalleryWindow() : m_window(new VXWindow2)
{
    m_window->setTitle("VOXI gallery");
    m_window->setObjectName("gallery");

    auto* split = new VXSplitter2(m_window, Orientation::Horizontal);
    split->addWidget(makeTree(split), 0);
    m_pages = new VXWidgetStack2(split);
    makeLog();
    for (const Group& group : groups()) {
        const unsigned row = m_model->appendRow(0, {group.title});
        for (const Page& page : group.pages)
            addPage(page, row);
    }
    m_tree->expandAll();
    split->addWidget(m_pages, 1);
    split->setCollapsible(nullptr, false);

    m_window->setCentralWidget(split);
    makeMenus();
    const Size<int> size = sizeOn(*m_window);
    m_window->resize(size);
    const int list = ListWidth * std::max(m_tree->font().pointSize(), 9) / 9;
    split->setSizes({list, size.width - list});
    showPage(m_rows.front());
    m_window->show();
}

GalleryWindow::~GalleryWindow()
{
    // The log goes last, with what it keeps for the pages.
    m_log->disconnect();
    m_window->destroy();
}

void GalleryWindow::makeLog()
{
    m_logPane = new VXDockWidget2(m_window);
    m_logPane->setTitle("Event log");
    m_logPane->setObjectName("log-pane");
    m_log = std::make_unique<EventLog>(m_logPane);
    m_logPane->setWidget(m_log->widget());
    m_window->addDockWidget(m_logPane, DockArea::Bottom);
}

void GalleryWindow::makeMenus()
{
    auto* bar = new VXMenuBar2(m_window);
    auto* view = new VXMenu2(bar);
    view->addAction(m_logPane->viewAction());
    VXAction2* fullScreen = view->addAction("&Full screen");
    fullScreen->setCheckable(true);
    fullScreen->toggled().connect(m_log.get(), [this](const VXActionToggleEvent2& event) {
        if (event.isChecked())
            m_window->showFullScreen();
        else
            m_window->showNormal();
    });
    bar->addMenu("&View", view);
    m_window->setMenuBar(bar);
}

/// A field to search in, above what is found.
VXWidget2* GalleryWindow::makeTree(VXObject2* parent)
{
    const Box list = column(parent, 4);
    list.layout->setMargins({8, 12, 4, 12});
    auto* const search = new VXEdit2(list.panel);
    search->setObjectName("search");
    search->setPlaceholder("Search");
    search->setAccessibleName("Search for a page");
    search->setClearButtonVisible(true);
    m_model = new VXTreeModel2({"Page"}, list.panel);
    m_tree = new VXTreeView2(list.panel);
    m_tree->setObjectName("pages");
    m_tree->setAccessibleName("Pages");
    m_tree->setViewModel(m_model);
    m_tree->setColumnHeaderVisible(false);
    list.layout->addWidget(search);
    list.layout->addWidget(m_tree, 1);

    search->textEdited().connect(search, [this](const VXEditTextEvent2& event) {
        m_model->setFilterText(event.newText());
        m_tree->expandAll();
    });
    // The first that was found.
    search->returnPressed().connect(search, [this](const VXEditReturnEvent2&) {
        for (const unsigned group : m_model->childRows(0)) {
            for (const unsigned row : m_model->childRows(group))
                return showPage(row);
        }
    });
    m_tree->selectionChanged().connect(m_tree, [this](const VXViewSelectionChangeEvent2& event) {
        if (const std::vector<unsigned> rows = event.rows(); !rows.empty())
            showPage(rows.front());
    });
    return list.panel;
}

void GalleryWindow::addPage(const Page& page, unsigned group)
{
    m_rows.push_back(m_model->appendRow(group, {page.title}));

    auto* view = new VXScrollView2(m_pages);
    const Box framed = column(view, 10);
    framed.layout->setMargins({12, 12, 12, 12});
    auto* summary = new VXText2(page.summary, framed.panel);
    summary->setWordWrap(true);
    framed.layout->addWidget(heading(framed.panel, page.title, 15));
    framed.layout->addWidget(summary);
    VXWidget2* const made = page.create(framed.panel, *m_log);
    framed.layout->addWidget(made, 1);
    if (page.settle)
        m_settle[page.name] = [settle = page.settle, made] { settle(made); };
    view->setWidget(framed.panel);
    m_pages->addWidget(view);
}

bool GalleryWindow::select(const std::string& name)
{
    const std::vector<std::string> names = pageNames();
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end())
        return false;
    showPage(m_rows[static_cast<std::size_t>(found - names.begin())]);
    return true;
}

void GalleryWindow::settle(const std::string& name)
{
    if (const auto found = m_settle.find(name); found != m_settle.end())
        found->second();
}

/// Nothing happens for the row of a group.
void GalleryWindow::showPage(unsigned row)
{
    const auto found = std::find(m_rows.begin(), m_rows.end(), row);
    if (found == m_rows.end())
        return;
    m_tree->setActiveCell({row, 1});
    m_tree->clearSelection();
    m_tree->selectRows({row});
    m_pages->raiseWidgetWithID(static_cast<int>(found - m_rows.begin()));
}

} // namespace gallery
