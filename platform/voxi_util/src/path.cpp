#include "voxi_util/path.h"

#include <system_error>

namespace VOXI {
namespace {

std::string utf8(const std::filesystem::path& path)
{
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

} // namespace

Path::Path(const std::string& text)
    : Path(std::filesystem::path(std::u8string(text.begin(), text.end())))
{}

Path::Path(const std::filesystem::path& path) : m_path(path.generic_u8string()) {}
std::string Path::toString() const { return utf8(m_path); }

std::string Path::toNative() const
{
    std::filesystem::path native = m_path;
    const std::u8string text = native.make_preferred().u8string();
    return {text.begin(), text.end()};
}

std::string Path::fileName() const { return utf8(m_path.filename()); }
std::string Path::stem() const { return utf8(m_path.stem()); }
std::string Path::extension() const { return utf8(m_path.extension()); }

bool Path::exists() const noexcept
{
    std::error_code error;
    return std::filesystem::exists(m_path, error);
}

} // namespace VOXI
