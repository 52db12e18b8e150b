#include "voxi2_qt/kernel/qtcanvas.h"

#include "enumtable.h"
#include "qtcanvasvalues.h"
#include "voxi2_qt/kernel/qtcolor.h"
#include "voxi2_qt/kernel/qtfont.h"

#include <QPaintDevice>
#include <QPainter>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>

namespace VOXI {

namespace {

constexpr auto PenStyles = enumTable<PenStyle, Qt::PenStyle>({
    {PenStyle::Solid, Qt::SolidLine},
    {PenStyle::None, Qt::NoPen},
    {PenStyle::Dash, Qt::DashLine},
    {PenStyle::Dot, Qt::DotLine},
    {PenStyle::DashDot, Qt::DashDotLine},
    {PenStyle::DashDotDot, Qt::DashDotDotLine},
});

constexpr auto PenCaps = enumTable<PenCap, Qt::PenCapStyle>({
    {PenCap::Flat, Qt::FlatCap},
    {PenCap::Square, Qt::SquareCap},
    {PenCap::Round, Qt::RoundCap},
});

constexpr auto PenJoins = enumTable<PenJoin, Qt::PenJoinStyle>({
    {PenJoin::Miter, Qt::MiterJoin},
    {PenJoin::Bevel, Qt::BevelJoin},
    {PenJoin::Round, Qt::RoundJoin},
});

constexpr auto Spreads = enumTable<GradientSpread, QGradient::Spread>({
    {GradientSpread::Pad, QGradient::PadSpread},
    {GradientSpread::Repeat, QGradient::RepeatSpread},
    {GradientSpread::Reflect, QGradient::ReflectSpread},
});

Qt::FillRule VX2Qt(FillRule rule)
{
    return rule == FillRule::Winding ? Qt::WindingFill : Qt::OddEvenFill;
}

/// Beyond it products of two numbers that are set are none any more.
bool isUsable(const Transform& t)
{
    constexpr double Most = 1e9;
    return std::abs(t.a) <= Most && std::abs(t.b) <= Most && std::abs(t.c) <= Most
           && std::abs(t.d) <= Most && std::abs(t.dx) <= Most && std::abs(t.dy) <= Most;
}

/// Dashes and gaps in turn; none for a pattern without any length.
QList<qreal> dashesOf(const Pen& pen)
{
    QList<qreal> dashes;
    double all = 0;
    for (const double length : pen.dashes) {
        if (dashes.size() == static_cast<qsizetype>(Pen::MostDashes))
            break;
        dashes.append(length > 0 ? std::min(length, FarthestOnCanvas) : 0);
        all += dashes.last();
    }
    if (all <= 0)
        return {};
    // Qt wants pairs: the second time around gaps are dashes.
    return dashes.size() % 2 != 0 ? dashes + dashes : dashes;
}

QPen penFrom(const Pen& pen, double pixelRatio)
{
    const double width = pen.width > 0 ? std::min(pen.width, FarthestOnCanvas) : 0;
    // Qt counts the width of cosmetic pens in pixels.
    QPen result(VX2Qt(pen.color), pen.isCosmetic ? width * pixelRatio : width,
                PenStyles.toQt(pen.style), PenCaps.toQt(pen.cap), PenJoins.toQt(pen.join));
    if (pen.isCosmetic)
        result.setCosmetic(true);
    if (pen.style == PenStyle::Custom) {
        if (const QList<qreal> dashes = dashesOf(pen); !dashes.isEmpty())
            result.setDashPattern(dashes);
    }
    if (pen.dashOffset != 0 && std::isfinite(pen.dashOffset))
        result.setDashOffset(std::clamp(pen.dashOffset, -FarthestOnCanvas, FarthestOnCanvas));
    return result;
}

QBrush gradientFrom(QGradient& gradient, const Brush::Gradient& from)
{
    for (const GradientStop& stop : from.stops)
        gradient.setColorAt(std::clamp(stop.position, 0.0, 1.0), VX2Qt(stop.color));
    gradient.setSpread(Spreads.toQt(from.spread));
    return gradient;
}

QBrush brushFrom(const Brush& brush)
{
    const Brush::Gradient* const gradient = brush.gradient();
    QPointF from;
    QPointF to;
    if (brush.style() == Brush::Style::Color)
        return VX2Qt(brush.color());
    if (!gradient || !place(from, gradient->from) || !place(to, gradient->to))
        return Qt::NoBrush;
    if (brush.style() == Brush::Style::Linear) {
        QLinearGradient linear(from, to);
        return gradientFrom(linear, *gradient);
    }
    QRadialGradient radial(from,
                           gradient->radius > 0 ? std::min(gradient->radius, FarthestOnCanvas) : 0);
    return gradientFrom(radial, *gradient);
}

using QtPoints = QVarLengthArray<QPointF, 64>;

/// None when one of them is no place.
QtPoints pointsFrom(std::span<const VXPoint<double>> points)
{
    QtPoints result(static_cast<qsizetype>(points.size()));
    bool arePlaces = true;
    std::transform(points.begin(), points.end(), result.begin(), [&](const auto& point) {
        QPointF made;
        arePlaces = place(made, point) && arePlaces;
        return made;
    });
    if (!arePlaces)
        result.clear();
    return result;
}

} // namespace

QtCanvas::QtCanvas(QPainter& painter) : m_painter(painter)
{
    setAntialiasing(true);
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform);
}

QtCanvas::~QtCanvas()
{
    while (m_saved > 0)
        restore();
}

Size<double> QtCanvas::size() const
{
    const QPaintDevice& device = *m_painter.device();
    // A widget's are units already, a picture's are not.
    const double ratio = device.devType() == QInternal::Widget ? 1 : device.devicePixelRatioF();
    return {device.width() / ratio, device.height() / ratio};
}

