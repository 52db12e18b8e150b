// The part of VXObject2 that is about its life: memory, who makes it, and its end.

#include "trov/thread.h"
#include "voxi2/kernel/vxobject2.h"

#include <cstddef>
#include <cstdio>
#include <cxxabi.h>
#include <iterator>
#include <typeinfo>
#include <utility>

namespace VOXI {

namespace {

/// What `new` has returned on this thread and no object has taken yet. A few: arguments of a
/// constructor may make objects themselves.
struct Allocations
{
    struct Block
    {
        char* m_start = nullptr;
        std::size_t m_size = 0;
    };
    Block m_blocks[8];
    unsigned m_next = 0;
    unsigned m_waiting = 0; // blocks that are not empty: hardly ever more than one

    void* add(void* memory, std::size_t size) noexcept
    {
        if (!memory)
            return nullptr;
        Block& block = m_blocks[m_next++ % std::size(m_blocks)];
        m_waiting += block.m_start ? 0 : 1;
        block = {static_cast<char*>(memory), size};
        return memory;
    }
    void forget(const void* memory) noexcept
    {
        if (m_waiting == 0)
            return;
        for (Block& block : m_blocks) {
            if (memory && block.m_start == memory)
                empty(block);
        }
    }
    /// Where in its block the object lies; -1 when `new` did not make it.
    int take(const void* object) noexcept
    {
        const char* const place = static_cast<const char*>(object);
        // The newest first: it nearly always is that one.
        for (unsigned back = 1; m_waiting > 0 && back <= std::size(m_blocks); ++back) {
            Block& block = m_blocks[(m_next - back) % std::size(m_blocks)];
            if (place < block.m_start || place >= block.m_start + block.m_size)
                continue;
            const auto offset = static_cast<int>(place - block.m_start);
            if (offset == 0)
                empty(block);
            return offset;
        }
        return -1;
    }

private:
    void empty(Block& block) noexcept
    {
        block = {};
        --m_waiting;
    }
};

thread_local constinit Allocations t_allocations;
thread_local constinit VXObject2::BuildScope* t_buildScope = nullptr;

#ifndef NDEBUG
/// Whether an object of class `derived` is a `base`, too.
bool isA(const std::type_info& derived, const std::type_info& base)
{
    if (derived == base)
        return true;
    if (const auto* one = dynamic_cast<const abi::__si_class_type_info*>(&derived))
        return isA(*one->__base_type, base);
    const auto* several = dynamic_cast<const abi::__vmi_class_type_info*>(&derived);
    for (unsigned i = 0; several && i < several->__base_count; ++i) {
        if (isA(*several->__base_info[i].__base_type, base))
            return true;
    }
    return false;
}
#endif

} // namespace

// Memory ------------------------------------------------------------------------------------------

void* VXObject2::operator new(std::size_t size)
{
    return t_allocations.add(::operator new(size), size);
}

void* VXObject2::operator new(std::size_t size, std::align_val_t alignment)
{
    return t_allocations.add(::operator new(size, alignment), size);
}

void* VXObject2::operator new(std::size_t size, const std::nothrow_t& nothrow) noexcept
{
    return t_allocations.add(::operator new(size, nothrow), size);
}

void VXObject2::operator delete(void* memory) noexcept
{
    t_allocations.forget(memory);
    ::operator delete(memory);
}

void VXObject2::operator delete(void* memory, std::align_val_t alignment) noexcept
{
    t_allocations.forget(memory);
    ::operator delete(memory, alignment);
}

void VXObject2::operator delete(void* memory, const std::nothrow_t&) noexcept
{
    operator delete(memory);
}

void* VXObject2::endWhole(VXObject2* object)
{
    {
        VXObjectDataLocker lock;
        if (object->m_life == Life::Ending)
            return nullptr;
        object->retireTree();
    }
    void* const whole = dynamic_cast<void*>(object);
    object->~VXObject2();
    return whole;
}

void VXObject2::operator delete(VXObject2* object, std::destroying_delete_t)
{
    if (void* const memory = endWhole(object))
        operator delete(memory);
}

void VXObject2::operator delete(VXObject2* object, std::destroying_delete_t,
                                std::align_val_t alignment)
{
    if (void* const memory = endWhole(object))
        operator delete(memory, alignment);
}

// Being made --------------------------------------------------------------------------------------

VXObject2::VXObject2(VXObject2* parent) : m_heapOffset(t_allocations.take(this))
{
    if (id() == 0) {
        m_emitters.m_binding->m_isStandIn = true;
        return;
    }
    VXObjectDataLocker lock;
    m_maker = TROV::Thread::getCurrentThread();
    if (t_buildScope)
        t_buildScope->m_made.push_back(id());
    // A dead parent's memory may be what this object was made in.
    if (parent != this && isObjectValid(parent))
        link(parent);
}

void VXObject2::finishBuilding()
{
    VXObjectDataLocker lock;
    if (!t_buildScope)
        m_maker = nullptr;
}

VXObject2::Creation*& VXObject2::Creation::innermost() noexcept
{
    static thread_local constinit Creation* creation = nullptr;
    return creation;
}

VXObject2::Creation::Creation(VXObject2& object)
    : m_object(object),
      m_outer(std::exchange(innermost(), this))
{}

VXObject2::Creation::~Creation()
{
    innermost() = m_outer;
    if (!m_outer || &m_outer->m_object != &m_object)
        m_object.finishBuilding();
}

VXObject2::BuildScope::BuildScope() : m_outer(t_buildScope)
{
    if (!m_outer)
        t_buildScope = this;
}

VXObject2::BuildScope::~BuildScope()
{
    if (m_outer)
        return;
    t_buildScope = nullptr;
    VXObjectDataLocker lock;
    for (const unsigned id : m_made) {
        auto* const object = static_cast<VXObject2*>(objectById(id));
        if (!object)
            continue;
        object->m_maker = nullptr;
        if (object->m_isOrphan && !object->m_parent)
            object->destroy();
    }
}

bool VXObject2::isBeingMade() const noexcept
{
    if (!m_maker)
        return false;
    if (m_maker != TROV::Thread::getCurrentThread())
        return true;
    // What this thread has made is whole, unless it waits for the peer of that very object.
    for (const Creation* creation = Creation::innermost(); creation; creation = creation->m_outer) {
        if (&creation->m_object == this)
            return true;
    }
    return false;
}

bool VXObject2::isOnHeap() const
{
    // A member of what was made with `new` lies in the same block, but does not begin it.
    return m_heapOffset >= 0
           && dynamic_cast<const void*>(this) == reinterpret_cast<const char*>(this) - m_heapOffset;
}

// The end -----------------------------------------------------------------------------------------

void VXObject2::destroy()
{
    VXObjectDataLocker lock;
    // What has no id stands for objects that are gone, and is shared.
    if (m_life != Life::Alive || id() == 0 || isBeingMade())
        return;
    if (isOnHeap())
        delete this;
    else
        retireTree();
}

void VXObject2::retire()
{
    // So it is in the destructors of each class that it derives from.
    if (m_life.load(std::memory_order_acquire) == Life::Over)
        return;
    VXObjectDataLocker lock;
    if (m_life != Life::Alive)
        return;
#ifndef NDEBUG
    // What listened is gone by now, and was called until now.
    forEachListenerType([this](const std::type_info& type) {
        if (!isA(typeid(*this), type))
            std::fprintf(stderr, "%s listened and was destroyed before it retired\n", type.name());
    });
#endif
    retireTree();
}

void VXObject2::retireTree()
{
    if (m_life != Life::Alive)
        return;
    // Not by recursion: owners may be nested as deep as the application likes.
    beginEnd();
    for (VXObject2* object = this;;) {
        if (VXObject2* const child = object->m_firstChild) {
            // What ends already does so further down the stack, in a handler of whose end we are.
            child->m_isOrphan = child->isBeingMade();
            if (child->m_life != Life::Alive || child->m_isOrphan) {
                child->unlink();
            } else {
                child->beginEnd();
                object = child;
            }
            continue;
        }
        VXObject2* const parent = object->m_parent;
        const bool isOurs = object != this && object->isOnHeap();
        object->completeEnd(); // from now on its owner may destroy it
        if (object == this)
            return;
        if (isOurs)
            delete object;
        object = parent;
    }
}

void VXObject2::beginEnd()
{
    m_life.store(Life::Ending, std::memory_order_relaxed);
    m_emitters.destroyed.emitLast(id());
    // The peer goes before those of the children: theirs then know that they go with it.
    releasePeer();
}

void VXObject2::completeEnd()
{
    unlink();
    Listener::disconnect();
    invalidate();
    m_life.store(Life::Over, std::memory_order_release);
}

} // namespace VOXI
