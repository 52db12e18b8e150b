#include "voxi2/containers/vxscrollview2.h"

#include "../kernel/notnull.h"

namespace VOXI {

VXScrollView2::VXScrollView2(VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createScrollView2, this, &m_emitters, parent);
}

VXScrollView2::~VXScrollView2() { retire(); }
void VXScrollView2::setWidget(VXWidget2* widget) { m_emitters.setWidget(notNull(this, widget)); }
VXWidget2* VXScrollView2::widget() const { return m_emitters.getWidget(); }
void VXScrollView2::setWidgetResizable(bool resizable) { m_emitters.setWidgetResizable(resizable); }
bool VXScrollView2::isWidgetResizable() const { return m_emitters.isWidgetResizable(); }

void VXScrollView2::ensurePointVisible(const VXPoint<int>& point, int xMargin, int yMargin)
{
    m_emitters.ensurePointVisible(point, xMargin, yMargin);
}

void VXScrollView2::ensureWidgetVisible(VXWidget2* widget, int xMargin, int yMargin)
{
    m_emitters.ensureWidgetVisible(widget, xMargin, yMargin);
}

void VXScrollView2::scrollBy(const VXPoint<int>& distance) { m_emitters.scrollBy(distance); }
void VXScrollView2::removeWidget() { m_emitters.removeWidget(); }

void VXScrollView2::setScrollPosition(const VXPoint<int>& position)
{
    m_emitters.setScrollPosition(position);
}

VXPoint<int> VXScrollView2::scrollPosition() const { return m_emitters.getScrollPosition(); }
VXPoint<int> VXScrollView2::scrollEnd() const { return m_emitters.getScrollEnd(); }

void VXScrollView2::setScrollBarPolicy(Orientation bar, ScrollBarPolicy policy)
{
    m_emitters.setScrollBarPolicy(bar, policy);
}

ScrollBarPolicy VXScrollView2::scrollBarPolicy(Orientation bar) const
{
    return m_emitters.getScrollBarPolicy(bar);
}

} // namespace VOXI
