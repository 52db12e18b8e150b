#include "voxi2/containers/vxsplitter2.h"

#include "../kernel/notnull.h"

namespace VOXI {

VXSplitter2::VXSplitter2(VXObject2* parent, Orientation orientation)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createSplitter2, this, &m_emitters, parent, orientation);
}

VXSplitter2::~VXSplitter2() { retire(); }

void VXSplitter2::addWidget(VXWidget2* widget, int stretch)
{
    m_emitters.addWidget(notNull(this, widget), stretch);
}

void VXSplitter2::insertWidget(VXWidget2* widget, int index, int stretch)
{
    m_emitters.insertWidget(notNull(this, widget), index, stretch);
}

void VXSplitter2::removeWidget(VXWidget2* widget)
{
    m_emitters.removeWidget(notNull(this, widget));
}
int VXSplitter2::widgetIndex(VXWidget2* widget) const { return m_emitters.getWidgetIndex(widget); }
int VXSplitter2::count() const { return m_emitters.count(); }

void VXSplitter2::setCollapsible(VXWidget2* widget, bool collapsible)
{
    m_emitters.setCollapsible(widget, collapsible);
}

bool VXSplitter2::isCollapsible(VXWidget2* widget) const
{
    return m_emitters.isCollapsible(widget);
}

void VXSplitter2::setHandleWidth(int width) { m_emitters.setHandleWidth(width); }
int VXSplitter2::handleWidth() const { return m_emitters.getHandleWidth(); }

void VXSplitter2::setOrientation(Orientation orientation)
{
    m_emitters.setOrientation(orientation);
}

Orientation VXSplitter2::orientation() const { return m_emitters.getOrientation(); }
void VXSplitter2::setSizes(const std::list<int>& sizes) { m_emitters.setSizes(sizes); }
std::list<int> VXSplitter2::sizes() const { return m_emitters.getSizes(); }
std::string VXSplitter2::saveState() const { return m_emitters.saveState(); }
bool VXSplitter2::restoreState(const std::string& state) { return m_emitters.restoreState(state); }

} // namespace VOXI
