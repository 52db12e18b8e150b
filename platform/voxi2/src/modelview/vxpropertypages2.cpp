#include "voxi2/modelview/vxpropertypages2.h"

#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxtabcontainer2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/translation.h"
#include "voxi2/modelview/vxstandardpropertyeditors2.h"

#include <algorithm>

namespace VOXI {

namespace {

constexpr Color WarningColor{176, 32, 32};

} // namespace

VXPropertyPages2::VXPropertyPages2(VXObject2* parent) : VXPanel2(parent)
{
    auto* const column = new VXBoxLayout2(this, Direction::TopToBottom);
    column->setMargins({0, 0, 0, 0});
    auto* const search = new VXEdit2(this);
    search->setPlaceholder(translated("Search"));
    search->setAccessibleName(translated("Search properties"));
    search->setClearButtonVisible(true);
    auto* const tabs = new VXTabContainer2(this);
    auto* const title = new VXText2(this);
    VXFont bold;
    bold.setWeight(VXFont::Bold);
    title->setFont(bold);
    title->setElideMode(TextElideMode::Right);
    auto* const description = new VXText2(this);
    description->setWordWrap(true);
    auto* const message = new VXText2(this);
    message->setWordWrap(true);
    message->setColor(ColorRole::Foreground, WarningColor);
    auto* const reset = new VXButton2(translated("&Reset"), this);
    column->addWidget(search);
    column->addWidget(tabs, 1);
    auto* const foot = new VXBoxLayout2(column, Direction::LeftToRight);
    foot->addWidget(title, 1);
    foot->addWidget(reset);
    column->addLayout(foot);
    column->addWidget(description);
    column->addWidget(message);

    m_search = search;
    m_tabs = tabs;
    m_title = title;
    m_description = description;
    m_message = message;
    m_reset = reset;
    // On the toolkit's thread, whoever makes the pages, while others may end them.
    const VXHandle<VXPropertyPages2> self(this);
    search->textEdited().connect(
        this,
        [self](const VXEditTextEvent2& event) {
            self.with([&](VXPropertyPages2& pages) { pages.applySearch(event.newText()); });
        },
        servingThread());
    tabs->currentTabChanged().connect(
        this, [self] { self.with([](VXPropertyPages2& pages) { pages.describeCurrent(); }); },
        servingThread());
    reset->clicked().connect(
        this,
        [self] {
            const auto described =
                self.with([](const VXPropertyPages2& pages) { return pages.m_described; });
            described->imitateReset();
        },
        servingThread());
    describe({});
}

VXPropertyPages2::~VXPropertyPages2()
{
    retire();
    m_watch.disconnect();
}

// Pages -------------------------------------------------------------------------------------------

VXSimplePropertyBrowser2* VXPropertyPages2::addPage(const AnyText& title)
{
    const VXObjectDataLocker lock;
    const BuildScope scope;
    const VXHandle<VXPropertyPages2> self(this);
    auto* const tab = new VXTab2(title, m_tabs.get());
    auto* const column = new VXBoxLayout2(tab, Direction::TopToBottom);
    column->setMargins({0, 0, 0, 0});
    auto* const browser = new VXSimplePropertyBrowser2(tab);
    // While a worker waits for these, the pages may end.
    if (!self.isValid())
        return nullptr;
    browser->setAccessibleName(title);
    browser->setEditorFactory(VXStandardPropertyEditors2::shared());
    column->addWidget(browser);
    browser->setFilter(m_searched);
    m_pages = livePages();
    m_pages.push_back({browser, tab});
    connectPage(browser);
    return browser;
}

void VXPropertyPages2::connectPage(VXSimplePropertyBrowser2* browser)
{
    const VXHandle<VXPropertyPages2> self(this);
    browser->currentChanged().connect(
        this,
        [self](const VXPropertyEvent2& event) {
            self.with([&](VXPropertyPages2& pages) { pages.describe(event.property()); });
        },
        servingThread());
}

void VXPropertyPages2::removePage(VXSimplePropertyBrowser2* browser)
{
    const VXObjectDataLocker lock;
    for (const Page& page : livePages()) {
        if (page.browser.get() == browser)
            page.tab->destroy();
    }
}

std::vector<VXPropertyPages2::Page> VXPropertyPages2::livePages() const
{
    const VXObjectDataLocker lock;
    std::vector<Page> result = m_pages;
    std::erase_if(result,
                  [](const Page& page) { return !page.browser.isValid() || !page.tab.isValid(); });
    return result;
}

std::vector<VXSimplePropertyBrowser2*> VXPropertyPages2::pages() const
{
    std::vector<VXSimplePropertyBrowser2*> result;
    for (const Page& page : livePages()) {
        if (VXSimplePropertyBrowser2* browser = page.browser.get())
            result.push_back(browser);
    }
    return result;
}

void VXPropertyPages2::setCurrentPage(VXSimplePropertyBrowser2* browser)
{
    const VXObjectDataLocker lock;
    const VXHandle<VXPropertyPages2> self(this);
    const VXHandle<VXTabContainer2> tabs = m_tabs;
    for (const Page& page : livePages()) {
        if (page.browser.get() == browser)
            tabs->setCurrentTab(page.tab.get());
    }
    // What comes and goes with a page may have been the end of them all.
    self.with([](VXPropertyPages2& pages) { pages.describeCurrent(); });
}

VXSimplePropertyBrowser2* VXPropertyPages2::currentPage() const
{
    const VXObjectDataLocker lock;
    const std::vector<Page> pages = livePages();
    const VXTab2* const current = m_tabs->currentTab(); // all may have ended by then
    for (const Page& page : pages) {
        if (current && page.tab.get() == current)
            return page.browser.get();
    }
    return nullptr;
}

void VXPropertyPages2::refresh()
{
    for (const Page& page : livePages())
        page.browser->refresh();
}

// Search ------------------------------------------------------------------------------------------

void VXPropertyPages2::setSearch(const AnyText& text)
{
    m_search->setText(text);
    applySearch(text.toWide());
}

std::wstring VXPropertyPages2::search() const
{
    const VXObjectDataLocker lock;
    return m_searched;
}

void VXPropertyPages2::applySearch(const std::wstring& text)
{
    {
        const VXObjectDataLocker lock;
        m_searched = text;
    }
    for (const Page& page : livePages())
        page.browser->setFilter(text);
}

// What is said of a property ----------------------------------------------------------------------

void VXPropertyPages2::describeCurrent()
{
    const VXObjectDataLocker lock;
    const VXHandle<VXPropertyPages2> self(this);
    const VXHandle<VXSimplePropertyBrowser2> browser = currentPage();
    if (!browser.isValid())
        return;
    const VXHandle<VXSimpleProperty2> property = browser->current();
    self.with([&](VXPropertyPages2& pages) { pages.describe(property); });
}

void VXPropertyPages2::describe(VXHandle<VXSimpleProperty2> property)
{
    const VXObjectDataLocker lock;
    if (property != m_described) {
        m_watch.disconnect();
        m_described = property;
        const VXHandle<VXPropertyPages2> self(this);
        const auto again = [self] {
            self.with([](VXPropertyPages2& pages) { pages.describe(pages.m_described); });
        };
        property.with([&](VXSimpleProperty2& it) {
            TROV::Thread* const thread = servingThread();
            it.valueEdited().connect(&m_watch, again, thread);
            it.editRefused().connect(&m_watch, again, thread);
            it.destroyed().connect(
                &m_watch,
                [self] { self.with([](VXPropertyPages2& pages) { pages.describe({}); }); }, thread);
        });
    }
    const std::wstring message = property->validationMessage();
    m_title->setText(property->nameU());
    m_description->setText(property->description());
    m_message->setText(message);
    m_message->setVisible(!message.empty());
    m_reset->setEnabled(!property->isReadOnly() && !property->isDefault());
}

} // namespace VOXI
