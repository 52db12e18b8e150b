#pragma once

#include "voxi2/modelview/vxabstractview2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXTreeView2Emitters : TROV::EmittersTable<VXAbstractView2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(unsigned, bool)> setRowExpanded{*this};
    TROV::Request<bool(unsigned)> isRowExpanded{*this};
    TROV::Request<void(unsigned)> expand{*this};
    TROV::Request<void(unsigned)> collapse{*this};
    TROV::Request<void()> expandAll{*this};
    TROV::Request<void()> collapseAll{*this};
    TROV::Request<void(bool)> setRootIsDecorated{*this};
    TROV::Request<void(bool)> setUniformRowHeights{*this};
    TROV::Request<bool()> rootIsDecorated{*this};
    TROV::Request<bool()> hasUniformRowHeights{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXTreeExpandEvent2&)> expanded{*this};
    TROV::Event<void(const VXTreeCollapseEvent2&)> collapsed{*this};
};

/// Shows a model as a tree: the rows of which the model says that they have children can be
/// expanded.
///
/// Children need not be there before that: a model that knows only that there are some says so in
/// its answers, or by `SizeChange2::hasChildren`, and a handler of `expanded()` has it append them.
class VOXI2_EXPORT VXTreeView2 : public VXAbstractView2
{
public:
    using ToolkitClass = VXTreeView2;

    explicit VXTreeView2(VXObject2* parent = nullptr);
    ~VXTreeView2() override;

    void setRowExpanded(unsigned row, bool expanded);
    bool isRowExpanded(unsigned row) const;
    /// All rows that are there, without a report.
    void expandAll();
    void collapseAll();

    /// Whether rows without a parent show that they can be expanded; on by default.
    void setRootIsDecorated(bool on);
    bool rootIsDecorated() const;
    /// That all rows are as high as the first; large trees then open faster. Off by default.
    void setUniformRowHeights(bool on);
    bool hasUniformRowHeights() const;

    // As if the user had done it: with events.
    void imitateExpand(unsigned row);
    void imitateCollapse(unsigned row);

    // Events

    /// The user expanded a row; not sent for `setRowExpanded`.
    TROV::Signal<void(const VXTreeExpandEvent2&)> expanded() const
    {
        return m_emitters.expanded.signal();
    }
    TROV::Signal<void(const VXTreeCollapseEvent2&)> collapsed() const
    {
        return m_emitters.collapsed.signal();
    }

private:
    VXTreeView2Emitters m_emitters;
};

} // namespace VOXI
