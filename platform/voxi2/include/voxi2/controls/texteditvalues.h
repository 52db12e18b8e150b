#pragma once

#include <string>
#include <vector>

namespace VOXI {

/// How a line edit shows what is typed.
enum class TextEcho : int {
    Normal,
    None,           ///< nothing is shown, not even how much
    Password,       ///< dots
    PasswordOnLeave ///< characters while they are typed, dots behind that
};

/// Where in a line edit an action stands.
enum class EditSide : int {
    Leading, ///< where the text begins: the left, unless texts run to the left
    Trailing
};

/// A part of a text, in characters of the wide text.
struct TextRange
{
    int start = 0;
    int length = 0;

    friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// What a line edit suggests while its user types.
struct TextCompletion
{
    std::vector<std::wstring> texts{}; ///< in the order in which they are suggested
    bool anywhere = false;             ///< also those that have what was typed inside
    bool caseSensitive = false;

    friend bool operator==(const TextCompletion&, const TextCompletion&) = default;
};

} // namespace VOXI
