// What an item model asks, and what it makes of answers: of late ones, of wrong ones, of those of
// many threads.

#include "askedmodel.h"
#include "support/waitfor.h"

#include <QSignalSpy>
#include <QTableView>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>

namespace VOXI {
namespace {

using QtViewModelAnswers = QtViewModels;

TEST_F(QtViewModelAnswers, askForBlocksAndNothingTwice)
{
    Model model(ascending(1, 13), ascending(101, 25));
    QtViewModel2 item(&model, model.modelEmitters());
    const QSignalSpy changed(&item, &QAbstractItemModel::dataChanged);
    const QModelIndex index = item.index(23, 12);
    EXPECT_FALSE(index.data().isValid());
    EXPECT_FALSE(item.index(20, 10).data(Qt::FontRole).isValid());
    EXPECT_EQ(index.flags(), Qt::ItemIsSelectable);
    EXPECT_FALSE(item.isKnown(item.index(0, 0))) << "flags and this ask for nothing";
    settle();
    ASSERT_EQ(model.m_queries.size(), 1u);
    EXPECT_EQ(model.m_queries[0].rows(), ascending(121, 5));
    EXPECT_EQ(model.m_queries[0].columns(), ascending(11, 3));
    EXPECT_EQ(model.m_queries[0].expanderRows(), ascending(121, 5));

    // Rows in between, a row that goes, one that is not there, what was not asked, and twice.
    const ViewQuery2 query = model.m_queries[0];
    model.m_queries.clear();
    model.changeSize({SizeChange2::prependRows({200, 201}), SizeChange2::removeRow(121),
                      SizeChange2::hasChildren(122)});
    QueryResult2 result;
    for (const Uid row : {121u, 122u, 123u, 123u, 999u, 0u})
        result.set(row, 12, CellUIData("x").setReadOnly(row == 123).setBold());
    result.set(102, 3, "not asked");
    result.setHasChildren(124);
    result.setHasChildren(777);
    Model::answer(query, result);
    Model::answer(query, result);
    Model::answer(ViewQuery2({model.id(), query.asker(), 1'000'000, 0, {}, {}, {}, {}}), result);
    settle();
    ASSERT_EQ(changed.size(), 1);
    const auto corner = [&](int which) {
        const auto at = changed[0][which].toModelIndex();
        return CellId(item.rowFromIndex(at), item.columnFromIndex(at));
    };
    EXPECT_EQ(corner(0), CellId(102, 1)) << "trees draw the expander beside the first column";
    EXPECT_EQ(corner(1), CellId(124, 12));
    EXPECT_TRUE(item.hasChildren(item.indexFromUIDs(124, 0)));
    EXPECT_EQ(item.indexFromUIDs(122, 12).flags(),
              Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable);
    EXPECT_TRUE(item.indexFromUIDs(122, 12).data(Qt::FontRole).value<QFont>().bold());

    // What was left out is asked for once more, and then taken for empty until it is looked for
    // anew; else a view would paint, ask and be told to paint for ever.
    for (const std::size_t asked : {1u, 0u}) {
        EXPECT_FALSE(item.indexFromUIDs(125, 12).data().isValid());
        settle();
        EXPECT_EQ(model.m_queries.size(), asked);
        for (const ViewQuery2& each : std::exchange(model.m_queries, {}))
            Model::answer(each, result);
        settle();
    }
    item.setInSight({125}, {12});
    EXPECT_FALSE(item.indexFromUIDs(125, 12).data().isValid());
    settle();
    ASSERT_EQ(model.m_queries.size(), 1u);

    // One that nobody has looked after although it is in sight has to be painted, to be asked.
    const auto times = changed.size();
    QueryResult2 dropped;
    dropped.setDropped();
    Model::answer(model.m_queries[0], dropped);
    settle();
    EXPECT_EQ(changed.size(), times + 1);
    EXPECT_FALSE(item.indexFromUIDs(125, 12).data().isValid());
    settle();
    EXPECT_EQ(model.m_queries.size(), 2u);
}

TEST_F(QtViewModelAnswers, askForHeadersByTheHundred)
{
    Model model({7, 8}, ascending(1, 250));
    QtViewModel2 item(&model, nullptr);
    const QSignalSpy changed(&item, &QAbstractItemModel::headerDataChanged);
    EXPECT_EQ(item.headerData(240, Qt::Vertical), 241);
    EXPECT_EQ(item.headerData(201, Qt::Vertical, Qt::FontRole), QVariant());
    EXPECT_EQ(item.headerData(1, Qt::Horizontal), 2);
    EXPECT_EQ(item.headerData(2, Qt::Horizontal), QVariant());
    settle();
    ASSERT_EQ(model.m_headerQueries.size(), 2u);
    EXPECT_EQ(model.m_headerQueries[0].sections(), ascending(201, 50));
    HeaderQueryResult2 named;
    named.set(8, CellUIData("Name").setBold().setToolTip("whose").setIcon(
                     Icon::fromPixmap(Pixmap(1, 1, {0xff0000ff}))));
    named.set(99, "nobody");
    Model::answer(model.m_headerQueries[1], named);
    model.changeHeader({8});
    settle();
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(item.headerData(1, Qt::Horizontal), QStringLiteral("Name"));
    EXPECT_EQ(item.headerData(1, Qt::Horizontal, HeaderToolTipRole), QStringLiteral("whose"));
    EXPECT_FALSE(item.headerData(1, Qt::Horizontal, HeaderIconRole).value<QIcon>().isNull());
    EXPECT_EQ(item.headerData(0, Qt::Horizontal), 1);
    ASSERT_EQ(model.m_headerQueries.size(), 3u) << "asked for anew since it has changed";
    EXPECT_EQ(model.m_headerQueries[2].sections(), Uids{8});
    // The old answer comes last, and counts for nothing.
    HeaderQueryResult2 renamed;
    renamed.set(8, "Surname");
    Model::answer(model.m_headerQueries[2], renamed);
    Model::answer(model.m_headerQueries[1], named);
    settle();
    EXPECT_EQ(item.headerData(1, Qt::Horizontal), QStringLiteral("Surname"));
    item.doClearCachedHeaderUIData();
    EXPECT_EQ(item.headerData(1, Qt::Horizontal), 2);
}

TEST_F(QtViewModelAnswers, bearModelsThatAreNoneOrGo)
{
    const QtViewModel2 none;
    EXPECT_EQ(none.rowCount() + none.columnCount(), 0);
    EXPECT_TRUE(none.createCell(1, 1).isNull());

    std::optional<Model> model(std::in_place, Uids{1}, ascending(1, 5));
    QtViewModel2 item(&*model, nullptr);
    EXPECT_EQ(item.cellFromIndex(item.index(2, 0)), (ModelCell2{3, 1, &*model}));
    EXPECT_TRUE(item.cellFromIndex({}).isNull());
    item.index(0, 0).data();
    settle();
    const ViewQuery2 query = model->m_queries.at(0);
    const QueryResult2 result = model->cells(query);
    model.reset();
    Model::answer(query, result);
    settle();
    EXPECT_EQ(item.rowCount(), 5);
    EXPECT_FALSE(item.index(3, 0).data().isValid());
    EXPECT_TRUE(item.cellFromIndex(item.index(2, 0)).isNull());
}

/// The cells of a table whose answers come late, in any order, with news in between that they do
/// not know of.
TEST_F(QtViewModelAnswers, showTheLatestWhateverComesLate)
{
    const unsigned seed = randomSeed();
    SCOPED_TRACE("VOXI_TEST_SEED=" + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&random](std::size_t end) { return static_cast<Uid>(random() % end); };
    Model model(ascending(1, 15), ascending(1, 45));
    QtViewModel2 item(&model, nullptr);
    std::vector<std::pair<ViewQuery2, QueryResult2>> late;
    const auto answerAll = [&] {
        for (int quiet = 0; quiet < 2;) {
            quiet = model.m_queries.empty() && late.empty() ? quiet + 1 : 0;
            for (const auto& [query, result] : std::exchange(late, {}))
                Model::answer(query, result);
            model.answerAll();
        }
    };
    const auto compare = [&](bool all) {
        for (int row = 0; row < item.rowCount(); ++row) {
            for (int column = 0; column < item.columnCount(); ++column) {
                const QModelIndex index = item.index(row, column);
                if (all && !index.data().isValid())
                    answerAll();
                if (all || item.isKnown(index)) {
                    ASSERT_EQ(index.data().toString().toStdString(),
                              model.text(item.rowFromIndex(index), item.columnFromIndex(index)));
                }
            }
        }
    };
    Uid newest = 45;
    for (int step = 0; step < 4000; ++step) {
        const Uid row = 1 + below(newest);
        const Uid column = 1 + below(15);
        switch (below(12)) {
        case 0:
            ++model.m_versions[{row, column}];
            model.changeData(row, column);
            break;
        case 1:
            if (below(20) == 0) {
                for (Uid each = 1; each <= newest; ++each)
                    ++model.m_versions[{each, column}];
                model.clearCachedUIData();
            }
            break;
        case 2:
            model.changeSize(SizeChange2::insertRowsAfter(row, {++newest}));
            break;
        case 3:
            model.changeSize(SizeChange2::removeRow(row));
            // Another row of the same number, sometimes in an event of its own.
            if (below(2) == 0)
                settle();
            ++model.m_versions[{row, column}];
            model.changeSize(SizeChange2::insertRowsBefore(1 + below(newest), {row}));
            model.changeData(row, column);
            break;
        case 4:
        case 5:
            for (const ViewQuery2& each : std::exchange(model.m_queries, {}))
                late.emplace_back(each, below(9) == 0 ? QueryResult2() : model.cells(each));
            break;
        case 6:
        case 7:
        case 8:
            if (!late.empty()) {
                std::swap(late[below(late.size())], late.back());
                Model::answer(late.back().first, late.back().second);
                late.pop_back();
            }
            break;
        default:
            item.indexFromUIDs(row, column).data();
        }
        if (below(2) == 0)
            settle();
        if (step % 40 == 0) {
            answerAll();
            ASSERT_NO_FATAL_FAILURE(compare(false)) << step;
        }
    }
    answerAll();
    item.setCacheLimit(400);
    compare(true);
    EXPECT_LE(item.knownCells(), 400);
}

/// Answers by four threads, when it suits them.
class BusyModel : public VXAbstractViewModel2
{
public:
    using VXAbstractViewModel2::changeData;
    using VXAbstractViewModel2::changeSize;

