#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vximage2.h"
#include "voxi2/controls/vxslider2.h"
#include "voxi2/controls/vxsvgimage2.h"

#include <cstdint>
#include <string>
#include <vector>

namespace gallery {

using namespace VOXI;

namespace {

const char* const Drawing = R"svg(<svg xmlns="http://www.w3.org/2000/svg" width="200" height="100">
<defs><linearGradient id="sky" x2="0" y2="1"><stop stop-color="#bfdcf5"/>
<stop offset="1" stop-color="#f4f9fe"/></linearGradient></defs>
<rect width="200" height="100" fill="url(#sky)"/>
<circle cx="158" cy="26" r="13" fill="#f2b632"/>
<path d="M0 84 L52 30 L84 62 L116 38 L200 84 V100 H0 Z" fill="#3f7d58"/>
<path d="M0 92 Q50 72 100 88 T200 82 V100 H0 Z" fill="#2c5c40"/></svg>)svg";

/// Rings of pixels, so that it shows how they are made larger.
Pixmap rings()
{
    constexpr int Side = 48;
    std::vector<std::uint32_t> pixels;
    pixels.reserve(Side * Side);
    for (int y = 0; y < Side; ++y) {
        for (int x = 0; x < Side; ++x) {
            const int dx = x - Side / 2;
            const int dy = y - Side / 2;
            const int ring = (dx * dx + dy * dy) / 64;
            pixels.push_back(
                Color(40 + 24 * ring, 90 + 10 * ring, 180, ring % 2 == 0 ? 255 : 90).rgba());
        }
    }
    return Pixmap(Side, Side, std::move(pixels));
}

VXImage2* addImage(const Box& line, const char* name, Size<int> size, ImageScaling scaling)
{
    auto* const image = new VXImage2(rings(), line.panel);
    image->setObjectName(name);
    image->setAccessibleName("Rings");
    image->setScaling(scaling);
    image->setFixedSize(size);
    line.layout->addWidget(image);
    return image;
}

void addPixels(const Box& page)
{
    const Box line = titledRow(page, "Pixels");
    addImage(line, "image", {48, 48}, ImageScaling::None);
    VXImage2* const scaled = addImage(line, "scaled", {160, 96}, ImageScaling::Stretch);
    addImage(line, "fitted", {160, 96}, ImageScaling::Fit);
    line.layout->addStretch();
    alternatives(page, "Mask colour", {"none", "half a green", "red"}, 0, [scaled](std::size_t i) {
        const Color colors[] = {Color(0, 0, 0, 0), Color(36, 150, 72, 128), BadColor};
        scaled->setMaskColor(colors[i]);
    });
}

void addDrawings(const Box& page)
{
    const Box line = titledRow(page, "Drawing");
    auto* const drawing = new VXSvgImage2(line.panel);
    drawing->setObjectName("drawing");
    drawing->setAccessibleName("Hills under a sun");
    drawing->setContents(ByteArray(std::string(Drawing)));
    drawing->setHeight(120);
    auto* const height = new VXSlider2(line.panel);
    height->setObjectName("height");
    height->setAccessibleName("Height of the drawing");
    height->setOrientation(Orientation::Vertical);
    height->setRange({20, 200});
    height->setValue(120);
    height->valueChanged().connect(drawing, [drawing](const VXSliderValueChangedEvent2& event) {
        drawing->setHeight(event.newValue());
    });
    line.layout->addWidget(height);
    line.layout->addWidget(drawing);
    line.layout->addStretch();

    const Box made = titledRow(page, "As pixels");
    auto* const copy = new VXImage2(made.panel);
    copy->setObjectName("copy");
    copy->setPixmap(drawing->pixmap(48));
    made.layout->addWidget(copy);
    command(made, "Take the drawing as it is", [=] { copy->setPixmap(drawing->pixmap(-1)); });
    made.layout->addStretch();
}

VXWidget2* create(VXObject2* parent, EventLog&)
{
    const Box page = column(parent, 10);
    addPixels(page);
    addDrawings(page);
    page.layout->addStretch();
    return page.panel;
}

} // namespace

Page picturesPage()
{
    return {"pictures", "Pictures",
            "Pixels are shown as they are or stretched; a drawing is sharp at every size, and can "
            "be taken as pixels.",
            create};
}

} // namespace gallery
