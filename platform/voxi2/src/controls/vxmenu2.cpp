#include "voxi2/controls/vxmenu2.h"

#include "../kernel/notnull.h"
#include "voxi2/kernel/vxaction2.h"

namespace VOXI {

VXMenu2::VXMenu2(VXObject2* parent) : VXWidget2(parent), m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createMenu2, this, &m_emitters, parent);
}

VXMenu2::~VXMenu2() { retire(); }

// Content -----------------------------------------------------------------------------------------

void VXMenu2::addAction(VXAction2* action) { m_emitters.addMenuItem(notNull(this, action)); }

VXAction2* VXMenu2::addAction(const AnyText& label)
{
    VXObjectDataLocker lock;
    // What a handle of a dead menu stands for owns nothing.
    const unsigned self = id();
    if (self == 0)
        return nullptr;
    auto* action = new VXAction2(this);
    // Waiting for its peer gives the lock up.
    if (!isObjectValid(self)) {
        action->destroy();
        return nullptr;
    }
    action->setLabel(label);
    addAction(action);
    return action;
}

void VXMenu2::addMenu(const AnyText& title, VXMenu2* menu)
{
    title.passTo(m_emitters.addSubMenu, m_emitters.addSubMenuU, notNull(this, menu));
}

void VXMenu2::addSeparator() { m_emitters.addSeparator(); }
void VXMenu2::removeAction(VXAction2* action) { m_emitters.removeMenuItem(action); }
void VXMenu2::removeMenu(VXMenu2* menu) { m_emitters.removeSubMenu(menu); }
void VXMenu2::clear() { m_emitters.clear(); }

void VXMenu2::destroyItems()
{
    clear();
    VXObjectDataLocker lock;
    for (VXObject2* child : children()) {
        // A handler of `destroyed()` may have ended others of them.
        if (isObjectValid(child)
            && (dynamic_cast<VXAction2*>(child) || dynamic_cast<VXMenu2*>(child)))
            child->destroy();
    }
}

int VXMenu2::count() const { return m_emitters.count(); }
std::wstring VXMenu2::titleU() const { return m_emitters.getTitleU(); }
void VXMenu2::setActionEnabled(bool enabled) { m_emitters.setActionEnabled(enabled); }
bool VXMenu2::isActionEnabled() const { return m_emitters.isActionEnabled(); }

// Opening -----------------------------------------------------------------------------------------

void VXMenu2::popup(double x, double y) { m_emitters.popup(x, y); }

void VXMenu2::popup(const VXPoint<int>& globalPosition)
{
    m_emitters.popup(globalPosition.x, globalPosition.y);
}

void VXMenu2::setContextMenuOf(VXWidget2* widget)
{
    VXObjectDataLocker lock;
    if (!isObjectValid(widget) || !widget->servingThread()) {
        ignored(this, "that is no widget that is shown by a back end");
        return;
    }
    std::erase_if(m_contextMenus, [](const auto& entry) { return !isObjectValid(entry.first); });
    TROV::ConnectionHandle& connection = m_contextMenus[widget->id()];
    connection.disconnect();
    // On the widget's thread, wherever this is called: the thread that calls need not run a loop.
    connection = widget->contextMenuRequested().connect(
        this, [this](const VXContextMenuEvent2& event) { popup(event.globalPosition()); },
        widget->servingThread());
    widget->setEventConsumed(WidgetEvent::ContextMenu, true);
}

void VXMenu2::unsetContextMenuOf(VXWidget2* widget)
{
    VXObjectDataLocker lock;
    if (!isObjectValid(widget))
        return;
    const auto found = m_contextMenus.find(widget->id());
    if (found == m_contextMenus.end())
        return;
    found->second.disconnect();
    m_contextMenus.erase(found);
    widget->setEventConsumed(WidgetEvent::ContextMenu, false);
}

// Filling on demand -------------------------------------------------------------------------------

void VXMenu2::setDigMenu(bool dig) { m_emitters.setIsDigMenu(dig); }
bool VXMenu2::isDigMenu() const { return m_emitters.isDigMenu(); }
void VXMenu2::digComplete(VXMenu2* parent) { m_emitters.digAccessComplete(parent); }
void VXMenu2::digFailed() { m_emitters.digAccessFailed(); }

} // namespace VOXI
