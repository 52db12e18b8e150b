#pragma once

#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

class VXMimicSource2;

struct VXMimicView2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXMimicSource2*)> setSource{*this};
    TROV::Request<void(bool)> setAspectKept{*this};
    TROV::Request<void(bool)> setForwarding{*this};
    TROV::Request<VXMimicSource2*()> getSource{*this};
    TROV::Request<bool()> isAspectKept{*this};
    TROV::Request<bool()> isForwarding{*this};
    TROV::Request<VXRect<int>()> getPictureRect{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// Shows what a `VXMimicSource2` pictures, as large as there is room, and on request lets its user
/// work there. Around the picture is the background colour. The room that it asks for does not
/// depend on the picture.
///
/// A view may lie in what it shows: in its picture there is then the picture before.
class VOXI2_EXPORT VXMimicView2 : public VXWidget2
{
public:
    using ToolkitClass = VXMimicView2;

    explicit VXMimicView2(VXObject2* parent = nullptr);
    ~VXMimicView2() override;

    /// Null for none; a dead one is ignored. The view does not own it, and shows nothing once it
    /// has gone.
    void setSource(VXMimicSource2* source);
    VXMimicSource2* source() const;

    /// Whether the picture keeps its proportions and stands in the middle; on at first. Otherwise
    /// it fills the view.
    void setAspectKept(bool kept);
    bool isAspectKept() const;

    /// Whether what the user does to the view, by the pointer, the wheel and keys, goes to the
    /// source's widget as well; off at first. What is below the pointer there gets it, says what
    /// the pointer looks like, and shows its tool tip where the view has none; what was pressed
    /// keeps it until the buttons are released. Keys go to what was pressed last, and so does what
    /// an input method composes. Tab and Shift+Tab lead to the next widget in the source, unless
    /// the one there has another use for them; Ctrl+Tab and Ctrl+Shift+Tab lead out of the view. It
    /// is the user's doing, and reported by both. A view that takes no focus takes it from then on
    /// by a click and the Tab key.
    ///
    /// Nothing is forwarded to hidden widgets, and to those behind a modal dialog. A window of
    /// another program gets what the user does on X11 alone, and by the X server, which tells it
    /// that a program has sent it; some leave that out, or the wheel. Keys reach it as they are on
    /// the keyboard.
    void setForwarding(bool forwarding);
    bool isForwarding() const;

    /// Where the picture is, in the view; empty while there is none.
    VXRect<int> pictureRect() const;

private:
    VXMimicView2Emitters m_emitters;
};

} // namespace VOXI
