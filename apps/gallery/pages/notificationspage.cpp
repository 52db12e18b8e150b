#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxnotificationbar2.h"

namespace gallery {

using namespace VOXI;

namespace {

void addCommands(const Box& page, VXNotificationBar2* bar)
{
    const Box kinds = titledRow(page, "Kinds");
    command(kinds, "Information", [bar] { bar->notify("There is a new version."); });
    command(kinds, "Success",
            [bar] { bar->notify("The file has been saved.", NotificationKind::Success, 4000); });
    command(kinds, "Warning", [bar] {
        bar->notify({.text = L"The file has been changed by another program.",
                     .kind = NotificationKind::Warning,
                     .buttons = {{L"&Load it again", 1}, {L"&Compare", 2, false}},
                     .uid = 7});
    });
    command(kinds, "Error", [bar] {
        bar->notify({.text = L"The disk is full. <a href='disk'>What takes the room?</a>",
                     .kind = NotificationKind::Error,
                     .isRichText = true});
    });
    kinds.layout->addStretch();

    const Box order = titledRow(page, "Others");
    command(order, "In its place", [bar, n = 0]() mutable {
        bar->notify({.text = L"Copied " + std::to_wstring(++n) + L" of many files."},
                    NotificationArrival::Replaces);
    });
    command(order, "Withdraw the warnings", [bar] { bar->withdraw(7); });
    command(order, "Dismiss", [bar] { bar->dismiss(); });
    command(order, "Clear", [bar] { bar->clear(); });
    order.layout->addStretch();
}

void watch(VXNotificationBar2* bar, EventLog& log)
{
    bar->buttonClicked().connect(&log, [&log](const VXNotificationButtonEvent2& event) {
        log.add("button " + std::to_string(event.buttonId()));
    });
    bar->linkActivated().connect(&log, [&log, bar](const VXNotificationLinkEvent2&) {
        log.add("link followed");
        bar->notify("Mostly pictures.");
    });
    bar->dismissed().connect(&log, [&log, bar](const VXNotificationEndEvent2& event) {
        static const char* const how[] = {"by a button", "by the close button", "its time is up"};
        log.add(std::string("dismissed: ") + how[static_cast<int>(event.how())] + "; "
                + std::to_string(bar->waitingCount()) + " wait");
    });
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    auto* bar = new VXNotificationBar2(page.panel);
    bar->setObjectName("bar");
    page.layout->addWidget(bar);
    addCommands(page, bar);
    page.layout->addStretch();
    watch(bar, log);
    bar->notify({.text = L"The file has been changed by another program.",
                 .kind = NotificationKind::Warning,
                 .buttons = {{L"&Load it again", 1}, {L"&Compare", 2, false}},
                 .uid = 7});
    return page.panel;
}

} // namespace

Page notificationsPage()
{
    return {"notifications", "Notifications",
            "What a program has to tell without stopping its user: one at a time.", &create};
}

} // namespace gallery
