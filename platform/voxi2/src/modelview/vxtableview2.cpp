#include "voxi2/modelview/vxtableview2.h"

namespace VOXI {

VXTableView2::VXTableView2(VXObject2* parent)
    : VXAbstractView2(parent),
      m_emitters(VXAbstractView2::m_emitters)
{
    createPeer(&VXFactory2::createTableView2, this, &m_emitters, parent);
}

VXTableView2::~VXTableView2() { retire(); }

void VXTableView2::setColumnWidthInCharacters(unsigned column, int characters)
{
    current(m_emitters).setColumnWidth(column, characters, false);
}

int VXTableView2::columnWidthInCharacters(unsigned column) const
{
    return current(m_emitters).getColumnWidth(column, false);
}

void VXTableView2::setColumnResizeMode(unsigned column, ColumnResizeMode mode)
{
    current(m_emitters).setColumnResizeMode(column, mode);
}

ColumnResizeMode VXTableView2::columnResizeMode(unsigned column) const
{
    return current(m_emitters).getColumnResizeMode(column);
}

void VXTableView2::resizeColumnToContents(unsigned column)
{
    current(m_emitters).resizeColumnToContents(column);
}

void VXTableView2::resizeColumnsToContents() { current(m_emitters).resizeColumnsToContents(); }

void VXTableView2::resizeRowToContents(unsigned row)
{
    current(m_emitters).resizeRowToContents(row);
}

void VXTableView2::resizeRowsToContents() { current(m_emitters).resizeRowsToContents(); }

void VXTableView2::setRowHeaderVisible(bool visible) { m_emitters.setRowHeaderVisible(visible); }
bool VXTableView2::isRowHeaderVisible() const { return m_emitters.isRowHeaderVisible(); }
void VXTableView2::setRowMovable(bool movable) { m_emitters.setRowMovable(movable); }
bool VXTableView2::isRowMovable() const { return m_emitters.isRowMovable(); }
void VXTableView2::setGridVisible(bool visible) { m_emitters.setGridVisible(visible); }
bool VXTableView2::isGridVisible() const { return m_emitters.isGridVisible(); }
} // namespace VOXI
