#include "qtsimplepropertytree2.h"

#include "../kernel/qtignored.h"
#include "qtsimpleitemdelegate2.h"
#include "voxi2/kernel/translation.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtglobalfocusblocker.h"
#include "voxi2_qt/modelview/qtsimplepropertybrowser2.h"

#include <QEvent>
#include <QHeaderView>

#include <utility>

namespace VOXI {

namespace {

using E = VXSimplePropertyBrowser2Emitters;

void tellShown(unsigned id, const QtObject2& browser, bool isShown)
{
    const VXObjectDataLocker lock;
    if (auto* property = static_cast<VXSimpleProperty2*>(VXObject::objectById(id)))
        property->setShownIn(browser.getUID(), isShown);
}

/// Each behind what it is in.
QList<QTreeWidgetItem*> withAllInside(const QList<QTreeWidgetItem*>& tops)
{
    QList<QTreeWidgetItem*> all = tops;
    for (qsizetype i = 0; i < all.size(); ++i) {
        for (int child = 0; child < all[i]->childCount(); ++child)
            all.append(all[i]->child(child));
    }
    return all;
}

bool isInside(const QTreeWidgetItem* item, const QTreeWidgetItem& outer)
{
    for (; item; item = item->parent()) {
        if (item == &outer)
            return true;
    }
    return false;
}

} // namespace

QtSimplePropertyTree2::QtSimplePropertyTree2(QtSimplePropertyBrowser2& browser)
    : QtInnerWidget(browser),
      m_browser(browser),
      m_delegate(new QtSimpleItemDelegate2(*this))
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setColumnCount(2);
    setHeaderLabels({toQString(translated("Property")), toQString(translated("Value"))});
    setRootIsDecorated(true);
    setAlternatingRowColors(true);
    setIndentation(TREE_INDENTATION);
    setEditTriggers(CurrentChanged | DoubleClicked | SelectedClicked);
    header()->setSectionsMovable(false);
    header()->setSectionResizeMode(QHeaderView::Interactive);
    header()->resizeSection(0, TREE_PROPNAME_SECTION_WIDTH);
    setItemDelegate(m_delegate);
    using Tree = QtSimplePropertyTree2;
    connect(m_delegate, &QAbstractItemDelegate::closeEditor, this, &Tree::editorClosed);
    connect(this, &QTreeView::expanded, this, &Tree::expandItem);
    connect(this, &QTreeView::collapsed, this, &Tree::collapseItem);
    connect(this, &QAbstractItemView::doubleClicked, this, &Tree::doubleClicked);
}

QtSimplePropertyTree2::~QtSimplePropertyTree2()
{
    Listener::disconnect();
    endItems(invisibleRootItem()->takeChildren());
    while (!m_items.empty())
        forget(m_items.begin()->first);
}

// Requests ----------------------------------------------------------------------------------------

void QtSimplePropertyTree2::addProperty(Property property, Property group)
{
    if (!property.isValid())
        return;
    const QtDeletionHold hold(&m_browser);
    if (waitsForItem(group) || waitsForItem(property))
        settle();
    if (!hold.isAlive())
        return;
    if (QtPropertyItem* const item = itemOf(property)) {
        QTreeWidgetItem* const to = group.id() != 0 ? itemOf(group) : invisibleRootItem();
        if (isInside(to, *item))
            ignored(m_browser, Reason::HoldsThis);
        else if (to)
            moveItem(*item, *to);
    } else if (m_sort && group.id() == 0) {
        m_items.emplace(property.id(), nullptr);
        tellShown(property.id(), m_browser, true);
    } else {
        doAddProperty(property, group);
    }
    if (!hold.isAlive())
        return;
    m_isSortDue = m_isSortDue || m_sort;
    m_isFilterDue = m_isFilterDue || !m_filter.isEmpty();
    settleSoon();
}

void QtSimplePropertyTree2::removeProperty(Property property)
{
    if (QtPropertyItem* const item = itemOf(property))
        removeItem(*item);
    else
        forget(property.id());
}

