#pragma once

#include "voxi2/kernel/librarytext.h"
#include "voxi2/voxi2_export.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

namespace VOXI {

/// Turns a text into the user's language; an empty result leaves it as it is.
using Translation = std::function<std::wstring(const std::string& english)>;

/// Chooses the language of what the library says by itself: in messages, file dialogs, editors and
/// pages of properties, tool bars of browsers and so on. `locale` is what a locale is called: "de",
/// "de_AT", "de-DE.UTF-8". Returns whether the library knows the language, which is English or
/// German; others leave it English. A program whose `QtHost` makes the application has the user's
/// language chosen. Counts for what is made from now on: what is shown already stays as it is. Any
/// thread.
VOXI2_EXPORT bool setLanguage(std::string_view locale);

/// "en" or "de".
VOXI2_EXPORT std::string language();

/// Sets what turns these texts into the user's language before the library's own translation is
/// looked for, or in place of one: "&Yes", "Question"
/// and so on; `librarytext.h` lists them. In a program whose `QtHost` makes the application it
/// is asked for Qt's own texts as well, for instance those of the menus of edits. Counts for what
/// is made from now on; an empty function ends it. Any thread; the function itself may be called on
/// any thread, also on several at once. What it throws is reported as that of a queue is, and the
/// text is as if there were no function.
VOXI2_EXPORT void setTranslation(Translation translation);

// For back ends -----------------------------------------------------------------------------------

/// The text in the user's language; `%1`, `%2` ... stand for the arguments.
VOXI2_EXPORT std::wstring translated(LibraryText text,
                                     std::initializer_list<std::wstring> arguments = {});

/// The same, without arguments; empty where it is the English text.
VOXI2_EXPORT std::wstring translationOf(LibraryText text);

/// What the program's function makes of a text that is not the library's; empty for nothing.
VOXI2_EXPORT std::wstring programTranslationOf(const std::string& english);

} // namespace VOXI
