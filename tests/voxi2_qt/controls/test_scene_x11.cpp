// What a scene draws and what is picked in it, compared with a picture that is drawn here; the
// user's pointer; what changes all the time.

#include "scenereference.h"
#include "scenesupport.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxpanel2.h"

#include <QGuiApplication>
#include <QScreen>

#include <atomic>
#include <cmath>
#include <thread>

namespace VOXI {
namespace {

constexpr Color Background(20, 30, 60);
constexpr Color Ambient(64, 64, 64);

struct Part
{
    unsigned m_uid;
    Matrix4 m_world;
    SceneGeometry m_geometry;
    Color m_color{255, 255, 255};
};

std::vector<Part> parts()
{
    return {
        {1, Matrix4::rotation(30, {1, 2, 0}), coloredBox(3)},
        {2, Matrix4::translation({1.5f, 1, 1}) * Matrix4::rotation(70, {0, 1, 1}), coloredBox(1)},
        // Mirrored, squeezed, and through the others.
        {3, Matrix4::rotation(20, {1, 0, 0}) * Matrix4::scaling({-1, 0.5f, 1}), square(5),
         Color(200, 120, 40)}};
}

class ScenePictures : public ShownScene
{
protected:
    void fill(const SceneCamera& camera)
    {
        m_scene->setCamera(camera);
        for (const Part& part : parts()) {
            m_scene->setNode({.uid = part.m_uid, .transform = part.m_world});
            m_scene->setGeometry(part.m_uid, part.m_geometry);
            m_scene->setLook(part.m_uid, {.color = part.m_color});
        }
    }

