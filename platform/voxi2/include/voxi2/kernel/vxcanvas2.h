#pragma once

#include "voxi2/kernel/canvasengine.h"

#include <initializer_list>
#include <memory>
#include <thread>
#include <utility>

namespace VOXI {

/// What a program draws on: a frame while it is painted, or a picture.
///
///     frame->setPainter([](VXCanvas2 canvas, const VXRect<int>& area) {
///         canvas.setBrush(Color(214, 228, 244));
///         canvas.drawRoundedRect({10, 10, 100, 40}, 6, 6);
///         canvas.drawText({10, 10, 100, 40}, "box", {.alignment = AlignmentFlag::Center});
///     });
///
/// Copies are one and the same canvas. It is open until the function that it was given to returns,
/// on the thread that this was called on: later, and elsewhere, it draws nothing and answers
/// defaults, so that keeping one does no harm.
///
/// Units are those of the widget, y grows downwards; a screen may have several pixels for each.
/// Angles are in degrees, clockwise, from three o'clock on. What has a coordinate that is no finite
/// number is not drawn; coordinates beyond 16 777 215 become that. Of a text the first
/// `LongestText` characters count.
class VOXI2_EXPORT VXCanvas2
{
public:
    using Point = VXPoint<double>;
    using Rect = VXRect<double>;

    static constexpr std::size_t LongestText = 65'536;

    /// One that was never open.
    VXCanvas2() = default;

    /// False once the painting is over, and on other threads.
    bool isOpen() const noexcept { return engine() != nullptr; }
    /// What is drawn on, in units; 0 x 0 when it is not open, and so with the other answers.
    Size<double> size() const
    {
        return ask<Size<double>>([](auto& e) { return e.size(); });
    }
    /// How many pixels there are for each unit, along a side.
    double pixelRatio() const
    {
        return ask<double>([](auto& e) { return e.pixelRatio(); });
    }

    // What is drawn with. At first: a pen of one unit in the colour of the frame's texts (black in
    // a picture), no brush, the frame's font, edges smoothed.
    void setPen(const Pen& pen) { tell(&E::setPen, pen); }
    void setPen(Color color, double width = 1) { setPen(Pen{.color = color, .width = width}); }
    void setNoPen() { setPen(Pen{.style = PenStyle::None}); }
    void setBrush(const Brush& brush) { tell(&E::setBrush, brush); }
    void setNoBrush() { setBrush(Brush()); }
    /// What the font leaves open is that of the frame.
    void setFont(const VXFont& font) { tell(&E::setFont, font); }
    /// Of all that is drawn from now on, from 0 to 1.
    void setOpacity(double opacity) { tell(&E::setOpacity, opacity); }
    /// Whether the edges of shapes are smoothed. Texts have their own way.
    void setAntialiasing(bool on) { tell(&E::setAntialiasing, on); }

    /// Keeps all the above, the transform and the clip, until `restore` brings back what was kept
    /// last. Without anything kept that does nothing; what is left over is forgotten at the end.
    void save() { tell(&E::save); }
    void restore() { tell(&E::restore); }

    // Where it is drawn. Each changes what is drawn afterwards, in the units there were before.
    // What would make numbers infinite is ignored.
    void translate(double x, double y) { transform(Transform::translation(x, y)); }
    void scale(double x, double y) { transform(Transform::scaling(x, y)); }
    /// About 0, 0.
    void rotate(double degrees);
    void transform(const Transform& first)
    {
        if (E* const e = engine())
            e->setTransform(first * e->transform());
    }
    /// In the place of all former ones; the default is what it was at first.
    void setTransform(const Transform& transform) { tell(&E::setTransform, transform); }
    Transform currentTransform() const
    {
        return ask<Transform>([](auto& e) { return e.transform(); });
    }

    /// Nothing is drawn outside from now on; only `restore` undoes it.
    void clip(const Rect& rect)
    {
        if (E* const e = engine())
            e->clip(rect);
    }
    void clip(const CanvasPath& path)
    {
        if (E* const e = engine())
            e->clip(path);
    }

