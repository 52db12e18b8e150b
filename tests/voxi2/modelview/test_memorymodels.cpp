// Models in memory against random changes, beside a table that is sorted and filtered anew by its
// reader; what views know of them, from the first change on or later.

#include "../fakebackend.h"
#include "naiveview.h"
#include "support/worker.h"
#include "voxi2/modelview/vxtablemodel2.h"
#include "voxi2/modelview/vxtreemodel2.h"

#include <optional>
#include <random>

namespace VOXI {
namespace {

class MemoryModels : public BackEndTest
{
protected:
    static void settle() { TROV::Thread::getCurrentThread()->process(); }
};

/// The rows of a tree as they were put, and what is in their first column.
struct NaiveTree
{
    NaiveView::Tree m_rows{{0, {}}};
    std::map<unsigned, int> m_values;
    SortIndicator m_sorting;
    std::optional<int> m_least; // of the rows that are shown

    bool isShown(unsigned row) const
    {
        return !m_least || m_values.at(row) >= *m_least
               || std::ranges::any_of(m_rows.at(row),
                                      [&](unsigned child) { return isShown(child); });
    }
    NaiveView::Tree shown() const
    {
        NaiveView::Tree result;
        for (auto [parent, rows] : m_rows) {
            std::erase_if(rows, [&](unsigned row) { return !isShown(row); });
            if (m_sorting.column != 0) {
                std::ranges::sort(rows);
                std::ranges::stable_sort(rows, [&](unsigned a, unsigned b) {
                    return m_sorting.order == SortOrder::Ascending
                               ? m_values.at(a) < m_values.at(b)
                               : m_values.at(b) < m_values.at(a);
                });
            }
            if (!rows.empty())
                result[parent] = rows;
        }
        return result;
    }
    void insert(unsigned row, unsigned parent, unsigned before)
    {
        auto& list = m_rows[parent];
        list.insert(std::ranges::find(list, before), row);
    }
    void remove(unsigned row)
    {
        while (!m_rows[row].empty())
            remove(m_rows[row].front());
        take(row);
        m_rows.erase(row);
        m_values.erase(row);
    }
    void take(unsigned row)
    {
        for (auto& [parent, rows] : m_rows)
            std::erase(rows, row);
    }
    bool isBelow(unsigned row, unsigned above) const
    {
        return row == above || std::ranges::any_of(m_rows.at(above), [&](unsigned child) {
                   return isBelow(row, child);
               });
    }
};

TEST_F(MemoryModels, areShownAsTheyAreSortedAndFilteredWhateverHappens)
{
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const auto below = [&](std::size_t bound) { return static_cast<unsigned>(random() % bound); };
    VXTreeModel2 model({"Value"});
    NaiveTree naive;
    const NaiveView early(model);
    std::optional<NaiveView> late;
    const auto anyRow = [&](bool orNone) {
        auto at = naive.m_rows.begin();
        std::advance(at, below(naive.m_rows.size()));
        return at->first != 0 || orNone ? at->first : std::next(naive.m_rows.begin())->first;
    };
    for (int step = 0; step < 3000; ++step) {
        const bool isEmpty = naive.m_values.empty();
        switch (isEmpty ? 0 : below(12)) {
        case 0:
        case 1:
        case 2:
        case 3: {
            const unsigned parent = anyRow(true);
            const unsigned before = isEmpty ? 0 : anyRow(true);
            const int value = static_cast<int>(below(30));
            const unsigned row = model.insertRow(parent, before, {value});
            naive.m_values[row] = value;
            naive.m_rows[row];
            naive.insert(row, parent, before);
            break;
        }
        case 4:
        case 5:
        case 6: {
            const unsigned row = anyRow(false);
            naive.m_values[row] = static_cast<int>(below(30));
            model.setValue(row, 1, naive.m_values[row]);
            break;
        }
        case 7:
        case 8: {
            const unsigned row = anyRow(false);
            const unsigned parent = anyRow(true);
            const unsigned before = anyRow(true);
            model.moveRow(row, parent, before);
            if (!naive.isBelow(parent, row) && before != row) {
                naive.take(row);
                naive.insert(row, parent, before);
            }
            break;
        }
        case 9: {
            const unsigned row = anyRow(false);
            model.removeRow(row);
            naive.remove(row);
            break;
        }
        case 10:
            naive.m_sorting = {below(2), static_cast<SortOrder>(below(2))};
            model.setSorting(naive.m_sorting.column, naive.m_sorting.order);
            break;
        default:
            naive.m_least = static_cast<int>(below(30));
            if (*naive.m_least < 8) {
                naive.m_least.reset();
                model.setFilter(nullptr);
            } else {
                model.setFilter([&model, least = *naive.m_least](unsigned row) {
                    return std::any_cast<int>(model.value(row, 1).value()) >= least;
                });
            }
        }
        if (below(4) == 0) {
            settle();
            ASSERT_EQ(early.m_rows, naive.shown()) << "step " << step;
        }
        if (below(50) == 0)
            late.emplace(model);
        if (late && below(5) == 0) {
            settle();
            ASSERT_EQ(late->m_rows, naive.shown()) << "step " << step;
        }
    }
    model.clear();
    settle();
    EXPECT_TRUE(early.m_rows.empty());
}

TEST_F(MemoryModels, tellOfATurnInOneEventAndAnswer)
{
    VXTableModel2 model({"Name", "Size"});
    NaiveView view(model);
    for (int i = 0; i < 1000; ++i)
        model.appendRow({"row " + std::to_string(i), i});
    model.removeRow(500);
    model.setFilterText("ROW 1");
    model.setSorting(2, SortOrder::Descending);
    settle();
    EXPECT_EQ(view.m_sizeEvents, 1);
    EXPECT_EQ(view.m_rows.at(0), model.rows());
    EXPECT_EQ(model.rows().size(), 111u);
    EXPECT_EQ(model.value(model.rows().front(), 1).textU(), L"row 199");

    view.ask({2, 3, 500, 5000}, {1, 2, 7});
    view.m_link.askHeader(Orientation::Horizontal, {1, 2, 3});
    settle();
    EXPECT_EQ(view.m_cells[std::pair(2u, 1u)], L"row 1");
    EXPECT_EQ(view.m_cells[std::pair(3u, 2u)], L"2");
    EXPECT_FALSE(view.m_cells.contains({500, 1}));
    EXPECT_EQ(view.m_headers, (std::map<unsigned, std::wstring>{{1, L"Name"}, {2, L"Size"}}));
    model.setValue(2, 2, u8"größer");
    settle();
    settle();
    EXPECT_EQ(view.m_cells[std::pair(2u, 2u)], L"größer");

    model.setFilterText(u8"größer");
    EXPECT_EQ(model.rows(), std::vector{2u});
    model.removeColumn(2);
    EXPECT_TRUE(model.rows().empty()) << "it was found there";
    model.setFilter(nullptr);
    EXPECT_EQ(model.sorting(), SortIndicator());
    EXPECT_TRUE(model.value(3, 2).isEmpty());
    EXPECT_EQ(model.insertColumn(1, "First"), 3u);
    settle();
    EXPECT_EQ(view.m_columns, (std::vector<unsigned>{3, 1}));
    const VXHandle<VXTableModel2> gone;
    EXPECT_EQ(gone->appendColumn("x") + gone->appendRow({1}), 0u);
}

TEST_F(MemoryModels, changeWhileTheirFilterWaits)
{
    TROV::Thread* const self = TROV::Thread::getCurrentThread();
    auto* const model = new VXTableModel2({"Value"});
    std::optional<NaiveView> view(*model);
    std::function<void(unsigned)> meanwhile;
    // As one that asks a widget does.
    const auto asking = [&](int least) {
        return [&, least](unsigned row) {
            const int value = std::stoi(model->value(row, 1).textU());
            TROV::ask(self, [&] { std::exchange(meanwhile, [](unsigned) {})(row); });
            return value >= least;
        };
    };
    const unsigned first = model->appendRow({5});
    const unsigned second = model->appendRow({1});
    unsigned late = 0;
    onWorker([&] {
        meanwhile = [&](unsigned row) {
            EXPECT_EQ(row, first);
            model->removeRow(row);
            late = model->appendRow({2});
            meanwhile = [&](unsigned) { model->setValue(second, 1, 7); };
        };
        model->setFilter(asking(4));
        EXPECT_EQ(model->rows(), std::vector{second});

        meanwhile = [&](unsigned) { model->setValue(second, 1, 3); };
        model->setValue(second, 1, 9);
        EXPECT_TRUE(model->rows().empty());
        meanwhile = [&](unsigned) { model->setFilter(asking(2)); };
        model->setFilter(asking(8));
        EXPECT_EQ(model->rows(), (std::vector{second, late}));
        meanwhile = [&](unsigned) { model->clear(); };
        model->setValue(second, 1, 9);
        EXPECT_EQ(model->rowCount(), 0u);
    });
    settle();
    EXPECT_TRUE(view->m_rows[0].empty());
    view.reset();
    onWorker([&] {
        meanwhile = [&](unsigned) { delete model; };
        model->appendRow({1});
    });
}

TEST_F(MemoryModels, stayWholeWhileThreadsChangeThem)
{
    VXTableModel2 model({"Value"});
    std::optional<NaiveView> view(model);
    onWorker([&] {
        std::vector<std::thread> workers;
        for (unsigned number = 0; number < 4; ++number) {
            workers.emplace_back([&model, number] {
                std::mt19937 random(number);
                for (int i = 0; i < 300; ++i) {
                    const unsigned row = model.appendRow({static_cast<int>(random() % 100)});
                    model.moveRow(row, static_cast<unsigned>(random() % row + 1));
                    model.removeRow(static_cast<unsigned>(random() % (2 * row) + 1));
                    model.setValue(static_cast<unsigned>(random() % row + 1), 1, i);
                    if (i % 100 == 0)
                        model.setSorting(static_cast<unsigned>(random() % 2));
                }
            });
        }
        for (std::thread& worker : workers)
            worker.join();
    });
    settle();
    EXPECT_EQ(view->m_rows[0], model.rows());
    EXPECT_EQ(model.rowCount(), model.rows().size());
}

} // namespace
} // namespace VOXI
