#include "voxi2_qt/modelview/qtabstractview2.h"

#include "../kernel/qtignored.h"
#include "qtcopyjob.h"
#include "qtkeyboardsearch.h"
#include "qtmodelswap.h"
#include "qtviewdelegate2.h"
#include "qtviewhost.h"
#include "qtviewmodel2.h"
#include "qtviewsight.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qthandlerframe.h"

#include <QHeaderView>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

using E = VXAbstractView2Emitters;
using P = QtAbstractView2;

constexpr const char* NoCell = "the model shown has no such cell";

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setViewModel, &P::doSetViewModel>(),
    TROV::row<&E::getViewModel, &P::doGetViewModel>(),
    TROV::row<&E::setSelectionMode, &P::doSetSelectionMode>(),
    TROV::row<&E::getSelectionMode, &P::doGetSelectionMode>(),
    TROV::row<&E::setSelectionBehavior, &P::doSetSelectionBehavior>(),
    TROV::row<&E::getSelectionBehavior, &P::doGetSelectionBehavior>(),
    TROV::row<&E::setEditTriggers, &P::doSetEditTriggers>(),
    TROV::row<&E::getEditTriggers, &P::doGetEditTriggers>(),
    TROV::row<&E::setActiveCell, &P::doSetActiveCell>(),
    asUserRow<&E::setActiveCellAsUser, &P::doimSetActiveCell>(),
    TROV::row<&E::getActiveCell, &P::doGetActiveCell>(),
    TROV::row<&E::setSelection, &P::doSetSelection>(),
    asUserRow<&E::setSelectionAsUser, &P::doimSetSelection>(),
    TROV::row<&E::getSelection, &P::doGetSelection>(),
    TROV::row<&E::selectRows, &P::doSelectRows>(),
    TROV::row<&E::selectColumns, &P::doSelectColumns>(),
    TROV::row<&E::selectAll, &P::doSelectAll>(),
    TROV::row<&E::clearSelection, &P::doClearSelection>(),
    TROV::row<&E::isSelected, &P::doIsSelected>(),
    TROV::row<&E::scrollTo, &P::doScrollTo>(),
    TROV::row<&E::getModelCellAt, &P::doGetModelCellAt>(),
    TROV::row<&E::getCellAtPosition, &P::doGetCellAtPosition>(),
    TROV::row<&E::getModelCellRect, &P::doGetModelCellRect>(),
    TROV::row<&E::getCellRect, &P::doimGetCellRect>(),
    TROV::row<&E::isCellVisible, &P::doimIsCellVisible>(),
    TROV::row<&E::isHScrollbarVisible, &P::doimIsHScrollbarVisible>(),
    TROV::row<&E::isVScrollbarVisible, &P::doimIsVScrollbarVisible>(),
    TROV::row<&E::setEditor, &P::doSetEditor>(),
    TROV::row<&E::getEditor, &P::doGetEditor>(),
    TROV::row<&E::getCellInfo, &P::doimGetCellInfo>(),
    TROV::row<&E::setColumnWidth, &P::doSetColumnWidth>(),
    TROV::row<&E::columnWidth, &P::doColumnWidth>(),
    TROV::row<&E::setRowHeight, &P::doSetRowHeight>(),
    TROV::row<&E::rowHeight, &P::doRowHeight>(),
    TROV::row<&E::setColumnVisible, &P::doSetColumnVisible>(),
    TROV::row<&E::isColumnVisible, &P::doIsColumnVisible>(),
    TROV::row<&E::setRowVisible, &P::doSetRowVisible>(),
    TROV::row<&E::isRowVisible, &P::doIsRowVisible>(),
    TROV::row<&E::setColumnHeaderVisible, &P::doSetColumnHeaderVisible>(),
    TROV::row<&E::isColumnHeaderVisible, &P::doIsColumnHeaderVisible>(),
    TROV::row<&E::setColumnMovable, &P::doSetColumnMovable>(),
    TROV::row<&E::isColumnMovable, &P::doIsColumnMovable>(),
    TROV::row<&E::setAlternatingRowColors, &P::doSetAlternatingRowColors>(),
    TROV::row<&E::hasAlternatingRowColors, &P::doHasAlternatingRowColors>(),
    TROV::row<&E::setWordWrap, &P::doSetWordWrap>(),
    TROV::row<&E::wordWrap, &P::doWordWrap>(),
    asUserRow<&E::triggerEdit, &P::doimTriggerEdit>(),
    TROV::row<&E::getSelectedRows, &P::doGetSelectedRows>(),
    TROV::row<&E::getSelectionAsText, &P::doGetSelectionAsText>(),
    TROV::row<&E::getSelectionAsHtml, &P::doGetSelectionAsHtml>(),
    TROV::row<&E::copySelection, &P::doCopySelection>(),
    TROV::row<&E::setSortIndicator, &P::doSetSortIndicator>(),
    TROV::row<&E::getSortIndicator, &P::doGetSortIndicator>(),
    TROV::row<&E::setHeaderClickable, &P::doSetHeaderClickable>(),
    TROV::row<&E::isHeaderClickable, &P::doIsHeaderClickable>(),
    TROV::row<&E::setColumnOrder, &P::doSetColumnOrder>(),
    TROV::row<&E::getColumnOrder, &P::doGetColumnOrder>(),
    TROV::row<&E::saveHeaderState, &P::doSaveHeaderState>(),
    TROV::row<&E::restoreHeaderState, &P::doRestoreHeaderState>(),
    TROV::row<&E::setCacheLimit, &P::doSetCacheLimit>(),
    TROV::row<&E::getCacheLimit, &P::doGetCacheLimit>(),
    TROV::row<&E::getColumnHeaderRect, &P::doGetColumnHeaderRect>());
