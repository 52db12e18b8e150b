#include "ui.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace gallery {

using namespace VOXI;

namespace {

Box box(VXObject2* parent, Direction direction, int spacing)
{
    auto* panel = new VXPanel2(parent);
    auto* layout = new VXBoxLayout2(panel, direction);
    layout->setMargins({0, 0, 0, 0});
    layout->setSpacing(spacing);
    return {panel, layout};
}

VXText2* addTitle(const Box& line, const std::string& title)
{
    auto* text = new VXText2(title, line.panel);
    // With larger letters more, and what is longer all the same is not cut.
    text->setMinimumSize({TitleWidth * std::max(text->font().pointSize(), 9) / 9, -1});
    line.layout->addWidget(text);
    return text;
}

} // namespace

Icon icon(const Dots& dots, std::uint32_t rgba)
{
    constexpr int Zoom = 4;
    constexpr int Side = 8 * Zoom;
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < Side; ++y) {
        for (int x = 0; x < Side; ++x) {
            const bool isSet = dots[static_cast<std::size_t>(y / Zoom)] >> (7 - x / Zoom) & 1;
            pixels.push_back(isSet ? rgba : 0);
        }
    }
    return Icon::fromPixmap(Pixmap(Side, Side, std::move(pixels)));
}

Box row(const Box& outer, int spacing)
{
    const Box result{outer.panel, new VXBoxLayout2(outer.layout)};
    result.layout->setSpacing(spacing);
    outer.layout->addLayout(result.layout);
    return result;
}

Box row(VXObject2* parent, int spacing) { return box(parent, Direction::LeftToRight, spacing); }
Box column(VXObject2* parent, int spacing) { return box(parent, Direction::TopToBottom, spacing); }

Frame frame(VXObject2* parent, Color fill)
{
    const Box edge = column(parent, 0);
    edge.panel->setColor(ColorRole::Background, FrameColor);
    edge.layout->setMargins({1, 1, 1, 1});
    const Box inside = column(edge.panel, 4);
    inside.panel->setColor(ColorRole::Background, fill);
    inside.panel->setColor(ColorRole::Foreground, InkColor);
    inside.layout->setMargins({8, 6, 8, 6});
    edge.layout->addWidget(inside.panel);
    return {edge.panel, inside};
}

VXText2* heading(VXObject2* parent, const std::string& text, int pointSize)
{
    auto* result = new VXText2(text, parent);
    result->setFont(VXFont(std::string(), pointSize, VXFont::Bold));
    return result;
}

VXButton2* button(VXObject2* parent, const std::string& text, const std::string& objectName)
{
    auto* result = new VXButton2(text, parent);
    result->setObjectName(objectName);
    return result;
}

VXButton2* command(const Box& line, const std::string& text, std::function<void()> act)
{
    VXButton2* result = button(line.panel, text, text);
    result->setFocusPolicy(FocusPolicy::Tab);
    result->clicked().connect(result, std::move(act));
    line.layout->addWidget(result);
    return result;
}

Box titledRow(const Box& outer, const std::string& title)
{
    Box result = row(outer);
    result.title = addTitle(result, title);
    return result;
}

void comesLast(const Box& page, VXWidget2* widget)
{
    std::vector<VXWidget2*> order = page.panel->tabOrder();
    const auto isInside = [widget](const VXObject2* each) {
        while (each && each != widget)
            each = each->parent();
        return each != nullptr;
    };
    std::ranges::stable_partition(order, [&](const VXWidget2* each) { return !isInside(each); });
    page.panel->setTabOrder(order);
}

void frameFocus(VXWidget2* widget)
{
    widget->focusGained().connect(widget,
                                  [widget] { widget->setHighlight(true, Color(70, 120, 200)); });
    widget->focusLost().connect(widget, [widget] { widget->setHighlight(false); });
}

void alternatives(const Box& outer, const std::string& title,
                  const std::vector<std::string>& labels, std::size_t chosen,
                  std::function<void(std::size_t)> choose)
{
    // Buttons exclude others of the same parent.
    const Box result = row(outer.panel);
    result.panel->setAccessibleName(title);
    addTitle(result, title);
    for (std::size_t i = 0; i < labels.size(); ++i) {
        VXButton2* each = button(result.panel, labels[i], title + ": " + labels[i]);
        each->setCheckable(true);
        each->setExclusive(true);
        each->setChecked(i == chosen);
        each->setFocusPolicy(FocusPolicy::Tab);
        each->clicked().connect(each, [choose, i] { choose(i); });
        result.layout->addWidget(each);
    }
    result.layout->addStretch();
    outer.layout->addWidget(result.panel);
}

} // namespace gallery
