// What a scene takes and refuses, where there is no OpenGL. What it draws: test_scene_x11.cpp.

#include "../kernel/toolkit.h"
#include "voxi2/controls/vxhgscene2.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace VOXI {
namespace {

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

SceneVertices triangle() { return {.positions = {{0, 0, 0}, {2, 0, 0}, {0, 2, 0}}}; }

bool isNear(const Vector3& a, const Vector3& b) { return length(a - b) < 1e-4f; }

TEST(SceneGeometry, refusesWhatWouldBeReadOutOfBounds)
{
    EXPECT_TRUE(SceneGeometry(SceneVertices()).isNull());
    const auto isRefused = [](auto spoil) {
        SceneVertices vertices = triangle();
        spoil(vertices);
        return SceneGeometry(std::move(vertices)).isNull();
    };
    EXPECT_FALSE(isRefused([](SceneVertices& v) { v.indices = {0, 1, 2}; }));
    EXPECT_TRUE(isRefused([](SceneVertices& v) { v.indices = {0, 1, 3}; }));
    EXPECT_TRUE(isRefused([](SceneVertices& v) { v.indices = {0, 1, 0xffffffff}; }));
    EXPECT_TRUE(isRefused([](SceneVertices& v) { v.colors.resize(2); }));
    EXPECT_TRUE(isRefused([](SceneVertices& v) { v.normals.resize(4); }));
    EXPECT_TRUE(isRefused([](SceneVertices& v) { v.positions[1].y = NaN; }));
    EXPECT_TRUE(isRefused([](SceneVertices& v) { v.positions[1].x = INFINITY; }));
    EXPECT_TRUE(isRefused([](SceneVertices& v) { v.shape = static_cast<SceneShape>(9); }));

    const SceneGeometry whole(triangle());
    EXPECT_TRUE(whole.moved({{0, 0, 0}, {1, 0, 0}}).isNull());
    EXPECT_TRUE(whole.moved({{0, 0, 0}, {1, 0, 0}, {0, NaN, 0}}).isNull());
    EXPECT_TRUE(SceneGeometry().moved({}).isNull());
}

TEST(SceneGeometry, leavesOutWhatIsNotWholeAndMakesNormals)
{
    SceneVertices vertices = triangle();
    vertices.positions.push_back({5, 5, 5});
    const SceneGeometry geometry(std::move(vertices));
    EXPECT_EQ(geometry.drawnCount(), 3u);
    EXPECT_EQ(geometry.box().maximum, (Vector3{5, 5, 5}));
    EXPECT_EQ(geometry.normals()->at(0), (Vector3{0, 0, 1}));

    // The normals follow, and what stays is shared.
    const SceneGeometry turned = geometry.moved({{0, 0, 0}, {0, 2, 0}, {0, 0, 2}, {0, 0, 0}});
    EXPECT_EQ(turned.normals()->at(0), (Vector3{1, 0, 0}));
    SceneVertices indexed = triangle();
    indexed.indices = {2, 1, 0};
    indexed.normals = {{0, 0, 1}, {NaN, 0, 0}, {0, 0, 1}};
    const SceneGeometry given(std::move(indexed));
    EXPECT_EQ(given.normals()->at(1), Vector3());
    const SceneGeometry moved = given.moved({{0, 0, 1}, {1, 0, 1}, {0, 1, 1}});
    EXPECT_EQ(moved.indices(), given.indices());
    EXPECT_EQ(moved.normals(), given.normals());
}

TEST(SceneCamera, seesWhatItIsFittedToAndTurnsAboutIt)
{
    SceneBox box;
    box.add({100, 200, 300});
    box.add({104, 201, 307});
    for (const bool isOrthographic : {false, true}) {
        for (const double aspect : {0.2, 1.0, 5.0}) {
            SceneCamera camera{.eye = {3, 8, 20}, .isOrthographic = isOrthographic};
            camera = camera.fitted(box, aspect).orbited(200, 30);
            const Matrix4 all = camera.projection(aspect, box) * camera.view();
            float widest = 0;
            for (unsigned i = 0; i < 8; ++i) {
                const Vector3 seen = all.map(box.corner(i));
                EXPECT_LE(std::abs(seen.z), 1);
                widest = std::max({widest, std::abs(seen.x), std::abs(seen.y)});
            }
            EXPECT_LE(widest, 1);
            EXPECT_GT(widest, 0.3f);
        }
    }

    const SceneCamera before{.eye = {0, 0, 10}};
    EXPECT_TRUE(isNear(before.orbited(90, 0).eye, {10, 0, 0}));
    EXPECT_TRUE(isNear(before.orbited(0, 45).eye, {0, std::sqrt(50.0f), std::sqrt(50.0f)}));
    // Not over the pole, however far it is turned.
    const SceneCamera above = before.orbited(0, 1e9);
    EXPECT_GT(above.eye.z, 0.1f);
    EXPECT_NEAR(above.distance(), 10, 1e-4);
    EXPECT_TRUE(isNear(before.zoomed(2).eye, {0, 0, 5}));
    EXPECT_EQ(before.zoomed(0), before);
    EXPECT_EQ(before.zoomed(NaN), before);
    EXPECT_EQ(before.orbited(NaN, 0), before);
    EXPECT_TRUE(isNear(before.panned(1, 2).target, {1, 2, 0}));
}

TEST(SceneMath, undoesWhatItDoes)
{
    const Matrix4 all = Matrix4::translation({1, 2, 3}) * Matrix4::rotation(70, {1, 1, 0})
                        * Matrix4::scaling({2, 3, -4});
    EXPECT_TRUE(isNear(all.inverted()->map(all.map({5, 6, 7})), {5, 6, 7}));
    EXPECT_TRUE(isNear(Matrix4::rotation(90, {0, 0, 3}).map({1, 0, 0}), {0, 1, 0}));
    EXPECT_FALSE(Matrix4::scaling({1, 0, 1}).inverted());
}

/// The nodes of a scene by what they answer.
TEST(Scene, keepsItsTreeATree)
{
    VXHGScene2 scene;
    scene.setNode({.uid = 0});
    scene.setNode({.uid = 7, .parent = 1});
    EXPECT_TRUE(scene.nodes().empty());
    for (const unsigned uid : {1u, 2u, 3u})
        scene.setNode({.uid = uid, .parent = uid - 1});
    scene.setNode({.uid = 4, .parent = 1});
    EXPECT_EQ(scene.nodes(), (std::vector<unsigned>{1, 2, 3, 4}));

    scene.setNode({.uid = 1, .parent = 3}); // circles
    scene.setNode({.uid = 2, .parent = 2});
    scene.setNode({.uid = 3, .transform = Matrix4::translation({NaN, 0, 0})});
    scene.setTransform(3, Matrix4::translation({INFINITY, 0, 0}));
    EXPECT_EQ(scene.node(1).parent, 0u);
    EXPECT_EQ(scene.node(2).parent, 1u);
    EXPECT_EQ(scene.node(3), (SceneNode{.uid = 3, .parent = 2}));

    scene.setNode({.uid = 2, .parent = 4});
    EXPECT_EQ(scene.nodes(), (std::vector<unsigned>{1, 4, 2, 3}));
    scene.removeNode(4);
    scene.removeNode(9);
    EXPECT_EQ(scene.nodes(), (std::vector<unsigned>{1}));
    EXPECT_EQ(scene.node(3).uid, 0u);

    // So deep that no function may call itself for each.
    constexpr unsigned Depth = 100000;
    for (unsigned uid = 2; uid <= Depth; ++uid)
        scene.setNode({.uid = uid,
                       .parent = uid - 1,
                       .transform = Matrix4::translation({0, 0, uid == 2 ? 1.0f : 0.0f})});
    scene.setGeometry(Depth, SceneGeometry(triangle()));
    EXPECT_EQ(scene.bounds().minimum, (Vector3{0, 0, 1}));
    scene.setNodeVisible(2, false);
    EXPECT_TRUE(scene.bounds().isEmpty);
    EXPECT_TRUE(scene.bounds(Depth).isEmpty);
    scene.removeNode(2);
    EXPECT_EQ(scene.nodes(), (std::vector<unsigned>{1}));
}

TEST(Scene, keepsWhatNodesShow)
{
    VXHGScene2 scene;
    const SceneGeometry geometry(triangle());
    const SceneBillboard billboard{.text = L"label", .isOnTop = true};
    scene.setGeometry(1, geometry);
    EXPECT_TRUE(scene.geometry(1).isNull());
    scene.setNode({.uid = 1, .transform = Matrix4::scaling({2, 2, 2})});
    scene.setGeometry(1, geometry);
    scene.setBillboard(1, billboard);
    scene.setLook(1, {.color = Color(1, 2, 3), .lineWidth = NaN, .pointSize = 1e9f});
    scene.setNode({.uid = 1, .transform = Matrix4::scaling({3, 3, 3})}); // keeps it
    EXPECT_EQ(scene.geometry(1), geometry);
    EXPECT_EQ(scene.billboard(1), billboard);
    EXPECT_EQ(scene.look(1), (SceneLook{.color = Color(1, 2, 3), .lineWidth = 1, .pointSize = 64}));
    EXPECT_EQ(scene.bounds(1).maximum, (Vector3{6, 6, 0}));

    std::vector<SceneLight> lights(20);
    lights[0].place.x = NaN;
    scene.setLights(lights);
    EXPECT_EQ(scene.lights().size(), VXHGScene2::MaxLights);
    const SceneCamera camera = scene.camera();
    scene.setCamera({.eye = {1, 1, 1}, .target = {1, 1, 1}});
    scene.setCamera({.height = 0});
    EXPECT_EQ(scene.camera(), camera);
    scene.setSamples(-3);
    EXPECT_EQ(scene.samples(), 0);
}

TEST(Scene, saysWhereThereIsNoOpenGL)
{
    VXHGScene2 scene;
    scene.resize({300, 200});
    scene.setNode({.uid = 1});
    scene.setGeometry(1, SceneGeometry(triangle()));
    bool isDrawn = false;
    scene.setHook({.draw = [&](const SceneFrame&) { isDrawn = true; }});
    const QImage empty = qt(scene)->grab().toImage();
    scene.show();
    scene.fit();
    EXPECT_FALSE(scene.isAvailable());
    EXPECT_EQ(scene.pick({150, 100}), SceneHit());
    EXPECT_FALSE(isDrawn);
    Log picks(scene.picked());
    scene.imitateClick({150, 100});
    EXPECT_EQ(picks.only().hit(), SceneHit());
    // There is a text.
    QImage blank(empty.size(), empty.format());
    blank.fill(empty.pixel(0, 0));
    EXPECT_NE(empty, blank);
}

} // namespace
} // namespace VOXI
