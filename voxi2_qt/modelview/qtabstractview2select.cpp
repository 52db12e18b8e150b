// The part of QtAbstractView2 that is about what is selected.

#include "../kernel/qtignored.h"
#include "qtcopiedcells.h"
#include "qtcopyjob.h"
#include "qtviewmodel2.h"
#include "qtviewsight.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"
#include "voxi2_qt/modelview/qtabstractview2.h"

#include <QHeaderView>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

using E = VXAbstractView2Emitters;

/// Runs of numbers that follow one another, as pairs of the first and the last.
std::vector<std::pair<int, int>> runsOf(std::vector<int> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    std::vector<std::pair<int, int>> runs;
    for (const int number : numbers) {
        if (runs.empty() || number > runs.back().second + 1)
            runs.emplace_back(number, number);
        else
            runs.back().second = number;
    }
    return runs;
}

/// Whole rows, of any parents.
QItemSelection rowsOf(const QtAbstractView2& view, const std::vector<unsigned>& rows,
                      CallPlace where = CallPlace::current())
{
    const QtViewModel2& model = view.viewModel();
    std::map<unsigned, std::vector<int>> places;
    for (const unsigned row : rows) {
        if (model.isValidRow(row))
            places[model.parentRow(row)].push_back(model.rowFromUID(row));
        else
            ignored(view, "the model shown has no such row", where);
    }
    QItemSelection selection;
    const int last = model.columnCount() - 1;
    for (auto& [parent, numbers] : places) {
        const QModelIndex above = model.indexFromUIDs(parent, 0);
        for (const auto& [from, to] : runsOf(std::move(numbers)))
            selection.append(
                QItemSelectionRange(model.index(from, 0, above), model.index(to, last, above)));
    }
    return selection;
}

} // namespace

// Requests ----------------------------------------------------------------------------------------

void QtAbstractView2::doSetSelection(ModelRange range)
{
    const QtProgramScope scope;
    internalSetSelection(range);
}

void QtAbstractView2::doimSetSelection(ModelRange range) { internalSetSelection(range); }

std::vector<ModelCell2> QtAbstractView2::doGetSelection()
{
    const VXObjectDataLocker lock;
    return VXViewSelectionChangeEvent2(nullptr, m_model->abstractModel(), selectedBlocks()).cells();
}

void QtAbstractView2::doSelectRows(const std::vector<unsigned>& rows)
{
    if (m_model->headerUIDFromSection(0, Qt::Horizontal) != 0)
        select(rowsOf(*this, rows));
}

void QtAbstractView2::doSelectColumns(const std::vector<unsigned>& columns)
{
    if (m_model->rowCount() == 0)
        return;
    std::vector<int> sections;
    for (const unsigned column : columns) {
        if (const int section = askedForColumn(column); section >= 0)
            sections.push_back(section);
    }
    QItemSelection selection;
    for (const auto& [from, to] : runsOf(std::move(sections)))
        selection.append(QItemSelectionRange(m_model->index(0, from),
                                             m_model->index(m_model->rowCount() - 1, to)));
    select(selection);
}

void QtAbstractView2::doSelectAll()
{
    const QtProgramScope scope;
    itemView().selectAll();
}

void QtAbstractView2::doClearSelection()
{
    const QtProgramScope scope;
    itemView().clearSelection();
}

bool QtAbstractView2::doIsSelected(unsigned row, unsigned column)
{
    const QModelIndex index = indexOf(row, column);
    if (!index.isValid())
        return false;
    // Qt says no of cells that are not known, since they might be disabled.
    if (m_model->isKnown(index))
        return itemView().selectionModel()->isSelected(index);
    const QItemSelection selection = itemView().selectionModel()->selection();
    return std::any_of(selection.begin(), selection.end(),
                       [&](const auto& range) { return range.contains(index); });
}

std::vector<unsigned> QtAbstractView2::doGetSelectedRows()
{
    return VXViewSelectionChangeEvent2(nullptr, nullptr, selectedBlocks()).rows();
}

