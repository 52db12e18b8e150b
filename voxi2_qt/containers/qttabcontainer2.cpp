#include "voxi2_qt/containers/qttabcontainer2.h"

#include "../kernel/qtignored.h"
#include "../kernel/qttakeout.h"
#include "voxi2_qt/containers/qttab2.h"
#include "voxi2_qt/containers/qttabbar.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <utility>

namespace VOXI {

namespace {

using E = VXTabContainer2Emitters;
using P = QtTabContainer2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::insertTab, &P::doInsertTab>(),
    TROV::row<&E::removeTab, &P::doRemoveTab>(),
    TROV::row<&E::getTabs, &P::doGetTabs>(),
    TROV::row<&E::count, &P::doCount>(),
    TROV::row<&E::getTabIndex, &P::doGetTabIndex>(),
    TROV::row<&E::getTabAt, &P::doGetTabAt>(),
    TROV::row<&E::setCurrentTab, &P::doSetCurrentTab>(),
    TROV::row<&E::getCurrentTab, &P::doGetCurrentTab>(),
    TROV::row<&E::setTabPosition, &P::doSetTabPosition>(),
    TROV::row<&E::getTabPosition, &P::doGetTabPosition>(),
    TROV::row<&E::setTabsClosable, &P::doSetTabsClosable>(),
    TROV::row<&E::areTabsClosable, &P::doAreTabsClosable>(),
    TROV::row<&E::setMovable, &P::doSetMovable>(),
    TROV::row<&E::isMovable, &P::doIsMovable>(),
    TROV::row<&E::setDocumentMode, &P::doSetDocumentMode>(),
    TROV::row<&E::isDocumentMode, &P::doIsDocumentMode>(),
    TROV::row<&E::setElideMode, &P::doSetElideMode>(),
    TROV::row<&E::getElideMode, &P::doGetElideMode>(),
    TROV::row<&E::setScrollButtons, &P::doSetScrollButtons>(),
    TROV::row<&E::hasScrollButtons, &P::doHasScrollButtons>());
// clang-format on

} // namespace

