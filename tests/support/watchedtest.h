#pragma once

#include "support/watchdog.h"

#include <gtest/gtest.h>

namespace VOXI {

/// Every test dies with a message instead of hanging.
class WatchedTest : public testing::Test
{
    Watchdog m_watchdog{std::chrono::seconds(50),
                        testing::UnitTest::GetInstance()->current_test_info()->name()};
};

} // namespace VOXI
