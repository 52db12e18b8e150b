#pragma once

#include "voxi2/controls/scenecamera.h"
#include "voxi_util/geometry.h"

#include <optional>

namespace VOXI {

/// How a scene is seen in a picture of a size: where points of the scene come to lie, and back.
/// Pixels are device-independent; y grows downwards.
class SceneSight
{
public:
    /// A point in the picture; its depth is -1 to 1 where it is seen.
    struct Place
    {
        double x = 0;
        double y = 0;
        double depth = 0;
    };

    /// What one pixel shows: all between two points of the scene.
    struct Ray
    {
        Vector3 from{};
        Vector3 to{};
    };

    SceneSight(const SceneCamera& camera, const SceneBox& bounds, Size<double> size) noexcept
        : m_camera(camera),
          m_size(size),
          m_view(camera.view()),
          m_projection(camera.projection(size.width / size.height, bounds))
    {}

    const Matrix4& view() const noexcept { return m_view; }
    const Matrix4& projection() const noexcept { return m_projection; }
    Size<double> size() const noexcept { return m_size; }

    /// Of a point before the camera; none for others.
    std::optional<Place> placeOf(const Vector3& point) const noexcept
    {
        return placeOf((m_projection * m_view).mapFull(point));
    }
    /// The same of its four coordinates.
    std::optional<Place> placeOf(const std::array<double, 4>& clip) const noexcept
    {
        const double w = clip[3];
        if (!(w > 0))
            return std::nullopt;
        return Place{(clip[0] / w + 1) / 2 * m_size.width, (1 - clip[1] / w) / 2 * m_size.height,
                     clip[2] / w};
    }

    std::optional<Ray> rayAt(VXPoint<double> position) const noexcept
    {
        const auto back = (m_projection * m_view).inverted();
        if (!back)
            return std::nullopt;
        const auto x = static_cast<float>(position.x / m_size.width * 2 - 1);
        const auto y = static_cast<float>(1 - position.y / m_size.height * 2);
        return Ray{back->map({x, y, -1}), back->map({x, y, 1})};
    }

    /// How much of the scene one pixel covers where a point is.
    double unitsPerPixelAt(const Vector3& point) const noexcept
    {
        return m_camera.unitsPerPixel(-m_view.mapFull(point)[2], m_size.height);
    }

private:
    SceneCamera m_camera;
    Size<double> m_size;
    Matrix4 m_view;
    Matrix4 m_projection;
};

} // namespace VOXI
