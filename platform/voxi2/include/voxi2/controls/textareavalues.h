#pragma once

#include "voxi2/controls/texteditvalues.h"
#include "voxi2/controls/textsearch.h"
#include "voxi_util/color.h"
#include "voxi_util/icon.h"

#include <optional>
#include <string>

namespace VOXI {

/// Where in an edit area lines that are longer than it is wide go on below.
enum class TextWrap : int {
    None, ///< nowhere: the area scrolls; what has more than 100 000 characters is broken even so
    Word, ///< between words; within one that is longer than a line
    Anywhere
};

/// A place in a text: line and column count from 0, the column in characters of the wide text.
struct TextPlace
{
    int line = 0;
    int column = 0;

    friend bool operator==(const TextPlace&, const TextPlace&) = default;
};

/// How a part of a text looks. A colour that is not given stays as it is.
struct TextStyle
{
    std::optional<Color> color{};
    std::optional<Color> background{};
    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;

    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

/// How a part of a text is coloured.
struct TextSpan
{
    TextRange range{};
    TextStyle style{};

    friend bool operator==(const TextSpan&, const TextSpan&) = default;
};

/// A mark in the margin, beside a line.
struct TextMark
{
    unsigned uid = 0; ///< the program's name for it; not 0
    int line = 0;
    Icon icon{}; ///< a dot when there is none
    std::wstring toolTip{};

    friend bool operator==(const TextMark&, const TextMark&) = default;
};

/// What an edit area offers its user to go on with.
struct TextSuggestion
{
    std::wstring text{};
    std::wstring detail{}; ///< what that is, shown beside it
    Icon icon{};

    friend bool operator==(const TextSuggestion&, const TextSuggestion&) = default;
};

/// What a user can have done by a key or by the context menu.
enum class TextCommand : int { Undo, Redo, Cut, Copy, Paste, Delete, SelectAll };

} // namespace VOXI
