#include "support/randomseed.h"
#include "uidtable.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <malloc.h>
#include <new>
#include <random>
#include <vector>

namespace {

/// What this thread has taken since it was set to 0, and what it holds.
thread_local std::size_t t_taken = 0;
thread_local std::ptrdiff_t t_held = 0;

} // namespace

void* operator new(std::size_t size)
{
    void* const memory = std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    t_taken += malloc_usable_size(memory);
    t_held += static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
    return memory;
}

void operator delete(void* memory) noexcept
{
    if (memory)
        t_held -= static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

// Sanitizers bring their own, which would not call these.
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete[](void* memory) noexcept { operator delete(memory); }
void operator delete[](void* memory, std::size_t) noexcept { operator delete(memory); }

namespace VOXI {
namespace {

using Uid = UidTable::Uid;

constexpr Uid Step = 1'000;

/// The most bytes that `uids` take, and the most that a step of insertions asks for, when there are
/// many.
struct Cost
{
    double m_perUid = 0;
    double m_perStep = 0;
};

template <class Table>
Cost costOf(Table table, const std::vector<Uid>& uids)
{
    constexpr Uid Many = 50'000;
    Cost cost;
    t_held = 0;
    for (std::size_t first = 0; first < uids.size(); first += Step) {
        t_taken = 0;
        for (std::size_t i = first; i < first + Step; ++i)
            table[uids[i]] = 1;
        if (first < Many)
            continue;
        cost.m_perUid = std::max(cost.m_perUid, double(t_held) / double(table.size()));
        cost.m_perStep = std::max(cost.m_perStep, double(t_taken));
    }
    return cost;
}

/// However the UIDs lie, the tables fill evenly; and no two of them grow at the same time.
TEST(UidTable, growsInSmallStepsAndTakesNoMoreThanOneTable)
{
    std::mt19937 random(randomSeed());
    const std::function<Uid(Uid)> spreads[] = {
        [](Uid i) { return i; },
        [](Uid i) { return i * 65'537; },
        [](Uid i) { return i << 12; },
        [&](Uid) { return Uid(random()); },
    };
    for (const auto& spread : spreads) {
        std::vector<Uid> uids(400 * Step);
        for (Uid i = 0; i < uids.size(); ++i)
            uids[i] = spread(i);
        const Cost many = costOf(UidTable(), uids);
        const Cost one = costOf(QHash<Uid, std::uint32_t>(), uids);
        EXPECT_LT(many.m_perUid, 1.1 * one.m_perUid);
        EXPECT_LT(many.m_perStep, one.m_perStep / 10);
    }
}

} // namespace
} // namespace VOXI
