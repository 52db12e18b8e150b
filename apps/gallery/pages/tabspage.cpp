#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/containers/vxtabcontainer2.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxtoolbutton2.h"

#include <utility>

namespace gallery {

using namespace VOXI;

namespace {

constexpr Color Colors[] = {{70, 120, 200}, {60, 150, 80}, {200, 120, 30}, {160, 60, 140}};

/// A round spot.
Icon spot(const Color& color)
{
    constexpr int Side = 32;
    constexpr double Radius = Side / 2.0 - 3;
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < Side; ++y) {
        for (int x = 0; x < Side; ++x) {
            const double dx = x + 0.5 - Side / 2.0;
            const double dy = y + 0.5 - Side / 2.0;
            pixels.push_back(dx * dx + dy * dy <= Radius * Radius ? color.rgba() : 0);
        }
    }
    return Icon::fromPixmap(Pixmap(Side, Side, std::move(pixels)));
}

VXTab2* addDocument(VXTabContainer2* container, int number)
{
    auto* tab = new VXTab2("Page &" + std::to_string(number), container);
    tab->setTabToolTip("The tab of page " + std::to_string(number));
    tab->setIcon(spot(Colors[static_cast<std::size_t>(number) % std::size(Colors)]));
    auto* layout = new VXBoxLayout2(tab, Direction::TopToBottom);
    layout->addWidget(heading(tab, "Page " + std::to_string(number), 14), 1, AlignmentFlag::Center);
    return tab;
}

void follow(EventLog& log, const VXTabContainer2* container)
{
    container->currentTabChanged().connect(
        &log, [&log](const VXTabEvent2& event) { log.add("tabs: chosen " + event.tab()->text()); });
    container->tabMoved().connect(&log, [&log](const VXTabMoveEvent2& event) {
        log.add("tabs: " + event.tab()->text() + " dragged from " + std::to_string(event.from())
                + " to " + std::to_string(event.to()));
    });
    container->tabMenuRequested().connect(&log, [&log](const VXTabMenuEvent2& event) {
        log.add("tabs: a menu for " + event.tab()->text());
    });
    container->tabDoubleClicked().connect(&log, [&log](const VXTabEvent2& event) {
        log.add("tabs: double click on " + event.tab()->text());
    });
    container->tabCloseRequested().connect(&log, [&log](const VXTabEvent2& event) {
        const bool isLast = event.container()->count() == 1;
        log.add("tabs: " + event.tab()->text() + (isLast ? " stays, as the last" : " closed"));
        if (!isLast)
            event.tab()->destroy();
    });
}

void addSwitch(const Box& line, const std::string& text, bool on, std::function<void(bool)> set)
{
    auto* box = new VXCheckBox2(text, line.panel);
    box->setObjectName("tabs-" + text);
    box->setChecked(on);
    set(on);
    box->toggled().connect(box,
                           [set](const VXButtonToggleEvent2& event) { set(event.isChecked()); });
    line.layout->addWidget(box);
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 8);
    auto* left = new VXTabContainer2(page.panel);
    auto* right = new VXTabContainer2(page.panel);
    left->setObjectName("tabs");
    for (int number = 1; number <= 4; ++number)
        addDocument(left, number);
    left->tabAt(2)->setTextColor(BadColor);
    left->tabAt(3)->setTabEnabled(false);
    left->setCurrentTab(left->tabAt(1));
    addDocument(right, 5);
    left->tabAt(0)->setClosable(false);
    auto* const corner = new VXToolButton2(left);
    corner->setLabel("+");
    corner->setToolTip("Another page");
    corner->clicked().connect(left, [left, number = 5]() mutable { addDocument(left, ++number); });
    left->setCornerWidget(corner);
    for (VXTabContainer2* container : {left, right})
        follow(log, container);

    alternatives(
        page, "Tabs at the", {"Top", "Bottom", "Left", "Right"}, 0,
        [left](std::size_t side) { left->setTabPosition(static_cast<TabPosition>(side)); });
    const Box switches = titledRow(page, "They are");
    const auto both = [left, right](void (VXTabContainer2::*set)(bool)) {
        return [=](bool on) {
            (left->*set)(on);
            (right->*set)(on);
        };
    };
    addSwitch(switches, "Closable", true, both(&VXTabContainer2::setTabsClosable));
    addSwitch(switches, "Movable", true, both(&VXTabContainer2::setMovable));
    addSwitch(switches, "Without frame", false, both(&VXTabContainer2::setDocumentMode));
    switches.layout->addStretch();

    const Box commands = titledRow(page, "The program");
    command(commands, "Adds one",
            [left, next = 6]() mutable { left->setCurrentTab(addDocument(left, next++)); });
    command(commands, "Moves it over", [left, right] { right->addTab(left->currentTab()); });
    command(commands, "And back", [left, right] { left->insertTab(right->currentTab(), 0); });
    commands.layout->addStretch();

    const Box containers = row(page.panel, 10);
    containers.layout->addWidget(left, 2);
    containers.layout->addWidget(right, 1);
    page.layout->addWidget(containers.panel, 1);
    comesLast(page, left);
    comesLast(page, right);
    return page.panel;
}

} // namespace

Page tabsPage()
{
    return {
        "tabs", "Tabs",
        "Choose a page by mouse, arrow keys or Alt and its number; drag tabs and close them. What "
        "the program does is not in the log.",
        &create};
}

} // namespace gallery
