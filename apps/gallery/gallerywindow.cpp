#include "gallerywindow.h"

#include "voxi2/containers/vxscrollview2.h"
#include "voxi2/containers/vxsplitter2.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/controls/vxmenubar2.h"
#include "voxi2/kernel/vxaction2.h"

namespace gallery {

using namespace VOXI;

namespace {

constexpr int ListWidth = 170;
constexpr int PageWidth = 790;

} // namespace

GalleryWindow::GalleryWindow() : m_window(new VXWindow2)
{
    m_window->setTitle("VOXI gallery");
    m_window->setObjectName("gallery");

    auto* split = new VXSplitter2(m_window, Orientation::Horizontal);
    auto* listView = new VXScrollView2(split);
    const Box list = column(listView, 4);
    list.layout->setMargins({12, 12, 8, 12});
    list.layout->addWidget(heading(list.panel, "Pages"));
    m_pages = new VXWidgetStack2(split);
    makeLog();
    for (const Page& page : pages())
        addPage(page, list);
    list.layout->addStretch();
    listView->setWidget(list.panel);
    split->addWidget(listView, 0);
    split->addWidget(m_pages, 1);
    split->setCollapsible(nullptr, false);

    m_window->setCentralWidget(split);
    makeMenus();
    m_window->resize({ListWidth + PageWidth, 760});
    split->setSizes({ListWidth, PageWidth});
    showPage(0);
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

void GalleryWindow::addPage(const Page& page, const Box& list)
{
    VXButton2* choose = button(list.panel, page.title, "page-" + page.name);
    choose->setCheckable(true);
    choose->setExclusive(true);
    list.layout->addWidget(choose);

    auto* view = new VXScrollView2(m_pages);
    const Box framed = column(view, 10);
    framed.layout->setMargins({12, 12, 12, 12});
    auto* summary = new VXText2(page.summary, framed.panel);
    summary->setWordWrap(true);
    framed.layout->addWidget(heading(framed.panel, page.title, 15));
    framed.layout->addWidget(summary);
    framed.layout->addWidget(page.create(framed.panel, *m_log), 1);
    view->setWidget(framed.panel);
    m_pages->addWidget(view);

    const std::size_t index = m_chooseButtons.size();
    choose->clicked().connect(m_log.get(), [this, index] { showPage(index); });
    m_chooseButtons.push_back(choose);
}

bool GalleryWindow::select(const std::string& name)
{
    for (std::size_t i = 0; i < pages().size(); ++i) {
        if (pages()[i].name == name) {
            showPage(i);
            return true;
        }
    }
    return false;
}

void GalleryWindow::showPage(std::size_t index)
{
    m_chooseButtons[index]->setChecked(true);
    m_pages->raiseWidgetWithID(static_cast<int>(index));
}

} // namespace gallery
