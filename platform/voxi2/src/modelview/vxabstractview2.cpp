#include "voxi2/modelview/vxabstractview2.h"

namespace VOXI {

VXAbstractView2::VXAbstractView2(VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{}

VXAbstractView2::~VXAbstractView2() { retire(); }

// The model ---------------------------------------------------------------------------------------

void VXAbstractView2::setViewModel(VXAbstractViewModel2* model)
{
    m_model.set(model);
    m_emitters.setViewModel(model);
}

VXAbstractViewModel2* VXAbstractView2::viewModel() const { return m_emitters.getViewModel(); }

ModelCell2 VXAbstractView2::own(ModelCell2 cell) const
{
    const VXObjectDataLocker lock;
    if (!cell.model && (cell.row != 0 || cell.column != 0))
        cell.model = m_model.get();
    return cell;
}

// Selection and the current cell ------------------------------------------------------------------

void VXAbstractView2::setSelectionMode(SelectionMode mode) { m_emitters.setSelectionMode(mode); }
SelectionMode VXAbstractView2::selectionMode() const { return m_emitters.getSelectionMode(); }

void VXAbstractView2::setSelectionBehavior(SelectionBehavior behavior)
{
    m_emitters.setSelectionBehavior(behavior);
}

SelectionBehavior VXAbstractView2::selectionBehavior() const
{
    return m_emitters.getSelectionBehavior();
}

void VXAbstractView2::setActiveCell(ModelCell2 cell)
{
    current(m_emitters).setActiveCell(own(cell));
}

ModelCell2 VXAbstractView2::activeCell() const { return current(m_emitters).getActiveCell(); }

void VXAbstractView2::setSelection(ModelRange range)
{
    current(m_emitters).setSelection({own(range.topLeft), own(range.bottomRight)});
}

std::vector<ModelCell2> VXAbstractView2::selection() const
{
    return current(m_emitters).getSelection();
}

std::vector<unsigned> VXAbstractView2::selectedRows() const
{
    return current(m_emitters).getSelectedRows();
}

void VXAbstractView2::selectRows(const std::vector<unsigned>& rows)
{
    current(m_emitters).selectRows(rows);
}

void VXAbstractView2::selectColumns(const std::vector<unsigned>& columns)
{
    current(m_emitters).selectColumns(columns);
}

void VXAbstractView2::selectAll() { current(m_emitters).selectAll(); }
void VXAbstractView2::clearSelection() { current(m_emitters).clearSelection(); }

bool VXAbstractView2::isSelected(unsigned row, unsigned column) const
{
    return current(m_emitters).isSelected(row, column);
}

// What is in sight --------------------------------------------------------------------------------

void VXAbstractView2::scrollTo(ModelCell2 cell) { current(m_emitters).scrollTo(own(cell)); }

ModelCell2 VXAbstractView2::cellAt(int x, int y) const
{
    return current(m_emitters).getModelCellAt(x, y);
}

ModelCell2 VXAbstractView2::cellAt(VXPoint<int> position) const
{
    return current(m_emitters).getCellAtPosition(position);
}

VXRect<int> VXAbstractView2::cellRect(unsigned row, unsigned column) const
{
    return current(m_emitters).getModelCellRect(row, column);
}

bool VXAbstractView2::isCellVisible(unsigned row, unsigned column) const
{
    return current(m_emitters).isCellVisible(row, column);
}

bool VXAbstractView2::isHScrollbarVisible() const
{
    return current(m_emitters).isHScrollbarVisible();
}

bool VXAbstractView2::isVScrollbarVisible() const
{
    return current(m_emitters).isVScrollbarVisible();
}

CellInfo VXAbstractView2::cellInfo(unsigned row, unsigned column) const
{
    return current(m_emitters).getCellInfo(row, column);
}

// Editing -----------------------------------------------------------------------------------------

void VXAbstractView2::setEditTriggers(VXFlags<EditTrigger> triggers)
{
    m_emitters.setEditTriggers(triggers);
}

VXFlags<EditTrigger> VXAbstractView2::editTriggers() const { return m_emitters.getEditTriggers(); }

void VXAbstractView2::setEditor(unsigned row, unsigned column, VXWidget2* editor)
{
    current(m_emitters).setEditor(row, column, editor);
}

VXWidget2* VXAbstractView2::editor(unsigned row, unsigned column) const
{
    return current(m_emitters).getEditor(row, column);
}

// Copies ------------------------------------------------------------------------------------------

std::wstring VXAbstractView2::selectionAsText() const
{
    return current(m_emitters).getSelectionAsText();
}

std::wstring VXAbstractView2::selectionAsHtml() const
{
    return current(m_emitters).getSelectionAsHtml();
}

void VXAbstractView2::copySelection() { current(m_emitters).copySelection(); }

// Rows and columns --------------------------------------------------------------------------------

void VXAbstractView2::setColumnWidth(unsigned column, int width)
{
    current(m_emitters).setColumnWidth(column, width);
}

int VXAbstractView2::columnWidth(unsigned column) const
{
    return current(m_emitters).columnWidth(column);
}

void VXAbstractView2::setRowHeight(unsigned row, int height)
{
    current(m_emitters).setRowHeight(row, height);
}

int VXAbstractView2::rowHeight(unsigned row) const { return current(m_emitters).rowHeight(row); }

void VXAbstractView2::setColumnVisible(unsigned column, bool visible)
{
    current(m_emitters).setColumnVisible(column, visible);
}

bool VXAbstractView2::isColumnVisible(unsigned column) const
{
    return current(m_emitters).isColumnVisible(column);
}

void VXAbstractView2::setRowVisible(unsigned row, bool visible)
{
    current(m_emitters).setRowVisible(row, visible);
}

bool VXAbstractView2::isRowVisible(unsigned row) const
{
    return current(m_emitters).isRowVisible(row);
}

void VXAbstractView2::setColumnHeaderVisible(bool visible)
{
    m_emitters.setColumnHeaderVisible(visible);
}

bool VXAbstractView2::isColumnHeaderVisible() const { return m_emitters.isColumnHeaderVisible(); }
void VXAbstractView2::setColumnMovable(bool movable) { m_emitters.setColumnMovable(movable); }
bool VXAbstractView2::isColumnMovable() const { return m_emitters.isColumnMovable(); }

void VXAbstractView2::setAlternatingRowColors(bool on) { m_emitters.setAlternatingRowColors(on); }

bool VXAbstractView2::hasAlternatingRowColors() const
{
    return m_emitters.hasAlternatingRowColors();
}

void VXAbstractView2::setWordWrap(bool on) { m_emitters.setWordWrap(on); }
bool VXAbstractView2::wordWrap() const { return m_emitters.wordWrap(); }

// Headers -----------------------------------------------------------------------------------------

void VXAbstractView2::setSortIndicator(unsigned column, SortOrder order)
{
    current(m_emitters).setSortIndicator({column, order});
}

SortIndicator VXAbstractView2::sortIndicator() const
{
    return current(m_emitters).getSortIndicator();
}

void VXAbstractView2::setHeaderClickable(bool clickable)
{
    m_emitters.setHeaderClickable(clickable);
}

bool VXAbstractView2::isHeaderClickable() const { return m_emitters.isHeaderClickable(); }

void VXAbstractView2::setColumnOrder(const std::vector<unsigned>& columns)
{
    current(m_emitters).setColumnOrder(columns);
}

std::vector<unsigned> VXAbstractView2::columnOrder() const
{
    return current(m_emitters).getColumnOrder();
}

std::string VXAbstractView2::saveHeaderState() const
{
    return current(m_emitters).saveHeaderState();
}

void VXAbstractView2::restoreHeaderState(const std::string& state)
{
    current(m_emitters).restoreHeaderState(state);
}

void VXAbstractView2::setCacheLimit(int cells) { m_emitters.setCacheLimit(cells); }
VXRect<int> VXAbstractView2::columnHeaderRect(unsigned column) const
{
    return current(m_emitters).getColumnHeaderRect(column);
}

int VXAbstractView2::cacheLimit() const { return m_emitters.getCacheLimit(); }

// As if the user had done it ----------------------------------------------------------------------

void VXAbstractView2::imitateSetActiveCell(ModelCell2 cell)
{
    current(m_emitters).setActiveCellAsUser(own(cell));
}

void VXAbstractView2::imitateSetSelection(ModelRange range)
{
    current(m_emitters).setSelectionAsUser({own(range.topLeft), own(range.bottomRight)});
}

void VXAbstractView2::imitateEdit(unsigned row, unsigned column, EditTrigger trigger,
                                  MouseButton button)
{
    current(m_emitters).triggerEdit(row, column, trigger, button);
}

} // namespace VOXI