double QtCanvas::pixelRatio() const { return m_painter.device()->devicePixelRatioF(); }

// What is drawn with ------------------------------------------------------------------------------

void QtCanvas::save()
{
    m_painter.save();
    ++m_saved;
}

void QtCanvas::restore()
{
    if (m_saved == 0)
        return;
    --m_saved;
    m_painter.restore();
    m_pen.reset();
    m_brush.reset();
    m_font.reset();
}

void QtCanvas::setPen(const Pen& pen)
{
    if (m_pen == pen)
        return;
    m_pen = pen;
    m_painter.setPen(penFrom(pen, pixelRatio()));
}

void QtCanvas::setBrush(const Brush& brush)
{
    if (m_brush == brush)
        return;
    m_brush = brush;
    m_painter.setBrush(brushFrom(brush));
}

void QtCanvas::setFont(const VXFont& font)
{
    if (m_font == font)
        return;
    m_font = font;
    VXFont usable = font;
    usable.setPointSize(std::min(font.pointSize(), LargestFont));
    m_painter.setFont(VX2Qt(usable));
}

void QtCanvas::setOpacity(double opacity)
{
    if (!std::isnan(opacity))
        m_painter.setOpacity(std::clamp(opacity, 0.0, 1.0));
}

void QtCanvas::setAntialiasing(bool on) { m_painter.setRenderHint(QPainter::Antialiasing, on); }

void QtCanvas::setTransform(const Transform& t)
{
    if (isUsable(t))
        m_painter.setWorldTransform(QTransform(t.a, t.b, t.c, t.d, t.dx, t.dy));
}

Transform QtCanvas::transform() const
{
    const QTransform& t = m_painter.worldTransform();
    return {t.m11(), t.m12(), t.m21(), t.m22(), t.dx(), t.dy()};
}

void QtCanvas::clip(const Rect& rect)
{
    QRectF area;
    place(area, rect); // what is none has no inside
    m_painter.setClipRect(area, Qt::IntersectClip);
}

void QtCanvas::clip(const CanvasPath& path)
{
    m_painter.setClipPath(VX2Qt(path), Qt::IntersectClip);
}

// Shapes ------------------------------------------------------------------------------------------

void QtCanvas::drawLine(const Point& from, const Point& to)
{
    QPointF begin;
    QPointF end;
    if (place(begin, from) && place(end, to))
        m_painter.drawLine(begin, end);
}

void QtCanvas::drawPolyline(std::span<const Point> points)
{
    const QtPoints places = pointsFrom(points);
    if (!places.isEmpty())
        m_painter.drawPolyline(places.constData(), static_cast<int>(places.size()));
}

void QtCanvas::drawPolygon(std::span<const Point> points, FillRule rule)
{
    const QtPoints places = pointsFrom(points);
    if (!places.isEmpty())
        m_painter.drawPolygon(places.constData(), static_cast<int>(places.size()), VX2Qt(rule));
}

void QtCanvas::drawRect(const Rect& rect)
{
    QRectF area;
    if (place(area, rect))
        m_painter.drawRect(area);
}

void QtCanvas::fillRect(const Rect& rect, const Brush& brush)
{
    QRectF area;
    if (!place(area, rect))
        return;
    if (brush.style() == Brush::Style::Color)
        m_painter.fillRect(area, VX2Qt(brush.color()));
    else
        m_painter.fillRect(area, brushFrom(brush));
}

void QtCanvas::drawRoundedRect(const Rect& rect, double radiusX, double radiusY)
{
    QRectF area;
    QPointF radius;
    if (!place(area, rect))
        return;
    if (place(radius, {radiusX, radiusY}) && radius.x() > 0 && radius.y() > 0)
        m_painter.drawRoundedRect(area, radius.x(), radius.y());
    else
        m_painter.drawRect(area);
}

void QtCanvas::drawEllipse(const Rect& bounds)
{
    QRectF area;
    if (place(area, bounds))
        m_painter.drawEllipse(area);
}

void QtCanvas::drawArc(const Rect& bounds, double start, double sweep, ArcKind kind)
{
    QRectF area;
    QPointF angles;
    if (!place(area, bounds) || !place(angles, {start, sweep}))
        return;
    // Qt's angles go the other way around.
    const double from = -std::fmod(angles.x(), 360);
    const double way = -std::clamp(angles.y(), -360.0, 360.0);
    QPainterPath path;
    if (kind == ArcKind::Pie)
        path.moveTo(area.center());
    else
        path.arcMoveTo(area, from);
    path.arcTo(area, from, way);
    if (kind == ArcKind::Open) {
        m_painter.strokePath(path, m_painter.pen());
    } else {
        path.closeSubpath();
        m_painter.drawPath(path);
    }
}

void QtCanvas::drawPath(const CanvasPath& path)
{
    if (!path.isEmpty())
        m_painter.drawPath(VX2Qt(path));
}

QPainterPath VX2Qt(const CanvasPath& path)
{
    using Kind = CanvasPath::Element::Kind;
    const auto point = [](const VXPoint<double>& p) { return QPointF(p.x, p.y); };
    QPainterPath result;
    result.reserve(static_cast<int>(path.elements().size()));
    result.setFillRule(VX2Qt(path.fillRule()));
    for (const CanvasPath::Element& element : path.elements()) {
        const auto& p = element.points;
        switch (element.kind) {
        case Kind::Move:
            result.moveTo(point(p[0]));
            break;
        case Kind::Line:
            result.lineTo(point(p[0]));
            break;
        case Kind::Curve:
            result.cubicTo(point(p[0]), point(p[1]), point(p[2]));
            break;
        case Kind::Close:
            result.closeSubpath();
            break;
        }
    }
    return result;
}

} // namespace VOXI
