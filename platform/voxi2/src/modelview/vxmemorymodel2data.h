#pragma once

#include "siblings.h"
#include "voxi2/modelview/vxmemorymodel2.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

namespace VOXI {

/// Rows in two orders: as they were put, linked to each other, and as they are shown, which is the
/// same without those that the filter hides, or, when sorted, a set below each row.
///
/// A row is shown when the filter lets it pass or a row below it is shown.
class VXMemoryModel2::Data
{
public:
    explicit Data(VXMemoryModel2* model) : m_model(model) { m_rows[0].isShown = true; }

    struct Column
    {
        unsigned uid;
        CellUIData header;
    };

    // Columns -------------------------------------------------------------------------------------

    std::vector<Column>::iterator findColumn(unsigned uid)
    {
        return std::find_if(m_columns.begin(), m_columns.end(),
                            [uid](const Column& column) { return column.uid == uid; });
    }
    bool hasColumn(unsigned uid) const { return uid < m_isColumn.size() && m_isColumn[uid]; }

    unsigned insertColumn(unsigned before, CellUIData header)
    {
        const auto uid = static_cast<unsigned>(m_isColumn.size());
        m_isColumn.push_back(true);
        const auto place = findColumn(before);
        if (place == m_columns.end())
            tell(SizeChange2::appendColumns({uid}));
        else
            tell(SizeChange2::insertColumnsBefore(before, {uid}));
        m_columns.insert(place, {uid, std::move(header)});
        return uid;
    }

    void removeColumn(unsigned uid)
    {
        if (m_sorting.column == uid)
            sort({});
        m_columns.erase(findColumn(uid));
        m_isColumn[uid] = false;
        for (auto& [number, row] : m_rows) {
            if (uid <= row.cells.size())
                row.cells[uid - 1] = {};
        }
        tell(SizeChange2::removeColumn(uid));
        if (m_filter)
            filter(*m_filter); // which may have seen what was in it
    }

    // Cells ---------------------------------------------------------------------------------------

    const CellUIData& cell(unsigned uid, unsigned column) const
    {
        static const CellUIData none;
        const auto row = m_rows.find(uid);
        return row != m_rows.end() && hasColumn(column) && column <= row->second.cells.size()
                   ? row->second.cells[column - 1]
                   : none;
    }

    template <class Change>
    bool changeCell(unsigned uid, unsigned column, const Change& change)
    {
        if (!hasRow(uid) || !hasColumn(column))
            return false;
        Row& row = m_rows[uid];
        if (row.cells.size() < column)
            row.cells.resize(column);
        if (row.isShown && isSorted() && column == m_sorting.column)
            changeInOrder(uid, [&] { change(row.cells[column - 1]); });
        else
            change(row.cells[column - 1]);
        if (row.isShown)
            m_model->changeData(uid, column);
        update(uid);
        return true;
    }

    // Rows ----------------------------------------------------------------------------------------

    bool hasRow(unsigned uid) const { return uid != 0 && m_rows.contains(uid); }

    unsigned add(unsigned parent, unsigned before, std::vector<CellUIData> cells)
    {
        if (!m_rows.contains(parent))
            return 0;
        const unsigned uid = ++m_lastRow;
        m_rows[uid].cells = std::move(cells);
        link(uid, parent, before);
        update(uid);
        return uid;
    }

    void remove(unsigned uid)
    {
        conceal(uid);
        eraseSibling(m_rows, uid);
    }

    /// False where there is none of them, or it would be below itself.
    bool move(unsigned uid, unsigned parent, unsigned before)
    {
        if (!hasRow(uid) || !m_rows.contains(parent))
            return false;
        for (unsigned above = parent; above != 0; above = m_rows[above].parent) {
            if (above == uid)
                return false;
        }
        if (before == uid)
            return true;
        const bool isShown = m_rows[uid].isShown;
        conceal(uid);
        unlinkSibling(m_rows, uid);
        link(uid, parent, before);
        if (isShown)
            reveal(uid);
        return true;
    }

    void clear()
    {
        tell(SizeChange2::removeRows(shownRows(0)));
        m_rows.clear();
        m_rows[0].isShown = true;
    }

    void promiseChildren(unsigned uid, bool has)
    {
        m_rows[uid].promisesChildren = has;
        if (m_rows[uid].isShown)
            tell(SizeChange2::hasChildren(uid, hasChildren(uid)));
    }
    bool hasChildren(unsigned uid) const
    {
        const Row& row = m_rows.at(uid);
        return row.shownChildren > 0 || row.promisesChildren;
    }

