#pragma once

#include "voxi2/controls/scenemath.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

/// From where a scene is looked at, and how.
struct VOXI2_EXPORT SceneCamera
{
    Vector3 eye{0, 0, 10};
    /// What is in the middle, and what the camera orbits.
    Vector3 target{};
    Vector3 up{0, 1, 0};
    /// The vertical angle that is seen with perspective, in degrees; used as 1 to 170.
    double fieldOfView = 45;
    /// Without perspective: how much of the scene is seen from the upper edge to the lower one.
    double height = 10;
    bool isOrthographic = false;
    /// How far from the eye the scene is cut off; where `farPlane` is not beyond `nearPlane`, so
    /// that all of its nodes are seen. With perspective `nearPlane` has to be beyond 0 as well.
    double nearPlane = 0;
    double farPlane = 0;

    /// Whether its numbers are finite, the eye is not at the target, `up` is a direction and
    /// `height` is beyond 0. Others are refused.
    bool isValid() const noexcept;
    /// How far the eye is from the target.
    double distance() const noexcept;

    /// From the scene to where the eye is at the origin and looks along -z.
    Matrix4 view() const noexcept;
    /// From there to the cube that is seen, of -1 to 1; `aspect` is the picture's width divided by
    /// its height, `bounds` what there is in the scene.
    Matrix4 projection(double aspect, const SceneBox& bounds) const noexcept;
    /// How much of the scene lies beside each other in one pixel, at that distance from the eye, in
    /// a picture of that height.
    double unitsPerPixel(double distance, double pixels) const noexcept;

    /// Turned about the target: to the right about `up`, and upwards as far as `up` stays above.
    SceneCamera orbited(double right, double upwards) const noexcept;
    /// Moved beside the scene, in its units.
    SceneCamera panned(double right, double upwards) const noexcept;
    /// Nearer by a factor; farther where that is below 1. Ignored unless it is beyond 0.
    SceneCamera zoomed(double factor) const noexcept;
    /// So that all of a box is seen, from the same side. As it is for an empty one.
    SceneCamera fitted(const SceneBox& box, double aspect) const noexcept;

    friend bool operator==(const SceneCamera&, const SceneCamera&) = default;
};

} // namespace VOXI
