#pragma once

#include "scenerenderer.h"
#include "scenetarget.h"
#include "voxi2/controls/scenevalues.h"

#include <QOpenGLWidget>

#include <memory>

namespace VOXI {

class QtHGScene2;

/// Where a scene is drawn: a widget inside the peer's, which takes no part in input. It is apart
/// from the peer because a window that has one is put together by the graphics card, and because it
/// can be made anew.
///
/// What the program draws itself is not drawn while Qt paints, which it could do anything to: the
/// picture is then made apart, in a turn of the loop, and only shown when Qt paints. The context
/// ends when the widget comes into another window. If the program wants just that while it draws,
/// it waits until all is drawn.
class SceneSurface : public QOpenGLWidget
{
public:
    /// Whether there is any OpenGL that it could use; finds out once.
    static bool isPossible();

    SceneSurface(QtHGScene2& scene, int samples);
    ~SceneSurface() override;

    /// What the program draws; null for nothing. The former one is released as soon as may be.
    void setHook(std::shared_ptr<const SceneHook> hook);

    /// Something has changed.
    void redraw();

    bool isDrawing() const noexcept { return m_isBusy; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void initializeGL() override;
    void paintGL() override;

private:
    QSize pixels() const { return size() * devicePixelRatioF(); }
    void drawApart();
    void drawHook();
    void changeHook();
    void releaseHook();
    void end();
    void catchUp();
    template <class Function, class... Arguments>
    void call(const Function& function, const Arguments&... arguments);

    QtHGScene2& m_scene;
    const int m_samples;
    SceneRenderer m_renderer;
    SceneTarget m_target;
    std::shared_ptr<const SceneHook> m_hook;     // the one that knows the context
    std::shared_ptr<const SceneHook> m_nextHook; // the one that is wanted
    QSize m_hookSize;                            // that it was told; invalid before that
    bool m_isStale = false;   // something has changed since the picture was drawn apart
    bool m_isPending = false; // a picture is to be drawn apart, or to be painted
    bool m_isUnshown = false; // one has been drawn that was not painted
    bool m_isBusy = false;    // its own code or the program's is running
    bool m_hasMissed = false; // another window meanwhile
};

} // namespace VOXI
