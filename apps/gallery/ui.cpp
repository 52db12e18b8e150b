#include "ui.h"

#include <utility>

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

} // namespace

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
    VXText2* result = label(parent, text);
    result->setFont(VXFont(std::string(), pointSize, VXFont::Bold));
    return result;
}

VXText2* label(VXObject2* parent, const std::string& text)
{
    auto* result = new VXText2(parent);
    result->setText(text);
    return result;
}

VXButton2* button(VXObject2* parent, const std::string& text, const std::string& objectName)
{
    auto* result = new VXButton2(parent);
    result->setLabel(text);
    result->setObjectName(objectName);
    return result;
}

VXButton2* command(const Box& line, const std::string& text, std::function<void()> act)
{
    VXButton2* result = button(line.panel, text, text);
    result->setFocusPolicy(FocusPolicy::None);
    result->clicked().connect(result, std::move(act));
    line.layout->addWidget(result);
    return result;
}

Box titledRow(VXObject2* parent, const std::string& title)
{
    const Box result = row(parent);
    VXText2* text = label(result.panel, title);
    text->setMinimumSize({TitleWidth, -1});
    text->setMaximumSize({TitleWidth, -1});
    result.layout->addWidget(text);
    return result;
}

Box alternatives(VXObject2* parent, const std::string& title,
                 const std::vector<std::string>& labels, std::size_t chosen,
                 std::function<void(std::size_t)> choose)
{
    const Box result = titledRow(parent, title);
    for (std::size_t i = 0; i < labels.size(); ++i) {
        VXButton2* each = button(result.panel, labels[i], title + ": " + labels[i]);
        each->setCheckable(true);
        each->setExclusive(true);
        each->setChecked(i == chosen);
        each->setFocusPolicy(FocusPolicy::None);
        each->clicked().connect(each, [choose, i] { choose(i); });
        result.layout->addWidget(each);
    }
    result.layout->insertSpacer(-1, 0, 1);
    return result;
}

} // namespace gallery
