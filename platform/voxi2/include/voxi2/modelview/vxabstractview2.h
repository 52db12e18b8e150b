#pragma once

#include "voxi2/kernel/itemview.h"
#include "voxi2/kernel/mouse.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/modelview/cellinfo.h"
#include "voxi2/modelview/modelcell2.h"
#include "voxi2/modelview/shownmodel.h"
#include "voxi2/modelview/sortorder.h"
#include "voxi2/modelview/vxabstractviewmodel2.h"
#include "voxi2/modelview/vxviewevents2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/geometry.h"

#include <string>
#include <vector>

namespace VOXI {

struct VXAbstractView2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXAbstractViewModel2*)> setViewModel{*this};
    TROV::Request<VXAbstractViewModel2*()> getViewModel{*this};
    TROV::Request<void(SelectionMode)> setSelectionMode{*this};
    TROV::Request<SelectionMode()> getSelectionMode{*this};
    TROV::Request<void(SelectionBehavior)> setSelectionBehavior{*this};
    TROV::Request<SelectionBehavior()> getSelectionBehavior{*this};
    TROV::Request<void(VXFlags<EditTrigger>)> setEditTriggers{*this};
    TROV::Request<VXFlags<EditTrigger>()> getEditTriggers{*this};
    TROV::Request<void(ModelCell2)> setActiveCell{*this};
    TROV::Request<void(ModelCell2)> setActiveCellAsUser{*this};
    TROV::Request<ModelCell2()> getActiveCell{*this};
    TROV::Request<void(ModelRange)> setSelection{*this};
    TROV::Request<void(ModelRange)> setSelectionAsUser{*this};
    TROV::Request<std::vector<ModelCell2>()> getSelection{*this};
    TROV::Request<void(std::vector<unsigned>)> selectRows{*this};
    TROV::Request<void(std::vector<unsigned>)> selectColumns{*this};
    TROV::Request<void()> selectAll{*this};
    TROV::Request<void()> clearSelection{*this};
    TROV::Request<bool(unsigned, unsigned)> isSelected{*this};
    TROV::Request<void(ModelCell2)> scrollTo{*this};
    TROV::Request<ModelCell2(int, int)> getModelCellAt{*this};
    TROV::Request<ModelCell2(VXPoint<int>)> getCellAtPosition{*this};
    TROV::Request<VXRect<int>(unsigned, unsigned)> getModelCellRect{*this};
    TROV::Request<VXRect<int>(unsigned, unsigned)> getCellRect{*this};
    TROV::Request<bool(unsigned, unsigned)> isCellVisible{*this};
    TROV::Request<bool()> isHScrollbarVisible{*this};
    TROV::Request<bool()> isVScrollbarVisible{*this};
    TROV::Request<void(unsigned, unsigned, VXWidget2*)> setEditor{*this};
    TROV::Request<VXWidget2*(unsigned, unsigned)> getEditor{*this};
    TROV::Request<CellInfo(unsigned, unsigned)> getCellInfo{*this};

    // Rows and columns
    TROV::Request<void(unsigned, int)> setColumnWidth{*this};
    TROV::Request<int(unsigned)> columnWidth{*this};
    TROV::Request<void(unsigned, int)> setRowHeight{*this};
    TROV::Request<int(unsigned)> rowHeight{*this};
    TROV::Request<void(unsigned, bool)> setColumnVisible{*this};
    TROV::Request<bool(unsigned)> isColumnVisible{*this};
    TROV::Request<void(unsigned, bool)> setRowVisible{*this};
    TROV::Request<bool(unsigned)> isRowVisible{*this};
    TROV::Request<void(bool)> setColumnHeaderVisible{*this};
    TROV::Request<bool()> isColumnHeaderVisible{*this};
    TROV::Request<void(bool)> setColumnMovable{*this};
    TROV::Request<bool()> isColumnMovable{*this};
    TROV::Request<void(bool)> setAlternatingRowColors{*this};
    TROV::Request<bool()> hasAlternatingRowColors{*this};
    TROV::Request<void(bool)> setWordWrap{*this};
    TROV::Request<bool()> wordWrap{*this};
    TROV::Request<void(unsigned, unsigned, EditTrigger, MouseButton)> triggerEdit{*this};

    // Beyond cells
    TROV::Request<std::vector<unsigned>()> getSelectedRows{*this};
    TROV::Request<std::wstring()> getSelectionAsText{*this};
    TROV::Request<std::wstring()> getSelectionAsHtml{*this};
    TROV::Request<void()> copySelection{*this};
    TROV::Request<void(SortIndicator)> setSortIndicator{*this};
    TROV::Request<SortIndicator()> getSortIndicator{*this};
    TROV::Request<void(bool)> setHeaderClickable{*this};
    TROV::Request<bool()> isHeaderClickable{*this};
    TROV::Request<void(std::vector<unsigned>)> setColumnOrder{*this};
    TROV::Request<std::vector<unsigned>()> getColumnOrder{*this};
    TROV::Request<std::string()> saveHeaderState{*this};
    TROV::Request<void(std::string)> restoreHeaderState{*this};
    TROV::Request<void(int)> setCacheLimit{*this};
    TROV::Request<int()> getCacheLimit{*this};
    TROV::Request<VXRect<int>(unsigned)> getColumnHeaderRect{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXEditRequestEvent2&)> activeCellChanged{*this};
    TROV::Event<void(const VXViewSelectionChangeEvent2&)> selectionChanged{*this};
    TROV::Event<void(const VXEditRequestEvent2&)> editRequested{*this};
    TROV::Event<void(const VXEditCompleteEvent2&)> editCompleted{*this};
    TROV::Event<void(const VXViewCellEvent2&)> cellActivated{*this};
    TROV::Event<void(const VXCellContextMenuEvent2&)> cellContextMenu{*this};
    TROV::Event<void(const VXHeaderClickEvent2&)> headerClicked{*this};
    TROV::Event<void(const VXColumnResizeEvent2&)> columnResized{*this};
    TROV::Event<void(const VXColumnMoveEvent2&)> columnMoved{*this};
    TROV::Event<void(const VXViewScrollEvent2&)> scrolled{*this};
};