    // Shapes: outlined by the pen, filled by the brush
    void drawLine(const Point& from, const Point& to) { tell(&E::drawLine, from, to); }
    void drawPolyline(std::span<const Point> points) { tell(&E::drawPolyline, points); }
    void drawPolyline(std::initializer_list<Point> points)
    {
        drawPolyline(std::span(points.begin(), points.size()));
    }
    void drawPolygon(std::span<const Point> points, FillRule rule = FillRule::OddEven)
    {
        tell(&E::drawPolygon, points, rule);
    }
    void drawPolygon(std::initializer_list<Point> points, FillRule rule = FillRule::OddEven)
    {
        drawPolygon(std::span(points.begin(), points.size()), rule);
    }
    void drawRect(const Rect& rect) { tell(&E::drawRect, rect); }
    /// Without pen, and with this brush.
    void fillRect(const Rect& rect, const Brush& brush) { tell(&E::fillRect, rect, brush); }
    void drawRoundedRect(const Rect& rect, double radiusX, double radiusY)
    {
        tell(&E::drawRoundedRect, rect, radiusX, radiusY);
    }
    void drawEllipse(const Rect& bounds) { tell(&E::drawEllipse, bounds); }
    void drawCircle(const Point& center, double radius)
    {
        drawEllipse({center.x - radius, center.y - radius, 2 * radius, 2 * radius});
    }
    /// A part of the ellipse in `bounds`; only pies and chords are filled. At most once around.
    void drawArc(const Rect& bounds, double start, double sweep, ArcKind kind = ArcKind::Open)
    {
        tell(&E::drawArc, bounds, start, sweep, kind);
    }
    void drawPath(const CanvasPath& path) { tell(&E::drawPath, path); }

    // Texts, in the pen's colour and the font. They are plain; a line ends where a '\n' is.
    /// The room that a text takes. With a width of more than 0 its lines are broken between words
    /// where that ends.
    Size<double> measureText(const AnyText& text, double width = -1) const
    {
        return ask<Size<double>>([&](auto& e) { return e.measureText(text, width); });
    }
    /// The text, cut so that it fits: what is left out becomes an ellipsis.
    std::wstring elidedText(const AnyText& text, double width,
                            TextElideMode mode = TextElideMode::Right) const
    {
        return ask<std::wstring>([&](auto& e) { return e.elidedText(text, width, mode); });
    }
    /// One line that begins at a point, which its letters stand on.
    void drawText(const Point& baseline, const AnyText& text)
    {
        if (E* const e = engine())
            e->drawText(baseline, text);
    }
    /// Set into a room; what does not fit in is drawn all the same, unless it is cut.
    void drawText(const Rect& room, const AnyText& text, const TextLayout& layout = {})
    {
        if (E* const e = engine())
            e->drawText(room, text, layout);
    }

    // Pictures. Null ones draw nothing.
    /// As large as it is: a pixmap of two pixels a unit takes half as many units.
    void drawPixmap(const Point& at, const Pixmap& pixmap)
    {
        if (E* const e = engine())
            e->drawPixmap(at, pixmap);
    }
    /// As large as `target`; of `source`, in the pixmap's pixels, or all of it where that is empty.
    void drawPixmap(const Rect& target, const Pixmap& pixmap, const Rect& source = {})
    {
        if (E* const e = engine())
            e->drawPixmap(target, pixmap, source);
    }
    /// As large as fits in, in the middle.
    void drawIcon(const Rect& target, const Icon& icon,
                  Icon::IconMode mode = Icon::IconMode::Normal,
                  Icon::IconState state = Icon::IconState::Off)
    {
        tell(&E::drawIcon, target, icon, mode, state);
    }

    /// Calls the painter, with a canvas that is transparent at first, and gives what it has drawn,
    /// of `size` units and as many pixels for each. Null when there is no back end, the size is
    /// empty, or the picture would have more than `ImageCompositor::MaxPixels`. On any thread: the
    /// painter runs there, and what it throws comes back.
    static Pixmap draw(const Size<int>& size, double pixelRatio,
                       const CanvasEngine::Painter& painter);

    /// For back ends: what calls a painter. While it lives the canvas is open.
    class VOXI2_EXPORT Session
    {
    public:
        explicit Session(CanvasEngine& engine);
        ~Session();
        Session(const Session&) = delete;
        Session& operator=(const Session&) = delete;

        VXCanvas2 canvas() const { return VXCanvas2(m_state); }

    private:
        friend class VXCanvas2;
        struct State
        {
            const std::thread::id m_thread = std::this_thread::get_id();
            CanvasEngine* m_engine; ///< of that thread; null when it is over
        };
        std::shared_ptr<State> m_state;
    };

private:
    using E = CanvasEngine;

    explicit VXCanvas2(std::shared_ptr<Session::State> state) : m_state(std::move(state)) {}

    E* engine() const noexcept
    {
        return m_state && m_state->m_thread == std::this_thread::get_id() ? m_state->m_engine
                                                                          : nullptr;
    }

    template <class... Parameters, class... Arguments>
    void tell(void (E::*function)(Parameters...), const Arguments&... arguments)
    {
        if (E* const e = engine())
            (e->*function)(arguments...);
    }

    template <class Answer, class Question>
    Answer ask(const Question& question) const
    {
        E* const e = engine();
        return e ? question(*e) : Answer();
    }

    std::shared_ptr<Session::State> m_state;
};

/// Paints a frame's whole inside; `area` is the part that needs it, and nothing is drawn outside of
/// that.
using FramePainter = std::function<void(VXCanvas2 canvas, const VXRect<int>& area)>;

} // namespace VOXI
