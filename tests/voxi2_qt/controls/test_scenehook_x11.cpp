// Programs that draw with OpenGL themselves, and contexts that end.

#include "scenesupport.h"
#include "support/reportederrors.h"
#include "voxi2/containers/vxpanel2.h"

#include <QSurfaceFormat>

#include <functional>
#include <stdexcept>

namespace VOXI {
namespace {

template <class Function>
Function named(const SceneFrame& frame, const char* name)
{
    return reinterpret_cast<Function>(frame.functionAddress(name));
}

/// Makes the whole picture red by its own calls, and leaves behind what it can.
void paintRed(const SceneFrame& frame)
{
    named<void (*)(float, float, float, float)>(frame, "glClearColor")(1, 0, 0, 1);
    named<void (*)(unsigned)>(frame, "glClear")(0x4000);
    const auto enable = named<void (*)(unsigned)>(frame, "glEnable");
    for (const unsigned capability : {0x0B44u, 0x0C11u, 0x0BE2u, 0x0BC0u}) // cull, scissor, ...
        enable(capability);
    named<void (*)(int, int, int, int)>(frame, "glScissor")(0, 0, 1, 1);
    named<void (*)(unsigned)>(frame, "glDepthFunc")(0x0200); // never
    // Would be read for each vertex.
    static const float few[3] = {};
    named<void (*)(unsigned)>(frame, "glEnableVertexAttribArray")(5);
    named<void (*)(unsigned, int, unsigned, unsigned char, int, const void*)>(
        frame, "glVertexAttribPointer")(5, 3, 0x1406, 0, 0, few);
    if (QSurfaceFormat::defaultFormat().renderableType() != QSurfaceFormat::OpenGLES)
        named<void (*)(unsigned, unsigned)>(frame, "glPolygonMode")(0x0408, 0x1B01);
}

class SceneHooks : public ShownScene
{
protected:
    SceneHook counting()
    {
        return {.initialize = [this](const SceneFrame&) { m_told += "initialize "; },
                .resize =
                    [this](const SceneFrame& f) {
                        m_told += "resize ";
                        m_size = f.size;
                    },
                .draw =
                    [this](const SceneFrame& f) {
                        ++m_drawn;
                        paintRed(f);
                    },
                .release = [this] { m_told += "release "; }};
    }

    /// Draws another picture.
    void redraw()
    {
        m_frames.clear();
        m_scene->update();
        ASSERT_TRUE(waitFor([&] { return !m_frames.isEmpty(); }));
    }

