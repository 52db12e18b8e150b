#pragma once

#include "voxi2/kernel/alignment.h"
#include "voxi2/kernel/brush.h"
#include "voxi2/kernel/canvaspath.h"
#include "voxi2/kernel/itemview.h"
#include "voxi2/kernel/pen.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/icon.h"
#include "voxi_util/pixmap.h"
#include "voxi_util/transform.h"
#include "voxi_util/vxfont.h"

#include <functional>
#include <memory>
#include <span>
#include <string>

namespace VOXI {

class VXCanvas2;

/// How a text is set into its room.
struct TextLayout
{
    /// Nothing in a direction: the left, the top.
    Alignment alignment{};
    /// Whether lines are broken between words where the room ends.
    bool wordWrap = false;
    /// How a line is cut that is too long for the room; texts that are wrapped are not.
    TextElideMode elide = TextElideMode::None;

    friend bool operator==(const TextLayout&, const TextLayout&) = default;
};

/// Which part of the ellipse's inside belongs to an arc.
enum class ArcKind { Open, Pie, Chord };

/// What a back end draws with; a `VXCanvas2` calls it, on the thread that paints, while it paints.
/// What each function does is said there.
class VOXI2_EXPORT CanvasEngine
{
public:
    using Point = VXPoint<double>;
    using Rect = VXRect<double>;
    using Painter = std::function<void(VXCanvas2)>;

    CanvasEngine() = default;
    virtual ~CanvasEngine();
    CanvasEngine(const CanvasEngine&) = delete;
    CanvasEngine& operator=(const CanvasEngine&) = delete;

    virtual Size<double> size() const = 0;
    virtual double pixelRatio() const = 0;

    virtual void save() = 0;
    virtual void restore() = 0;
    virtual void setPen(const Pen& pen) = 0;
    virtual void setBrush(const Brush& brush) = 0;
    virtual void setFont(const VXFont& font) = 0;
    virtual void setOpacity(double opacity) = 0;
    virtual void setAntialiasing(bool on) = 0;
    virtual void setTransform(const Transform& transform) = 0;
    virtual Transform transform() const = 0;
    virtual void clip(const Rect& rect) = 0;
    virtual void clip(const CanvasPath& path) = 0;

    virtual void drawLine(const Point& from, const Point& to) = 0;
    virtual void drawPolyline(std::span<const Point> points) = 0;
    virtual void drawPolygon(std::span<const Point> points, FillRule rule) = 0;
    virtual void drawRect(const Rect& rect) = 0;
    virtual void fillRect(const Rect& rect, const Brush& brush) = 0;
    virtual void drawRoundedRect(const Rect& rect, double radiusX, double radiusY) = 0;
    virtual void drawEllipse(const Rect& bounds) = 0;
    virtual void drawArc(const Rect& bounds, double start, double sweep, ArcKind kind) = 0;
    virtual void drawPath(const CanvasPath& path) = 0;

    virtual Size<double> measureText(const AnyText& text, double width) = 0;
    virtual std::wstring elidedText(const AnyText& text, double width, TextElideMode mode) = 0;
    virtual void drawText(const Point& baseline, const AnyText& text) = 0;
    virtual void drawText(const Rect& room, const AnyText& text, const TextLayout& layout) = 0;

    virtual void drawPixmap(const Rect& target, const Pixmap& pixmap, const Rect& source) = 0;
    virtual void drawPixmap(const Point& at, const Pixmap& pixmap) = 0;
    virtual void drawIcon(const Rect& target, const Icon& icon, Icon::IconMode mode,
                          Icon::IconState state) = 0;
};

/// Draws into pictures; a back end installs one. Any thread.
class VOXI2_EXPORT CanvasMaker
{
public:
    CanvasMaker() = default;
    virtual ~CanvasMaker();
    CanvasMaker(const CanvasMaker&) = delete;
    CanvasMaker& operator=(const CanvasMaker&) = delete;

    /// Calls the painter on the calling thread. `size` is not empty; null where it is too large, or
    /// nothing can be drawn.
    virtual Pixmap draw(Size<int> size, double pixelRatio,
                        const CanvasEngine::Painter& painter) = 0;

    /// Replaces the one of the process; null removes it.
    static void install(std::shared_ptr<CanvasMaker> maker);
    /// Null when there is none.
    static std::shared_ptr<CanvasMaker> installed();
};

} // namespace VOXI
