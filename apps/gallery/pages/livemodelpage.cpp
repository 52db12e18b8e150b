#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2/modelview/vxtablemodel2.h"
#include "voxi2/modelview/vxtableview2.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <random>
#include <thread>

namespace gallery {

using namespace VOXI;

namespace {

constexpr int Rows = 1'000;
constexpr int Columns = 4;
constexpr int ChangesAtATime = 40;

/// A thread that changes a model ten times a second.
class Changing
{
public:
    explicit Changing(VXTableModel2* model) : m_model(model), m_thread([this] { run(); }) {}
    Changing(const Changing&) = delete;
    Changing& operator=(const Changing&) = delete;
    ~Changing()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isOver = true;
        }
        m_wake.notify_all();
        m_thread.join();
    }

    void setRunning(bool running)
    {
        const std::lock_guard lock(m_mutex);
        m_isRunning = running;
    }

private:
    void run()
    {
        std::unique_lock lock(m_mutex);
        const auto isOver = [this] { return m_isOver; };
        while (!m_wake.wait_for(lock, std::chrono::milliseconds(100), isOver)) {
            if (!m_isRunning)
                continue;
            lock.unlock();
            m_model.with([this](VXTableModel2& model) { change(model); });
            lock.lock();
        }
    }

    void change(VXTableModel2& model)
    {
        const std::vector<unsigned> rows = model.rows();
        const auto anyRow = [&] { return rows[m_random() % rows.size()]; };
        for (int i = 0; i < ChangesAtATime; ++i)
            model.setValue(anyRow(), 2 + static_cast<unsigned>(m_random() % (Columns - 1)),
                           static_cast<int>(m_random() % 1'000));
        model.removeRow(anyRow());
        model.insertRow(anyRow(), {"new " + std::to_string(++m_count)});
        model.moveRow(anyRow(), anyRow());
    }

    const VXHandle<VXTableModel2> m_model;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_isRunning = true;
    bool m_isOver = false;
    std::minstd_rand m_random;
    unsigned m_count = 0;
    std::thread m_thread; // the last: it uses the others
};

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    auto* const model = new VXTableModel2({"Name", "A", "B", "C"}, page.panel);
    for (int row = 1; row <= Rows; ++row)
        model->appendRow({"row " + std::to_string(row), row, 2 * row, 3 * row});
    auto* const table = new VXTableView2(page.panel);
    table->setAccessibleName("Measurements");
    table->setObjectName("live-table");
    table->setViewModel(model);
    table->setSelectionMode(SelectionMode::Extended);
    table->setAlternatingRowColors(true);
    table->setHeaderClickable(true);
    table->setMinimumSize({0, 300});
    table->selectRows({3, 4, 5});
    page.layout->addWidget(table, 1);
    table->headerClicked().connect(&log, [=](const VXHeaderClickEvent2& event) {
        model->setSorting(event.column(), event.order());
        table->setSortIndicator(event.column(), event.order());
    });
    table->selectionChanged().connect(&log, [&log](const VXViewSelectionChangeEvent2& event) {
        log.add("selected: " + std::to_string(event.rows().size()) + " rows");
    });
    const auto changing = std::make_shared<Changing>(model);
    log.keep(changing);
    alternatives(page, "The data", {"change", "rest"}, 0,
                 [changing](std::size_t i) { changing->setRunning(i == 0); });
    return page.panel;
}

} // namespace

Page liveModelPage()
{
    return {"livemodel", "Live data",
            "A thread changes cells, adds, removes and moves rows ten times a second. What is "
            "selected and what is in sight stay.",
            &create};
}

} // namespace gallery
