#pragma once

#include "eventlog.h"
#include "page.h"
#include "ui.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxwidgetstack2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/modelview/vxtreemodel2.h"
#include "voxi2/modelview/vxtreeview2.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace gallery {

/// The gallery: the tree of pages on the left, the page on the right, the log in a pane below.
class GalleryWindow
{
public:
    GalleryWindow();
    ~GalleryWindow();
    GalleryWindow(const GalleryWindow&) = delete;
    GalleryWindow& operator=(const GalleryWindow&) = delete;

    /// Shows the page of that name; false when there is none.
    bool select(const std::string& name);
    /// Waits until all of that page is seen.
    void settle(const std::string& name);

    VOXI::VXWindow2* window() const { return m_window; }

private:
    void makeLog();
    void makeMenus();
    VOXI::VXWidget2* makeTree(VOXI::VXObject2* parent);
    void addPage(const Page& page, unsigned group);
    void showPage(unsigned row);

    VOXI::VXWindow2* m_window;
    VOXI::VXDockWidget2* m_logPane = nullptr;
    VOXI::VXWidgetStack2* m_pages = nullptr;
    std::unique_ptr<EventLog> m_log;
    VOXI::VXTreeModel2* m_model = nullptr;
    VOXI::VXTreeView2* m_tree = nullptr;
    std::vector<unsigned> m_rows;                          ///< in the order of the pages
    std::map<std::string, std::function<void()>> m_settle; ///< by their names
};

} // namespace gallery
