#pragma once

#include "voxi2/controls/scenecamera.h"
#include "voxi2/controls/scenegeometry.h"
#include "voxi2/controls/scenevalues.h"
#include "voxi2/controls/vxhgsceneevents2.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"

#include <memory>
#include <vector>

namespace VOXI {

struct VXHGScene2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    // Nodes
    TROV::Request<void(SceneNode)> setNode{*this};
    TROV::Request<SceneNode(unsigned)> getNode{*this};
    TROV::Request<void(unsigned)> removeNode{*this};
    TROV::Request<void()> clearNodes{*this};
    TROV::Request<std::vector<unsigned>()> getNodes{*this};
    TROV::Request<void(unsigned, Matrix4)> setTransform{*this};
    TROV::Request<void(unsigned, bool)> setNodeVisible{*this};
    TROV::Request<void(unsigned, SceneGeometry)> setGeometry{*this};
    TROV::Request<SceneGeometry(unsigned)> getGeometry{*this};
    TROV::Request<void(unsigned, SceneLook)> setLook{*this};
    TROV::Request<SceneLook(unsigned)> getLook{*this};
    TROV::Request<void(unsigned, SceneBillboard)> setBillboard{*this};
    TROV::Request<SceneBillboard(unsigned)> getBillboard{*this};
    TROV::Request<SceneBox(unsigned)> getBounds{*this};

    // Camera
    TROV::Request<void(SceneCamera)> setCamera{*this};
    TROV::Request<SceneCamera()> getCamera{*this};
    TROV::Request<void(double, double)> orbit{*this};
    TROV::Request<void(double, double)> pan{*this};
    TROV::Request<void(double)> zoom{*this};
    TROV::Request<void(unsigned)> fit{*this};
    TROV::Request<void(bool)> setNavigable{*this};
    TROV::Request<bool()> isNavigable{*this};

    // Picture
    TROV::Request<void(std::vector<SceneLight>)> setLights{*this};
    TROV::Request<std::vector<SceneLight>()> getLights{*this};
    TROV::Request<void(Color)> setAmbientLight{*this};
    TROV::Request<Color()> getAmbientLight{*this};
    TROV::Request<void(Color)> setBackground{*this};
    TROV::Request<Color()> getBackground{*this};
    TROV::Request<void(int)> setSamples{*this};
    TROV::Request<int()> getSamples{*this};
    TROV::Request<void(std::shared_ptr<const SceneHook>)> setHook{*this};
    TROV::Request<bool()> isAvailable{*this};

    TROV::Request<SceneHit(VXPoint<int>)> pick{*this};
    TROV::Request<void(VXPoint<int>)> click{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXHGScenePickEvent2&)> picked{*this};
    TROV::Event<void(const VXHGSceneCameraEvent2&)> cameraMoved{*this};
    TROV::Event<void(const VXHGSceneFrameEvent2&)> frameDrawn{*this};
};

/// A scene in three dimensions, drawn by the graphics card: a tree of nodes that show meshes,
/// lines, points and billboards, and a camera that the user moves.
///
/// The pointer orbits; with Shift or its middle button it pans, its wheel zooms. So do the arrow
/// keys, with Shift, and Plus and Minus; Home has all that is visible seen.
///
/// A picture is drawn when something has changed, at most as often as the screen shows one. What
/// a worker sends is in the next one: setters of nodes may come as often as each frame.
///
/// Where there is no OpenGL the widget says so in place of the picture. Then nothing is picked and
/// no frame drawn; what is set is kept all the same.
class VOXI2_EXPORT VXHGScene2 : public VXWidget2
{
public:
    using ToolkitClass = VXHGScene2;

    /// The most lights.
    static constexpr std::size_t MaxLights = 8;

    explicit VXHGScene2(VXObject2* parent = nullptr);
    ~VXHGScene2() override;

    // Nodes. Those that there are not are ignored, and answered as new ones.

