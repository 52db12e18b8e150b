#pragma once

#include "cellcache.h"
#include "columnlist.h"
#include "pendingqueries.h"
#include "rowforest.h"
#include "voxi2/modelview/viewmodellink2.h"

#include <QHash>

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace VOXI {

/// What a view asks its model: whole blocks of cells, and nothing twice at a time.
class ViewQueries
{
public:
    using Uid = RowForest::Uid;
    using Uids = std::vector<Uid>;
    using Cell = CellCache::Cell;

    ViewQueries(VXAbstractViewModel2* model, const RowForest& rows, const ColumnList& columns)
        : m_link(model),
          m_rows(rows),
          m_columns(columns)
    {}

    ViewModelLink2& link() { return m_link; }

    /// For the cells around one of which nothing is known.
    void askAround(Uid row, int column);
    /// For cells that have changed.
    void ask(Uid parent, Uids rows, Uids columns);
    /// The same for sections.
    void askAroundSection(int section, Orientation orientation);
    void askSections(Orientation orientation, Uids sections);

    using PendingCells = PendingQueries<ViewQuery2>;
    using PendingSections = PendingQueries<HeaderQuery2>;
    /// Of an answer, by the query's id; nothing if it is to none of the view's.
    std::optional<PendingCells::Pending> takeCells(unsigned id);
    std::optional<PendingSections::Pending> takeSections(unsigned id);
    /// Asks anew for what had changed when it was answered.
    void askAnew(const PendingCells::Pending& answered);
    void askAnew(const PendingSections::Pending& answered);

    /// An answer said nothing of a cell that it was asked for.
    void addVain(Cell cell) { ++m_vain[cell]; }
    /// The view has other cells in sight: what was asked for in vain may be asked for again.
    void forgetVain();

    /// Answers to what is on its way may be older than a change of all cells, of those for which
    /// `isChanged` is true, of sections.
    void cellsAreOld();
    template <class IsChanged>
    void cellsAreOld(const IsChanged& isChanged);
    void sectionsAreOld();
    template <class IsChanged>
    void sectionsAreOld(const IsChanged& isChanged);
    /// Rows or columns came or went.
    void shapeChanged();

private:
    struct Block
    {
        Uid parent = 0;
        int row = -1;
        int column = -1;

        friend bool operator==(const Block&, const Block&) = default;
    };

    void send(Uid parent, Uids rows, Uids columns, bool hasChanged);
    void sendHeader(Orientation orientation, Uids sections, bool hasChanged);
    Uids expanderRows(const Uids& rows) const;

    ViewModelLink2 m_link;
    const RowForest& m_rows;
    const ColumnList& m_columns;
    PendingCells m_pending;
    PendingSections m_pendingSections;
    /// Asked for last, and not answered: views ask for all of its cells, ten times each.
    Block m_lastBlock;
    /// The first section of the block that was asked for last, of rows and of columns; as above.
    static constexpr std::array NoSections{-1, -1};
    std::array<int, 2> m_lastSections = NoSections;
    /// Cells that were answered without a word of them, and how often: after the second time they
    /// are taken for empty. A view that is repainted because others are known would ask for ever.
    QHash<Cell, int> m_vain;
};

template <class IsChanged>
void ViewQueries::cellsAreOld(const IsChanged& isChanged)
{
    m_lastBlock = {};
    m_vain.clear();
    m_pending.forEach([&](PendingCells::Pending& pending) {
        pending.isOld = pending.isOld || isChanged(pending.query);
    });
}

template <class IsChanged>
void ViewQueries::sectionsAreOld(const IsChanged& isChanged)
{
    m_lastSections = NoSections;
    m_pendingSections.forEach([&](PendingSections::Pending& pending) {
        pending.isOld = pending.isOld || isChanged(pending.query);
    });
}

} // namespace VOXI
