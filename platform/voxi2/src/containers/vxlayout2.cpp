#include "voxi2/containers/vxlayout2.h"

#include "voxi2/kernel/vxwidget2.h"

namespace VOXI {

VXLayout2::VXLayout2(VXObject2* parent) : VXObject2(parent), m_emitters(VXObject2::m_emitters) {}
VXLayout2::~VXLayout2() { retire(); }

void VXLayout2::setParent(VXObject2* parent)
{
    {
        VXObjectDataLocker lock;
        if (m_isNested)
            return;
    }
    if (parent && !m_emitters.refuses(parent))
        VXObject2::setParent(parent);
}

bool VXLayout2::takeLayout(VXLayout2* layout)
{
    VXObjectDataLocker lock;
    if (!isObjectValid(layout) || layout->m_isNested)
        return false;
    layout->VXObject2::setParent(this);
    layout->m_isNested = layout->parent() == this;
    return layout->m_isNested;
}

void VXLayout2::addWidget(VXObject* widget, Alignment alignment)
{
    m_emitters.addWidget(widget, alignment);
}

void VXLayout2::removeWidget(VXObject* widget) { m_emitters.removeWidget(widget); }

void VXLayout2::addSpacer(const Size<int>& size, bool expanding)
{
    m_emitters.addSpacer(size, expanding ? 1 : 0);
}

void VXLayout2::setAlignment(VXObject* item, Alignment alignment)
{
    m_emitters.setAlignment(item, alignment);
}

Alignment VXLayout2::alignment(VXObject* item) const { return m_emitters.getAlignment(item); }
int VXLayout2::count() const { return m_emitters.count(); }
VXObject2* VXLayout2::itemAt(int index) const { return m_emitters.getItemAt(index); }

VXWidget2* VXLayout2::widgetAt(int index) const
{
    const VXObjectDataLocker lock;
    VXObject2* const item = itemAt(index);
    return isObjectValid(item) ? dynamic_cast<VXWidget2*>(item) : nullptr;
}

int VXLayout2::indexOf(VXObject* item) const { return m_emitters.getItemIndex(item); }
void VXLayout2::setMargins(const VXRect<int>& margins) { m_emitters.setMargins(margins); }
VXRect<int> VXLayout2::margins() const { return m_emitters.getMargins(); }
void VXLayout2::setSpacing(int spacing) { m_emitters.setSpacing(spacing); }
int VXLayout2::spacing() const { return m_emitters.getSpacing(); }
void VXLayout2::setEnabled(bool enabled) { m_emitters.setEnabled(enabled); }
bool VXLayout2::isEnabled() const { return m_emitters.isEnabled(); }
void VXLayout2::refresh() { m_emitters.refresh(); }
void VXLayout2::invalidate() { m_emitters.invalidate(); }

} // namespace VOXI
