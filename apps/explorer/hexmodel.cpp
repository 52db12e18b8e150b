#include "hexmodel.h"

#include "voxi2/kernel/vxhandle.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <numeric>
#include <string>
#include <utility>

namespace explorer {

using namespace VOXI;

namespace {

constexpr unsigned BytesInRow = 16;
constexpr unsigned RowsAtOnce = 50'000;
enum Column : unsigned { Place = 1, Digits, Characters };

std::string digitsOf(std::string_view bytes)
{
    std::string text;
    for (const char byte : bytes) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02x ", static_cast<unsigned char>(byte));
        text += digits;
    }
    return text;
}

std::string charactersOf(std::string_view bytes)
{
    std::string text(bytes);
    std::replace_if(
        text.begin(), text.end(), [](char byte) { return byte < ' ' || byte > '~'; }, '.');
    return text;
}

std::string placeText(std::int64_t offset)
{
    char text[24];
    std::snprintf(text, sizeof text, "%08llx", static_cast<unsigned long long>(offset));
    return text;
}

QueryResult2 describe(std::string_view bytes, unsigned first, const std::vector<unsigned>& rows)
{
    QueryResult2 cells;
    for (const unsigned row : rows) {
        const std::size_t offset = std::size_t{row - first} * BytesInRow;
        const std::string_view part =
            offset < bytes.size() ? bytes.substr(offset, BytesInRow) : std::string_view();
        cells.set(row, Place, placeText(std::int64_t{row - 1} * BytesInRow));
        cells.set(row, Digits, digitsOf(part));
        cells.set(row, Characters, charactersOf(part));
    }
    return cells;
}

} // namespace

void HexModel::show(VXTableView2& table, Document& document, std::shared_ptr<SQL::RowReader> reader,
                    unsigned row, std::size_t column, std::int64_t size)
{
    clear(table);
    auto* const model = new HexModel(document, std::move(reader), row, column, size, &table);
    table.setViewModel(model);
    table.setColumnWidthInCharacters(Place, 8);
    table.setColumnWidthInCharacters(Digits, 42);
    table.setColumnWidthInCharacters(Characters, 16);
    model->appendRows();
}

void HexModel::clear(VXTableView2& table)
{
    if (VXAbstractViewModel2* const former = table.viewModel())
        former->destroy();
}

HexModel::HexModel(Document& document, std::shared_ptr<SQL::RowReader> reader, unsigned row,
                   std::size_t column, std::int64_t size, VXObject2* parent)
    : VXAbstractViewModel2(parent),
      m_document(document),
      m_reader(std::move(reader)),
      m_row(row),
      m_column(column),
      m_rows(static_cast<unsigned>(std::min<std::int64_t>((size + BytesInRow - 1) / BytesInRow,
                                                          std::numeric_limits<int>::max())))
{
    finishBuilding();
    changeSize(SizeChange2::appendColumns({Place, Digits, Characters}));
}

/// Some at a time, for the window to have time for others.
void HexModel::appendRows()
{
    std::vector<unsigned> rows(std::min(RowsAtOnce, m_rows - m_shownRows));
    std::iota(rows.begin(), rows.end(), m_shownRows + 1);
    m_shownRows += static_cast<unsigned>(rows.size());
    changeSize(SizeChange2::appendRows(std::move(rows)));
    flushChanges();
    if (m_shownRows == m_rows)
        return;
    m_document.worker().deliver([model = VXHandle<HexModel>(this)] {
        if (HexModel* const self = model.get())
            self->appendRows();
    });
}

void HexModel::query(const ViewQuery2& query)
{
    if (query.rows().empty())
        return answerBlank(query);
    m_document.askFirst<QueryResult2>(
        [query, reader = m_reader, row = m_row, column = m_column](SQL::Database&) {
            const auto [first, last] =
                std::minmax_element(query.rows().begin(), query.rows().end());
            const std::string bytes =
                reader->bytes(row, column, std::int64_t{*first - 1} * BytesInRow,
                              std::size_t{*last - *first + 1} * BytesInRow);
            return describe(bytes, *first, query.rows());
        },
        [query](Outcome<QueryResult2> cells) {
            answer(query, cells.value ? std::move(*cells.value) : QueryResult2());
        });
}

void HexModel::queryHeader(const HeaderQuery2& query)
{
    HeaderQueryResult2 result;
    result.set(Place, "Place");
    result.set(Digits, "Bytes");
    result.set(Characters, "Characters");
    answer(query, std::move(result));
}

} // namespace explorer
