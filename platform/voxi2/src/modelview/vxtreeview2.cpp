#include "voxi2/modelview/vxtreeview2.h"

namespace VOXI {

VXTreeView2::VXTreeView2(VXObject2* parent)
    : VXAbstractView2(parent),
      m_emitters(VXAbstractView2::m_emitters)
{
    createPeer(&VXFactory2::createTreeView2, this, &m_emitters, parent);
}

VXTreeView2::~VXTreeView2() { retire(); }

void VXTreeView2::setRowExpanded(unsigned row, bool expanded)
{
    current(m_emitters).setRowExpanded(row, expanded);
}

bool VXTreeView2::isRowExpanded(unsigned row) const
{
    return current(m_emitters).isRowExpanded(row);
}

void VXTreeView2::expandAll() { current(m_emitters).expandAll(); }
void VXTreeView2::collapseAll() { current(m_emitters).collapseAll(); }

void VXTreeView2::setColumnWidth(unsigned column, int width)
{
    current(m_emitters).setColumnWidth(column, width);
}

int VXTreeView2::columnWidth(unsigned column) const
{
    return current(m_emitters).columnWidth(column);
}

void VXTreeView2::setRowHeight(unsigned row, int height)
{
    current(m_emitters).setRowHeight(row, height);
}

int VXTreeView2::rowHeight(unsigned row) const { return current(m_emitters).rowHeight(row); }

void VXTreeView2::setColumnVisible(unsigned column, bool visible)
{
    current(m_emitters).setColumnVisible(column, visible);
}

bool VXTreeView2::isColumnVisible(unsigned column) const
{
    return current(m_emitters).isColumnVisible(column);
}

void VXTreeView2::setRowVisible(unsigned row, bool visible)
{
    current(m_emitters).setRowVisible(row, visible);
}

bool VXTreeView2::isRowVisible(unsigned row) const { return current(m_emitters).isRowVisible(row); }

void VXTreeView2::setColumnHeaderVisible(bool visible)
{
    m_emitters.setColumnHeaderVisible(visible);
}

bool VXTreeView2::isColumnHeaderVisible() const { return m_emitters.isColumnHeaderVisible(); }
void VXTreeView2::setColumnMovable(bool movable) { m_emitters.setColumnMovable(movable); }
bool VXTreeView2::isColumnMovable() const { return m_emitters.isColumnMovable(); }
void VXTreeView2::setRootIsDecorated(bool on) { m_emitters.setRootIsDecorated(on); }
bool VXTreeView2::rootIsDecorated() const { return m_emitters.rootIsDecorated(); }
void VXTreeView2::setUniformRowHeights(bool on) { m_emitters.setUniformRowHeights(on); }
bool VXTreeView2::hasUniformRowHeights() const { return m_emitters.hasUniformRowHeights(); }
void VXTreeView2::setAlternatingRowColors(bool on) { m_emitters.setAlternatingRowColors(on); }
bool VXTreeView2::hasAlternatingRowColors() const { return m_emitters.hasAlternatingRowColors(); }
void VXTreeView2::setWordWrap(bool on) { m_emitters.setWordWrap(on); }
bool VXTreeView2::wordWrap() const { return m_emitters.wordWrap(); }
void VXTreeView2::imitateExpand(unsigned row) { current(m_emitters).expand(row); }
void VXTreeView2::imitateCollapse(unsigned row) { current(m_emitters).collapse(row); }

void VXTreeView2::imitateEdit(unsigned row, unsigned column, EditTrigger trigger,
                              MouseButton button)
{
    current(m_emitters).triggerEdit(row, column, trigger, button);
}

} // namespace VOXI
