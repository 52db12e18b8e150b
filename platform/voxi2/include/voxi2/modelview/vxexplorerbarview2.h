#pragma once

#include "voxi2/modelview/vxabstractgroupview2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXExplorerBarView2Emitters : TROV::EmittersTable<VXAbstractGroupView2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::RequestsEnd requestsEnd{*this};
};

/// A bar at the side of a program that offers its tasks: the rows in the groups look and act as
/// links.
///
///     auto* tasks = new VXTreeModel2({"Task"}, window);
///     const unsigned files = tasks->appendRow(0, {"File tasks"});
///     const unsigned copy = tasks->appendRow(files, {CellUIData("Copy").setIcon(copyIcon)});
///     auto* bar = new VXExplorerBarView2(window);
///     bar->setViewModel(tasks);
///     bar->activated().connect(this, [=](const VXGroupViewActivateEvent2& event) {
///         if (event.row() == copy)
///             ...
///     });
///
/// A click on a header folds or unfolds its group, where the style animates sliding; a click on a
/// task activates it. By keyboard: the arrows, Home, End and the page keys go from row to row, Left
/// and Right fold and unfold, Enter and Space do what a click does, letters go to the next row that
/// begins with them. A task that is not enabled cannot be activated.
class VOXI2_EXPORT VXExplorerBarView2 : public VXAbstractGroupView2
{
public:
    using ToolkitClass = VXExplorerBarView2;

    explicit VXExplorerBarView2(VXObject2* parent = nullptr);
    ~VXExplorerBarView2() override;

private:
    VXExplorerBarView2Emitters m_emitters;
};

} // namespace VOXI