    BusyModel()
    {
        for (unsigned i = 0; i < 4; ++i)
            m_threads.emplace_back([this, i](const std::stop_token& stop) { work(stop, i); });
    }
    ~BusyModel() override
    {
        for (std::jthread& each : m_threads)
            each.request_stop();
        m_threads.clear();
        retire();
    }
    void query(const ViewQuery2& each) override
    {
        const std::lock_guard lock(m_mutex);
        m_queries.push_back(each);
        m_changed.notify_one();
    }
    bool isIdle()
    {
        const std::lock_guard lock(m_mutex);
        return m_queries.empty() && m_busy == 0;
    }
    static std::string text(Uid row, int version)
    {
        return std::to_string(row) + '.' + std::to_string(version);
    }

    std::atomic<int> m_version{0};

private:
    void work(const std::stop_token& stop, unsigned seed)
    {
        std::mt19937 random(seed);
        std::unique_lock lock(m_mutex);
        while (m_changed.wait(lock, stop, [this] { return !m_queries.empty(); })) {
            const auto place = m_queries.begin() + long(random() % m_queries.size());
            const ViewQuery2 query = *place;
            m_queries.erase(place);
            ++m_busy;
            lock.unlock();
            QueryResult2 result;
            const int version = m_version;
            for (const Uid row : query.rows()) {
                for (const Uid column : query.columns())
                    result.set(row, column, text(row, version));
            }
            if (random() % 4 == 0)
                std::this_thread::yield();
            answer(query, std::move(result));
            lock.lock();
            --m_busy;
        }
    }

    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::deque<ViewQuery2> m_queries;
    int m_busy = 0;
    std::vector<std::jthread> m_threads; // the last: they use the others
};

TEST_F(QtViewModelAnswers, areAnsweredByManyThreads)
{
    BusyModel model;
    model.changeSize(SizeChange2::appendColumns(ascending(1, 4)));
    model.changeSize(SizeChange2::appendRows(ascending(1, 5000)));
    QTableView view;
    auto* const item = new QtViewModel2(&model, nullptr, &view);
    item->setCacheLimit(2000);
    view.setModel(item);
    view.resize(400, 600);
    view.show();
    std::mt19937 random(1);
    for (Uid step = 1; step <= 300; ++step) {
        view.scrollTo(item->index(int(random() % 4000), 0), QTableView::PositionAtTop);
        const Uid row = 1 + Uid(random() % 5000);
        model.changeSize(SizeChange2::removeRow(row));
        model.changeSize(SizeChange2::insertRowsAfter(1 + Uid(random() % 5000), {5000 + step}));
        if (step % 10 == 0) {
            ++model.m_version;
            DataChanges changes;
            for (Uid each = 1; each <= 5000 + step; ++each)
                changes[each] = {1, 2, 3, 4};
            model.changeData(changes);
        }
        view.viewport()->repaint();
        QCoreApplication::processEvents();
        settle();
    }
    const int top = view.rowAt(0);
    EXPECT_TRUE(waitFor([&] {
        settle();
        for (int row = top; row < top + 10; ++row) {
            const QModelIndex index = item->index(row, 2);
            if (index.data().toString().toStdString()
                != BusyModel::text(item->rowFromIndex(index), model.m_version))
                return false;
        }
        return model.isIdle();
    }));
}

} // namespace
} // namespace VOXI