// clang-format on

} // namespace

QtAbstractView2::QtAbstractView2(VXAbstractView2* view, VXAbstractView2Emitters* emitters)
    : QtPeerLevel(view, emitters, s_requests),
      m_host(std::make_unique<QtViewHost>(*this)),
      m_sight(std::make_unique<QtViewSight>(*m_host)),
      m_cacheLimit(100'000)
{}

QtAbstractView2::~QtAbstractView2() = default;

void QtAbstractView2::beginView()
{
    QAbstractItemView& view = itemView();
    view.setBackgroundRole(QPalette::Base);
    m_delegate = new QtViewDelegate2(*m_host, view);
    view.setItemDelegate(m_delegate);
    m_editTriggers = Qt2VX(view.editTriggers());
    installModel(nullptr);
    QObject::connect(&columnHeader(), &QHeaderView::sortIndicatorChanged, &view,
                     [this] { showSortIndicator(); });
}

void QtAbstractView2::endView()
{
    const QtProgramScope scope;
    QAbstractItemView& view = itemView();
    m_copyJob.reset();
    m_sight->end();
    m_delegate->closeIndexWidget(m_delegate->getEditorIndex(), false);
    view.setItemDelegate(nullptr);
    delete std::exchange(m_delegate, nullptr);
    view.setModel(nullptr);
    delete std::exchange(m_model, nullptr);
}

// Requests ----------------------------------------------------------------------------------------

void QtAbstractView2::doSetColor(ColorRole role, Color color)
{
    if (role != ColorRole::Background) {
        QtWidget2::doSetColor(role, color);
        return;
    }
    // Cells are drawn on the one, and what is beside them may be on the other.
    const QBrush brush(QColor(color.red(), color.green(), color.blue()));
    QPalette palette = itemView().palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        palette.setBrush(group, QPalette::Base, brush);
        palette.setBrush(group, QPalette::Window, brush);
    }
    itemView().setPalette(palette);
}

Color QtAbstractView2::doGetColor(ColorRole role)
{
    if (role != ColorRole::Background)
        return QtWidget2::doGetColor(role);
    return Qt2VX(itemView().palette().color(QPalette::Active, QPalette::Base));
}

void QtAbstractView2::doSetViewModel(VXAbstractViewModel2* model) { installModel(model); }

VXAbstractViewModel2* QtAbstractView2::doGetViewModel()
{
    const VXObjectDataLocker lock;
    return m_model->abstractModel();
}

void QtAbstractView2::doSetSelectionMode(SelectionMode mode)
{
    itemView().setSelectionMode(VX2Qt(mode));
}

SelectionMode QtAbstractView2::doGetSelectionMode() { return Qt2VX(itemView().selectionMode()); }

void QtAbstractView2::doSetSelectionBehavior(SelectionBehavior behavior)
{
    itemView().setSelectionBehavior(VX2Qt(behavior));
}

SelectionBehavior QtAbstractView2::doGetSelectionBehavior()
{
    return Qt2VX(itemView().selectionBehavior());
}

void QtAbstractView2::doSetActiveCell(ModelCell2 cell)
{
    const QtProgramScope scope;
    doimSetActiveCell(cell);
}

void QtAbstractView2::doimSetActiveCell(ModelCell2 cell)
{
    const QtDeletionHold hold(this);
    const QModelIndex index = cell.isNull() ? QModelIndex() : askedFor(cell);
    if (!index.isValid() && !cell.isNull())
        return;
    itemView().selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    if (hold.isAlive())
        itemView().viewport()->update();
}

