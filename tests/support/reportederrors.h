#pragma once

#include "trov/thread.h"

#include <exception>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace TROV {

inline std::string textOf(const std::exception_ptr& error)
{
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& e) {
        return e.what();
    }
}

/// Takes what is thrown where nobody can catch it, while the object lives.
class ReportedErrors
{
public:
    ReportedErrors()
    {
        Thread::setExceptionHandler([this](std::exception_ptr error) {
            const std::lock_guard lock(m_mutex);
            m_texts.push_back(textOf(error));
        });
    }
    ~ReportedErrors() { Thread::setExceptionHandler({}); }

    /// The texts that have come since the last call.
    std::vector<std::string> take()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_texts, {});
    }

private:
    std::mutex m_mutex;
    std::vector<std::string> m_texts;
};

} // namespace TROV
