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

private:
    VXGridLayout2Emitters m_emitters;
};

} // namespace VOXI
