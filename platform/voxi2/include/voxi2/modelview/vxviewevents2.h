#pragma once

#include "voxi2/kernel/events.h"
#include "voxi2/kernel/mouse.h"
#include "voxi2/kernel/vxevent2.h"
#include "voxi2/modelview/modelcell2.h"
#include "voxi2/modelview/sortorder.h"
#include "voxi2/voxi2_export.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace VOXI {

class VXAbstractView2;
class VXTreeView2;
class VXWidget2;

/// Something about one cell of a view.
class VXViewCellEvent2 : public VXEvent2<VXAbstractView2, unsigned, unsigned>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractView2* view() const noexcept { return sender(); }
    unsigned row() const noexcept { return value<0>(); }
    unsigned column() const noexcept { return value<1>(); }
};

/// A cell became the current one, or the user wants to edit it, depending on whose event it is.
class VXEditRequestEvent2 : public VXViewCellEvent2
{
public:
    using VXViewCellEvent2::VXViewCellEvent2;
};

/// The editing of a cell has ended.
class VXEditCompleteEvent2 : public VXViewCellEvent2
{
public:
    VXEditCompleteEvent2(VXAbstractView2* view, unsigned row, unsigned column, VXWidget2* editor,
                         bool isCommitted) noexcept
        : VXViewCellEvent2(view, row, column),
          m_editor(editor),
          m_isCommitted(isCommitted)
    {}

    /// What the cell was edited with. It is hidden and alone by now, and whose it was it still is.
    VXWidget2* editor() const noexcept { return m_editor; }
    /// Whether the user means what he has entered.
    bool isCommitted() const noexcept { return m_isCommitted; }

private:
    VXWidget2* m_editor;
    bool m_isCommitted;
};

/// The user selected other cells.
///
/// Of a million rows nobody wants a list of their cells: the event has blocks, and lists what is
/// asked for.
class VOXI2_EXPORT VXViewSelectionChangeEvent2
    : public VXEvent2<VXAbstractView2, VXAbstractViewModel2*,
                      std::shared_ptr<const std::vector<ModelBlock>>>
{
public:
    VXViewSelectionChangeEvent2(VXAbstractView2* view, VXAbstractViewModel2* model,
                                std::vector<ModelBlock> blocks)
        : VXEvent2(view, model, std::make_shared<const std::vector<ModelBlock>>(std::move(blocks)))
    {}

    VXAbstractView2* view() const noexcept { return sender(); }
    /// All that is selected now; no cell is in two of them.
    const std::vector<ModelBlock>& blocks() const noexcept { return *value<1>(); }
    bool isEmpty() const noexcept { return numberOfCells() == 0; }
    std::size_t numberOfCells() const noexcept;
    /// The rows that have selected cells, each once, in the order of the blocks.
    std::vector<unsigned> rows() const;
    std::vector<ModelCell2> cells() const;
};

/// The user clicked a section of a view's header.
class VXHeaderClickEvent2 : public VXEvent2<VXAbstractView2, unsigned, SortOrder, MouseButton>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractView2* view() const noexcept { return sender(); }
    unsigned column() const noexcept { return value<0>(); }
    /// How to sort by the column then: the other way round if the indicator shows it already.
    SortOrder order() const noexcept { return value<1>(); }
    MouseButton button() const noexcept { return value<2>(); }
};

/// The user made a column wider or narrower.
class VXColumnResizeEvent2 : public VXEvent2<VXAbstractView2, unsigned, int>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractView2* view() const noexcept { return sender(); }
    unsigned column() const noexcept { return value<0>(); }
    /// In pixels.
    int width() const noexcept { return value<1>(); }
};

/// The user dragged a column to another place.
class VXColumnMoveEvent2 : public VXEvent2<VXAbstractView2, unsigned, int, int>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractView2* view() const noexcept { return sender(); }
    unsigned column() const noexcept { return value<0>(); }
    /// Its place before, and the one it has now, counted from 0.
    int from() const noexcept { return value<1>(); }
    int to() const noexcept { return value<2>(); }
};

/// Other cells of a view are in sight than before.
class VXViewScrollEvent2 : public VXEvent2<VXAbstractView2>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractView2* view() const noexcept { return sender(); }
};

/// The user asks for the context menu of a cell, or of the room beside the cells.
class VXCellContextMenuEvent2 : public VXEvent2<VXAbstractView2, ModelCell2, VXContextMenuEvent2>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractView2* view() const noexcept { return sender(); }
    /// The one under the pointer; by keyboard the current one. Null where there is none.
    const ModelCell2& cell() const noexcept { return value<0>(); }
    /// Where, and what the user asks with.
    const VXContextMenuEvent2& menu() const noexcept { return value<1>(); }
};

/// The user opened or closed a row of a tree.
class VXTreeRowEvent2 : public VXEvent2<VXTreeView2, unsigned>
{
public:
    using VXEvent2::VXEvent2;
    VXTreeView2* view() const noexcept { return sender(); }
    unsigned row() const noexcept { return value(); }
};

/// A row shows its children from now on.
class VXTreeExpandEvent2 : public VXTreeRowEvent2
{
public:
    using VXTreeRowEvent2::VXTreeRowEvent2;
};

/// A row hides its children from now on.
class VXTreeCollapseEvent2 : public VXTreeRowEvent2
{
public:
    using VXTreeRowEvent2::VXTreeRowEvent2;
};

} // namespace VOXI
