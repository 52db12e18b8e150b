#include "scenereference.h"

#include <algorithm>
#include <cmath>

namespace VOXI {

SceneReference::SceneReference(const SceneCamera& camera, const SceneBox& bounds, QSize size,
                               Color background, Color ambient)
    : m_view(camera.view()),
      m_projection(camera.projection(double(size.width()) / size.height(), bounds)),
      m_isOrthographic(camera.isOrthographic),
      m_ambient(ambient),
      m_image(size, QImage::Format_RGB32),
      m_depths(std::size_t(size.width() * size.height()), INFINITY),
      m_hits(m_depths.size())
{
    m_image.fill(qRgb(background.red(), background.green(), background.blue()));
}

void SceneReference::draw(unsigned node, const Matrix4& world, const SceneGeometry& geometry,
                          Color color)
{
    const Matrix4 modelView = m_view * world;
    for (std::size_t i = 0; i < geometry.drawnCount(); i += 3) {
        Corner corners[3];
        Vector3 seen[3];
        for (std::size_t k = 0; k < 3; ++k) {
            const std::uint32_t vertex = geometry.vertexAt(i + k);
            seen[k] = modelView.map((*geometry.positions())[vertex]);
            const auto [x, y, z, w] = m_projection.mapFull(seen[k]);
            corners[k] = {(x / w + 1) / 2 * m_image.width(), (1 - y / w) / 2 * m_image.height(),
                          z / w, w, geometry.colors() ? (*geometry.colors())[vertex] : color};
        }
        // The side that is seen is lit.
        Vector3 normal = normalized(cross(seen[1] - seen[0], seen[2] - seen[0]));
        if (dot(normal, m_isOrthographic ? Vector3{0, 0, 1} : -seen[0]) < 0)
            normal = -normal;
        const float facing = std::max(normal.z, 0.0f);
        const auto lit = [&](double ambient) {
            return static_cast<float>(std::min(1.0, ambient + facing));
        };
        drawTriangle(corners,
                     {lit(m_ambient.redF()), lit(m_ambient.greenF()), lit(m_ambient.blueF())},
                     {node, {}, static_cast<int>(i / 3)});
    }
}

void SceneReference::drawTriangle(const Corner (&c)[3], const Vector3& light, const SceneHit& hit)
{
    const auto area = [](const Corner& a, const Corner& b, double x, double y) {
        return (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
    };
    const double whole = area(c[0], c[1], c[2].x, c[2].y);
    for (int y = 0; y < m_image.height(); ++y) {
        for (int x = 0; x < m_image.width(); ++x) {
            double part[3];
            for (int k = 0; k < 3; ++k)
                part[k] = area(c[(k + 1) % 3], c[(k + 2) % 3], x + 0.5, y + 0.5) / whole;
            const double depth = part[0] * c[0].depth + part[1] * c[1].depth + part[2] * c[2].depth;
            if (!(std::min({part[0], part[1], part[2]}) >= 0) || depth >= m_depths[index(x, y)])
                continue;
            m_depths[index(x, y)] = depth;
            m_hits[index(x, y)] = hit;
            double red = 0;
            double green = 0;
            double blue = 0;
            double sum = 0;
            for (int k = 0; k < 3; ++k) {
                const double weight = part[k] / c[k].w;
                red += weight * c[k].color.red();
                green += weight * c[k].color.green();
                blue += weight * c[k].color.blue();
                sum += weight;
            }
            m_image.setPixel(x, y,
                             qRgb(int(std::lround(red / sum * light.x)),
                                  int(std::lround(green / sum * light.y)),
                                  int(std::lround(blue / sum * light.z))));
        }
    }
}

bool SceneReference::isInside(int x, int y) const
{
    for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx)
            if (!m_image.rect().contains(x + dx, y + dy) || hitAt(x + dx, y + dy) != hitAt(x, y))
                return false;
    return true;
}

double differingPercent(const QImage& a, const QImage& b, int tolerance)
{
    if (a.size() != b.size())
        return 100;
    int differing = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            differing += std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                   std::abs(qBlue(p) - qBlue(q))})
                         > tolerance;
        }
    }
    return 100.0 * differing / (a.width() * a.height());
}

} // namespace VOXI
