#pragma once

#include "voxi2/containers/dockarea.h"
#include "voxi2/containers/dockfeature.h"
#include "voxi2/containers/vxdockwidgetevents2.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/icon.h"
#include "voxi_util/vxflags.h"

#include <string>

namespace VOXI {

class VXAction2;

struct VXDockWidget2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXWidget2*)> setWidget{*this};
    TROV::Request<VXWidget2*()> getWidget{*this};
    TROV::Request<void(VXWidget2*)> setTitleBarWidget{*this};
    TROV::Request<VXWidget2*()> getTitleBarWidget{*this};
    TROV::Request<void(std::wstring)> setTitleU{*this};
    TROV::Request<std::wstring()> getTitleU{*this};
    TROV::Request<void(std::string)> setTitle{*this};
    TROV::Request<std::string()> getTitle{*this};
    TROV::Request<void(Icon)> setIcon{*this};
    TROV::Request<Icon()> getIcon{*this};
    TROV::Request<void(VXFlags<DockArea>)> setAllowedAreas{*this};
    TROV::Request<VXFlags<DockArea>()> getAllowedAreas{*this};
    TROV::Request<void(VXFlags<DockFeature>)> setFeatures{*this};
    TROV::Request<VXFlags<DockFeature>()> getFeatures{*this};
    TROV::Request<void(bool)> setFloating{*this};
    TROV::Request<bool()> isFloating{*this};
    TROV::Request<bool()> close{*this};
    TROV::Request<void(VXAction2*)> setViewAction{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXDockFloatEvent2&)> floatingChanged{*this};
    TROV::Event<void(const VXDockAreaEvent2&)> areaChanged{*this};
    TROV::Event<void(const VXDockVisibilityEvent2&)> visibilityChanged{*this};
};

/// A titled pane at the side of a window, which its user can drag elsewhere, tear off and close;
/// see `VXWindow2::addDockWidget`.
///
/// It is hidden until it is docked. `closing()` asks before the user's request to close is carried
/// out, and a handler may refuse. A closed dock widget is hidden, not destroyed.
///
/// Its title has a menu of what its user may do with it, which Ctrl+Shift+F10 opens from within.
class VOXI2_EXPORT VXDockWidget2 : public VXWidget2
{
public:
    using ToolkitClass = VXDockWidget2;

    explicit VXDockWidget2(VXObject2* parent = nullptr);
    explicit VXDockWidget2(const AnyText& title, VXObject2* parent = nullptr);
    ~VXDockWidget2() override;

    // Content. Dead widgets, and those that the dock widget lies in, are ignored.

    /// The widget that fills the pane. The former one stays alive, hidden; null leaves it empty.
    void setWidget(VXWidget2* widget);
    VXWidget2* widget() const;
    /// Shown instead of the title and its buttons; the user drags the pane by it. The former one
    /// stays alive, hidden; null brings the title back. An empty panel takes it away.
    void setTitleBarWidget(VXWidget2* widget);
    VXWidget2* titleBarWidget() const;

    // Looks

    /// Also the label of the view action and of the tab among tabbed ones: an ampersand makes the
    /// character after it the mnemonic there.
    void setTitle(const AnyText& title);
    std::string title() const;
    std::wstring titleU() const;
    /// For the view action, and for the window system while the pane stands alone.
    void setIcon(const Icon& icon);
    /// The icon last set.
    Icon icon() const;

    // What the user may do with it

    /// The sides of a window that the user may drag the pane to; all of them at first.
    void setAllowedAreas(VXFlags<DockArea> areas);
    VXFlags<DockArea> allowedAreas() const;
    /// Closable, movable and floatable at first.
    void setFeatures(VXFlags<DockFeature> features);
    VXFlags<DockFeature> features() const;

    // State

    /// Tears the pane off its window, or puts it back where it was.
    void setFloating(bool floating);
    bool isFloating() const;
    /// Closes the pane as its user would: it may be refused. False when it was.
    bool close();

    /// The action that shows and closes the pane, for a menu: checked while the pane is open,
    /// whoever opened it. It has the pane's title and icon and belongs to it; made at the first
    /// call; null if the pane has ended. To open the pane by program, show it; checking the action
    /// does not.
    VXAction2* viewAction();

    // Events

    /// The user tore the pane off or put it back.
    TROV::Signal<void(const VXDockFloatEvent2&)> floatingChanged() const
    {
        return m_emitters.floatingChanged.signal();
    }
    /// The user put the pane at another side of its window.
    TROV::Signal<void(const VXDockAreaEvent2&)> areaChanged() const
    {
        return m_emitters.areaChanged.signal();
    }
    /// The user closed or opened the pane, or another tab among tabbed ones. Not sent when its
    /// window as a whole comes or goes.
    TROV::Signal<void(const VXDockVisibilityEvent2&)> visibilityChanged() const
    {
        return m_emitters.visibilityChanged.signal();
    }

private:
    VXDockWidget2Emitters m_emitters;
    unsigned m_viewAction = 0; // its id, guarded by the object lock
};

} // namespace VOXI
