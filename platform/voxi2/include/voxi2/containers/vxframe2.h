#pragma once

#include "voxi2/kernel/frame.h"
#include "voxi2/kernel/vxcanvas2.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"

// What a paint callback is given is the back end's.
class QPainter;
class QRect;

namespace VOXI {

/// Paints a frame's whole inside; called on the toolkit's thread, while the frame is painted only.
/// The painter is open on the frame, the rectangle is the frame's own.
using FramePaintCallback = void (*)(QPainter* painter, QRect rect);

struct VXFrame2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<FrameShadow()> getShadow{*this};
    TROV::Request<FrameShape()> getShape{*this};
    TROV::Request<int()> getLineWidth{*this};
    TROV::Request<FramePaintCallback()> getPaintCallback{*this};
    TROV::Request<void(FrameShadow)> setShadow{*this};
    TROV::Request<void(FrameShape)> setShape{*this};
    TROV::Request<void(int)> setLineWidth{*this};
    TROV::Request<void(FramePaintCallback)> setPaintCallback{*this};
    TROV::Request<bool()> hasPainter{*this};
    TROV::Request<void(FramePainter)> setPainter{*this};
    TROV::Request<void(VXRect<int>)> updateArea{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// An area with a frame around it, that holds other widgets. Once it is given a colour it paints
/// its background.
class VOXI2_EXPORT VXFrame2 : public VXWidget2
{
public:
    using ToolkitClass = VXFrame2;

    explicit VXFrame2(VXObject2* parent = nullptr);
    ~VXFrame2() override;

    /// How the frame is lit; values that are none of the three mean `Plain`.
    void setShadow(FrameShadow shadow);
    FrameShadow shadow() const;
    /// What is drawn; `None` at first.
    void setShape(FrameShape shape);
    FrameShape shape() const;
    /// The width of the frame's line, in pixels.
    void setLineWidth(int width);
    int lineWidth() const;

    /// Takes the painting over: from then on neither frame nor highlight are drawn, but what the
    /// callback paints. Null gives it back. The frame is painted anew soon, not at once.
    void setPaintCallback(FramePaintCallback callback);
    /// Null while the frame paints itself.
    FramePaintCallback paintCallback() const;

    /// The same for programs that know nothing of the back end: the painter is called on the
    /// toolkit's thread whenever the frame is painted, and by the frame alone, not by the callback.
    /// An empty function takes it away. It is kept, with all that it holds, as long as the frame.
    ///
    /// It may do anything. What it throws goes where exceptions of handlers go; what it has drawn
    /// by then stays. While it runs a loop of its own, the frame's window is not painted.
    void setPainter(FramePainter painter);
    bool hasPainter() const;
    using VXWidget2::update;
    /// Paints a part when the program is idle next.
    void update(const VXRect<int>& area);

private:
    VXFrame2Emitters m_emitters;
};

} // namespace VOXI
