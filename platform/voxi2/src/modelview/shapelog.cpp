#include "shapelog.h"

#include "siblings.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace VOXI {

namespace {

constexpr std::size_t RecordWeight = sizeof(SizeChange2) / sizeof(unsigned);

/// The rows as lists of siblings: every change is done where it happens, none looks for positions.
class Replay
{
public:
    Replay() { m_rows[0]; }

    void apply(const SizeChange2& change)
    {
        switch (change.kind()) {
        case SizeChange2::InsertColumnsAfter:
        case SizeChange2::InsertColumnsBefore:
        case SizeChange2::PrependColumns:
        case SizeChange2::AppendColumns:
            insertColumns(change);
            break;
        case SizeChange2::InsertRowsAfter:
        case SizeChange2::InsertRowsBefore:
        case SizeChange2::PrependRows:
        case SizeChange2::AppendRows:
            insertRows(change);
            break;
        case SizeChange2::RemoveColumn:
            for (const unsigned column : change.uids())
                std::erase(m_columns, column);
            break;
        case SizeChange2::RemoveRow:
            for (const unsigned row : change.uids())
                removeRow(row);
            break;
        default:
            break;
        }
    }

    std::vector<SizeChange2> result() const
    {
        std::vector<SizeChange2> changes;
        if (!m_columns.empty())
            changes.push_back(SizeChange2::appendColumns(m_columns));
        SizeChange2::Uids parents{0};
        for (std::size_t i = 0; i < parents.size(); ++i) {
            SizeChange2::Uids rows;
            for (unsigned row = m_rows.at(parents[i]).first; row != 0; row = m_rows.at(row).next) {
                rows.push_back(row);
                if (m_rows.at(row).first != 0)
                    parents.push_back(row);
            }
            if (!rows.empty())
                changes.push_back(SizeChange2::appendRows(std::move(rows), parents[i]));
        }
        return changes;
    }

private:
    void insertColumns(const SizeChange2& change)
    {
        const auto anchor = std::find(m_columns.begin(), m_columns.end(), change.anchor());
        auto place = m_columns.begin();
        if (change.kind() == SizeChange2::AppendColumns)
            place = m_columns.end();
        else if (change.kind() == SizeChange2::InsertColumnsAfter && anchor != m_columns.end())
            place = anchor + 1;
        else if (change.kind() == SizeChange2::InsertColumnsBefore)
            place = anchor;
        if (change.kind() == SizeChange2::InsertColumnsBefore && anchor == m_columns.end())
            return;
        for (const unsigned column : change.uids()) {
            if (column != 0
                && std::find(m_columns.begin(), m_columns.end(), column) == m_columns.end())
                place = m_columns.insert(place, column) + 1;
        }
    }

    void insertRows(const SizeChange2& change)
    {
        const auto parent = m_rows.find(change.parent());
        if (parent == m_rows.end())
            return;
        const auto sibling = m_rows.find(change.anchor());
        const bool isSibling = change.anchor() != 0 && sibling != m_rows.end()
                               && sibling->second.parent == change.parent();
        unsigned after = 0;
        if (change.kind() == SizeChange2::InsertRowsAfter)
            after = isSibling ? change.anchor() : 0;
        else if (change.kind() == SizeChange2::AppendRows)
            after = parent->second.last;
        else if (change.kind() == SizeChange2::InsertRowsBefore) {
            if (!isSibling)
                return;
            after = sibling->second.previous;
        }
        for (const unsigned row : change.uids()) {
            if (row != 0 && m_rows.try_emplace(row).second) {
                linkSibling(m_rows, row, change.parent(), after);
                after = row;
            }
        }
    }

    void removeRow(unsigned uid)
    {
        if (uid != 0 && m_rows.contains(uid))
            eraseSibling(m_rows, uid);
    }

    std::unordered_map<unsigned, Siblings> m_rows; // 0 is the parent of those without one
    SizeChange2::Uids m_columns;
};

/// Whether the changes are what a replay would make of them, so that the first million rows of a
/// model need none: columns and rows that were appended in ascending order.
bool isShortest(const std::vector<SizeChange2>& changes)
{
    unsigned last[2] = {};
    for (const SizeChange2& change : changes) {
        const bool isRows = change.kind() == SizeChange2::AppendRows;
        if ((!isRows && change.kind() != SizeChange2::AppendColumns) || change.parent() != 0)
            return false;
        const std::vector<unsigned>& uids = change.uids();
        if (!uids.empty()
            && (uids.front() <= std::exchange(last[isRows], uids.back()) || !change.isAscending()))
            return false;
    }
    return changes.size() <= 2;
}

} // namespace

void ShapeLog::add(const SizeChange2& change)
{
    m_isCompact = false;
    m_weight += change.uids().size();
    if (m_changes.empty() || !m_changes.back().join(change, false)) {
        m_changes.push_back(change);
        m_weight += RecordWeight;
    }
    if (m_weight > m_limit)
        compact();
}

const std::vector<SizeChange2>& ShapeLog::shape()
{
    if (!m_isCompact)
        compact();
    return m_changes;
}

void ShapeLog::compact()
{
    if (!isShortest(m_changes)) {
        Replay replay;
        for (const SizeChange2& change : m_changes)
            replay.apply(change);
        m_changes = replay.result();
    }
    m_weight = 0;
    for (const SizeChange2& change : m_changes)
        m_weight += RecordWeight + change.uids().size();
    m_limit = 2 * m_weight + 16'384;
    m_isCompact = true;
}

} // namespace VOXI
