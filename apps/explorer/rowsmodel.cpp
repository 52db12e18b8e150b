#include "rowsmodel.h"

#include "celllook.h"
#include "voxi2/kernel/vxhandle.h"

#include <algorithm>
#include <set>
#include <utility>

namespace explorer {

using namespace VOXI;

namespace {

std::vector<unsigned> numbers(std::size_t count)
{
    std::vector<unsigned> all(count);
    for (std::size_t i = 0; i < count; ++i)
        all[i] = static_cast<unsigned>(i + 1);
    return all;
}

/// On the worker.
QueryResult2 readCells(SQL::RowReader& reader, const SQL::TableEditor* editor,
                       const ViewQuery2& query)
{
    std::vector<std::size_t> columns;
    for (const unsigned column : query.columns())
        columns.push_back(column - 1);
    QueryResult2 cells;
    cells.reserve(query.rows().size() * columns.size());
    const bool isEditable = reader.isEditable();
    for (const SQL::RowReader::Row& row : reader.read(query.rows(), columns, ShownBytes)) {
        const bool isInserted = editor && editor->isInserted(row.number);
        for (std::size_t i = 0; i < columns.size() && i < row.cells.size(); ++i) {
            CellUIData cell = lookOf(row.cells[i]);
            if (isInserted)
                markInserted(cell);
            else if (editor && editor->isChanged(row.number, columns[i]))
                markChanged(cell);
            cell.setReadOnly(!isEditable || reader.columns()[columns[i]].isGenerated);
            cells.set(row.number, query.columns()[i], std::move(cell));
        }
    }
    return cells;
}

QueryResult2 dropped()
{
    QueryResult2 result;
    result.setDropped();
    return result;
}

} // namespace

RowsModel::RowsModel(Document& document, std::shared_ptr<SQL::RowReader> reader, VXObject2* parent)
    : VXAbstractViewModel2(parent, ModelTrait::KnowsShape),
      m_document(document),
      m_reader(std::move(reader))
{
    finishBuilding();
}

void RowsModel::append(const std::vector<unsigned>& rows)
{
    m_rows.insert(m_rows.end(), rows.begin(), rows.end());
    changeSize(SizeChange2::appendRows(rows));
    flushChanges();
}

void RowsModel::remove(const std::vector<unsigned>& rows)
{
    const std::set<unsigned> gone(rows.begin(), rows.end());
    std::erase_if(m_rows, [&gone](unsigned row) { return gone.contains(row); });
    std::erase_if(m_rejected,
                  [&gone](const auto& each) { return gone.contains(each.first.first); });
    changeSize(SizeChange2::removeRows(rows));
}

void RowsModel::removeAll() { changeSize(SizeChange2::removeRows(std::exchange(m_rows, {}))); }

void RowsModel::reread(unsigned row)
{
    for (unsigned column = 1; column <= m_reader->columns().size(); ++column)
        changeData(row, column);
}

void RowsModel::reject(Place place, Rejected rejected)
{
    m_rejected.insert_or_assign(place, std::move(rejected));
    changeData(place.first, place.second);
}

void RowsModel::forgetRejected(Place place)
{
    if (m_rejected.erase(place) > 0)
        changeData(place.first, place.second);
}

void RowsModel::forgetRejected()
{
    for (const auto& [place, rejected] : std::exchange(m_rejected, {}))
        changeData(place.first, place.second);
}

/// The latest first: it is what is in sight now.
void RowsModel::query(const ViewQuery2& query)
{
    m_document.askFirst<QueryResult2>(
        [query, reader = m_reader, &document = m_document](SQL::Database&) {
            return query.isWanted() ? readCells(*reader, document.editorOf(*reader), query)
                                    : dropped();
        },
        [query, model = VXHandle<RowsModel>(this)](Outcome<QueryResult2> outcome) {
            RowsModel* const self = model.get();
            if (!self)
                return;
            QueryResult2 result = outcome.value ? std::move(*outcome.value) : QueryResult2();
            for (const auto& [place, rejected] : self->m_rejected)
                result.set(place.first, place.second,
                           lookOfRejected(rejected.value, rejected.message).setReadOnly(false));
            answer(query, std::move(result));
        });
}

void RowsModel::queryHeader(const HeaderQuery2& query)
{
    HeaderQueryResult2 result;
    if (query.orientation() == Orientation::Horizontal) {
        for (const unsigned section : query.sections()) {
            if (section - 1 < m_reader->columns().size())
                result.set(section, lookOfHeader(m_reader->columns()[section - 1]));
        }
    }
    answer(query, std::move(result));
}

std::vector<SizeChange2> RowsModel::shape() const
{
    return {SizeChange2::appendColumns(numbers(m_reader->columns().size())),
            SizeChange2::appendRows(m_rows)};
}

} // namespace explorer
