#pragma once

#include "voxi2/kernel/vxwidget2.h"

#include <functional>
#include <string>
#include <vector>

namespace gallery {

class EventLog;

/// One page of the gallery.
struct Page
{
    std::string name;    ///< for the command line
    std::string title;   ///< for the list and the heading
    std::string summary; ///< what there is to see, in a sentence or two
    /// Makes the page's widgets inside `parent` and has the log watch them.
    std::function<VOXI::VXWidget2*(VOXI::VXObject2* parent, EventLog& log)> create;
    /// Waits, for a picture, until what comes later is seen of what was made. Most need none.
    std::function<void(VOXI::VXWidget2* made)> settle = {};
};

/// Pages that belong together.
struct Group
{
    std::string title;
    std::vector<Page> pages;
};

/// All pages, in the order of the list.
const std::vector<Group>& groups();
/// Their names in that order.
std::vector<std::string> pageNames();

// One function for each file under pages/.
Page countingPage();
Page buttonsPage();
Page formsPage();
Page helpPage();
Page webPage();
Page rangesPage();
Page notificationsPage();
Page signUpPage();
Page loanPage();
Page picturesPage();
Page scenePage();
Page linksPage();
Page diagramPage();
Page clockPage();
Page mimicPage();
Page textsPage();
Page logViewerPage();
Page tablesPage();
Page treesPage();
Page explorerBarPage();
Page palettePage();
Page slowModelPage();
Page liveModelPage();
Page propertiesPage();
Page eventsPage();
Page dragDropPage();
Page clipboardPage();
Page focusPage();
Page cursorsPage();
Page threadsPage();
Page actionsPage();
Page digMenusPage();
Page layoutsPage();
Page containersPage();
Page dialogsPage();
Page tabsPage();
Page toolTipsPage();
Page windowsPage();
Page docksPage();

} // namespace gallery
