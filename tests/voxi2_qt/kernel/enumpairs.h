#pragma once

#include "voxi2_qt/kernel/qtconvert.h"

#include <concepts>
#include <gtest/gtest.h>
#include <initializer_list>
#include <utility>

namespace VOXI {

/// Expects each member to have its Qt number, there and back.
template <class QtEnum, class Vx>
void expectPairs(std::initializer_list<std::pair<Vx, unsigned>> pairs)
{
    for (const auto& [vx, number] : pairs) {
        const std::same_as<QtEnum> auto converted = VX2Qt(vx);
        EXPECT_EQ(static_cast<unsigned>(converted), number);
        EXPECT_TRUE(Qt2VX(static_cast<QtEnum>(number)) == vx) << std::hex << number;
    }
}

/// The same for members that have in Qt the numbers that they have here, from first to last.
template <class QtEnum, class Vx>
void expectSameNumbers(Vx first, Vx last)
{
    for (auto number = static_cast<unsigned>(first); number <= static_cast<unsigned>(last);
         ++number)
        expectPairs<QtEnum, Vx>({{static_cast<Vx>(number), number}});
}

/// The same for flags, whose bits may lie higher in Qt: each alone, up to the last, and all of
/// them together. Where members are converted by themselves as well, they are expected to, too.
template <class QtFlags, class Vx>
void expectSameBits(Vx last, unsigned shift = 0)
{
    using QtEnum = typename QtFlags::enum_type;
    VXFlags<Vx> all;
    unsigned allNumbers = 0;
    for (unsigned bit = 1; bit <= static_cast<unsigned>(last); bit *= 2) {
        const auto vx = static_cast<Vx>(bit);
        const unsigned number = bit << shift;
        EXPECT_EQ(static_cast<unsigned>(VX2Qt(VXFlags<Vx>(vx)).toInt()), number);
        EXPECT_EQ(Qt2VX(QtFlags(static_cast<QtEnum>(number))), VXFlags<Vx>(vx));
        if constexpr (std::same_as<decltype(VX2Qt(vx)), QtEnum>)
            expectPairs<QtEnum, Vx>({{vx, number}});
        all |= vx;
        allNumbers |= number;
    }
    EXPECT_EQ(static_cast<unsigned>(VX2Qt(all).toInt()), allNumbers);
    EXPECT_EQ(Qt2VX(VX2Qt(all)), all);
    EXPECT_FALSE(VX2Qt(VXFlags<Vx>()));
    EXPECT_FALSE(Qt2VX(QtFlags()));
}

} // namespace VOXI
