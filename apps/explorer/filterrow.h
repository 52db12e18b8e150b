#pragma once

#include "sql/rowreader.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/modelview/vxtableview2.h"

#include <functional>
#include <map>
#include <vector>

namespace explorer {

/// A field over each column of a table, for what its cells are to hold. There are as many fields as
/// columns are in sight, and they follow these.
class FilterRow
{
public:
    /// `changed` is called as the user types.
    FilterRow(VOXI::VXObject2* parent, VOXI::VXTableView2* table, std::function<void()> changed);

    VOXI::VXPanel2* panel() const noexcept { return m_panel; }

    /// Begins anew, without a filter, for another table.
    void reset();
    std::vector<SQL::ColumnFilter> filters() const;
    /// Puts the fields over the columns that are in sight now.
    void place();
    /// Gives the keyboard to the field of that column.
    void focus(unsigned column);

private:
    struct Field
    {
        VOXI::VXEdit2* edit = nullptr;
        unsigned column = 0; ///< that it stands over; 0 for none
    };
    Field& fieldAt(std::size_t place);
    void placeField(Field& field, unsigned column, const VOXI::VXRect<int>& header);

    VOXI::VXPanel2* const m_panel;
    VOXI::VXTableView2* const m_table;
    const std::function<void()> m_changed;
    std::vector<Field> m_fields;
    std::map<unsigned, std::string> m_texts; ///< UTF-8, by columns
};

} // namespace explorer
