#pragma once

#include "voxi2/kernel/ignored.h"
#include "voxi2/modelview/celluidata.h"
#include "voxi2/modelview/sortorder.h"
#include "voxi2/modelview/vxabstractviewmodel2.h"
#include "voxi2/voxi2_export.h"

#include <compare>
#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace VOXI {

/// What the models have in common that keep their cells in memory: columns, cells, sorting and
/// filtering.
///
/// Rows and columns are numbered as they are made, from 1. Numbers that are not there are ignored,
/// and a getter gives an empty cell. Every function may be called from any thread.
///
/// Sorting and filtering change what views show, not what the model holds. They stay in force: a
/// row that is added or changed goes where it belongs.
class VOXI2_EXPORT VXMemoryModel2 : public VXAbstractViewModel2
{
public:
    ~VXMemoryModel2() override;

    /// Returns the column's number.
    unsigned appendColumn(CellUIData header) { return insertColumn(0, std::move(header)); }
    /// Before another one; at the end when there is no such column.
    unsigned insertColumn(unsigned before, CellUIData header);
    void removeColumn(unsigned column);
    void setColumnHeader(unsigned column, CellUIData header);
    /// In their order.
    std::vector<unsigned> columns() const;

    void setCell(unsigned row, unsigned column, CellUIData cell);
    /// Leaves the look of the cell as it is.
    void setValue(unsigned row, unsigned column, CellValue value);
    CellUIData cell(unsigned row, unsigned column) const;
    CellValue value(unsigned row, unsigned column) const { return cell(row, column).value(); }

    bool hasRow(unsigned row) const;
    /// How many rows there are, shown or not.
    std::size_t rowCount() const;
    /// With what is below it.
    void removeRow(unsigned row);
    /// Removes all rows.
    void clear();

    /// Sorts by a column; by none with 0, as at first. Rows that are alike stand as they were made.
    void setSorting(unsigned column, SortOrder order = SortOrder::Ascending);
    SortIndicator sorting() const;
    /// How cells are compared instead of by `CellValue::compare`, which is used again with none.
    /// Called under the object lock, by whoever changes the model; it must not ask widgets, which
    /// may wait for another thread.
    using Comparison = std::function<std::weak_ordering(const CellUIData&, const CellUIData&)>;
    void setComparison(Comparison comparison);

    /// Shows only rows for which the function gives true, and those above them; all with none. It
    /// is called under the object lock, by whoever changes the model, and again for a row when one
    /// of its cells changes or its column goes. It may ask widgets: what others change while it
    /// waits is looked at again.
    using Filter = std::function<bool(unsigned row)>;
    void setFilter(Filter filter);
    /// Shows only rows with a cell in which the text occurs, in capitals or not.
    void setFilterText(const AnyText& text);

protected:
    explicit VXMemoryModel2(VXObject2* parent, std::vector<CellUIData> headers);

    /// 0 when there is no such parent; at the end when `before` is none of its children.
    unsigned addRow(unsigned parent, unsigned before, std::vector<CellUIData> cells);
    void moveRow(unsigned row, unsigned parent, unsigned before);
    /// As they are shown.
    std::vector<unsigned> shownRows(unsigned parent) const;
    unsigned parentOf(unsigned row) const;
    void promiseChildren(unsigned row, bool has);

    void query(const ViewQuery2& query) override;
    void queryHeader(const HeaderQuery2& query) override;
    std::vector<SizeChange2> shape() const override;

private:
    bool check(bool isThere, const char* why, CallPlace where = CallPlace::current()) const;

    class Data;
    std::unique_ptr<Data> m_data; // guarded by the object lock
};

} // namespace VOXI
