#include "gallerywindow.h"

#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"

namespace gallery {

using namespace VOXI;

GalleryWindow::GalleryWindow() : m_window(new VXWindow2)
{
    m_window->setTitle("VOXI gallery");
    m_window->setObjectName("gallery");

    auto* content = new VXPanel2(m_window);
    auto* column = new VXBoxLayout2(content, Direction::TopToBottom);
    auto* upper = new VXPanel2(content);
    auto* row = new VXBoxLayout2(upper, Direction::LeftToRight);
    auto* list = new VXPanel2(upper);
    auto* listColumn = new VXBoxLayout2(list, Direction::TopToBottom);
    auto* area = new VXPanel2(upper);
    auto* areaColumn = new VXBoxLayout2(area, Direction::TopToBottom);
    m_log = std::make_unique<EventLog>(content);

    for (const Page& page : pages()) {
        auto* button = new VXButton2(list);
        button->setLabel(page.title);
        button->setObjectName("page-" + page.name);
        button->setCheckable(true);
        button->setExclusive(true);
        listColumn->addWidget(button);
        VXWidget2* widget = page.create(area, *m_log);
        widget->setVisible(false);
        areaColumn->addWidget(widget);
        const std::size_t index = m_entries.size();
        button->clicked().connect(m_log.get(), [this, index] { showPage(index); });
        m_entries.push_back({button, widget});
    }
    listColumn->insertSpacer(-1, 0, 1);
    row->addWidget(list);
    row->addWidget(area, 1);
    column->addWidget(upper, 1);
    column->addWidget(m_log->widget());

    m_window->setCentralWidget(content);
    m_window->resize({760, 480});
    showPage(0);
    m_window->show();
}

GalleryWindow::~GalleryWindow()
{
    m_log.reset();
    m_window->destroy();
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

}  // namespace gallery
