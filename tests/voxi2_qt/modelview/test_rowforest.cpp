#include "rowforest.h"
#include "support/randomseed.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <numeric>
#include <random>
#include <set>
#include <vector>

using namespace VOXI;

namespace {

using Uid = RowForest::Uid;
using Uids = std::vector<Uid>;
using HasChildren = RowForest::HasChildren;

/// The same in the plainest way.
class NaiveForest
{
public:
    std::map<Uid, Uids> lists;
    std::map<Uid, Uid> parents;
    std::map<Uid, HasChildren> answers;

    bool insert(Uid parent, int position, const Uids& rows)
    {
        const std::set<Uid> distinct(rows.begin(), rows.end());
        Uids& list = lists[parent];
        if (distinct.size() != rows.size() || distinct.count(0) != 0
            || (parent != 0 && parents.count(parent) == 0) || position < 0
            || position > int(list.size())
            || std::any_of(rows.begin(), rows.end(), [&](Uid row) { return parents.count(row); }))
            return false;
        list.insert(list.begin() + position, rows.begin(), rows.end());
        for (const Uid row : rows)
            parents[row] = parent;
        return true;
    }
    Uids remove(Uid parent, int first, int count)
    {
        Uids& list = lists[parent];
        Uids rows(list.begin() + first, list.begin() + first + count);
        list.erase(list.begin() + first, list.begin() + first + count);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const Uid row = rows[i];
            const Uids below = lists[row];
            rows.insert(rows.end(), below.begin(), below.end());
            lists.erase(row);
            parents.erase(row);
            answers.erase(row);
        }
        return rows;
    }
};

class RandomForest
{
public:
    explicit RandomForest(unsigned seed) : m_random(seed) {}

    void step()
    {
        switch (below(10)) {
        case 0:
        case 1:
        case 2:
        case 3:
            insert();
            break;
        case 4:
        case 5:
            remove(1 + below(3));
            break;
        case 6:
            remove(below(2000));
            break;
        case 7:
            answer();
            break;
        default:
            look();
        }
    }

    void compareAll()
    {
        for (const auto& [parent, rows] : m_naive.lists) {
            ASSERT_EQ(m_forest.rowCount(parent), int(rows.size()));
            ASSERT_EQ(m_forest.children(parent), rows);
            for (int i = 0; i < int(rows.size()); ++i) {
                ASSERT_EQ(m_forest.at(parent, i), rows[std::size_t(i)]);
                ASSERT_EQ(m_forest.placeOf(rows[std::size_t(i)]), (RowForest::Place{parent, i}));
                ASSERT_EQ(m_forest.hasChildren(rows[std::size_t(i)]),
                          answerOf(rows[std::size_t(i)]));
            }
            ASSERT_EQ(m_forest.at(parent, -1), 0u);
            ASSERT_EQ(m_forest.at(parent, int(rows.size())), 0u);
        }
        for (const Uid row : m_gone) {
            const auto parent = m_naive.parents.find(row);
            ASSERT_EQ(m_forest.contains(row), parent != m_naive.parents.end());
            ASSERT_EQ(m_forest.hasChildren(row), answerOf(row));
        }
    }

private:
    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(m_random); }

    HasChildren answerOf(Uid row) const
    {
        const auto answer = m_naive.answers.find(row);
        return answer == m_naive.answers.end() ? HasChildren::Unknown : answer->second;
    }

    /// Mostly one of few, so that they get many rows.
    Uid someParent()
    {
        if (below(3) == 0 || m_naive.parents.empty())
            return 0;
        return std::next(m_naive.parents.begin(),
                         below(std::min<int>(8, int(m_naive.parents.size()))))
            ->first;
    }

    Uids newRows()
    {
        Uids rows(std::size_t(below(4) == 0 ? below(3000) : 1 + below(3)));
        if (below(2)) {
            std::iota(rows.begin(), rows.end(), m_next);
            m_next += Uid(rows.size());
        } else if (below(2)) {
            for (Uid& row : rows)
                row = m_next += 1 + Uid(below(1000));
        } else {
            std::generate(rows.begin(), rows.end(), m_random);
            std::for_each(rows.begin(), rows.end(), [](Uid& row) { row >>= 8; });
        }
        if (below(4) == 0 && !m_gone.empty())
            rows.push_back(m_gone[std::size_t(below(int(m_gone.size())))]);
        if (below(20) == 0 && !rows.empty())
            rows.push_back(below(2) ? 0 : rows.front());
        return rows;
    }

    void insert()
    {
        const Uid parent = below(50) ? someParent() : 12345;
        const int size = m_forest.rowCount(parent);
        const Uids rows = newRows();
        const int position = below(3) ? below(size + 1) : size + below(30) / 29;

        Uids insertable;
        std::set<Uid> seen;
        for (const Uid row : rows) {
            if (row != 0 && m_naive.parents.count(row) == 0 && seen.insert(row).second)
                insertable.push_back(row);
        }
        Uids room;
        const auto answered = m_forest.insertable(rows, room);
        ASSERT_EQ(Uids(answered.begin(), answered.end()), insertable);

        const bool isInserted = m_naive.insert(parent, position, rows);
        ASSERT_EQ(m_forest.insert(parent, position, rows), isInserted);
        if (!isInserted && m_naive.insert(parent, 0, insertable)) {
            ASSERT_TRUE(m_forest.insert(parent, 0, insertable));
        }
    }

    void remove(int count)
    {
        const Uid parent = someParent();
        const int size = m_forest.rowCount(parent);
        count = std::min(count, below(30) ? size / 2 : size);
        if (count == 0)
            return;
        const int first = below(size - count + 1);
        ASSERT_TRUE(m_forest.remove(parent, size - count + 1, count).empty());
        Uids gone = m_forest.remove(parent, first, count);
        Uids expected = m_naive.remove(parent, first, count);
        std::sort(gone.begin(), gone.end());
        std::sort(expected.begin(), expected.end());
        ASSERT_EQ(gone, expected);
        std::sample(gone.begin(), gone.end(), std::back_inserter(m_gone), 50, m_random);
    }

    void answer()
    {
        const Uid parent = someParent();
        const Uid row = m_forest.at(parent, below(m_forest.rowCount(parent) + 1));
        m_forest.setHasChildren(row, HasChildren(below(3)));
        if (row != 0)
            m_naive.answers[row] = m_forest.hasChildren(row);
    }

    void look()
    {
        const Uid parent = someParent();
        const Uids& rows = m_naive.lists[parent];
        if (rows.empty())
            return;
        const int first = below(int(rows.size()));
        for (int i = first; i < std::min(first + 20, int(rows.size())); ++i) {
            ASSERT_EQ(m_forest.at(parent, i), rows[std::size_t(i)]);
            ASSERT_EQ(m_forest.placeOf(rows[std::size_t(i)]), (RowForest::Place{parent, i}));
        }
    }

    std::mt19937 m_random;
    Uid m_next = 1;
    RowForest m_forest;
    NaiveForest m_naive;
    Uids m_gone;
};

