#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/containers/vxwindow2.h"

#include <array>

namespace gallery {

using namespace VOXI;

namespace {

using Fields = std::array<VXButton2*, 3>;

/// The window that a second set of fields lives in; the user closes it, the program opens it.
VXWindow2* secondWindow(VXWidget2* first, EventLog& log)
{
    auto* window = new VXWindow2("Second window", first);
    window->setObjectName("second-window");
    const Box content = column(window, 8);
    content.layout->setMargins({12, 12, 12, 12});
    content.layout->addWidget(heading(content.panel, "Second window"));
    for (const char* name : {"Fourth", "Fifth"}) {
        VXButton2* field = button(content.panel, name, name);
        content.layout->addWidget(field);
        log.watch(field, WidgetEvent::FocusIn, name);
        log.watch(field, WidgetEvent::FocusOut, name);
    }
    content.layout->addStretch();
    command(content, "Activate the gallery", [first] { first->setActiveWindow(); });
    window->setCentralWidget(content.panel);
    window->resize({260, 170});
    log.watch(window, WidgetEvent::Close, "second window");
    return window;
}

std::string whoHasFocus(const Fields& fields)
{
    for (const VXButton2* field : fields) {
        if (field->hasFocus())
            return field->objectName() + " has the focus";
    }
    return "none of the three has the focus";
}

void addWindows(const Box& page, EventLog& log)
{
    VXWindow2* second = secondWindow(page.panel, log);
    const Box line = titledRow(page, "Second window");
    command(line, "Open", [second] { second->show(); });
    command(line, "Hide", [second] { second->hide(); });
    command(line, "Make active", [second] { second->setActiveWindow(); });
    line.layout->addStretch();
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 8);
    const Box line = titledRow(page, "Fields");
    Fields fields{};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        static constexpr const char* names[] = {"First", "Second", "Third"};
        fields[i] = button(line.panel, names[i], names[i]);
        line.layout->addWidget(fields[i]);
        log.watch(fields[i], WidgetEvent::FocusIn, names[i]);
        log.watch(fields[i], WidgetEvent::FocusOut, names[i]);
    }
    line.layout->addStretch();

    const Box give = titledRow(page, "Give the focus to");
    for (VXButton2* field : fields)
        command(give, field->objectName(), [field] { field->setFocus(); });
    command(give, "Who has it?", [fields, &log] { log.add(whoHasFocus(fields)); });
    give.layout->addStretch();

    alternatives(
        page, "Policy of Second", {"None", "Tab", "Click", "Strong", "Wheel"}, 3,
        [field = fields[1]](std::size_t i) { field->setFocusPolicy(static_cast<FocusPolicy>(i)); });
    alternatives(page, "Proxy of Third", {"None", "First", "Second"}, 0, [fields](std::size_t i) {
        fields[2]->setFocusProxy(i == 0 ? nullptr : fields[i - 1]);
    });
    addWindows(page, log);
    page.layout->addStretch();
    return page.panel;
}

} // namespace

Page focusPage()
{
    return {"focus", "Focus",
            "Click the fields, or go through them with Tab: the log tells. When a button below "
            "moves the focus, the program does it: who loses it says so, who gets it does not.",
            &create};
}

} // namespace gallery
