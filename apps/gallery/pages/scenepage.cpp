#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxhgscene2.h"
#include "voxi2/controls/vxlistbox2.h"

#include <cmath>
#include <numbers>

namespace gallery {

using namespace VOXI;

namespace {

/// What the model is made of; the uids are the places in this list, from 1.
struct Piece
{
    const char* name;
    unsigned parent;
    Matrix4 place;
    SceneGeometry shape;
    Color color;
};

/// A line that is turned about the y axis: pairs of a radius and a height, from below.
SceneGeometry turned(const std::vector<VXPoint<float>>& outline, unsigned sides)
{
    SceneVertices made;
    const auto rows = static_cast<std::uint32_t>(outline.size());
    for (std::uint32_t side = 0; side <= sides; ++side) {
        const float angle = 2 * std::numbers::pi_v<float> * float(side) / float(sides);
        for (const VXPoint<float>& point : outline)
            made.positions.push_back(
                {point.x * std::cos(angle), point.y, -point.x * std::sin(angle)});
    }
    for (std::uint32_t side = 0; side < sides; ++side) {
        for (std::uint32_t row = 0; row + 1 < rows; ++row) {
            const std::uint32_t at = side * rows + row;
            for (const std::uint32_t index :
                 {at, at + rows, at + 1, at + 1, at + rows, at + rows + 1})
                made.indices.push_back(index);
        }
    }
    return SceneGeometry(std::move(made));
}

SceneGeometry box(float width, float height, float depth)
{
    // Each side with corners of its own, so that its edges are sharp.
    SceneVertices made;
    SceneBox corners;
    corners.add({-width / 2, 0, -depth / 2});
    corners.add({width / 2, height, depth / 2});
    constexpr unsigned faces[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4},
                                      {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
    for (const auto& face : faces) {
        for (const int k : {0, 1, 2, 0, 2, 3})
            made.positions.push_back(corners.corner(face[k]));
    }
    return SceneGeometry(std::move(made));
}

SceneGeometry grid(int half)
{
    SceneVertices made{.shape = SceneShape::Lines};
    const auto far = static_cast<float>(half);
    for (int i = -half; i <= half; ++i) {
        const auto at = static_cast<float>(i);
        for (const Vector3& end : {Vector3{at, 0, -far}, {at, 0, far}, {-far, 0, at}, {far, 0, at}})
            made.positions.push_back(end);
    }
    return SceneGeometry(std::move(made));
}

std::vector<Piece> pieces()
{
    const auto at = [](float x, float y, float z) { return Matrix4::translation({x, y, z}); };
    const SceneGeometry blade = box(0.35f, 2.6f, 0.06f);
    std::vector<Piece> all = {
        {"ground", 0, {}, grid(6), Color(150, 156, 166)},
        {"tower",
         0,
         {},
         turned({{1.2f, 0}, {0.75f, 3.4f}, {0.8f, 3.5f}, {0.8f, 3.7f}}, 12),
         Color(226, 218, 200)},
        {"cap", 2, at(0, 3.7f, 0), turned({{0.95f, 0}, {0.7f, 0.5f}, {0, 0.9f}}, 12),
         Color(150, 62, 48)},
        {"wheel", 3, at(0, 0.3f, 1.0f),
         turned({{0, -0.15f}, {0.16f, -0.15f}, {0.16f, 0.15f}, {0, 0.15f}}, 16), Color(70, 74, 82)},
    };
    for (int i = 0; i < 4; ++i)
        all.push_back(
            {"blade", 4, Matrix4::rotation(90 * i + 20, {0, 0, 1}), blade, Color(248, 246, 240)});
    all.push_back({"door", 2, at(0, 0, 1.15f) * Matrix4::rotation(-7, {1, 0, 0}),
                   box(0.6f, 1.2f, 0.12f), Color(96, 68, 44)});
    all.push_back({"barn", 0, at(3, 0, -1), box(2, 1.3f, 1.6f), Color(180, 96, 66)});
    return all;
}

void addPiece(VXHGScene2* scene, VXListBox2* list, unsigned uid, const Piece& piece)
{
    scene->setNode({.uid = uid, .parent = piece.parent, .transform = piece.place});
    scene->setGeometry(uid, piece.shape);
    scene->setLook(uid, {.color = piece.color, .isLit = uid != 1});
    list->addItems(VXStringList({piece.name}));
}

/// The chosen piece is red.
void choose(VXHGScene2* scene, const std::vector<Piece>& all, unsigned chosen)
{
    for (unsigned uid = 2; uid <= all.size(); ++uid)
        scene->setLook(uid, {.color = uid == chosen ? BadColor : all[uid - 1].color});
}

constexpr unsigned Wheel = 4;
constexpr unsigned Barn = 10;
constexpr unsigned Sign = 100;

void fill(VXHGScene2* scene, VXListBox2* list, const std::vector<Piece>& all)
{
    for (unsigned i = 0; i < all.size(); ++i)
        addPiece(scene, list, i + 1, all[i]);
    scene->setNode({.uid = Sign, .parent = Barn, .transform = Matrix4::translation({0, 1.8f, 0})});
    scene->setBillboard(
        Sign, {.text = L"for sale", .background = Color(255, 255, 255, 200), .isOnTop = true});
    scene->setBackground(PadColor);
    scene->setLights({{.place = {-1, -2, -1.5f}, .isAtCamera = false}});
    scene->setAmbientLight(Color(96, 96, 104));
    scene->setCamera({.eye = {5, 4, 9}, .target = {0.8f, 2, 0}, .fieldOfView = 40});
}

/// What is clicked in the picture is chosen in the list, and the other way round.
void connectChoices(VXHGScene2* scene, VXListBox2* list, const std::vector<Piece>& all,
                    EventLog& log)
{
    scene->picked().connect(&log, [=, &log](const VXHGScenePickEvent2& event) {
        const unsigned uid = event.hit().node <= all.size() ? event.hit().node : 0;
        choose(scene, all, uid);
        list->clearSelection();
        if (uid != 0)
            list->setSelection(static_cast<int>(uid) - 1, true);
        log.add(std::string("picked: ") + (uid != 0 ? all[uid - 1].name : "nothing"));
    });
    list->selectionChanged().connect(scene, [=](const VXListBoxSelectEvent2& event) {
        choose(scene, all, event.rows().empty() ? 0 : unsigned(event.rows().front()) + 1);
    });
}

VXCheckBox2* option(const Box& line, const char* text, const char* name)
{
    auto* const box = new VXCheckBox2(text, line.panel);
    box->setObjectName(name);
    line.layout->addWidget(box);
    return box;
}

void addCommands(const Box& page, VXHGScene2* scene, const Matrix4& wheel)
{
    const Box line = titledRow(page, "Camera");
    command(line, "See all", [=] { scene->fit(); });
    command(line, "See the barn", [=] { scene->fit(Barn); });
    VXCheckBox2* const parallel = option(line, "No perspective", "parallel");
    parallel->toggled().connect(scene, [=](const VXButtonToggleEvent2& event) {
        SceneCamera camera = scene->camera();
        camera.isOrthographic = event.isChecked();
        scene->setCamera(camera);
    });
    VXCheckBox2* const turns = option(line, "The wheel turns", "turns");
    line.layout->addStretch();
    // Each picture that was drawn is the time for the next one.
    scene->frameDrawn().connect(scene, [=, angle = 0](const VXHGSceneFrameEvent2&) mutable {
        if (turns->isChecked())
            scene->setTransform(Wheel, wheel * Matrix4::rotation(++angle, {0, 0, 1}));
    });
    turns->toggled().connect(scene, [scene](const VXButtonToggleEvent2&) { scene->update(); });
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    const Box line = row(page);
    auto* const scene = new VXHGScene2(line.panel);
    scene->setObjectName("scene");
    scene->setAccessibleName("A windmill and a barn");
    scene->setMinimumSize({320, 260});
    auto* const list = new VXListBox2(line.panel);
    list->setObjectName("nodes");
    list->setAccessibleName("Parts of the model");
    list->setMaximumSize({140, -1});
    line.layout->addWidget(scene);
    line.layout->addWidget(list);

    const std::vector<Piece> all = pieces();
    fill(scene, list, all);
    connectChoices(scene, list, all, log);
    addCommands(page, scene, all[Wheel - 1].place);
    return page.panel;
}

} // namespace

Page scenePage()
{
    return {
        "scene", "Scene",
        "A model in three dimensions: drag to orbit, with Shift to pan, turn the wheel to zoom, "
        "click to pick a part.",
        create};
}

} // namespace gallery
