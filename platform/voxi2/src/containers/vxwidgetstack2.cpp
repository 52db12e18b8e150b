#include "voxi2/containers/vxwidgetstack2.h"

#include "../kernel/notnull.h"

namespace VOXI {

VXWidgetStack2::VXWidgetStack2(VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createWidgetStack2, this, &m_emitters, parent);
}

VXWidgetStack2::~VXWidgetStack2() { retire(); }

void VXWidgetStack2::addWidget(VXWidget2* widget, int index)
{
    m_emitters.addWidget(notNull(this, widget), index);
}

void VXWidgetStack2::removeWidget(VXWidget2* widget)
{
    m_emitters.removeWidget(notNull(this, widget));
}
void VXWidgetStack2::raiseWidget(VXWidget2* widget)
{
    m_emitters.raiseWidget(notNull(this, widget));
}
void VXWidgetStack2::raiseWidgetWithID(int id) { m_emitters.raiseWidgetWithID(id); }
VXWidget2* VXWidgetStack2::currentWidget() const { return m_emitters.getCurrentWidget(); }
int VXWidgetStack2::currentID() const { return m_emitters.getCurrentID(); }
int VXWidgetStack2::widgetID(VXWidget2* widget) const { return m_emitters.getWidgetID(widget); }
int VXWidgetStack2::count() const { return m_emitters.count(); }

} // namespace VOXI
