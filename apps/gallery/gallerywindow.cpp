#include "gallerywindow.h"

#include "ui.h"

namespace gallery {

using namespace VOXI;

namespace {

constexpr int ListWidth = 140;

} // namespace

GalleryWindow::GalleryWindow() : m_window(new VXWindow2)
{
    m_window->setTitle("VOXI gallery");
    m_window->setObjectName("gallery");

    const Box content = column(m_window, 12);
    content.layout->setMargins({12, 12, 12, 12});
    const Box upper = row(content.panel, 16);
    const Box list = column(upper.panel, 4);
    list.panel->setMinimumSize({ListWidth, -1});
    list.panel->setMaximumSize({ListWidth, -1});
    const Box area = column(upper.panel, 0);
    m_log = std::make_unique<EventLog>(content.panel);

    list.layout->addWidget(heading(list.panel, "Pages"));
    for (const Page& page : pages())
        addPage(page, list, area);
    list.layout->insertSpacer(-1, 0, 1);
    upper.layout->addWidget(list.panel);
    upper.layout->addWidget(area.panel, 1);
    content.layout->addWidget(upper.panel, 1);
    content.layout->addWidget(m_log->widget());

    m_window->setCentralWidget(content.panel);
    m_window->resize({900, 640});
    showPage(0);
    m_window->show();
}

GalleryWindow::~GalleryWindow()
{
    // The log goes last, with what it keeps for the pages.
    m_log->disconnect();
    m_window->destroy();
}

void GalleryWindow::addPage(const Page& page, const Box& list, const Box& area)
{
    VXButton2* choose = button(list.panel, page.title, "page-" + page.name);
    choose->setCheckable(true);
    choose->setExclusive(true);
    list.layout->addWidget(choose);

    const Box framed = column(area.panel, 10);
    VXText2* summary = label(framed.panel, page.summary);
    summary->setWordWrap(true);
    framed.layout->addWidget(heading(framed.panel, page.title, 15));
    framed.layout->addWidget(summary);
    framed.layout->addWidget(page.create(framed.panel, *m_log), 1);
    framed.panel->setVisible(false);
    area.layout->addWidget(framed.panel);

    const std::size_t index = m_entries.size();
    choose->clicked().connect(m_log.get(), [this, index] { showPage(index); });
    m_entries.push_back({choose, framed.panel});
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
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        m_entries[i].m_button->setChecked(i == index);
        m_entries[i].m_page->setVisible(i == index);
    }
}

} // namespace gallery
