// An application's own models: what reaches which of their views, when, and what is passed over.

#include "../fakebackend.h"
#include "naiveview.h"
#include "voxi2/modelview/vxsourcemodel2.h"
#include "voxi2/modelview/vxtablemodel2.h"
#include "voxi2/modelview/vxtableview2.h"

#include <condition_variable>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <random>
#include <stdexcept>

namespace VOXI {
namespace {

void settle() { TROV::Thread::getCurrentThread()->process(); }

class Model : public VXAbstractViewModel2
{
public:
    using VXAbstractViewModel2::answer;
    using VXAbstractViewModel2::changeSize;
    using VXAbstractViewModel2::clearCachedUIData;

    void query(const ViewQuery2& each) override
    {
        m_queries.push_back(each);
        if (m_throws)
            throw std::runtime_error("no data");
    }
    static QueryResult2 cells(const ViewQuery2& query, const std::string& text)
    {
        QueryResult2 result;
        for (const unsigned row : query.rows()) {
            for (const unsigned column : query.columns())
                result.set(row, column, text);
        }
        return result;
    }

    std::vector<ViewQuery2> m_queries;
    bool m_throws = false;
};

class ViewModels : public BackEndTest
{
protected:
    ViewModels()
    {
        TROV::Thread::setExceptionHandler([this](std::exception_ptr) { ++m_exceptions; });
    }
    ~ViewModels() override { TROV::Thread::setExceptionHandler({}); }

    std::atomic<int> m_exceptions{0};
};

TEST_F(ViewModels, tellEachViewWhatItAskedAndNothingTwice)
{
    std::optional<Model> model;
    model.emplace();
    NaiveView one(*model);
    NaiveView other(*model);
    one.ask({1, 2}, {1});
    other.ask({2}, {1});
    EXPECT_TRUE(model->m_queries.empty()) << "a view that paints runs no code of the application";
    settle();
    ASSERT_EQ(model->m_queries.size(), 2u);
    const ViewQuery2 first = model->m_queries[0];
    const ViewQuery2 second = model->m_queries[1];
    onWorker([&] {
        Model::answer(second, Model::cells(second, "b"));
        Model::answer(second, Model::cells(second, "twice"));
        Model::answer({}, Model::cells(second, "invented"));
        Model::answer(first, Model::cells(first, "a"));
    });
    settle();
    EXPECT_EQ(one.m_results, 1);
    EXPECT_EQ(other.m_results, 1);
    EXPECT_EQ(one.m_cells[std::pair(2u, 1u)], L"a");
    EXPECT_EQ(other.m_cells[std::pair(2u, 1u)], L"b");

    // What was answered before a clear is old, and has to be asked for again.
    one.ask({1}, {1});
    settle();
    Model::answer(model->m_queries.back(), Model::cells(first, "old"));
    model->clearCachedUIData();
    settle();
    EXPECT_EQ(one.m_dropped, 1);
    EXPECT_TRUE(one.m_cells.empty());

    model->m_throws = true;
    one.ask({7}, {1});
    settle();
    EXPECT_TRUE(one.m_pending.empty()) << "it would wait for ever";
    EXPECT_EQ(m_exceptions, 1);

    model->m_throws = false;
    const ViewQuery2 last = one.ask({8}, {1});
    const ViewQuery2 neverRun = one.ask({9}, {1});
    EXPECT_TRUE(last.isWanted());
    model.reset();
    settle();
    EXPECT_FALSE(neverRun.isWanted());
    Model::answer(last, Model::cells(last, "late"));
    settle();
    EXPECT_EQ(one.m_pending.size(), 2u);
    EXPECT_EQ(one.ask({1}, {1}).id(), 0u);
}

TEST_F(ViewModels, rememberWhatTheyToldForViewsThatComeLater)
{
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    Model model;
    const NaiveView early(model);
    const auto any = [&] { return static_cast<unsigned>(random() % 40); };
    for (int step = 0; step < 6000; ++step) {
        // Mostly wrong: unknown anchors and parents, rows twice, kinds that there are none of.
        std::vector<unsigned> uids;
        for (unsigned count = random() % 4; count > 0; --count)
            uids.push_back(any());
        const int kind = static_cast<int>(random() % 12) - 1;
        // Each in a turn of its own: to join is what other tests are about.
        model.changeSize(SizeChange2(kind, any(), random() % 2 ? any() : 0, uids));
        model.flushChanges();
        if (step % 500 == 250) {
            const NaiveView late(model);
            ASSERT_EQ(late.m_rows, early.m_rows) << "step " << step;
            ASSERT_EQ(late.m_columns, early.m_columns) << "step " << step;
        }
    }
}

TEST_F(ViewModels, keepTheOrderOfChangesWhoeverMakesThem)
{
    Model model;
    const NaiveView view(model);
    TROV::Thread* const self = TROV::Thread::getCurrentThread();
    std::thread([&] { model.changeSize(SizeChange2::appendRows({1})); }).join();
    // The worker's change is still on its way to this thread.
    model.changeSize(SizeChange2::insertRowsBefore(1, {2}));
    model.flushChanges();
    EXPECT_EQ(view.m_rows.at(0), (std::vector<unsigned>{2, 1}));
    self->process();
    EXPECT_EQ(view.m_rows.at(0), (std::vector<unsigned>{2, 1}));
}

TEST_F(ViewModels, haveTheirViewsKnowARowThatIsNamed)
{
    FakeBackEnd backEnd;
    std::optional<NaiveView> peer;
    VXTableModel2 model({"Name"});
    std::vector<unsigned> known;
    backEnd.factory().createTableView2.connect(
        &backEnd, [&](VXTableView2*, VXTableView2Emitters* emitters, VXObject*) {
            VXAbstractView2Emitters& base = *emitters->base();
            base.setViewModel.signal().connect(
                &backEnd, [&](VXAbstractViewModel2* shown) { peer.emplace(*shown); });
            base.setActiveCell.signal().connect(&backEnd, [&](const ModelCell2& cell) {
                EXPECT_EQ(cell.model, &model);
                EXPECT_EQ(cell.row, peer->m_rows.at(0).back());
                known.push_back(cell.row);
            });
        });
    VXTableView2 view;
    view.setViewModel(&model);
    view.setActiveCell({model.appendRow({"one"}), 1});
    onWorker([&] { view.setActiveCell({model.appendRow({"two"}), 1}); });
    settle();
    EXPECT_EQ(known, (std::vector<unsigned>{1, 2}));
}

/// A source that waits at each read until it is let on.
class Source : public ModelSource2
{
public:
    QueryResult2 read(const ViewQuery2& query) override
    {
        std::unique_lock lock(m_mutex);
        m_read.push_back(query.rows().front());
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_permits > 0; });
        --m_permits;
        m_wanted.push_back(query.isWanted());
        m_changed.notify_all();
        if (query.rows().front() == 13)
            throw std::runtime_error("row 13");
        return query.isWanted() ? Model::cells(query, "read") : QueryResult2();
    }
    void permit(int reads)
    {
        const std::lock_guard lock(m_mutex);
        m_permits += reads;
        m_changed.notify_all();
    }
    template <class List>
    void waitFor(List Source::*list, std::size_t size)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return (this->*list).size() >= size; });
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_permits = 0;
    std::vector<unsigned> m_read;
    std::vector<bool> m_wanted;
};

