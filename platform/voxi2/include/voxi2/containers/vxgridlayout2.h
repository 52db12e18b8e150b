#pragma once

#include "voxi2/containers/vxlayout2.h"
#include "voxi2/voxi2_export.h"

#include <vector>

namespace VOXI {

struct VXGridLayout2Emitters : TROV::EmittersTable<VXLayout2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXObject*, VXRect<int>, Alignment)> gridAddWidget{*this};
    TROV::Request<void(VXRect<int>, Size<int>)> gridAddSpacer{*this};
    TROV::Request<void(int, int)> setRowStretch{*this};
    TROV::Request<void(int, int)> setColStretch{*this};
    TROV::Request<void(std::vector<int>, std::vector<int>)> setStretchFactors{*this};
    TROV::Request<int(int)> getRowStretch{*this};
    TROV::Request<int(int)> getColStretch{*this};
    TROV::Request<void(int, int)> setRowMinimum{*this};
    TROV::Request<void(int, int)> setColMinimum{*this};
    TROV::Request<int(int)> getRowMinimum{*this};
    TROV::Request<int(int)> getColMinimum{*this};
    TROV::Request<void(int)> setHorizontalSpacing{*this};
    TROV::Request<void(int)> setVerticalSpacing{*this};
    TROV::Request<int()> getHorizontalSpacing{*this};
    TROV::Request<int()> getVerticalSpacing{*this};
    TROV::Request<void(VXObject*, VXRect<int>)> setCell{*this};
    TROV::Request<VXRect<int>(VXObject*)> getCell{*this};
    TROV::Request<int()> getRowCount{*this};
    TROV::Request<int()> getColCount{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// Places widgets in rows and columns, which are counted from 0 and come into being as they are
/// named.
///
/// A cell is made by `VXRect<int>::cell(row, column, rowSpan, columnSpan)`; a span of -1 goes to
/// the last row or column. Cells whose row or column is negative or beyond a million are ignored,
/// and so are those with which the grid would have more than ten million.
class VOXI2_EXPORT VXGridLayout2 : public VXLayout2
{
public:
    using ToolkitClass = VXGridLayout2;

    /// Lays out the inside of `parent`, if it is a widget without a layout.
    explicit VXGridLayout2(VXObject2* parent = nullptr);
    ~VXGridLayout2() override;

    /// Without a cell the widget takes the place behind the last one, row by row.
    using VXLayout2::addWidget;
    /// Puts the widget into the cell; `alignment` empty: it fills it.
    void addWidget(VXObject* widget, const VXRect<int>& cell, Alignment alignment = Alignment());
    /// The same with a cell of one row and one column.
    void addWidget(VXObject* widget, int row, int column, Alignment alignment = Alignment());

    using VXLayout2::addSpacer;
    /// Keeps room of at least that size in the cell.
    void addSpacer(const VXRect<int>& cell, const Size<int>& size);

    /// Room to spare goes to rows and columns in proportion to their stretch, 0 as a rule.
    void setRowStretch(int row, int stretch);
    int rowStretch(int row) const;
    void setColStretch(int column, int stretch);
    int colStretch(int column) const;
    /// Sets the stretches of the first rows and columns; the others keep theirs.
    void setStretchFactors(const std::vector<int>& rows, const std::vector<int>& columns);

    /// The least height of a row, the least width of a column, in pixels; 0 as a rule.
    void setRowMinimum(int row, int height);
    int rowMinimum(int row) const;
    void setColMinimum(int column, int width);
    int colMinimum(int column) const;

    /// Between columns, and between rows; `setSpacing` sets both, and `spacing` answers -1 where
    /// they differ. -1 lets the style decide, and what that has decided is answered.
    void setHorizontalSpacing(int spacing);
    int horizontalSpacing() const;
    void setVerticalSpacing(int spacing);
    int verticalSpacing() const;

    /// Moves a widget of the grid to another cell; others are ignored.
    void setCell(VXObject* widget, const VXRect<int>& cell);
    /// Where a widget lies: row, column and spans as in `addWidget`; an empty rectangle when it is
    /// not in the grid.
    VXRect<int> cell(VXObject* widget) const;
    /// The rows and columns that have been named, and one of each at least.
    int rowCount() const;
    int colCount() const;

private:
    VXGridLayout2Emitters m_emitters;
};

} // namespace VOXI
