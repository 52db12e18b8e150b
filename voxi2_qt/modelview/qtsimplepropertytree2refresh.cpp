// The part of QtSimplePropertyTree2 that is about what the rows show, and in which order.

#include "qtsimplepropertytree2.h"
#include "trov/thread.h"
#include "voxi2_qt/modelview/qtsimplepropertybrowser2.h"

#include <QTreeWidgetItemIterator>

#include <exception>
#include <list>
#include <utility>

namespace VOXI {

namespace {

const std::string DataThread = "KESTRA";

bool isInPlace(const QTreeWidgetItem& group)
{
    for (int i = 1; i < group.childCount(); ++i) {
        if (*group.child(i) < *group.child(i - 1))
            return false;
    }
    return true;
}

} // namespace

/// What one refresh fetches, and for whom. Its end, when it has been done or nobody does it any
/// more, is the refresh's.
struct DataRefresh
{
    std::vector<VXHandle<VXSimpleProperty2>> properties;
    VXHandle<VXSimplePropertyBrowser2> browser;
    enum State { Running, WantedAgain, Done };
    std::atomic<State> state{Running};

    /// False if it is over, and another one has to be begun.
    bool repeat()
    {
        State was = Running;
        return state.compare_exchange_strong(was, WantedAgain) || was == WantedAgain;
    }