void QtSimplePropertyTree2::clearProperties()
{
    const QtProgramScope scope;
    closeOpenEditor();
    // All at once; as rows that are removed, not as a reset, which Qt does in the middle of it.
    for (int i = 0; i < topLevelItemCount(); ++i)
        takeOff(static_cast<QtPropertyItem&>(*topLevelItem(i)));
    endItems(invisibleRootItem()->takeChildren());
    while (!m_items.empty())
        forget(m_items.begin()->first);
}

void QtSimplePropertyTree2::setPropertyToolTip(Property property, const QString& text)
{
    settle();
    if (QtPropertyItem* const item = itemOf(property)) {
        item->setToolTip(QtPropertyItem::NameColumn, text);
        item->setToolTip(QtPropertyItem::ValueColumn, text);
    }
}

std::vector<VXHandle<VXSimpleProperty2>> QtSimplePropertyTree2::properties(Property group)
{
    settle();
    std::vector<Property> result;
    const QTreeWidgetItem* const item = group.id() != 0 ? itemOf(group) : invisibleRootItem();
    for (int i = 0; item && i < item->childCount(); ++i)
        result.push_back(static_cast<const QtPropertyItem*>(item->child(i))->property());
    return result;
}

void QtSimplePropertyTree2::setPropertyExpanded(Property property, bool expanded)
{
    settle();
    if (QtPropertyItem* const item = itemOf(property))
        item->setExpanded(expanded);
}

bool QtSimplePropertyTree2::isPropertyExpanded(Property property)
{
    settle();
    const QtPropertyItem* const item = itemOf(property);
    return item && item->isExpanded();
}

void QtSimplePropertyTree2::setCurrentProperty(Property property)
{
    const QtDeletionHold hold(&m_browser);
    settle();
    if (hold.isAlive() && m_editor && m_edited != property)
        finishEditing();
    if (!hold.isAlive())
        return;
    if (QtPropertyItem* const item = itemOf(property))
        setCurrentItem(item, QtPropertyItem::ValueColumn);
    else if (property.id() == 0)
        selectionModel()->clear();
}

VXHandle<VXSimpleProperty2> QtSimplePropertyTree2::currentProperty()
{
    settle();
    const QtPropertyItem* const item = itemAt(currentIndex());
    return item ? item->property() : Property();
}

void QtSimplePropertyTree2::doubleClickProperty(Property property)
{
    const QtDeletionHold hold(&m_browser);
    settle();
    QtPropertyItem* const item = hold.isAlive() ? itemOf(property) : nullptr;
    if (!item)
        return;
    const QPersistentModelIndex index = indexFromItem(item, QtPropertyItem::ValueColumn);
    doubleClicked(index);
    if (hold.isAlive() && index.isValid())
        edit(index, DoubleClicked, nullptr);
}

// Reports -----------------------------------------------------------------------------------------

void QtSimplePropertyTree2::expandItem(const QModelIndex& index)
{
    const QtPropertyItem* const item = itemAt(index);
    if (item && !QtProgramScope::isActive())
        m_browser.report(&E::propertyExpanded, item->property());
}

void QtSimplePropertyTree2::collapseItem(const QModelIndex& index)
{
    const QtPropertyItem* const item = itemAt(index);
    if (item && !QtProgramScope::isActive())
        m_browser.report(&E::propertyCollapsed, item->property());
}

void QtSimplePropertyTree2::doubleClicked(const QModelIndex& index)
{
    if (const QtPropertyItem* const item = itemAt(index))
        m_browser.report(&E::propertyDoubleClicked, item->property());
}

void QtSimplePropertyTree2::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    const QtPropertyItem* const item = itemAt(current);
    const bool isNews = item && item != itemAt(previous) && !QtProgramScope::isActive();
    const Property told = item ? item->property() : Property();
    const QtDeletionHold hold(&m_browser);
    // Before Qt does it, which looks at the rows again without asking whether they are still there.
    const QPersistentModelIndex to(current);
    const QPersistentModelIndex from(previous);
    if (m_editor && (item != itemOf(m_edited) || current.column() != QtPropertyItem::ValueColumn)) {
        if (QtProgramScope::isActive())
            closeOpenEditor(); // rows may be on their way
        else
            finishEditing();
    }
    if (!hold.isAlive())
        return;
    QTreeWidget::currentChanged(to, from);
    if (isNews)
        m_browser.report(&E::currentChanged, told);
}

