// The life of many actions, time and memory.

#include "benchsupport.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/kernel/vxaction2.h"

#include <QAction>
#include <QMainWindow>

#include <cstdint>
#include <memory>

namespace {

constexpr std::int64_t Count = 10'000;

struct VoxiActions
{
    std::unique_ptr<VOXI::VXWindow2> m_window = std::make_unique<VOXI::VXWindow2>();

    void construct() const { new VOXI::VXAction2(m_window.get()); }
    void constructHeard() const
    {
        auto* action = new VOXI::VXAction2(bench::labelText(false), m_window.get());
        action->triggered().connect(action, [] {});
    }
};

struct QtActions
{
    std::unique_ptr<QMainWindow> m_window = std::make_unique<QMainWindow>();

    void construct() const { new QAction(m_window.get()); }
    void constructHeard() const
    {
        auto* action = new QAction(QString::fromStdString(bench::labelText(false)), m_window.get());
        QObject::connect(action, &QAction::triggered, action, [] {});
    }
};

template <class Actions>
void constructActions(benchmark::State& state)
{
    Actions().construct();
    while (state.KeepRunningBatch(Count)) {
        Actions actions;
        const bench::HeapGrowth growth;
        bench::measure(state, [&] {
            for (std::int64_t i = 0; i < Count; ++i)
                actions.construct();
        });
        bench::settle();
        growth.report(state, Count);
    }
}

/// With the window that they belong to.
template <class Actions>
void destroyActions(benchmark::State& state)
{
    Actions().construct();
    while (state.KeepRunningBatch(Count)) {
        const bench::HeapGrowth growth;
        auto actions = std::make_unique<Actions>();
        for (std::int64_t i = 0; i < Count; ++i)
            actions->construct();
        bench::settle();
        bench::measure(state, [&] {
            actions.reset();
            bench::settle();
        });
        growth.report(state, Count);
    }
}

/// Their whole life, with a label and a listener each.
template <class Actions>
void useActions(benchmark::State& state)
{
    while (state.KeepRunningBatch(Count)) {
        bench::measure(state, [] {
            {
                const Actions actions;
                for (std::int64_t i = 0; i < Count; ++i)
                    actions.constructHeard();
            }
            bench::settle();
        });
    }
}

const bool s_added = bench::addPairs({
    {"ConstructAction", constructActions<VoxiActions>, constructActions<QtActions>},
    {"DestroyAction", destroyActions<VoxiActions>, destroyActions<QtActions>},
    {"Actions", useActions<VoxiActions>, useActions<QtActions>},
});

} // namespace
