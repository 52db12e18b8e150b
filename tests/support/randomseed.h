#pragma once

#include <cstdlib>
#include <iostream>
#include <random>

namespace VOXI {

/// Another one each time, or what the environment says: printed, so that what failed can be had
/// again.
inline unsigned randomSeed()
{
    const char* const wanted = std::getenv("VOXI_TEST_SEED");
    const unsigned seed = wanted ? unsigned(std::atoi(wanted)) : std::random_device{}();
    std::cout << "VOXI_TEST_SEED=" << seed << std::endl;
    return seed;
}

} // namespace VOXI
