#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/controls/vxmenubar2.h"
#include "voxi2/controls/vxtoolbar2.h"
#include "voxi2/controls/vxtoolbutton2.h"
#include "voxi2/kernel/vxaction2.h"

namespace gallery {

using namespace VOXI;

namespace {

VXAction2* command(VXObject2* owner, EventLog& log, const std::string& text,
                   const std::string& accelerator)
{
    auto* action = new VXAction2(text, owner);
    action->setAccelerator(accelerator);
    action->triggered().connect(&log, [&log, action] { log.add("triggered: " + action->label()); });
    return action;
}

/// A window with a menu bar and tool bars; a page has no place for them.
VXWindow2* makeWindow(VXObject2* owner, const std::vector<VXAction2*>& actions)
{
    auto* window = new VXWindow2("Actions", owner);
    window->setObjectName("actions-window");
    window->resize({420, 220});

    auto* bar = new VXMenuBar2(window);
    auto* file = new VXMenu2(window);
    auto* more = new VXMenu2(window);
    for (VXAction2* action : actions)
        file->addAction(action);
    file->addSeparator();
    file->addMenu("&Again", more);
    for (VXAction2* action : actions)
        more->addAction(action);
    bar->addMenu("&File", file);
    window->setMenuBar(bar);

    // The first two stay in sight however narrow the window gets.
    auto* tools = new VXToolBar2("File", window);
    tools->setMinimumVisibleItems(2);
    tools->setToolButtonStyle(ToolButtonStyle::TextOnly);
    for (VXAction2* action : actions)
        tools->addAction(action);
    window->addToolBar(tools);
    auto* side = new VXToolBar2("Side", window);
    side->setToolButtonStyle(ToolButtonStyle::TextOnly);
    side->addAction(actions.front());
    window->addToolBar(side, ToolBarArea::Left);
    auto* hint = new VXText2("Drag the bars to other sides; make the window narrow.", window);
    hint->setAlignment(AlignmentFlag::Center);
    window->setCentralWidget(hint);
    return window;
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    std::vector<VXAction2*> actions = {command(page.panel, log, "&Save", "Ctrl+S"),
                                       command(page.panel, log, "&Print", "Ctrl+P"),
                                       command(page.panel, log, "&Bold", "Ctrl+B")};
    actions[0]->setToolTip("Writes everything to the disk");
    actions[2]->setCheckable(true);
    actions[2]->toggled().connect(&log, [&log](const VXActionToggleEvent2& event) {
        log.add(event.isChecked() ? "bold" : "not bold");
    });

    const Box buttons = titledRow(page, "The same as buttons");
    for (VXAction2* action : actions) {
        auto* tool = new VXToolButton2(buttons.panel);
        tool->setObjectName("tool-" + action->label().substr(1));
        tool->setToolButtonStyle(ToolButtonStyle::TextOnly);
        tool->setDefaultAction(action);
        buttons.layout->addWidget(tool);
    }
    buttons.layout->addStretch();

    const Box changes = titledRow(page, "Change them all");
    VXButton2* enable = button(changes.panel, "&Enable or disable", "actions-enable");
    enable->clicked().connect(page.panel, [actions] {
        for (VXAction2* action : actions)
            action->setEnabled(!action->isEnabled());
    });
    VXButton2* open = button(changes.panel, "Menu and tool &bars", "actions-open");
    VXWindow2* window = makeWindow(page.panel, actions);
    open->clicked().connect(window, [window] { window->show(); });
    changes.layout->addWidget(enable);
    changes.layout->addWidget(open);
    changes.layout->addStretch();

    const Frame pad = frame(page.panel, PadColor);
    pad.inside.layout->addWidget(new VXText2("A context menu opens here", pad.inside.panel));
    auto* context = new VXMenu2(page.panel);
    context->setObjectName("actions-context");
    for (VXAction2* action : actions)
        context->addAction(action);
    context->setContextMenuOf(pad.inside.panel);
    pad.inside.panel->setAccessibleName("Pad with a context menu");
    pad.inside.panel->setFocusPolicy(FocusPolicy::Strong); // or the menu key finds nothing
    frameFocus(pad.inside.panel);
    page.layout->addWidget(pad.outside, 1);
    return page.panel;
}

} // namespace

Page actionsPage()
{
    return {"actions", "Actions",
            "One action in a menu, a tool bar, a button and a context menu at once: what is done "
            "with one of them shows in all.",
            &create};
}

} // namespace gallery
