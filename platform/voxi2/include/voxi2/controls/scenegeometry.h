#pragma once

#include "voxi2/controls/scenemath.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/color.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace VOXI {

/// What the vertices of a geometry stand for.
enum class SceneShape : int {
    Triangles, ///< each three
    Lines,     ///< each two
    LineStrip, ///< each with the next one
    Points     ///< each by itself
};

/// What a geometry is made from. Normals and colours are one for each position, or none at all.
struct SceneVertices
{
    SceneShape shape = SceneShape::Triangles;
    std::vector<Vector3> positions{};
    /// The direction that the surface looks to, of any length. Triangles without get that of their
    /// faces, evenly mixed where they share a vertex.
    std::vector<Vector3> normals{};
    std::vector<Color> colors{};
    /// The vertices in the order in which they are used, counted from 0; none: each once.
    std::vector<std::uint32_t> indices{};
};

/// What a node of a scene shows: a mesh, lines or points.
///
/// Immutable and implicitly shared: copying copies pointers, and any thread may make and read it.
/// What one is made from is moved into it, checked there and then, and never copied again, also
/// where several nodes and several scenes show it.
class VOXI2_EXPORT SceneGeometry
{
public:
    template <class T>
    using Shared = std::shared_ptr<const std::vector<T>>;

    /// The most vertices, and the most indices.
    static constexpr std::size_t MaxCount = std::size_t(1) << 26;

    /// Null, which shows nothing.
    SceneGeometry() = default;

    /// Null where an index names no vertex, a position holds an infinity or NaN, there are normals
    /// or colours in another number than positions, or there is nothing, or more than `MaxCount`.
    /// Vertices at the end that make up no whole triangle or line are left out; a normal that is
    /// no direction counts as (0, 0, 0), which no light reaches.
    explicit SceneGeometry(SceneVertices vertices);

    /// The same with its vertices elsewhere, as often as each frame: all else is shared with this
    /// one. Null where there are others in number, or `SceneGeometry` would refuse them. Normals
    /// that are not given are made from the triangles if they were before, else they stay.
    SceneGeometry moved(std::vector<Vector3> positions, std::vector<Vector3> normals = {}) const;

    bool isNull() const noexcept { return !m_positions; }
    SceneShape shape() const noexcept { return m_shape; }
    /// What lies in it. Null for what it has not; positions are there unless it is null.
    const Shared<Vector3>& positions() const noexcept { return m_positions; }
    const Shared<Vector3>& normals() const noexcept { return m_normals; }
    const Shared<Color>& colors() const noexcept { return m_colors; }
    const Shared<std::uint32_t>& indices() const noexcept { return m_indices; }

    /// How many vertices are drawn, each as often as it is used; whole triangles and lines.
    std::size_t drawnCount() const noexcept;
    /// The vertex that is drawn at that place.
    std::uint32_t vertexAt(std::size_t place) const noexcept
    {
        return m_indices ? (*m_indices)[place] : static_cast<std::uint32_t>(place);
    }
    /// Around all positions.
    const SceneBox& box() const noexcept { return m_box; }
    /// Whether a colour is not quite opaque.
    bool isTranslucent() const noexcept { return m_isTranslucent; }

    /// Whether they share what they hold; geometries that were made apart are not equal.
    friend bool operator==(const SceneGeometry& a, const SceneGeometry& b) noexcept
    {
        return a.m_shape == b.m_shape && a.m_positions == b.m_positions
               && a.m_normals == b.m_normals && a.m_colors == b.m_colors
               && a.m_indices == b.m_indices;
    }

private:
    bool takePositions(std::vector<Vector3>&& positions, std::vector<Vector3>&& normals);
    std::vector<Vector3> faceNormals(const std::vector<Vector3>& positions) const;

    SceneShape m_shape = SceneShape::Triangles;
    bool m_isTranslucent = false;
    bool m_hasFaceNormals = false; // rather than the program's
    SceneBox m_box{};
    Shared<Vector3> m_positions{};
    Shared<Vector3> m_normals{};
    Shared<Color> m_colors{};
    Shared<std::uint32_t> m_indices{};
};

} // namespace VOXI
