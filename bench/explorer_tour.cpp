// ExplorerTour: the explorer over a table of five million rows, from its opening to an export; how
// long each part takes, and the longest time for which the toolkit's thread had no ear for anybody:
// by the clock, and what the thread itself did meanwhile, which holds on busy machines, too.
//
// explorer_tour FILE.db: the file is made if it is not there.

#include "explorerwindow.h"
#include "qthost/qthost.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxedit2.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <exception>
#include <filesystem>
#include <functional>
#include <string>

namespace {

using namespace VOXI;
constexpr unsigned Rows = 5'000'000;

void makeFile(const std::string& file)
{
    std::printf("making %s, once\n", file.c_str());
    std::filesystem::remove(file + ".new");
    {
        SQL::Database made(file + ".new", SQL::Database::Mode::Create);
        made.execute("CREATE TABLE readings (id INTEGER PRIMARY KEY, station TEXT NOT NULL, "
                     "value REAL, note TEXT)");
        made.execute("INSERT INTO readings WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
                     "FROM n WHERE i < "
                     + std::to_string(Rows)
                     + ") SELECT i, 'station ' || "
                       "(i * 7919 % 10007), i * 31 % 100003 / 7.0, CASE WHEN i % 5 = 0 THEN "
                       "'a remark about reading ' || i END FROM n");
    }
    std::filesystem::rename(file + ".new", file);
}

/// By the clock, and of the thread's own work.
struct Milliseconds
{
    double clock = 0;
    double work = 0;

    void takeLongest(const Milliseconds& other)
    {
        clock = std::max(clock, other.clock);
        work = std::max(work, other.work);
    }
};

Milliseconds now()
{
    const auto of = [](clockid_t id) {
        timespec time{};
        clock_gettime(id, &time);
        return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
    };
    return {of(CLOCK_MONOTONIC), of(CLOCK_THREAD_CPUTIME_ID)};
}

/// Ticks each millisecond; what lies between two ticks was somebody else's.
class Pulse
{
public:
    Pulse()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { note(); });
        m_timer.start(1);
    }
    Milliseconds takeLongest() { return std::exchange(m_longest, {}); }

private:
    void note()
    {
        const Milliseconds ticked = now();
        m_longest.takeLongest({ticked.clock - m_last.clock, ticked.work - m_last.work});
        m_last = ticked;
    }

    QTimer m_timer;
    Milliseconds m_last = now();
    Milliseconds m_longest;
};

class Tour
{
public:
    explicit Tour(explorer::ExplorerWindow& window) : m_window(window) {}

    /// Does it, and waits until it is done.
    void step(const char* name, const std::function<void()>& begin,
              const std::function<bool()>& isDone)
    {
        m_pulse.takeLongest();
        const Milliseconds start = now();
        begin();
        waitUntil(isDone);
        const Milliseconds pause = m_pulse.takeLongest();
        m_longest.takeLongest(pause);
        std::printf("  %-34s %9.0f ms   longest pause %6.1f ms, own work %6.1f ms\n", name,
                    now().clock - start.clock, pause.clock, pause.work);
    }
    static void waitUntil(const std::function<bool()>& isDone)
    {
        while (!isDone())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    template <class T>
    T* find(const std::string& name) const
    {
        for (VXObject2* object : m_window.window()->children(true)) {
            auto* const found = dynamic_cast<T*>(object);
            if (found && found->objectName() == name)
                return found;
        }
        return nullptr;
    }
    const Milliseconds& longest() const { return m_longest; }

private:
    explorer::ExplorerWindow& m_window;
    Pulse m_pulse;
    Milliseconds m_longest;
};

void travel(explorer::ExplorerWindow& window, const std::string& file)
{
    Tour tour(window);
    explorer::RowsPane& pane = window.rows();
    VXTableView2& table = *pane.table();
    const auto isListed = [&] { return pane.model() && !pane.isListing(); };
    const auto isSeen = [&](unsigned row) {
        return [&table, row] { return table.cellInfo(row, 1).isKnown; };
    };
    const auto trigger = [&](const char* name) { tour.find<VXAction2>(name)->imitateTrigger(); };

    tour.step(
        "open: the first rows", [&] { window.open(file); },
        [&] { return pane.model() && isSeen(1)(); });
    tour.step(
        "open: all rows", [] {}, isListed);
    for (unsigned i = 1; i <= 20; ++i)
        tour.step(
            i == 20 ? "scroll to the end" : "scroll on",
            [&] {
                table.scrollTo({Rows / 20 * i, 1, nullptr});
            },
            isSeen(Rows / 20 * i));
    tour.step(
        "sort by a column without an index", [&] { pane.sortBy(2, SortOrder::Ascending); },
        isListed);
    tour.step(
        "back to the order of the table", [&] { pane.sortBy(0, SortOrder::Ascending); }, isListed);
    auto* const filter = tour.find<VXEdit2>("filter-2");
    for (const char* key : {"n", " ", "9", "9", "9"})
        tour.step(
            "filter: a key, while it searches", [&] { filter->imitateTyping(key); },
            [&, until = now().clock + 100] { return now().clock > until; });
    unsigned row = 0;
    tour.step(
        "filter: the rest", [] {},
        [&] {
            row = table.cellAt(5, 5).row;
            return isListed() && row != 0 && table.cellInfo(row, 2).isKnown;
        });
    tour.step(
        "edit: open the editor", [&] { table.imitateEdit(row, 2, EditTrigger::EditKeyPressed); },
        [&] { return table.editor(row, 2) != nullptr; });
    tour.step(
        "edit: change the cell",
        [&] {
            auto* const edit = tour.find<VXEdit2>("cell-edit");
            edit->imitateTyping("elsewhere");
            edit->imitateKey(WidgetEvent::KeyPress,
                             VXKeyEvent2(edit, WidgetEvent::KeyPress, Key::Return));
        },
        [&] { return window.document()->hasChanges(); });
    tour.step(
        "roll back", [&] { trigger("rollback"); },
        [&] { return !window.document()->hasChanges() && isListed(); });
    const std::string target = file + ".csv";
    tour.step(
        "export what was found",
        [&] {
            trigger("export");
            tour.find<VXEdit2>("file")->setText(target);
            tour.find<VXButton2>("accept")->imitateClick();
        },
        [&] { return tour.find<VXDialog2>("export-dialog") == nullptr; });
    std::filesystem::remove(target);
    std::printf("ExplorerTour: longest pause %.1f ms, own work %.1f ms; the goal is 50 ms\n",
                tour.longest().clock, tour.longest().work);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        if (argc != 2) {
            std::fprintf(stderr, "usage: explorer_tour FILE.db\n");
            return 2;
        }
        const std::string file = std::filesystem::absolute(argv[1]).string();
        if (!std::filesystem::exists(file))
            makeFile(file);
        QtHost host(argc, argv);
        explorer::ExplorerWindow window{explorer::Settings(file + ".settings")};
        travel(window, file);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "explorer_tour: %s\n", error.what());
        return 1;
    }
}
