#include "voxi2/controls/scenegeometry.h"

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

template <class T>
SceneGeometry::Shared<T> shared(std::vector<T>&& values)
{
    return values.empty() ? nullptr : std::make_shared<const std::vector<T>>(std::move(values));
}

bool isShape(SceneShape shape) noexcept
{
    return shape >= SceneShape::Triangles && shape <= SceneShape::Points;
}

/// As they are, but for those that are no direction.
void clean(std::vector<Vector3>& normals) noexcept
{
    for (Vector3& normal : normals)
        if (!isFinite(normal))
            normal = {};
}

} // namespace

SceneGeometry::SceneGeometry(SceneVertices vertices)
{
    const std::size_t count = vertices.positions.size();
    const auto fits = [count](std::size_t other) { return other == 0 || other == count; };
    const auto isVertex = [count](std::uint32_t index) { return index < count; };
    if (!isShape(vertices.shape) || vertices.indices.size() > MaxCount
        || !fits(vertices.normals.size()) || !fits(vertices.colors.size())
        || !std::all_of(vertices.indices.begin(), vertices.indices.end(), isVertex))
        return;
    m_shape = vertices.shape;
    m_indices = shared(std::move(vertices.indices));
    m_hasFaceNormals = m_shape == SceneShape::Triangles && vertices.normals.empty();
    if (!takePositions(std::move(vertices.positions), std::move(vertices.normals))) {
        *this = {};
        return;
    }
    m_isTranslucent = std::any_of(vertices.colors.begin(), vertices.colors.end(),
                                  [](Color color) { return color.alpha() < 255; });
    m_colors = shared(std::move(vertices.colors));
}

SceneGeometry SceneGeometry::moved(std::vector<Vector3> positions,
                                   std::vector<Vector3> normals) const
{
    SceneGeometry result = *this;
    const bool fits = !isNull() && positions.size() == m_positions->size()
                      && (normals.empty() || normals.size() == positions.size());
    result.m_hasFaceNormals = m_hasFaceNormals && normals.empty();
    if (!fits || !result.takePositions(std::move(positions), std::move(normals)))
        return {};
    return result;
}

std::size_t SceneGeometry::drawnCount() const noexcept
{
    if (isNull())
        return 0;
    const std::size_t count = m_indices ? m_indices->size() : m_positions->size();
    switch (m_shape) {
    case SceneShape::Triangles:
        return count - count % 3;
    case SceneShape::Lines:
        return count - count % 2;
    case SceneShape::LineStrip:
        return count < 2 ? 0 : count;
    case SceneShape::Points:
        break;
    }
    return count;
}

/// False where they are to be refused. Normals that are not given stay, or are made.
bool SceneGeometry::takePositions(std::vector<Vector3>&& positions, std::vector<Vector3>&& normals)
{
    if (positions.empty() || positions.size() > MaxCount)
        return false;
    SceneBox box;
    for (const Vector3& position : positions) {
        if (!isFinite(position))
            return false;
        box.add(position);
    }
    m_box = box;
    m_positions = shared(std::move(positions));
    if (m_hasFaceNormals)
        normals = faceNormals(*m_positions);
    clean(normals);
    if (!normals.empty())
        m_normals = shared(std::move(normals));
    return true;
}

std::vector<Vector3> SceneGeometry::faceNormals(const std::vector<Vector3>& positions) const
{
    std::vector<Vector3> normals(positions.size());
    const std::size_t count = drawnCount();
    for (std::size_t i = 0; i < count; i += 3) {
        const std::uint32_t corners[] = {vertexAt(i), vertexAt(i + 1), vertexAt(i + 2)};
        const Vector3 face = normalized(cross(positions[corners[1]] - positions[corners[0]],
                                              positions[corners[2]] - positions[corners[0]]));
        for (const std::uint32_t corner : corners)
            normals[corner] += face;
    }
    return normals;
}

} // namespace VOXI
