#pragma once

#include "voxi2/modelview/celluidata.h"
#include "voxi2/modelview/viewquery2.h"

#include <memory>
#include <utility>
#include <vector>

namespace VOXI {

/// The answer to a query: the cells, and whether rows have children.
///
/// It may hold less than was asked for, or more. Cells of rows and columns that the view does not
/// have are ignored.
class QueryResult2
{
public:
    struct Cell
    {
        unsigned row;
        unsigned column;
        CellUIData data;
    };
    struct Expander
    {
        unsigned row;
        bool hasChildren;
    };

    void set(unsigned row, unsigned column, CellUIData data)
    {
        m_cells.push_back({row, column, std::move(data)});
    }
    void setHasChildren(unsigned row, bool hasChildren = true)
    {
        m_expanders.push_back({row, hasChildren});
    }
    void reserve(std::size_t cells) { m_cells.reserve(cells); }

    const std::vector<Cell>& cells() const noexcept { return m_cells; }
    const std::vector<Expander>& expanders() const noexcept { return m_expanders; }

    /// Whether nobody looked for an answer, because the cells were out of sight. A view in which
    /// they are by now asks again; what it knew of them may be out of date.
    bool isDropped() const noexcept { return m_isDropped; }
    void setDropped() noexcept { m_isDropped = true; }

    /// What it is the answer to; set by the model's `answer`.
    const ViewQuery2& query() const noexcept { return m_query; }
    void setQuery(const ViewQuery2& query) { m_query = query; }
    unsigned parent() const noexcept { return m_query.parent(); }

private:
    ViewQuery2 m_query;
    std::vector<Cell> m_cells;
    std::vector<Expander> m_expanders;
    bool m_isDropped = false;
};

/// The answer to a query for a header; sections that it does not name show their numbers.
class HeaderQueryResult2
{
public:
    struct Section
    {
        unsigned section;
        CellUIData data;
    };

    void set(unsigned section, CellUIData data)
    {
        m_sections.push_back({section, std::move(data)});
    }
    const std::vector<Section>& sections() const noexcept { return m_sections; }

    /// Whether it is no answer: a view that shows the sections asks again.
    bool isDropped() const noexcept { return m_isDropped; }
    void setDropped() noexcept { m_isDropped = true; }

    /// What it is the answer to; set by the model's `answer`.
    const HeaderQuery2& query() const noexcept { return m_query; }
    void setQuery(const HeaderQuery2& query) { m_query = query; }

private:
    HeaderQuery2 m_query;
    std::vector<Section> m_sections;
    bool m_isDropped = false;
};

} // namespace VOXI
