#pragma once

#include "cellcache.h"
#include "cellroles.h"
#include "columnlist.h"
#include "rowforest.h"
#include "trov/listener.h"
#include "viewqueries.h"
#include "voxi2/modelview/modelcell2.h"
#include "voxi2/modelview/vxabstractviewmodel2.h"

#include <QAbstractItemModel>
#include <QItemSelectionModel>
#include <QPointer>

#include <cstdint>
#include <map>
#include <span>
#include <vector>

namespace VOXI {

class RowBatch;

/// What a Qt view shows of an abstract model: each view has one of its own.
///
/// It knows at any time which rows and columns there are, and of the cells those that were asked
/// for: a view that asks for another one gets nothing, and hears of a change when the answer has
/// come. So no view ever waits, and none runs code of the application by painting. A child of the
/// view; toolkit's thread only.
class QtViewModel2 : public QAbstractItemModel, public TROV::Listener
{
    Q_OBJECT

public:
    using Uid = RowForest::Uid;
    using Uids = std::vector<Uid>;

    /// From when on a size change goes as one change of the layout, instead of step by step. What
    /// comes of it is the same.
    struct FloodLimits
    {
        /// Steps times persistent indexes, since each step looks at all of these.
        qsizetype work = 1'000'000;
        /// Removals among at least so many rows, since a header looks at all rows for each; ten
        /// insertions count as one.
        qsizetype removals = 20;
        int rows = 100'000;
        /// Not with so many rows selected, each of which a change of the layout looks at.
        qsizetype selectedRows = 100'000;
    };

    /// Shows nothing.
    explicit QtViewModel2(QObject* parent = nullptr);
    /// Null, or a model that has gone, shows nothing.
    QtViewModel2(VXAbstractViewModel2* model, VXAbstractViewModel2Emitters* emitters,
                 QObject* parent = nullptr);
    ~QtViewModel2() override;

    /// Whether there was one, and it lived, when this was made.
    bool hasModel() const { return m_model != 0; }
    /// Null when there is none or it has gone. To be used under the object lock.
    VXAbstractViewModel2* abstractModel() const;

