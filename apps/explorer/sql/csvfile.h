#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace SQL {

/// Reads records of a CSV file one by one.
class CsvFile
{
public:
    struct Field
    {
        std::string text;
        bool isQuoted = false;
    };

    /// Throws an `Error` when the file cannot be read or is in UTF-16.
    CsvFile(const std::filesystem::path& file, char separator);

    /// False at the end of the file. Empty lines are passed over. Throws for one that is too long
    /// to be one.
    bool next(std::vector<Field>& fields);
    /// Where the record begins that was read last, from 1.
    std::uint64_t line() const noexcept { return m_recordLine; }
    /// Whether the file ended within its quotes.
    bool isOpen() const noexcept { return m_isOpen; }

private:
    int get();
    int peek();
    void readQuoted(Field& field);
    bool readRecord(std::vector<Field>& fields);
    void skipMark();

    std::filesystem::path m_file;
    std::ifstream m_stream;
    const char m_separator;
    std::string m_buffer;
    std::size_t m_at = 0;
    std::size_t m_recordSize = 0;
    std::uint64_t m_line = 1;
    std::uint64_t m_recordLine = 1;
    bool m_isOpen = false;
};

} // namespace SQL
