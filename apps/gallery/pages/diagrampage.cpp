#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/containers/vxframe2.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace gallery {

using namespace VOXI;

namespace {

using Point = VXPoint<double>;
using Rect = VXRect<double>;

constexpr double Radius = 8;
constexpr double HeadLength = 11;

struct Node
{
    const char* m_text;
    Rect m_place;
    Color m_color;
};

struct Arrow
{
    std::size_t m_from;
    std::size_t m_to;
    bool m_isDashed;
};

constexpr Arrow s_arrows[] = {
    {0, 1, false}, {1, 2, false}, {2, 3, false}, {1, 3, true}, {3, 0, true}};

Point centerOf(const Rect& rect) { return {rect.x + rect.width / 2, rect.y + rect.height / 2}; }

/// Where the line from the middle of a box to `target` leaves it.
Point edgeOf(const Rect& box, const Point& target)
{
    const Point center = centerOf(box);
    const Point way = target - center;
    const double longest =
        std::max(std::abs(way.x) / (box.width / 2), std::abs(way.y) / (box.height / 2));
    return longest > 0 ? center + way * (1 / longest) : center;
}

/// Boxes and what leads from one to the other, in a frame that paints them.
class Diagram
{
public:
    explicit Diagram(VXFrame2* frame) : m_frame(frame) {}

    void paint(VXCanvas2 canvas) const
    {
        canvas.fillRect({0, 0, canvas.size().width, canvas.size().height}, PaperColor);
        for (const Arrow& arrow : s_arrows)
            paintArrow(canvas, arrow);
        for (std::size_t i = 0; i < m_nodes.size(); ++i)
            paintNode(canvas, m_nodes[i], i == m_current);
    }

    /// Takes hold of the box at a point; none when there is none.
    void press(const VXPoint<int>& at)
    {
        const Point point{double(at.x), double(at.y)};
        m_isHeld = false;
        for (std::size_t i = m_nodes.size(); i-- > 0 && !m_isHeld;) {
            if (!outlineOf(m_nodes[i].m_place).contains(point))
                continue;
            m_current = i;
            m_grip = point - m_nodes[i].m_place.topLeft();
            m_isHeld = true;
        }
        m_frame->update();
    }

    void drag(const VXPoint<int>& to)
    {
        if (m_isHeld)
            moveCurrent(Point{double(to.x), double(to.y)} - m_grip);
    }

    void release() { m_isHeld = false; }

    void key(Key key, bool far)
    {
        const double step = far ? 20 : 4;
        const Point place = m_nodes[m_current].m_place.topLeft();
        switch (key) {
        case Key::Left:
            return moveCurrent(place - Point{step, 0});
        case Key::Right:
            return moveCurrent(place + Point{step, 0});
        case Key::Up:
            return moveCurrent(place - Point{0, step});
        case Key::Down:
            return moveCurrent(place + Point{0, step});
        case Key::Space:
            m_current = (m_current + 1) % m_nodes.size();
            return m_frame->update();
        default:
            return;
        }
    }

    std::string place() const
    {
        const Node& node = m_nodes[m_current];
        return std::string(node.m_text) + " at " + std::to_string(std::lround(node.m_place.x))
               + ", " + std::to_string(std::lround(node.m_place.y));
    }

private:
    static CanvasPath outlineOf(const Rect& place)
    {
        CanvasPath outline;
        outline.addRoundedRect(place, Radius, Radius);
        return outline;
    }

    static void paintNode(VXCanvas2& canvas, const Node& node, bool isCurrent)
    {
        const Rect& place = node.m_place;
        canvas.setPen(isCurrent ? InkColor : FrameColor, isCurrent ? 2 : 1);
        canvas.setBrush(Brush::linear({0, place.y}, {0, place.end().y},
                                      {{0, Color(255, 255, 255)}, {1, node.m_color}}));
        canvas.drawPath(outlineOf(place));
        canvas.setPen(InkColor);
        canvas.drawText({place.x + 6, place.y, place.width - 12, place.height}, node.m_text,
                        {.alignment = AlignmentFlag::Center, .elide = TextElideMode::Right});
    }

    void paintArrow(VXCanvas2& canvas, const Arrow& arrow) const
    {
        const Rect& from = m_nodes[arrow.m_from].m_place;
        const Rect& to = m_nodes[arrow.m_to].m_place;
        const Point begin = edgeOf(from, centerOf(to));
        const Point end = edgeOf(to, centerOf(from));
        canvas.setPen({.color = GoodColor,
                       .width = 1.5,
                       .style = arrow.m_isDashed ? PenStyle::Dash : PenStyle::Solid});
        canvas.drawLine(begin, end);
        canvas.save();
        canvas.translate(end.x, end.y);
        canvas.transform(Transform::rotation(std::atan2(end.y - begin.y, end.x - begin.x)));
        canvas.setNoPen();
        canvas.setBrush(GoodColor);
        canvas.drawPolygon({{0, 0}, {-HeadLength, -HeadLength / 2}, {-HeadLength, HeadLength / 2}});
        canvas.restore();
    }

    void moveCurrent(const Point& to)
    {
        Rect& place = m_nodes[m_current].m_place;
        const VXRect<int> room = m_frame->contentsRect();
        place.x = std::clamp(to.x, 0.0, std::max(0.0, room.width - place.width));
        place.y = std::clamp(to.y, 0.0, std::max(0.0, room.height - place.height));
        m_frame->update();
    }

    VXFrame2* m_frame;
    std::array<Node, 4> m_nodes{{{"Order", {30, 30, 110, 44}, {190, 214, 242}},
                                 {"In stock?", {210, 60, 110, 44}, {244, 226, 180}},
                                 {"Purchase", {370, 150, 110, 44}, {236, 200, 200}},
                                 {"Deliver", {120, 200, 110, 44}, {200, 232, 204}}}};
    std::size_t m_current = 0;
    Point m_grip;
    bool m_isHeld = false;
};

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    auto* area = new VXFrame2(page.panel);
    area->setObjectName("diagram");
    area->setAccessibleName("Diagram of an order");
    area->setMinimumSize({500, 280});
    area->setFocusPolicy(FocusPolicy::Strong);
    frameFocus(area);
    page.layout->addWidget(area, 1);

    const auto diagram = std::make_shared<Diagram>(area);
    area->setPainter([diagram](VXCanvas2 canvas, const VXRect<int>&) { diagram->paint(canvas); });
    area->mousePressed().connect(
        area, [diagram](const VXMouseEvent2& event) { diagram->press(event.position()); });
    area->mouseMoved().connect(
        area, [diagram](const VXMouseEvent2& event) { diagram->drag(event.position()); });
    area->mouseReleased().connect(area, [diagram, &log](const VXMouseEvent2& event) {
        diagram->drag(event.position());
        diagram->release();
        log.add(diagram->place());
    });
    area->keyPressed().connect(area, [diagram, &log](const VXKeyEvent2& event) {
        diagram->key(event.key(), event.modifiers().testFlag(Modifier::Shift));
        log.add(diagram->place());
    });
    auto* const help = new VXText2("Drag a box, or take one by the space bar and move it by the "
                                   "arrow keys; with Shift it goes further.",
                                   page.panel);
    help->setWordWrap(true);
    page.layout->addWidget(help);
    return page.panel;
}

} // namespace

Page diagramPage()
{
    return {"diagram", "Diagram",
            "Boxes and arrows that the program paints itself, and that can be moved.", &create};
}

} // namespace gallery
