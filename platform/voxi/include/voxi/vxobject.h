#pragma once

#include "trov/listener.h"
#include "voxi/voxi_export.h"
#include "voxi_util/recursivelock.h"

#include <functional>

namespace VOXI {

/// The base of every abstract object: an identity, and the lock that guards all of them.
///
/// Ids are given once per process and never again, so an id can be kept and asked about after the
/// object is gone. Every object is a `TROV::Listener`: connections made with it end with it.
class VOXI_EXPORT VXObject : public TROV::Listener
{
public:
    /// Guards every look at abstract objects from outside their own code: validity, listeners,
    /// peers. Recursive; held shortly. It is given up while a thread waits for another one.
    static RecursiveLock m_lock;

    VXObject(const VXObject&) = delete;
    VXObject& operator=(const VXObject&) = delete;
    ~VXObject() override;

    /// Never 0 for an object that takes part in the registry.
    unsigned id() const noexcept { return m_id; }

    /// Whether `object` is alive. Only the address is looked at, so any pointer may be given; an
    /// object that was made at the address of a dead one is taken for it, which the other overload
    /// does not. The answer holds as long as the caller holds `m_lock`.
    static bool isObjectValid(const VXObject* object);

    /// Whether the object of that id is alive.
    static bool isObjectValid(unsigned id);

    /// The live object of that id, or null. Hold `m_lock` while using it.
    static VXObject* objectById(unsigned id);

    /// While one lives, objects that its thread makes stay out of the registry: they have id 0, are
    /// never valid, and get no peers.
    class VOXI_EXPORT DetachedScope
    {
    public:
        DetachedScope();
        ~DetachedScope();
        DetachedScope(const DetachedScope&) = delete;
        DetachedScope& operator=(const DetachedScope&) = delete;

        static bool isActive() noexcept;
    };

protected:
    VXObject();

    /// Calls `function` with every live object, in no particular order, holding `m_lock`. It may
    /// end objects.
    static void forEachObject(const std::function<void(VXObject*)>& function);

    /// Takes the object out of the registry: from now on it is not valid. Twice is as good as once.
    void invalidate();

private:
    unsigned m_id;
    bool m_isListed = false; // in the registry
};

/// Holds the object lock for a scope.
class VXObjectDataLocker
{
public:
    explicit VXObjectDataLocker(RecursiveLock& lock = VXObject::m_lock) : m_lock(lock)
    {
        m_lock.lock();
    }
    ~VXObjectDataLocker() { m_lock.unlock(); }
    VXObjectDataLocker(const VXObjectDataLocker&) = delete;
    VXObjectDataLocker& operator=(const VXObjectDataLocker&) = delete;

private:
    RecursiveLock& m_lock;
};

} // namespace VOXI
