#pragma once

#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/vxflags.h"

#include <functional>
#include <map>

namespace VOXI {

class VXDialog2;
template <class T>
class VXHandle;
class VXObject2;

/// What the user may answer to a message.
enum class MessageAnswer : unsigned {
    None = 0,
    Yes = 0x1,
    YesToAll = 0x2,
    Ok = 0x4,
    Save = 0x8,
    SaveAll = 0x10,
    Retry = 0x20,
    Ignore = 0x40,
    Discard = 0x80,
    No = 0x100,
    NoToAll = 0x200,
    Abort = 0x400,
    Close = 0x800,
    Cancel = 0x1000
};
template <>
inline constexpr bool EnableFlags<MessageAnswer> = true;

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
/// Each answer is a button. Texts that are long scroll. A message is a value: one may be shown many
/// times. All functions may be called from any thread. With a parent the message stays above the
/// parent's window. Without a back end, and for a parent that has ended, it is answered at once, as
/// by Escape.
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
    /// What Return answers; `None`, or one that is not offered: the first button.
    MessageAnswer defaultAnswer = MessageAnswer::None;
    /// What Escape and closing answer; `None`: see `answerOfEscape`.
    MessageAnswer escapeAnswer = MessageAnswer::None;
    MessageKind kind = MessageKind::Plain;
    /// What buttons say instead of the usual words, with `&` before the mnemonic:
    /// `{{MessageAnswer::Yes, "&Delete"}}`. See `setTranslation` for another language.
    std::map<MessageAnswer, KeptText> labels{};

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

private:
    VXFlags<MessageAnswer> offered() const;
    VXHandle<VXDialog2> make(VXObject2* parent) const;
    VXDialog2* build(VXObject2* parent) const;
};

} // namespace VOXI