TEST_F(ViewModels, readWhatIsInSightFirstAndNothingThatIsNot)
{
    const auto source = std::make_shared<Source>();
    std::optional<VXSourceModel2> model(std::in_place, source);
    model->changeSize({SizeChange2::appendColumns({1}), SizeChange2::appendRows({1, 2, 3, 13})});
    NaiveView view(*model);
    const auto answered = [&](int results) {
        while (view.m_results < results) {
            settle();
            std::this_thread::yield();
        }
    };
    view.ask({1}, {1});
    settle();
    source->waitFor(&Source::m_read, 1);
    for (const unsigned row : {2u, 3u, 4u, 5u, 13u})
        view.ask({row}, {1});
    settle();
    view.m_link.setInSight({3, 5, 13}, {1});
    source->permit(1); // row 1, which has left the sight while it is read
    source->waitFor(&Source::m_read, 2);
    answered(3);
    EXPECT_EQ(view.m_dropped, 3) << "1, 2 and 4";
    source->permit(3);
    answered(6);
    EXPECT_EQ(source->m_read, (std::vector<unsigned>{1, 13, 5, 3}));
    EXPECT_EQ(source->m_wanted, (std::vector<bool>{false, true, true, true}));
    EXPECT_EQ(view.m_cells[std::pair(3u, 1u)], L"read");
    EXPECT_EQ(view.m_cells[std::pair(13u, 1u)], L"") << "it failed, and is not asked for again";
    EXPECT_EQ(m_exceptions, 1);

    view.ask({3}, {1});
    settle();
    source->waitFor(&Source::m_read, 5);
    model.reset(); // in the middle of it
    source->permit(1);
    source->waitFor(&Source::m_wanted, 5);
    EXPECT_FALSE(source->m_wanted.back());
    settle();
    EXPECT_EQ(view.m_results, 6);
}

TEST(CellValues, areOrderedAndRead)
{
    const std::vector<CellValue> inOrder{
        {}, std::numeric_limits<double>::quiet_NaN(), -3, -2.5, 0u, true, 7ll, "a", u8"b"};
    for (std::size_t a = 0; a < inOrder.size(); ++a) {
        for (std::size_t b = 0; b < inOrder.size(); ++b)
            EXPECT_EQ(CellValue::compare(inOrder[a], inOrder[b]) == 0, a == b) << a << ' ' << b;
    }
    EXPECT_TRUE(std::ranges::is_sorted(inOrder, [](const CellValue& a, const CellValue& b) {
        return CellValue::compare(a, b) < 0;
    }));
    EXPECT_TRUE(CellValue("true").toBool());
    EXPECT_FALSE(CellValue(0.0).toBool());
    EXPECT_FALSE(CellValue().toBool());
    const CellUIData one = CellUIData("x").setBold().setEnabled(false);
    CellUIData other = one;
    EXPECT_EQ(one.look(), other.look());
    other.setBold(false);
    EXPECT_EQ(one.look()->bold, 1);
}

} // namespace
} // namespace VOXI
