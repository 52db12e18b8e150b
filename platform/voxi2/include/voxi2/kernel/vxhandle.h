#pragma once

#include "voxi2/kernel/vxobject2.h"

#include <concepts>
#include <type_traits>
#include <utility>

namespace VOXI {

/// Names an abstract object by its id; may outlive it and never touches freed memory.
///
/// A call through a handle of a dead object is a no-op, a getter gives a default. The object cannot
/// be destroyed by another thread while a call through its handle begins. Copy it freely, use it
/// from any thread.
///
///     status->setText("done");                                // the toolkit's classes
///     handle.with([](Page& page) { page.addRow("done"); });   // any class, several calls
template <class T>
class VXHandle
{
public:
    VXHandle() = default;
    VXHandle(T* object) : m_id(object ? object->id() : 0) {}

    /// Keeps the object lock while a call through the handle runs.
    class Access
    {
    public:
        explicit Access(unsigned id)
        {
            auto* object = static_cast<T*>(VXObject::objectById(id));
            m_object = object ? object : &nobody();
        }
        T* operator->() const noexcept { return m_object; }

    private:
        VXObjectDataLocker m_lock;
        T* m_object;
    };

    /// For the toolkit's own classes; others are called by `with`.
    Access operator->() const
    {
        static_assert(std::same_as<typename T::ToolkitClass, T>,
                      "call a class of your own by handle.with([](Mine& mine) { ... })");
        return Access(m_id);
    }

    /// Calls `function` with the object as a `T&`, holding the object lock, and returns what it
    /// returns; if the object is gone nothing is called and the result is a default one. The lock
    /// is given up while the function waits for another thread (getters, `new`): the object may end
    /// then. What the function makes is covered by a `VXObject2::BuildScope`.
    template <class Function>
    auto with(Function&& function) const
    {
        const VXObjectDataLocker lock;
        const VXObject2::BuildScope scope;
        using Result = std::decay_t<std::invoke_result_t<Function, T&>>;
        T* const object = get();
        if constexpr (std::is_void_v<Result>) {
            if (object)
                std::forward<Function>(function)(*object);
        } else {
            return object ? Result(std::forward<Function>(function)(*object)) : Result();
        }
    }

    bool isValid() const { return m_id != 0 && VXObject::isObjectValid(m_id); }
    explicit operator bool() const { return isValid(); }

    /// The object, or null; safe to use only on the thread that destroys it, or while holding
    /// `VXObject::m_lock`.
    T* get() const { return static_cast<T*>(VXObject::objectById(m_id)); }

    unsigned id() const noexcept { return m_id; }

    friend bool operator==(const VXHandle&, const VXHandle&) = default;

private:
    /// Stands in for objects that are gone: it has no peer, so nothing happens.
    static T& nobody()
    {
        static_assert(std::is_default_constructible_v<T>,
                      "a handle needs a class that can be made without arguments");
        static T* const object = [] {
            VXObject::DetachedScope detached;
            return new T;
        }();
        return *object;
    }

    unsigned m_id = 0;
};

} // namespace VOXI
