#pragma once

#include "voxi2/voxi2_export.h"
#include "voxi_util/geometry.h"
#include "voxi_util/transform.h"

#include <span>
#include <vector>

namespace VOXI {

/// What is inside where a path crosses itself.
enum class FillRule {
    OddEven, ///< what a ray from there leaves by crossing the outline an odd number of times
    Winding  ///< what the outline goes around at all
};

/// Lines and curves that are drawn together, and asked what lies in them. A value; any thread.
///
/// It consists of outlines. Each begins where `moveTo` says, at first at 0, 0; filling closes those
/// that are open. Points that are no finite numbers are left out; coordinates beyond `Farthest`
/// become that.
class VOXI2_EXPORT CanvasPath
{
public:
    static constexpr double Farthest = 16'777'215;

    struct Element
    {
        enum class Kind { Move, Line, Curve, Close };

        Kind kind;
        /// Of a curve the two points that draw it to them, then its end; of others the first alone.
        VXPoint<double> points[3];

        friend bool operator==(const Element&, const Element&) = default;
    };

    CanvasPath() = default;

    void moveTo(const VXPoint<double>& point);
    void lineTo(const VXPoint<double>& point);
    /// A curve that leaves for `first` and arrives from `second`.
    void curveTo(const VXPoint<double>& first, const VXPoint<double>& second,
                 const VXPoint<double>& end);
    /// The same with one point for both.
    void quadTo(const VXPoint<double>& control, const VXPoint<double>& end);
    /// A part of the ellipse in `bounds`, behind a line to where it begins. In degrees, from three
    /// o'clock on, clockwise; at most once around.
    void arcTo(const VXRect<double>& bounds, double start, double sweep);
    /// A line back to where the outline began; the next one begins there, too.
    void close();

    // Outlines of their own
    void addRect(const VXRect<double>& rect);
    /// With quarters of ellipses at the corners, no larger than there is room.
    void addRoundedRect(const VXRect<double>& rect, double radiusX, double radiusY);
    void addEllipse(const VXRect<double>& bounds);
    void addPolygon(std::span<const VXPoint<double>> points);
    void addPath(const CanvasPath& other);

    bool isEmpty() const noexcept { return m_elements.empty(); }
    const std::vector<Element>& elements() const noexcept { return m_elements; }

    FillRule fillRule() const noexcept { return m_fillRule; }
    void setFillRule(FillRule rule) noexcept { m_fillRule = rule; }

    CanvasPath transformed(const Transform& transform) const;

    /// The smallest upright rectangle around all lines and curves, without the width of a pen;
    /// empty for a path without any.
    VXRect<double> boundingRect() const;
    /// Whether a point is inside, by the fill rule.
    bool contains(const VXPoint<double>& point) const;
    /// Whether a point is no further than `distance` from any line or curve: for clicks on what is
    /// too thin to be hit.
    bool isNear(const VXPoint<double>& point, double distance) const;

    friend bool operator==(const CanvasPath&, const CanvasPath&) = default;

private:
    void add(Element::Kind kind, const VXPoint<double>& first, const VXPoint<double>& second = {},
             const VXPoint<double>& third = {});
    void begin();
    template <class Function>
    void forEachLine(bool closing, const Function& function) const;

    std::vector<Element> m_elements;
    FillRule m_fillRule = FillRule::OddEven;
    VXPoint<double> m_start; ///< of the last outline
    VXPoint<double> m_end;   ///< where the next element begins
};

} // namespace VOXI