/// What shows the rows and columns of a model, which it does not own.
///
/// Cells are named by the model's numbers for row and column: what is selected, the current cell,
/// the sizes and what is in sight stay with them whatever comes, goes or moves around. Numbers that
/// the model does not know are ignored. A cell without a model is one of the view's.
class VOXI2_EXPORT VXAbstractView2 : public VXWidget2
{
public:
    ~VXAbstractView2() override;

    /// Null for none, as at first. A model may be shown by several views.
    ///
    /// Columns of another model are others, whatever their numbers: widths, order, hidden columns
    /// and the sort indicator are forgotten. A text of `saveHeaderState` from before brings them
    /// back where columns have the same numbers.
    void setViewModel(VXAbstractViewModel2* model);
    /// Null also when the model has been destroyed.
    VXAbstractViewModel2* viewModel() const;

    void setSelectionMode(SelectionMode mode);
    SelectionMode selectionMode() const;
    /// Whether cells, rows or columns are selected together.
    void setSelectionBehavior(SelectionBehavior behavior);
    SelectionBehavior selectionBehavior() const;

    /// Makes the cell the current one, without a change to what is selected.
    void setActiveCell(ModelCell2 cell);
    /// A null one when there is none.
    ModelCell2 activeCell() const;
    /// Adds the range to what is selected: its rows or columns where these are selected together.
    void setSelection(ModelRange range);
    /// Every selected cell: of a large selection better the rows.
    std::vector<ModelCell2> selection() const;
    /// The rows that have selected cells, from the top.
    std::vector<unsigned> selectedRows() const;
    /// Adds whole rows, or columns, to what is selected.
    void selectRows(const std::vector<unsigned>& rows);
    void selectColumns(const std::vector<unsigned>& columns);
    void selectAll();
    void clearSelection();
    bool isSelected(unsigned row, unsigned column) const;

    /// Scrolls so that the cell is in sight.
    void scrollTo(ModelCell2 cell);
    /// The cell at a point of the view's area of cells; a null one where there is none.
    ModelCell2 cellAt(int x, int y) const;
    /// The same at a point of the widget, such as events of the pointer and of drags have.
    ModelCell2 cellAt(VXPoint<int> position) const;
    /// Where the cell is in the area of cells; empty when it is not shown.
    VXRect<int> cellRect(unsigned row, unsigned column) const;
    /// Whether at least a part of the cell is in sight.
    bool isCellVisible(unsigned row, unsigned column) const;
    bool isHScrollbarVisible() const;
    bool isVScrollbarVisible() const;

    /// What makes the view ask for an editor, of cells that are enabled and not read-only.
    void setEditTriggers(VXFlags<EditTrigger> triggers);
    VXFlags<EditTrigger> editTriggers() const;
    /// Has the cell edited with a widget, as an answer to `editRequested`; what the user has typed
    /// and clicked meanwhile reaches it. Null ends the editing, or says that there will be none:
    /// before that the view does not ask for the same cell again. The view does not own it.
    void setEditor(unsigned row, unsigned column, VXWidget2* editor);
    /// The widget that stands in the cell; null for none.
    VXWidget2* editor(unsigned row, unsigned column) const;

    /// What is selected as text, cells separated by tabs and rows by line ends; a row that is
    /// selected in part has empty cells where others have some. Cells that the view does not know,
    /// since they were not in sight, are empty.
    std::wstring selectionAsText() const;
    /// The same as a table.
    std::wstring selectionAsHtml() const;
    /// Puts both into the clipboard, as the platform's key for copying does. Cells that the view
    /// does not know are fetched first, up to 20 000 of them.
    void copySelection();

    /// In pixels.
    void setColumnWidth(unsigned column, int width);
    /// 0 for a column that is hidden.
    int columnWidth(unsigned column) const;
    /// In pixels.
    void setRowHeight(unsigned row, int height);
    int rowHeight(unsigned row) const;
    void setColumnVisible(unsigned column, bool visible);
    bool isColumnVisible(unsigned column) const;
    void setRowVisible(unsigned row, bool visible);
    bool isRowVisible(unsigned row) const;

