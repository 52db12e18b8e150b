#include "sql/database.h"
#include "sql/quoting.h"
#include "sql/statement.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

namespace SQL {

namespace {

struct TableTraits
{
    bool isWithoutRowId = false;
    bool isVirtual = false;
    bool isShadow = false;
};

std::map<std::string, TableTraits> traitsOfTables(Database& database, const std::string& name)
{
    std::map<std::string, TableTraits> traits;
    Statement list(database, "SELECT name, wr, type FROM pragma_table_list WHERE schema = ?1");
    list.bindText(1, name);
    while (list.step()) {
        const std::string type = list.text(2);
        traits[list.text(0)] = {list.integer(1) != 0, type == "virtual", type == "shadow"};
    }
    return traits;
}

SchemaObject readObject(const Statement& row, const std::string& database)
{
    constexpr std::array<std::pair<std::string_view, ObjectKind>, 4> Kinds = {
        {{"table", ObjectKind::Table},
         {"view", ObjectKind::View},
         {"index", ObjectKind::Index},
         {"trigger", ObjectKind::Trigger}}};
    SchemaObject object;
    const std::string type = row.text(0);
    const auto kind = std::find_if(Kinds.begin(), Kinds.end(),
                                   [&](const auto& each) { return each.first == type; });
    if (kind != Kinds.end())
        object.kind = kind->second;
    object.name = {database, row.text(1)};
    if (object.kind == ObjectKind::Index || object.kind == ObjectKind::Trigger)
        object.table = row.text(2);
    object.sql = row.text(3);
    object.isSystem = object.name.name.starts_with("sqlite_");
    return object;
}

void applyTraits(SchemaObject& object, const std::map<std::string, TableTraits>& traits)
{
    const auto found = traits.find(object.name.name);
    if (found == traits.end())
        return;
    object.isWithoutRowId = found->second.isWithoutRowId;
    object.isVirtual = found->second.isVirtual;
    object.isSystem |= found->second.isShadow;
}

/// What a query answers for a table, or an index, of a database; one of each row.
template <class Read>
auto readRows(Database& database, const std::string& sql, const ObjectName& object, Read read)
{
    Statement list(database, sql);
    list.bindText(1, object.name).bindText(2, object.database);
    std::vector<decltype(read(list))> all;
    while (list.step())
        all.push_back(read(list));
    return all;
}

ColumnInfo readColumn(const Statement& row)
{
    ColumnInfo column;
    column.name = row.text(0);
    column.type = row.text(1);
    column.isNotNull = row.integer(2) != 0;
    if (!row.isNullAt(3))
        column.defaultValue = row.text(3);
    column.primaryKey = static_cast<int>(row.integer(4));
    column.isHidden = row.integer(5) == 1;
    column.isGenerated = row.integer(5) >= 2;
    return column;
}

IndexInfo readIndex(const Statement& row)
{
    return {row.text(0), row.integer(1) != 0, row.integer(3) != 0, row.text(2), {}};
}

} // namespace

std::vector<DatabaseInfo> Database::databases()
{
    std::vector<DatabaseInfo> databases;
    Statement list(*this, "SELECT name, file FROM pragma_database_list ORDER BY seq");
    while (list.step())
        databases.push_back({list.text(0), list.text(1)});
    return databases;
}

Schema Database::schema(const std::string& database)
{
    Schema schema{database, {}};
    const auto traits = traitsOfTables(*this, database);
    Statement rows(*this, "SELECT type, name, tbl_name, sql FROM " + quoteName(database)
                              + ".sqlite_schema WHERE type IN ('table', 'view', 'index', 'trigger')"
                                " ORDER BY name COLLATE NOCASE, name");
    while (rows.step()) {
        schema.objects.push_back(readObject(rows, database));
        applyTraits(schema.objects.back(), traits);
    }
    std::stable_sort(schema.objects.begin(), schema.objects.end(),
                     [](const SchemaObject& a, const SchemaObject& b) { return a.kind < b.kind; });
    return schema;
}

SchemaObject Database::find(const ObjectName& table)
{
    // The table of the schema is in none itself.
    Statement list(*this, "SELECT type, name, '', '', wr FROM pragma_table_list(?1)"
                          " WHERE schema = ?2 COLLATE NOCASE");
    list.bindText(1, table.name).bindText(2, table.database);
    if (!list.step())
        throw Error(Error::Kind::Other, "no such table: " + table.database + "." + table.name);
    SchemaObject object = readObject(list, table.database);
    object.isWithoutRowId = list.integer(4) != 0;
    object.isVirtual = list.text(0) == "virtual";
    object.isSystem |= list.text(0) == "shadow";
    object.sql = sqlOf(table);
    return object;
}

std::string Database::sqlOf(const ObjectName& object)
{
    Statement sql(*this, "SELECT sql FROM " + quoteName(object.database)
                             + ".sqlite_schema WHERE name = ?1 COLLATE NOCASE");
    sql.bindText(1, object.name);
    return sql.step() ? sql.text(0) : std::string();
}

std::vector<ColumnInfo> Database::columns(const ObjectName& table)
{
    // Of a view that fails it says nothing; reading it does.
    auto columns = readRows(*this,
                            "SELECT name, type, \"notnull\", dflt_value, pk, hidden"
                            " FROM pragma_table_xinfo(?1, ?2)",
                            table, &readColumn);
    if (columns.empty())
        Statement(*this,
                  "SELECT * FROM " + quoteName(table.database) + "." + quoteName(table.name));
    return columns;
}

std::vector<IndexInfo> Database::indexes(const ObjectName& table)
{
    auto indexes = readRows(*this,
                            "SELECT name, \"unique\", origin, partial"
                            " FROM pragma_index_list(?1, ?2) ORDER BY name COLLATE NOCASE",
                            table, &readIndex);
    for (IndexInfo& index : indexes)
        index.columns = readRows(*this, "SELECT name FROM pragma_index_info(?1, ?2) ORDER BY seqno",
                                 {table.database, index.name},
                                 [](const Statement& row) { return row.text(0); });
    return indexes;
}

std::vector<ForeignKeyInfo> Database::foreignKeys(const ObjectName& table)
{
    return readRows(*this,
                    "SELECT \"from\", \"table\", \"to\" FROM pragma_foreign_key_list(?1, ?2)"
                    " ORDER BY id, seq",
                    table, [](const Statement& row) {
                        return ForeignKeyInfo{row.text(0), row.text(1), row.text(2)};
                    });
}

} // namespace SQL
