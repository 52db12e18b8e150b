#pragma once

#include <string>

namespace VOXI {

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
