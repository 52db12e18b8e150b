#pragma once

#include "trov/thread.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxmessage2.h"
#include "voxi2/kernel/vxhandle.h"

#include <functional>
#include <memory>

namespace VOXI {

/// A message on the screen that calls back. What ends it first answers it, and nothing answers it
/// twice: the user, the end of its dialog, or that of the toolkit.
class OpenMessage
{
public:
    /// Calls are made on `thread`.
    OpenMessage(const VXHandle<VXDialog2>& dialog, std::function<void(MessageAnswer)> answered,
                MessageAnswer escape, TROV::Thread* thread);
    OpenMessage(const OpenMessage&) = delete;
    OpenMessage& operator=(const OpenMessage&) = delete;
    /// Answers as Escape does, in a later turn of the thread's loop: whoever knew of it last may
    /// have gone anywhere.
    ~OpenMessage();

    /// Answers at once.
    void answer(int dialogResult);

    /// Ends all dialogs and answers as Escape does: the toolkit goes.
    static void answerAll();

private:
    struct Question;

    std::shared_ptr<Question> m_question;
    TROV::Thread* const m_thread;
};

} // namespace VOXI
