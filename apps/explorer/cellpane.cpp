#include "cellpane.h"

#include "celllook.h"
#include "hexmodel.h"
#include "pictures.h"
#include "sql/text.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxtab2.h"

#include <utility>

namespace explorer {

using namespace VOXI;

namespace {

/// More is cut: who reads megabytes reads them as bytes, a piece at a time.
constexpr std::size_t MostText = 1 << 20;
constexpr std::size_t TextAtOnce = 1 << 15;
constexpr std::int64_t LargestPicture = 64 << 20;

VXTab2* tab(VXTabContainer2* tabs, const char* title)
{
    auto* const page = new VXTab2(title, tabs);
    auto* const layout = new VXBoxLayout2(page, Direction::TopToBottom);
    layout->setMargins({0, 0, 0, 0});
    return page;
}

void fill(VXTab2* page, VXWidget2* widget)
{
    for (VXObject2* child : page->children()) {
        if (auto* const layout = dynamic_cast<VXBoxLayout2*>(child))
            layout->addWidget(widget, 1);
    }
}

} // namespace

/// One cell, as far as it has been read.
struct CellPane::Reading
{
    Document& document;
    const std::shared_ptr<SQL::RowReader> reader;
    const unsigned row;
    const std::size_t column;
    SQL::CancelToken token{};
    SQL::Cell cell{};
    std::wstring text{};
    std::size_t shownText = 0;
    Pixmap picture{};

    /// On the worker.
    void read()
    {
        const auto rows = reader->read({row}, {column}, MostText, token);
        if (!rows.empty() && !rows.front().cells.empty())
            cell = rows.front().cells.front();
        if (!std::holds_alternative<SQL::Blob>(cell.value)) {
            text = SQL::wideFromUtf8(SQL::textOf(cell.value));
            return;
        }
        const auto& start = std::get<SQL::Blob>(cell.value).bytes;
        if (cell.size > LargestPicture || !looksLikePicture(start))
            return;
        const SQL::Value whole = reader->cell(row, column, token);
        if (const auto* const bytes = std::get_if<SQL::Blob>(&whole))
            picture = decodePicture(bytes->bytes);
    }
};

CellPane::CellPane(VXObject2* parent)
    : m_panel(new VXPanel2(parent)),
      m_summary(new VXText2(m_panel)),
      m_tabs(new VXTabContainer2(m_panel)),
      m_textTab(tab(m_tabs, "&Text")),
      m_pictureTab(tab(m_tabs, "&Picture")),
      m_bytesTab(tab(m_tabs, "B&ytes")),
      m_text(new VXEditArea2(m_textTab)),
      m_picture(new VXImage2(m_pictureTab)),
      m_bytes(new VXTableView2(m_bytesTab))
{
    m_summary->setObjectName("cell-summary");
    m_summary->setElideMode(TextElideMode::Right);
    m_text->setObjectName("cell-text");
    m_text->setReadOnly(true);
    m_text->setUndoEnabled(false);
    m_bytes->setObjectName("cell-bytes");
    m_bytes->setFont(VXFont("monospace", 9));
    m_bytes->setRowHeaderVisible(false);
    m_bytes->setGridVisible(false);
    m_picture->setObjectName("cell-picture");
    m_picture->setScaling(ImageScaling::Shrink);
    fill(m_textTab, m_text);
    fill(m_pictureTab, m_picture);
    fill(m_bytesTab, m_bytes);
    auto* const rows = new VXBoxLayout2(m_panel, Direction::TopToBottom);
    rows->setMargins({4, 4, 4, 4});
    rows->addWidget(m_summary);
    rows->addWidget(m_tabs, 1);
    clear();
}

void CellPane::show(Document& document, const std::shared_ptr<SQL::RowReader>& reader, unsigned row,
                    unsigned column)
{
    if (row == 0 || column == 0 || !reader)
        return clear();
    if (m_reading)
        m_reading->token.cancel();
    m_reading = std::shared_ptr<Reading>(new Reading{document, reader, row, column - 1});
    document.ask<bool>(
        [reading = m_reading](SQL::Database&) {
            if (!reading->token.isCancelled())
                reading->read();
            return true;
        },
        [this, reading = m_reading, &document](Outcome<bool> outcome) {
            if (m_reading != reading)
                return;
            if (outcome.error)
                m_summary->setText(SQL::wideFromUtf8(outcome.error->what()));
            else
                take(reading);
            HexModel::show(*m_bytes, document, reading->reader, reading->row, reading->column,
                           reading->cell.size);
        });
}

void CellPane::clear()
{
    if (m_reading)
        m_reading->token.cancel();
    m_reading.reset();
    m_summary->setText("No cell");
    m_text->setText("");
    m_picture->setPixmap({});
    HexModel::clear(*m_bytes);
}

void CellPane::take(const std::shared_ptr<Reading>& reading)
{
    const SQL::Cell& cell = reading->cell;
    const SQL::ColumnInfo& column = reading->reader->columns()[reading->column];
    std::string summary = column.name + ": ";
    if (SQL::isNull(cell.value))
        summary += "NULL";
    else if (std::holds_alternative<SQL::Blob>(cell.value))
        summary += sizeText(cell.size) + " of bytes";
    else if (std::holds_alternative<std::string>(cell.value))
        summary += "text, " + sizeText(cell.size) + (cell.isCut ? "; the beginning is shown" : "");
    else
        summary += "number";
    m_summary->setText(SQL::wideFromUtf8(summary));
    showText(reading);
    showPicture(*reading);
    const bool isBytes = std::holds_alternative<SQL::Blob>(cell.value);
    m_tabs->setCurrentTab(!reading->picture.isNull() ? m_pictureTab
                          : isBytes                  ? m_bytesTab
                                                     : m_textTab);
}

/// Long ones piece by piece, with time for others in between.
void CellPane::showText(const std::shared_ptr<Reading>& reading)
{
    const std::wstring piece = reading->text.substr(reading->shownText, TextAtOnce);
    if (std::exchange(reading->shownText, reading->shownText + piece.size()) == 0)
        m_text->setText(piece);
    else
        m_text->replace({m_text->length(), 0}, piece);
    if (reading->shownText >= reading->text.size())
        return;
    reading->document.worker().deliver([this, reading] {
        if (m_reading == reading)
            showText(reading);
    });
}

void CellPane::showPicture(const Reading& reading)
{
    m_picture->setPixmap(reading.picture);
    m_pictureTab->setTabEnabled(!reading.picture.isNull());
}

} // namespace explorer
