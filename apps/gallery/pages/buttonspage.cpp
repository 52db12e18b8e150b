#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/controls/vxradiobutton2.h"
#include "voxi2/controls/vxtoolbutton2.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/kernel/vxactiongroup2.h"

namespace gallery {

using namespace VOXI;

namespace {

// Icons -------------------------------------------------------------------------------------------

constexpr Dots BoldDots{0xfc, 0x66, 0x66, 0x7c, 0x66, 0x66, 0xfc, 0x00};
constexpr Dots ItalicDots{0x1e, 0x0c, 0x0c, 0x18, 0x18, 0x30, 0x78, 0x00};
constexpr Dots UnderlineDots{0x66, 0x66, 0x66, 0x66, 0x66, 0x3c, 0x00, 0xff};
constexpr Dots LeftDots{0xff, 0x00, 0xf0, 0x00, 0xfe, 0x00, 0xf8, 0x00};
constexpr Dots CentreDots{0xff, 0x00, 0x3c, 0x00, 0x7e, 0x00, 0x18, 0x00};
constexpr Dots RightDots{0xff, 0x00, 0x0f, 0x00, 0x7f, 0x00, 0x1f, 0x00};
constexpr Dots FolderDots{0x00, 0x70, 0xff, 0x81, 0x81, 0x81, 0xff, 0x00};

// Rows of the page --------------------------------------------------------------------------------

/// Has the log tell what the button does, without the mouse and the keys that made it.
void follow(EventLog& log, const VXAbstractButton2* button, const std::string& name)
{
    button->clicked().connect(&log, [&log, name] { log.add(name + ": clicked"); });
    button->toggled().connect(&log, [&log, name](const VXButtonToggleEvent2& event) {
        log.add(name + (event.isChecked() ? ": checked" : ": unchecked"));
    });
}

void follow(EventLog& log, const VXAction2* action, const std::string& name)
{
    action->triggered().connect(&log, [&log, name] { log.add(name + ": triggered"); });
    action->toggled().connect(&log, [&log, name](const VXActionToggleEvent2& event) {
        log.add(name + (event.isChecked() ? ": on" : ": off"));
    });
    action->ambiguous().connect(&log, [&log](const VXActionAmbiguityEvent2& event) {
        log.add(event.accelerator() + " is ambiguous");
    });
}

template <class Button>
Button* add(const Box& line, EventLog& log, const std::string& label)
{
    auto* button = new Button(label, line.panel);
    button->setObjectName("buttons-" + label);
    line.layout->addWidget(button);
    follow(log, button, label);
    return button;
}

void addChoices(const Box& page, EventLog& log)
{
    const Box boxes = titledRow(page, "Check boxes");
    add<VXCheckBox2>(boxes, log, "Word &wrap")->setChecked(true);
    add<VXCheckBox2>(boxes, log, "&Ruler");
    add<VXCheckBox2>(boxes, log, "Out of reach")->setEnabled(false);
    boxes.layout->addStretch();

    // Radio buttons belong together when they have the same parent.
    const Box choices = titledRow(page, "Radio buttons");
    for (const auto& names : {std::array{"Portrait", "Landscape"}, std::array{"Colour", "Grey"}}) {
        const Box choice = row(choices.panel);
        add<VXRadioButton2>(choice, log, names[0])->setChecked(true);
        add<VXRadioButton2>(choice, log, names[1]);
        choices.layout->addWidget(choice.panel);
        choices.layout->addSpacing(24);
    }
    choices.layout->addStretch();
}

void addToolButtons(const Box& page, EventLog& log)
{
    const Icon folder = icon(FolderDots, 0xb07818ff);
    auto* menu = new VXMenu2(page.panel);
    for (const char* name : {"Letter", "Table", "Drawing"}) {
        VXAction2* entry = menu->addAction(name);
        entry->setIcon(folder);
        follow(log, entry, name);
    }

    const Box modes = titledRow(page, "With a menu");
    const auto withMenu = [&](const std::string& label, ToolButtonPopupMode mode) {
        auto* button = add<VXToolButton2>(modes, log, label);
        button->setIcon(folder);
        button->setToolButtonStyle(ToolButtonStyle::TextBesideIcon);
        button->setPopupMode(mode);
        button->setMenu(menu);
    };
    withMenu("At once", ToolButtonPopupMode::Instant);
    withMenu("By its arrow", ToolButtonPopupMode::MenuButton);
    withMenu("Held down", ToolButtonPopupMode::Delayed);
    modes.layout->addStretch();

    const Box styles = titledRow(page, "Styles");
    const auto withStyle = [&](const std::string& label, ToolButtonStyle style) {
        auto* button = add<VXToolButton2>(styles, log, label);
        button->setIcon(folder);
        button->setToolTip(label);
        button->setIconSize({24, 24});
        button->setToolButtonStyle(style);
    };
    withStyle("Icon only", ToolButtonStyle::IconOnly);
    withStyle("Text only", ToolButtonStyle::TextOnly);
    withStyle("Beside", ToolButtonStyle::TextBesideIcon);
    withStyle("Under", ToolButtonStyle::TextUnderIcon);
    withStyle("As the style has it", ToolButtonStyle::FollowStyle);
    styles.layout->addStretch();
}

// Shared actions ----------------------------------------------------------------------------------

struct Command
{
    const char* m_label;
    const char* m_accelerator;
    const Dots& m_dots;
};

/// Makes the actions, a tool button for each, and an entry in the menu.
std::vector<VXAction2*> addCommands(const Box& line, EventLog& log, VXMenu2* menu,
                                    std::initializer_list<Command> commands)
{
    std::vector<VXAction2*> actions;
    for (const Command& command : commands) {
        auto* action = new VXAction2(command.m_label, line.panel);
        action->setIcon(icon(command.m_dots));
        action->setAccelerator(command.m_accelerator);
        action->setToolTip(std::string(command.m_label) + " (" + command.m_accelerator + ")");
        action->setCheckable(true);
        follow(log, action, command.m_label);
        menu->addAction(action);
        auto* button = new VXToolButton2(line.panel);
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        line.layout->addWidget(button);
        actions.push_back(action);
    }
    return actions;
}

void addSharedActions(const Box& page, EventLog& log)
{
    const Box line = titledRow(page, "Shared actions");
    auto* menu = new VXMenu2(line.panel);
    const auto styles = addCommands(line, log, menu,
                                    {{"Bold", "Ctrl+B", BoldDots},
                                     {"Italic", "Ctrl+I", ItalicDots},
                                     {"Underline", "Ctrl+U", UnderlineDots}});
    menu->addSeparator();
    line.layout->addSpacing(12);
    const auto alignments = addCommands(line, log, menu,
                                        {{"Left", "Ctrl+L", LeftDots},
                                         {"Centre", "Ctrl+E", CentreDots},
                                         {"Right", "Ctrl+R", RightDots}});
    auto* group = new VXActionGroup2(line.panel);
    for (VXAction2* action : alignments)
        group->addAction(action);
    alignments.front()->setChecked(true);

    line.layout->addSpacing(12);
    auto* format = new VXToolButton2("Format", line.panel);
    format->setObjectName("buttons-Format");
    format->setToolButtonStyle(ToolButtonStyle::TextOnly);
    format->setMenu(menu);
    line.layout->addWidget(format);
    line.layout->addStretch();

    const Box program = titledRow(page, "By the program");
    VXButton2* quiet = button(program.panel, "Bold and centred", "buttons-quiet");
    quiet->clicked().connect(quiet, [bold = styles.front(), centre = alignments[1]] {
        bold->setChecked(true);
        centre->setChecked(true);
    });
    program.layout->addWidget(quiet);
    auto* enabled = new VXCheckBox2("Alignments enabled", program.panel);
    enabled->setChecked(true);
    enabled->toggled().connect(group, [group](const VXButtonToggleEvent2& event) {
        group->setEnabled(event.isChecked());
    });
    program.layout->addWidget(enabled);
    program.layout->addStretch();
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 8);
    addChoices(page, log);
    addToolButtons(page, log);
    addSharedActions(page, log);
    page.layout->addStretch();
    return page.panel;
}

} // namespace

Page buttonsPage()
{
    return {"buttons", "Buttons",
            "Buttons to tick, to choose and to open menus with. The actions below are each shown "
            "twice, by a button and in the menu, and have accelerators; what the program checks is "
            "shown, but not told.",
            &create};
}

} // namespace gallery
