#pragma once

#include "support/watchdog.h"
#include "voxi/guiobject.h"
#include "voxi/vxobject.h"

#include <gtest/gtest.h>

namespace VOXI {

/// An abstract object with nothing of its own.
class TestObject : public VXObject
{
public:
    TestObject() = default;
    using VXObject::forEachObject;
    using VXObject::invalidate;
};

/// A peer that notes its end.
class TestPeer : public GuiObject
{
public:
    explicit TestPeer(int* deletions = nullptr) : m_deletions(deletions) {}
    ~TestPeer() override
    {
        if (m_deletions)
            ++*m_deletions;
    }

private:
    int* m_deletions;
};

/// Every test dies with a message instead of hanging.
class WatchedTest : public testing::Test
{
    Watchdog m_watchdog{std::chrono::seconds(50),
                        testing::UnitTest::GetInstance()->current_test_info()->name()};
};

} // namespace VOXI