    std::vector<unsigned> shownRows(unsigned parent) const
    {
        const auto found = m_rows.find(parent);
        if (found == m_rows.end())
            return {};
        if (const auto& order = found->second.order)
            return {order->begin(), order->end()};
        std::vector<unsigned> result;
        result.reserve(found->second.shownChildren);
        for (unsigned child = found->second.first; child != 0; child = m_rows.at(child).next) {
            if (m_rows.at(child).isShown)
                result.push_back(child);
        }
        return result;
    }

    /// Calls `function` with changes that insert all that is shown below the row.
    template <class Function>
    void describeBelow(unsigned uid, const Function& function) const
    {
        std::vector<unsigned> parents{uid};
        for (std::size_t i = 0; i < parents.size(); ++i) {
            std::vector<unsigned> children = shownRows(parents[i]);
            for (const unsigned child : children) {
                if (m_rows.at(child).shownChildren > 0)
                    parents.push_back(child);
            }
            if (!children.empty())
                function(SizeChange2::appendRows(std::move(children), parents[i]));
        }
    }

    // Sorting and filtering -----------------------------------------------------------------------

    void sort(SortIndicator sorting)
    {
        if (m_model->isShown() && m_rows[0].shownChildren > 0)
            tell(SizeChange2::removeRows(shownRows(0)));
        for (auto& [uid, row] : m_rows)
            row.order.reset();
        m_sorting = sorting;
        if (isSorted()) {
            for (auto& [uid, row] : m_rows) {
                if (row.shownChildren > 0)
                    makeOrder(uid, row);
            }
        }
        if (m_model->isShown())
            describeBelow(0, [this](SizeChange2 change) { tell(std::move(change)); });
    }

    void filter(Filter function);

    VXMemoryModel2* const m_model;
    std::vector<Column> m_columns;
    SortIndicator m_sorting;
    Comparison m_comparison;
    std::size_t size() const { return m_rows.size() - 1; }
    unsigned parentOf(unsigned uid) const { return m_rows.at(uid).parent; }

private:
    struct InOrder
    {
        const Data* m_data;
        bool operator()(unsigned a, unsigned b) const
        {
            const unsigned column = m_data->m_sorting.column;
            return m_data->isBefore(a, m_data->cell(a, column), b, m_data->cell(b, column));
        }
    };
    struct Row : Siblings
    {
        bool passes = false;
        bool isShown = false;
        bool promisesChildren = false;
        unsigned shownChildren = 0;
        unsigned judged = 0;                                // how often
        std::unique_ptr<std::set<unsigned, InOrder>> order; // of those; null when not sorted
        std::vector<CellUIData> cells;                      // by the columns' numbers
    };

    /// What the filter says of a row.
    struct Judgement
    {
        unsigned uid;
        unsigned number; // among those of the row
        bool passes;
    };

    bool isSorted() const { return m_sorting.column != 0; }

    bool isBefore(unsigned a, const CellUIData& cellA, unsigned b, const CellUIData& cellB) const
    {
        const std::weak_ordering order = m_comparison
                                             ? m_comparison(cellA, cellB)
                                             : CellValue::compare(cellA.value(), cellB.value());
        if (order == 0)
            return a < b;
        return m_sorting.order == SortOrder::Ascending ? order < 0 : order > 0;
    }

    void tell(SizeChange2 change) { m_model->changeSize(std::move(change)); }

    void link(unsigned uid, unsigned parent, unsigned before)
    {
        const auto sibling = m_rows.find(before);
        const bool isSibling =
            before != 0 && sibling != m_rows.end() && sibling->second.parent == parent;
        linkSibling(m_rows, uid, parent,
                    isSibling ? sibling->second.previous : m_rows[parent].last);
    }

    /// The next row of the tree as rows were put.
    unsigned following(unsigned uid) const
    {
        const Row* row = &m_rows.at(uid);
        if (row->first != 0)
            return row->first;
        while (row->next == 0 && row->parent != 0)
            row = &m_rows.at(row->parent);
        return row->next;
    }

    /// Asks the filter about a row, if that is there; nothing where the model has ended by then. A
    /// filter that asks a widget waits for another thread, which may change the model meanwhile, or
    /// set another one.
    std::optional<Judgement> judge(unsigned uid);
    /// Unless the row has gone, or has been judged again.
    bool accept(const Judgement& judgement);
    /// Looks whether a row is to be shown now; the last thing that is done for it.
    void update(unsigned uid);

