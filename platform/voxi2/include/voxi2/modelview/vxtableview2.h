#pragma once

#include "voxi2/modelview/vxabstractview2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXTableView2Emitters : TROV::EmittersTable<VXAbstractView2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(unsigned, int, bool)> setColumnWidth{*this};
    TROV::Request<int(unsigned, bool)> getColumnWidth{*this};
    TROV::Request<void(unsigned, int)> setRowHeight{*this};
    TROV::Request<int(unsigned)> getRowHeight{*this};
    TROV::Request<void(unsigned, ColumnResizeMode)> setColumnResizeMode{*this};
    TROV::Request<ColumnResizeMode(unsigned)> getColumnResizeMode{*this};
    TROV::Request<void(unsigned)> resizeColumnToContents{*this};
    TROV::Request<void()> resizeColumnsToContents{*this};
    TROV::Request<void(unsigned)> resizeRowToContents{*this};
    TROV::Request<void()> resizeRowsToContents{*this};
    TROV::Request<void(unsigned, bool)> setColumnVisible{*this};
    TROV::Request<bool(unsigned)> isColumnVisible{*this};
    TROV::Request<void(unsigned, bool)> setRowVisible{*this};
    TROV::Request<bool(unsigned)> isRowVisible{*this};
    TROV::Request<void(bool)> setColumnHeaderVisible{*this};
    TROV::Request<bool()> isColumnHeaderVisible{*this};
    TROV::Request<void(bool)> setRowHeaderVisible{*this};
    TROV::Request<bool()> isRowHeaderVisible{*this};
    TROV::Request<void(bool)> setColumnMovable{*this};
    TROV::Request<bool()> isColumnMovable{*this};
    TROV::Request<void(bool)> setRowMovable{*this};
    TROV::Request<bool()> isRowMovable{*this};
    TROV::Request<void(bool)> setGridVisible{*this};
    TROV::Request<bool()> isGridVisible{*this};
    TROV::Request<void(unsigned, unsigned, EditTrigger, MouseButton)> triggerEdit{*this};

    // How it looks
    TROV::Request<void(bool)> setAlternatingRowColors{*this};
    TROV::Request<bool()> hasAlternatingRowColors{*this};
    TROV::Request<void(bool)> setWordWrap{*this};
    TROV::Request<bool()> wordWrap{*this};
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

    /// In pixels.
    void setColumnWidth(unsigned column, int width);
    int columnWidth(unsigned column) const;
    /// In widths of the letter W; kept when the font changes.
    void setColumnWidthInCharacters(unsigned column, int characters);
    int columnWidthInCharacters(unsigned column) const;
    /// In pixels.
    void setRowHeight(unsigned row, int height);
    int rowHeight(unsigned row) const;
    void setColumnResizeMode(unsigned column, ColumnResizeMode mode);
    ColumnResizeMode columnResizeMode(unsigned column) const;

    /// By what is in sight or was not long ago.
    void resizeColumnToContents(unsigned column);
    void resizeColumnsToContents();
    void resizeRowToContents(unsigned row);
    void resizeRowsToContents();

    void setColumnVisible(unsigned column, bool visible);
    bool isColumnVisible(unsigned column) const;
    void setRowVisible(unsigned row, bool visible);
    bool isRowVisible(unsigned row) const;
    /// The header above the columns.
    void setColumnHeaderVisible(bool visible);
    bool isColumnHeaderVisible() const;
    /// The header beside the rows.
    void setRowHeaderVisible(bool visible);
    bool isRowHeaderVisible() const;
    /// Whether the user can drag columns, or rows, to other places; off by default.
    void setColumnMovable(bool movable);
    bool isColumnMovable() const;
    void setRowMovable(bool movable);
    bool isRowMovable() const;

    void setGridVisible(bool visible);
    bool isGridVisible() const;
    /// Whether every other row has another background; off by default.
    void setAlternatingRowColors(bool on);
    bool hasAlternatingRowColors() const;
    /// Whether long texts go on in a next line if the row has room for it; on by default.
    void setWordWrap(bool on);
    bool wordWrap() const;

    /// Edits as if the user had caused it so, a click with that button.
    void imitateEdit(unsigned row, unsigned column, EditTrigger trigger,
                     MouseButton button = MouseButton::Left);

private:
    VXTableView2Emitters m_emitters;
};

} // namespace VOXI
