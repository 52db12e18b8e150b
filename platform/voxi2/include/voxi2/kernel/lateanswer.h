#pragma once

#include "voxi_util/spinlock.h"

#include <mutex>
#include <optional>
#include <utility>

namespace VOXI::detail {

/// The answer to something that the program is asked for: given while the handlers run, or promised
/// by them and given later, on any thread. The first one counts. A promise that is let go of is
/// kept by a default answer.
template <class Answer>
class LateAnswer
{
public:
    /// Takes an answer that comes when the asking is over.
    using Deliver = void (*)(unsigned object, unsigned token, Answer answer) noexcept;

    LateAnswer(unsigned object, unsigned token, Deliver deliver)
        : m_object(object),
          m_token(token),
          m_deliver(deliver)
    {}
    ~LateAnswer()
    {
        if (m_isPromised && !m_isGiven)
            m_deliver(m_object, m_token, {});
    }
    LateAnswer(const LateAnswer&) = delete;
    LateAnswer& operator=(const LateAnswer&) = delete;

    void give(Answer answer)
    {
        {
            const std::lock_guard lock(m_lock);
            if (std::exchange(m_isGiven, true))
                return;
            if (m_isAsking) {
                m_answer = std::move(answer);
                return;
            }
        }
        m_deliver(m_object, m_token, std::move(answer));
    }

    /// Only counts while the handlers run.
    void promise()
    {
        const std::lock_guard lock(m_lock);
        m_isPromised = m_isAsking;
    }

    enum class Reply { None, Given, Later };

    /// Ends the asking; `given` becomes what the handlers have answered.
    Reply endAsking(Answer& given)
    {
        const std::lock_guard lock(m_lock);
        m_isAsking = false;
        if (m_answer) {
            given = std::move(*m_answer);
            m_answer.reset();
            return Reply::Given;
        }
        return m_isPromised ? Reply::Later : Reply::None;
    }

private:
    const unsigned m_object;
    const unsigned m_token;
    const Deliver m_deliver;

    SpinLock m_lock;
    bool m_isAsking = true;
    bool m_isPromised = false;
    bool m_isGiven = false;
    std::optional<Answer> m_answer; // while it is being asked
};

} // namespace VOXI::detail
