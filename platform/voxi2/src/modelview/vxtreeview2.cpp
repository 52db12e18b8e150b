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

void VXTreeView2::setRootIsDecorated(bool on) { m_emitters.setRootIsDecorated(on); }
bool VXTreeView2::rootIsDecorated() const { return m_emitters.rootIsDecorated(); }
void VXTreeView2::setUniformRowHeights(bool on) { m_emitters.setUniformRowHeights(on); }
bool VXTreeView2::hasUniformRowHeights() const { return m_emitters.hasUniformRowHeights(); }
void VXTreeView2::imitateExpand(unsigned row) { current(m_emitters).expand(row); }
void VXTreeView2::imitateCollapse(unsigned row) { current(m_emitters).collapse(row); }

} // namespace VOXI
