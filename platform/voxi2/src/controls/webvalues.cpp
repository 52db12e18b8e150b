#include "voxi2/controls/webvalues.h"

#include "trov/thread.h"
#include "voxi2/controls/vxwebbrowser2.h"

#include <exception>

namespace VOXI {

// Scripts -----------------------------------------------------------------------------------------

struct WebScriptReply::State
{
    std::function<void(const WebScriptResult&)> m_receiver;
    TROV::ThreadRef m_thread{TROV::Thread::getCurrentThread()};
    std::atomic<bool> m_isGiven{false};

    void give(WebScriptResult result)
    {
        if (m_isGiven.exchange(true))
            return;
        m_thread->post(
            [receiver = std::move(m_receiver), result = std::move(result)] { receiver(result); });
    }

    /// The last copy may go anywhere, so nothing is thrown at whoever lets go of it.
    ~State()
    {
        try {
            give({});
        } catch (...) {
            TROV::Thread::reportException(std::current_exception());
        }
    }
};

WebScriptReply::WebScriptReply(std::function<void(const WebScriptResult&)> receiver)
    : m_state(receiver ? new State{std::move(receiver)} : nullptr)
{}

void WebScriptReply::give(WebScriptResult result) const
{
    if (m_state)
        m_state->give(std::move(result));
}

// Pages -------------------------------------------------------------------------------------------

struct WebQuery2::State
{
    std::wstring m_address;
    std::string m_method;
    Wanted m_wanted;
    detail::LateAnswer<WebContent> m_answer;
};

WebQuery2::WebQuery2() : WebQuery2(0, 0, {}, {}, nullptr) {}

WebQuery2::WebQuery2(unsigned browser, unsigned token, std::wstring address, std::string method,
                     Wanted wanted)
    : m_state(new State{std::move(address),
                        std::move(method),
                        std::move(wanted),
                        {browser, token, &VXWebBrowser2::takeAnswer}})
{}

const std::wstring& WebQuery2::address() const noexcept { return m_state->m_address; }
const std::string& WebQuery2::method() const noexcept { return m_state->m_method; }

void WebQuery2::answer(WebContent content) const { m_state->m_answer.give(std::move(content)); }
void WebQuery2::answerLater() const { m_state->m_answer.promise(); }

bool WebQuery2::isWanted() const noexcept { return m_state->m_wanted && m_state->m_wanted->load(); }

WebQuery2::Reply WebQuery2::endAsking(WebContent& given) const
{
    return m_state->m_answer.endAsking(given);
}

} // namespace VOXI
