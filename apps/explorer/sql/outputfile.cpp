#include "sql/outputfile.h"

#include "sql/error.h"
#include "sql/filecheck.h"

#include <cerrno>
#include <random>
#include <system_error>

namespace SQL {

namespace {

std::filesystem::path besides(const std::filesystem::path& file)
{
    std::random_device random;
    std::filesystem::path partial = file;
    partial += "." + std::to_string(random()) + ".part";
    return partial;
}

[[noreturn]] void failWriting(const std::filesystem::path& file, int reason)
{
    throw Error(reason == ENOSPC ? Error::Kind::Full : Error::Kind::Other,
                shownName(file) + " cannot be written: " + std::generic_category().message(reason));
}

} // namespace

OutputFile::OutputFile(const std::filesystem::path& file) : m_file(file), m_partial(besides(file))
{
    if (std::filesystem::is_directory(file))
        failWriting(m_file, EISDIR);
    m_stream.open(m_partial, std::ios::binary | std::ios::trunc);
    if (!m_stream)
        failWriting(m_file, errno);
}

OutputFile::~OutputFile()
{
    if (m_isFinished)
        return;
    m_stream.close();
    std::error_code ignored;
    std::filesystem::remove(m_partial, ignored);
}

void OutputFile::write(std::string_view text)
{
    if (!m_stream.write(text.data(), static_cast<std::streamsize>(text.size())))
        failWriting(m_file, errno);
}

void OutputFile::finish()
{
    m_stream.close();
    if (!m_stream)
        failWriting(m_file, errno);
    std::error_code fault;
    std::filesystem::rename(m_partial, m_file, fault);
    if (fault)
        failWriting(m_file, fault.value());
    m_isFinished = true;
}

} // namespace SQL
