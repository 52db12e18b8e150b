#include "voxi_util/vxlazydata.h"

#include <algorithm>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace VOXI {

struct VXLazyData::State
{
    explicit State(std::function<any()> make) : m_make(std::move(make)) {}

    const std::function<any()> m_make;
    std::mutex m_mutex;
    std::vector<std::thread::id> m_makers; // that are at it
    any m_made;
};

namespace {

/// Says that a thread is at it.
template <class State>
class Making
{
public:
    explicit Making(State& state) : m_state(state) {}
    ~Making()
    {
        const std::lock_guard lock(m_state.m_mutex);
        std::erase(m_state.m_makers, std::this_thread::get_id());
    }
    Making(const Making&) = delete;
    Making& operator=(const Making&) = delete;

private:
    State& m_state;
};

} // namespace

VXLazyData::VXLazyData(std::function<any()> make)
    : m_state(std::make_shared<State>(std::move(make)))
{}

any VXLazyData::get() const
{
    const std::shared_ptr<State> state = m_state; // what is called may end this
    {
        const std::lock_guard lock(state->m_mutex);
        const auto self = std::this_thread::get_id();
        auto& makers = state->m_makers;
        const bool isAtIt = std::find(makers.begin(), makers.end(), self) != makers.end();
        if (state->m_made.has_value() || isAtIt || !state->m_make)
            return state->m_made;
        makers.push_back(self);
    }
    const Making making(*state);
    any made = state->m_make(); // not under the lock
    const std::lock_guard lock(state->m_mutex);
    if (!state->m_made.has_value())
        state->m_made = std::move(made);
    return state->m_made;
}

} // namespace VOXI
