#include "qtcopiedcells.h"

#include "qtviewmodel2.h"
#include "voxi2_qt/modelview/qtabstractview2.h"

#include <QHeaderView>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace VOXI {

namespace {

QString quoted(QString text)
{
    const bool needsQuotes = text.contains(u'\t') || text.contains(u'\n') || text.contains(u'"');
    return needsQuotes ? u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"' : text;
}

QString escaped(const QString& text)
{
    return text.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>"));
}

template <class Convert>
QString joined(const std::vector<QString>& cells, QStringView between, Convert convert)
{
    QString line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i != 0)
            line += between;
        line += convert(cells[i]);
    }
    return line;
}

} // namespace

std::vector<int> rowPath(QModelIndex index)
{
    std::vector<int> path;
    for (; index.isValid(); index = index.parent())
        path.push_back(index.row());
    std::reverse(path.begin(), path.end());
    return path;
}

QtCopiedCells::QtCopiedCells(const QtAbstractView2& view, const std::vector<ModelBlock>& blocks)
{
    const QtViewModel2& model = view.viewModel();
    const QHeaderView& header = view.columnHeader();
    // For each row its columns as they stand, and their texts.
    std::map<std::vector<int>, std::vector<std::pair<int, QString>>> rows;
    std::set<int> columns;
    for (const ModelBlock& block : blocks) {
        for (const unsigned row : block.rows) {
            const QModelIndex first = model.indexFromUIDs(row, 0);
            if (!first.isValid())
                continue;
            auto& cells = rows[rowPath(first)];
            for (const unsigned column : block.columns) {
                const int section = model.columnFromUID(column);
                if (section < 0 || header.isSectionHidden(section))
                    continue;
                const int place = header.visualIndex(section);
                const CellRecord* const record = model.peekCell(first.siblingAtColumn(section));
                columns.insert(place);
                cells.emplace_back(place, record ? record->text() : QString());
            }
        }
    }
    const std::vector<int> places(columns.begin(), columns.end());
    for (auto& [path, cells] : rows) {
        Row line(places.size());
        for (auto& [place, text] : cells) {
            const auto at = std::lower_bound(places.begin(), places.end(), place);
            line[static_cast<std::size_t>(at - places.begin())] = std::move(text);
        }
        m_rows.push_back(std::move(line));
    }
}

QString QtCopiedCells::text() const
{
    QString text;
    for (const Row& row : m_rows) {
        if (&row != &m_rows.front())
            text += u'\n';
        text += joined(row, u"\t", quoted);
    }
    return text;
}

QString QtCopiedCells::html() const
{
    QString html = QStringLiteral("<table>");
    for (const Row& row : m_rows)
        html += QStringLiteral("<tr><td>") + joined(row, u"</td><td>", escaped)
                + QStringLiteral("</td></tr>");
    return html + QStringLiteral("</table>");
}

} // namespace VOXI