ModelCell2 QtAbstractView2::doGetActiveCell()
{
    return m_model->cellFromIndex(itemView().currentIndex());
}

void QtAbstractView2::doSetAlternatingRowColors(bool on) { itemView().setAlternatingRowColors(on); }
bool QtAbstractView2::doHasAlternatingRowColors() { return itemView().alternatingRowColors(); }

void QtAbstractView2::doSetCacheLimit(int cells)
{
    m_cacheLimit = std::max(cells, 0);
    m_model->setCacheLimit(m_cacheLimit);
}

int QtAbstractView2::doGetCacheLimit() { return m_cacheLimit; }

// Reports -----------------------------------------------------------------------------------------

void QtAbstractView2::connectSignals()
{
    QAbstractItemView& view = itemView();
    const QHeaderView& header = columnHeader();
    QObject::connect(&view, &QAbstractItemView::activated, &view,
                     [this](const QModelIndex& index) { reportActivation(index); });
    QObject::connect(&header, &QHeaderView::sectionClicked, &view,
                     [this](int section) { reportHeaderClick(section); });
    QObject::connect(&header, &QHeaderView::sectionResized, &view,
                     [this](int section, int, int width) { reportColumnWidth(section, width); });
    QObject::connect(
        &header, &QHeaderView::sectionMoved, &view,
        [this](int section, int from, int to) { reportColumnMove(section, from, to); });
    for (const QScrollBar* bar : {view.horizontalScrollBar(), view.verticalScrollBar()})
        QObject::connect(bar, &QScrollBar::valueChanged, &view, [this] { reportScroll(); });
}

// Helpers -----------------------------------------------------------------------------------------

QAbstractItemView& QtAbstractView2::itemView() const
{
    return static_cast<QAbstractItemView&>(*asQWidget());
}

void QtAbstractView2::installModel(VXAbstractViewModel2* model)
{
    QAbstractItemView& view = itemView();
    auto* const made = new QtViewModel2(model, nullptr, &view);
    if (model && !made->hasModel()) { // it is dead
        delete made;
        return;
    }
    const QtProgramScope scope;
    m_delegate->closeIndexWidget(m_delegate->getEditorIndex(), false);
    m_host->clearQueuedEvents();
    m_copyJob.reset();
    QtViewModel2* const former = m_model;
    m_model = made;
    m_model->setCacheLimit(m_cacheLimit);
    m_delegate->clearPaintCache();
    swapModels(view, *m_model, former);
    QObject::connect(m_model, &QtViewModel2::aboutToChangeSize, &view,
                     [this] { m_sight->remember(); });
    QObject::connect(m_model, &QtViewModel2::sizeChanged, &view, [this] { sizeChanged(); });
    QObject::connect(m_model, &QtViewModel2::dataChanged, &view, [this] { noteAnswers(); });
    m_hiddenWidths.clear();
    m_sort = {};
    showSortIndicator();
    m_sight->modelReplaced();
}

QModelIndex QtAbstractView2::indexOf(unsigned row, unsigned column) const
{
    return m_model->indexFromUIDs(row, column);
}

QModelIndex QtAbstractView2::indexOf(const ModelCell2& cell) const
{
    const VXObjectDataLocker lock;
    return !cell.isNull() && cell.model == m_model->abstractModel() ? indexOf(cell.row, cell.column)
                                                                    : QModelIndex();
}

QModelIndex QtAbstractView2::askedFor(unsigned row, unsigned column, CallPlace where) const
{
    const QModelIndex index = indexOf(row, column);
    if (!index.isValid())
        ignored(*this, NoCell, where);
    return index;
}

QModelIndex QtAbstractView2::askedFor(const ModelCell2& cell, CallPlace where) const
{
    const QModelIndex index = indexOf(cell);
    if (!index.isValid())
        ignored(*this, NoCell, where);
    return index;
}

/// The section of a column; -1 where that is not there.
int QtAbstractView2::askedForColumn(unsigned column, CallPlace where) const
{
    const int section = columnSection(column);
    if (section < 0)
        ignored(*this, "the model shown has no such column", where);
    return section;
}

int QtAbstractView2::fixedRowHeight(const QModelIndex&) const { return -1; }

void QtAbstractView2::sizeChanged()
{
    m_sight->changed();
    if (m_sort.column != 0 && !m_model->isValidColumn(m_sort.column))
        m_sort = {};
    showSortIndicator();
    std::erase_if(m_hiddenWidths,
                  [&](const auto& entry) { return !m_model->isValidColumn(entry.first); });
}

} // namespace VOXI
