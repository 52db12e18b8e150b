#pragma once

#include <string>
#include <utility>
#include <vector>

namespace VOXI {

/// A list of narrow texts: a std::vector that is a type of its own.
class VXStringList : public std::vector<std::string>
{
public:
    using std::vector<std::string>::vector;
    VXStringList() = default;
    VXStringList(std::vector<std::string> texts) : std::vector<std::string>(std::move(texts)) {}

    /// All texts in their order, with `separator` between them.
    std::string join(const std::string& separator) const
    {
        std::string joined;
        for (const std::string& text : *this) {
            if (&text != &front())
                joined += separator;
            joined += text;
        }
        return joined;
    }
};

} // namespace VOXI
