#include "page.h"

namespace gallery {

const std::vector<Group>& groups()
{
    static const std::vector<Group> all = {
        {"Controls",
         {countingPage(), buttonsPage(), formsPage(), rangesPage(), textsPage(),
          notificationsPage()}},
        {"Documents", {helpPage(), webPage(), picturesPage(), linksPage()}},
        {"Drawing", {diagramPage(), clockPage(), scenePage(), mimicPage()}},
        {"Programs", {signUpPage(), loanPage(), logViewerPage()}},
        {"Data",
         {tablesPage(), treesPage(), explorerBarPage(), palettePage(), slowModelPage(),
          liveModelPage(), propertiesPage()}},
        {"Commands", {actionsPage(), digMenusPage()}},
        {"Events",
         {eventsPage(), dragDropPage(), clipboardPage(), focusPage(), cursorsPage(),
          threadsPage()}},
        {"Containers", {layoutsPage(), containersPage(), tabsPage()}},
        {"Windows", {windowsPage(), docksPage(), dialogsPage(), toolTipsPage()}},
    };
    return all;
}

std::vector<std::string> pageNames()
{
    std::vector<std::string> names;
    for (const Group& group : groups()) {
        for (const Page& page : group.pages)
            names.push_back(page.name);
    }
    return names;
}

} // namespace gallery