    SceneReference reference(const SceneCamera& camera) const
    {
        SceneReference drawn(camera, m_scene->bounds(), pixels(), Background, Ambient);
        for (const Part& part : parts())
            drawn.draw(part.m_uid, part.m_world, part.m_geometry, part.m_color);
        return drawn;
    }
};

const SceneCamera s_cameras[] = {
    {.eye = {2, 3, 8}, .fieldOfView = 40},
    {.eye = {0.5f, -2, 3}, .target = {0, 0, 0.5f}, .up = {1, 1, 0}, .fieldOfView = 80},
    {.eye = {-4, 6, 5}, .height = 6, .isOrthographic = true}};

/// At the edges a pixel may belong to either side, and colours are rounded: 0.7 % of the pixels may
/// differ by more than 4 of 255.
TEST_F(ScenePictures, areWhatTheProcessorDraws)
{
    for (const SceneCamera& camera : s_cameras) {
        fill(camera);
        const SceneReference expected = reference(camera);
        const QImage drawn = picture();
        EXPECT_LT(differingPercent(drawn, expected.image(), 4), 0.7);
        // It is not the background that is alike.
        QImage empty(drawn.size(), drawn.format());
        empty.fill(drawn.pixel(0, 0));
        EXPECT_GT(differingPercent(drawn, empty, 4), 15);
    }
    // Many samples for each pixel change the edges alone.
    m_scene->setSamples(8);
    EXPECT_LT(differingPercent(picture(), reference(s_cameras[2]).image(), 4), 6);
    // It has come to the screen; there the window may begin between two units.
    const QPoint at = onScreen(qt(*m_scene)->rect().center());
    EXPECT_TRUE(waitFor([&] {
        const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
        const QRgb wanted = middle();
        for (int place = 0; place < 9; ++place) {
            if (screen.pixel(at + QPoint(place % 3 - 1, place / 3 - 1)) == wanted)
                return true;
        }
        return false;
    }));
}

TEST_F(ScenePictures, arePickedAsTheyAreSeen)
{
    for (const SceneCamera& camera : s_cameras) {
        fill(camera);
        const SceneReference seen = reference(camera);
        const QSize size = qt(*m_scene)->size();
        const Matrix4 all =
            camera.projection(double(size.width()) / size.height(), m_scene->bounds())
            * camera.view();
        int compared = 0;
        for (int y = 0; y < size.height(); y += 5) {
            for (int x = 0; x < size.width(); x += 5) {
                const QPoint pixel = pixelAt({x, y});
                if (!seen.isInside(pixel.x(), pixel.y()))
                    continue;
                const SceneHit hit = m_scene->pick({x, y});
                const SceneHit expected = seen.hitAt(pixel.x(), pixel.y());
                ++compared;
                ASSERT_EQ(hit.node, expected.node) << x << " " << y;
                ASSERT_EQ(hit.part, expected.part) << x << " " << y;
                if (hit.node != 0) {
                    EXPECT_NEAR((all.map(hit.point).x + 1) / 2 * float(size.width()),
                                float(x) + 0.5f, 0.1f);
                }
            }
        }
        EXPECT_GT(compared, 2000);
    }
    EXPECT_EQ(m_scene->pick({-1, 5}).node, 0u);
    EXPECT_EQ(m_scene->pick({1 << 30, 5}).node, 0u);
}

TEST_F(ScenePictures, ofLinesPointsAndBillboardsArePickedBesideThem)
{
    const QPoint c = qt(*m_scene)->rect().center();
    m_scene->setCamera({.height = double(qt(*m_scene)->height()), .isOrthographic = true});
    m_scene->setNode({.uid = 1, .transform = Matrix4::translation({0, 0, -5})});
    m_scene->setGeometry(1, square(1000));
    m_scene->setNode({.uid = 2});
    m_scene->setGeometry(2, SceneGeometry({.shape = SceneShape::LineStrip,
                                           .positions = {{-60, 40, 0}, {0, 40, 0}, {60, 40, 0}}}));
    m_scene->setNode({.uid = 3});
    m_scene->setGeometry(
        3, SceneGeometry({.shape = SceneShape::Points, .positions = {{0, 0, 0}, {30, 0, 0}}}));
    m_scene->setLook(3, {.color = Color(255, 0, 0), .pointSize = 14});
    m_scene->setNode({.uid = 4, .transform = Matrix4::translation({0, 0, -7})}); // hidden by 1
    m_scene->setBillboard(4, {.text = L"label", .background = Color(0, 255, 0), .offset = {0, 50}});

    const auto nodeAt = [&](int x, int y) { return m_scene->pick({c.x() + x, c.y() + y}).node; };
    EXPECT_EQ(nodeAt(30, -38), 2u);
    EXPECT_EQ(m_scene->pick({c.x() + 30, c.y() - 40}).part, 1);
    EXPECT_EQ(nodeAt(30, -33), 1u);
    EXPECT_EQ(nodeAt(36, 0), 3u);
    EXPECT_EQ(m_scene->pick({c.x() + 33, c.y()}).part, 1);
    EXPECT_EQ(nodeAt(44, 0), 1u);
    EXPECT_EQ(nodeAt(0, 50), 1u);
    const auto green = [&] { return qGreen(colorAt(c + QPoint(0, 50 + 8))) == 255; };
    EXPECT_EQ(qRed(colorAt(c + QPoint(34, 4))), 255);
    EXPECT_EQ(qGreen(colorAt(c + QPoint(34, 4))), 0);

    SceneBillboard billboard = m_scene->billboard(4);
    billboard.isOnTop = true;
    m_scene->setLook(1, {.color = Color(100, 0, 0)});
    EXPECT_FALSE(green());
    m_scene->setBillboard(4, billboard);
    EXPECT_TRUE(green());
    EXPECT_EQ(nodeAt(0, 50), 4u);
    m_scene->setNode({.uid = 4, .isPickable = false});
    EXPECT_EQ(nodeAt(0, 50), 1u);
    m_scene->setNodeVisible(1, false);
    EXPECT_EQ(nodeAt(0, 50), 0u);
    // What is translucent is mixed with what is behind it.
    m_scene->clearNodes();
    m_scene->setNode({.uid = 1});
    m_scene->setGeometry(1, square(1000));
    m_scene->setLook(1, {.color = Color(255, 0, 0, 128), .isLit = false});
    EXPECT_NEAR(qRed(middle()), (255 + 20) / 2, 2);
    EXPECT_NEAR(qBlue(middle()), 30, 2);
}

TEST_F(ScenePictures, ofLinesThatLeadAwayArePickedWhereTheyAre)
{
    // On a surface, and from behind the camera to far away.
    m_scene->setCamera({.eye = {0, 0, 10}, .fieldOfView = 60});
    m_scene->setNode({.uid = 1, .transform = Matrix4::rotation(30, {1, 0, 0})});
    m_scene->setGeometry(1, square(6));
    m_scene->setNode({.uid = 2, .parent = 1});
    m_scene->setGeometry(
        2, SceneGeometry({.shape = SceneShape::Lines, .positions = {{-2, -2, 0}, {2, 2, 0}}}));
    const QPoint c = qt(*m_scene)->rect().center();
    for (const int way : {-25, 0, 25}) {
        const QPoint at = c + QPoint(way, -int(std::lround(way * 0.87)));
        EXPECT_EQ(m_scene->pick({at.x(), at.y()}).node, 2u) << way;
    }
    m_scene->clearNodes();
    m_scene->setNode({.uid = 3});
    m_scene->setGeometry(
        3, SceneGeometry({.shape = SceneShape::Lines, .positions = {{1, 0, 20}, {1, 0, -200}}}));
    const QSize size = qt(*m_scene)->size();
    const SceneCamera camera = m_scene->camera();
    for (const int x : {8, 20, 60}) {
        const SceneHit hit = m_scene->pick({c.x() + x, c.y()});
        ASSERT_EQ(hit.node, 3u) << x;
        EXPECT_NEAR(hit.point.x, 1, 0.01f);
        // How far away it is says how far from the middle it is seen.
        const double away = camera.eye.z - hit.point.z;
        const double units = camera.unitsPerPixel(away, size.height());
        EXPECT_NEAR(1 / units, c.x() + x + 0.5 - size.width() / 2.0, 0.5) << x;
    }
}

TEST_F(ScenePictures, areMixedFromBehindAndLitFromWhereTheLightsAre)
{
    m_scene->setCamera({.eye = {8, 0, 0}, .fieldOfView = 40});
    const Matrix4 facing = Matrix4::rotation(90, {0, 1, 0});
    for (const unsigned uid : {1u, 2u}) { // the nearer one is made first
        const float x = uid == 1 ? 1.0f : 0.0f;
        m_scene->setNode({.uid = uid, .transform = Matrix4::translation({x, 0, 0}) * facing});
        m_scene->setGeometry(uid, square(20));
    }
    m_scene->setLook(1, {.color = Color(255, 0, 0, 128), .isLit = false});
    m_scene->setLook(2, {.color = Color(0, 0, 255, 128), .isLit = false});
    EXPECT_NEAR(qRed(middle()), 128 + 5, 3);
    EXPECT_NEAR(qBlue(middle()), 128 / 2 + 15, 3);

    m_scene->setNodeVisible(1, false);
    m_scene->setAmbientLight(Color(0, 0, 0));
    m_scene->setLook(2, {.color = Color(255, 255, 255)});
    m_scene->setLights({{.place = {-1, 0, 0}, .isAtCamera = false}});
    EXPECT_NEAR(qRed(middle()), 255, 2);
    m_scene->setLights({{.place = {-1, 0, 0}}}); // from beside it
    EXPECT_NEAR(qRed(middle()), 0, 2);
}

TEST_F(ShownScene, isMovedByTheUserAlone)
{
    m_scene->setNode({.uid = 1});
    m_scene->setGeometry(1, coloredBox(3));
    Log moves(m_scene->cameraMoved());
    Log picks(m_scene->picked());
    const SceneCamera start = m_scene->camera();
    m_scene->orbit(10, 10);
    m_scene->pan(5, 5);
    m_scene->zoom(2);
    m_scene->fit();
    EXPECT_NE(m_scene->camera(), start);
    m_scene->setCamera(start);
    turn();
    EXPECT_TRUE(moves.isEmpty());

    const QPoint center = qt(*m_scene)->rect().center();
    const QPoint c = onScreen(center);
    xdotool(at(c) + QStringLiteral(" click 1"));
    ASSERT_TRUE(waitFor([&] { return !picks.isEmpty(); }));
    EXPECT_EQ(picks.only().hit().node, 1u);
    EXPECT_NEAR(picks.only().hit().point.z, 1.5f, 0.01f);
    EXPECT_TRUE(moves.isEmpty());

    const auto drag = [&](const char* button, QPoint way) {
        moves.clear();
        xdotool(at(c) + QStringLiteral(" mousedown %1 ").arg(QLatin1String(button))
                + at(onScreen(center + way / 2)) + u' ' + at(onScreen(center + way))
                + QStringLiteral(" mouseup %1").arg(QLatin1String(button)));
        ASSERT_TRUE(waitFor(
            [&] { return !moves.isEmpty() && moves.last().camera() == m_scene->camera(); }));
    };
    drag("1", {40, 0});
    EXPECT_LT(m_scene->camera().eye.x, -1); // the scene follows the pointer
    EXPECT_EQ(m_scene->camera().target, start.target);
    m_scene->setCamera(start);
    drag("2", {0, 30});
    EXPECT_GT(m_scene->camera().target.y, 0.5f);
    EXPECT_FLOAT_EQ(m_scene->camera().eye.z, start.eye.z);
    EXPECT_EQ(picks.count(), 1); // a drag is no click

    moves.clear();
    xdotool(QStringLiteral("click 4"));
    ASSERT_TRUE(waitFor([&] { return !moves.isEmpty(); }));
    EXPECT_LT(m_scene->camera().distance(), start.distance() - 0.5);
    moves.clear();
    xdotool(QStringLiteral("key Home"));
    ASSERT_TRUE(waitFor([&] { return !moves.isEmpty(); }));
    EXPECT_EQ(m_scene->camera().target, Vector3());

    m_scene->setNavigable(false);
    moves.clear();
    xdotool(QStringLiteral("click 4 key Left ") + at(c) + QStringLiteral(" click 1"));
    ASSERT_TRUE(waitFor([&] { return picks.count() >= 2; }));
    EXPECT_TRUE(moves.isEmpty());
}

/// What Qt painted a window into is not for the graphics card, which is to put the window together
/// when it comes back.
TEST_F(ShownScene, mayComeIntoADialogOfAWindowThatWasClosedOrChanged)
{
    for (const bool closes : {true, false}) {
        VXWindow2 owner;
        owner.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(qt(owner)));
        if (closes)
            owner.close();
        else
            owner.setWindowFlags(owner.windowFlags() | WindowFlagStaysOnTop);
        VXDialog2 dialog(&owner);
        VXHGScene2 scene(&dialog);
        const Log frames(scene.frameDrawn());
        scene.resize({100, 80});
        owner.show();
        dialog.show();
        EXPECT_TRUE(waitFor([&] { return !frames.isEmpty(); }, Patience));
        EXPECT_TRUE(QTest::qWaitForWindowExposed(qt(owner)));
        qt(owner)->repaint();
    }
}

/// Two workers change nodes as fast as they can, one of them 100 000 vertices each time.
TEST_F(ShownScene, drawsWhatWorkersMoveAllTheTime)
{
    constexpr std::size_t Count = 99999;
    constexpr int Rounds = 40;
    // A fan of slivers that fills the picture, seen by its colour only when it is in the middle.
    const auto positions = [](float x) {
        std::vector<Vector3> made(Count);
        for (std::size_t i = 0; i < Count; ++i) {
            const float y = static_cast<float>(i / 3) / (Count / 3) * 8 - 4;
            made[i] = {x + (i % 3 == 1 ? 4.0f : -4.0f), y + (i % 3 == 2 ? 0.01f : 0.0f), 0};
        }
        return made;
    };
    const SceneGeometry base(
        {.positions = positions(100), .colors = std::vector<Color>(Count, Color(0, 255, 0))});
    m_scene->setNode({.uid = 1});
    m_scene->setGeometry(1, base);
    m_scene->setLook(1, {.isLit = false});
    m_scene->setNode({.uid = 2});
    m_scene->setGeometry(2, coloredBox(1));
    m_scene->setNode({.uid = 3, .parent = 2});
    m_scene->setGeometry(3, coloredBox(1));
    m_scene->setNodeVisible(2, false);
    m_frames.clear();

    std::atomic<int> ended = 0;
    std::thread streams([&] {
        for (int i = 1; i <= Rounds; ++i) {
            m_scene->setGeometry(1, base.moved(positions(i == Rounds ? 0 : 100)));
            m_scene->node(1); // it has arrived
        }
        ++ended;
    });
    std::thread changes([&] {
        for (unsigned i = 0; ended == 0; ++i) {
            m_scene->setNode({.uid = 10 + i % 50,
                              .parent = i % 3,
                              .transform = Matrix4::translation({-3, 2, 0})});
            m_scene->setGeometry(10 + i % 50, coloredBox(0.1f));
            m_scene->removeNode(10 + (i * 7) % 50);
            m_scene->setTransform(2, Matrix4::rotation(i, {0, 0, 1}));
            m_scene->pick({10, 10});
        }
        ++ended;
    });
    EXPECT_TRUE(waitFor([&] { return ended == 2; }, Patience));
    streams.join();
    changes.join();
    EXPECT_GE(m_frames.count(), 5);
    EXPECT_TRUE(waitFor([&] { return middle() == qRgb(0, 255, 0); }));
}

/// Its picture is made, and goes with the context before the window is put together of it.
TEST_F(ShownScene, mayComeEmptyIntoAWindowOfScenes)
{
    VXWindow2 other;
    auto* panel = new VXPanel2(&other);
    other.setCentralWidget(panel);
    auto* neighbour = new VXHGScene2(panel);
    neighbour->resize({100, 100});
    other.resize({320, 240});
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(qt(other)));

    m_scene->setParent(&m_window);
    m_scene->show();
    m_scene->resize({60, 50});
    m_scene->resize({0, 0});
    m_scene->setParent(panel);
    m_scene->show();
    const Log frames(neighbour->frameDrawn());
    neighbour->update();
    EXPECT_TRUE(waitFor([&] { return !frames.isEmpty(); }));

    m_scene->resize({100, 80});
    EXPECT_TRUE(waitFor([&] { return middle() == qRgb(20, 30, 60); }));
}

} // namespace
} // namespace VOXI