    std::string m_told;
    Size<int> m_size{};
    int m_drawn = 0;
};

TEST_F(SceneHooks, drawOverTheNodesWhichGoOnAsBefore)
{
    m_scene->setNode({.uid = 1});
    m_scene->setGeometry(1, coloredBox(3));
    const QImage before = picture();
    m_scene->setHook(counting());
    redraw();
    EXPECT_EQ(m_told, "initialize resize ");
    EXPECT_EQ(m_size, (Size<int>{before.width(), before.height()}));
    EXPECT_TRUE(waitFor([&] { return middle() == qRgb(255, 0, 0); }));
    m_window.resize({400, 300});
    ASSERT_TRUE(waitFor([&] { return m_size.width > before.width(); }));

    m_window.resize({320, 240});
    ASSERT_TRUE(waitFor([&] { return pixels() == before.size(); }));
    m_told.clear();
    m_scene->setHook({});
    EXPECT_EQ(m_told, "release ");
    EXPECT_EQ(picture(), before);

    // One that takes itself away.
    m_told.clear();
    m_scene->setHook({.draw = [&](const SceneFrame&) { m_scene->setHook({}); },
                      .release = [&] { m_told += "release "; }});
    EXPECT_TRUE(waitFor([&] { return m_told == "release "; }));
    EXPECT_EQ(picture(), before);
}

TEST_F(SceneHooks, areGivenTheOpenGLThatTheProgramChose)
{
    std::string version;
    m_scene->setHook({.initialize = [&](const SceneFrame& frame) {
        version = named<const char* (*)(unsigned)>(frame, "glGetString")(0x1F02);
    }});
    redraw();
    EXPECT_EQ(version.starts_with("OpenGL ES"),
              QSurfaceFormat::defaultFormat().renderableType() == QSurfaceFormat::OpenGLES)
        << version;
}

TEST_F(SceneHooks, comeIntoTheContextOfAnotherWindow)
{
    m_scene->setNode({.uid = 1});
    m_scene->setGeometry(1, coloredBox(3));
    m_scene->setNode({.uid = 2});
    m_scene->setBillboard(2, {.text = L"label", .background = Color(0, 255, 0), .isOnTop = true});
    const QImage before = picture();
    m_scene->setHook({.initialize = [this](const SceneFrame&) { m_told += "initialize "; },
                      .draw = [this](const SceneFrame&) { ++m_drawn; },
                      .release = [this] { m_told += "release "; }});
    redraw();
    VXWindow2 other;
    other.resize({320, 240});
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(qt(other)));
    m_drawn = 0;
    other.setCentralWidget(m_scene);
    EXPECT_TRUE(waitFor([&] { return m_drawn > 0; }));
    EXPECT_EQ(m_told, "initialize release initialize ");
    EXPECT_EQ(picture(), before);
    // Alone, as a window.
    const QSize size = qt(*m_scene)->size();
    m_scene->setParent(nullptr);
    m_scene->resize({size.width(), size.height()});
    m_drawn = 0;
    m_scene->show();
    EXPECT_TRUE(waitFor([&] { return m_drawn > 0; }));
    EXPECT_EQ(picture(), before);
    m_told.clear();
    delete m_scene;
    runDeletions();
    EXPECT_EQ(m_told, "release ");
}

TEST_F(SceneHooks, mayThrow)
{
    TROV::ReportedErrors errors;
    const auto fail = [this](const char* what) {
        m_told += what;
        throw std::runtime_error(what);
    };
    m_scene->setHook({.initialize = [=](const SceneFrame&) { fail("initialize "); },
                      .resize = [=](const SceneFrame&) { fail("resize "); },
                      .draw = [=](const SceneFrame&) { fail("draw "); },
                      .release = [=] { fail("release "); }});
    redraw();
    m_scene->setHook({});
    EXPECT_TRUE(m_told.starts_with("initialize resize draw ")) << m_told;
    EXPECT_TRUE(m_told.ends_with("draw release ")) << m_told;
    EXPECT_GE(errors.take().size(), 4u);
}

/// What the program does while Qt is in the middle of drawing, and of taking a context apart.
TEST_F(SceneHooks, mayDoAnything)
{
    VXWindow2 other;
    auto* const panel = new VXPanel2(&other);
    other.setCentralWidget(panel);
    other.resize({200, 200});
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(qt(other)));
    const std::function<void()> acts[] = {
        [] { turn(); }, // a loop, in which the same is drawn
        [&] { m_scene->setSamples(m_scene->samples() == 4 ? 0 : 4); },
        [&] {
            m_window.resize({500, 400});
            turn();
        },
        [&] {
            m_scene->hide();
            turn();
            m_scene->show();
        },
        [&] {
            m_scene->setParent(panel);
            m_scene->show();
            turn();
        },
        [&] {
            m_window.setCentralWidget(m_scene);
            turn();
        },
        [&] { qt(*m_scene)->grab(); },
        [&] { m_scene->setHook(counting()); },
    };
    int number = 0;
    for (const auto& act : acts) {
        SCOPED_TRACE(number++);
        bool isDone = false;
        m_scene->setHook({.draw =
                              [&](const SceneFrame&) {
                                  if (!std::exchange(isDone, true))
                                      act();
                              },
                          .release = [&] { m_scene->setNode({.uid = 9}); }});
        redraw();
        EXPECT_TRUE(isDone);
        redraw();
    }
    EXPECT_TRUE(waitFor([&] { return middle() == qRgb(255, 0, 0); })); // the last one's

    // The widget goes while it is drawn, and its context with it.
    m_scene->setHook({.draw =
                          [&](const SceneFrame&) {
                              delete std::exchange(m_scene, nullptr);
                              runDeletions();
                              turn();
                          },
                      .release = [&] { m_told = "end"; }});
    EXPECT_TRUE(waitFor([&] { return m_told == "end"; }));
    m_scene = new VXHGScene2(&m_window);
}

/// While a context ends because the window around it goes elsewhere.
TEST_F(SceneHooks, mayGoElsewhereWhileTheirContextEnds)
{
    auto* const panel = new VXPanel2(&m_window);
    m_window.setCentralWidget(panel);
    m_scene->setParent(panel);
    m_scene->resize({200, 150});
    m_scene->show();
    bool isDrawn = false;
    m_scene->setHook({.draw = [&](const SceneFrame&) { isDrawn = true; },
                      .release =
                          [&] {
                              m_told += "release ";
                              m_scene->setParent(&m_window);
                          }});
    ASSERT_TRUE(waitFor([&] { return isDrawn; }));
    VXWindow2 other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(qt(other)));
    other.setCentralWidget(panel);
    m_scene->show();
    redraw();
    EXPECT_EQ(m_told, "release ");
    EXPECT_EQ(m_scene->parent(), &m_window);
    m_scene->setHook({});
}

} // namespace
} // namespace VOXI
