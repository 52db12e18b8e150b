#pragma once

#include "voxi2/kernel/vxcanvas2.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QPainterPath>

#include <optional>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace VOXI {

/// Draws what a program asks of its canvas, by a painter that somebody else has opened. In the end
/// that painter has as much saved as it had before. On the painter's thread.
class VOXI2_QT_EXPORT QtCanvas final : public CanvasEngine
{
public:
    explicit QtCanvas(QPainter& painter);
    ~QtCanvas() override;

    Size<double> size() const override;
    double pixelRatio() const override;

    void save() override;
    void restore() override;
    void setPen(const Pen& pen) override;
    void setBrush(const Brush& brush) override;
    void setFont(const VXFont& font) override;
    void setOpacity(double opacity) override;
    void setAntialiasing(bool on) override;
    void setTransform(const Transform& transform) override;
    Transform transform() const override;
    void clip(const Rect& rect) override;
    void clip(const CanvasPath& path) override;

    void drawLine(const Point& from, const Point& to) override;
    void drawPolyline(std::span<const Point> points) override;
    void drawPolygon(std::span<const Point> points, FillRule rule) override;
    void drawRect(const Rect& rect) override;
    void fillRect(const Rect& rect, const Brush& brush) override;
    void drawRoundedRect(const Rect& rect, double radiusX, double radiusY) override;
    void drawEllipse(const Rect& bounds) override;
    void drawArc(const Rect& bounds, double start, double sweep, ArcKind kind) override;
    void drawPath(const CanvasPath& path) override;

    Size<double> measureText(const AnyText& text, double width) override;
    std::wstring elidedText(const AnyText& text, double width, TextElideMode mode) override;
    void drawText(const Point& baseline, const AnyText& text) override;
    void drawText(const Rect& room, const AnyText& text, const TextLayout& layout) override;

    void drawPixmap(const Rect& target, const Pixmap& pixmap, const Rect& source) override;
    void drawPixmap(const Point& at, const Pixmap& pixmap) override;
    void drawIcon(const Rect& target, const Icon& icon, Icon::IconMode mode,
                  Icon::IconState state) override;

private:
    QPainter& m_painter;
    // What was set last, so that the same again costs nothing; none where that is not known.
    std::optional<Pen> m_pen;
    std::optional<Brush> m_brush;
    std::optional<VXFont> m_font;
    std::size_t m_saved = 0;
};

/// The path as Qt's.
VOXI2_QT_EXPORT QPainterPath VX2Qt(const CanvasPath& path);

/// Lets programs draw into pictures.
VOXI2_QT_EXPORT void installQtCanvasMaker();

} // namespace VOXI
