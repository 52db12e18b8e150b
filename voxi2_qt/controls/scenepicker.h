#pragma once

#include "scenegraph.h"
#include "scenesight.h"

#include <functional>

namespace VOXI {

/// How large a billboard is, in pixels.
using BillboardSize = std::function<Size<double>(const SceneGraph::Node&)>;

/// Where a billboard is in the picture: its upper left corner, and its depth. None where its node
/// is behind the camera.
std::optional<SceneSight::Place> billboardPlace(const SceneGraph::Node& node,
                                                const SceneSight& sight, Size<double> size);

/// The nearest that is seen at a position. Reckoned from the nodes, not read from the picture: it
/// needs no graphics card to wait for.
SceneHit pickNode(const SceneGraph& graph, const SceneSight& sight, const BillboardSize& sizeOf,
                  VXPoint<double> position);

} // namespace VOXI
