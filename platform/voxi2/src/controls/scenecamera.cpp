#include "voxi2/controls/scenecamera.h"

#include <algorithm>
#include <iterator>
#include <numbers>
#include <tuple>
#include <utility>

namespace VOXI {

namespace {

/// How near the camera comes to looking along `up`, in degrees.
constexpr double PoleDistance = 1;
/// What is cut off nearer than this part of the farthest would make depths indistinct.
constexpr double NearestPart = 1e-4;

double usedAngle(double fieldOfView) noexcept { return std::clamp(fieldOfView, 1.0, 170.0); }

double radians(double degrees) noexcept { return degrees * std::numbers::pi / 180; }

double halfTangent(double fieldOfView) noexcept
{
    return std::tan(radians(usedAngle(fieldOfView)) / 2);
}

/// The nearest and the farthest of a box, as seen.
std::pair<double, double> depths(const SceneBox& box, const Matrix4& view) noexcept
{
    std::pair<double, double> range{INFINITY, -INFINITY};
    for (unsigned i = 0; i < 8 && !box.isEmpty; ++i) {
        const double depth = -view.mapFull(box.corner(i))[2];
        range = {std::min(range.first, depth), std::max(range.second, depth)};
    }
    return range;
}

} // namespace

bool SceneCamera::isValid() const noexcept
{
    const double numbers[] = {fieldOfView, height, nearPlane, farPlane};
    return isFinite(eye) && isFinite(target) && isFinite(up)
           && std::all_of(std::begin(numbers), std::end(numbers),
                          [](double number) { return std::isfinite(number); })
           && height > 0 && normalized(up) != Vector3{} && normalized(target - eye) != Vector3{};
}

double SceneCamera::distance() const noexcept { return length(target - eye); }

Matrix4 SceneCamera::view() const noexcept { return Matrix4::lookAt(eye, target, up); }

Matrix4 SceneCamera::projection(double aspect, const SceneBox& bounds) const noexcept
{
    double nearest = nearPlane;
    double farthest = farPlane;
    if (farthest <= nearest || (!isOrthographic && nearest <= 0)) {
        std::tie(nearest, farthest) = depths(bounds, view());
        if (!(farthest > (isOrthographic ? -INFINITY : 0)))
            std::tie(nearest, farthest) = std::pair(distance() * 0.1, distance() * 10);
        // What lies on the edge is not to be cut.
        const double more = std::max((farthest - nearest) * 0.01, std::abs(farthest) * 1e-4);
        nearest -= more;
        farthest += more;
        if (!isOrthographic)
            nearest = std::max(nearest, farthest * NearestPart);
    }
    return isOrthographic ? Matrix4::orthographic(height, aspect, nearest, farthest)
                          : Matrix4::perspective(usedAngle(fieldOfView), aspect, nearest, farthest);
}

double SceneCamera::unitsPerPixel(double away, double pixels) const noexcept
{
    return (isOrthographic ? height : 2 * away * halfTangent(fieldOfView)) / std::max(pixels, 1.0);
}

SceneCamera SceneCamera::orbited(double right, double upwards) const noexcept
{
    if (!std::isfinite(right) || !std::isfinite(upwards))
        return *this;
    const Vector3 axis = normalized(up);
    const Vector3 toEye = eye - target;
    const double fromPole =
        std::acos(std::clamp(dot(normalized(toEye), axis), -1.0f, 1.0f)) * 180 / std::numbers::pi;
    const double wanted = std::clamp(fromPole - upwards, std::min(PoleDistance, fromPole),
                                     std::max(180 - PoleDistance, fromPole));
    Vector3 side = cross(axis, toEye);
    if (normalized(side) == Vector3{})
        side = view().inverted().value_or(Matrix4()).mapDirection({1, 0, 0});
    const Matrix4 turn = Matrix4::rotation(std::remainder(right, 360.0), axis)
                         * Matrix4::rotation(wanted - fromPole, side);
    SceneCamera result = *this;
    result.eye = target + turn.mapDirection(toEye);
    return result.isValid() ? result : *this;
}

SceneCamera SceneCamera::panned(double right, double upwards) const noexcept
{
    const Matrix4 back = view().inverted().value_or(Matrix4());
    const Vector3 offset =
        back.mapDirection({static_cast<float>(right), static_cast<float>(upwards), 0});
    SceneCamera result = *this;
    result.eye += offset;
    result.target += offset;
    return result.isValid() ? result : *this;
}

SceneCamera SceneCamera::zoomed(double factor) const noexcept
{
    if (!(factor > 0))
        return *this;
    SceneCamera result = *this;
    if (isOrthographic)
        result.height /= factor;
    else
        result.eye = target + (eye - target) * static_cast<float>(1 / factor);
    return result.isValid() ? result : *this;
}

SceneCamera SceneCamera::fitted(const SceneBox& box, double aspect) const noexcept
{
    if (box.isEmpty || !(aspect > 0))
        return *this;
    const double narrow = std::min(aspect, 1.0);
    const double radius = box.radius();
    SceneCamera result = *this;
    result.target = box.center();
    double away = distance();
    if (radius > 0) {
        const double half = std::atan(halfTangent(fieldOfView) * narrow);
        away = isOrthographic ? std::max(away, 2 * radius) : radius / std::sin(half);
        result.height = 2 * radius / narrow;
    }
    result.eye = result.target + normalized(eye - target) * static_cast<float>(away);
    return result.isValid() ? result : *this;
}

} // namespace VOXI
