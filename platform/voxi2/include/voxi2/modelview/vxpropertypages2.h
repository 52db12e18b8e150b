#pragma once

#include "voxi2/containers/vxpanel2.h"
#include "voxi2/modelview/vxsimplepropertybrowser2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <string>
#include <vector>

namespace VOXI {

class VXButton2;
class VXEdit2;
class VXTab2;
class VXTabContainer2;
class VXText2;

/// Property browsers as the pages of tabs, with one field to search all of them, and below them
/// what there is to say of the property that the user is at: its description, why his last entry
/// was refused, and a button that brings the default back.
///
/// All of it is made of the toolkit's other widgets.
class VOXI2_EXPORT VXPropertyPages2 : public VXPanel2
{
public:
    explicit VXPropertyPages2(VXObject2* parent = nullptr);
    ~VXPropertyPages2() override;

    /// Appends a page. The browser has the standard editors, and goes with the page.
    VXSimplePropertyBrowser2* addPage(const AnyText& title);
    /// Destroys the page and its browser; others are ignored.
    void removePage(VXSimplePropertyBrowser2* browser);
    /// In the order of the tabs.
    std::vector<VXSimplePropertyBrowser2*> pages() const;

    void setCurrentPage(VXSimplePropertyBrowser2* browser);
    /// Null when there is none.
    VXSimplePropertyBrowser2* currentPage() const;

    /// What is searched for in all pages, as if the user had typed it: see
    /// `VXSimplePropertyBrowser2::setFilter`.
    void setSearch(const AnyText& text);
    std::wstring search() const;

    /// `refresh` of each page.
    void refresh();

private:
    struct Page
    {
        VXHandle<VXSimplePropertyBrowser2> browser;
        VXHandle<VXTab2> tab;
    };

    void connectPage(VXSimplePropertyBrowser2* browser);
    std::vector<Page> livePages() const;
    void applySearch(const std::wstring& text);
    void describeCurrent();
    void describe(VXHandle<VXSimpleProperty2> property);

    VXHandle<VXEdit2> m_search;
    VXHandle<VXTabContainer2> m_tabs;
    VXHandle<VXText2> m_title;
    VXHandle<VXText2> m_description;
    VXHandle<VXText2> m_message;
    VXHandle<VXButton2> m_reset;

    // Guarded by the object lock.
    std::vector<Page> m_pages;
    std::wstring m_searched;
    VXHandle<VXSimpleProperty2> m_described;
    TROV::Listener m_watch; ///< of what is described
};

} // namespace VOXI
