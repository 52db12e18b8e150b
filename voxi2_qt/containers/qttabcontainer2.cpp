#include "voxi2_qt/containers/qttabcontainer2.h"

#include "../kernel/qtignored.h"
#include "../kernel/qttakeout.h"
#include "voxi2_qt/containers/qttab2.h"
#include "voxi2_qt/containers/qttabbar.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <QHBoxLayout>
#include <QStyle>

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
    TROV::row<&E::hasScrollButtons, &P::doHasScrollButtons>(),
    TROV::row<&E::setCornerWidget, &P::doSetCornerWidget>(),
    TROV::row<&E::getCornerWidget, &P::doGetCornerWidget>());

Qt::Corner qtCorner(TabCorner corner)
{
    return corner == TabCorner::Leading ? Qt::TopLeftCorner : Qt::TopRightCorner;
}
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
        if (canHold(*this, this, page))
            insertPage(*page, index);
    });
}

void QtTabContainer2::doRemoveTab(VXTab2* tab)
{
    withPeerOf<QtTab2>(tab, [this](QtTab2* page) {
        if (page && indexOf(page) >= 0)
            page->leave();
        else
            ignored(*this, Reason::NotInThis);
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

void QtTabContainer2::doSetTabsClosable(bool closable)
{
    setTabsClosable(closable);
    applyClosable();
}

bool QtTabContainer2::doAreTabsClosable() { return tabsClosable(); }
void QtTabContainer2::doSetMovable(bool movable) { setMovable(movable); }
bool QtTabContainer2::doIsMovable() { return isMovable(); }
void QtTabContainer2::doSetDocumentMode(bool on) { setDocumentMode(on); }
bool QtTabContainer2::doIsDocumentMode() { return documentMode(); }
void QtTabContainer2::doSetElideMode(TextElideMode mode) { setElideMode(VX2Qt(mode)); }
TextElideMode QtTabContainer2::doGetElideMode() { return Qt2VX(elideMode()); }
void QtTabContainer2::doSetScrollButtons(bool on) { setUsesScrollButtons(on); }
bool QtTabContainer2::doHasScrollButtons() { return usesScrollButtons(); }

void QtTabContainer2::doSetCornerWidget(VXWidget2* widget, TabCorner corner)
{
    withWidgetOrNone(widget, [&](QWidget* child) {
        const Qt::Corner place = qtCorner(corner);
        QWidget* const former = shownIn(place);
        if (child == former || (child && isWithin(child, this)))
            return;
        keepHidden(former, nullptr);
        if (!child)
            return;
        QWidget* holder = cornerWidget(place);
        if (!holder) {
            // Qt never looks whether what lies in a corner is still there.
            holder = new QWidget(this);
            auto* const row = new QHBoxLayout(holder);
            row->setContentsMargins({});
            setCornerWidget(holder, place);
            holder->show();
        }
        takeOutFor(holder, child);
        const QtEventBlocker shown(child, {WidgetEvent::Show});
        holder->layout()->addWidget(child);
        endAside(child, true);
    });
}

VXWidget2* QtTabContainer2::doGetCornerWidget(TabCorner corner)
{
    return abstractObjectOf<VXWidget2>(shownIn(qtCorner(corner)));
}

// Reports -----------------------------------------------------------------------------------------

void QtTabContainer2::connectSignals()
{
    connect(static_cast<QtTabBar*>(tabBar()), &QtTabBar::pageDragged, this,
            &QtTabContainer2::slotPageDragged);
    connect(static_cast<QtTabBar*>(tabBar()), &QtTabBar::menuRequested, this,
            &QtTabContainer2::slotMenuRequested);
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

void QtTabContainer2::slotMenuRequested(int index, QPoint global, bool* taken)
{
    VXObjectDataLocker lock;
    VXTab2* const tab = tabOf(index);
    *taken = tab && isHeard(&E::tabMenuRequested);
    if (*taken)
        report(&E::tabMenuRequested, tab, Qt2VX(global));
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
    if (tabsClosable() && !page.isClosable())
        removeCloseButton(place);
}

void QtTabContainer2::applyClosable()
{
    if (!tabsClosable())
        return;
    setTabsClosable(false); // Qt makes new buttons for those that have none
    setTabsClosable(true);
    for (int i = 0; i < count(); ++i) {
        if (const auto* page = dynamic_cast<const QtTab2*>(widget(i)); page && !page->isClosable())
            removeCloseButton(i);
    }
}

void QtTabContainer2::removeCloseButton(int index)
{
    const auto side = static_cast<QTabBar::ButtonPosition>(
        style()->styleHint(QStyle::SH_TabBar_CloseButtonPosition, nullptr, tabBar()));
    if (QWidget* const button = tabBar()->tabButton(index, side)) {
        tabBar()->setTabButton(index, side, nullptr);
        button->deleteLater();
    }
}

QWidget* QtTabContainer2::shownIn(Qt::Corner corner) const
{
    const QWidget* const holder = cornerWidget(corner);
    const QLayoutItem* const item =
        holder && holder->layout() ? holder->layout()->itemAt(0) : nullptr;
    return item ? const_cast<QLayoutItem*>(item)->widget() : nullptr;
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
