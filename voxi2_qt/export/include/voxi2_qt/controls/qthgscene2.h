#pragma once

#include "voxi2/controls/vxhgscene2.h"
#include "voxi2/kernel/ignored.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt_scene/voxi2_qt_scene_export.h"

#include <QPoint>
#include <QSize>
#include <QWidget>

#include <memory>
#include <vector>

namespace VOXI {

class SceneRenderer;
class SceneSight;
class SceneSurface;
struct SceneContent;

/// The peer of the scene: a widget with another one inside, which OpenGL draws into; without that
/// it says that there is none. It lies in a library of its own, which the factory loads with the
/// first scene: few programs have any.
class VOXI2_QT_SCENE_EXPORT QtHGScene2
    : public QtWidget2Shim<VXHGScene2, VXHGScene2Emitters, QtWidget2, QWidget>
{
    Q_OBJECT

public:
    QtHGScene2(VXHGScene2* object, VXHGScene2Emitters* emitters, QWidget* parent);
    ~QtHGScene2() override;

    void doUpdate() override;
    void doSetContentsMargins(VXRect<int> margins) override;
    void doSetWidgetHighlight(bool on, int red, int green, int blue, int alpha) override;

    // Requests, in the order of the emitters table
    virtual void doSetNode(const SceneNode& node);
    virtual SceneNode doGetNode(unsigned uid);
    virtual void doRemoveNode(unsigned uid);
    virtual void doClearNodes();
    virtual std::vector<unsigned> doGetNodes();
    virtual void doSetTransform(unsigned uid, const Matrix4& transform);
    virtual void doSetNodeVisible(unsigned uid, bool visible);
    virtual void doSetGeometry(unsigned uid, const SceneGeometry& geometry);
    virtual SceneGeometry doGetGeometry(unsigned uid);
    virtual void doSetLook(unsigned uid, const SceneLook& look);
    virtual SceneLook doGetLook(unsigned uid);
    virtual void doSetBillboard(unsigned uid, const SceneBillboard& billboard);
    virtual SceneBillboard doGetBillboard(unsigned uid);
    virtual SceneBox doGetBounds(unsigned uid);
    virtual void doSetCamera(const SceneCamera& camera);
    virtual SceneCamera doGetCamera();
    virtual void doOrbit(double right, double upwards);
    virtual void doPan(double right, double upwards);
    virtual void doZoom(double factor);
    virtual void doFit(unsigned uid);
    virtual void doSetNavigable(bool navigable);
    virtual bool doIsNavigable();
    virtual void doSetLights(const std::vector<SceneLight>& lights);
    virtual std::vector<SceneLight> doGetLights();
    virtual void doSetAmbientLight(Color color);
    virtual Color doGetAmbientLight();
    virtual void doSetBackground(Color color);
    virtual Color doGetBackground();
    virtual void doSetSamples(int samples);
    virtual int doGetSamples();
    virtual void doSetHook(const std::shared_ptr<const SceneHook>& hook);
    virtual bool doIsAvailable();
    virtual SceneHit doPick(VXPoint<int> position);
    virtual void doimClick(VXPoint<int> position);

    /// The picture, for the surface. `ratio` of its pixels are one of the widget's.
    void drawInto(SceneRenderer& renderer, const QSize& pixels, double ratio);
    /// What a program that draws itself is told.
    SceneFrame frame(const QSize& pixels, void* (*functionAddress)(const char*)) const;
    /// A picture has been drawn.
    void slotFrameEnds();
    /// The surface has none any more.
    void slotContextLost();

    QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void tellFrame();
    void makeSurface();
    void renewSurface();
    void placeSurface();
    void redraw();
    Size<double> sightSize() const;
    SceneSight sight() const;
    SceneCamera panned(double right, double upwards) const;
    SceneCamera movedBy(const QKeyEvent& key) const;
    bool areFinite(double right, double upwards, CallPlace where = CallPlace::current()) const;
    void setCamera(const SceneCamera& camera);
    void moveAsUser(const SceneCamera& camera);
    void drag(const QMouseEvent& event);

    std::unique_ptr<SceneContent> m_content;
    SceneSurface* m_surface = nullptr; // null without OpenGL
    unsigned m_frames = 0;
    bool m_isFrameUntold = false;
    bool m_isNavigable = true;

    // Of the button that is down
    Qt::MouseButton m_button = Qt::NoButton;
    bool m_isDragged = false;
    QPoint m_pressedAt;
    QPoint m_draggedTo;
};

} // namespace VOXI
