#pragma once

#include "voxi2/modelview/modelcell2.h"

#include <QModelIndex>
#include <QString>

#include <vector>

namespace VOXI {

class QtAbstractView2;

/// Where a row stands: its place, and before it the places of those above it. In this order trees
/// show their rows.
std::vector<int> rowPath(QModelIndex index);

/// Some cells of a view, for the clipboard: rows as they stand, columns as they stand, and
/// nothing for what is not among them. A cell that is not known has no text.
class QtCopiedCells
{
public:
    QtCopiedCells(const QtAbstractView2& view, const std::vector<ModelBlock>& blocks);

    bool isEmpty() const { return m_rows.empty(); }
    /// Those with tabs, line ends or quotes inside are quoted, as spreadsheets do.
    QString text() const;
    QString html() const;

private:
    using Row = std::vector<QString>;

    std::vector<Row> m_rows;
};

} // namespace VOXI
