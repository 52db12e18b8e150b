#pragma once

#include <string>

namespace VOXI {

/// What is searched for in an edit area or a page.
struct TextSearch
{
    std::wstring text{};
    bool caseSensitive = false;
    bool wholeWords = false;
    bool isExpression = false; ///< a Perl-compatible regular expression; it matches within a line
    bool isBackward = false;
    bool wraps = true; ///< goes on from the other end of the text

    friend bool operator==(const TextSearch&, const TextSearch&) = default;
};

} // namespace VOXI
