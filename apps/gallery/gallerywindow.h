#pragma once

#include "eventlog.h"
#include "page.h"
#include "ui.h"
#include "voxi2/containers/vxwindow2.h"

#include <memory>
#include <string>
#include <vector>

namespace gallery {

/// The gallery: the list of pages on the left, the page on the right, the log below.
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
    struct Entry
    {
        VOXI::VXButton2* m_button;
        VOXI::VXWidget2* m_page;
    };

    void addPage(const Page& page, const Box& list, const Box& area);
    void showPage(std::size_t index);

    VOXI::VXWindow2* m_window;
    std::unique_ptr<EventLog> m_log;
    std::vector<Entry> m_entries;
};

} // namespace gallery
