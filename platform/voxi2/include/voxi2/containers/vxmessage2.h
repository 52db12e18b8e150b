#pragma once

#include "voxi2/containers/messageanswer.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/pixmap.h"
#include "voxi_util/vxflags.h"

#include <functional>
#include <map>

namespace VOXI {

struct BuiltMessage;
class VXObject2;

/// What a message's sign says of it.
enum class MessageKind { Plain, Information, Question, Warning, Error };

/// Tells the user something, or asks.
///
///     if (VXMessage2::ask(window, "Delete the file?") == MessageAnswer::Yes)
///         remove(file);
///
///     const auto answer = VXMessage2{.text = "The document has been changed.",
///                                    .details = "Do you want to save it?",
///                                    .answers = MessageAnswer::Save | MessageAnswer::Discard
///                                               | MessageAnswer::Cancel,
///                                    .kind = MessageKind::Warning}
///                             .exec(window);
///
/// Each answer is a button, in the order of `VXButtonRow2`. Texts that are long scroll. A message
/// is a value: one may be shown many times. All functions may be called from any thread. With a
/// parent the message stays above the parent's window. Without a back end, and for a parent that
/// has ended, it is answered at once, as by Escape.
struct VOXI2_EXPORT VXMessage2
{
    /// Shown as it is, without markup.
    KeptText text;
    /// More, under the text.
    KeptText details{};
    /// Of the window; empty: what the kind is called, in the user's language.
    KeptText title{};
    /// None at all: `Ok`.
    VXFlags<MessageAnswer> answers = MessageAnswer::Ok;
    /// What Return answers; `None`, or one that is not offered: the first of `MessageAnswer` that
    /// is.
    MessageAnswer defaultAnswer = MessageAnswer::None;
    /// What Escape and closing answer; `None`: see `answerOfEscape`.
    MessageAnswer escapeAnswer = MessageAnswer::None;
    MessageKind kind = MessageKind::Plain;
    /// What buttons say instead of the usual words, with `&` before the mnemonic:
    /// `{{MessageAnswer::Yes, "&Delete"}}`. See `setTranslation` for another language.
    std::map<MessageAnswer, KeptText> labels{};
    /// Shown in place of the kind's sign; null: the sign.
    Pixmap picture{};
    /// What a box below the texts says that the user may check, "Do not show this again" for
    /// example; empty: there is none.
    KeptText option{};
    bool isOptionChecked = false;
    /// Called with the state of that box when the user has answered, before the answer is given:
    /// by `exec` on the thread that waits.
    std::function<void(bool isChecked)> optionTold{};

    /// What Escape answers: `escapeAnswer`, else `Cancel` if it is offered, else the only answer,
    /// else `No`, `Close` or `Abort`. When there is none of them it is `None`, and the message
    /// cannot be dismissed but by its buttons.
    MessageAnswer answerOfEscape() const;

    /// Shows the message and waits for the answer, as `VXAbstractDialog2::exec` does. When the
    /// parent or the program ends meanwhile, the answer is that of Escape.
    MessageAnswer exec(VXObject2* parent = nullptr) const;

    /// Shows the message, blocking the parent's window (without one: all windows) and returns.
    /// `answered` is called once, on the toolkit's thread: with what the user answers, or with the
    /// answer of Escape if the message ends without him: with its parent, or with the toolkit when
    /// that is taken down. A process that exits without that calls nobody. Without a back end it
    /// is called at once.
    void open(VXObject2* parent, std::function<void(MessageAnswer)> answered) const;

    // The usual cases, which wait.

    static void inform(VXObject2* parent, const AnyText& text);
    static MessageAnswer ask(VXObject2* parent, const AnyText& text,
                             VXFlags<MessageAnswer> answers = MessageAnswer::Yes
                                                              | MessageAnswer::No,
                             MessageAnswer defaultAnswer = MessageAnswer::None);
    static MessageAnswer warn(VXObject2* parent, const AnyText& text,
                              VXFlags<MessageAnswer> answers = MessageAnswer::Ok,
                              MessageAnswer defaultAnswer = MessageAnswer::None);

    /// Says that something has failed, and what is known of that.
    static void error(VXObject2* parent, const AnyText& text, const AnyText& details = {});
    /// What the program is: its name, and what there is to say of it.
    static void about(VXObject2* parent, const AnyText& name, const AnyText& text,
                      const Pixmap& picture = {});

private:
    VXFlags<MessageAnswer> offered() const;
    BuiltMessage make(VXObject2* parent) const;
    BuiltMessage build(VXObject2* parent) const;
};

} // namespace VOXI
