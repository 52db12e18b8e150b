#pragma once

#include <QString>

#include <vector>

namespace VOXI {

class QtAbstractView2;

/// What is selected in a view, for the clipboard: rows as they stand, columns as they stand, and
/// nothing for what is not selected. A cell that was never in sight has no text.
class QtCopiedCells
{
public:
    explicit QtCopiedCells(const QtAbstractView2& view);

    bool isEmpty() const { return m_rows.empty(); }
    /// Those with tabs, line ends or quotes inside are quoted, as spreadsheets do.
    QString text() const;
    QString html() const;

private:
    using Row = std::vector<QString>;

    std::vector<Row> m_rows;
};

} // namespace VOXI
