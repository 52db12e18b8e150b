#include "logpane.h"

#include "celllook.h"
#include "sql/text.h"

#include <ctime>

namespace explorer {

using namespace VOXI;

namespace {

enum Column : unsigned { Time = 1, Duration, Outcome, Statement };
constexpr std::size_t MostStatements = 1000;

std::string timeOfDay()
{
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    char text[16];
    std::strftime(text, sizeof text, "%H:%M:%S", &parts);
    return text;
}

std::string outcomeOf(const SQL::StatementResult& result)
{
    if (result.error)
        return result.error->what();
    if (result.rows)
        return grouped(result.rowCount) + " rows";
    return grouped(static_cast<std::uint64_t>(result.changes)) + " changed";
}

std::wstring firstLine(const std::string& sql)
{
    std::wstring text = SQL::wideFromUtf8(sql.substr(0, 400));
    for (wchar_t& each : text) {
        if (each < L' ')
            each = L' ';
    }
    return text;
}

} // namespace

LogPane::LogPane(VXObject2* parent)
    : m_table(new VXTableView2(parent)),
      m_model(new VXTableModel2({"Time", "ms", "Outcome", "Statement"}, m_table))
{
    m_table->setObjectName("log");
    m_table->setViewModel(m_model);
    m_table->setRowHeaderVisible(false);
    m_table->setWordWrap(false);
    m_table->setSelectionBehavior(SelectionBehavior::Rows);
    m_table->setColumnWidth(Duration, 60);
    m_table->setColumnWidth(Outcome, 220);
    m_table->setColumnResizeMode(Statement, ColumnResizeMode::Stretch);
    m_table->cellActivated().connect(m_table, [this](const VXViewCellEvent2& event) {
        if (const auto found = m_statements.find(event.row());
            found != m_statements.end() && onStatementChosen)
            onStatementChosen(found->second);
    });
}

void LogPane::add(const SQL::StatementResult& result)
{
    CellUIData outcome(SQL::wideFromUtf8(outcomeOf(result)));
    if (result.error)
        outcome.setForeground(Color(176, 40, 32));
    const unsigned row = m_model->appendRow(
        {timeOfDay(), result.duration.count() / 1000, outcome,
         CellUIData(firstLine(result.sql)).setToolTip(SQL::wideFromUtf8(result.sql))});
    m_statements[row] = result.sql;
    if (m_statements.size() > MostStatements) {
        m_model->removeRow(m_statements.begin()->first);
        m_statements.erase(m_statements.begin());
    }
    m_table->scrollTo({row, Statement, nullptr});
}

} // namespace explorer
