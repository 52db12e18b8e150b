#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/kernel/customcursorregistry.h"

#include <cstdint>
#include <cstdlib>

namespace gallery {

using namespace VOXI;

namespace {

constexpr std::size_t Columns = 6;

constexpr const char* s_shapes[] = {
    "Arrow",        "Up arrow",    "Cross",      "Wait",        "Text",  "Vertical",
    "Horizontal",   "Diagonal \\", "Diagonal /", "All ways",    "Blank", "Split vert.",
    "Split horiz.", "Hand",        "Forbidden",  "What's this", "Busy",  "Open hand",
    "Closed hand",  "Drag copy",   "Drag move",  "Drag link",
};
static_assert(std::size(s_shapes) == CursorShape::Custom);

/// A ring with cross hairs; the hot spot is where they would meet.
Pixmap crossHairs()
{
    constexpr int size = 31;
    constexpr int middle = size / 2;
    std::vector<std::uint32_t> pixels;
    pixels.reserve(size * size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const int dx = std::abs(x - middle);
            const int dy = std::abs(y - middle);
            const int square = dx * dx + dy * dy;
            const bool ring = square >= 100 && square <= 144;
            const bool hair = (dx == 0 || dy == 0) && dx + dy > 3;
            pixels.push_back(ring || hair ? BadColor.rgba() : 0);
        }
    }
    return Pixmap(size, size, std::move(pixels));
}

/// A small framed panel with a text; what is set on it holds for the text too.
VXPanel2* cell(const Box& line, const std::string& text)
{
    const Frame result = frame(line.panel, PaperColor);
    result.inside.layout->setMargins({4, 3, 4, 3});
    auto* shown = new VXText2(text, result.inside.panel);
    shown->setAlignment(AlignmentFlag::Center);
    result.inside.layout->addWidget(shown);
    result.outside->setSizePolicy(Policy::Ignored, Policy::Preferred);
    result.inside.panel->setObjectName(text);
    line.layout->addWidget(result.outside, 1);
    return result.inside.panel;
}

void addCursors(const Box& page)
{
    page.layout->addWidget(heading(page.panel, "Move the pointer over these"));
    const Box grid = column(page.panel, 3);
    Box line{};
    for (std::size_t i = 0; i <= std::size(s_shapes); ++i) {
        if (i % Columns == 0) {
            line = row(grid.panel, 3);
            grid.layout->addWidget(line.panel);
        }
        if (i < std::size(s_shapes)) {
            VXPanel2* each = cell(line, s_shapes[i]);
            each->setCursor(static_cast<CursorShape::Standard>(i));
            each->setToolTip(std::string("Cursor: ") + s_shapes[i]);
        }
    }
    if (CustomCursorRegistry* registry = CustomCursorRegistry::instance())
        registry->registerCursor("cross-hairs", crossHairs(), {-1, -1});
    VXPanel2* drawn = cell(line, "Drawn here");
    drawn->setCursor(CursorShape(StringID("cross-hairs")));
    drawn->setToolTip("A pixmap with a hot spot in its middle");
    VXPanel2* inherited = cell(line, "Inherited");
    inherited->setToolTip("No cursor of its own: that of the window");
    page.layout->addWidget(grid.panel);
}

void addHighlights(const Box& page)
{
    const Box line = titledRow(page, "Highlight");
    VXPanel2* panel = cell(line, "Panel");
    VXButton2* inside = button(line.panel, "Button", "highlight-button");
    auto* text = new VXText2("A text", line.panel);
    line.layout->addWidget(inside, 1);
    text->setAlignment(AlignmentFlag::Center);
    line.layout->addWidget(text, 1);
    alternatives(page, "in the colour", {"None", "Red", "Green", "Blue"}, 1,
                 [panel, inside, text](std::size_t i) {
                     static constexpr Color colors[] = {{}, BadColor, GoodColor, {40, 90, 200}};
                     for (VXWidget2* each :
                          {static_cast<VXWidget2*>(panel), static_cast<VXWidget2*>(inside),
                           static_cast<VXWidget2*>(text)})
                         each->setHighlight(i != 0, colors[i]);
                 });
    panel->setHighlight(true, BadColor);
    inside->setHighlight(true, BadColor);
    text->setHighlight(true, BadColor);
}

void addColors(const Box& page)
{
    const Box line = titledRow(page, "Colours, enabled");
    VXPanel2* sample = cell(line, "Background and foreground");
    sample->setColor(ColorRole::Background, {32, 78, 120});
    sample->setColor(ColorRole::Foreground, {255, 236, 160});
    VXButton2* colored = button(line.panel, "Button", "colored-button");
    colored->setColor(ColorRole::Background, {180, 224, 190});
    colored->setColor(ColorRole::Foreground, {20, 84, 40});
    line.layout->addWidget(colored, 1);

    const Box off = titledRow(page, "and disabled");
    VXPanel2* disabled = cell(off, "Background and foreground");
    disabled->setColor(ColorRole::DisabledBackground, {222, 206, 206});
    disabled->setColor(ColorRole::DisabledForeground, {150, 60, 60});
    disabled->setEnabled(false);
    VXButton2* disabledButton = button(off.panel, "Button", "disabled-button");
    disabledButton->setColor(ColorRole::DisabledBackground, {222, 206, 206});
    disabledButton->setColor(ColorRole::DisabledForeground, {150, 60, 60});
    disabledButton->setEnabled(false);
    off.layout->addWidget(disabledButton, 1);
}

void addFonts(const Box& page)
{
    const Box line = titledRow(page, "Fonts");
    const Box samples = row(line, 18);
    const auto sample = [&samples](const std::string& text, const VXFont& font) {
        auto* result = new VXText2(text, samples.panel);
        result->setFont(font);
        samples.layout->addWidget(result);
    };
    VXFont underlined;
    underlined.setUnderline(true);
    sample("Bold", VXFont({}, 0, VXFont::Bold));
    sample("Light", VXFont({}, 0, VXFont::Light));
    sample("Italic", VXFont({}, 0, VXFont::Normal, FontStyle::Italic));
    sample("Underlined", underlined);
    sample("Large", VXFont({}, 16));
    sample("Monospace", VXFont("monospace"));
    sample("Serif", VXFont("serif"));
    line.layout->addStretch();
}

VXWidget2* create(VXObject2* parent, EventLog&)
{
    const Box page = column(parent, 6);
    addCursors(page);
    addHighlights(page);
    addColors(page);
    addFonts(page);
    page.layout->addStretch();
    return page.panel;
}

} // namespace

Page cursorsPage()
{
    return {"cursors", "Cursors and looks",
            "Pointer shapes with tool tips, highlights, the four colours of a widget, fonts.",
            &create};
}

} // namespace gallery
