#include "voxi2/kernel/vxdragmanager2.h"

#include "voxi2/kernel/vxfactory2.h"

#include <atomic>

namespace VOXI {

namespace {

std::atomic<VXDragManager2*> s_manager{nullptr};

} // namespace

VXDragManager2::VXDragManager2() : VXObject2(nullptr), m_emitters(VXObject2::m_emitters)
{
    createPeer(&VXFactory2::createDragManager2, this, &m_emitters);
}

VXDragManager2::~VXDragManager2()
{
    VXDragManager2* self = this;
    s_manager.compare_exchange_strong(self, nullptr);
    retire();
}

void VXDragManager2::createImpl(StringID key)
{
    // Of this back end, which need not be the one that other objects get their peers from.
    const VXFactory2::Scope scope(key);
    if (VXFactory2::current() && !instance())
        s_manager = new VXDragManager2;
}

VXDragManager2* VXDragManager2::instance() { return s_manager.load(std::memory_order_acquire); }
void VXDragManager2::startDrag(const VXDrag2& drag) { m_emitters.startDrag(drag); }
void VXDragManager2::cancelDrag() { m_emitters.cancelDrag(); }
bool VXDragManager2::isDragging() const { return m_emitters.isDragging(); }

} // namespace VOXI
