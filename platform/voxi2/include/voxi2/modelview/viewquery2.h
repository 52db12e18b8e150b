#pragma once

#include "voxi2/kernel/direction.h"
#include "voxi2/voxi2_export.h"

#include <memory>
#include <vector>

namespace VOXI {

class ViewInterest2;

/// What a view wants to know of its model: the cells of some rows in some columns.
///
/// A value, copied cheaply; keep it as long as the answer takes.
class VOXI2_EXPORT ViewQuery2
{
public:
    struct Body
    {
        unsigned model = 0; ///< the id of who is asked
        unsigned asker = 0;
        unsigned id = 0;
        unsigned parent = 0;
        std::vector<unsigned> rows;
        std::vector<unsigned> expanderRows;
        std::vector<unsigned> columns;
        std::shared_ptr<const ViewInterest2> interest;
    };

    /// Asks nobody for nothing.
    ViewQuery2();
    explicit ViewQuery2(Body body) : m_body(std::make_shared<const Body>(std::move(body))) {}

    /// The row that the rows are children of; 0 for rows without a parent.
    unsigned parent() const noexcept { return m_body->parent; }
    const std::vector<unsigned>& rows() const noexcept { return m_body->rows; }
    const std::vector<unsigned>& columns() const noexcept { return m_body->columns; }
    /// Those of the rows of which the view does not know yet whether they have children.
    const std::vector<unsigned>& expanderRows() const noexcept { return m_body->expanderRows; }

    /// Whether some of the cells are in sight and the view and its model are there; for those who
    /// take long to answer, on any thread. Views that do not tell what is in sight want everything.
    bool isWanted() const;

    /// The id of the model that is asked.
    unsigned model() const noexcept { return m_body->model; }
    /// Which of the model's views asks, and the number it has given the query; never 0.
    unsigned asker() const noexcept { return m_body->asker; }
    unsigned id() const noexcept { return m_body->id; }

    /// Whether both ask for the same cells.
    bool asksTheSame(const ViewQuery2& other) const noexcept
    {
        return parent() == other.parent() && rows() == other.rows() && columns() == other.columns();
    }

private:
    std::shared_ptr<const Body> m_body;
};

/// What a view wants to know of its model: what some sections of a header show.
class VOXI2_EXPORT HeaderQuery2
{
public:
    struct Body
    {
        unsigned model = 0;
        unsigned asker = 0;
        unsigned id = 0;
        Orientation orientation = Orientation::Horizontal;
        std::vector<unsigned> sections;
    };

    HeaderQuery2();
    explicit HeaderQuery2(Body body) : m_body(std::make_shared<const Body>(std::move(body))) {}

    /// Horizontal: the header above the columns.
    Orientation orientation() const noexcept { return m_body->orientation; }
    /// Columns, or rows.
    const std::vector<unsigned>& sections() const noexcept { return m_body->sections; }

    /// See `ViewQuery2`.
    unsigned model() const noexcept { return m_body->model; }
    unsigned asker() const noexcept { return m_body->asker; }
    unsigned id() const noexcept { return m_body->id; }

    bool asksTheSame(const HeaderQuery2& other) const noexcept
    {
        return orientation() == other.orientation() && sections() == other.sections();
    }

private:
    std::shared_ptr<const Body> m_body;
};

} // namespace VOXI
