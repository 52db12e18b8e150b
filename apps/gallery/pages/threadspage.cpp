#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/kernel/vxhandle.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

namespace gallery {

using namespace VOXI;

namespace {

/// A thread that counts in texts of the page, and asks one of them what it shows.
class Counting
{
public:
    Counting(VXText2* count, VXText2* answer) : m_count(count), m_answer(answer) {}
    Counting(const Counting&) = delete;
    Counting& operator=(const Counting&) = delete;
    /// Called when the texts are gone: the worker waits for nothing any more.
    ~Counting()
    {
        stop();
        if (m_thread.joinable())
            m_thread.join();
    }

    /// Does nothing while it counts.
    void start()
    {
        if (m_running.exchange(true))
            return;
        if (m_thread.joinable())
            m_thread.join(); // it has said that it ends
        m_stop = false;
        m_thread = std::thread([this] { run(); });
    }

    /// Does not wait for the worker, which may be waiting for this thread's answer.
    void stop() { m_stop = true; }

    std::uint64_t number() const { return m_number; }

private:
    void run()
    {
        using namespace std::chrono;
        while (!m_stop) {
            const std::string number = std::to_string(++m_number);
            m_count->setText(number);
            const auto asked = steady_clock::now();
            const std::string shown = m_count->text();
            const auto waited = duration_cast<microseconds>(steady_clock::now() - asked);
            if (m_number % 250 == 0)
                m_answer->setText("asked for the text, got " + shown + " after "
                                  + std::to_string(waited.count()) + " microseconds");
        }
        m_running = false;
    }

    const VXHandle<VXText2> m_count;
    const VXHandle<VXText2> m_answer;
    std::thread m_thread;
    std::atomic<std::uint64_t> m_number{0};
    std::atomic<bool> m_running{false};
    std::atomic<bool> m_stop{false};
};

VXText2* value(const Box& page, const std::string& title, const std::string& text,
               const std::string& objectName)
{
    const Box line = titledRow(page, title);
    auto* result = new VXText2(text, line.panel);
    result->setObjectName(objectName);
    line.layout->addWidget(result, 1);
    return result;
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    VXText2* count = value(page, "The worker counts", "0", "worker-count");
    count->setFont(VXFont(std::string(), 20, VXFont::Bold));
    VXText2* answer = value(page, "and asks", "nothing yet", "worker-answer");
    const auto counting = std::make_shared<Counting>(count, answer);
    log.keep(counting);

    const Box worker = titledRow(page, "Worker");
    VXButton2* start = button(worker.panel, "&Start", "worker-start");
    VXButton2* stop = button(worker.panel, "S&top", "worker-stop");
    start->clicked().connect(&log, [counting, &log] {
        log.add("worker starts at " + std::to_string(counting->number()));
        counting->start();
    });
    stop->clicked().connect(&log, [counting, &log] {
        counting->stop();
        log.add("worker stops at " + std::to_string(counting->number()));
    });
    worker.layout->addWidget(start);
    worker.layout->addWidget(stop);
    worker.layout->addStretch();

    const Box mean = titledRow(page, "Meanwhile");
    VXButton2* click = button(mean.panel, "&Click me", "meanwhile");
    auto* clicks = new VXText2("not clicked yet", mean.panel);
    click->clicked().connect(
        clicks, [clicks, n = 0]() mutable { clicks->setText("clicks: " + std::to_string(++n)); });
    mean.layout->addWidget(click);
    mean.layout->addWidget(clicks);
    mean.layout->addStretch();
    page.layout->addStretch();
    return page.panel;
}

} // namespace

Page threadsPage()
{
    return {"threads", "Threads",
            "A worker thread sets a text through a handle and asks what it shows, as fast as it "
            "can. The window stays responsive.",
            &create};
}

} // namespace gallery
