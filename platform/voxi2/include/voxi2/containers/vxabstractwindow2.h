#pragma once

#include "voxi2/containers/vxwindowevents2.h"
#include "voxi2/kernel/screen.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/kernel/windowflags.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/icon.h"
#include "voxi_util/vxflags.h"

#include <string>
#include <vector>

namespace VOXI {

struct VXAbstractWindow2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(std::string)> setTitle{*this};
    TROV::Request<void(std::wstring)> setTitleU{*this};
    TROV::Request<void(Icon)> setIcon{*this};
    TROV::Request<void(unsigned)> setWindowFlags{*this};
    TROV::Request<void(VXFlags<WindowState>)> setWindowState{*this};
    TROV::Request<void(bool)> setModified{*this};
    TROV::Request<std::string()> getTitle{*this};
    TROV::Request<std::wstring()> getTitleU{*this};
    TROV::Request<Icon()> getIcon{*this};
    TROV::Request<unsigned()> getWindowFlags{*this};
    TROV::Request<VXFlags<WindowState>()> getWindowState{*this};
    TROV::Request<bool()> isModified{*this};
    TROV::Request<bool()> close{*this};
    TROV::Request<std::string()> saveWindowGeometry{*this};
    TROV::Request<bool(std::string)> restoreWindowGeometry{*this};
    TROV::Request<void()> showMinimized{*this};
    TROV::Request<void()> showMaximized{*this};
    TROV::Request<void()> showFullScreen{*this};
    TROV::Request<void()> showNormal{*this};
    TROV::Request<bool(unsigned long long)> raiseNativeWindow{*this};
    TROV::Request<void(double)> setOpacity{*this};
    TROV::Request<double()> getOpacity{*this};
    TROV::Request<VXRect<int>()> getFrameGeometry{*this};
    TROV::Request<std::vector<Screen>()> getScreens{*this};
    TROV::Request<int()> getScreen{*this};
    TROV::Request<void(int)> alert{*this};
    TROV::Request<void(bool)> setCloseButtonVisible{*this};
    TROV::Request<bool()> isCloseButtonVisible{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXWindowStateEvent2&)> stateChanged{*this};
    TROV::Event<void(const VXWindowActivationEvent2&)> activationChanged{*this};
};

/// What windows and dialogs have in common.
///
/// `closing()` asks before the user's request to close is carried out, and a handler may refuse. A
/// closed window is hidden, not destroyed.
class VOXI2_EXPORT VXAbstractWindow2 : public VXWidget2
{
public:
    ~VXAbstractWindow2() override;

    /// All live windows and dialogs, oldest first.
    static std::vector<VXAbstractWindow2*> windows();

    /// Brings to the front the one that the window system knows by that value, and restores it if
    /// it is minimised; hidden windows and other values are ignored. Toolkit's thread.
    static void raiseNativeWindow(unsigned long long nativeWindow);

    /// The text "[*]" in a title stands for the mark of unsaved changes.
    void setTitle(const AnyText& title);
    std::string title() const;
    std::wstring titleU() const;

    void setIcon(const Icon& icon);
    /// The icon last set.
    Icon icon() const;

    /// The toolkit's window flags as a bit set; see `WindowFlag`. What comes back has more bits
    /// than what was set: the window system's types share bits. 0 makes a window that has a parent
    /// a part of that parent, as other widgets are; a dialog remains one whatever is set.
    void setWindowFlags(unsigned flags);
    unsigned windowFlags() const;

    void setWindowState(VXFlags<WindowState> state);
    VXFlags<WindowState> windowState() const;

    // Each shows the window in that state.
    /// Off the screen; a maximised window is maximised again when its user brings it back.
    void showMinimized();
    void showMaximized();
    void showFullScreen();
    /// Neither minimised nor maximised nor full screen.
    void showNormal();
    bool isMinimized() const;
    bool isMaximized() const;
    bool isFullScreen() const;

    /// Place, size and state as one line of printable text, for `restorePlacement` in a later run.
    std::string savePlacement() const;
    /// Puts the window where it was, on a screen that there is. Text that did not come whole from
    /// `savePlacement` of a window is refused: the answer is false and nothing changes.
    bool restorePlacement(const std::string& placement);

    /// Shows or takes away the mark of unsaved changes.
    void setModified(bool modified);
    bool isModified() const;

    /// How opaque the window is, from 0 to 1 in steps of 1/255; 1 at first. Where the window system
    /// cannot it stays opaque.
    void setOpacity(double opacity);
    double opacity() const;

    /// Place and size on the screen with the frame, which the window system tells once it is shown.
    VXRect<int> frameGeometry() const;
    /// All screens, the user's main one first.
    std::vector<Screen> screens() const;
    /// The place of the window's screen among them: that on which most of it lies. -1 for none.
    int screen() const;

    /// Asks for the user's attention, by a sign in the task bar for example, for so many
    /// milliseconds or with 0 until the window becomes active; one that is active asks for nothing.
    void alert(int duration = 0);

    /// Whether the frame has a button to close the window, as far as the window system lets that be
    /// chosen. It stays so whatever `setWindowFlags` says.
    void setCloseButtonVisible(bool visible);
    bool isCloseButtonVisible() const;

    /// Closes the window as its user would: it may be refused. False when it was.
    bool close();

    // Events

    /// The user, or the window manager, minimised or maximised the window, made it fill the screen,
    /// or ended that.
    TROV::Signal<void(const VXWindowStateEvent2&)> stateChanged() const
    {
        return m_emitters.stateChanged.signal();
    }

    /// The user went to the window, or to another one. Not sent for what the program asks for:
    /// showing, hiding and `setActiveWindow`; but the window that is left by that says so.
    TROV::Signal<void(const VXWindowActivationEvent2&)> activationChanged() const
    {
        return m_emitters.activationChanged.signal();
    }

protected:
    explicit VXAbstractWindow2(VXObject2* parent);

    VXAbstractWindow2Emitters m_emitters;
};

} // namespace VOXI
