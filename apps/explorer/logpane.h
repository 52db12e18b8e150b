#pragma once

#include "sql/script.h"
#include "voxi2/modelview/vxtablemodel2.h"
#include "voxi2/modelview/vxtableview2.h"

#include <functional>
#include <map>
#include <string>

namespace explorer {

/// What was run, how long it took and what came of it, the latest last.
class LogPane
{
public:
    explicit LogPane(VOXI::VXObject2* parent);

    VOXI::VXTableView2* table() const noexcept { return m_table; }
    void add(const SQL::StatementResult& result);

    /// The user wants a statement back.
    std::function<void(const std::string&)> onStatementChosen;

private:
    VOXI::VXTableView2* const m_table;
    VOXI::VXTableModel2* const m_model;
    std::map<unsigned, std::string> m_statements; ///< by their rows
};

} // namespace explorer
