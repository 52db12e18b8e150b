#include "sql/rowreader.h"

#include "sql/copiedreader.h"
#include "sql/keyedreader.h"
#include "sql/rowidreader.h"

#include <algorithm>

namespace SQL {

std::shared_ptr<RowReader> RowReader::open(Database& database, const ObjectName& table)
{
    const SchemaObject object = database.find(table);
    const std::vector<ColumnInfo> all = database.columns(table);
    std::vector<ColumnInfo> columns = all;
    std::erase_if(columns, [](const ColumnInfo& column) { return column.isHidden; });
    if (object.isWithoutRowId && !object.isVirtual)
        return std::make_shared<KeyedReader>(database, table, columns);

    if (object.kind == ObjectKind::Table)
        if (const auto id = RowIdReader::idName(database, table, all)) {
            RowIdReader::Source source{std::move(columns), {}, *id};
            for (const ColumnInfo& column : source.columns)
                source.names.push_back(column.name);
            source.isEditable = !object.isSystem;
            source.isSeekable = !object.isVirtual;
            return std::make_shared<RowIdReader>(database, table, std::move(source));
        }
    return std::make_shared<CopiedReader>(database, table, std::move(columns));
}

std::string RowReader::partOf(const Value& value, std::int64_t offset, std::size_t size)
{
    const std::string* bytes = std::get_if<std::string>(&value);
    if (const auto* blob = std::get_if<Blob>(&value))
        bytes = &blob->bytes;
    if (!bytes || offset < 0 || offset >= static_cast<std::int64_t>(bytes->size()))
        return {};
    return bytes->substr(static_cast<std::size_t>(offset), size);
}

} // namespace SQL
