#pragma once

#include "voxi2/containers/dockarea.h"
#include "voxi2/containers/dockcorner.h"
#include "voxi2/containers/tabposition.h"
#include "voxi2/containers/toolbararea.h"
#include "voxi2/containers/vxabstractwindow2.h"
#include "voxi2/kernel/direction.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <string>
#include <vector>

namespace VOXI {

class VXDockWidget2;

struct VXWindow2Emitters : TROV::EmittersTable<VXAbstractWindow2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXWidget2*)> setCentralWidget{*this};
    TROV::Request<VXWidget2*()> getCentralWidget{*this};
    TROV::Request<void(bool)> setSupportsGlobalFocusBlocker{*this};
    TROV::Request<bool()> getSupportsGlobalFocusBlocker{*this};
    TROV::Request<void(VXMenuBar2*)> setMenuBar{*this};
    TROV::Request<void(VXToolBar2*, ToolBarArea)> addToolBar{*this};
    TROV::Request<void(VXToolBar2*)> removeToolBar{*this};
    TROV::Request<void(VXToolBar2*)> insertToolBarBreak{*this};
    TROV::Request<VXMenuBar2*()> getMenuBar{*this};
    TROV::Request<ToolBarArea(VXToolBar2*)> getToolBarArea{*this};
    TROV::Request<void(std::string, int)> setStatusText{*this};
    TROV::Request<void(std::wstring, int)> setStatusTextU{*this};
    TROV::Request<std::string()> getStatusText{*this};
    TROV::Request<std::wstring()> getStatusTextU{*this};
    TROV::Request<void(bool)> setStatusBarVisible{*this};
    TROV::Request<bool()> isStatusBarVisible{*this};
    TROV::Request<void(VXWidget2*, int)> addStatusWidget{*this};
    TROV::Request<void(VXWidget2*)> removeStatusWidget{*this};
    TROV::Request<void(VXDockWidget2*, DockArea)> addDockWidget{*this};
    TROV::Request<void(VXDockWidget2*)> removeDockWidget{*this};
    TROV::Request<DockArea(VXDockWidget2*)> getDockArea{*this};
    TROV::Request<void(VXDockWidget2*, VXDockWidget2*)> tabifyDockWidget{*this};
    TROV::Request<void(VXDockWidget2*, VXDockWidget2*, Orientation)> splitDockWidget{*this};
    TROV::Request<void(VXDockWidget2*)> raiseDockWidget{*this};
    TROV::Request<std::string()> saveLayout{*this};
    TROV::Request<bool(std::string)> restoreLayout{*this};
    TROV::Request<void(VXDockWidget2*, int, Orientation)> setDockSize{*this};
    TROV::Request<void(DockCorner, DockArea)> setDockCorner{*this};
    TROV::Request<DockArea(DockCorner)> getDockCorner{*this};
    TROV::Request<void(bool)> setDockNesting{*this};
    TROV::Request<bool()> isDockNesting{*this};
    TROV::Request<void(DockArea, TabPosition)> setDockTabPosition{*this};
    TROV::Request<TabPosition(DockArea)> getDockTabPosition{*this};
    TROV::Request<std::vector<VXDockWidget2*>(VXDockWidget2*)> getDockTabs{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// A window of its own on the screen. It is hidden until `show()`. F6 goes from one tool bar, dock
/// widget and the central widget to the next, F10 to the menu bar; other keys are in
/// docs/keyboard.md.
class VOXI2_EXPORT VXWindow2 : public VXAbstractWindow2
{
public:
    using ToolkitClass = VXWindow2;

    /// A window with a parent belongs to the parent's window and stays above it.
    explicit VXWindow2(VXObject2* parent = nullptr);
    explicit VXWindow2(const AnyText& title, VXObject2* parent = nullptr);
    ~VXWindow2() override;

    /// The widget that fills the window. The former one stays alive, hidden; null leaves the window
    /// empty; a dead one is ignored.
    void setCentralWidget(VXWidget2* widget);
    VXWidget2* centralWidget() const;

    /// Whether focus changes that the program causes in the window are kept back until they have
    /// settled, so that none of them is reported; on by default.
    void setSupportsGlobalFocusBlocker(bool supports);
    bool supportsGlobalFocusBlocker() const;

    /// Puts the menu bar at the top of the window and shows it. The former one stays alive, hidden;
    /// null takes it away; a dead one is ignored.
    void setMenuBar(VXMenuBar2* bar);
    VXMenuBar2* menuBar() const;

    /// Docks the tool bar after the others at that side and shows it; what is no side counts as the
    /// top. A bar that is docked already moves there. Null and dead ones are ignored.
    void addToolBar(VXToolBar2* bar, ToolBarArea area = ToolBarArea::Top);
    /// Undocks and hides the tool bar; it stays alive.
    void removeToolBar(VXToolBar2* bar);
    /// Starts a new row of tool bars with this one.
    void insertToolBarBreak(VXToolBar2* before);
    /// Where the bar is docked, or was before it floats; `None` when it is not in this window.
    ToolBarArea toolBarArea(VXToolBar2* bar) const;

    // Status bar. It appears with the first text or widget.

    /// Shows a text for some milliseconds, or with 0 for good. What is shown for good comes back
    /// after a text with a time-out and after the status tip of an action. Empty takes it away.
    void setStatusText(const AnyText& text, int timeout = 0);
    /// What the status bar shows at the moment.
    std::string statusText() const;
    std::wstring statusTextU() const;
    void setStatusBarVisible(bool visible);
    bool isStatusBarVisible() const;
    /// Adds a widget at the right end of the status bar, behind the former ones. Room to spare goes
    /// to the text and to widgets in proportion to their stretch. Null and dead ones are ignored.
    void addStatusWidget(VXWidget2* widget, int stretch = 0);
    /// Takes the widget out of the status bar and hides it; it stays alive.
    void removeStatusWidget(VXWidget2* widget);

    // Dock widgets. Null, dead ones, and those that the window lies in, are ignored.

    /// Docks the pane at that side, beyond the others there, and shows it; what is no side counts
    /// as the left. One that is docked already, here or in another window, moves.
    void addDockWidget(VXDockWidget2* dock, DockArea area = DockArea::Left);
    /// Undocks and hides the pane; it stays alive.
    void removeDockWidget(VXDockWidget2* dock);
    /// Where the pane is docked, or was before it floats; `None` when it is not in this window.
    DockArea dockArea(VXDockWidget2* dock) const;
    /// Puts the second pane into the place of the first, so that tabs choose between the two.
    /// Nothing happens unless the first is docked in this window.
    void tabifyDockWidget(VXDockWidget2* first, VXDockWidget2* second);
    /// Puts the second pane beside the first, horizontal, or below it, within its place; if
    /// the first has tabs, the second becomes another of them. Nothing happens unless the first is
    /// docked in this window.
    void splitDockWidget(VXDockWidget2* first, VXDockWidget2* second, Orientation orientation);
    /// Shows the pane in front of those that it shares its place with.
    void raiseDockWidget(VXDockWidget2* dock);

    /// The width (`Horizontal`) or height of a docked pane in pixels, and of those that share it,
    /// as far as there is room. Before the window is shown first it counts from then on; it then
    /// takes the place of what the pane would like. Panes that are not docked here are ignored.
    void setDockSize(VXDockWidget2* dock, int size, Orientation orientation);
    /// To which side's panes a corner belongs: one of the two sides that meet there, others are
    /// ignored. To the top and the bottom at first.
    void setDockCorner(DockCorner corner, DockArea area);
    DockArea dockCorner(DockCorner corner) const;
    /// Whether the user may put panes beside each other at any side, in rows of rows; off by
    /// default.
    void setDockNesting(bool nesting);
    bool isDockNesting() const;
    /// Where panes that share a place at that side have their tabs; at the bottom by default.
    void setDockTabPosition(DockArea area, TabPosition position);
    TabPosition dockTabPosition(DockArea area) const;
    /// The panes that share a place with that one, itself included; none when it is alone.
    std::vector<VXDockWidget2*> dockTabs(VXDockWidget2* dock) const;

    /// Where tool bars and panes are, and which of them are shown, as one line of printable text
    /// for `restoreLayout` in a later run. It knows them by their object names; those without are
    /// numbered in the order in which they were docked, so that a program that always docks the
    /// same ones needs no names.
    std::string saveLayout() const;
    /// Puts the docked tool bars and panes where they were; the others stay. Text that did not come
    /// whole from `saveLayout` is refused: the answer is false and nothing changes. While the
    /// window is hidden panes that stand alone wait for it to be shown.
    bool restoreLayout(const std::string& layout);

private:
    VXWindow2Emitters m_emitters;
};

} // namespace VOXI
