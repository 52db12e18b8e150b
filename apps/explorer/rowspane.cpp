#include "rowspane.h"

#include "celllook.h"
#include "sql/text.h"
#include "voxi2/containers/vxboxlayout2.h"

#include <algorithm>
#include <utility>

namespace explorer {

using namespace VOXI;

namespace {

/// Of more columns only the first get a width of their own at once.
constexpr std::size_t MeasuredColumns = 100;
/// To take more out of a model takes longer than to begin a new one, whose rows are given back
/// elsewhere.
constexpr std::size_t MostRemoved = 50'000;

int wantedCharacters(const SQL::ColumnInfo& column)
{
    const bool isNumber = column.type.find("INT") != std::string::npos
                          || column.type.find("REAL") != std::string::npos;
    const int least = isNumber ? 6 : 12;
    return std::clamp(static_cast<int>(SQL::wideFromUtf8(column.name).size()), least, 24);
}

} // namespace

RowsPane::RowsPane(VXObject2* parent, const std::string& objectName)
    : m_panel(new VXPanel2(parent)),
      m_table(new VXTableView2(m_panel)),
      m_filters(m_panel, m_table, [this] { list(); })
{
    m_table->setObjectName(objectName);
    m_table->setRowHeaderVisible(false);
    m_table->setHeaderClickable(true);
    m_table->setColumnMovable(true);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->setSelectionMode(SelectionMode::Extended);
    m_table->setEditTriggers(EditTrigger::DoubleClicked | EditTrigger::EditKeyPressed
                             | EditTrigger::AnyKeyPressed);
    auto* const rows = new VXBoxLayout2(m_panel, Direction::TopToBottom);
    rows->setMargins({0, 0, 0, 0});
    rows->setSpacing(0);
    rows->addWidget(m_filters.panel());
    rows->addWidget(m_table, 1);

    m_table->headerClicked().connect(m_panel, [this](const VXHeaderClickEvent2& event) {
        sortBy(event.column(), event.order());
    });
    m_table->keyPressed().connect(m_panel, [this](const VXKeyEvent2& event) { noteKey(event); });
    m_table->editCompleted().connect(m_panel, [this](const VXEditCompleteEvent2&) {
        if (m_isRefreshWaiting) // behind what others make of it
            m_document->whenAnswered([this] {
                if (std::exchange(m_isRefreshWaiting, false))
                    refresh();
            });
    });
    m_table->activeCellChanged().connect(m_panel, [this](const VXEditRequestEvent2& event) {
        if (!m_isTaking) { // else rows have gone
            m_isLastWanted = false;
            m_wantedRow = 0;
        }
        if (m_events.cellChosen)
            m_events.cellChosen(event.row(), event.column());
    });
}

void RowsPane::show(Document& document, std::shared_ptr<SQL::RowReader> reader)
{
    clear();
    m_document = &document;
    m_reader = std::move(reader);
    list();
}

void RowsPane::clear()
{
    m_listing.reset();
    m_isListing = false;
    m_reader.reset();
    m_order = {};
    m_count = 0;
    m_wantedRow = 0;
    m_isLastWanted = m_isRefreshWaiting = false;
    if (RowsModel* const model = m_model.get())
        model->destroy();
    m_filters.reset();
}

void RowsPane::refresh()
{
    m_isRefreshWaiting = isEdited();
    if (!m_isRefreshWaiting)
        list();
}

void RowsPane::stop()
{
    if (!std::exchange(m_isListing, false))
        return;
    m_listing.reset();
    tellStatus();
}

void RowsPane::focusFilter()
{
    const ModelCell2 current = m_table->activeCell();
    m_filters.focus(current.isNull() ? 1 : current.column);
}

bool RowsPane::isEdited() const
{
    const ModelCell2 current = m_table->activeCell();
    return !current.isNull() && m_table->editor(current.row, current.column);
}

void RowsPane::endEditing()
{
    if (isEdited())
        m_table->setEditor(m_table->activeCell().row, m_table->activeCell().column, nullptr);
}

void RowsPane::addToCount(int rows)
{
    m_count += static_cast<std::uint64_t>(static_cast<std::int64_t>(rows));
    tellStatus();
}

void RowsPane::sortBy(unsigned column, SortOrder order)
{
    const bool wasDescending = m_order.column == column - 1 && m_order.isDescending;
    m_order.column = wasDescending || column == 0 ? SQL::RowOrder::Natural : column - 1;
    m_order.isDescending = !wasDescending && order == SortOrder::Descending;
    list();
}

/// What is shown stays until the first rows of the new list are there.
void RowsPane::list()
{
    if (!m_reader)
        return;
    endEditing();
    m_isLastWanted = false;
    m_order.filters = m_filters.filters();
    m_isListing = true;
    m_isFirstPiece = true;
    m_listing.reset(); // first: it stops the one before
    m_listing = std::make_unique<Listing>(
        *m_document, m_reader, m_order,
        [this](Outcome<Listing::Piece> piece) { take(std::move(piece)); });
    tellStatus();
}

void RowsPane::take(Outcome<Listing::Piece> piece)
{
    if (piece.error) {
        m_isListing = false;
        tellStatus();
        if (m_events.failed && !piece.error->isCancelled())
            m_events.failed(*piece.error);
        return;
    }
    const bool isFirst = std::exchange(m_isFirstPiece, false);
    m_isTaking = true;
    if (isFirst)
        beginModel();
    const std::vector<unsigned>& rows = piece.value->rows;
    m_count += rows.size();
    m_isListing = !piece.value->isLast;
    const bool isWantedHere =
        m_wantedRow != 0 && std::find(rows.begin(), rows.end(), m_wantedRow) != rows.end();
    const unsigned first = rows.empty() ? 0 : rows.front();
    m_model.get()->append(rows);
    m_isTaking = false;
    if (!m_isListing && m_isLastWanted && m_count > 0)
        goToEnd();
    else if (isWantedHere)
        choose(std::exchange(m_wantedRow, 0), m_wantedColumn);
    else if (isFirst && m_wantedRow == 0 && first != 0)
        choose(first, 1);
    tellStatus();
}

void RowsPane::choose(unsigned row, unsigned column)
{
    m_table->setActiveCell({row, column, nullptr});
    m_table->scrollTo({row, column, nullptr});
    if (m_events.cellChosen)
        m_events.cellChosen(row, column);
}

/// The table goes to the last row that it has; the real one may not be listed yet.
void RowsPane::noteKey(const VXKeyEvent2& event)
{
    if (m_count == 0 || event.key() != Key::End || event.modifiers() != Modifier::Control)
        return;
    m_isLastWanted = m_isListing;
}

void RowsPane::goToEnd()
{
    const ModelCell2 end{m_model.get()->lastRow(), m_table->activeCell().column, nullptr};
    m_isLastWanted = false;
    m_table->clearSelection();
    m_table->setSelection({end, end});
    choose(end.row, end.column);
}

void RowsPane::beginModel()
{
    RowsModel* const former = m_model.get();
    m_count = 0;
    if (const ModelCell2 current = m_table->activeCell(); !current.isNull()) {
        m_wantedRow = current.row;
        m_wantedColumn = current.column;
    }
    if (!former) {
        showNewModel();
        setFirstWidths();
    } else if (former->rowCount() > MostRemoved) {
        const std::string header = m_table->saveHeaderState();
        showNewModel().adoptRejected(*former);
        m_table->restoreHeaderState(header);
        former->destroy();
    } else {
        former->removeAll();
        former->reread();
    }
    const bool isSorted = m_order.column != SQL::RowOrder::Natural;
    m_table->setSortIndicator(isSorted ? static_cast<unsigned>(m_order.column) + 1 : 0,
                              m_order.isDescending ? SortOrder::Descending : SortOrder::Ascending);
    m_filters.place();
}

RowsModel& RowsPane::showNewModel()
{
    auto* const model = new RowsModel(*m_document, m_reader, m_panel);
    m_model = model;
    m_table->setViewModel(model);
    return *model;
}

void RowsPane::setFirstWidths()
{
    const auto& columns = m_reader->columns();
    for (std::size_t i = 0; i < std::min(columns.size(), MeasuredColumns); ++i)
        m_table->setColumnWidthInCharacters(static_cast<unsigned>(i + 1),
                                            wantedCharacters(columns[i]));
}

void RowsPane::tellStatus()
{
    if (!m_events.status)
        return;
    const bool isFiltered = !m_order.filters.empty();
    std::string text;
    if (m_isListing && m_isFirstPiece)
        text = m_order.column == SQL::RowOrder::Natural ? "Searching …" : "Sorting …";
    else
        text = grouped(m_count) + (m_count == 1 ? " row" : " rows") + (isFiltered ? " found" : "")
               + (m_isListing ? " so far …" : "");
    m_events.status(text);
}

} // namespace explorer
