#pragma once

#include "voxi2/modelview/vxmemorymodel2.h"
#include "voxi2/voxi2_export.h"

#include <utility>
#include <vector>

namespace VOXI {

/// A table in memory.
///
///     auto* model = new VXTableModel2({"Name", "Size"}, window); // columns 1 and 2
///     const unsigned row = model->appendRow({"readme.txt", 1204});
///     model->setValue(row, 2, 1205);
///     model->setSorting(2, SortOrder::Descending);
///     (new VXTableView2(window))->setViewModel(model);
class VOXI2_EXPORT VXTableModel2 : public VXMemoryModel2
{
public:
    using ToolkitClass = VXTableModel2;

    explicit VXTableModel2(VXObject2* parent = nullptr);
    /// With a column for each header.
    explicit VXTableModel2(std::vector<CellUIData> headers, VXObject2* parent = nullptr);
    ~VXTableModel2() override;

    /// Cells for the columns in the order of their numbers. Returns the row's number.
    unsigned appendRow(std::vector<CellUIData> cells = {})
    {
        return addRow(0, 0, std::move(cells));
    }
    /// Before another row; at the end when there is no such row.
    unsigned insertRow(unsigned before, std::vector<CellUIData> cells = {})
    {
        return addRow(0, before, std::move(cells));
    }
    void moveRow(unsigned row, unsigned before) { VXMemoryModel2::moveRow(row, 0, before); }

    /// The rows that are shown, in the order in which they are.
    std::vector<unsigned> rows() const { return shownRows(0); }
};

} // namespace VOXI
