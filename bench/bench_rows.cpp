// What a view keeps of the rows' order, by itself: the rows of a flat list, named by UIDs.

#include "benchsupport.h"
#include "rowforest.h"

#include <QHash>
#include <QList>

#include <algorithm>
#include <numeric>
#include <random>
#include <span>
#include <vector>

namespace {

using Uid = VOXI::RowForest::Uid;

/// In no order, as after many insertions: what comes in ascending order takes much less.
std::vector<Uid> scattered(int count)
{
    std::vector<Uid> rows(static_cast<std::size_t>(count));
    std::iota(rows.begin(), rows.end(), Uid(1));
    std::shuffle(rows.begin(), rows.end(), std::mt19937(1));
    return rows;
}

struct VoxiOrder
{
    VOXI::RowForest m_rows;

    void fill(std::span<const Uid> rows) { m_rows.insert(0, 0, rows); }
    void insert(int position, Uid row) { m_rows.insert(0, position, {&row, 1}); }
    void remove(int position, int count) { m_rows.remove(0, position, count); }
    int size() const { return m_rows.rowCount(0); }
};

struct QtOrder
{
    QList<Uid> m_rows;

    void fill(std::span<const Uid> rows) { m_rows.append(QList<Uid>(rows.begin(), rows.end())); }
    void insert(int position, Uid row) { m_rows.insert(position, row); }
    void remove(int position, int count) { m_rows.remove(position, count); }
    int size() const { return static_cast<int>(m_rows.size()); }
};

/// As far as it finds the place of a row, too.
struct QtIndexedOrder : QtOrder
{
    QHash<Uid, int> m_places;

    void fill(std::span<const Uid> rows)
    {
        QtOrder::fill(rows);
        m_places.reserve(m_rows.size());
        for (int i = 0; i < size(); ++i)
            m_places.insert(m_rows[i], i);
    }
};

/// Single rows, each into the middle.
template <class Order, int Count>
void insertRow(benchmark::State& state)
{
    constexpr int Batch = 100;
    Order order;
    order.fill(scattered(Count));
    while (state.KeepRunningBatch(Batch)) {
        bench::measure(state, [&] {
            for (int i = 0; i < Batch; ++i)
                order.insert(order.size() / 2, Uid(Count + 1 + i));
        });
        // Those that came later lie behind those that came before.
        order.remove(Count / 2, Batch);
    }
}

template <class Order>
void fill(benchmark::State& state)
{
    constexpr int Count = 1'000'000;
    const std::vector<Uid> rows = scattered(Count);
    for (auto _ : state) {
        const bench::HeapGrowth growth;
        Order order;
        bench::measure(state, [&] { order.fill(rows); });
        growth.report(state, Count);
    }
}

const bool s_added = bench::addPairs({
    {"RowInsert1000", insertRow<VoxiOrder, 1'000>, insertRow<QtOrder, 1'000>},
    {"RowInsert1000000", insertRow<VoxiOrder, 1'000'000>, insertRow<QtOrder, 1'000'000>},
    {"RowsFill", fill<VoxiOrder>, fill<QtIndexedOrder>, 1},
});

} // namespace
