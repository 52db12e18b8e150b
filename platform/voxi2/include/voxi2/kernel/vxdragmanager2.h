#pragma once

#include "voxi2/kernel/dragdrop.h"
#include "voxi2/kernel/vxobject2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/geometry.h"
#include "voxi_util/pixmap.h"
#include "voxi_util/stringid.h"
#include "voxi_util/vxflags.h"
#include "voxi_util/vxmimedata2.h"

namespace VOXI {

class VXWidget2;

/// What is dragged.
struct VXDrag2
{
    VXWidget2* source = nullptr; ///< where it starts; needed
    VXMimeData2 mimeData;
    VXFlags<DropAction> actions = DropAction::Copy; ///< what the source allows
    DropAction defaultAction = DropAction::Ignore;  ///< proposed first; Ignore: the system decides
    Pixmap pixmap;                ///< shown at the pointer; null: the system's own picture
    VXPoint<int> hotSpot{-1, -1}; ///< the pixel of it under the pointer; (-1, -1): the centre
};

/// A drag ended: what the target did with the data, `Ignore` when it was not dropped.
class VXDragFinishedEvent2
{
public:
    VXDragFinishedEvent2(VXWidget2* source, DropAction action) noexcept
        : m_source(source),
          m_action(action)
    {}

    /// Null when it was destroyed during the drag.
    VXWidget2* source() const noexcept { return m_source; }
    DropAction action() const noexcept { return m_action; }

private:
    VXWidget2* m_source;
    DropAction m_action;
};

struct VXDragManager2Emitters : TROV::EmittersTable<VXObject2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXDrag2)> startDrag{*this};
    TROV::Request<void()> cancelDrag{*this};
    TROV::Request<bool()> isDragging{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXDragFinishedEvent2&)> finished{*this};
};

/// Starts drags. There is one, made when a back end comes up.
class VOXI2_EXPORT VXDragManager2 final : public VXObject2
{
public:
    using ToolkitClass = VXDragManager2;

    ~VXDragManager2() override;

    /// Makes the manager on the back end of that key; again it does nothing.
    static void createImpl(StringID key);

    /// Null while no back end is up.
    static VXDragManager2* instance();

    /// Starts a drag, usually from a handler of the source's `dragDetected()`. Returns at once; the
    /// outcome is reported by `finished()`. Ignored while another drag goes on, for a dead source
    /// and for no data.
    void startDrag(const VXDrag2& drag);
    /// Gives the drag in progress up.
    void cancelDrag();
    bool isDragging() const;

    /// A drag that was started here has ended.
    TROV::Signal<void(const VXDragFinishedEvent2&)> finished() const
    {
        return m_emitters.finished.signal();
    }

private:
    VXDragManager2();

    VXDragManager2Emitters m_emitters;
};

} // namespace VOXI
