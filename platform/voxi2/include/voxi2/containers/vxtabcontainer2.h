#pragma once

#include "voxi2/containers/tabcorner.h"
#include "voxi2/containers/tabposition.h"
#include "voxi2/containers/vxtab2.h"
#include "voxi2/containers/vxtabevents2.h"
#include "voxi2/kernel/itemview.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"

#include <vector>

namespace VOXI {

struct VXTabContainer2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXTab2*, int)> insertTab{*this};
    TROV::Request<void(VXTab2*)> removeTab{*this};
    TROV::Request<std::vector<VXTab2*>()> getTabs{*this};
    TROV::Request<int()> count{*this};
    TROV::Request<int(VXTab2*)> getTabIndex{*this};
    TROV::Request<VXTab2*(int)> getTabAt{*this};
    TROV::Request<void(VXTab2*)> setCurrentTab{*this};
    TROV::Request<VXTab2*()> getCurrentTab{*this};
    TROV::Request<void(TabPosition)> setTabPosition{*this};
    TROV::Request<TabPosition()> getTabPosition{*this};
    TROV::Request<void(bool)> setTabsClosable{*this};
    TROV::Request<bool()> areTabsClosable{*this};
    TROV::Request<void(bool)> setMovable{*this};
    TROV::Request<bool()> isMovable{*this};
    TROV::Request<void(bool)> setDocumentMode{*this};
    TROV::Request<bool()> isDocumentMode{*this};
    TROV::Request<void(TextElideMode)> setElideMode{*this};
    TROV::Request<TextElideMode()> getElideMode{*this};
    TROV::Request<void(bool)> setScrollButtons{*this};
    TROV::Request<bool()> hasScrollButtons{*this};
    TROV::Request<void(VXWidget2*, TabCorner)> setCornerWidget{*this};
    TROV::Request<VXWidget2*(TabCorner)> getCornerWidget{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXTabEvent2&)> currentTabChanged{*this};
    TROV::Event<void(const VXTabEvent2&)> tabCloseRequested{*this};
    TROV::Event<void(const VXTabMoveEvent2&)> tabMoved{*this};
    TROV::Event<void(const VXTabEvent2&)> tabDoubleClicked{*this};
    TROV::Event<void(const VXTabMenuEvent2&)> tabMenuRequested{*this};
};

/// Shows one of its tabs' pages at a time, the first one added to begin with; the user chooses by
/// the tabs.
///
/// A container does not own the tabs that are added: when it ends, those with another owner stay
/// alive, alone and hidden. Null and dead tabs, and those in another container where one in this
/// is meant, are ignored. When the current tab goes a neighbour becomes current.
class VOXI2_EXPORT VXTabContainer2 : public VXWidget2
{
public:
    using ToolkitClass = VXTabContainer2;

    explicit VXTabContainer2(VXObject2* parent = nullptr);
    ~VXTabContainer2() override;

    /// Appends the tab, and takes it out of the container that it was in.
    void addTab(VXTab2* tab) { insertTab(tab, -1); }
    /// The same at a position; -1, and any beyond the end, appends. A tab that is in the container
    /// already moves there, and remains current if it is.
    void insertTab(VXTab2* tab, int index);
    /// Takes the tab out: it stays alive, alone and hidden.
    void removeTab(VXTab2* tab);

    /// All tabs in their order.
    std::vector<VXTab2*> tabs() const;
    int count() const;
    /// The tab's position from 0; -1 when it is not in the container.
    int indexOf(VXTab2* tab) const;
    /// Null where there is no such position.
    VXTab2* tabAt(int index) const;

    /// Shows the tab's page in place of the one shown.
    void setCurrentTab(VXTab2* tab);
    /// The tab whose page is shown; null when there is none.
    VXTab2* currentTab() const;

    /// At the top by default, and for a value that is none.
    void setTabPosition(TabPosition position);
    TabPosition tabPosition() const;
    /// Whether each tab has a button that asks to close it, as the Delete key does; off by default.
    void setTabsClosable(bool closable);
    bool areTabsClosable() const;
    /// Whether the user can drag the tabs to other places, or by Alt and an arrow; off by default.
    void setMovable(bool movable);
    bool isMovable() const;
    /// Without a frame around the page, as for documents that fill a window; off by default.
    void setDocumentMode(bool on);
    bool isDocumentMode() const;
    /// How texts are cut when the tabs do not fit; not at all where the tabs can be scrolled,
    /// unless it is set.
    void setElideMode(TextElideMode mode);
    TextElideMode elideMode() const;
    /// Whether tabs that do not fit are reached by scrolling; they are squeezed otherwise. On by
    /// default.
    void setScrollButtons(bool on);
    bool hasScrollButtons() const;

    /// Shows a widget beside the tabs, which the container does not own. The former one stays
    /// alive, alone and hidden; null takes it away; a dead one is ignored. It is seen where there
    /// are tabs.
    void setCornerWidget(VXWidget2* widget, TabCorner corner = TabCorner::Trailing);
    VXWidget2* cornerWidget(TabCorner corner = TabCorner::Trailing) const;

    // Events

    /// The user chose another tab. Not sent when the program chooses one, nor when another becomes
    /// current because the program adds, removes, destroys, hides or disables tabs.
    TROV::Signal<void(const VXTabEvent2&)> currentTabChanged() const
    {
        return m_emitters.currentTabChanged.signal();
    }
    /// The user pressed the tab's close button. Nothing is closed: the handler may remove the tab,
    /// destroy it or leave it.
    TROV::Signal<void(const VXTabEvent2&)> tabCloseRequested() const
    {
        return m_emitters.tabCloseRequested.signal();
    }
    /// The user dragged the tab to another place; sent once, when it is let go.
    TROV::Signal<void(const VXTabMoveEvent2&)> tabMoved() const
    {
        return m_emitters.tabMoved.signal();
    }
    /// The user double-clicked the tab, which is the current one by then if it can be chosen.
    TROV::Signal<void(const VXTabEvent2&)> tabDoubleClicked() const
    {
        return m_emitters.tabDoubleClicked.signal();
    }
    /// The user asked for a menu with the pointer on the tab, whichever is current. Where there is
    /// no tab `contextMenuRequested` is sent.
    TROV::Signal<void(const VXTabMenuEvent2&)> tabMenuRequested() const
    {
        return m_emitters.tabMenuRequested.signal();
    }

private:
    VXTabContainer2Emitters m_emitters;
};

} // namespace VOXI
