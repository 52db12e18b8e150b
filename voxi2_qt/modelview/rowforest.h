#pragma once

#include "uidtable.h"

#include <cstdint>
#include <deque>
#include <span>
#include <vector>

namespace VOXI {

/// Which rows there are, named by UIDs, under which row each stands and in which order: the shape
/// of a table or tree whose cells are elsewhere. Rows without a parent stand under 0.
///
/// Everything takes O(log n), what is asked near the last place O(1), beside the rows that come or
/// go. The rows under one parent are a B+tree whose nodes count the rows below them.
class RowForest
{
public:
    using Uid = UidTable::Uid;

    struct Place
    {
        Uid parent = 0;
        /// -1: there is no such row.
        int row = -1;

        friend bool operator==(const Place&, const Place&) = default;
    };

    /// What is known of rows that may stand under a row and are not here.
    enum class HasChildren { Unknown, No, Yes };

    RowForest() = default;
    ~RowForest() { giveBack(); }
    RowForest(const RowForest&) = delete;
    RowForest& operator=(const RowForest&) = delete;

    bool contains(Uid row) const { return leafOf(row) != NoNode; }
    int rowCount(Uid parent) const;
    /// 0 when there is none.
    Uid at(Uid parent, int row) const
    {
        const auto place = static_cast<std::size_t>(std::int64_t(row) - m_finger.first);
        if (parent == m_finger.parent && place < m_finger.rows.size())
            return m_finger.rows[place];
        return findAt(parent, row);
    }
    Place placeOf(Uid row) const;
    std::vector<Uid> children(Uid parent) const;

    /// Those of the rows that `insert` takes: without 0, those that are here, and repetitions. If
    /// some are left out, the others are put into `room`. Who knows that they ascend may say so.
    std::span<const Uid> insertable(std::span<const Uid> rows, std::vector<Uid>& room,
                                    bool areAscending = false) const;
    /// At a position of 0 to rowCount(parent). False, and nothing happens, unless all rows can be
    /// taken and `parent` is 0 or here.
    bool insert(Uid parent, int position, std::span<const Uid> rows, bool areAscending = false);
    /// With all that stands below them. Gives all rows that are gone, in no order; none when there
    /// are no such rows.
    std::vector<Uid> remove(Uid parent, int first, int count);
    void clear();

    /// Kept as long as the row is here, whatever comes and goes below it.
    HasChildren hasChildren(Uid row) const;
    /// Of a row that is not here it is forgotten.
    void setHasChildren(Uid row, HasChildren answer);

private:
    using Number = std::uint32_t;

    struct Node
    {
        /// The rows of a leaf, the nodes below of any other.
        std::vector<std::uint32_t> items;
        /// How many rows are below each of those nodes; empty in a leaf.
        std::vector<std::uint32_t> counts;
        /// The node above; for a root the row that all its rows stand under.
        std::uint32_t up = 0;
        bool isRoot = true;

        bool isLeaf() const { return counts.empty(); }
        std::size_t capacity() const { return isLeaf() ? LeafCapacity : InnerCapacity; }
        std::uint32_t rowCount() const;
    };

    /// Rows that came in ascending order, from `first` to the next run's, and stand in the leaf
    /// unless the table says otherwise.
    struct Run
    {
        Uid first;
        Number leaf;
    };

    /// The leaf that was looked at last. Every change lets go of it.
    struct Finger
    {
        Number leaf = NoNode;
        Uid parent = 0;
        /// Where in its list the leaf begins.
        int first = 0;
        int rowCount = 0;
        std::span<const Uid> rows;
    };

    static constexpr std::size_t LeafCapacity = 256;
    static constexpr std::size_t InnerCapacity = 32;
    static constexpr Number NoNode = ~Number(0) >> 2;

    Number leafOf(Uid row) const;
    Number leafInRuns(Uid row) const;
    Number leafAt(Uid parent, std::uint32_t& row) const;
    Uid findAt(Uid parent, int row) const;
    void pointAt(Number leaf) const;
    std::size_t placeAbove(Number node) const;
    template <class Function>
    void visit(Number root, const Function& function) const;

    bool isRun(std::span<const Uid> rows, bool areAscending) const;
    void insertRun(Uid parent, std::span<const Uid> rows);
    void insertItems(Number number, std::size_t place, std::span<const std::uint32_t> items);
    void split(Number number);
    void insertBehind(Number number, std::span<const Number> added);
    void adopt(Number number, std::size_t first, std::size_t count);
    void addRows(Number leaf, std::ptrdiff_t difference);
    void closeGaps(Number number);
    bool merge(Number above, std::size_t place);
    void takeAll(Uid parent, std::vector<Uid>& rows);
    void dropRuns();
    void giveBack();
    void setRoot(Uid parent, Number root);
    Number newNode();
    void freeNode(Number number);

    std::deque<Node> m_nodes;
    std::vector<Number> m_freeNodes;
    /// For each parent that has rows the root of their tree.
    UidTable m_roots;
    /// For a row its leaf, and what is known of its children in the lowest bits.
    UidTable m_leaves;
    /// Ascending; looked into for rows that are not in the table, which would take twenty times as
    /// long to fill and three times the memory.
    std::vector<Run> m_runs;
    std::size_t m_runLimit = 64;
    /// There has not been a greater UID since the last clear.
    Uid m_greatest = 0;
    mutable Finger m_finger;
};

} // namespace VOXI
