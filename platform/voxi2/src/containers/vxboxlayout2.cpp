#include "voxi2/containers/vxboxlayout2.h"

#include "../kernel/notnull.h"
#include "voxi2/kernel/ignored.h"

namespace VOXI {

VXBoxLayout2::VXBoxLayout2(VXObject2* parent, Direction direction)
    : VXLayout2(parent),
      m_emitters(VXLayout2::m_emitters)
{
    createPeer(&VXFactory2::createBoxLayout2, this, &m_emitters, this->parent(), direction);
}

VXBoxLayout2::~VXBoxLayout2() { retire(); }

void VXBoxLayout2::setDirection(Direction direction) { m_emitters.setDirection(direction); }
Direction VXBoxLayout2::direction() const { return m_emitters.getDirection(); }

void VXBoxLayout2::addWidget(VXObject* widget, int stretch, Alignment alignment)
{
    m_emitters.boxAddWidget(notNull(this, widget), stretch, alignment);
}

void VXBoxLayout2::insertWidget(VXObject* widget, int index, int stretch, Alignment alignment)
{
    m_emitters.insertWidget(notNull(this, widget), index, stretch, alignment);
}

void VXBoxLayout2::addLayout(VXLayout2* layout, int stretch)
{
    VXObjectDataLocker lock;
    const unsigned self = id();
    // While a worker waits for the answer, either may end.
    const bool refuses = m_emitters.refusesLayout(layout);
    if (!isObjectValid(self))
        return;
    if (refuses || !takeLayout(layout)) {
        ignored(this, "that is no layout, lies in a widget or a layout already, or holds this one");
        return;
    }
    m_emitters.addLayout(layout, stretch);
}

void VXBoxLayout2::insertSpacer(int index, int size, int stretch)
{
    m_emitters.insertSpacer(index, size, stretch);
}

void VXBoxLayout2::addStretch(int stretch) { insertSpacer(-1, 0, stretch); }
void VXBoxLayout2::addSpacing(int size) { insertSpacer(-1, size, 0); }

void VXBoxLayout2::setStretchFactor(VXObject* widget, int stretch)
{
    m_emitters.setStretchFactor(widget, stretch);
}

} // namespace VOXI
