#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxdial2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxmimicsource2.h"
#include "voxi2/controls/vxmimicview2.h"
#include "voxi2/controls/vxslider2.h"

namespace gallery {

using namespace VOXI;

namespace {

/// What is pictured: a few controls that belong together.
VXWidget2* addControls(const Box& line, EventLog& log)
{
    const Frame area = frame(line.panel, PaperColor);
    area.inside.layout->setMargins({10, 10, 10, 10});
    VXPanel2* const panel = area.inside.panel;
    auto* const dial = new VXDial2(panel);
    dial->setAccessibleName("Dial");
    auto* const slider = new VXSlider2(panel);
    slider->setAccessibleName("Slider");
    slider->valueChanged().connect(dial, [dial](const VXSliderValueChangedEvent2& event) {
        dial->setValue(event.newValue());
    });
    dial->valueChanged().connect(slider, [slider](const VXDialValueChangedEvent2& event) {
        slider->setValue(event.newValue());
    });
    auto* const edit = new VXEdit2("type here", panel);
    edit->setAccessibleName("Text");
    VXButton2* const press = button(panel, "&Press me", "mimic-press");
    press->clicked().connect(&log, [&log] { log.add("pressed, here or there"); });
    for (VXWidget2* each :
         std::initializer_list<VXWidget2*>{heading(panel, "The source"), dial, slider, edit, press})
        area.inside.layout->addWidget(each);
    area.inside.layout->addStretch();
    slider->setValue(30);
    dial->setValue(30);
    line.layout->addWidget(area.outside);
    return area.outside;
}

VXMimicView2* addView(const Box& line, VXMimicSource2* source, const std::string& name)
{
    auto* const view = new VXMimicView2(line.panel);
    view->setObjectName(name);
    view->setAccessibleName("Picture of the controls");
    view->setSource(source);
    line.layout->addWidget(view, 1);
    return view;
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    const Box line = row(page.panel, 12);
    page.layout->addWidget(line.panel, 1);
    auto* const source = new VXMimicSource2(page.panel);
    source->setWidget(addControls(line, log));
    VXMimicView2* const view = addView(line, source, "mimic");
    view->setForwarding(true);
    view->setMinimumSize({260, 240});
    VXMimicView2* const small = addView(line, source, "mimic-small");
    small->setMinimumSize({60, 60});
    small->setMaximumSize({90, 120});

    const Box options = row(page);
    auto* const forwards = new VXCheckBox2("&Work in the large picture", options.panel);
    forwards->setChecked(true);
    forwards->toggled().connect(
        view, [=](const VXButtonToggleEvent2& event) { view->setForwarding(event.isChecked()); });
    auto* const keeps = new VXCheckBox2("&Keep the proportions", options.panel);
    keeps->setChecked(true);
    keeps->toggled().connect(
        view, [=](const VXButtonToggleEvent2& event) { view->setAspectKept(event.isChecked()); });
    options.layout->addWidget(forwards);
    options.layout->addWidget(keeps);
    options.layout->addStretch();
    constexpr int Rates[] = {30, 5, 1};
    alternatives(page, "Pictures a second", {"30", "5", "1"}, 0,
                 [=](std::size_t i) { source->setMaximumRate(Rates[i]); });
    return page.panel;
}

} // namespace

Page mimicPage()
{
    return {"mimic", "Mimics",
            "Live pictures of other widgets, of any size. What is done to the large one is done to "
            "the controls.",
            &create};
}

} // namespace gallery
