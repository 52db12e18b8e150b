#pragma once

#include "voxi2/controls/scenecamera.h"
#include "voxi2/controls/scenevalues.h"
#include "voxi2/kernel/vxevent2.h"

namespace VOXI {

class VXHGScene2;

/// What all events of a scene have.
template <class... Values>
class VXHGSceneEventOf2 : public VXEvent2<VXHGScene2, Values...>
{
public:
    using VXEvent2<VXHGScene2, Values...>::VXEvent2;
    VXHGScene2* scene() const noexcept { return this->sender(); }
};

/// The user has clicked into a scene.
class VXHGScenePickEvent2 : public VXHGSceneEventOf2<SceneHit, VXPoint<int>>
{
public:
    using VXHGSceneEventOf2::VXHGSceneEventOf2;
    /// What was clicked; its `node` is 0 where nothing is.
    const SceneHit& hit() const noexcept { return value(); }
    /// In the widget.
    VXPoint<int> position() const noexcept { return value<1>(); }
};

/// The user has moved the camera.
class VXHGSceneCameraEvent2 : public VXHGSceneEventOf2<SceneCamera>
{
public:
    using VXHGSceneEventOf2::VXHGSceneEventOf2;
    const SceneCamera& camera() const noexcept { return value(); }
};

/// A picture has been drawn.
class VXHGSceneFrameEvent2 : public VXHGSceneEventOf2<unsigned>
{
public:
    using VXHGSceneEventOf2::VXHGSceneEventOf2;
    /// How many there have been, this one included.
    unsigned number() const noexcept { return value(); }
};

} // namespace VOXI
