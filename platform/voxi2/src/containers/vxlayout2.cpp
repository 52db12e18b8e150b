#include "voxi2/containers/vxlayout2.h"

#include "../kernel/notnull.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/kernel/ignored.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2/kernel/vxwidget2.h"

namespace VOXI {

namespace {

/// What a layout of that parent fills: a window's central widget, which is made if there is none.
VXObject2* filledBy(VXObject2* parent)
{
    const VXObjectDataLocker lock;
    if (!VXObject::isObjectValid(parent))
        return parent;
    const VXHandle<VXWindow2> window(dynamic_cast<VXWindow2*>(parent));
    if (window.id() == 0)
        return parent;
    // While a worker waits for the answer the window may end.
    VXWidget2* const central = window->centralWidget();
    if (central || !window.isValid())
        return central;
    const VXObject2::BuildScope scope;
    auto* const panel = new VXPanel2(window.get());
    window->setCentralWidget(panel);
    return panel;
}

} // namespace

VXLayout2::VXLayout2(VXObject2* parent)
    : VXObject2(filledBy(parent)),
      m_emitters(VXObject2::m_emitters)
{}

VXLayout2::~VXLayout2() { retire(); }

void VXLayout2::setParent(VXObject2* parent)
{
    {
        VXObjectDataLocker lock;
        if (m_isNested) {
            ignored(this, "a layout inside another one stays there");
            return;
        }
    }
    parent = filledBy(parent);
    if (parent && !m_emitters.refuses(parent))
        VXObject2::setParent(parent);
    else
        ignored(this, "that is no widget, has another layout, or lies in this one");
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
    m_emitters.addWidget(notNull(this, widget), alignment);
}

void VXLayout2::removeWidget(VXObject* widget) { m_emitters.removeWidget(notNull(this, widget)); }

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