/// While it lives, another tab's becoming current is the program's doing, and so is where the focus
/// goes then.
class QtTabContainer2::Quiet
{
public:
    explicit Quiet(QtTabContainer2& container)
        : m_container(&container),
          m_focus(container, {WidgetEvent::FocusIn})
    {
        ++container.m_quiet;
    }
    ~Quiet()
    {
        if (m_container)
            --m_container->m_quiet;
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

private:
    QPointer<QtTabContainer2> m_container;
    QtEventBlocker m_focus;
};

QtTabContainer2::QtTabContainer2(VXTabContainer2* object, VXTabContainer2Emitters* emitters,
                                 QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{
    auto* bar = new QtTabBar(this);
    setTabBar(bar);
    // The bar's signal, not the container's: after what the program does it is as welcome.
    connect(bar, &QTabBar::currentChanged, this, &QtTabContainer2::slotCurrentChanged);
}

QtTabContainer2::~QtTabContainer2()
{
    endPeer(); // its slots are called when a page leaves
}

// Requests ----------------------------------------------------------------------------------------

std::vector<VXObject*> QtTabContainer2::doGetChildren(bool recursive)
{
    std::vector<VXObject*> result = QtWidget2::doGetChildren(recursive);
    // A page lies in the stack of pages that Qt puts between.
    for (int i = 0; i < count() && !recursive; ++i) {
        if (VXTab2* tab = tabOf(i))
            result.push_back(tab);
    }
    return result;
}

void QtTabContainer2::doInsertTab(VXTab2* tab, int index)
{
    withPeerOf<QtTab2>(tab, [&](QtTab2* page) {
        if (page && !isWithin(page, this))
            insertPage(*page, index);
    });
}

void QtTabContainer2::doRemoveTab(VXTab2* tab)
{
    withPeerOf<QtTab2>(tab, [this](QtTab2* page) {
        if (page && indexOf(page) >= 0)
            page->leave();
    });
}

std::vector<VXTab2*> QtTabContainer2::doGetTabs()
{
    VXObjectDataLocker lock;
    std::vector<VXTab2*> tabs;
    for (int i = 0; i < count(); ++i) {
        if (VXTab2* tab = tabOf(i))
            tabs.push_back(tab);
    }
    return tabs;
}

int QtTabContainer2::doCount() { return count(); }

int QtTabContainer2::doGetTabIndex(VXTab2* tab)
{
    int index = -1;
    withWidgetOf(tab, [&](QWidget* page) { index = page ? indexOf(page) : -1; });
    return index;
}

VXTab2* QtTabContainer2::doGetTabAt(int index) { return tabOf(index); }

void QtTabContainer2::doSetCurrentTab(VXTab2* tab)
{
    withPeerOf<QtTab2>(tab, [this](QtTab2* page) {
        if (!page || indexOf(page) < 0) {
            ignored(*this, Reason::NotInThis);
            return;
        }
        const Quiet quiet(*this);
        const QtEventBlocker shown(*page, {WidgetEvent::Show});
        const QtEventBlocker hidden(currentWidget(), {WidgetEvent::Hide});
        setCurrentWidget(page);
    });
}

VXTab2* QtTabContainer2::doGetCurrentTab() { return tabOf(currentIndex()); }

void QtTabContainer2::doSetTabPosition(VOXI::TabPosition position)
{
    setTabPosition(VX2Qt(position));
}

VOXI::TabPosition QtTabContainer2::doGetTabPosition() { return Qt2VX(tabPosition()); }
void QtTabContainer2::doSetTabsClosable(bool closable) { setTabsClosable(closable); }
bool QtTabContainer2::doAreTabsClosable() { return tabsClosable(); }
void QtTabContainer2::doSetMovable(bool movable) { setMovable(movable); }
bool QtTabContainer2::doIsMovable() { return isMovable(); }
void QtTabContainer2::doSetDocumentMode(bool on) { setDocumentMode(on); }
bool QtTabContainer2::doIsDocumentMode() { return documentMode(); }
void QtTabContainer2::doSetElideMode(TextElideMode mode) { setElideMode(VX2Qt(mode)); }
TextElideMode QtTabContainer2::doGetElideMode() { return Qt2VX(elideMode()); }
void QtTabContainer2::doSetScrollButtons(bool on) { setUsesScrollButtons(on); }
bool QtTabContainer2::doHasScrollButtons() { return usesScrollButtons(); }

// Reports -----------------------------------------------------------------------------------------

void QtTabContainer2::connectSignals()
{
    connect(static_cast<QtTabBar*>(tabBar()), &QtTabBar::pageDragged, this,
            &QtTabContainer2::slotPageDragged);
    connect(this, &QTabWidget::tabCloseRequested, this, &QtTabContainer2::slotTabCloseRequested);
    connect(this, &QTabWidget::tabBarDoubleClicked, this, &QtTabContainer2::slotTabDoubleClicked);
}

void QtTabContainer2::tabInserted(int) { m_settled = count(); }
void QtTabContainer2::tabRemoved(int) { m_settled = count(); }

void QtTabContainer2::slotCurrentChanged(int index)
{
    // Qt also tells when the current tab has merely got another position.
    QWidget* const page = widget(index);
    const bool changed = std::exchange(m_current, page) != page;
    // A tab that comes or goes is in the bar already, or no more, before the container knows.
    const bool byUser = m_quiet == 0 && count() == m_settled;
    if (changed && byUser && index == currentIndex())
        reportTab(&E::currentTabChanged, index);
}

void QtTabContainer2::slotTabCloseRequested(int index) { reportTab(&E::tabCloseRequested, index); }
void QtTabContainer2::slotTabDoubleClicked(int index) { reportTab(&E::tabDoubleClicked, index); }

void QtTabContainer2::slotPageDragged(QWidget* page, int from, int to)
{
    VXObjectDataLocker lock;
    if (VXTab2* tab = tabOf(indexOf(page)))
        report(&E::tabMoved, tab, from, to);
}

void QtTabContainer2::reportTab(TROV::Event<void(const VXTabEvent2&)> E::*event, int index)
{
    VXObjectDataLocker lock;
    if (VXTab2* tab = tabOf(index))
        report(event, tab);
}

// Helpers -----------------------------------------------------------------------------------------

void QtTabContainer2::insertPage(QtTab2& page, int index)
{
    const Quiet quiet(*this);
    if (const int present = indexOf(&page); present >= 0) {
        movePage(present, index);
        return;
    }
    page.leave();
    const PageBlocker blocker(&page);
    const int place = insertTab(index, &page, VX2Qt(page.icon()), page.text());
    page.decorate(*tabBar(), place);
}

void QtTabContainer2::movePage(int from, int index)
{
    const int last = count() - 1;
    const int to = index < 0 || index > last ? last : index;
    // Qt takes the page out and puts it in again, and shows the neighbour meanwhile.
    const PageBlocker blocker(widget(from));
    tabBar()->moveTab(from, to);
}

void QtTabContainer2::setPageVisible(QtTab2& page, bool visible)
{
    const Quiet quiet(*this);
    const PageBlocker blocker(&page);
    setTabVisible(indexOf(&page), visible);
}

void QtTabContainer2::setPageChoosable(QtTab2& page, bool choosable)
{
    const Quiet quiet(*this);
    const PageBlocker blocker(&page);
    // Not the container's function, which would disable the page as well.
    tabBar()->setTabEnabled(indexOf(&page), choosable);
}

VXTab2* QtTabContainer2::tabOf(int index) const { return abstractObjectOf<VXTab2>(widget(index)); }

} // namespace VOXI
