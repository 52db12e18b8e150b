#pragma once

#include "voxi2/controls/scenecamera.h"
#include "voxi2/controls/scenegeometry.h"
#include "voxi2/controls/scenevalues.h"

#include <QImage>

#include <vector>

namespace VOXI {

/// Draws triangles pixel by pixel, with a depth for each: what a picture of a scene is compared
/// with. It knows flat faces, colours mixed over them, and one light that comes from the camera.
class SceneReference
{
public:
    SceneReference(const SceneCamera& camera, const SceneBox& bounds, QSize size, Color background,
                   Color ambient);

    void draw(unsigned node, const Matrix4& world, const SceneGeometry& geometry, Color color);

    const QImage& image() const { return m_image; }
    /// Which node, and which of its triangles, is seen in the middle of a pixel.
    SceneHit hitAt(int x, int y) const { return m_hits[index(x, y)]; }
    /// Whether the pixels around it show the same: at edges there is no telling.
    bool isInside(int x, int y) const;

private:
    struct Corner
    {
        double x, y, depth, w;
        Color color;
    };
    std::size_t index(int x, int y) const { return std::size_t(y * m_image.width() + x); }
    void drawTriangle(const Corner (&corners)[3], const Vector3& light, const SceneHit& hit);

    Matrix4 m_view;
    Matrix4 m_projection;
    bool m_isOrthographic;
    Color m_ambient;
    QImage m_image;
    std::vector<double> m_depths;
    std::vector<SceneHit> m_hits;
};

/// How many of a hundred pixels differ by more than `tolerance` of 255 in any channel.
double differingPercent(const QImage& a, const QImage& b, int tolerance);

} // namespace VOXI
