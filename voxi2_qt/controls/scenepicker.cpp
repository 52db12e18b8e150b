#include "scenepicker.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace VOXI {

namespace {

/// How far beside lines and points they are hit, in pixels.
constexpr double Tolerance = 4;

/// A point with the exactness that cutting needs.
struct Point
{
    double x;
    double y;
    double z;

    explicit Point(const Vector3& v) : x(v.x), y(v.y), z(v.z) {}
    Point(double px, double py, double pz) : x(px), y(py), z(pz) {}
    Point operator-(const Point& o) const { return {x - o.x, y - o.y, z - o.z}; }
    double dot(const Point& o) const { return x * o.x + y * o.y + z * o.z; }
    Point cross(const Point& o) const
    {
        return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x};
    }
};

/// Where a ray, of 0 to 1, meets a triangle.
std::optional<double> meet(const Point& from, const Point& way, const Point& a, const Point& b,
                           const Point& c)
{
    const Point ab = b - a;
    const Point ac = c - a;
    const Point p = way.cross(ac);
    const double det = ab.dot(p);
    if (!(std::abs(det) > 0))
        return std::nullopt;
    const Point fromA = from - a;
    const double u = fromA.dot(p) / det;
    const Point q = fromA.cross(ab);
    const double v = way.dot(q) / det;
    const double t = ac.dot(q) / det;
    const bool meets = u >= 0 && v >= 0 && u + v <= 1 && t >= 0 && t <= 1;
    return meets ? std::optional(t) : std::nullopt;
}

/// Whether a ray meets a box.
bool meets(const Point& from, const Point& way, const SceneBox& box)
{
    double first = 0;
    double last = 1;
    const auto cut = [&](double start, double step, double low, double high) {
        if (step == 0)
            return start >= low && start <= high;
        const double a = (low - start) / step;
        const double b = (high - start) / step;
        first = std::max(first, std::min(a, b));
        last = std::min(last, std::max(a, b));
        // A box without depth is met by what is reckoned inexactly.
        return first <= last + 1e-9;
    };
    return cut(from.x, way.x, box.minimum.x, box.maximum.x)
           && cut(from.y, way.y, box.minimum.y, box.maximum.y)
           && cut(from.z, way.z, box.minimum.z, box.maximum.z);
}

class Picker
{
public:
    Picker(const SceneSight& sight, const SceneSight::Ray& ray, VXPoint<double> position)
        : m_sight(sight),
          m_ray(ray),
          m_way(Point(ray.to) - Point(ray.from)),
          m_position(position)
    {}

    void look(const SceneGraph::Node& node, const BillboardSize& sizeOf)
    {
        if (!node.m_value.isPickable)
            return;
        if (node.m_geometry.shape() == SceneShape::Triangles)
            lookAtTriangles(node);
        else
            lookAtMarks(node);
        if (node.m_billboard)
            lookAtBillboard(node, sizeOf(node));
    }

    const SceneHit& hit() const { return m_hit; }

private:
    /// The ray in the node's own coordinates, where its places are the same.
    void lookAtTriangles(const SceneGraph::Node& node)
    {
        const SceneGeometry& geometry = node.m_geometry;
        const auto back = node.m_world.inverted();
        if (geometry.isNull() || !back)
            return;
        const Point from(back->map(m_ray.from));
        const Point way = Point(back->map(m_ray.to)) - from;
        if (!meets(from, way, geometry.box()))
            return;
        const std::vector<Vector3>& positions = *geometry.positions();
        const auto corner = [&](std::size_t place) {
            return Point(positions[geometry.vertexAt(place)]);
        };
        const std::size_t count = geometry.drawnCount();
        for (std::size_t i = 0; i < count; i += 3)
            if (const auto t = meet(from, way, corner(i), corner(i + 1), corner(i + 2)))
                take(*t, *t, node, static_cast<int>(i / 3));
    }

    void lookAtMarks(const SceneGraph::Node& node)
    {
        const SceneGeometry& geometry = node.m_geometry;
        const bool isPoints = geometry.shape() == SceneShape::Points;
        const std::size_t step = geometry.shape() == SceneShape::Lines ? 2 : 1;
        const double side = isPoints ? node.m_look.pointSize : node.m_look.lineWidth;
        const double reach = std::max(Tolerance, side / 2);
        const Matrix4 all = m_sight.projection() * m_sight.view() * node.m_world;
        const std::size_t count = geometry.drawnCount();
        const std::size_t partEnds = isPoints ? 0 : 1; // how far its last vertex is
        for (std::size_t i = 0; i + partEnds < count; i += step) {
            const Vector3& a = (*geometry.positions())[geometry.vertexAt(i)];
            const Vector3& b = (*geometry.positions())[geometry.vertexAt(i + partEnds)];
            if (const auto along = beside(all, a, b, reach)) {
                const Vector3 at = node.m_world.map(a + (b - a) * static_cast<float>(*along));
                takeMark(at, node, static_cast<int>(i / step));
            }
        }
    }

