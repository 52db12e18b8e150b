#include "voxi2/controls/vxmimicsource2.h"

#include "voxi2/kernel/vxwidget2.h"

namespace VOXI {

VXMimicSource2::VXMimicSource2(VXObject2* parent)
    : VXObject2(parent),
      m_emitters(VXObject2::m_emitters)
{
    createPeer(&VXFactory2::createMimicSource2, this, &m_emitters, parent);
}

VXMimicSource2::~VXMimicSource2() { retire(); }
void VXMimicSource2::setWidget(VXWidget2* widget) { m_emitters.setWidget(widget); }
VXWidget2* VXMimicSource2::widget() const { return m_emitters.getWidget(); }
void VXMimicSource2::setNativeWindow(unsigned long long id) { m_emitters.setNativeWindow(id); }
unsigned long long VXMimicSource2::nativeWindow() const { return m_emitters.getNativeWindow(); }
void VXMimicSource2::setMaximumRate(int perSecond) { m_emitters.setMaximumRate(perSecond); }
int VXMimicSource2::maximumRate() const { return m_emitters.getMaximumRate(); }
void VXMimicSource2::refresh() { m_emitters.refresh(); }
Size<int> VXMimicSource2::size() const { return m_emitters.getSize(); }
Pixmap VXMimicSource2::picture() const { return m_emitters.getPicture(); }

TROV::Signal<void(const VXMimicEvent2&)> VXMimicSource2::refreshed() const
{
    return m_emitters.refreshed.signal();
}

TROV::Signal<void(const VXMimicEvent2&)> VXMimicSource2::ended() const
{
    return m_emitters.ended.signal();
}

} // namespace VOXI
