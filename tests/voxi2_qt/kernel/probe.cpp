#include "probe.h"

namespace VOXI {

VXProbe2::VXProbe2(VXObject2* parent, Kind kind)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    QWidget* const holder = parent ? qWidgetOf(lookup(parent)) : nullptr;
    if (kind == ScrollArea)
        new QtAreaProbe2(this, &m_emitters, holder);
    else
        new QtPlainProbe2(this, &m_emitters, holder);
}

VXProbe2::~VXProbe2() { retire(); }

} // namespace VOXI
