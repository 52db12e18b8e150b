#include "voxi2/containers/vxgridlayout2.h"

#include "../kernel/notnull.h"

namespace VOXI {

VXGridLayout2::VXGridLayout2(VXObject2* parent)
    : VXLayout2(parent),
      m_emitters(VXLayout2::m_emitters)
{
    createPeer(&VXFactory2::createGridLayout2, this, &m_emitters, this->parent());
}

VXGridLayout2::~VXGridLayout2() { retire(); }

void VXGridLayout2::addWidget(VXObject* widget, const VXRect<int>& cell, Alignment alignment)
{
    m_emitters.gridAddWidget(notNull(this, widget), cell, alignment);
}

void VXGridLayout2::addWidget(VXObject* widget, int row, int column, Alignment alignment)
{
    m_emitters.gridAddWidget(notNull(this, widget), VXRect<int>::cell(row, column), alignment);
}

void VXGridLayout2::addSpacer(const VXRect<int>& cell, const Size<int>& size)
{
    m_emitters.gridAddSpacer(cell, size);
}

void VXGridLayout2::setRowStretch(int row, int stretch) { m_emitters.setRowStretch(row, stretch); }
int VXGridLayout2::rowStretch(int row) const { return m_emitters.getRowStretch(row); }

void VXGridLayout2::setColStretch(int column, int stretch)
{
    m_emitters.setColStretch(column, stretch);
}

int VXGridLayout2::colStretch(int column) const { return m_emitters.getColStretch(column); }

void VXGridLayout2::setStretchFactors(const std::vector<int>& rows, const std::vector<int>& columns)
{
    m_emitters.setStretchFactors(rows, columns);
}

void VXGridLayout2::setRowMinimum(int row, int height) { m_emitters.setRowMinimum(row, height); }
int VXGridLayout2::rowMinimum(int row) const { return m_emitters.getRowMinimum(row); }
void VXGridLayout2::setColMinimum(int column, int width)
{
    m_emitters.setColMinimum(column, width);
}

int VXGridLayout2::colMinimum(int column) const { return m_emitters.getColMinimum(column); }

void VXGridLayout2::setHorizontalSpacing(int spacing) { m_emitters.setHorizontalSpacing(spacing); }
int VXGridLayout2::horizontalSpacing() const { return m_emitters.getHorizontalSpacing(); }
void VXGridLayout2::setVerticalSpacing(int spacing) { m_emitters.setVerticalSpacing(spacing); }
int VXGridLayout2::verticalSpacing() const { return m_emitters.getVerticalSpacing(); }

void VXGridLayout2::setCell(VXObject* widget, const VXRect<int>& cell)
{
    m_emitters.setCell(widget, cell);
}

VXRect<int> VXGridLayout2::cell(VXObject* widget) const { return m_emitters.getCell(widget); }
int VXGridLayout2::rowCount() const { return m_emitters.getRowCount(); }
int VXGridLayout2::colCount() const { return m_emitters.getColCount(); }

} // namespace VOXI
