#pragma once

#include <atomic>
#include <memory>

namespace SQL {

/// By which something that takes long is stopped. Copies are one token. Any thread.
///
/// What is stopped throws an `Error` of kind `Cancelled` within some milliseconds. A token that is
/// cancelled stays so: take a new one for what comes next.
class CancelToken
{
public:
    CancelToken() : m_isCancelled(std::make_shared<std::atomic<bool>>(false)) {}

    void cancel() const noexcept { *m_isCancelled = true; }
    bool isCancelled() const noexcept { return *m_isCancelled; }

private:
    std::shared_ptr<std::atomic<bool>> m_isCancelled;
};

} // namespace SQL
