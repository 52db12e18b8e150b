#include "sql/csvimport.h"

#include "sql/csvfile.h"
#include "sql/ordersql.h"
#include "sql/quoting.h"
#include "sql/statement.h"
#include "sql/text.h"

#include <string_view>
#include <utility>

namespace SQL {

namespace {

constexpr std::size_t MostBadRows = 1000;
constexpr std::uint64_t RowsBetweenReports = 1000;

class Importer
{
public:
    Importer(Database& database, const std::filesystem::path& file, const CsvImportOptions& options,
             const Progress& progress, const CancelToken& token)
        : m_database(database),
          m_file(file, options.format.separator),
          m_options(options),
          m_progress(progress),
          m_token(token),
          m_table(quoteName(options.table.database) + "." + quoteName(options.table.name))
    {}

    CsvReport run()
    {
        const bool isOurs = !m_database.isInTransaction();
        m_database.begin();
        try {
            m_database.execute("SAVEPOINT explorer_import");
            importAll();
            m_database.execute("RELEASE explorer_import");
            if (isOurs)
                m_database.commit();
        } catch (...) {
            m_insert = {};
            undo(isOurs);
            throw;
        }
        return std::move(m_report);
    }

private:
    void undo(bool isOurs)
    {
        if (!m_database.isInTransaction())
            return;
        if (isOurs)
            m_database.rollBack();
        else
            m_database.execute("ROLLBACK TO explorer_import; RELEASE explorer_import");
    }

    void importAll()
    {
        if (m_options.isNewTable)
            createTable();
        prepare();
        std::vector<CsvFile::Field> fields;
        if (m_options.format.hasHeader)
            m_file.next(fields);
        for (std::uint64_t rows = 0; m_file.next(fields);) {
            if (m_token.isCancelled())
                throw Error(Error::Kind::Cancelled, "cancelled");
            importRow(fields);
            if (++rows % RowsBetweenReports == 0 && m_progress)
                m_progress(rows);
        }
        m_insert = {};
        if (m_progress)
            m_progress(m_report.imported + m_report.badRows);
    }

    void createTable()
    {
        std::vector<std::string> columns;
        for (const CsvColumn& column : m_options.columns)
            if (!column.name.empty())
                columns.push_back(
                    quoteName(column.name)
                    + (column.type.empty() ? std::string() : " " + quoteName(column.type)));
        m_database.execute("CREATE TABLE " + m_table + " (" + joined(columns) + ")");
    }

    void prepare()
    {
        const std::vector<ColumnInfo> columns = m_database.columns(m_options.table);
        std::vector<std::string> names;
        std::vector<std::string> parameters;
        for (const CsvColumn& column : m_options.columns) {
            m_types.push_back(column.type);
            if (column.name.empty())
                continue;
            names.push_back(quoteName(column.name));
            parameters.push_back("?" + std::to_string(names.size()));
            for (const ColumnInfo& existing : columns)
                if (existing.name == column.name)
                    m_types.back() = existing.type;
        }
        if (names.empty())
            throw Error(Error::Kind::Other, "no column is to be imported");
        m_insert = Statement(m_database, "INSERT INTO " + m_table + " (" + joined(names)
                                             + ") VALUES (" + joined(parameters) + ")");
    }

    void importRow(const std::vector<CsvFile::Field>& fields)
    {
        std::string fault = faultOf(fields);
        if (fault.empty())
            fault = insert(fields);
        if (fault.empty()) {
            ++m_report.imported;
            return;
        }
        ++m_report.badRows;
        if (m_report.bad.size() < MostBadRows)
            m_report.bad.push_back({m_file.line(), std::move(fault)});
    }

    std::string faultOf(const std::vector<CsvFile::Field>& fields) const
    {
        if (m_file.isOpen())
            return "a quote is not closed";
        if (fields.size() != m_options.columns.size())
            return std::to_string(fields.size()) + " fields instead of "
                   + std::to_string(m_options.columns.size());
        for (const CsvFile::Field& field : fields)
            if (!isUtf8(field.text))
                return "there are bytes that are no UTF-8";
        return {};
    }

    /// Returns why the row does not fit.
    std::string insert(const std::vector<CsvFile::Field>& fields)
    {
        m_values.clear();
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (m_options.columns[i].name.empty())
                continue;
            const CsvFile::Field& field = fields[i];
            const bool isNothing = field.text.empty() && !field.isQuoted;
            m_values.push_back(isNothing ? Value() : valueFromText(field.text, m_types[i]));
            if (wantsNumber(m_types[i]) && std::holds_alternative<std::string>(m_values.back()))
                return m_options.columns[i].name + ": \""
                       + field.text.substr(0, cutUtf8(field.text, 50)) + "\" is no number";
        }
        for (std::size_t i = 0; i < m_values.size(); ++i)
            m_insert.bind(static_cast<int>(i + 1), m_values[i]);
        try {
            m_insert.run();
        } catch (const Error& error) {
            // Where the table says that a conflict rolls back, nothing is left to go on with.
            if (error.kind() != Error::Kind::Constraint || !m_database.isInTransaction())
                throw;
            return error.what();
        }
        return {};
    }

    static bool wantsNumber(const std::string& type)
    {
        return type == "INTEGER" || type == "REAL" || type == "INT" || type == "NUMERIC";
    }

    Database& m_database;
    CsvFile m_file;
    const CsvImportOptions& m_options;
    const Progress& m_progress;
    const CancelToken& m_token;
    const std::string m_table;
    std::vector<std::string> m_types; // of the fields
    std::vector<Value> m_values;
    Statement m_insert;
    CsvReport m_report;
};

} // namespace

CsvReport importCsv(Database& database, const std::filesystem::path& file,
                    const CsvImportOptions& options, const Progress& progress,
                    const CancelToken& token)
{
    return Importer(database, file, options, progress, token).run();
}

} // namespace SQL
