#pragma once

#include "qtpropertyitem.h"
#include "trov/emitter.h"
#include "trov/listener.h"
#include "voxi2/modelview/vxsimplepropertybrowser2.h"
#include "voxi2_qt/kernel/qtouterwidget2shim.h"

#include <QPointer>
#include <QTreeWidget>

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace VOXI {

class QtSimpleItemDelegate2;
class QtSimplePropertyBrowser2;
struct DataRefresh;

/// The tree of a property browser: names in the first column, values in the second.
///
/// All that is virtual in properties, comparator and factory is the application's. Around each call
/// of it: what was looked up before is looked up anew, by id, since anything may have gone; the
/// peer, and this with it, stays.
class QtSimplePropertyTree2 final : public QtInnerWidget<QTreeWidget, QtSimplePropertyBrowser2>,
                                    public TROV::Listener
{
    Q_OBJECT

public:
    using Property = VXHandle<VXSimpleProperty2>;

    static constexpr int TREE_INDENTATION = 11;             // pixels for each level
    static constexpr int TREE_PROPNAME_SECTION_WIDTH = 140; // pixels, at first

    explicit QtSimplePropertyTree2(QtSimplePropertyBrowser2& browser);
    ~QtSimplePropertyTree2() override;

    /// Also where its item is still to be made.
    bool hasProperty(Property property) const { return find(property) != m_items.end(); }

    // Requests
    void addProperty(Property property, Property group);
    void removeProperty(Property property);
    void clearProperties();
    void setSort(const std::shared_ptr<VXSimplePropertyComparator2>& comparator);
    void setEditorFactory(const std::shared_ptr<VXSimplePropertyEditorFactory2>& factory);
    void setEditor(Property property, unsigned editor);
    void setPropertyToolTip(Property property, const QString& text);
    void setReadonly(bool readonly);
    bool isReadonly() const { return m_isReadonly; }
    void refreshDataOnKestraThread();
    void refreshUIOnUIThread();
    void closeOpenEditor();
    void refreshNews();
    std::vector<Property> properties(Property group);
    void editProperty(Property property);
    Property editedProperty() const { return m_editor ? m_edited : Property(); }
    void setPropertyExpanded(Property property, bool expanded);
    bool isPropertyExpanded(Property property);
    void setCurrentProperty(Property property);
    Property currentProperty();
    void doubleClickProperty(Property property);
    void setFilter(const QString& text);
    const QString& filter() const { return m_filter; }

    // For the delegate

    /// Null where nothing is to be edited.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index);
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index);
    /// The open editor of the factory, or null.
    QWidget* editor() const { return m_editor; }
    /// Takes a widget off its cell, alone and hidden.
    void letGo(QWidget* widget);
    /// The same for one that the program puts elsewhere at this moment.
    void leaveTo(QWidget* widget);
    bool isOurs(const QWidget* widget) const;

    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    using QTreeWidget::edit;

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void commitData(QWidget* editor) override;
    void editorDestroyed(QObject* editor) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    // What Qt tells
    void editorClosed(QWidget* editor, QAbstractItemDelegate::EndEditHint hint);
    void expandItem(const QModelIndex& index);
    void collapseItem(const QModelIndex& index);
    void doubleClicked(const QModelIndex& index);

    // Items
    QtPropertyItem* itemOf(Property property);
    std::map<unsigned, QtPropertyItem*>::const_iterator find(Property property) const;
    QtPropertyItem* itemAt(const QModelIndex& index) const;
    QtPropertyItem* doAddProperty(Property property, Property group);
    void moveItem(QtPropertyItem& item, QTreeWidgetItem& group);
    void removeItem(QtPropertyItem& item);
    void endItems(const QList<QTreeWidgetItem*>& tops);
    void forget(unsigned id);
    bool waitsForItem(Property property) const;
    bool refreshItem(Property property);
    void noteRestless(const QtPropertyItem& item);

    // Order and filter
    void settle();
    void settleSoon();
    void doSort();
    bool orderLevel(const QTreeWidgetItem& group, std::map<unsigned, int>& places);
    void applyFilter();

    // Editing
    bool openEditor(const QModelIndex& index, EditTrigger trigger, QEvent* event);
    unsigned askForEditor(Property property);
    void place(QWidget* cell, QWidget* editor);
    void takeOff(QtPropertyItem& item);
    void closeEditorWithin(const QTreeWidgetItem& item);
    void endEditing();
    void finishEditing();

    QtSimplePropertyBrowser2& m_browser;
    /// By the properties' ids. Null for those that get their items when all are ordered.
    std::map<unsigned, QtPropertyItem*> m_items;
    /// Those among them that a refresh has to look at: the others tell what changes.
    std::set<unsigned> m_restless;
    std::shared_ptr<VXSimplePropertyComparator2> m_sort;
    std::shared_ptr<VXSimplePropertyEditorFactory2> m_editorFactory;
    bool m_isReadonly = false;
    QtSimpleItemDelegate2* m_delegate;

    bool m_isSortDue = false;
    bool m_isFilterDue = false;
    bool m_isSettling = false;
    bool m_isSettlingSoon = false;
    QString m_filter;

    // The open editor of the factory
    QPointer<QWidget> m_editor;
    Property m_edited;
    unsigned m_editorId = 0;
    std::shared_ptr<VXSimplePropertyEditorFactory2> m_editorsFactory;
    bool m_isAsking = false; // the factory, for an editor
    bool m_isCommitted = false;
    Property m_closed;                 // whose end of editing is still to be told
    QList<QPointer<QWidget>> m_placed; // what the program has put on values

    // The way to the thread of the data
    TROV::Emitter1<void, std::shared_ptr<DataRefresh>> m_dataRefresh;
    TROV::ConnectionHandle m_dataConnection;
    std::weak_ptr<DataRefresh> m_dataUnderWay;
};

} // namespace VOXI
