#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace explorer {

/// What the program remembers from one run to the next: one line for each value, in a file under
/// the user's folder for settings. What cannot be read is as if it had never been written.
class Settings
{
public:
    using Path = std::filesystem::path;

    /// In the user's own file.
    Settings() : Settings(usualFile()) {}
    explicit Settings(Path file);

    std::string value(const std::string& name) const;
    /// Writes the file. A value ends at its first line end.
    void setValue(const std::string& name, const std::string& value);

    /// The latest first.
    std::vector<Path> recentFiles() const;
    void addRecentFile(const Path& file);

private:
    static Path usualFile();
    void save() const;

    const Path m_file;
    std::map<std::string, std::string> m_values;
};

} // namespace explorer
