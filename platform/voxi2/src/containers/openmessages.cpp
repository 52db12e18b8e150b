#include "openmessages.h"

#include <algorithm>
#include <exception>
#include <mutex>
#include <utility>
#include <vector>

namespace VOXI {

struct OpenMessage::Question
{
    VXHandle<VXDialog2> m_dialog;
    std::function<void(MessageAnswer)> m_answered;
    MessageAnswer m_escape;

    /// Takes the question out of those that are open; what to call, or nothing if that was done.
    std::function<void(MessageAnswer)> take();

    struct Open
    {
        std::mutex m_mutex;
        std::vector<std::shared_ptr<Question>> m_questions; // guarded
    };
    static Open& open()
    {
        static auto* instance = new Open;
        return *instance;
    }
};

std::function<void(MessageAnswer)> OpenMessage::Question::take()
{
    std::lock_guard lock(open().m_mutex);
    std::erase_if(open().m_questions, [this](const auto& each) { return each.get() == this; });
    return std::exchange(m_answered, nullptr);
}

OpenMessage::OpenMessage(const VXHandle<VXDialog2>& dialog,
                         std::function<void(MessageAnswer)> answered, MessageAnswer escape,
                         TROV::Thread* thread)
    : m_question(std::make_shared<Question>(Question{dialog, std::move(answered), escape})),
      m_thread(thread)
{
    std::lock_guard lock(Question::open().m_mutex);
    Question::open().m_questions.push_back(m_question);
}

OpenMessage::~OpenMessage()
{
    // Left among the open ones until then: the loop may not turn any more.
    m_thread->post([question = std::move(m_question)] {
        if (const auto answered = question->take())
            answered(question->m_escape);
    });
}

void OpenMessage::answer(int dialogResult)
{
    const auto question = m_question;
    if (const auto answered = question->take())
        answered(dialogResult == VXDialog2::Rejected ? question->m_escape
                                                     : static_cast<MessageAnswer>(dialogResult));
}

void OpenMessage::answerAll()
{
    // One by one: what is called may end others.
    for (;;) {
        std::shared_ptr<Question> question;
        {
            std::lock_guard lock(Question::open().m_mutex);
            if (Question::open().m_questions.empty())
                return;
            question = Question::open().m_questions.front();
        }
        const auto answered = question->take();
        question->m_dialog->destroy();
        try {
            if (answered)
                answered(question->m_escape);
        } catch (...) {
            // To where exceptions of queued calls go.
            TROV::Thread::getCurrentThread()->post(
                [error = std::current_exception()] { std::rethrow_exception(error); });
        }
    }
}

} // namespace VOXI
