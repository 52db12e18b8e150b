#include "opendialogs.h"

#include "trov/thread.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace VOXI {

namespace {

struct Question
{
    using Ended = std::function<void(int result)>;

    VXHandle<VXDialog2> m_dialog;
    Ended m_ended;

    /// Takes the question out of those that are open; what to call, or nothing if that was done.
    Ended take();
};

struct OpenQuestions
{
    std::mutex m_mutex;
    std::vector<std::shared_ptr<Question>> m_questions; // guarded
};

OpenQuestions& openQuestions()
{
    static auto* instance = new OpenQuestions;
    return *instance;
}

Question::Ended Question::take()
{
    std::lock_guard lock(openQuestions().m_mutex);
    std::erase_if(openQuestions().m_questions,
                  [this](const auto& each) { return each.get() == this; });
    return std::exchange(m_ended, nullptr);
}

/// One that is on the screen: goes with the dialog.
class OpenDialog
{
public:
    OpenDialog(const VXHandle<VXDialog2>& dialog, Question::Ended ended, TROV::Thread* thread)
        : m_question(std::make_shared<Question>(Question{dialog, std::move(ended)})),
          m_thread(thread)
    {
        std::lock_guard lock(openQuestions().m_mutex);
        openQuestions().m_questions.push_back(m_question);
    }
    OpenDialog(const OpenDialog&) = delete;
    OpenDialog& operator=(const OpenDialog&) = delete;
    /// Answers in a later turn of the thread's loop: whoever knew of it last may have gone
    /// anywhere.
    ~OpenDialog()
    {
        // Left among the open ones until then: the loop may not turn any more.
        m_thread->post([question = std::move(m_question)] { end(*question, VXDialog2::Rejected); });
    }

    /// Answers at once.
    void end(int result) const
    {
        const auto question = m_question;
        end(*question, result);
    }

private:
    static void end(Question& question, int result)
    {
        if (const auto ended = question.take())
            ended(result);
    }

    std::shared_ptr<Question> m_question;
    TROV::Thread* const m_thread; // the calls are made on
};

/// The user has ended the dialog. The arguments are copies on purpose.
void end(VXHandle<VXDialog2> dialog, std::shared_ptr<OpenDialog> question,
         std::function<void()> read, int result)
{
    std::exception_ptr error;
    try {
        if (read)
            read();
    } catch (...) {
        error = std::current_exception();
    }
    dialog->destroy();
    question->end(result);
    if (error)
        std::rethrow_exception(error);
}

} // namespace

void openDialog(const VXHandle<VXDialog2>& dialog, std::function<void()> read,
                std::function<void(int result)> ended)
{
    // The thread that calls need not run a loop.
    TROV::Thread* const thread = dialog->servingThread();
    if (!thread) {
        dialog->destroy();
        ended(VXDialog2::Rejected);
        return;
    }
    const auto open = std::make_shared<OpenDialog>(dialog, std::move(ended), thread);
    dialog.with([&](VXDialog2& shown) {
        shown.finished().connect(
            &shown,
            [dialog, open, read = std::move(read)](const VXDialogEvent2& event) {
                // This closure goes with the dialog.
                end(dialog, open, read, event.result());
            },
            thread);
        shown.open();
    });
    // It may have been taken down meanwhile by its own thread, which did not know of this one.
    if (dialog.with([](const VXDialog2& shown) { return !shown.servingThread(); })) {
        dialog->destroy();
        open->end(VXDialog2::Rejected);
    }
}

void endOpenDialogs()
{
    // One by one: what is called may end others.
    for (;;) {
        std::shared_ptr<Question> question;
        {
            std::lock_guard lock(openQuestions().m_mutex);
            if (openQuestions().m_questions.empty())
                return;
            question = openQuestions().m_questions.front();
        }
        const auto ended = question->take();
        question->m_dialog->destroy();
        try {
            if (ended)
                ended(VXDialog2::Rejected);
        } catch (...) {
            // To where exceptions of queued calls go.
            TROV::Thread::getCurrentThread()->post(
                [error = std::current_exception()] { std::rethrow_exception(error); });
        }
    }
}

} // namespace VOXI