    /// Adds a node, or changes the one with its uid, which keeps what it shows and what is below
    /// it. Ignored for the uid 0, a transform that holds an infinity or NaN, and a parent that is
    /// not there, the node itself, or below it.
    void setNode(const SceneNode& node);
    /// With the uid 0 where it is not there.
    SceneNode node(unsigned uid) const;
    /// With all that is below it.
    void removeNode(unsigned uid);
    void clearNodes();
    /// Their uids, each before what is below it, else in the order in which they came there.
    std::vector<unsigned> nodes() const;
    /// As by `setNode`.
    void setTransform(unsigned uid, const Matrix4& transform);
    void setNodeVisible(unsigned uid, bool visible);

    /// Null shows nothing. Only what is new of it is handed to the graphics card.
    void setGeometry(unsigned uid, const SceneGeometry& geometry);
    SceneGeometry geometry(unsigned uid) const;
    /// Widths and sizes that are no numbers become 1.
    void setLook(unsigned uid, const SceneLook& look);
    SceneLook look(unsigned uid) const;
    /// Null shows none.
    void setBillboard(unsigned uid, const SceneBillboard& billboard);
    SceneBillboard billboard(unsigned uid) const;
    /// The box around what is visible of a node and of what is below it, in the scene's
    /// coordinates; of all nodes for 0. Billboards count by their node's origin.
    SceneBox bounds(unsigned uid = 0) const;

    // Camera. What is no number, or leads to a camera that is not valid, is ignored.

    void setCamera(const SceneCamera& camera);
    SceneCamera camera() const;
    /// About the target, in degrees.
    void orbit(double right, double upwards);
    /// In pixels, of what is at the target.
    void pan(double right, double upwards);
    /// Nearer by a factor, farther where that is below 1.
    void zoom(double factor);
    /// So that all of a node and what is below it is seen, of all nodes for 0.
    void fit(unsigned uid = 0);
    /// Whether the user may move the camera; at first so.
    void setNavigable(bool navigable);
    bool isNavigable() const;

    // Picture

    /// What is beyond `MaxLights` is left out, as is what holds an infinity or NaN; at first there
    /// is one that shines from the camera.
    void setLights(const std::vector<SceneLight>& lights);
    std::vector<SceneLight> lights() const;
    /// What comes from everywhere; a dark grey at first.
    void setAmbientLight(const Color& color);
    Color ambientLight() const;
    /// Opaque; at first that of the widget.
    void setBackground(const Color& color);
    Color background() const;
    /// How many samples each pixel is mixed from, 0 to 16, as far as the graphics card can; 4 at
    /// first.
    void setSamples(int samples);
    int samples() const;
    /// For what the program draws itself, over the nodes; an empty one for nothing.
    void setHook(SceneHook hook);
    /// Whether there is an OpenGL to draw with.
    bool isAvailable() const;

    /// The nearest that is drawn there, in the widget's coordinates. Lines and points are hit up to
    /// four pixels beside them, billboards on all of their rectangle.
    SceneHit pick(const VXPoint<int>& position) const;

    // As if the user had done it: reported

    void imitateClick(const VXPoint<int>& position);

    // Events

    /// The user has clicked, also where nothing is.
    TROV::Signal<void(const VXHGScenePickEvent2&)> picked() const
    {
        return m_emitters.picked.signal();
    }
    /// The user has moved the camera.
    TROV::Signal<void(const VXHGSceneCameraEvent2&)> cameraMoved() const
    {
        return m_emitters.cameraMoved.signal();
    }
    /// Sent with the next turn of the loop after a picture was drawn, whoever wanted it: the time
    /// to move what moves all the time. Several pictures in one turn are told once.
    TROV::Signal<void(const VXHGSceneFrameEvent2&)> frameDrawn() const
    {
        return m_emitters.frameDrawn.signal();
    }

private:
    VXHGScene2Emitters m_emitters;
};

} // namespace VOXI
