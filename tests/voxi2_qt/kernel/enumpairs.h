#pragma once

#include "voxi2_qt/kernel/qtconvert.h"

#include <concepts>
#include <gtest/gtest.h>
#include <initializer_list>
#include <set>
#include <utility>

namespace VOXI {

/// Expects each member to have its Qt number, there and back, and no two to share one.
template <class QtEnum, class Vx>
void expectPairs(std::initializer_list<std::pair<Vx, unsigned>> pairs)
{
    std::set<unsigned> numbers;
    for (const auto& [vx, number] : pairs) {
        const std::same_as<QtEnum> auto converted = VX2Qt(vx);
        EXPECT_EQ(static_cast<unsigned>(converted), number);
        EXPECT_TRUE(Qt2VX(static_cast<QtEnum>(number)) == vx) << std::hex << number;
        EXPECT_TRUE(numbers.insert(number).second) << std::hex << number;
    }
}

/// The same for flags: each bit alone, and all of them together.
template <class QtFlags, class Vx>
void expectFlags(std::initializer_list<std::pair<Vx, unsigned>> pairs)
{
    VXFlags<Vx> all;
    unsigned allNumbers = 0;
    for (const auto& [vx, number] : pairs) {
        EXPECT_EQ(static_cast<unsigned>(VX2Qt(VXFlags<Vx>(vx)).toInt()), number);
        EXPECT_EQ(Qt2VX(QtFlags(static_cast<typename QtFlags::enum_type>(number))),
                  VXFlags<Vx>(vx));
        all |= vx;
        allNumbers |= number;
    }
    EXPECT_EQ(static_cast<unsigned>(VX2Qt(all).toInt()), allNumbers);
    EXPECT_EQ(Qt2VX(VX2Qt(all)), all);
    EXPECT_FALSE(VX2Qt(VXFlags<Vx>()));
    EXPECT_FALSE(Qt2VX(QtFlags()));
}

} // namespace VOXI