    // Qt's

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    using QObject::parent;
    QModelIndex sibling(int row, int column, const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    void multiData(const QModelIndex& index, QModelRoleDataSpan roles) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // Between indexes and UIDs

    /// 0 for an invalid index, as for the two below.
    Uid rowFromIndex(const QModelIndex& index) const
    {
        return index.isValid() ? uidOf(index.internalId()) : 0;
    }
    Uid columnFromIndex(const QModelIndex& index) const { return m_columns.at(index.column()); }
    /// The null cell for an invalid index, or when the model has gone.
    ModelCell2 cellFromIndex(const QModelIndex& index) const;
    ModelCell2 createCell(Uid row, Uid column) const;
    /// While one lives, cells that are not known count as enabled, as they mostly will be: a key
    /// then goes to them instead of looking for one that is known. Not in a loop that a handler
    /// opens meanwhile, where the view is painted, and other keys come.
    class OpenWay
    {
    public:
        explicit OpenWay(QtViewModel2& model);
        ~OpenWay();
        OpenWay(const OpenWay&) = delete;
        OpenWay& operator=(const OpenWay&) = delete;

    private:
        QPointer<QtViewModel2> m_model;
        int m_former;
    };
    /// Its position among the rows of its parent; -1 if there is no such row.
    int rowFromUID(Uid row) const { return m_rows.placeOf(row).row; }
    int columnFromUID(Uid column) const { return m_columns.placeOf(column); }
    /// Invalid when one of them is not there. Column 0 is the first, which stands for the row.
    QModelIndex indexFromUIDs(Uid row, Uid column) const;
    /// -1 if there is no such section. Vertical sections are the rows without a parent.
    int headerSectionFromUID(Uid section, Qt::Orientation orientation) const;
    /// 0 if there is no such section.
    Uid headerUIDFromSection(int section, Qt::Orientation orientation) const;
    Uids getChildRows(Uid parent) const { return m_rows.children(parent); }
    const Uids& columns() const { return m_columns.uids(); }
    /// 0 for rows without one and those that are not there.
    Uid parentRow(Uid row) const { return m_rows.placeOf(row).parent; }
    bool isValidRow(Uid row) const { return m_rows.contains(row); }
    bool isValidColumn(Uid column) const { return m_columns.placeOf(column) >= 0; }

    // For the view

    /// Whether rows and columns come and go at the moment: what that does to the selection is not
    /// the user's doing.
    bool isBlockingSelection() const { return m_isBlockingSelection; }

    /// What is known of a cell, for painting it: if nothing is, it is null and will be asked for.
    /// Valid until control is back in the event loop.
    const CellRecord* cell(const QModelIndex& index) const
    {
        const CellRecord* const record = m_cells.find(cellAt(index));
        return record ? record : askFor(index);
    }
    /// The same in passing: nothing is asked for.
    const CellRecord* peekCell(const QModelIndex& index) const;
    /// Whether it is, or the view waits for it.
    bool isKnown(const QModelIndex& index) const { return peekCell(index); }

    /// Rows and columns on the screen: they are answered first, and never forgotten.
    void setInSight(Uids rows, Uids columns);
    /// How many cells are remembered; as well of sections of the headers.
    void setCacheLimit(qsizetype cells);
    qsizetype cacheLimit() const { return m_cells.limit(); }
    qsizetype knownCells() const { return m_cells.size(); }

    /// The selection that a flood must leave as single steps would, which it cannot know otherwise.
    void setSelectionModel(QItemSelectionModel* selection) { m_selection = selection; }
    void setFloodLimits(const FloodLimits& limits) { m_floodLimits = limits; }

    /// After the application's font has changed. Found out by itself when the parent is a widget.
    void remakeFonts();

Q_SIGNALS:
    /// Around all that one event does to rows and columns.
    void aboutToChangeSize();
    void sizeChanged();

public:
    // What the model tells

    void doClearCachedUIData();
    void doClearCachedHeaderUIData();
    void handleQueryResult(const QueryResult2& result);
    void handleHeaderQueryResult(const HeaderQueryResult2& result);
    void handleDataChanged(const VXDataChangeEvent2& event);
    void handleSizeChanged(const VXSizeChangeEvent2& event);
    void handleHeaderChanged(const std::vector<unsigned>& sections);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    using Cell = CellCache::Cell;
    struct Footprint;

    /// Of sections that are known to show nothing but their numbers.
    static constexpr CellRenderer NumberedSection{255};

    QtViewModel2(VXAbstractViewModel2* model, VXAbstractViewModel2Emitters* emitters,
                 QObject* parent, const VXObjectDataLocker& lock);

    QModelIndex indexAt(int row, int column, Uid uid) const
    {
        return createIndex(row, column, idOf(uid));
    }
    /// Qt keeps persistent indexes by a hash that leaves close ids, such as UIDs are, close; a
    /// flood takes 1.5 s with them.
    static quintptr idOf(Uid uid) { return quintptr(uid * Q_UINT64_C(0x9E3779B97F4A7C15)); }
    static Uid uidOf(quintptr id) { return Uid(id * Q_UINT64_C(0xF1DE83E19937733D)); }

    /// Without a column for an index that is none.
    Cell cellAt(const QModelIndex& index) const
    {
        return {rowFromIndex(index), columnFromIndex(index)};
    }
    static Cell sectionCell(Uid section, Qt::Orientation orientation);

    const CellRecord* askFor(const QModelIndex& index) const;
    bool isWayOpen() const;

    // Answers
    void addRow(Uid row, Footprint& footprint) const;
    void addColumn(Uid column, Footprint& footprint) const;
    void addExpanders(const QueryResult2& result, Footprint& footprint);
    void addCells(const QueryResult2& result, Footprint& footprint);
    void noteVain(const ViewQuery2& query);
    void repaint(const Footprint& footprint);
    void trim();

    // Changes
    using Changes = std::span<const SizeChange2>;
    struct SizeEvent;
    using PlacesByParent = std::map<Uid, std::vector<int>>;

    void applySizeChanges(Changes changes);
    void applyInOrder(Changes changes, SizeEvent& event);
    void applyToColumns(Changes changes, SizeEvent& event);
    void applyToRows(Changes changes, SizeEvent& event);
    void answerExpander(const SizeChange2& change, SizeEvent& event);
    void addColumns(const SizeChange2& change, const SizeEvent& event);
    void dropColumns(const Uids& columns, const SizeEvent& event);
    void addRows(const RowBatch& batch, const SizeEvent& event);
    void dropRows(const Uids& rows, SizeEvent& event);
    void removeRun(Uid parent, int first, int last, SizeEvent& event);
    bool canBeNamed(Uid row) const { return row == 0 || m_columns.count() > 0; }
    PlacesByParent placesOf(const Uids& rows) const;
    void finish(SizeEvent& event);
    void forgetGone(SizeEvent& event);

    // Floods
    void prepare(Changes changes, SizeEvent& event) const;
    bool mustGoAtOnce(Changes columnChanges) const;
    std::size_t noteMoves(const Uids& rows, SizeEvent& event) const;
    bool isFlood(Changes changes) const;
    bool isSelectionSmall() const;
    bool isAllSelected() const;
    void applyAtOnce(Changes changes, SizeEvent& event);
    void changeColumnsAtOnce(Changes changes, SizeEvent& event);
    void floodRows(Changes changes, SizeEvent& event);
    Uids goneButHeld() const;
    void leaveRemoved(Changes changes) const;
    template <class Apply>
    void changeLayout(LayoutChangeHint hint, SizeEvent& event, const Apply& apply);
    void movePersistent(const Uids& columnsBefore, bool nestedOnly);

    unsigned m_model = 0; // its id
    RowForest m_rows;
    ColumnList m_columns;
    mutable ViewQueries m_queries;
    mutable CellCache m_cells;
    mutable CellCache m_sections;
    Uids m_rowsInSight;
    Uids m_columnsInSight;
    bool m_isBlockingSelection = false;
    bool m_isMovingColumns = false;
    int m_wayLevel = -1; // at which loop level unknown cells may be gone to; -1: at none
    QPointer<QItemSelectionModel> m_selection;
    FloodLimits m_floodLimits;
};

} // namespace VOXI
