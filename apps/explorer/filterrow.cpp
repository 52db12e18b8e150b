#include "filterrow.h"

#include "sql/text.h"

#include <algorithm>
#include <utility>

namespace explorer {

using namespace VOXI;

namespace {

constexpr int FieldHeight = 26;

} // namespace

FilterRow::FilterRow(VXObject2* parent, VXTableView2* table, std::function<void()> changed)
    : m_panel(new VXPanel2(parent)),
      m_table(table),
      m_changed(std::move(changed))
{
    m_panel->setMinimumSize({0, FieldHeight});
    m_panel->setMaximumSize({-1, FieldHeight});
    m_table->scrolled().connect(m_panel, [this](const VXViewScrollEvent2&) { place(); });
    m_table->columnResized().connect(m_panel, [this](const VXColumnResizeEvent2&) { place(); });
    m_table->columnMoved().connect(m_panel, [this](const VXColumnMoveEvent2&) { place(); });
    m_panel->resized().connect(m_panel, [this](const VXResizeEvent2&) { place(); });
}

void FilterRow::reset()
{
    m_texts.clear();
    for (Field& field : m_fields)
        field.column = 0;
    place();
}

std::vector<SQL::ColumnFilter> FilterRow::filters() const
{
    std::vector<SQL::ColumnFilter> filters;
    for (const auto& [column, text] : m_texts) {
        if (!text.empty())
            filters.push_back({column - 1, text});
    }
    return filters;
}

void FilterRow::place()
{
    const int width = m_panel->position().width;
    std::vector<std::pair<unsigned, VXRect<int>>> inSight;
    for (const unsigned column : m_table->columnOrder()) {
        const VXRect<int> header = m_table->columnHeaderRect(column);
        if (header.x >= width)
            break;
        if (header.width > 0 && header.x + header.width > 0)
            inSight.emplace_back(column, header);
    }
    for (std::size_t i = 0; i < inSight.size(); ++i)
        placeField(fieldAt(i), inSight[i].first, inSight[i].second);
    for (std::size_t i = inSight.size(); i < m_fields.size(); ++i)
        m_fields[i].edit->hide();
}

void FilterRow::focus(unsigned column)
{
    for (const Field& field : m_fields) {
        if (field.column == column)
            field.edit->setFocus();
    }
}

FilterRow::Field& FilterRow::fieldAt(std::size_t place)
{
    if (place < m_fields.size())
        return m_fields[place];
    auto* const edit = new VXEdit2(m_panel);
    edit->setPlaceholder("filter");
    edit->setClearButtonVisible(true);
    edit->setObjectName("filter-" + std::to_string(place + 1));
    edit->setToolTip("Contains what you type. Or: =text, !=text, <10, >=10, null, !null");
    edit->textEdited().connect(edit, [this, place](const VXEditTextEvent2& event) {
        m_texts[m_fields[place].column] = SQL::utf8FromWide(event.newText());
        m_changed();
    });
    return m_fields.emplace_back(Field{edit});
}

void FilterRow::placeField(Field& field, unsigned column, const VXRect<int>& header)
{
    field.edit->setPosition({header.x, 0, header.width, FieldHeight});
    if (std::exchange(field.column, column) != column) {
        field.edit->setText(SQL::wideFromUtf8(m_texts[column]));
        field.edit->setAccessibleName("Filter of column " + std::to_string(column));
    }
    field.edit->show();
}

} // namespace explorer
