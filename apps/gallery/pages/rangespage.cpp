#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxdial2.h"
#include "voxi2/controls/vxlistbox2.h"
#include "voxi2/controls/vxprogressbar2.h"
#include "voxi2/controls/vxslider2.h"
#include "voxi2/controls/vxspinbox2.h"

namespace gallery {

using namespace VOXI;

namespace {

void addList(const Box& page, EventLog& log)
{
    const Box line = titledRow(page, "List box");
    auto* list = new VXListBox2(line.panel);
    list->setObjectName("list");
    list->setAccessibleName("List box");
    list->setSelectionMode(SelectionMode::Extended);
    list->addItems(VXStringList{"Mercury", "Venus", "Earth", "Mars", "Jupiter", "Saturn"});
    list->setCurrentRow(2);
    list->setMaximumSize({200, 140});
    line.layout->addWidget(list);
    line.title->setBuddy(list);
    line.layout->addStretch();
    list->selectionChanged().connect(&log, [&log](const VXListBoxSelectEvent2& event) {
        std::string chosen = "list:";
        for (const int row : event.rows())
            chosen += ' ' + event.listBox()->itemAt(row);
        log.add(chosen);
    });
    list->doubleClicked().connect(&log, [&log](const VXListBoxClickEvent2& event) {
        log.add("list: double click on " + event.listBox()->itemAt(event.row()));
    });
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    const Box sliding = titledRow(page, "Slider");
    auto* slider = new VXSlider2(sliding.panel);
    slider->setObjectName("slider");
    slider->setTickPosition(TickPosition::Below);
    slider->setTickInterval(10);
    sliding.layout->addWidget(slider, 1);
    sliding.title->setBuddy(slider);

    const Box turning = titledRow(page, "Dial and spin box");
    auto* dial = new VXDial2(turning.panel);
    dial->setObjectName("dial");
    dial->setNotchVisible(true);
    dial->setAccessibleName("Dial");
    auto* spin = new VXSpinBox2(turning.panel);
    spin->setObjectName("spin");
    spin->setSuffix(" %");
    spin->setAccessibleName("Spin box");
    turning.layout->addWidget(dial);
    turning.layout->addWidget(spin);
    turning.layout->addStretch();

    const Box progressing = titledRow(page, "Progress bar");
    auto* bar = new VXProgressBar2(progressing.panel);
    bar->setObjectName("bar");
    progressing.layout->addWidget(bar, 1);
    progressing.title->setBuddy(bar);

    // What the program sets is not reported, so they follow each other without going in circles.
    const auto showEverywhere = [=](int value) {
        slider->setValue(value);
        dial->setValue(value);
        spin->setValue(value);
        bar->setValue(value);
    };
    slider->setToolTip("Reported when it is let go");
    dial->setToolTip("Reported when it is let go");
    slider->valueChanged().connect(bar, [=, &log](const VXSliderValueChangedEvent2& event) {
        log.add("slider: " + std::to_string(event.newValue()));
        showEverywhere(event.newValue());
    });
    dial->valueChanged().connect(bar, [=, &log](const VXDialValueChangedEvent2& event) {
        log.add("dial: " + std::to_string(event.newValue()));
        showEverywhere(event.newValue());
    });
    spin->valueChanged().connect(bar, [=, &log](const VXSpinBoxSetValueEvent2& event) {
        log.add("spin box: " + std::to_string(event.newValue()));
        showEverywhere(event.newValue());
    });
    spin->textChanged().connect(bar, [=, &log] { log.add("spin box: \"" + spin->text() + '"'); });
    alternatives(page, "Text of the bar", {"Percentage", "Own text", "None", "Busy"}, 0,
                 [=](std::size_t i) {
                     bar->setCustomText(i == 1 ? "on its way" : "");
                     bar->setTextVisible(i != 2);
                     bar->setMaximum(i == 3 ? 0 : 99);
                     bar->setValue(spin->value());
                 });
    addList(page, log);
    page.layout->addStretch();
    showEverywhere(40);
    return page.panel;
}

} // namespace

Page rangesPage()
{
    return {"ranges", "Ranges and lists",
            "Numbers and texts to choose, and how far something has come.", &create};
}

} // namespace gallery
