#pragma once

#include "eventlog.h"
#include "page.h"
#include "ui.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxwidgetstack2.h"
#include "voxi2/containers/vxwindow2.h"

#include <memory>
#include <string>
#include <vector>

namespace gallery {

/// The gallery: the list of pages on the left, the page on the right, the log in a pane below.
class GalleryWindow
{
public:
    GalleryWindow();
    ~GalleryWindow();
    GalleryWindow(const GalleryWindow&) = delete;
    GalleryWindow& operator=(const GalleryWindow&) = delete;

    /// Shows the page of that name; false when there is none.
    bool select(const std::string& name);

    VOXI::VXWindow2* window() const { return m_window; }

private:
    void makeLog();
    void makeMenus();
    void addPage(const Page& page, const Box& list);
    void showPage(std::size_t index);

    VOXI::VXWindow2* m_window;
    VOXI::VXDockWidget2* m_logPane = nullptr;
    VOXI::VXWidgetStack2* m_pages = nullptr;
    std::unique_ptr<EventLog> m_log;
    std::vector<VOXI::VXButton2*> m_chooseButtons;
};

} // namespace gallery
