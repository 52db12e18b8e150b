#pragma once

#include <string>

namespace VOXI {

/// A text to be looked for in a page.
struct PageSearch
{
    std::wstring text{};
    bool backward = false; ///< before the selection, not behind it
    bool caseSensitive = false;
    bool wholeWords = false;
    bool wraps = true; ///< goes on at the other end of the page

    friend bool operator==(const PageSearch&, const PageSearch&) = default;
};

/// A page that the user has seen, or can go forward to.
struct PageVisit
{
    std::wstring source{};
    std::wstring title{}; ///< empty where the page has none

    friend bool operator==(const PageVisit&, const PageVisit&) = default;
};

/// The paper that is printed on, in millimetres: A4 upright, unless it is said.
struct PaperSize
{
    double width = 210;
    double height = 297;

    friend bool operator==(const PaperSize&, const PaperSize&) = default;
};

} // namespace VOXI
