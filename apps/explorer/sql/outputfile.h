#pragma once

#include <filesystem>
#include <fstream>
#include <string_view>

namespace SQL {

/// A file that is written beside its place and put there when it is complete; without that it is
/// removed, and what was there before stays. Throws an `Error` when it cannot be written.
class OutputFile
{
public:
    explicit OutputFile(const std::filesystem::path& file);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void write(std::string_view text);
    void finish();

private:
    const std::filesystem::path m_file;
    const std::filesystem::path m_partial;
    std::ofstream m_stream;
    bool m_isFinished = false;
};

} // namespace SQL