    /// On the data's thread: touches nothing but properties.
    void run() const
    {
        for (const auto& each : properties) {
            each.with([](VXSimpleProperty2& property) {
                try {
                    property.refreshData();
                } catch (...) {
                    TROV::Thread::reportException(std::current_exception());
                }
            });
        }
    }
};

// Requests ----------------------------------------------------------------------------------------

void QtSimplePropertyTree2::refreshDataOnKestraThread()
{
    if (const auto underWay = m_dataUnderWay.lock(); underWay && underWay->repeat())
        return;
    const auto refresh = std::make_shared<DataRefresh>();
    for (const unsigned id : m_restless)
        refresh->properties.push_back(m_items.at(id)->property());
    refresh->browser = static_cast<VXSimplePropertyBrowser2*>(m_browser.getHandle());

    TROV::Thread* thread = TROV::Thread::find(DataThread);
    if (!thread || !thread->isAccepting())
        thread = TROV::Thread::getCurrentThread();
    const auto* const connection = m_dataConnection.connection();
    if (!connection || !m_dataConnection.isConnected() || connection->thread() != thread) {
        m_dataConnection.disconnect();
        m_dataConnection = m_dataRefresh.connect(
            static_cast<TROV::Listener*>(this),
            [](const std::shared_ptr<DataRefresh>& job) {
                job->run();
                const auto browser = job->browser;
                const auto was = job->state.exchange(DataRefresh::Done);
                browser->refreshUI();
                // Behind what waits: a property may ask each time that it is refreshed.
                if (was == DataRefresh::WantedAgain)
                    TROV::Thread::getCurrentThread()->post([browser] { browser->refresh(); });
            },
            thread);
    }
    const QtDeletionHold hold(&m_browser);
    m_dataUnderWay = refresh;
    m_dataRefresh(refresh);
}

void QtSimplePropertyTree2::refreshUIOnUIThread()
{
    const QtDeletionHold hold(&m_browser);
    refreshNews();
    if (!hold.isAlive())
        return;
    for (auto at = m_restless.begin(); at != m_restless.end();) {
        const unsigned id = *at;
        const QtPropertyItem& item = *m_items.at(id);
        if (!item.isPlain() && !refreshItem(item.property()) && !hold.isAlive())
            return;
        at = m_restless.upper_bound(id); // reading it may have changed anything
    }
}

void QtSimplePropertyTree2::refreshNews()
{
    std::vector<Property> news;
    {
        const VXObjectDataLocker lock;
        if (auto* browser = static_cast<VXSimplePropertyBrowser2*>(m_browser.getHandle()))
            news = browser->takeNews();
    }
    const QtDeletionHold hold(&m_browser);
    for (const Property each : news) {
        // One that waits for its item is read then.
        if (itemOf(each) && !refreshItem(each) && !hold.isAlive())
            return;
    }
}

/// False if it is not there any more.
bool QtSimplePropertyTree2::refreshItem(Property property)
{
    const QtDeletionHold hold(&m_browser);
    const auto shown = QtShownProperty::read(property, m_browser);
    if (!hold.isAlive())
        return false;
    QtPropertyItem* const item = shown ? itemOf(property) : nullptr;
    if (!item)
        return false;
    item->show(*shown);
    noteRestless(*item);
    if (!m_filter.isEmpty()) {
        m_isFilterDue = true;
        settleSoon();
    }
    return true;
}

void QtSimplePropertyTree2::noteRestless(const QtPropertyItem& item)
{
    if (item.isPulled())
        m_restless.insert(item.property().id());
    else if (!m_restless.empty())
        m_restless.erase(item.property().id());
}

void QtSimplePropertyTree2::setSort(const std::shared_ptr<VXSimplePropertyComparator2>& comparator)
{
    if (m_sort == comparator)
        return;
    const auto former = std::exchange(m_sort, comparator); // it may be what calls
    m_isSortDue = true;
    settleSoon();
}

void QtSimplePropertyTree2::setFilter(const QString& text)
{
    m_filter = text;
    m_isFilterDue = true;
    settle();
}

// Order and filter --------------------------------------------------------------------------------

/// A whole tree is ordered once for all that was added in a turn: anew for each it would take a
/// time that grows with the square of their number.
void QtSimplePropertyTree2::settleSoon()
{
    if ((m_isSortDue || m_isFilterDue) && !std::exchange(m_isSettlingSoon, true))
        QMetaObject::invokeMethod(
            this,
            [this] {
                m_isSettlingSoon = false;
                settle();
            },
            Qt::QueuedConnection);
}

void QtSimplePropertyTree2::settle()
{
    if (m_isSettling || (!m_isSortDue && !m_isFilterDue))
        return;
    const QtDeletionHold hold(&m_browser);
    m_isSettling = true;
    if (std::exchange(m_isSortDue, false))
        doSort();
    if (!hold.isAlive())
        return;
    if (std::exchange(m_isFilterDue, false))
        applyFilter();
    m_isSettling = false;
    settleSoon(); // for what the application has done meanwhile
}

/// Qt orders the items: so selection, openness and editors stay with them.
void QtSimplePropertyTree2::doSort()
{
    const QtDeletionHold hold(&m_browser);
    for (auto at = m_items.begin(); at != m_items.end();) {
        const unsigned id = at->first;
        if (!at->second) {
            Property property;
            {
                const VXObjectDataLocker lock;
                property = static_cast<VXSimpleProperty2*>(VXObject::objectById(id));
            }
            const bool isMade = doAddProperty(property, Property());
            if (!hold.isAlive())
                return;
            if (const auto left = m_items.find(id);
                !isMade && left != m_items.end() && !left->second)
                m_items.erase(left);
        }
        at = m_items.upper_bound(id);
    }
    if (!m_sort)
        return;
    std::map<unsigned, int> places;
    QList<Property> groups{Property()};
    for (const auto& [id, item] : m_items) {
        if (item && item->childCount() > 1)
            groups.append(item->property());
    }
    for (const Property group : groups) {
        const QTreeWidgetItem* const item = group.id() != 0 ? itemOf(group) : invisibleRootItem();
        if (item && !orderLevel(*item, places))
            return;
        if (!hold.isAlive() || !m_sort)
            return;
    }
    for (const auto& [id, item] : m_items) {
        const auto found = places.find(id);
        if (item)
            item->setPlace(found == places.end() ? int(places.size()) : found->second);
    }
    const QtProgramScope scope;
    for (const Property group : groups) {
        if (QTreeWidgetItem* item = group.id() != 0 ? itemOf(group) : invisibleRootItem();
            item && !isInPlace(*item))
            item->sortChildren(0, Qt::AscendingOrder);
    }
}

/// False if the comparator gave up. A list is ordered by joining parts of it: whatever the
/// comparator says, that remains within the list.
bool QtSimplePropertyTree2::orderLevel(const QTreeWidgetItem& group,
                                       std::map<unsigned, int>& places)
{
    std::list<Property> level;
    for (int i = 0; i < group.childCount(); ++i)
        level.push_back(static_cast<const QtPropertyItem*>(group.child(i))->property());
    const auto comparator = m_sort;
    const VXObjectDataLocker lock;
    const QtHandlerFrame frame(m_browser);
    try {
        level.sort([&](Property a, Property b) {
            const VXSimpleProperty2* const first = a.get();
            const VXSimpleProperty2* const second = b.get();
            return first && second && comparator->isLess(*first, *second);
        });
    } catch (...) {
        TROV::Thread::reportException(std::current_exception());
        return false;
    }
    for (const Property property : level)
        places.emplace(property.id(), int(places.size()));
    return true;
}

void QtSimplePropertyTree2::applyFilter()
{
    const QtProgramScope scope;
    QList<QtPropertyItem*> all; // each behind what it is in
    for (QTreeWidgetItemIterator at(this); *at; ++at)
        all.append(static_cast<QtPropertyItem*>(*at));
    const auto parentOf = [](QtPropertyItem* item) {
        return static_cast<QtPropertyItem*>(item->parent());
    };
    for (QtPropertyItem* item : all) {
        const QtPropertyItem* const parent = parentOf(item);
        item->isMatch = item->contains(m_filter) || (parent && parent->isMatch);
    }
    for (qsizetype i = all.size(); i-- > 0;) {
        QtPropertyItem* const parent = parentOf(all[i]);
        if (!all[i]->isMatch || !parent)
            continue;
        if (!parent->isMatch && !m_filter.isEmpty())
            parent->setExpanded(true);
        parent->isMatch = true;
    }
    for (QtPropertyItem* item : all) {
        if (item->isHidden() == item->isMatch)
            item->setHidden(!item->isMatch);
    }
}

} // namespace VOXI
