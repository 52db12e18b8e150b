#include "voxi2_qt/kernel/qtwindowflags.h"

#include "enumtable.h"

namespace VOXI {

namespace {
struct FlagRow
{
    unsigned m_voxi;
    Qt::WindowType m_qt;
};

// Both ways read the same rows: a flag adds its Qt bits, any of its Qt bits brings the flag back.
constexpr FlagRow FlagRows[] = {
    {WindowFlagWindow, Qt::Window},
    {WindowFlagDialog, Qt::Dialog},
    {WindowFlagPopup, Qt::Popup},
    {WindowFlagDesktop, Qt::Desktop},
    {WindowFlagFixedSize, Qt::MSWindowsFixedSizeDialogHint},
    {WindowFlagTitle, Qt::WindowTitleHint},
    {WindowFlagSystemMenu, Qt::WindowSystemMenuHint},
    {WindowFlagMinimizeButton, Qt::WindowMinimizeButtonHint},
    {WindowFlagMaximizeButton, Qt::WindowMaximizeButtonHint},
    {WindowFlagTool, Qt::Tool},
    {WindowFlagStaysOnTop, Qt::WindowStaysOnTopHint},
    {WindowFlagFrameless, Qt::FramelessWindowHint},
    {WindowFlagContextHelp, Qt::WindowContextHelpButtonHint},
    {WindowFlagBypassWindowManager, Qt::X11BypassWindowManagerHint},
    {WindowFlagBorderless, Qt::FramelessWindowHint},
};

/// All hints at once, the unnamed 0x0010 among them, stand for a window of every type.
constexpr unsigned EveryHint = 0xfff0;

constexpr auto States = enumTable<WindowState, Qt::WindowState>({
    {WindowState::Normal, Qt::WindowNoState},
    {WindowState::Minimized, Qt::WindowMinimized},
    {WindowState::Maximized, Qt::WindowMaximized},
    {WindowState::FullScreen, Qt::WindowFullScreen},
    {WindowState::Active, Qt::WindowActive},
});
} // namespace

Qt::WindowFlags voxiFlagToQt(unsigned int flags) noexcept
{
    Qt::WindowFlags result;
    for (const FlagRow& row : FlagRows) {
        if (flags & row.m_voxi)
            result |= row.m_qt;
    }
    if ((flags & EveryHint) == EveryHint)
        result |= Qt::WindowType_Mask;
    return result;
}

unsigned int QtFlagToVoxi(Qt::WindowFlags flags) noexcept
{
    unsigned int result = 0;
    for (const FlagRow& row : FlagRows) {
        if (flags & row.m_qt)
            result |= row.m_voxi;
    }
    return result;
}

Qt::WindowStates VX2Qt(VXFlags<WindowState> states) noexcept
{
    return States.toQtFlags<Qt::WindowStates>(states);
}

VXFlags<WindowState> Qt2VX(Qt::WindowStates states) noexcept { return States.toVxFlags(states); }

} // namespace VOXI
