#include "page.h"

namespace gallery {

const std::vector<Page>& pages()
{
    static const std::vector<Page> all = {
        countingPage(), buttonsPage(),    formsPage(),     rangesPage(),   tablesPage(),
        treesPage(),    slowModelPage(),  liveModelPage(), eventsPage(),   dragDropPage(),
        focusPage(),    cursorsPage(),    threadsPage(),   actionsPage(),  digMenusPage(),
        layoutsPage(),  containersPage(), tabsPage(),      toolTipsPage(), windowsPage(),
        docksPage(),    dialogsPage(),
    };
    return all;
}

} // namespace gallery
