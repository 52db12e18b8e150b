#pragma once

#include "voxi2/modelview/vxabstractview2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXTableView2Emitters : TROV::EmittersTable<VXAbstractView2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(unsigned, int, bool)> setColumnWidth{*this};
    TROV::Request<int(unsigned, bool)> getColumnWidth{*this};
    TROV::Request<void(unsigned, ColumnResizeMode)> setColumnResizeMode{*this};
    TROV::Request<ColumnResizeMode(unsigned)> getColumnResizeMode{*this};
    TROV::Request<void(unsigned)> resizeColumnToContents{*this};
    TROV::Request<void()> resizeColumnsToContents{*this};
    TROV::Request<void(unsigned)> resizeRowToContents{*this};
    TROV::Request<void()> resizeRowsToContents{*this};
    TROV::Request<void(bool)> setRowHeaderVisible{*this};
    TROV::Request<bool()> isRowHeaderVisible{*this};
    TROV::Request<void(bool)> setRowMovable{*this};
    TROV::Request<bool()> isRowMovable{*this};
    TROV::Request<void(bool)> setGridVisible{*this};
    TROV::Request<bool()> isGridVisible{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// Shows a model as a table, with headers above and beside it. It shows the rows without a parent.
///
///     auto* model = new VXTableModel2({"Name", "Size"}, window);
///     model->appendRow({"readme.txt", 1204});
///     auto* table = new VXTableView2(window);
///     table->setViewModel(model);
class VOXI2_EXPORT VXTableView2 : public VXAbstractView2
{
public:
    using ToolkitClass = VXTableView2;

    explicit VXTableView2(VXObject2* parent = nullptr);
    ~VXTableView2() override;

    /// In widths of the letter W; kept when the font changes.
    void setColumnWidthInCharacters(unsigned column, int characters);
    int columnWidthInCharacters(unsigned column) const;
    void setColumnResizeMode(unsigned column, ColumnResizeMode mode);
    ColumnResizeMode columnResizeMode(unsigned column) const;

    /// By what is in sight or was not long ago.
    void resizeColumnToContents(unsigned column);
    void resizeColumnsToContents();
    void resizeRowToContents(unsigned row);
    void resizeRowsToContents();

    /// The header beside the rows.
    void setRowHeaderVisible(bool visible);
    bool isRowHeaderVisible() const;
    /// Whether the user can drag rows to other places; off by default.
    void setRowMovable(bool movable);
    bool isRowMovable() const;

    void setGridVisible(bool visible);
    bool isGridVisible() const;

private:
    VXTableView2Emitters m_emitters;
};

} // namespace VOXI
