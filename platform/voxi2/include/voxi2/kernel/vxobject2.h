#pragma once

#include "trov/emitterstable.h"
#include "voxi/vxobject.h"
#include "voxi2/kernel/vxfactory2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace VOXI {

namespace detail {

/// The name of a class of the toolkit between its prefix and its version.
template <class Object>
consteval std::string_view kindOf()
{
    std::string_view name = __PRETTY_FUNCTION__; // ... [with Object = VOXI::VXButton2; ...
    name.remove_prefix(name.find("VOXI::VX", name.find("Object = ")) + 8);
    return name.substr(0, name.find_first_of("2;]"));
}

/// Stands once for each class; its objects refer to it.
template <class Object>
inline constexpr std::string_view Kind = kindOf<Object>();

} // namespace detail

/// What every peer is asked.
struct VXObject2Emitters : TROV::EmittersTable<void>
{
    TROV::Request<void()> destroy{*this};
    TROV::Request<void(VXObject*)> setParent{*this};
    TROV::Request<VXObject*()> getParent{*this};
    TROV::Request<std::vector<VXObject*>(bool)> getChildren{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(unsigned)> destroyed{*this};
};

/// The base of all abstract toolkit objects.
///
/// Make objects with `new`; a child belongs to its parent and is deleted with it. `delete` ends an
/// object on any thread and inside any handler, also one of its own; it must be alive, which on
/// other threads than the one that ends it a `VXHandle` or the object lock makes sure of.
/// `destroy()` does the same, but leaves alone what another thread is making. Objects on the stack,
/// members and what `std::make_shared` makes are only ended, by `destroy()` and with their parent:
/// their memory stays their owner's, and they are dead until he destroys them.
///
/// All setters may be called from any thread: elsewhere than on the toolkit's own thread they are
/// queued, and they are in effect for the next getter; getters wait for the answer. Without a peer
/// setters do nothing and getters give defaults.
///
/// Texts are set from strings of any kind: see `AnyText`. Getters come in two: `text()` in the
/// process's encoding, and `textU()`, which loses nothing.
///
/// **Being made.** An object belongs to the thread that makes it until its constructor is through.
/// If its parent ends meanwhile, on another thread, it stands alone, as with a parent that was dead
/// already. For a class of the application that is the constructor of the toolkit's class it
/// derives from; what it does behind that is covered inside a `BuildScope`, which `VXHandle::with`
/// opens.
///
/// **Classes of the application.** What is made with `new` retires while it is whole: its handlers
/// are cut before its own destructor runs. C++ offers no such moment for objects on the stack and
/// for members: the destructor of a class that listens with `this` and is used so calls `retire()`
/// first. Builds with assertions report on stderr who forgot it. Of several bases list the
/// toolkit's class first: g++ 12 else warns, wrongly, of a free of something that is not on the
/// heap.
class VOXI2_EXPORT VXObject2 : public VXObject
{
public:
    ~VXObject2() override;

    /// Deletes the object and its children; what was not made with `new` is only ended. Does
    /// nothing while that is going on already, which a handler of `destroyed()` may not know, or
    /// while another thread makes the object. Children that another thread is making stay alone.
    void destroy();

    /// The object that owns this one; null for none.
    VXObject2* parent() const;

    /// Moves the object, and its peer, to another owner. With null it stands alone: a widget
    /// becomes a window. A parent that is dead, or a descendant of the object, is ignored.
    virtual void setParent(VXObject2* parent);

    /// The objects that this one owns, oldest first; with `recursive` their children follow each.
    /// What another thread is just making is left out.
    std::vector<VXObject2*> children(bool recursive = false) const;

    /// The abstract object of the peer that holds this one's peer, which for laid-out widgets is
    /// not always the owner; null for none.
    VXObject* peerParent() const;

    /// The abstract objects whose peers are held by this one's.
    std::vector<VXObject*> peerChildren(bool recursive = false) const;

    /// A name to find the object by, in tests for example; empty until one is given. It is not
    /// shown.
    virtual void setObjectName(const std::string& name);
    std::string objectName() const;

    /// What the object is: "Button", "BoxLayout". A class of the application is the kind that it
    /// derives from; "Object" when that has none. These names stay as they are.
    std::string_view kind() const noexcept { return m_kind ? *m_kind : "Object"; }

    /// Sent with the object's id when it is about to go, while it still can be asked. On other
    /// threads than the one that ends it handlers get only the id, behind all that was sent to them
    /// before; the object is gone by then.
    TROV::Signal<void(unsigned)> destroyed() const { return m_emitters.destroyed.signal(); }

