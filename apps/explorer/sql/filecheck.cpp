#include "sql/filecheck.h"

#include "sql/error.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <fstream>
#include <set>
#include <string_view>

namespace SQL {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view Magic = "SQLite format 3\0"sv;
constexpr std::size_t HeaderSize = 100;

std::uint32_t bigEndian(std::string_view bytes, std::size_t at, std::size_t size)
{
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size; ++i)
        number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
    return number;
}

/// Whether the bytes look like random ones, as those of encrypted files do. Compressed files do
/// too, but begin with a mark of their own.
bool looksEncrypted(std::string_view bytes)
{
    constexpr std::array Marks = {"PK"sv,
                                  "\x89PNG"sv,
                                  "\xFF\xD8\xFF"sv,
                                  "\x1F\x8B"sv,
                                  "BZh"sv,
                                  "\xFD"
                                  "7zXZ"sv,
                                  "%PDF"sv,
                                  "7z\xBC"sv,
                                  "\x28\xB5\x2F\xFD"sv,
                                  "RIFF"sv,
                                  "GIF8"sv,
                                  "\x7F"
                                  "ELF"sv};
    if (bytes.size() < 512 || std::any_of(Marks.begin(), Marks.end(), [&](std::string_view mark) {
            return bytes.starts_with(mark);
        }))
        return false;
    // 512 random bytes have 221 different ones on average, and texts hardly 100.
    const std::set<char> different(bytes.begin(), bytes.begin() + 512);
    return different.size() > 190;
}

constexpr const char* LogEnding = "-wal";

std::filesystem::path withEnding(std::filesystem::path file, const char* ending)
{
    return file += ending;
}

/// Whether there is such a file, with anything in it.
bool isFilled(const std::filesystem::path& file)
{
    std::error_code fault;
    return std::filesystem::file_size(file, fault) > 0 && !fault;
}

void checkHeader(const std::filesystem::path& file, std::string_view header, std::uintmax_t size)
{
    const std::string name = shownName(file);
    if (!header.starts_with(Magic.substr(0, std::min(header.size(), Magic.size())))) {
        if (looksEncrypted(header))
            throw Error(Error::Kind::Encrypted,
                        name + " has no header of a database; it seems to be encrypted");
        throw Error(Error::Kind::NotADatabase, name + " is not a database");
    }
    if (header.size() < HeaderSize)
        throw Error(Error::Kind::Truncated, name + " ends in the middle of its header, after "
                                                + std::to_string(size) + " bytes");
    const std::uint32_t written = bigEndian(header, 16, 2);
    const std::uint32_t pageSize = written == 1 ? 65536 : written;
    if (pageSize < 512 || !std::has_single_bit(pageSize))
        throw Error(Error::Kind::WrongPageSize,
                    name + " has a page size in its header that no database has: "
                        + std::to_string(pageSize));
    const std::uintmax_t pages = bigEndian(header, 28, 4);
    const bool isCountValid = bigEndian(header, 24, 4) == bigEndian(header, 92, 4);
    // Where the file is not all there is, its length says nothing.
    const bool isAll = !hasLog(file) && !isFilled(withEnding(file, "-journal"));
    if (isCountValid && size < pages * pageSize && isAll)
        throw Error(Error::Kind::Truncated, name + " is truncated: it has " + std::to_string(size)
                                                + " bytes, and its header says "
                                                + std::to_string(pages * pageSize));
}

} // namespace

std::string shownName(const std::filesystem::path& file)
{
    return "\"" + file.filename().string() + "\"";
}

bool hasLog(const std::filesystem::path& file) { return isFilled(withEnding(file, LogEnding)); }

bool isWithoutLogFile(const std::filesystem::path& file)
{
    std::error_code fault;
    return !std::filesystem::exists(withEnding(file, LogEnding), fault) && !fault;
}

bool isInLogMode(const std::filesystem::path& file)
{
    constexpr std::size_t ReadVersion = 19;
    std::ifstream stream(file, std::ios::binary);
    std::string header(HeaderSize, '\0');
    stream.read(header.data(), static_cast<std::streamsize>(header.size()));
    return header.starts_with(Magic) && header[ReadVersion] == 2;
}

void checkDatabaseFile(const std::filesystem::path& file)
{
    std::error_code fault;
    const auto status = std::filesystem::status(file, fault);
    if (status.type() == std::filesystem::file_type::not_found)
        throw Error(Error::Kind::NotFound, "there is no file " + file.string());
    if (fault)
        throw Error(Error::Kind::NotReadable,
                    shownName(file) + " cannot be read: " + fault.message());
    if (status.type() == std::filesystem::file_type::directory)
        throw Error(Error::Kind::NotFound, shownName(file) + " is a folder");
    if (status.type() != std::filesystem::file_type::regular)
        throw Error(Error::Kind::NotFound, shownName(file) + " is not a regular file");

    std::ifstream stream(file, std::ios::binary);
    std::string header(1024, '\0');
    stream.read(header.data(), static_cast<std::streamsize>(header.size()));
    if (!stream.is_open() || stream.bad())
        throw Error(Error::Kind::NotReadable, shownName(file) + " cannot be read");
    header.resize(static_cast<std::size_t>(stream.gcount()));
    if (!header.empty())
        checkHeader(file, header, std::filesystem::file_size(file));
}

} // namespace SQL