void QtSimplePropertyTree2::focusInEvent(QFocusEvent* event)
{
    const QtFocusComing coming(*this, *event);
    QTreeWidget::focusInEvent(event);
}

// Items -------------------------------------------------------------------------------------------

QtPropertyItem* QtSimplePropertyTree2::itemOf(Property property)
{
    const auto found = find(property);
    return found == m_items.end() ? nullptr : found->second;
}

/// Most are looked for when they are made, and come behind all.
std::map<unsigned, QtPropertyItem*>::const_iterator QtSimplePropertyTree2::find(
    Property property) const
{
    const bool isBehind = m_items.empty() || property.id() > m_items.rbegin()->first;
    return isBehind || property.id() == 0 ? m_items.end() : m_items.find(property.id());
}

QtPropertyItem* QtSimplePropertyTree2::itemAt(const QModelIndex& index) const
{
    return static_cast<QtPropertyItem*>(itemFromIndex(index));
}

QtPropertyItem* QtSimplePropertyTree2::doAddProperty(Property property, Property group)
{
    const QtDeletionHold hold(&m_browser);
    const auto shown = QtShownProperty::read(property, m_browser);
    if (!hold.isAlive() || !shown)
        return nullptr;
    // Reading may have added it, or taken the group away.
    QTreeWidgetItem* const parent = group.id() != 0 ? itemOf(group) : invisibleRootItem();
    if (!parent || itemOf(property))
        return nullptr;
    auto* const item = new QtPropertyItem(property, *shown);
    m_items.insert_or_assign(m_items.end(), property.id(), item);
    noteRestless(*item);
    tellShown(property.id(), m_browser, true);
    const QtProgramScope scope;
    parent->addChild(item);
    return item;
}

/// The group does not lie in it.
void QtSimplePropertyTree2::moveItem(QtPropertyItem& item, QTreeWidgetItem& group)
{
    QTreeWidgetItem* const former = item.parent() ? item.parent() : invisibleRootItem();
    if (former == &group)
        return;
    const QtProgramScope scope;
    closeEditorWithin(item);
    takeOff(item);
    // Qt forgets which of them are open, and which is the current one.
    QTreeWidgetItem* const current = currentItem();
    const bool hasCurrent = current && isInside(current, item);
    const int column = currentColumn();
    QList<QTreeWidgetItem*> open;
    for (QTreeWidgetItem* each : withAllInside({&item})) {
        if (each->isExpanded())
            open.append(each);
    }
    former->removeChild(&item);
    group.addChild(&item);
    for (QTreeWidgetItem* each : open)
        each->setExpanded(true);
    if (hasCurrent)
        setCurrentItem(current, column);
}

void QtSimplePropertyTree2::removeItem(QtPropertyItem& item)
{
    const QtProgramScope scope;
    closeEditorWithin(item);
    takeOff(item);
    QTreeWidgetItem* const parent = item.parent() ? item.parent() : invisibleRootItem();
    parent->removeChild(&item);
    endItems({&item});
}

/// Of items that are in no tree any more, with what is in them: from below, as there may be more
/// levels than the stack has room for.
void QtSimplePropertyTree2::endItems(const QList<QTreeWidgetItem*>& tops)
{
    const auto end = [this](QTreeWidgetItem* item) {
        forget(static_cast<QtPropertyItem*>(item)->property().id());
        delete item;
    };
    const QList<QTreeWidgetItem*> all = withAllInside(tops);
    for (qsizetype i = all.size(); i-- > 0;) {
        for (QTreeWidgetItem* child : all[i]->takeChildren())
            end(child);
    }
    for (QTreeWidgetItem* top : tops)
        end(top);
}

void QtSimplePropertyTree2::forget(unsigned id)
{
    m_restless.erase(id);
    if (m_items.erase(id) > 0)
        tellShown(id, m_browser, false);
}

bool QtSimplePropertyTree2::waitsForItem(Property property) const
{
    const auto found = find(property);
    return found != m_items.end() && !found->second;
}

} // namespace VOXI
