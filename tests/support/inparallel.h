#pragma once

#include <barrier>
#include <thread>
#include <vector>

namespace VOXI {

/// Runs `function` with the numbers below `count` on as many threads, which start together, and
/// returns when all have ended.
template <class Function>
void inParallel(int count, const Function& function)
{
    std::barrier start(count);
    std::vector<std::jthread> threads;
    threads.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            function(i);
        });
}

} // namespace VOXI