    /// Where along a line, of 0 to 1, it is nearest to the position; none where that is too far.
    std::optional<double> beside(const Matrix4& all, const Vector3& a, const Vector3& b,
                                 double reach) const
    {
        std::array<double, 4> p = all.mapFull(a);
        std::array<double, 4> q = all.mapFull(b);
        // What is nearer than the near plane is cut off.
        const double da = p[2] + p[3];
        const double db = q[2] + q[3];
        if (!(da >= 0 || db >= 0))
            return std::nullopt;
        double start = 0;
        double end = 1;
        const double cut = da == db ? 0 : da / (da - db);
        (da < 0 ? start : end) = da < 0 || db < 0 ? cut : 1;
        const auto between = [&](double t) {
            std::array<double, 4> r{};
            for (std::size_t i = 0; i < 4; ++i)
                r[i] = p[i] + (q[i] - p[i]) * t;
            return r;
        };
        const auto first = between(start);
        const auto last = between(end);
        const auto from = m_sight.placeOf(first);
        const auto to = m_sight.placeOf(last);
        if (!from || !to)
            return std::nullopt;
        const double dx = to->x - from->x;
        const double dy = to->y - from->y;
        const double square = dx * dx + dy * dy;
        const double s =
            square > 0 ? std::clamp(
                ((m_position.x - from->x) * dx + (m_position.y - from->y) * dy) / square, 0.0, 1.0)
                       : 0;
        const double away =
            std::hypot(from->x + s * dx - m_position.x, from->y + s * dy - m_position.y);
        if (!(away <= reach))
            return std::nullopt;
        // In the picture what is nearer takes more room.
        const double w0 = first[3];
        const double w1 = last[3];
        const double part = s * w0 / (w1 + s * (w0 - w1));
        return start + (end - start) * part;
    }

    /// Lines and points that lie on a surface are before it, as far as the tolerance may mislead.
    void takeMark(const Vector3& at, const SceneGraph::Node& node, int part)
    {
        const double square = m_way.dot(m_way);
        const double t = (Point(at) - Point(m_ray.from)).dot(m_way) / square;
        const double more = m_sight.unitsPerPixelAt(at) * 2 * Tolerance / std::sqrt(square);
        if (t >= -1e-9 && t <= 1 + 1e-9)
            take(t - more, t, node, part);
    }

    void lookAtBillboard(const SceneGraph::Node& node, Size<double> size)
    {
        const auto place = billboardPlace(node, m_sight, size);
        if (!place || m_position.x < place->x || m_position.x > place->x + size.width
            || m_position.y < place->y || m_position.y > place->y + size.height)
            return;
        const Vector3 at = node.m_world.map({});
        const double t = (Point(at) - Point(m_ray.from)).dot(m_way) / m_way.dot(m_way);
        take(node.m_billboard->isOnTop ? -1 : t, t, node, -1);
    }

    /// `order` says what is before what, `t` where along the ray it is.
    void take(double order, double t, const SceneGraph::Node& node, int part)
    {
        if (!(order < m_nearest))
            return;
        m_nearest = order;
        m_hit = {node.m_value.uid, m_ray.from + (m_ray.to - m_ray.from) * static_cast<float>(t),
                 part};
    }

    const SceneSight& m_sight;
    const SceneSight::Ray m_ray;
    const Point m_way;
    const VXPoint<double> m_position;
    double m_nearest = INFINITY;
    SceneHit m_hit;
};

} // namespace

std::optional<SceneSight::Place> billboardPlace(const SceneGraph::Node& node,
                                                const SceneSight& sight, Size<double> size)
{
    auto place = sight.placeOf(node.m_world.map({}));
    if (!place || !(std::abs(place->depth) <= 1))
        return std::nullopt;
    place->x += node.m_billboard->offset.x - size.width / 2;
    place->y += node.m_billboard->offset.y - size.height / 2;
    return place;
}

SceneHit pickNode(const SceneGraph& graph, const SceneSight& sight, const BillboardSize& sizeOf,
                  VXPoint<double> position)
{
    const Size<double> size = sight.size();
    const bool isInside =
        position.x >= 0 && position.y >= 0 && position.x < size.width && position.y < size.height;
    const auto ray = isInside ? sight.rayAt(position) : std::nullopt;
    if (!ray)
        return {};
    Picker picker(sight, *ray, position);
    for (const SceneGraph::Node* node : graph.drawn())
        picker.look(*node, sizeOf);
    return picker.hit();
}

} // namespace VOXI
