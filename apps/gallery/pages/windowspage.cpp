#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxcheckbox2.h"

#include <utility>

namespace gallery {

using namespace VOXI;

namespace {

std::string stateText(VXFlags<WindowState> state)
{
    std::string text;
    static constexpr std::pair<WindowState, const char*> names[] = {
        {WindowState::Minimized, "minimised "},
        {WindowState::Maximized, "maximised "},
        {WindowState::FullScreen, "full screen "}};
    for (const auto& [flag, name] : names) {
        if (state.testFlag(flag))
            text += name;
    }
    return text.empty() ? "normal" : text;
}

VXCheckBox2* option(const Box& line, const std::string& text)
{
    auto* box = new VXCheckBox2(text, line.panel);
    box->setFocusPolicy(FocusPolicy::Tab);
    line.layout->addWidget(box);
    return box;
}

/// A second window of its own on the screen.
VXWindow2* makeWindow(VXObject2* owner, EventLog& log)
{
    auto* window = new VXWindow2("Letter[*]", owner);
    window->setObjectName("windows-window");
    window->resize({420, 240});
    auto* hint = new VXText2("Close me, or change my state by the window manager.", window);
    hint->setAlignment(AlignmentFlag::Center);
    window->setCentralWidget(hint);
    window->stateChanged().connect(&log, [&log](const VXWindowStateEvent2& event) {
        log.add("window: " + stateText(event.state()));
    });
    return window;
}

void addStates(const Box& page, VXWindow2* window)
{
    const Box states = titledRow(page, "Show a window");
    command(states, "Normal", [window] { window->showNormal(); });
    command(states, "Minimised", [window] { window->showMinimized(); });
    command(states, "Maximised", [window] { window->showMaximized(); });
    command(states, "Full screen", [window] { window->showFullScreen(); });
    command(states, "Close", [window] { window->close(); });
    states.layout->addStretch();
}

void addOptions(const Box& page, VXWindow2* window, EventLog& log)
{
    const Box options = titledRow(page, "It");
    VXCheckBox2* modified = option(options, "has unsaved changes");
    modified->clicked().connect(window,
                                [window, modified] { window->setModified(modified->isChecked()); });
    VXCheckBox2* refuse = option(options, "refuses to close");
    window->closing().connect(window, [refuse, &log](const VXCloseEvent2& event) {
        if (refuse->isChecked())
            event.refuse();
        log.add(event.isRefused() ? "window: refused to close" : "window: closes");
    });
    options.layout->addStretch();

    const Box place = titledRow(page, "Its place");
    auto saved = std::make_shared<std::string>(window->savePlacement());
    command(place, "Save", [window, saved, &log] {
        *saved = window->savePlacement();
        log.add(*saved);
    });
    command(place, "Restore", [window, saved, &log] {
        log.add(window->restorePlacement(*saved) ? "restored" : "refused");
    });
    place.layout->addStretch();
}

/// A window inside the page, whose status bar is to be seen.
void addStatusBar(const Box& page)
{
    const Frame edge = frame(page.panel, PaperColor);
    edge.inside.layout->setMargins({});
    auto* window = new VXWindow2(edge.inside.panel);
    window->setObjectName("windows-inner");
    window->setWindowFlags(0);
    const Box content = column(window, 8);
    content.layout->setMargins(VXRect<int>::margins(10, 10, 10, 10));
    content.layout->addWidget(heading(content.panel, "A window inside the page"));
    const Box line = row(content);
    command(line, "Text for good", [window] { window->setStatusText("Ready"); });
    command(line, "Text for 2 seconds", [window] { window->setStatusText("Saved", 2000); });
    command(line, "No text", [window] { window->setStatusText(""); });
    command(line, "Hide or show the status bar",
            [window] { window->setStatusBarVisible(!window->isStatusBarVisible()); });
    line.layout->addStretch();
    content.layout->addStretch();
    window->setCentralWidget(content.panel);
    window->setStatusText("Ready");
    window->addStatusWidget(new VXText2("Line 12, column 40", window));
    window->addStatusWidget(new VXText2("UTF-8", window));
    edge.inside.layout->addWidget(window);
    page.layout->addWidget(edge.outside, 1);
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    VXWindow2* window = makeWindow(page.panel, log);
    addStates(page, window);
    addOptions(page, window, log);
    addStatusBar(page);
    return page.panel;
}

} // namespace

Page windowsPage()
{
    return {"windows", "Windows",
            "A second window with its states, its mark of unsaved changes, its place as text and a "
            "wish to stay open; and a status bar.",
            &create};
}

} // namespace gallery
