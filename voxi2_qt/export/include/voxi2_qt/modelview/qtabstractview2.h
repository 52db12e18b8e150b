#pragma once

#include "voxi2/kernel/ignored.h"
#include "voxi2/modelview/vxabstractview2.h"
#include "voxi2_qt/kernel/qtwidget2.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QAbstractItemView>
#include <QPersistentModelIndex>

#include <functional>
#include <map>
#include <memory>

QT_BEGIN_NAMESPACE
class QContextMenuEvent;
class QHeaderView;
class QInputEvent;
class QItemSelection;
class QKeyEvent;
QT_END_NAMESPACE

namespace VOXI {

class QtCopyJob;
class QtKeyboardSearch;
class QtViewDelegate2;
class QtViewHost;
class QtViewModel2;
class QtViewSight;

/// The base of the peers of item views. It names cells by the numbers of the abstract model and
/// finds the Qt indexes by the view's own item model.
class VOXI2_QT_EXPORT QtAbstractView2
    : public QtPeerLevel<VXAbstractView2, VXAbstractView2Emitters, QtWidget2>
{
public:
    ~QtAbstractView2() override;

    void doSetColor(ColorRole role, Color color) override;
    Color doGetColor(ColorRole role) override;

    // Requests, in the order of the emitters table
    virtual void doSetViewModel(VXAbstractViewModel2* model);
    virtual VXAbstractViewModel2* doGetViewModel();
    virtual void doSetSelectionMode(SelectionMode mode);
    virtual SelectionMode doGetSelectionMode();
    virtual void doSetSelectionBehavior(SelectionBehavior behavior);
    virtual SelectionBehavior doGetSelectionBehavior();
    virtual void doSetEditTriggers(VXFlags<EditTrigger> triggers);
    virtual VXFlags<EditTrigger> doGetEditTriggers();
    virtual void doSetActiveCell(ModelCell2 cell);
    virtual void doimSetActiveCell(ModelCell2 cell);
    virtual ModelCell2 doGetActiveCell();
    virtual void doSetSelection(ModelRange range);
    virtual void doimSetSelection(ModelRange range);
    virtual std::vector<ModelCell2> doGetSelection();
    virtual void doSelectRows(const std::vector<unsigned>& rows);
    virtual void doSelectColumns(const std::vector<unsigned>& columns);
    virtual void doSelectAll();
    virtual void doClearSelection();
    virtual bool doIsSelected(unsigned row, unsigned column);
    virtual void doScrollTo(ModelCell2 cell);
    virtual ModelCell2 doGetModelCellAt(int x, int y);
    virtual ModelCell2 doGetCellAtPosition(VXPoint<int> position);
    virtual VXRect<int> doGetModelCellRect(unsigned row, unsigned column);
    virtual VXRect<int> doimGetCellRect(unsigned row, unsigned column);
    virtual bool doimIsCellVisible(unsigned row, unsigned column);
    virtual bool doimIsHScrollbarVisible();
    virtual bool doimIsVScrollbarVisible();
    virtual void doSetEditor(unsigned row, unsigned column, VXWidget2* editor);
    virtual VXWidget2* doGetEditor(unsigned row, unsigned column);
    virtual CellInfo doimGetCellInfo(unsigned row, unsigned column);
    void doSetColumnWidth(unsigned column, int width); // tables have one more
    virtual int doColumnWidth(unsigned column);
    virtual void doSetRowHeight(unsigned row, int height) = 0;
    virtual int doRowHeight(unsigned row) = 0;
    virtual void doSetColumnVisible(unsigned column, bool visible);
    virtual bool doIsColumnVisible(unsigned column);
    virtual void doSetRowVisible(unsigned row, bool visible) = 0;
    virtual bool doIsRowVisible(unsigned row) = 0;
    virtual void doSetColumnHeaderVisible(bool visible);
    virtual bool doIsColumnHeaderVisible();
    virtual void doSetColumnMovable(bool movable);
    virtual bool doIsColumnMovable();
    virtual void doSetAlternatingRowColors(bool on);
    virtual bool doHasAlternatingRowColors();
    virtual void doSetWordWrap(bool on) = 0;
    virtual bool doWordWrap() = 0;
    virtual void doimTriggerEdit(unsigned row, unsigned column, EditTrigger trigger,
                                 MouseButton button);
    virtual std::vector<unsigned> doGetSelectedRows();
    virtual std::wstring doGetSelectionAsText();
    virtual std::wstring doGetSelectionAsHtml();
    virtual void doCopySelection();
    virtual void doSetSortIndicator(SortIndicator indicator);
    virtual SortIndicator doGetSortIndicator();
    virtual void doSetHeaderClickable(bool clickable);
    virtual bool doIsHeaderClickable();
    virtual void doSetColumnOrder(const std::vector<unsigned>& columns);
    virtual std::vector<unsigned> doGetColumnOrder();
    virtual std::string doSaveHeaderState();
    virtual void doRestoreHeaderState(const std::string& state);
    virtual void doSetCacheLimit(int cells);
    virtual int doGetCacheLimit();
    virtual VXRect<int> doGetColumnHeaderRect(unsigned column);

    /// Never null; one that shows nothing while no abstract model is set.
    QtViewModel2& viewModel() const { return *m_model; }
    QtViewDelegate2& viewDelegate() const { return *m_delegate; }
    QAbstractItemView& itemView() const;
    /// The one above the columns.
    virtual QHeaderView& columnHeader() const = 0;

    /// The index of the row below, as shown; invalid after the last.
    virtual QModelIndex rowBelow(const QModelIndex& index) const = 0;

    /// Whether the view decides itself what becomes of a wish to edit; else it is Qt's.
    bool internalEdit(const QModelIndex& index, QAbstractItemView::EditTrigger trigger);

protected:
    QtAbstractView2(VXAbstractView2* view, VXAbstractView2Emitters* emitters);

    void connectSignals() override;

    /// To be called when there is a Qt view, and before there is none any more.
    void beginView();
    void endView();

    // What is protected in Qt's view
    friend class QtCopyJob;
    friend class QtViewHost;
    virtual bool editInQt(const QModelIndex& index, QAbstractItemView::EditTrigger trigger,
                          QEvent* event) = 0;
    virtual void setEditing(bool isEditing) = 0;
    virtual bool isInEditingState() const = 0;
    virtual void forgetEditor(QWidget* editor) = 0;
    virtual QModelIndex cursorMoved(bool forward) = 0;
    /// Does what waits to be laid out.
    virtual void layOutNow() = 0;
    virtual void updateScrollBars() = 0;

    // What differs
    /// -1 where the content decides.
    virtual int fixedRowHeight(const QModelIndex& index) const;
    /// Rows or columns have come, gone or moved.
    virtual void sizeChanged();

    // What the shim is told by Qt
    enum class Input { Press, Release, Move, Key };
    /// Has `handle` do what Qt does, and passes the event on to the editor. Nothing where the
    /// handler is running already.
    void handleInput(Input input, QInputEvent& event, const std::function<void()>& handle);
    bool edit(const QModelIndex& index, QAbstractItemView::EditTrigger trigger, QEvent* event);
    void closeEditor(const QWidget* editor, QAbstractItemDelegate::EndEditHint hint);
    void changeCurrent(const QModelIndex& current, const std::function<void()>& handle);
    void noteSelection();
    void noteContextMenu(QWidget* receiver, const QContextMenuEvent& event);
    void layOut(const std::function<void()>& handle);
    void noteScroll();
    void noteLooks();
    void paintWaiting(const QRect& area);
    /// Whether the pointer draws what was selected already, and somebody wants to know of drags:
    /// then it selects nothing else on its way.
    bool isDraggingCells(const QMouseEvent& event) const;
    /// Of the platform's keys and those that wait; true if it was one.
    bool handleKey(const QKeyEvent& event);
    void searchFor(const QString& text);

    QModelIndex indexOf(unsigned row, unsigned column) const;
    QModelIndex indexOf(const ModelCell2& cell) const;
    /// What a request is about; invalid where that is not there, which is told.
    QModelIndex askedFor(unsigned row, unsigned column,
                         CallPlace where = CallPlace::current()) const;
    QModelIndex askedFor(const ModelCell2& cell, CallPlace where = CallPlace::current()) const;
    int askedForColumn(unsigned column, CallPlace where = CallPlace::current()) const;

private:
    void installModel(VXAbstractViewModel2* model);
    void makeCurrent(const QModelIndex& index);
    void select(const QItemSelection& selection);
    void internalSetSelection(const ModelRange& range, CallPlace where = CallPlace::current());
    void imInternalTriggerEdit(QWidget& widget, const QModelIndex& index, EditTrigger trigger,
                               MouseButton button);
    std::vector<ModelBlock> selectedBlocks() const;
    void copyDone();
    /// Adds what has to be known beside what is in sight.
    void addWanted(std::vector<unsigned>& rows, std::vector<unsigned>& columns) const;
    bool editsOnClick() const;
    void notePress(const QMouseEvent& event);
    void editIfClicked(QMouseEvent& event);
    void editNext(bool forward);
    void noteAnswers();
    void editAwaited();
    void reportActivation(const QModelIndex& index);
    void reportHeaderClick(int section);
    void reportColumnWidth(int section, int width);
    void reportColumnMove(int section, int from, int to);
    void reportScroll();
    void showSortIndicator();
    int columnSection(unsigned column) const;

    QtViewModel2* m_model = nullptr; ///< the Qt view's, like the next
    QtViewDelegate2* m_delegate = nullptr;
    std::unique_ptr<QtViewHost> m_host;
    std::unique_ptr<QtViewSight> m_sight;
    std::unique_ptr<QtCopyJob> m_copyJob;       ///< null while nothing waits to be copied
    std::unique_ptr<QtKeyboardSearch> m_search; ///< null before the first
    VXFlags<EditTrigger> m_editTriggers;
    SortIndicator m_sort;
    int m_cacheLimit;
    QPersistentModelIndex m_pressedIndex;
    QPersistentModelIndex m_askedIndex; ///< for which this click has asked for an editor
    /// What was tabbed to, and is to be edited when it is known, if it is still the current one.
    QPersistentModelIndex m_awaitedIndex;
    bool m_awaitsForward = true;            ///< by which way it was tabbed to
    std::map<unsigned, int> m_hiddenWidths; ///< of columns, by their UID
    bool m_isEditBarred = false;
    bool m_hasPressedSelection = false; ///< the left button went down on a cell that was selected
};

} // namespace VOXI
