#include "settings.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <system_error>
#include <utility>

namespace explorer {

namespace {

constexpr std::size_t MostRecentFiles = 10;

std::string recentName(std::size_t place) { return "recent." + std::to_string(place); }

} // namespace

Settings::Settings(Path file) : m_file(std::move(file))
{
    std::ifstream in(m_file);
    for (std::string line; std::getline(in, line);) {
        if (const auto at = line.find('='); at != std::string::npos)
            m_values[line.substr(0, at)] = line.substr(at + 1);
    }
}

std::string Settings::value(const std::string& name) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? std::string() : found->second;
}

void Settings::setValue(const std::string& name, const std::string& value)
{
    m_values[name] = value.substr(0, value.find('\n'));
    save();
}

std::vector<Settings::Path> Settings::recentFiles() const
{
    std::vector<Path> files;
    for (std::size_t i = 0; i < MostRecentFiles; ++i) {
        if (const std::string name = value(recentName(i)); !name.empty())
            files.emplace_back(name);
    }
    return files;
}

void Settings::addRecentFile(const Path& file)
{
    std::vector<Path> files = recentFiles();
    std::erase(files, file);
    files.insert(files.begin(), file);
    files.resize(std::min(files.size(), MostRecentFiles));
    for (std::size_t i = 0; i < files.size(); ++i) {
        // A name that would break its line is not worth remembering.
        const std::string name = files[i].string();
        m_values[recentName(i)] = name.find('\n') == std::string::npos ? name : std::string();
    }
    save();
}

Settings::Path Settings::usualFile()
{
    const auto folder = [](const char* variable) {
        const char* const value = std::getenv(variable);
        return Path(value ? value : "");
    };
    const Path config = folder("XDG_CONFIG_HOME");
    return (config.is_absolute() ? config : folder("HOME") / ".config") / "voxi" / "explorer.conf";
}

/// Whole or not at all: another name first.
void Settings::save() const
{
    std::error_code error;
    std::filesystem::create_directories(m_file.parent_path(), error);
    Path made = m_file;
    made += ".new";
    {
        std::ofstream out(made, std::ios::trunc);
        for (const auto& [name, value] : m_values)
            out << name << '=' << value << '\n';
        if (!out.flush())
            return;
    }
    std::filesystem::rename(made, m_file, error);
}

} // namespace explorer