    /// Shows a row, and those above it.
    void reveal(unsigned uid)
    {
        for (;; uid = m_rows[uid].parent) {
            Row& row = m_rows[uid];
            row.isShown = true;
            Row& parent = m_rows[row.parent];
            ++parent.shownChildren;
            if (isSorted())
                order(parent).insert(uid);
            if (parent.isShown)
                break;
        }
        tellInserted(uid);
    }

    /// Hides a row, and those above it that were shown for its sake.
    void conceal(unsigned uid)
    {
        if (!m_rows[uid].isShown)
            return;
        for (;; uid = m_rows[uid].parent) {
            Row& row = m_rows[uid];
            row.isShown = false;
            Row& parent = m_rows[row.parent];
            --parent.shownChildren;
            if (parent.order)
                parent.order->erase(uid);
            if (row.parent == 0 || parent.passes || parent.shownChildren > 0)
                break;
        }
        tell(SizeChange2::removeRow(uid));
        const unsigned parent = m_rows[uid].parent;
        if (parent != 0 && !hasChildren(parent))
            tell(SizeChange2::hasChildren(parent, false));
    }

    std::set<unsigned, InOrder>& order(Row& parent)
    {
        if (!parent.order)
            parent.order = std::make_unique<std::set<unsigned, InOrder>>(InOrder{this});
        return *parent.order;
    }

    void makeOrder(unsigned uid, Row& parent)
    {
        // Each cell is looked up once.
        std::vector<std::pair<const CellUIData*, unsigned>> keys;
        for (const unsigned child : shownRows(uid))
            keys.emplace_back(&cell(child, m_sorting.column), child);
        std::sort(keys.begin(), keys.end(), [this](const auto& a, const auto& b) {
            return isBefore(a.second, *a.first, b.second, *b.first);
        });
        std::set<unsigned, InOrder>& sorted = order(parent);
        for (const auto& key : keys)
            sorted.insert(sorted.end(), key.second);
    }

    /// Changes what a shown row is sorted by.
    template <class Change>
    void changeInOrder(unsigned uid, const Change& change)
    {
        const auto before = neighbours(uid);
        std::set<unsigned, InOrder>& sorted = *m_rows[m_rows[uid].parent].order;
        sorted.erase(uid);
        change();
        sorted.insert(uid);
        if (neighbours(uid) != before) {
            tell(SizeChange2::removeRow(uid));
            tellInserted(uid);
        }
    }

    /// Those that are beside a row of a sorted list; 0 for none.
    std::pair<unsigned, unsigned> neighbours(unsigned uid) const
    {
        const auto& sorted = *m_rows.at(m_rows.at(uid).parent).order;
        const auto place = sorted.find(uid);
        const auto next = std::next(place);
        return {place == sorted.begin() ? 0 : *std::prev(place), next == sorted.end() ? 0 : *next};
    }

    /// How views are told of a row.
    SizeChange2 insertion(unsigned uid) const
    {
        const unsigned parent = m_rows.at(uid).parent;
        unsigned previous = m_rows.at(uid).previous;
        unsigned next = m_rows.at(uid).next;
        if (isSorted()) {
            std::tie(previous, next) = neighbours(uid);
        } else {
            // To both sides at once: one of them is near, except between many hidden rows.
            while (next != 0 && !m_rows.at(next).isShown && previous != 0
                   && !m_rows.at(previous).isShown) {
                next = m_rows.at(next).next;
                previous = m_rows.at(previous).previous;
            }
        }
        if (next == 0)
            return SizeChange2::appendRows({uid}, parent);
        if (previous == 0)
            return SizeChange2::prependRows({uid}, parent);
        if (m_rows.at(previous).isShown)
            return SizeChange2::insertRowsAfter(previous, {uid}, parent);
        return SizeChange2::insertRowsBefore(next, {uid}, parent);
    }

    void tellInserted(unsigned uid)
    {
        if (!m_model->isShown())
            return;
        tell(insertion(uid));
        if (m_rows[uid].shownChildren > 0)
            describeBelow(uid, [this](SizeChange2 change) { tell(std::move(change)); });
    }

    std::vector<bool> m_isColumn{false}; // by number
    std::unordered_map<unsigned, Row> m_rows;
    unsigned m_lastRow = 0;
    std::shared_ptr<const Filter> m_filter; // null: all pass
};

} // namespace VOXI
