#pragma once

#include "voxi2/kernel/dragdrop.h"
#include "voxi2/kernel/vxevent2.h"
#include "voxi_util/pixmap.h"
#include "voxi_util/vxflags.h"
#include "voxi_util/vxmimedata2.h"

#include <memory>
#include <string>
#include <utility>

namespace VOXI {

class VXPaletteView2;

/// Another entry of a palette became the current one.
class VXPaletteEntryEvent2 : public VXEvent2<VXPaletteView2, unsigned>
{
public:
    using VXEvent2::VXEvent2;
    VXPaletteView2* palette() const noexcept { return sender(); }
    /// Its row.
    unsigned entry() const noexcept { return value(); }
};

/// The user looks for something else.
class VXPaletteSearchEvent2 : public VXEvent2<VXPaletteView2, std::wstring>
{
public:
    using VXEvent2::VXEvent2;
    VXPaletteView2* palette() const noexcept { return sender(); }
    const std::wstring& text() const noexcept { return value(); }
};

/// The user draws an entry away with the pointer: what does he drag? All copies of an event share
/// one answer, which counts while the event is being sent.
class VXPaletteDragEvent2 : public VXEvent2<VXPaletteView2, unsigned>
{
public:
    struct Answer
    {
        VXMimeData2 mimeData;
        VXFlags<DropAction> actions = DropAction::Copy;
        Pixmap pixmap;
    };

    VXPaletteDragEvent2(VXPaletteView2* palette, unsigned entry)
        : VXEvent2(palette, entry),
          m_answer(std::make_shared<Answer>())
    {}

    VXPaletteView2* palette() const noexcept { return sender(); }
    unsigned entry() const noexcept { return value(); }

    /// Without any the entry does not leave the palette.
    void setMimeData(const VXMimeData2& data) const { m_answer->mimeData = data; }
    /// What may be done with it; by default it is copied.
    void setActions(VXFlags<DropAction> actions) const { m_answer->actions = actions; }
    /// Shown at the pointer; by default the entry as it is drawn.
    void setPixmap(const Pixmap& pixmap) const { m_answer->pixmap = pixmap; }

    const Answer& answer() const noexcept { return *m_answer; }

private:
    std::shared_ptr<Answer> m_answer;
};

/// The user has dropped an entry of a palette at another place. Nothing has changed: to move it is
/// up to the model.
class VXPaletteMovedEvent2 : public VXEvent2<VXPaletteView2, unsigned, unsigned, unsigned>
{
public:
    using VXEvent2::VXEvent2;
    VXPaletteView2* palette() const noexcept { return sender(); }
    unsigned entry() const noexcept { return value<0>(); }
    /// Where it is to go.
    unsigned group() const noexcept { return value<1>(); }
    /// The entry of that group before which it is to stand; 0: at the end.
    unsigned before() const noexcept { return value<2>(); }
};

/// The user drags an entry of a palette to another place: may it go there? All copies of an event
/// share one answer, which counts while the event is being sent.
class VXPaletteMovingEvent2 : public VXPaletteMovedEvent2
{
public:
    VXPaletteMovingEvent2(VXPaletteView2* palette, unsigned entry, unsigned group, unsigned before)
        : VXPaletteMovedEvent2(palette, entry, group, before),
          m_refused(std::make_shared<bool>(false))
    {}

    void refuse() const noexcept { *m_refused = true; }
    bool isRefused() const noexcept { return *m_refused; }

private:
    std::shared_ptr<bool> m_refused;
};

} // namespace VOXI