    /// While one lives, what its thread makes belongs to that thread, until the outermost ends.
    /// What lost its parent meanwhile is then destroyed. Hold the object lock around it.
    class VOXI2_EXPORT BuildScope
    {
    public:
        BuildScope();
        ~BuildScope();
        BuildScope(const BuildScope&) = delete;
        BuildScope& operator=(const BuildScope&) = delete;

    private:
        friend class VXObject2;
        BuildScope* m_outer;
        std::vector<unsigned> m_made; ///< ids; only the outermost scope's is filled
    };

    /// Retires the object while it is whole, then destroys it. While it is ending already it does
    /// nothing: whoever ends it deletes it.
    static void operator delete(VXObject2* object, std::destroying_delete_t);
    static void operator delete(VXObject2* object, std::destroying_delete_t,
                                std::align_val_t alignment);
    static void* operator new(std::size_t size);
    static void* operator new(std::size_t size, std::align_val_t alignment);
    static void* operator new(std::size_t size, const std::nothrow_t&) noexcept;
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* memory) noexcept;
    static void operator delete(void* memory, std::align_val_t alignment) noexcept;
    static void operator delete(void* memory, const std::nothrow_t&) noexcept;
    static void operator delete(void*, void*) noexcept {}

    /// The thread that the object's peer serves it on, for handlers that must not wait for the loop
    /// of whoever connects them; null without a peer.
    TROV::Thread* servingThread() const noexcept;

    /// For back ends.
    VXObject2Emitters* objectEmitters() noexcept { return &m_emitters; }

    /// Cuts every live object off from its peer and has the peers deleted; the toolkit is going.
    static void releaseAllPeers();

protected:
    explicit VXObject2(VXObject2* parent);

    /// Ends the object: children, peer, connections, registry. The destructor of every class with
    /// emitters of its own begins with it, before anything that others may look at goes away.
    void retire();

    /// Has the back end make the peer; the last thing that a concrete class's constructor does.
    /// What the peer's constructor throws arrives here.
    template <class Signature, class Object, class Emitters, class... Extra>
    void createPeer(TROV::Emitter<Signature> VXFactory2::*request, Object* object,
                    Emitters* emitters, const Extra&... extra)
    {
        m_kind = &detail::Kind<Object>;
        const Creation creation(*this);
        if (VXFactory2* factory = factoryForNewObject())
            (factory->*request).emitAndWait(object, emitters, extra...);
    }

    /// The same for what shows a text, which is set while the object is still being made.
    template <class Class, class Signature, class Object, class Emitters, class... Extra>
    void createPeer(const AnyText& text, void (Class::*setText)(const AnyText&),
                    TROV::Emitter<Signature> VXFactory2::*request, Object* object,
                    Emitters* emitters, const Extra&... extra)
    {
        const Creation creation(*this);
        createPeer(request, object, emitters, extra...);
        if (!text.isEmpty())
            (object->*setText)(text);
    }

    /// Says that the object is whole; `createPeer` does. A class that has no peer calls it last in
    /// its constructor: otherwise a parent that ends on another thread leaves it alone for good.
    void finishBuilding();

    /// The same for a kind of the toolkit that has no peer.
    template <class Object>
    void finishBuilding(const Object*)
    {
        m_kind = &detail::Kind<Object>;
        finishBuilding();
    }

    VXObject2Emitters m_emitters;

private:
    enum class Life : unsigned char { Alive, Ending, Over };

    /// Marks an object as waiting for its peer.
    class VOXI2_EXPORT Creation
    {
    public:
        explicit Creation(VXObject2& object);
        ~Creation();
        Creation(const Creation&) = delete;
        Creation& operator=(const Creation&) = delete;

    private:
        friend class VXObject2;
        static Creation*& innermost() noexcept;

        VXObject2& m_object;
        Creation* m_outer;
    };

    VXFactory2* factoryForNewObject() const;
    bool isBeingMade() const noexcept;
    bool isOnHeap() const;
    void retireTree();
    void beginEnd();
    void completeEnd();
    static void* endWhole(VXObject2* object);
    void link(VXObject2* parent);
    void unlink();
    bool isAncestorOf(const VXObject2* object) const;
    void releasePeer();

    const std::string_view* m_kind = nullptr; // null for what is no kind

    // Guarded by the object lock; first the tree of owners.
    VXObject2* m_parent = nullptr;
    VXObject2* m_firstChild = nullptr;
    VXObject2* m_previous = nullptr; // of the first child: the last one
    VXObject2* m_next = nullptr;
    std::unique_ptr<const std::string> m_name; // few have one
    TROV::Thread* m_maker = nullptr;           // while it is being made
    int m_heapOffset = -1; // of this part from the start of what `new` returned; -1: not by `new`
    std::atomic<Life> m_life = Life::Alive; // `Over` for good
    bool m_isOrphan = false;                // its parent ended while it was being made
};

} // namespace VOXI
