#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

/// A folder for the files of one test, gone after it. Several processes may have theirs at once.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        static std::atomic<int> s_number{0};
        m_path = std::filesystem::temp_directory_path()
                 / ("voxi-test-" + std::to_string(getpid()) + '-' + std::to_string(++s_number));
        std::filesystem::remove_all(m_path); // of a process of that number that was killed
        std::filesystem::create_directories(m_path);
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return m_path / name; }
    const std::filesystem::path& path() const noexcept { return m_path; }

    static std::string read(const std::filesystem::path& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    static std::filesystem::path write(const std::filesystem::path& file,
                                       const std::string& content)
    {
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }

private:
    std::filesystem::path m_path;
};
