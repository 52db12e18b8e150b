#include "voxi2/kernel/vxobject2.h"

#include "trov/thread.h"
#include "voxi/guiobject.h"
#include "voxi2/kernel/ignored.h"
#include "voxi2/kernel/vxfactory2.h"

namespace VOXI {

static_assert(detail::kindOf<VXObject2>() == "Object");

namespace {

/// By id: when it arrives, the object and its emitters are gone.
struct ServiceEnd
{
    unsigned m_id;
    void deliver() const
    {
        if (GuiObject* const peer = lookup(m_id))
            peer->endService();
    }
};

} // namespace

VXObject2::~VXObject2() { retire(); }

void VXObject2::releasePeer()
{
    TROV::Thread* thread = servingThread();
    if (!thread)
        return;
    if (thread == TROV::Thread::getCurrentThread()) {
        m_emitters.destroy();
    } else {
        thread->enqueue(ServiceEnd{id()});
    }
}

void VXObject2::releaseAllPeers()
{
    VXObjectDataLocker lock;
    forEachObject([](VXObject* object) {
        if (auto* mine = dynamic_cast<VXObject2*>(object))
            mine->releasePeer();
    });
}

VXFactory2* VXObject2::factoryForNewObject() const
{
    if (id() == 0)
        return nullptr;
    VXFactory2* const factory = VXFactory2::current();
    if (!factory)
        ignored(this, "no back end is up: it gets no peer, and requests to it do nothing",
                CallPlace()); // it is being made
    return factory;
}

void VXObject2::setObjectName(const std::string& name)
{
    VXObjectDataLocker lock;
    // What has no id stands for objects that are gone, and is shared.
    if (id() != 0)
        m_name = name.empty() ? nullptr : std::make_unique<const std::string>(name);
}

std::string VXObject2::objectName() const
{
    VXObjectDataLocker lock;
    return m_name ? *m_name : std::string();
}

TROV::Thread* VXObject2::servingThread() const noexcept
{
    return m_emitters.m_binding->servingThread();
}

// The tree of owners ------------------------------------------------------------------------------

void VXObject2::link(VXObject2* parent)
{
    m_parent = parent;
    m_isOrphan = false;
    m_next = nullptr;
    if (VXObject2* first = parent->m_firstChild) {
        m_previous = first->m_previous;
        first->m_previous->m_next = this;
        first->m_previous = this;
    } else {
        m_previous = this;
        parent->m_firstChild = this;
    }
}

void VXObject2::unlink()
{
    if (!m_parent)
        return;
    VXObject2* first = m_parent->m_firstChild;
    VXObject2* last = first->m_previous;
    if (this == first)
        m_parent->m_firstChild = m_next;
    else
        m_previous->m_next = m_next;
    if (m_next)
        m_next->m_previous = m_previous;
    if (this == last && first != this)
        first->m_previous = m_previous;
    m_parent = m_previous = m_next = nullptr;
}

bool VXObject2::isAncestorOf(const VXObject2* object) const
{
    for (; object; object = object->m_parent) {
        if (object == this)
            return true;
    }
    return false;
}

VXObject2* VXObject2::parent() const
{
    VXObjectDataLocker lock;
    return m_parent;
}

void VXObject2::setParent(VXObject2* parent)
{
    {
        VXObjectDataLocker lock;
        if (id() == 0 || m_life != Life::Alive || (parent && !isObjectValid(parent)))
            return;
        if (parent && isAncestorOf(parent)) {
            ignored(this, "the object owns that one");
            return;
        }
        unlink();
        if (parent)
            link(parent);
    }
    m_emitters.setParent(parent);
}

std::vector<VXObject2*> VXObject2::children(bool recursive) const
{
    VXObjectDataLocker lock;
    const TROV::Thread* const self = TROV::Thread::getCurrentThread();
    std::vector<VXObject2*> result;
    // Not by recursion: owners may be nested as deep as the application likes.
    for (VXObject2* child = m_firstChild; child;) {
        const bool isWhole = !child->m_maker || child->m_maker == self;
        if (isWhole)
            result.push_back(child);
        if (recursive && isWhole && child->m_firstChild) {
            child = child->m_firstChild;
            continue;
        }
        while (child != this && !child->m_next)
            child = child->m_parent;
        child = child == this ? nullptr : child->m_next;
    }
    return result;
}

VXObject* VXObject2::peerParent() const { return m_emitters.getParent(); }

std::vector<VXObject*> VXObject2::peerChildren(bool recursive) const
{
    return m_emitters.getChildren(recursive);
}

} // namespace VOXI
