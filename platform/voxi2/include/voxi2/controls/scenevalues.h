#pragma once

#include "voxi2/controls/scenemath.h"
#include "voxi_util/color.h"
#include "voxi_util/geometry.h"
#include "voxi_util/pixmap.h"
#include "voxi_util/vxfont.h"

#include <functional>
#include <string>

namespace VOXI {

/// A node of a scene. What it shows is set apart.
struct SceneNode
{
    unsigned uid = 0;       ///< the program's name for it; not 0
    unsigned parent = 0;    ///< the node that it moves with; 0 for none
    Matrix4 transform{};    ///< from it to its parent
    bool isVisible = true;  ///< if not, neither is what is below it
    bool isPickable = true; ///< if not, what is behind it is picked

    friend bool operator==(const SceneNode&, const SceneNode&) = default;
};

/// How what a node shows is drawn.
struct SceneLook
{
    /// What the colours of the vertices are multiplied with, channel by channel; of those that have
    /// none it is the colour.
    Color color{255, 255, 255};
    float lineWidth = 1; ///< in pixels, 1 to 64, as far as the graphics card can
    float pointSize = 4; ///< the side of the squares that points are, in pixels, 1 to 64
    bool isLit = true;   ///< whether lights shine on it; what has no normals is shown as it is

    friend bool operator==(const SceneLook&, const SceneLook&) = default;
};

/// A text, a picture or both that always face the camera, in their own size: the text below the
/// picture. Their middle is over the node's origin.
struct SceneBillboard
{
    std::wstring text{}; ///< with as many lines as it has; what does not fit is cut off
    Pixmap image{};
    VXFont font{};
    Color color{};                ///< of the text
    Color background{0, 0, 0, 0}; ///< behind both
    VXPoint<int> offset{};        ///< of the middle from the origin, in pixels
    bool isOnTop = false;         ///< whether it is over what is nearer than the node

    /// Of text and image together, in pixels.
    static constexpr int MaxSide = 1024;

    bool isNull() const noexcept { return text.empty() && image.isNull(); }
    friend bool operator==(const SceneBillboard&, const SceneBillboard&) = default;
};

enum class SceneLightKind : int {
    Directional, ///< as from the sun: `place` is where to
    Point        ///< `place` is where from
};

struct SceneLight
{
    SceneLightKind kind = SceneLightKind::Directional;
    Vector3 place{0, 0, -1};
    Color color{255, 255, 255};
    /// Whether `place` is in the camera's coordinates, in which it looks along -z, so that the
    /// light goes with it.
    bool isAtCamera = true;

    friend bool operator==(const SceneLight&, const SceneLight&) = default;
};

/// What is at a point of the picture.
struct SceneHit
{
    unsigned node = 0; ///< 0 for nothing
    Vector3 point{};   ///< in the scene's coordinates
    /// Which triangle, line or point of the node's geometry, counted from 0; -1 for a billboard.
    int part = -1;

    friend bool operator==(const SceneHit&, const SceneHit&) = default;
};

/// What a program that draws by itself is told.
struct SceneFrame
{
    Size<int> size{};         ///< of the picture, in device pixels
    unsigned framebuffer = 0; ///< which is bound: OpenGL's name for the picture
    Matrix4 view{};
    Matrix4 projection{};
    /// Finds the functions of OpenGL by their names, null for none.
    std::function<void*(const char*)> functionAddress{};
};

/// For programs that draw with OpenGL themselves, into the picture of a scene. Called on the
/// toolkit's thread, with the scene's context current and its picture bound.
///
/// What a function throws goes to `Thread::setExceptionHandler`'s handler. It may do anything else,
/// with the scene as well: what would end the context waits until it has returned. The scene does
/// not rely on what state is left behind. The picture is drawn between two paintings of the window:
/// while the widget gets another size, the last one is shown stretched.
struct SceneHook
{
    /// There is a new context, with nothing in it: at first, and after the widget has come into
    /// another window.
    std::function<void(const SceneFrame&)> initialize{};
    /// The picture has another size; also before the first drawing in a context.
    std::function<void(const SceneFrame&)> resize{};
    /// The nodes have been drawn, with their depths.
    std::function<void(const SceneFrame&)> draw{};
    /// The context goes, or the hook is replaced: what was made in it is to be freed.
    std::function<void()> release{};
};

} // namespace VOXI
