#pragma once

#include "trov/emitterstable.h"
#include "voxi/vxobject.h"
#include "voxi2/kernel/vxfactory2.h"
#include "voxi2/voxi2_export.h"

#include <vector>

namespace VOXI {

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
/// Make objects with `new`; a child belongs to its parent and is deleted with it. `delete` and
/// `destroy()` mean the same and are allowed on any thread and inside any handler. All setters may
/// be called from any thread: elsewhere than on the toolkit's own thread they are queued, and they
/// are in effect for the next getter; getters wait for the answer. Without a peer setters do
/// nothing and getters give defaults.
class VOXI2_EXPORT VXObject2 : public VXObject
{
public:
    ~VXObject2() override;

    /// Deletes the object and its children. Does nothing while that is going on already, which a
    /// handler of `destroyed()` may not know.
    void destroy();

    /// The object that owns this one; null for none.
    VXObject2* parent() const;

    /// Moves the object, and its peer, to another owner. With null it stands alone: a widget
    /// becomes a window. A parent that is dead, or a descendant of the object, is ignored.
    void setParent(VXObject2* parent);

    /// The objects that this one owns, oldest first; with `recursive` their children follow each.
    std::vector<VXObject2*> children(bool recursive = false) const;

    /// The abstract object of the peer that holds this one's peer, which for laid-out widgets is
    /// not always the owner; null for none.
    VXObject* peerParent() const;

    /// The abstract objects whose peers are held by this one's.
    std::vector<VXObject*> peerChildren(bool recursive = false) const;

    /// Sent with the object's id when it is about to go, while it still can be asked. Reaches
    /// handlers on the thread that ends the object; on others the connection may end first.
    TROV::Signal<void(unsigned)> destroyed() const { return m_emitters.destroyed.signal(); }

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
        if (VXFactory2* factory = factoryForNewObject())
            (factory->*request).emitAndWait(object, emitters, extra...);
    }

    VXObject2Emitters m_emitters;

private:
    VXFactory2* factoryForNewObject() const;
    void announceEnd() noexcept;
    void link(VXObject2* parent);
    void unlink();
    bool isAncestorOf(const VXObject2* object) const;
    void releasePeer();

    // The tree of owners, guarded by the object lock.
    VXObject2* m_parent = nullptr;
    VXObject2* m_firstChild = nullptr;
    VXObject2* m_previous = nullptr; // of the first child: the last one
    VXObject2* m_next = nullptr;
    bool m_retired = false;
};

} // namespace VOXI
