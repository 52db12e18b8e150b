#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/kernel/vxhandle.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace gallery {

using namespace VOXI;

namespace {

/// A source of entries that takes its time: each request is answered by a thread of its own, after
/// a delay. The answer is queued to the thread that asked, and names the menus by handles: they may
/// be gone by then.
class SlowSource
{
public:
    ~SlowSource()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_ending = true;
        }
        m_end.notify_all();
        for (std::thread& thread : m_threads)
            thread.join();
    }

    void setDelay(std::chrono::milliseconds delay) { m_delay = delay; }
    void setFailing(bool failing) { m_failing = failing; }

    /// Fills the menu later; `parent` is the one that it opened from.
    void fill(VXHandle<VXMenu2> menu, VXHandle<VXMenu2> parent)
    {
        TROV::Thread* const asking = TROV::Thread::getCurrentThread();
        m_threads.emplace_back([this, menu, parent, asking, delay = m_delay, failing = m_failing] {
            std::unique_lock lock(m_mutex);
            if (m_end.wait_for(lock, delay, [this] { return m_ending; }))
                return;
            asking->post([menu, parent, failing] {
                if (failing) {
                    menu->digFailed();
                    return;
                }
                for (int i = 1; i <= 12; ++i)
                    menu->addAction("Entry " + std::to_string(i));
                menu->digComplete(parent.get());
            });
        });
    }

private:
    std::chrono::milliseconds m_delay{400};
    bool m_failing = false;
    std::mutex m_mutex;
    std::condition_variable m_end;
    bool m_ending = false; // guarded
    std::vector<std::thread> m_threads;
};

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    const auto source = std::make_shared<SlowSource>();
    log.keep(source);
    alternatives(page, "Answers come", {"at once", "after 0.4 s", "after 2 s"}, 1,
                 [source](std::size_t choice) {
                     const int delays[] = {0, 400, 2000};
                     source->setDelay(std::chrono::milliseconds(delays[choice]));
                 });
    alternatives(page, "and bring", {"entries", "a failure"}, 0,
                 [source](std::size_t choice) { source->setFailing(choice == 1); });

    auto* menu = new VXMenu2(page.panel);
    menu->setObjectName("dig-parent");
    for (int i = 1; i <= 8; ++i) {
        if (i % 2 == 1) {
            menu->addAction("Plain " + std::to_string(i));
            continue;
        }
        auto* dig = new VXMenu2(page.panel);
        dig->setObjectName("dig-" + std::to_string(i));
        dig->setDigMenu(true);
        menu->addMenu("Slow " + std::to_string(i), dig);
        dig->aboutToShow().connect(&log, [&log, source, menu, i](const VXMenuEvent2& event) {
            log.add("menu " + std::to_string(i) + " asks for its entries");
            event.menu()->destroyItems();
            source->fill(event.menu(), menu);
        });
    }

    const Frame pad = frame(page.panel, PadColor);
    pad.inside.layout->addWidget(new VXText2(
        "Open the context menu here, then travel slantwise into a slow one", pad.inside.panel));
    menu->setContextMenuOf(pad.inside.panel);
    pad.inside.panel->setAccessibleName("Pad with a context menu");
    pad.inside.panel->setFocusPolicy(FocusPolicy::Strong); // or the menu key finds nothing
    frameFocus(pad.inside.panel);
    page.layout->addWidget(pad.outside, 1);
    return page.panel;
}

} // namespace

Page digMenusPage()
{
    return {"digmenus", "Dig menus",
            "Menus that a worker thread fills while they open. They stay open while the pointer "
            "travels to them across other entries.",
            &create};
}

} // namespace gallery
