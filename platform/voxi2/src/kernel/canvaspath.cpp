#include "voxi2/kernel/canvaspath.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace VOXI {

namespace {

using Point = VXPoint<double>;
using Element = CanvasPath::Element;
using Kind = Element::Kind;

bool isFinite(const Point& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

bool isFinite(const VXRect<double>& rect)
{
    return isFinite(rect.topLeft()) && isFinite(rect.end());
}

Point bounded(const Point& point)
{
    constexpr double Most = CanvasPath::Farthest;
    return {std::clamp(point.x, -Most, Most), std::clamp(point.y, -Most, Most)};
}

double length(const Point& vector) { return std::hypot(vector.x, vector.y); }

/// A curve with what it begins at.
struct Curve
{
    Point m_points[4];

    Point at(double t) const
    {
        const double s = 1 - t;
        return m_points[0] * (s * s * s) + m_points[1] * (3 * s * s * t)
               + m_points[2] * (3 * s * t * t) + m_points[3] * (t * t * t);
    }

    /// So many lines that none is seen to be one.
    int steps() const
    {
        const double way = length(m_points[1] - m_points[0]) + length(m_points[2] - m_points[1])
                           + length(m_points[3] - m_points[2]);
        return static_cast<int>(std::clamp(2 * std::sqrt(way), 8.0, 256.0));
    }
};

/// Where a curve of these values along one axis turns, between 0 and 1; at most twice.
int turnsOf(double p0, double p1, double p2, double p3, double (&turns)[2])
{
    const double a = p3 - 3 * p2 + 3 * p1 - p0;
    const double b = 2 * (p2 - 2 * p1 + p0);
    const double c = p1 - p0;
    int count = 0;
    const auto add = [&](double t) {
        if (t > 0 && t < 1)
            turns[count++] = t;
    };
    const double root = b * b - 4 * a * c;
    if (root >= 0) {
        // The sum that does not cancel out; where `a` is nearly 0 the other one is still exact.
        const double q = -(b + std::copysign(std::sqrt(root), b)) / 2;
        if (a != 0)
            add(q / a);
        if (q != 0)
            add(c / q);
    }
    return count;
}

class Bounds
{
public:
    void add(const Point& point)
    {
        m_low = {std::min(m_low.x, point.x), std::min(m_low.y, point.y)};
        m_high = {std::max(m_high.x, point.x), std::max(m_high.y, point.y)};
    }

    void add(const Curve& curve)
    {
        const auto& p = curve.m_points;
        double turns[2];
        for (int i = turnsOf(p[0].x, p[1].x, p[2].x, p[3].x, turns); i > 0; --i)
            add(curve.at(turns[i - 1]));
        for (int i = turnsOf(p[0].y, p[1].y, p[2].y, p[3].y, turns); i > 0; --i)
            add(curve.at(turns[i - 1]));
        add(p[0]);
        add(p[3]);
    }

    VXRect<double> rect() const
    {
        if (m_low.x > m_high.x)
            return {};
        return {m_low.x, m_low.y, m_high.x - m_low.x, m_high.y - m_low.y};
    }

private:
    static constexpr double Infinity = std::numeric_limits<double>::infinity();
    Point m_low{Infinity, Infinity};
    Point m_high{-Infinity, -Infinity};
};

/// Of a line from `from` to `to`: 1 or -1 when a ray to the right of `point` meets it, by its
/// direction; of its ends the upper one belongs to it.
int crossing(const Point& point, const Point& from, const Point& to)
{
    if ((from.y <= point.y) == (to.y <= point.y))
        return 0;
    const double x = from.x + (point.y - from.y) / (to.y - from.y) * (to.x - from.x);
    return x <= point.x ? 0 : from.y < to.y ? 1 : -1;
}

double distance(const Point& point, const Point& from, const Point& to)
{
    const Point way = to - from;
    const double square = way.x * way.x + way.y * way.y;
    const Point offset = point - from;
    const double along =
        square > 0 ? std::clamp((offset.x * way.x + offset.y * way.y) / square, 0.0, 1.0) : 0;
    return length(offset - way * along);
}

} // namespace

void CanvasPath::add(Kind kind, const Point& first, const Point& second, const Point& third)
{
    m_elements.push_back({kind, {first, second, third}});
}

/// Says where an outline begins for which nothing has said it.
void CanvasPath::begin()
{
    if (m_elements.empty() || m_elements.back().kind == Kind::Close)
        moveTo(m_end);
}

void CanvasPath::moveTo(const Point& point)
{
    if (!isFinite(point))
        return;
    m_start = m_end = bounded(point);
    add(Kind::Move, m_end);
}

void CanvasPath::lineTo(const Point& point)
{
    if (!isFinite(point))
        return;
    begin();
    m_end = bounded(point);
    add(Kind::Line, m_end);
}

void CanvasPath::curveTo(const Point& first, const Point& second, const Point& end)
{
    if (!isFinite(first) || !isFinite(second) || !isFinite(end))
        return;
    begin();
    m_end = bounded(end);
    add(Kind::Curve, bounded(first), bounded(second), m_end);
}

void CanvasPath::quadTo(const Point& control, const Point& end)
{
    const Point from = m_end;
    curveTo(from + (control - from) * (2.0 / 3), end + (control - end) * (2.0 / 3), end);
}

void CanvasPath::arcTo(const VXRect<double>& bounds, double start, double sweep)
{
    if (!isFinite(bounds) || !std::isfinite(start) || !std::isfinite(sweep))
        return;
    constexpr double Degree = std::numbers::pi / 180;
    const Point radius{bounds.width / 2, bounds.height / 2};
    const Point center = bounds.topLeft() + radius;
    const auto at = [&](double angle, double tangent) {
        const double cosine = std::cos(angle);
        const double sine = std::sin(angle);
        return center
               + Point{radius.x * (cosine - tangent * sine), radius.y * (sine + tangent * cosine)};
    };
    const double all = std::clamp(sweep, -360.0, 360.0) * Degree;
    const int parts =
        std::max(1, static_cast<int>(std::ceil(std::abs(all) / (90 * Degree) - 1e-9)));
    double angle = std::fmod(start, 360.0) * Degree;
    if (m_elements.empty())
        moveTo(at(angle, 0));
    else
        lineTo(at(angle, 0));
    // Each part is at most a quarter, which a curve is as good as.
    const double part = all / parts;
    const double reach = 4.0 / 3 * std::tan(part / 4);
    for (int i = 0; i < parts; ++i, angle += part)
        curveTo(at(angle, reach), at(angle + part, -reach), at(angle + part, 0));
}

void CanvasPath::close()
{
    if (m_elements.empty() || m_elements.back().kind == Kind::Close)
        return;
    add(Kind::Close, m_start);
    m_end = m_start;
}

void CanvasPath::addRect(const VXRect<double>& rect)
{
    const Point end = rect.end();
    const Point corners[] = {rect.topLeft(), {end.x, rect.y}, end, {rect.x, end.y}};
    addPolygon(corners);
}

void CanvasPath::addRoundedRect(const VXRect<double>& rect, double radiusX, double radiusY)
{
    if (!isFinite(rect) || !(radiusX > 0 && radiusY > 0)) {
        addRect(rect);
        return;
    }
    const double x = std::min(radiusX, std::abs(rect.width) / 2) * 2;
    const double y = std::min(radiusY, std::abs(rect.height) / 2) * 2;
    const Point end = rect.end();
    moveTo({rect.x, rect.y + y / 2});
    arcTo({rect.x, rect.y, x, y}, 180, 90);
    arcTo({end.x - x, rect.y, x, y}, 270, 90);
    arcTo({end.x - x, end.y - y, x, y}, 0, 90);
    arcTo({rect.x, end.y - y, x, y}, 90, 90);
    close();
}

void CanvasPath::addEllipse(const VXRect<double>& bounds)
{
    if (!isFinite(bounds))
        return;
    moveTo({bounds.end().x, bounds.y + bounds.height / 2});
    arcTo(bounds, 0, 360);
    close();
}

void CanvasPath::addPolygon(std::span<const Point> points)
{
    if (points.empty() || !std::all_of(points.begin(), points.end(), [](const Point& point) {
            return isFinite(point);
        }))
        return;
    moveTo(points.front());
    for (const Point& point : points.subspan(1))
        lineTo(point);
    close();
}

void CanvasPath::addPath(const CanvasPath& other)
{
    const std::vector<Element> added = other.m_elements; // it may be this one
    m_elements.insert(m_elements.end(), added.begin(), added.end());
    if (!added.empty()) {
        m_start = other.m_start;
        m_end = other.m_end;
    }
}

CanvasPath CanvasPath::transformed(const Transform& transform) const
{
    CanvasPath result;
    result.m_fillRule = m_fillRule;
    for (const Element& element : m_elements) {
        const auto map = [&](int i) { return transform.map(element.points[i]); };
        switch (element.kind) {
        case Kind::Move:
            result.moveTo(map(0));
            break;
        case Kind::Line:
            result.lineTo(map(0));
            break;
        case Kind::Curve:
            result.curveTo(map(0), map(1), map(2));
            break;
        case Kind::Close:
            result.close();
            break;
        }
    }
    return result;
}

VXRect<double> CanvasPath::boundingRect() const
{
    Bounds bounds;
    Point from;
    for (const Element& element : m_elements) {
        const auto& p = element.points;
        if (element.kind == Kind::Curve) {
            bounds.add(Curve{{from, p[0], p[1], p[2]}});
            from = p[2];
            continue;
        }
        // A place that was only gone to is no part of it.
        if (element.kind != Kind::Move) {
            bounds.add(from);
            bounds.add(p[0]);
        }
        from = p[0];
    }
    return bounds.rect();
}

/// Calls the function with the ends of all lines, and of those that stand for curves; with
/// `closing` also of those that close what is open.
template <class Function>
void CanvasPath::forEachLine(bool closing, const Function& function) const
{
    Point start;
    Point from;
    const auto goTo = [&](const Point& to) {
        function(from, to);
        from = to;
    };
    for (const Element& element : m_elements) {
        switch (element.kind) {
        case Kind::Move:
            if (closing)
                goTo(start);
            start = from = element.points[0];
            break;
        case Kind::Line:
        case Kind::Close:
            goTo(element.points[0]);
            break;
        case Kind::Curve: {
            const Curve curve{{from, element.points[0], element.points[1], element.points[2]}};
            const int steps = curve.steps();
            for (int i = 1; i < steps; ++i)
                goTo(curve.at(double(i) / steps));
            goTo(curve.m_points[3]);
            break;
        }
        }
    }
    if (closing)
        goTo(start);
}

bool CanvasPath::contains(const Point& point) const
{
    int winding = 0;
    int crossings = 0;
    forEachLine(true, [&](const Point& from, const Point& to) {
        const int direction = crossing(point, from, to);
        winding += direction;
        crossings += direction * direction;
    });
    return m_fillRule == FillRule::Winding ? winding != 0 : crossings % 2 != 0;
}

bool CanvasPath::isNear(const Point& point, double near) const
{
    bool found = false;
    forEachLine(false, [&](const Point& from, const Point& to) {
        found = found || distance(point, from, to) <= near;
    });
    return found;
}

} // namespace VOXI
