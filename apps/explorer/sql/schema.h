#pragma once

#include <optional>
#include <string>
#include <vector>

namespace SQL {

/// A table or the like, in one of the databases of a connection ("main", "temp", or attached).
struct ObjectName
{
    std::string database = "main";
    std::string name;

    friend bool operator==(const ObjectName&, const ObjectName&) = default;
};

struct ColumnInfo
{
    std::string name;
    std::string type; ///< as declared; may be empty
    bool isNotNull = false;
    bool isGenerated = false; ///< cannot be set
    bool isHidden = false;    ///< of a virtual table
    int primaryKey = 0;       ///< 1 for the first column of the primary key; 0 for one that is none
    std::optional<std::string> defaultValue; ///< as SQL
};

enum class ObjectKind { Table, View, Index, Trigger };

struct SchemaObject
{
    ObjectKind kind = ObjectKind::Table;
    ObjectName name;
    std::string table; ///< of an index or trigger
    std::string sql;   ///< that made it; empty for what the system made
    bool isWithoutRowId = false;
    bool isVirtual = false;
    bool isSystem = false; ///< sqlite_… and shadow tables
};

struct IndexInfo
{
    std::string name;
    bool isUnique = false;
    bool isPartial = false;
    /// c: by CREATE INDEX, u: of a UNIQUE constraint, pk: of the primary key
    std::string origin;
    std::vector<std::string> columns; ///< an expression is an empty name
};

struct ForeignKeyInfo
{
    std::string column;
    std::string table;
    std::string toColumn; ///< empty: the primary key
};

struct DatabaseInfo
{
    std::string name;
    std::string file; ///< empty in memory
};

/// All of one database, for a tree.
struct Schema
{
    std::string database;
    std::vector<SchemaObject> objects; ///< tables, views, indexes, triggers, by name within each
};

} // namespace SQL
