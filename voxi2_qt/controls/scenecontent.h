#pragma once

#include "scenegraph.h"
#include "scenelabels.h"
#include "voxi2/controls/scenecamera.h"
#include "voxi2/controls/scenevalues.h"

#include <memory>
#include <optional>
#include <vector>

namespace VOXI {

/// What a scene's peer has been told.
struct SceneContent
{
    SceneGraph m_graph{};
    SceneLabels m_labels{};
    SceneCamera m_camera{};
    std::vector<SceneLight> m_lights{SceneLight{}};
    Color m_ambientLight{64, 64, 64};
    std::optional<Color> m_background{}; // else the widget's
    int m_samples = 4;
    std::shared_ptr<const SceneHook> m_hook{};
};

} // namespace VOXI
