#pragma once

#include <QTest>

#include <chrono>
#include <utility>

namespace VOXI {

/// Runs the event loop until the predicate holds; false when it does not within the time.
/// GUI thread only.
template <typename Predicate>
bool waitFor(Predicate&& predicate, std::chrono::milliseconds limit = std::chrono::seconds(5))
{
    return QTest::qWaitFor(std::forward<Predicate>(predicate), static_cast<int>(limit.count()));
}

} // namespace VOXI
