#pragma once

#include "voxi2/containers/toolbararea.h"
#include "voxi2/containers/vxabstractwindow2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

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
    TROV::RequestsEnd requestsEnd{*this};
};

/// A window of its own on the screen. It is hidden until `show()`.
class VOXI2_EXPORT VXWindow2 : public VXAbstractWindow2
{
public:
    /// A window with a parent belongs to the parent's window and stays above it.
    explicit VXWindow2(VXObject2* parent = nullptr);
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

    /// Docks the tool bar after the others at that side and shows it; `None` counts as the top. A
    /// bar that is docked already moves there. Null and dead ones are ignored.
    void addToolBar(VXToolBar2* bar, ToolBarArea area = ToolBarArea::Top);
    /// Undocks and hides the tool bar; it stays alive.
    void removeToolBar(VXToolBar2* bar);
    /// Starts a new row of tool bars with this one.
    void insertToolBarBreak(VXToolBar2* before);
    /// Where the bar is docked, or was before it floats; `None` when it is not in this window.
    ToolBarArea toolBarArea(VXToolBar2* bar) const;

private:
    VXWindow2Emitters m_emitters;
};

} // namespace VOXI
