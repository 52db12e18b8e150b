#pragma once

#include "voxi/voxi_export.h"

namespace VOXI {

class VXObject;

/// A peer as the registry sees it.
class VOXI_EXPORT GuiObject
{
public:
    GuiObject() = default;
    GuiObject(const GuiObject&) = delete;
    GuiObject& operator=(const GuiObject&) = delete;
    virtual ~GuiObject();

    /// The abstract object that the peer serves; null when it is gone.
    virtual VXObject* getHandle() const;

    /// An address that the peers of one back end share and no others have, so that the back end
    /// knows its own without a search through their classes; null for none.
    virtual const void* family() const noexcept;

    /// Ends the service of an object that has ended on another thread, or is to go on without; on
    /// the peer's own thread. By default the peer is deleted.
    virtual void endService();

    /// Has the peer deleted once the code that runs now has returned. Twice is as good as once.
    virtual void scheduleDelete();

protected:
    /// How this kind of peer is deleted later; called once. By default the queue of the calling
    /// thread does it, at the latest when that thread ends.
    virtual void deferDelete();

    /// Whether `scheduleDelete` has been called.
    bool isDeletionScheduled() const noexcept { return m_deletionScheduled; }

private:
    bool m_deletionScheduled = false;
};

/// Makes `peer` what the look-ups find under `id`, in place of an earlier peer. Null removes it.
VOXI_EXPORT void addObject(unsigned id, GuiObject* peer);

/// Forgets the peer of `id`; nothing happens when there is none.
VOXI_EXPORT void removeObject(unsigned id);

/// The same if it is that very one.
VOXI_EXPORT void removeObject(unsigned id, const GuiObject* peer);

/// The peer of the object with that id, or null.
VOXI_EXPORT GuiObject* lookup(unsigned id);

/// The peer of `object`; null for a null or dead object, or one without peer.
VOXI_EXPORT GuiObject* lookup(const VXObject* object);

} // namespace VOXI
