#include "sql/csvfile.h"

#include "sql/error.h"
#include "sql/filecheck.h"

namespace SQL {

namespace {

constexpr std::size_t LongestRecord = std::size_t(256) << 20;
constexpr int End = -1;

} // namespace

CsvFile::CsvFile(const std::filesystem::path& file, char separator)
    : m_file(file),
      m_separator(separator)
{
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored))
        throw Error(Error::Kind::NotFound, shownName(file) + " is not there, or no file");
    m_stream.open(file, std::ios::binary);
    if (!m_stream)
        throw Error(Error::Kind::NotReadable, shownName(file) + " cannot be read");
    skipMark();
}

void CsvFile::skipMark()
{
    peek();
    if (m_buffer.starts_with("\xFF\xFE") || m_buffer.starts_with("\xFE\xFF"))
        throw Error(Error::Kind::Other, shownName(m_file) + " is in UTF-16; it must be in UTF-8");
    if (m_buffer.starts_with("\xEF\xBB\xBF"))
        m_at = 3;
}

int CsvFile::peek()
{
    if (m_at == m_buffer.size()) {
        m_buffer.resize(std::size_t(1) << 16);
        m_stream.read(m_buffer.data(), static_cast<std::streamsize>(m_buffer.size()));
        m_buffer.resize(static_cast<std::size_t>(m_stream.gcount()));
        m_at = 0;
    }
    return m_at < m_buffer.size() ? static_cast<unsigned char>(m_buffer[m_at]) : End;
}

int CsvFile::get()
{
    const int next = peek();
    if (next == End)
        return End;
    ++m_at;
    if (++m_recordSize > LongestRecord)
        throw Error(Error::Kind::Full, "the row that begins in line " + std::to_string(m_recordLine)
                                           + " does not end; a quote may be missing");
    if (next == '\n' || (next == '\r' && peek() != '\n'))
        ++m_line;
    return next;
}

/// From behind the quote that opens up to that which closes.
void CsvFile::readQuoted(Field& field)
{
    field.isQuoted = true;
    for (int next = get(); next != End; next = get()) {
        if (next == '"') {
            if (peek() != '"')
                return;
            get();
        }
        field.text += static_cast<char>(next);
    }
    m_isOpen = true;
}

bool CsvFile::readRecord(std::vector<Field>& fields)
{
    fields.assign(1, {});
    m_recordLine = m_line;
    m_recordSize = 0;
    if (peek() == End)
        return false;
    for (int next = get(); next != End && next != '\n'; next = get()) {
        Field& field = fields.back();
        if (next == '\r') {
            if (peek() == '\n')
                get();
            break;
        }
        if (next == static_cast<unsigned char>(m_separator))
            fields.emplace_back();
        else if (next == '"' && field.text.empty() && !field.isQuoted)
            readQuoted(field);
        else
            field.text += static_cast<char>(next);
    }
    return true;
}

bool CsvFile::next(std::vector<Field>& fields)
{
    while (readRecord(fields))
        if (fields.size() > 1 || fields[0].isQuoted || !fields[0].text.empty())
            return true;
    return false;
}

} // namespace SQL
