#include "sql/exporter.h"

#include "sql/outputfile.h"
#include "sql/quoting.h"
#include "sql/text.h"

#include <cmath>
#include <memory>
#include <string_view>
#include <utility>

namespace SQL {

namespace {

constexpr std::uint64_t RowsBetweenReports = 1000;

/// Writes rows in one of the formats.
class Writer
{
public:
    virtual ~Writer() = default;
    virtual std::string begin() { return {}; }
    virtual std::string row(const std::vector<Value>& cells, bool isFirst) = 0;
    virtual std::string end(bool /*isEmpty*/) { return {}; }
};

class CsvWriter : public Writer
{
public:
    CsvWriter(const RowReader& reader, const ExportOptions& options)
        : m_reader(reader),
          m_options(options)
    {}

    std::string begin() override
    {
        if (!m_options.hasHeader)
            return {};
        std::string line;
        for (const ColumnInfo& column : m_reader.columns())
            addField(line, column.name);
        return finished(std::move(line));
    }

    std::string row(const std::vector<Value>& cells, bool) override
    {
        std::string line;
        for (const Value& cell : cells) {
            if (isNull(cell))
                line += m_options.separator;
            else if (const auto* text = std::get_if<std::string>(&cell))
                addField(line, *text);
            else
                line += textOf(cell) + m_options.separator;
        }
        return finished(std::move(line));
    }

private:
    void addField(std::string& line, const std::string& text) const
    {
        const std::string special = std::string("\"\r\n") + m_options.separator;
        // What is empty would be NULL, and space at an end is easily lost.
        const bool isQuoted = text.empty() || text.find_first_of(special) != std::string::npos
                              || text.front() == ' ' || text.back() == ' ';
        if (!isQuoted) {
            line += text;
        } else {
            line += '"';
            for (char each : text)
                line.append(each == '"' ? 2 : 1, each);
            line += '"';
        }
        line += m_options.separator;
    }

    static std::string finished(std::string line)
    {
        if (!line.empty())
            line.pop_back();
        return line + "\r\n";
    }

    const RowReader& m_reader;
    const ExportOptions& m_options;
};

std::string jsonText(const std::string& text)
{
    constexpr char Digits[] = "0123456789abcdef";
    std::string json = "\"";
    for (char each : isUtf8(text) ? text : repairedUtf8(text)) {
        const auto byte = static_cast<unsigned char>(each);
        if (each == '"' || each == '\\')
            json.append({'\\', each});
        else if (each == '\n')
            json += "\\n";
        else if (byte < 0x20 || byte == 0x7F)
            json.append({'\\', 'u', '0', '0', Digits[byte >> 4], Digits[byte & 15]});
        else
            json += each;
    }
    return json + "\"";
}

class JsonWriter : public Writer
{
public:
    explicit JsonWriter(const RowReader& reader)
    {
        for (const ColumnInfo& column : reader.columns())
            m_names.push_back(jsonText(column.name));
    }

    std::string begin() override { return "["; }
    std::string row(const std::vector<Value>& cells, bool isFirst) override
    {
        std::string json = isFirst ? "\n{" : ",\n{";
        for (std::size_t i = 0; i < cells.size(); ++i)
            json += (i ? ", " : "") + m_names[i] + ": " + valueOf(cells[i]);
        return json + "}";
    }
    std::string end(bool isEmpty) override { return isEmpty ? "]\n" : "\n]\n"; }

private:
    static std::string valueOf(const Value& cell)
    {
        if (isNull(cell))
            return "null";
        // There are no other numbers in JSON; these are read as infinite ones.
        if (const auto* number = std::get_if<double>(&cell); number && !std::isfinite(*number))
            return std::isnan(*number) ? "null" : *number > 0 ? "1e999" : "-1e999";
        if (std::holds_alternative<std::string>(cell) || std::holds_alternative<Blob>(cell))
            return jsonText(textOf(cell));
        return textOf(cell);
    }

    std::vector<std::string> m_names;
};

class SqlWriter : public Writer
{
public:
    SqlWriter(const RowReader& reader, const std::string& name) : m_table(quoteName(name))
    {
        for (const ColumnInfo& column : reader.columns()) {
            m_columns += (m_columns.empty() ? "" : ", ") + quoteName(column.name);
            m_declared += (m_declared.empty() ? "" : ", ") + quoteName(column.name);
            if (!column.type.empty())
                m_declared += " " + quoteName(column.type);
        }
    }

    std::string begin() override
    {
        return "BEGIN;\nCREATE TABLE " + m_table + " (" + m_declared + ");\n";
    }
    std::string row(const std::vector<Value>& cells, bool) override
    {
        std::string sql = "INSERT INTO " + m_table + " (" + m_columns + ") VALUES (";
        for (std::size_t i = 0; i < cells.size(); ++i)
            sql += (i ? ", " : "") + quoteValue(cells[i]);
        return sql + ");\n";
    }
    std::string end(bool) override { return "COMMIT;\n"; }

private:
    std::string m_table;
    std::string m_columns;
    std::string m_declared;
};

std::unique_ptr<Writer> writerFor(const RowReader& reader, const ExportOptions& options)
{
    switch (options.format) {
    case ExportFormat::Csv:
        return std::make_unique<CsvWriter>(reader, options);
    case ExportFormat::Json:
        return std::make_unique<JsonWriter>(reader);
    case ExportFormat::Sql:
        break;
    }
    std::string name = options.tableName.empty() ? reader.name().name : options.tableName;
    return std::make_unique<SqlWriter>(reader, name.empty() ? "result" : name);
}

} // namespace

std::uint64_t exportRows(RowReader& reader, const std::filesystem::path& file,
                         const ExportOptions& options, const Progress& progress,
                         const CancelToken& token)
{
    OutputFile output(file);
    const auto writer = writerFor(reader, options);
    output.write(writer->begin());
    std::uint64_t rows = 0;
    const auto sink = [&](const std::vector<Value>& cells) {
        output.write(writer->row(cells, rows == 0));
        if (++rows % RowsBetweenReports == 0 && progress)
            progress(rows);
        return !token.isCancelled();
    };
    reader.forEach(options.order, sink, token);
    if (token.isCancelled())
        throw Error(Error::Kind::Cancelled, "cancelled");
    output.write(writer->end(rows == 0));
    output.finish();
    if (progress)
        progress(rows);
    return rows;
}

} // namespace SQL