Uids ascending(Uid first, Uid count)
{
    Uids rows(count);
    std::iota(rows.begin(), rows.end(), first);
    return rows;
}

} // namespace

TEST(RowForest, randomStepsEqualAPlainForest)
{
    const unsigned seed = randomSeed();
    SCOPED_TRACE("VOXI_TEST_SEED=" + std::to_string(seed));
    RandomForest forest(seed);
    for (int i = 0; i < 1500; ++i) {
        ASSERT_NO_FATAL_FAILURE(forest.step()) << i;
        if (i % 100 == 0) {
            ASSERT_NO_FATAL_FAILURE(forest.compareAll()) << i;
        }
    }
}

TEST(RowForest, deepTreesFitTheStack)
{
    constexpr Uid Levels = 100000;
    RowForest forest;
    for (Uid row = 1; row <= Levels; ++row)
        ASSERT_TRUE(forest.insert(row - 1, 0, Uids{row}));
    EXPECT_FALSE(forest.insert(Levels + 2, 0, Uids{Levels + 2})); // below itself
    EXPECT_EQ(forest.remove(1, 0, 1).size(), Levels - 1);
    EXPECT_EQ(forest.children(0), Uids{1});
    EXPECT_EQ(forest.rowCount(1), 0);
}

TEST(RowForest, sparseLeavesAreJoined)
{
    RowForest forest;
    ASSERT_TRUE(forest.insert(0, 0, ascending(1, 100000)));
    // All but each hundredth, then those again at the same places.
    for (int row = 0; row < 1000; ++row)
        ASSERT_EQ(forest.remove(0, row + 1, 99).size(), 99u);
    for (int row = 0; row < 1000; ++row) {
        ASSERT_EQ(forest.at(0, row), Uid(row) * 100 + 1);
        ASSERT_EQ(forest.placeOf(Uid(row) * 100 + 1).row, row);
    }
    for (int row = 0; row < 1000; ++row)
        ASSERT_TRUE(forest.insert(0, row * 100 + 1, ascending(Uid(row) * 100 + 2, 99)));
    EXPECT_EQ(forest.children(0), ascending(1, 100000));
    EXPECT_EQ(forest.placeOf(77777), (RowForest::Place{0, 77776}));
}

TEST(RowForest, nothingIsLeftOfWhatWasCleared)
{
    RowForest forest;
    ASSERT_TRUE(forest.insert(0, 0, ascending(1, 1000)));
    ASSERT_TRUE(forest.insert(7, 0, ascending(1001, 3)));
    ASSERT_EQ(forest.at(0, 500), 501u);
    forest.setHasChildren(7, HasChildren::Yes);
    forest.clear();
    EXPECT_FALSE(forest.contains(501));
    EXPECT_EQ(forest.rowCount(0) + forest.rowCount(7), 0);
    EXPECT_EQ(forest.at(0, 500), 0u);
    ASSERT_TRUE(forest.insert(0, 0, ascending(1, 1000)));
    EXPECT_EQ(forest.hasChildren(7), HasChildren::Unknown);
    EXPECT_EQ(forest.remove(0, 0, 1000).size(), 1000u);
    EXPECT_FALSE(forest.contains(7));
}
