#include "voxi2/kernel/vxactiongroup2.h"

#include "notnull.h"
#include "voxi2/kernel/vxhandle.h"

namespace VOXI {

VXActionGroup2::VXActionGroup2(VXObject2* parent) : VXObject2(parent) { finishBuilding(this); }

VXActionGroup2::~VXActionGroup2()
{
    VXObjectDataLocker lock;
    for (VXAction2* action : actions())
        release(action);
    retire();
}

void VXActionGroup2::setExclusion(ActionExclusion exclusion)
{
    VXObjectDataLocker lock;
    m_exclusion = exclusion;
    for (VXAction2* action : actions())
        action->m_emitters.setGroup(id(), exclusion);
}

ActionExclusion VXActionGroup2::exclusion() const
{
    VXObjectDataLocker lock;
    return m_exclusion;
}

void VXActionGroup2::addAction(VXAction2* action)
{
    VXObjectDataLocker lock;
    if (!isObjectValid(action) || action->m_group == id())
        return;
    if (VXActionGroup2* former = action->group())
        std::erase(former->m_actions, action->id());
    std::erase_if(m_actions, [](unsigned member) { return !isObjectValid(member); });
    m_actions.push_back(action->id());
    action->m_group = id();
    action->m_emitters.setGroup(id(), m_exclusion);
}

void VXActionGroup2::removeAction(VXAction2* action)
{
    VXObjectDataLocker lock;
    const bool isAlive = isObjectValid(notNull(this, action));
    if (isAlive && action->m_group != id())
        ignored(this, Reason::NotInThis);
    if (!isAlive || action->m_group != id())
        return;
    std::erase(m_actions, action->id());
    release(action);
}

std::vector<VXAction2*> VXActionGroup2::actions() const
{
    VXObjectDataLocker lock;
    std::vector<VXAction2*> result;
    for (const unsigned member : m_actions) {
        if (VXObject* object = objectById(member))
            result.push_back(static_cast<VXAction2*>(object));
    }
    return result;
}

VXAction2* VXActionGroup2::checkedAction() const
{
    // By handles: the lock is given up while an action is asked.
    std::vector<VXHandle<VXAction2>> handles;
    for (VXAction2* action : actions())
        handles.emplace_back(action);
    for (const VXHandle<VXAction2>& handle : handles) {
        if (handle->isChecked())
            return handle.get();
    }
    return nullptr;
}

void VXActionGroup2::setEnabled(bool enabled)
{
    VXObjectDataLocker lock;
    for (VXAction2* action : actions())
        action->setEnabled(enabled);
}

void VXActionGroup2::setVisible(bool visible)
{
    VXObjectDataLocker lock;
    for (VXAction2* action : actions())
        action->setVisible(visible);
}

void VXActionGroup2::release(VXAction2* action)
{
    action->m_group = 0;
    action->m_emitters.setGroup(0, ActionExclusion::None);
}

} // namespace VOXI