    /// The header above the columns.
    void setColumnHeaderVisible(bool visible);
    bool isColumnHeaderVisible() const;
    /// Whether the user can drag columns to other places; off by default.
    void setColumnMovable(bool movable);
    bool isColumnMovable() const;

    /// Whether every other row has another background; off by default.
    void setAlternatingRowColors(bool on);
    bool hasAlternatingRowColors() const;
    /// Whether long texts go on in a next line if the row has room for it; by default in tables.
    void setWordWrap(bool on);
    bool wordWrap() const;

    /// The arrow in the header; the view does not sort. Column 0 takes it away.
    void setSortIndicator(unsigned column, SortOrder order = SortOrder::Ascending);
    SortIndicator sortIndicator() const;
    /// Whether sections of the header look and act as if they can be clicked; off by default.
    void setHeaderClickable(bool clickable);
    bool isHeaderClickable() const;

    /// Puts these columns first, in this order.
    void setColumnOrder(const std::vector<unsigned>& columns);
    /// The columns as they stand in the view, hidden ones as well.
    std::vector<unsigned> columnOrder() const;
    /// Widths, order, hidden columns and the sort indicator, as a text to be kept.
    std::string saveHeaderState() const;
    /// Does nothing with a text that is not whole, and passes over columns that are not there.
    void restoreHeaderState(const std::string& state);

    /// Where the section of a column is in the widget, which may be out of sight; empty for a
    /// column that is hidden or not there. With `scrolled`, `columnResized` and `columnMoved` for
    /// what is to stand over the columns.
    VXRect<int> columnHeaderRect(unsigned column) const;

    /// How many cells the view remembers, about; what is in sight always is.
    void setCacheLimit(int cells);
    int cacheLimit() const;

    // As if the user had done it: with events.
    void imitateSetActiveCell(ModelCell2 cell);
    void imitateSetSelection(ModelRange range);
    /// Edits a cell as if the user had caused it so, a click with that button.
    void imitateEdit(unsigned row, unsigned column, EditTrigger trigger,
                     MouseButton button = MouseButton::Left);
    /// A cell as it is drawn.
    CellInfo cellInfo(unsigned row, unsigned column) const;

    // Events

    /// The user made another cell the current one, or it became that because the current one was
    /// removed; not sent for `setActiveCell`.
    TROV::Signal<void(const VXEditRequestEvent2&)> activeCellChanged() const
    {
        return m_emitters.activeCellChanged.signal();
    }
    /// The user selected or deselected cells; not sent for what the program or the model does.
    TROV::Signal<void(const VXViewSelectionChangeEvent2&)> selectionChanged() const
    {
        return m_emitters.selectionChanged.signal();
    }
    /// The user wants to edit a cell: answer with `setEditor`, now or later, or not at all.
    TROV::Signal<void(const VXEditRequestEvent2&)> editRequested() const
    {
        return m_emitters.editRequested.signal();
    }
    /// The editor has left its cell. The view has changed nothing: that is up to the model.
    TROV::Signal<void(const VXEditCompleteEvent2&)> editCompleted() const
    {
        return m_emitters.editCompleted.signal();
    }
    /// The user double-clicked a cell or pressed Enter on it, as the platform has it.
    TROV::Signal<void(const VXViewCellEvent2&)> cellActivated() const
    {
        return m_emitters.cellActivated.signal();
    }
    /// The user asks for a context menu. Sent beside the widget's own `contextMenu`.
    TROV::Signal<void(const VXCellContextMenuEvent2&)> cellContextMenu() const
    {
        return m_emitters.cellContextMenu.signal();
    }
    /// The user clicked a section of the header above the columns. Nothing is sorted by that.
    TROV::Signal<void(const VXHeaderClickEvent2&)> headerClicked() const
    {
        return m_emitters.headerClicked.signal();
    }
    /// The user resizes a column; sent for each step.
    TROV::Signal<void(const VXColumnResizeEvent2&)> columnResized() const
    {
        return m_emitters.columnResized.signal();
    }
    /// The user dragged a column to another place; sent once, when it is let go.
    TROV::Signal<void(const VXColumnMoveEvent2&)> columnMoved() const
    {
        return m_emitters.columnMoved.signal();
    }
    /// Other cells are in sight: the user has scrolled, in either direction, or what there is to be
    /// seen has become less. Not sent for `scrollTo` and `setActiveCell`.
    TROV::Signal<void(const VXViewScrollEvent2&)> scrolled() const
    {
        return m_emitters.scrolled.signal();
    }

protected:
    explicit VXAbstractView2(VXObject2* parent);

    /// The emitters, after the view has learned what its model changed in this turn: a row that was
    /// just added can be named.
    template <class Emitters>
    const Emitters& current(const Emitters& emitters) const
    {
        m_model.flush();
        return emitters;
    }

    VXAbstractView2Emitters m_emitters;

private:
    ModelCell2 own(ModelCell2 cell) const;

    ShownModel m_model;
};

} // namespace VOXI
