#include "voxi2/modelview/vxsourcemodel2.h"

#include "trov/thread.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace VOXI {

/// The thread of a source, begun with the first query, and what waits for it.
class VXSourceModel2::Worker
{
public:
    explicit Worker(std::shared_ptr<ModelSource2> source) : m_source(std::move(source)) {}

    template <class Query>
    static void add(const std::shared_ptr<Worker>& worker, std::vector<Query> Worker::*queries,
                    const Query& query)
    {
        const std::lock_guard lock(worker->m_mutex);
        ((*worker).*queries).push_back(query);
        if (!std::exchange(worker->m_isStarted, true))
            Threads::instance().start(worker);
        worker->m_arrival.notify_one();
    }

    /// What runs is not waited for.
    void end()
    {
        const std::lock_guard lock(m_mutex);
        m_ends = true;
        m_arrival.notify_one();
    }

    std::vector<ViewQuery2> m_queries; // in the order in which they came, as the next ones
    std::vector<HeaderQuery2> m_headerQueries;

private:
    /// The threads of all workers, those included whose models have ended.
    class Threads
    {
    public:
        static Threads& instance()
        {
            static Threads threads;
            return threads;
        }
        ~Threads()
        {
            for (auto& [worker, thread] : m_threads) {
                worker->end();
                thread.join();
            }
        }
        void start(const std::shared_ptr<Worker>& worker)
        {
            const std::lock_guard lock(m_mutex);
            std::erase_if(m_threads, [](auto& each) {
                const bool isOver = each.first->m_isOver;
                if (isOver)
                    each.second.join();
                return isOver;
            });
            m_threads.emplace_back(worker, std::thread([worker] { worker->run(); }));
        }

    private:
        std::mutex m_mutex;
        std::vector<std::pair<std::shared_ptr<Worker>, std::thread>> m_threads;
    };

    void run()
    {
        for (std::unique_lock lock(m_mutex);; lock.lock()) {
            m_arrival.wait(
                lock, [this] { return m_ends || !m_queries.empty() || !m_headerQueries.empty(); });
            if (m_ends)
                break;
            const std::vector<HeaderQuery2> headers = std::exchange(m_headerQueries, {});
            const std::vector<ViewQuery2> dropped = takeUnwanted();
            std::optional<ViewQuery2> next;
            if (headers.empty() && !m_queries.empty()) {
                next = std::move(m_queries.back());
                m_queries.pop_back();
            }
            lock.unlock();
            for (const ViewQuery2& query : dropped) {
                QueryResult2 result;
                result.setDropped();
                answer(query, std::move(result));
            }
            for (const HeaderQuery2& query : headers)
                serve(query, [&] { return m_source->readHeader(query); });
            if (next)
                serve(*next, [&] { return readCells(*next); });
        }
        m_source.reset();
        m_isOver = true;
    }

    std::vector<ViewQuery2> takeUnwanted()
    {
        const auto unwanted =
            std::stable_partition(m_queries.begin(), m_queries.end(),
                                  [](const ViewQuery2& query) { return query.isWanted(); });
        std::vector<ViewQuery2> result(unwanted, m_queries.end());
        m_queries.erase(unwanted, m_queries.end());
        return result;
    }

    QueryResult2 readCells(const ViewQuery2& query)
    {
        QueryResult2 result = m_source->read(query);
        // What is missing was given up.
        if (result.cells().empty() && !query.isWanted())
            result.setDropped();
        return result;
    }

    template <class Query, class Read>
    static void serve(const Query& query, const Read& read)
    {
        try {
            answer(query, read());
        } catch (...) {
            answerBlank(query);
            TROV::Thread::reportException(std::current_exception());
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_arrival;
    bool m_isStarted = false;
    bool m_ends = false;
    std::atomic<bool> m_isOver{false};
    std::shared_ptr<ModelSource2> m_source;
};

ModelSource2::~ModelSource2() = default;

HeaderQueryResult2 ModelSource2::readHeader(const HeaderQuery2&) { return {}; }

VXSourceModel2::VXSourceModel2(std::shared_ptr<ModelSource2> source, VXObject2* parent)
    : VXAbstractViewModel2(parent, ModelTrait::QueriesUnderLock | ModelTrait::HasBuilder),
      m_worker(source ? std::make_shared<Worker>(std::move(source)) : nullptr)
{
    finishBuilding(this);
}

VXSourceModel2::~VXSourceModel2()
{
    retire();
    if (m_worker)
        m_worker->end();
}

void VXSourceModel2::query(const ViewQuery2& query)
{
    if (m_worker)
        Worker::add(m_worker, &Worker::m_queries, query);
    else
        answerBlank(query);
}

void VXSourceModel2::queryHeader(const HeaderQuery2& query)
{
    if (m_worker)
        Worker::add(m_worker, &Worker::m_headerQueries, query);
    else
        answerBlank(query);
}

} // namespace VOXI
