#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
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

    /// The reverse of join: always at least one text. An empty separator does not split.
    static VXStringList split(std::string_view text, std::string_view separator)
    {
        VXStringList texts;
        std::size_t end = std::string_view::npos;
        while (!separator.empty() && (end = text.find(separator)) != std::string_view::npos) {
            texts.emplace_back(text.substr(0, end));
            text.remove_prefix(end + separator.size());
        }
        texts.emplace_back(text);
        return texts;
    }

    bool contains(std::string_view text) const { return std::find(begin(), end(), text) != end(); }
};

} // namespace VOXI