std::wstring QtAbstractView2::doGetSelectionAsText()
{
    return toStdWString(QtCopiedCells(*this, selectedBlocks()).text());
}

std::wstring QtAbstractView2::doGetSelectionAsHtml()
{
    return toStdWString(QtCopiedCells(*this, selectedBlocks()).html());
}

void QtAbstractView2::doCopySelection()
{
    m_copyJob = std::make_unique<QtCopyJob>(*this, selectedBlocks());
    m_sight->tell();
    m_copyJob->start();
}

// Reports -----------------------------------------------------------------------------------------

void QtAbstractView2::noteSelection()
{
    if (QtProgramScope::isActive() || m_model->isBlockingSelection()
        || !isHeard(&E::selectionChanged))
        return;
    const VXObjectDataLocker lock;
    report(&E::selectionChanged, m_model->abstractModel(), selectedBlocks());
}

// Helpers -----------------------------------------------------------------------------------------

void QtAbstractView2::internalSetSelection(const ModelRange& range, CallPlace where)
{
    const QModelIndex topLeft = indexOf(range.topLeft);
    const QModelIndex bottomRight = indexOf(range.bottomRight);
    if (!topLeft.isValid() || !bottomRight.isValid() || topLeft.parent() != bottomRight.parent()) {
        ignored(*this, "the model shown has no such range", where);
        return;
    }
    QItemSelectionModel::SelectionFlags flags = QItemSelectionModel::Select;
    if (itemView().selectionBehavior() == QAbstractItemView::SelectRows)
        flags |= QItemSelectionModel::Rows;
    else if (itemView().selectionBehavior() == QAbstractItemView::SelectColumns)
        flags |= QItemSelectionModel::Columns;
    const QtDeletionHold hold(this);
    itemView().selectionModel()->select(QItemSelection(topLeft, bottomRight), flags);
    if (hold.isAlive())
        itemView().viewport()->repaint();
}

void QtAbstractView2::copyDone()
{
    m_copyJob.reset();
    m_sight->scrolled(); // what was copied need not be kept
}

void QtAbstractView2::addWanted(std::vector<unsigned>& rows, std::vector<unsigned>& columns) const
{
    if (!m_copyJob || m_copyJob->rows().empty())
        return;
    rows.insert(rows.end(), m_copyJob->rows().begin(), m_copyJob->rows().end());
    columns.insert(columns.end(), m_copyJob->columns().begin(), m_copyJob->columns().end());
}

/// For the program: nothing of it is reported.
void QtAbstractView2::select(const QItemSelection& selection)
{
    {
        const QtSignalBlocker blocker(itemView().selectionModel());
        itemView().selectionModel()->select(selection, QItemSelectionModel::Select);
    }
    itemView().viewport()->update();
    for (auto* const header : itemView().findChildren<QHeaderView*>())
        header->viewport()->update(); // it shows what is selected as well
}

std::vector<ModelBlock> QtAbstractView2::selectedBlocks() const
{
    QItemSelection selection = itemView().selectionModel()->selection();
    std::sort(selection.begin(), selection.end(), [](const auto& a, const auto& b) {
        if (a.parent() == b.parent())
            return std::pair(a.top(), a.left()) < std::pair(b.top(), b.left());
        return rowPath(a.topLeft()) < rowPath(b.topLeft());
    });
    std::vector<ModelBlock> blocks;
    for (const QItemSelectionRange& range : selection) {
        if (!range.isValid())
            continue;
        ModelBlock block;
        block.rows.reserve(static_cast<std::size_t>(range.height()));
        for (int row = range.top(); row <= range.bottom(); ++row)
            block.rows.push_back(
                m_model->rowFromIndex(m_model->index(row, range.left(), range.parent())));
        for (int section = range.left(); section <= range.right(); ++section)
            block.columns.push_back(m_model->headerUIDFromSection(section, Qt::Horizontal));
        blocks.push_back(std::move(block));
    }
    return blocks;
}

} // namespace VOXI
