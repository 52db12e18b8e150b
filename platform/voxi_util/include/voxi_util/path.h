#pragma once

#include "voxi_util/voxi_util_export.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

namespace VOXI {

/// The name of a file or folder, with '/' between its parts on every system. Texts are UTF-8.
class VOXI_UTIL_EXPORT Path
{
public:
    Path() = default;
    Path(const std::string& text);
    Path(const char* text) : Path(std::string(text ? text : "")) {}
    Path(const std::filesystem::path& path);

    std::string toString() const;
    const std::filesystem::path& toStd() const noexcept { return m_path; }
    /// With the system's own separators, for showing it to the user or to other programs.
    std::string toNative() const;

    bool isEmpty() const noexcept { return m_path.empty(); }
    bool isAbsolute() const { return m_path.is_absolute(); }

    /// The last part; empty when the path ends with '/'.
    std::string fileName() const;
    /// The file name without its extension.
    std::string stem() const;
    /// With the dot; empty when there is none.
    std::string extension() const;
    Path parent() const { return Path(m_path.parent_path()); }
    /// Without "." and "..", as far as the text alone tells.
    Path normalized() const { return Path(m_path.lexically_normal()); }

    /// Whether there is such a file or folder now; false when that cannot be found out.
    bool exists() const noexcept;

    /// An absolute right side stands for itself.
    friend Path operator/(const Path& a, const Path& b) { return Path(a.m_path / b.m_path); }
    friend bool operator==(const Path&, const Path&) = default;
    friend std::strong_ordering operator<=>(const Path& a, const Path& b) noexcept
    {
        return a.m_path.compare(b.m_path) <=> 0;
    }

private:
    std::filesystem::path m_path;
};

} // namespace VOXI

template <>
struct std::hash<VOXI::Path>
{
    std::size_t operator()(const VOXI::Path& path) const noexcept
    {
        return std::filesystem::hash_value(path.toStd());
    }
};
