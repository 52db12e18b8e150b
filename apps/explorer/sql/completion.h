#pragma once

#include "sql/database.h"

#include <string>
#include <vector>

namespace SQL {

/// The names by which SQL is completed. A value: made on the database's thread, used on any.
struct Catalog
{
    struct Table
    {
        ObjectName name;
        std::vector<std::string> columns;
    };
    std::vector<Table> tables; ///< and views
};

/// Of all databases of a connection. A view that fails has no columns.
Catalog catalogOf(Database& database);

enum class CandidateKind { Column, Table, Database, Keyword };

struct Candidate
{
    std::string text; ///< quoted where it needs to be
    CandidateKind kind = CandidateKind::Keyword;
    std::string detail; ///< the table of a column
};

struct Completions
{
    std::size_t begin = 0; ///< what stands from here to the position is to be replaced
    std::vector<Candidate> candidates;
};

/// What may stand at a position: after `name.` the columns of that table or alias, or the tables of
/// that database; otherwise columns of the tables that the statement names, tables, keywords, that
/// begin with the word before the position, capitals or not. None inside strings and comments.
/// Positions are units of the text. Any thread.
Completions complete(const std::string& text, std::size_t position, const Catalog& catalog);
Completions complete(const std::wstring& text, std::size_t position, const Catalog& catalog);

} // namespace SQL
