#pragma once

#include "voxi2/voxi2_export.h"

#include <functional>
#include <string>

namespace VOXI {

/// Turns a text into the user's language; an empty result leaves it as it is.
using Translation = std::function<std::wstring(const std::string& english)>;

/// Sets what turns the texts that messages, file dialogs and the editors and pages of properties
/// show by themselves into the user's language: "&Yes", "Question" and so on. Counts for what is
/// made from now on; an empty function ends it. Any thread; the function itself may be called on
/// any thread, also on several at once.
VOXI2_EXPORT void setTranslation(Translation translation);

/// The text in the user's language, or as it is where there is no translation.
VOXI2_EXPORT std::wstring translated(const std::string& english);

/// The same; empty where there is no translation.
VOXI2_EXPORT std::wstring translationOf(const std::string& english);

} // namespace VOXI
