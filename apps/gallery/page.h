#pragma once

#include "voxi2/kernel/vxwidget2.h"

#include <functional>
#include <string>
#include <vector>

namespace gallery {

class EventLog;

/// One page of the gallery: a name for the command line, a title for the list, and what makes it.
struct Page {
    std::string name;
    std::string title;
    /// Makes the page's widgets inside `parent` and has the log watch them.
    std::function<VOXI::VXWidget2*(VOXI::VXObject2* parent, EventLog& log)> create;
};

/// All pages, in the order of the list.
const std::vector<Page>& pages();

// One function for each file under pages/.
Page countingPage();

}  // namespace gallery
