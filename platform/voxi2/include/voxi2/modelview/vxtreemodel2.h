#pragma once

#include "voxi2/modelview/vxmemorymodel2.h"
#include "voxi2/voxi2_export.h"

#include <utility>
#include <vector>

namespace VOXI {

/// A tree in memory: rows below rows. Row 0 stands for the parent of rows without one.
///
///     auto* model = new VXTreeModel2({"Name"}, window);
///     const unsigned fruit = model->appendRow(0, {"Fruit"});
///     model->appendRow(fruit, {"Apple"});
class VOXI2_EXPORT VXTreeModel2 : public VXMemoryModel2
{
public:
    using ToolkitClass = VXTreeModel2;

    explicit VXTreeModel2(VXObject2* parent = nullptr);
    /// With a column for each header.
    explicit VXTreeModel2(std::vector<CellUIData> headers, VXObject2* parent = nullptr);
    ~VXTreeModel2() override;

    /// Cells for the columns in the order of their numbers. Returns the row's number; 0, and makes
    /// none, when there is no such parent.
    unsigned appendRow(unsigned parent, std::vector<CellUIData> cells = {})
    {
        return addRow(parent, 0, std::move(cells));
    }
    /// Before another child of the parent; at the end when there is no such child.
    unsigned insertRow(unsigned parent, unsigned before, std::vector<CellUIData> cells = {})
    {
        return addRow(parent, before, std::move(cells));
    }
    /// With what is below it; not to a place below itself.
    void moveRow(unsigned row, unsigned parent, unsigned before = 0)
    {
        VXMemoryModel2::moveRow(row, parent, before);
    }

    /// That a row has children which are added when it is expanded.
    void setHasChildren(unsigned row, bool has = true) { promiseChildren(row, has); }

    /// The children that are shown, in the order in which they are.
    std::vector<unsigned> childRows(unsigned parent) const { return shownRows(parent); }
    unsigned parentRow(unsigned row) const { return parentOf(row); }
};

} // namespace VOXI
