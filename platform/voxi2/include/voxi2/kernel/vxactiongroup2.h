#pragma once

#include "voxi2/kernel/actionexclusion.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/voxi2_export.h"

#include <vector>

namespace VOXI {

/// Actions of which one is checked: alignments of a text, modes of a tool.
///
/// Whoever checks an action of the group unchecks the former one. When the user does it, both send
/// their event; when the program does it, neither. Actions are not owned by the group unless made
/// as its children, and leave it with their end.
class VOXI2_EXPORT VXActionGroup2 : public VXObject2
{
public:
    using ToolkitClass = VXActionGroup2;

    explicit VXActionGroup2(VXObject2* parent = nullptr);
    ~VXActionGroup2() override;

    /// Exclusive when it was not set. What is checked already stays so until the
    /// next choice, which unchecks all of it.
    void setExclusion(ActionExclusion exclusion);
    ActionExclusion exclusion() const;

    /// Puts an action into the group, at its end; it leaves the group that it was in. A checked one
    /// unchecks the one that is. Dead actions are ignored.
    void addAction(VXAction2* action);
    /// Actions that are not in the group are ignored.
    void removeAction(VXAction2* action);
    /// The live ones, in the order of adding.
    std::vector<VXAction2*> actions() const;

    /// The first action that is checked; null for none.
    VXAction2* checkedAction() const;

    /// Enables or disables all actions of the group.
    void setEnabled(bool enabled);
    /// Shows or hides all actions of the group.
    void setVisible(bool visible);

private:
    void release(VXAction2* action);

    // Guarded by the object lock.
    std::vector<unsigned> m_actions;
    ActionExclusion m_exclusion = ActionExclusion::Exclusive;
};

} // namespace VOXI
