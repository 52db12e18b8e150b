#include "rowforest.h"

#include "voxi_util/ascending.h"

#include <QThreadPool>

#include <algorithm>
#include <limits>
#include <memory>
#include <numeric>
#include <utility>

namespace VOXI {

namespace {
constexpr std::uint32_t AnswerBits = 2;
constexpr std::uint32_t AnswerMask = (1u << AnswerBits) - 1;

using Numbers = std::vector<std::uint32_t>;

/// Where a value stands; the size when it does not. In blocks, each of which a compiler compares
/// at once.
std::size_t placeIn(const Numbers& items, std::uint32_t value)
{
    constexpr std::size_t Block = 16;
    std::size_t place = 0;
    for (; place + Block <= items.size(); place += Block) {
        std::uint32_t found = 0;
        for (std::size_t i = 0; i < Block; ++i)
            found |= items[place + i] == value;
        if (found)
            break;
    }
    while (place < items.size() && items[place] != value)
        ++place;
    return place;
}

std::ptrdiff_t toDistance(std::size_t size) { return static_cast<std::ptrdiff_t>(size); }

void eraseAt(Numbers& items, std::size_t place, std::size_t count = 1)
{
    const auto first = items.begin() + toDistance(place);
    items.erase(first, first + toDistance(count));
}

/// Makes no more room than a full node needs.
void insertAt(Numbers& items, std::size_t place, std::span<const std::uint32_t> added,
              std::size_t capacity)
{
    const std::size_t size = items.size() + added.size();
    if (size > items.capacity())
        items.reserve(std::max(size, std::min(2 * items.size(), capacity)));
    items.insert(items.begin() + toDistance(place), added.begin(), added.end());
}

/// Calls `function(first, count)` for equal parts of what is too much for one node. They are not
/// quite full, so that what comes next finds room.
template <class Function>
void forParts(std::size_t size, std::size_t capacity, const Function& function)
{
    const std::size_t wanted = capacity / 4 * 3;
    const std::size_t parts = (size + wanted - 1) / wanted;
    for (std::size_t part = 0; part < parts; ++part) {
        const std::size_t first = part * size / parts;
        function(first, (part + 1) * size / parts - first);
    }
}

void assignPart(Numbers& items, std::span<const std::uint32_t> part, std::size_t capacity)
{
    items.reserve(capacity);
    items.assign(part.begin(), part.end());
}
} // namespace

std::uint32_t RowForest::Node::rowCount() const
{
    return isLeaf() ? static_cast<std::uint32_t>(items.size())
                    : std::accumulate(counts.begin(), counts.end(), std::uint32_t(0));
}

int RowForest::rowCount(Uid parent) const
{
    if (parent == m_finger.parent && m_finger.leaf != NoNode)
        return m_finger.rowCount;
    const Number* root = m_roots.find(parent);
    return root ? static_cast<int>(m_nodes[*root].rowCount()) : 0;
}

RowForest::Place RowForest::placeOf(Uid row) const
{
    const Number leaf = leafOf(row);
    if (leaf == NoNode)
        return {};
    if (leaf != m_finger.leaf)
        pointAt(leaf);
    return {m_finger.parent, m_finger.first + static_cast<int>(placeIn(m_nodes[leaf].items, row))};
}

std::vector<RowForest::Uid> RowForest::children(Uid parent) const
{
    std::vector<Uid> rows;
    if (const Number* root = m_roots.find(parent)) {
        rows.reserve(m_nodes[*root].rowCount());
        visit(*root, [&](Number number) {
            const Node& node = m_nodes[number];
            if (node.isLeaf())
                rows.insert(rows.end(), node.items.begin(), node.items.end());
        });
    }
    return rows;
}

std::span<const RowForest::Uid> RowForest::insertable(std::span<const Uid> rows,
                                                      std::vector<Uid>& room,
                                                      bool areAscending) const
{
    if (isRun(rows, areAscending))
        return rows;
    room.clear();
    UidTable seen;
    for (const Uid row : rows) {
        if (row != 0 && !contains(row) && std::exchange(seen[row], 1) == 0)
            room.push_back(row);
    }
    return room;
}

bool RowForest::insert(Uid parent, int position, std::span<const Uid> rows, bool areAscending)
{
    const int before = rowCount(parent);
    if (position < 0 || position > before || (parent != 0 && !contains(parent))
        || rows.size() > std::size_t(std::numeric_limits<int>::max() - before))
        return false;
    if (rows.empty())
        return true;
    m_finger = {};
    if (rows.size() > LeafCapacity && position == before && isRun(rows, areAscending)) {
        insertRun(parent, rows);
        return true;
    }
    if (rows.size() > LeafCapacity)
        m_leaves.makeRoom(rows.size());
    for (auto row = rows.begin(); row != rows.end(); ++row) {
        // It gets any leaf, until one takes it.
        if (*row == 0 || leafInRuns(*row) != NoNode || !m_leaves.add(*row)) {
            std::for_each(rows.begin(), row, [this](Uid taken) { m_leaves.remove(taken); });
            return false;
        }
        m_greatest = std::max(m_greatest, *row);
    }
    if (before == 0)
        setRoot(parent, newNode());
    auto place = static_cast<std::uint32_t>(position);
    const Number leaf = leafAt(parent, place);
    addRows(leaf, toDistance(rows.size()));
    insertItems(leaf, place, rows);
    return true;
}

std::vector<RowForest::Uid> RowForest::remove(Uid parent, int first, int count)
{
    std::vector<Uid> rows;
    const int before = rowCount(parent);
    if (first < 0 || count <= 0 || first > before - count)
        return rows;

    m_finger = {};
    if (count == before)
        takeAll(parent, rows);
    while (rows.size() < static_cast<std::size_t>(count)) {
        auto place = static_cast<std::uint32_t>(first);
        const Number leaf = leafAt(parent, place);
        Numbers& items = m_nodes[leaf].items;
        const std::size_t part =
            std::min(items.size() - place, static_cast<std::size_t>(count) - rows.size());
        const auto begin = items.begin() + place;
        rows.insert(rows.end(), begin, begin + toDistance(part));
        eraseAt(items, place, part);
        addRows(leaf, -toDistance(part));
        closeGaps(leaf);
    }
    // A tree may be deeper than the stack, so what is below goes behind what is gone through.
    for (std::size_t i = 0; i < rows.size(); ++i) {
        m_leaves.remove(rows[i]);
        takeAll(rows[i], rows);
    }
    if (m_roots.size() == 0)
        clear();
    return rows;
}

void RowForest::clear()
{
    giveBack();
    m_nodes.clear();
    m_freeNodes.clear();
    m_roots = {};
    m_leaves = {};
    m_runs = {};
    m_runLimit = 64;
    m_greatest = 0;
    m_finger = {};
}

/// Whoever lets go of millions of rows would be held up for tens of milliseconds.
void RowForest::giveBack()
{
    constexpr std::size_t Many = 2'000;
    QThreadPool* const pool = m_nodes.size() > Many ? QThreadPool::globalInstance() : nullptr;
    if (!pool)
        return;
    auto large = std::make_shared<std::pair<std::deque<Node>, UidTable>>(std::move(m_nodes),
                                                                         std::move(m_leaves));
    pool->start([kept = std::move(large)] {});
}

RowForest::HasChildren RowForest::hasChildren(Uid row) const
{
    const std::uint32_t* entry = m_leaves.find(row);
    return entry ? HasChildren(*entry & AnswerMask) : HasChildren::Unknown;
}

void RowForest::setHasChildren(Uid row, HasChildren answer)
{
    const Number leaf = leafOf(row);
    if (leaf != NoNode)
        m_leaves[row] = leaf << AnswerBits | static_cast<std::uint32_t>(answer);
}

RowForest::Number RowForest::leafOf(Uid row) const
{
    if (row > m_greatest)
        return NoNode;
    if (const std::uint32_t* entry = m_leaves.find(row))
        return *entry >> AnswerBits;
    return leafInRuns(row);
}

/// Of a row that is not in the table.
RowForest::Number RowForest::leafInRuns(Uid row) const
{
    const auto next = std::upper_bound(m_runs.begin(), m_runs.end(), row,
                                       [](Uid uid, const Run& run) { return uid < run.first; });
    if (next == m_runs.begin())
        return NoNode;
    // What has left the leaf is gone, or in the table; and its number may be another node's now.
    const Number leaf = std::prev(next)->leaf;
    const Node& node = m_nodes[leaf];
    return node.isLeaf() && placeIn(node.items, row) < node.items.size() ? leaf : NoNode;
}

/// The leaf of a row; `row` becomes its place in the leaf. The place behind the last row is taken
/// for one of the last leaf.
RowForest::Number RowForest::leafAt(Uid parent, std::uint32_t& row) const
{
    Number number = *m_roots.find(parent);
    while (!m_nodes[number].isLeaf()) {
        const Node& node = m_nodes[number];
        std::size_t place = 0;
        for (; place + 1 < node.items.size() && row >= node.counts[place]; ++place)
            row -= node.counts[place];
        number = node.items[place];
    }
    return number;
}

RowForest::Uid RowForest::findAt(Uid parent, int row) const
{
    if (row < 0 || row >= rowCount(parent))
        return 0;
    auto place = static_cast<std::uint32_t>(row);
    pointAt(leafAt(parent, place));
    return m_finger.rows[place];
}

void RowForest::pointAt(Number leaf) const
{
    std::uint32_t first = 0;
    Number number = leaf;
    for (; !m_nodes[number].isRoot; number = m_nodes[number].up) {
        const auto counts = m_nodes[m_nodes[number].up].counts.begin();
        first = std::accumulate(counts, counts + toDistance(placeAbove(number)), first);
    }
    const Node& root = m_nodes[number];
    m_finger = {leaf, root.up, static_cast<int>(first), static_cast<int>(root.rowCount()),
                m_nodes[leaf].items};
}

std::size_t RowForest::placeAbove(Number node) const
{
    return placeIn(m_nodes[m_nodes[node].up].items, node);
}

/// Calls `function` for each node of one tree, the rows in order, a node after those below it.
template <class Function>
void RowForest::visit(Number root, const Function& function) const
{
    if (!m_nodes[root].isLeaf()) {
        for (const Number below : m_nodes[root].items)
            visit(below, function);
    }
    function(root);
}

/// Whether the rows ascend and are all new, which is seen without looking up any.
bool RowForest::isRun(std::span<const Uid> rows, bool areAscending) const
{
    return !rows.empty() && rows.front() > m_greatest && (areAscending || isAscending(rows));
}

/// Behind the rows of a parent.
void RowForest::insertRun(Uid parent, std::span<const Uid> rows)
{
    m_greatest = rows.back();
    std::vector<Number> added;
    forParts(rows.size(), LeafCapacity, [&](std::size_t first, std::size_t count) {
        const Number leaf = newNode();
        assignPart(m_nodes[leaf].items, rows.subspan(first, count), LeafCapacity);
        added.push_back(leaf);
        m_runs.push_back({rows[first], leaf});
    });
    dropRuns();
    auto place = static_cast<std::uint32_t>(rowCount(parent));
    if (place == 0) {
        setRoot(parent, added.front());
        insertBehind(added.front(), std::span(added).subspan(1));
    } else {
        const Number last = leafAt(parent, place);
        addRows(last, toDistance(rows.size()));
        insertBehind(last, added);
    }
}

/// Inserts rows into a leaf, or nodes into another node.
void RowForest::insertItems(Number number, std::size_t place, std::span<const std::uint32_t> items)
{
    Node& node = m_nodes[number];
    const std::size_t capacity = node.capacity();
    if (!node.isLeaf()) {
        Numbers counts;
        for (const Number below : items)
            counts.push_back(m_nodes[below].rowCount());
        insertAt(node.counts, place, counts, capacity);
    }
    insertAt(node.items, place, items, capacity);
    if (node.items.size() <= capacity)
        adopt(number, place, items.size());
    else
        split(number);
}

/// Leaves a node the first of its items and moves the others into new ones.
void RowForest::split(Number number)
{
    const std::size_t capacity = m_nodes[number].capacity();
    const Numbers items = std::exchange(m_nodes[number].items, {});
    const Numbers counts = std::exchange(m_nodes[number].counts, {});
    std::vector<Number> added;
    forParts(items.size(), capacity, [&](std::size_t first, std::size_t count) {
        const Number part = first == 0 ? number : newNode();
        assignPart(m_nodes[part].items, std::span(items).subspan(first, count), capacity);
        if (!counts.empty())
            assignPart(m_nodes[part].counts, std::span(counts).subspan(first, count), capacity);
        adopt(part, 0, count);
        if (part != number)
            added.push_back(part);
    });
    insertBehind(number, added);
}

/// Inserts nodes behind one whose rows have become fewer, if they have.
void RowForest::insertBehind(Number number, std::span<const Number> added)
{
    if (added.empty())
        return;
    const Node& node = m_nodes[number];
    if (node.isRoot) {
        const Number root = newNode();
        setRoot(node.up, root);
        m_nodes[root].items.push_back(number);
        m_nodes[root].counts.push_back(0);
        adopt(root, 0, 1);
    }
    const std::size_t place = placeAbove(number);
    m_nodes[node.up].counts[place] = node.rowCount();
    insertItems(node.up, place + 1, added);
}

/// Tells some of a node's items that they are there.
void RowForest::adopt(Number number, std::size_t first, std::size_t count)
{
    const Node& node = m_nodes[number];
    for (const std::uint32_t item : std::span(node.items).subspan(first, count)) {
        if (node.isLeaf()) {
            std::uint32_t& entry = m_leaves[item];
            entry = number << AnswerBits | (entry & AnswerMask);
        } else {
            m_nodes[item].up = number;
            m_nodes[item].isRoot = false;
        }
    }
}

/// To the counts above a leaf.
void RowForest::addRows(Number leaf, std::ptrdiff_t difference)
{
    for (Number number = leaf; !m_nodes[number].isRoot; number = m_nodes[number].up) {
        std::uint32_t& count = m_nodes[m_nodes[number].up].counts[placeAbove(number)];
        count = static_cast<std::uint32_t>(count + difference);
    }
}

/// After items have left a node: drops it when it is empty, joins it with a neighbour when both are
/// sparse, and so on upwards.
void RowForest::closeGaps(Number number)
{
    while (!m_nodes[number].isRoot) {
        const Number above = m_nodes[number].up;
        const std::size_t place = placeAbove(number);
        if (m_nodes[number].items.empty()) {
            eraseAt(m_nodes[above].items, place);
            eraseAt(m_nodes[above].counts, place);
            freeNode(number);
        } else if (!merge(above, place) && (place == 0 || !merge(above, place - 1))) {
            return;
        }
        number = above;
    }
    while (m_nodes[number].items.size() == 1 && !m_nodes[number].isLeaf()) {
        const Number below = m_nodes[number].items.front();
        setRoot(m_nodes[number].up, below);
        freeNode(number);
        number = below;
    }
}

/// Joins a node and the next if that is at most half full, so that it can grow and shrink again.
bool RowForest::merge(Number above, std::size_t place)
{
    Node& node = m_nodes[above];
    if (place + 1 >= node.items.size())
        return false;
    Node& target = m_nodes[node.items[place]];
    const Node& source = m_nodes[node.items[place + 1]];
    const std::size_t before = target.items.size();
    if (before + source.items.size() > target.capacity() / 2)
        return false;
    target.items.insert(target.items.end(), source.items.begin(), source.items.end());
    target.counts.insert(target.counts.end(), source.counts.begin(), source.counts.end());
    adopt(node.items[place], before, source.items.size());
    freeNode(node.items[place + 1]);
    node.counts[place] += node.counts[place + 1];
    eraseAt(node.items, place + 1);
    eraseAt(node.counts, place + 1);
    return true;
}

/// Appends the rows of a parent and drops their tree.
void RowForest::takeAll(Uid parent, std::vector<Uid>& rows)
{
    const Number* found = m_roots.find(parent);
    if (!found)
        return;
    const Number root = *found;
    m_roots.remove(parent);
    visit(root, [&](Number number) {
        const Node& node = m_nodes[number];
        if (node.isLeaf())
            rows.insert(rows.end(), node.items.begin(), node.items.end());
        freeNode(number);
    });
}

void RowForest::setRoot(Uid parent, Number root)
{
    m_roots[parent] = root;
    m_nodes[root].up = parent;
    m_nodes[root].isRoot = true;
}

RowForest::Number RowForest::newNode()
{
    if (m_freeNodes.empty()) {
        m_nodes.emplace_back();
        return static_cast<Number>(m_nodes.size() - 1);
    }
    const Number number = m_freeNodes.back();
    m_freeNodes.pop_back();
    return number;
}

void RowForest::freeNode(Number number)
{
    m_nodes[number] = {};
    m_freeNodes.push_back(number);
}

/// Those whose rows have all left the leaf, when there may be many.
void RowForest::dropRuns()
{
    if (m_runs.size() < m_runLimit)
        return;
    std::vector<Run> kept;
    for (auto run = m_runs.begin(); run != m_runs.end(); ++run) {
        const auto next = std::next(run);
        const Uid last = next == m_runs.end() ? m_greatest : next->first - 1;
        const Node& node = m_nodes[run->leaf];
        if (node.isLeaf() && std::any_of(node.items.begin(), node.items.end(), [&](Uid row) {
                return row >= run->first && row <= last;
            }))
            kept.push_back(*run);
    }
    m_runs = std::move(kept);
    m_runLimit = std::max(m_runLimit, 2 * m_runs.size());
}

} // namespace VOXI
