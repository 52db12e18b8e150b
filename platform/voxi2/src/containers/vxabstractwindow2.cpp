#include "voxi2/containers/vxabstractwindow2.h"

namespace VOXI {

namespace {

std::vector<VXAbstractWindow2*>& allWindows() // guarded by the object lock
{
    static auto* windows = new std::vector<VXAbstractWindow2*>;
    return *windows;
}

} // namespace

VXAbstractWindow2::VXAbstractWindow2(VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    VXObjectDataLocker lock;
    if (id() != 0)
        allWindows().push_back(this);
}

VXAbstractWindow2::~VXAbstractWindow2()
{
    VXObjectDataLocker lock;
    std::erase(allWindows(), this);
    retire();
}

std::vector<VXAbstractWindow2*> VXAbstractWindow2::windows()
{
    VXObjectDataLocker lock;
    std::vector<VXAbstractWindow2*> result = allWindows();
    // Those that have retired are about to leave.
    std::erase_if(result, [](const auto* window) { return !isObjectValid(window->id()); });
    return result;
}

void VXAbstractWindow2::raiseNativeWindow(unsigned long long nativeWindow)
{
    // Other threads may destroy windows. Only the window that answers runs handlers.
    VXObjectDataLocker lock;
    for (VXAbstractWindow2* window : windows()) {
        if (window->m_emitters.raiseNativeWindow(nativeWindow))
            return;
    }
}

void VXAbstractWindow2::setTitle(const AnyText& title)
{
    title.passTo(m_emitters.setTitle, m_emitters.setTitleU);
}

std::string VXAbstractWindow2::title() const { return m_emitters.getTitle(); }
std::wstring VXAbstractWindow2::titleU() const { return m_emitters.getTitleU(); }
void VXAbstractWindow2::setIcon(const Icon& icon) { m_emitters.setIcon(icon); }
Icon VXAbstractWindow2::icon() const { return m_emitters.getIcon(); }
void VXAbstractWindow2::setWindowFlags(unsigned flags) { m_emitters.setWindowFlags(flags); }
unsigned VXAbstractWindow2::windowFlags() const { return m_emitters.getWindowFlags(); }

void VXAbstractWindow2::setWindowState(VXFlags<WindowState> state)
{
    m_emitters.setWindowState(state);
}

VXFlags<WindowState> VXAbstractWindow2::windowState() const { return m_emitters.getWindowState(); }
void VXAbstractWindow2::showMinimized() { m_emitters.showMinimized(); }
void VXAbstractWindow2::showMaximized() { m_emitters.showMaximized(); }
void VXAbstractWindow2::showFullScreen() { m_emitters.showFullScreen(); }
void VXAbstractWindow2::showNormal() { m_emitters.showNormal(); }

bool VXAbstractWindow2::isMinimized() const
{
    return windowState().testFlag(WindowState::Minimized);
}

bool VXAbstractWindow2::isMaximized() const
{
    return windowState().testFlag(WindowState::Maximized);
}

bool VXAbstractWindow2::isFullScreen() const
{
    return windowState().testFlag(WindowState::FullScreen);
}

std::string VXAbstractWindow2::savePlacement() const { return m_emitters.saveWindowGeometry(); }

bool VXAbstractWindow2::restorePlacement(const std::string& placement)
{
    return m_emitters.restoreWindowGeometry(placement);
}

void VXAbstractWindow2::setModified(bool modified) { m_emitters.setModified(modified); }
bool VXAbstractWindow2::isModified() const { return m_emitters.isModified(); }
bool VXAbstractWindow2::close() { return m_emitters.close(); }
void VXAbstractWindow2::setOpacity(double opacity) { m_emitters.setOpacity(opacity); }
double VXAbstractWindow2::opacity() const { return m_emitters.getOpacity(); }
VXRect<int> VXAbstractWindow2::frameGeometry() const { return m_emitters.getFrameGeometry(); }
std::vector<Screen> VXAbstractWindow2::screens() const { return m_emitters.getScreens(); }
int VXAbstractWindow2::screen() const { return servingThread() ? m_emitters.getScreen() : -1; }
void VXAbstractWindow2::alert(int duration) { m_emitters.alert(duration); }

void VXAbstractWindow2::setCloseButtonVisible(bool visible)
{
    m_emitters.setCloseButtonVisible(visible);
}

bool VXAbstractWindow2::isCloseButtonVisible() const { return m_emitters.isCloseButtonVisible(); }

} // namespace VOXI
