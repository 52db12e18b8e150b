#pragma once

#include "voxi2/kernel/events.h"
#include "voxi2/kernel/vxobject2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXDragDelegate2Emitters : TROV::EmittersTable<VXObject2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXDragEvent2&)> entered{*this};
    TROV::Event<void(const VXDragEvent2&)> moved{*this};
    TROV::Event<void(const VXDragEvent2&)> left{*this};
    TROV::Event<void(const VXDragEvent2&)> dropped{*this};
};

/// Decides for one or more widgets what may be dropped on them.
///
/// Set it on widgets with `setDragDelegate`; they must accept drops. Its handlers run while the
/// pointer waits: those on the toolkit's thread can answer, with `accept` or `ignore` of the event,
/// others only learn of it.
class VOXI2_EXPORT VXDragDelegate2 : public VXObject2
{
public:
    using ToolkitClass = VXDragDelegate2;

    explicit VXDragDelegate2(VXObject2* parent = nullptr);
    ~VXDragDelegate2() override;

    /// A drag comes over the widget. Without an acceptance nothing more is heard of it, not even
    /// that it left.
    TROV::Signal<void(const VXDragEvent2&)> entered() const { return m_emitters.entered.signal(); }
    /// The drag moves over the widget. Without an answer the last one counts.
    TROV::Signal<void(const VXDragEvent2&)> moved() const { return m_emitters.moved.signal(); }
    /// An accepted drag left the widget or was given up.
    TROV::Signal<void(const VXDragEvent2&)> left() const { return m_emitters.left.signal(); }
    /// The data was dropped; the accepted action is what the source learns.
    TROV::Signal<void(const VXDragEvent2&)> dropped() const { return m_emitters.dropped.signal(); }

private:
    VXDragDelegate2Emitters m_emitters;
};

} // namespace VOXI
