#include "voxi2/modelview/vxabstractgroupview2.h"

namespace VOXI {

VXAbstractGroupView2::VXAbstractGroupView2(VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{}

VXAbstractGroupView2::~VXAbstractGroupView2() { retire(); }

void VXAbstractGroupView2::setViewModel(VXAbstractViewModel2* model)
{
    m_model.set(model);
    m_emitters.setViewModel(model);
}

VXAbstractViewModel2* VXAbstractGroupView2::viewModel() const { return m_emitters.getViewModel(); }

// Folding -----------------------------------------------------------------------------------------

void VXAbstractGroupView2::setGroupFolded(unsigned group, bool folded)
{
    current(m_emitters).setGroupFolded(group, folded);
}

bool VXAbstractGroupView2::isGroupFolded(unsigned group) const
{
    return current(m_emitters).isGroupFolded(group);
}

void VXAbstractGroupView2::foldAll() { current(m_emitters).foldAll(); }
void VXAbstractGroupView2::unfoldAll() { current(m_emitters).unfoldAll(); }

// Rows --------------------------------------------------------------------------------------------

void VXAbstractGroupView2::setCurrentRow(unsigned row) { current(m_emitters).setCurrentRow(row); }

unsigned VXAbstractGroupView2::currentRow() const { return current(m_emitters).getCurrentRow(); }

void VXAbstractGroupView2::scrollTo(unsigned row) { current(m_emitters).scrollTo(row); }

unsigned VXAbstractGroupView2::rowAt(VXPoint<int> position) const
{
    return current(m_emitters).getRowAt(position);
}

VXRect<int> VXAbstractGroupView2::rowRect(unsigned row) const
{
    return current(m_emitters).getRowRect(row);
}

bool VXAbstractGroupView2::isRowInSight(unsigned row) const
{
    return current(m_emitters).isRowInSight(row);
}

CellInfo VXAbstractGroupView2::rowInfo(unsigned row) const
{
    return current(m_emitters).getRowInfo(row);
}

void VXAbstractGroupView2::setIconSize(Size<int> size) { m_emitters.setIconSize(size); }
Size<int> VXAbstractGroupView2::iconSize() const { return m_emitters.getIconSize(); }

// As if the user had done it ----------------------------------------------------------------------

void VXAbstractGroupView2::imitateFold(unsigned group)
{
    current(m_emitters).setGroupFoldedAsUser(group, true);
}

void VXAbstractGroupView2::imitateUnfold(unsigned group)
{
    current(m_emitters).setGroupFoldedAsUser(group, false);
}

void VXAbstractGroupView2::imitateSetCurrentRow(unsigned row)
{
    current(m_emitters).setCurrentRowAsUser(row);
}

void VXAbstractGroupView2::imitateActivate(unsigned row) { current(m_emitters).activate(row); }

} // namespace VOXI
