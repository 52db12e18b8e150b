#pragma once

#include "voxi2/modelview/viewmodellink2.h"
#include "voxi2/modelview/vxabstractviewmodel2.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace VOXI {

/// What a peer does with a model, in lists that are searched.
class NaiveView : public TROV::Listener
{
public:
    using Tree = std::map<unsigned, std::vector<unsigned>>;

    explicit NaiveView(VXAbstractViewModel2& model) : m_link(&model)
    {
        const VXObjectDataLocker lock;
        VXAbstractViewModel2Emitters& events = *model.modelEmitters();
        events.clearCachedUIData.signal().connect(this, [this] { m_cells.clear(); });
        events.queryResult.signal().connect(this, &NaiveView::handleQueryResult);
        events.headerQueryResult.signal().connect(this, [this](const HeaderQueryResult2& result) {
            for (const auto& [section, data] : result.sections())
                m_headers[section] = data.value().textU();
        });
        events.dataChanged.signal().connect(this, [this](const VXDataChangeEvent2& event) {
            for (const auto& [row, columns] : event.dataChanges())
                ask({row}, {columns.begin(), columns.end()});
        });
        events.sizeChanged.signal().connect(this, [this](const VXSizeChangeEvent2& event) {
            ++m_sizeEvents;
            for (const SizeChange2& change : event.sizeChanges())
                apply(change);
        });
        for (const SizeChange2& change : m_link.shape())
            apply(change);
    }

    ViewQuery2 ask(std::vector<unsigned> rows, std::vector<unsigned> columns)
    {
        ViewQuery2 query = m_link.ask(0, rows, rows, std::move(columns));
        m_pending.insert(query.id());
        return query;
    }
    void askAll()
    {
        for (const auto& [parent, rows] : m_rows)
            ask(rows, m_columns);
    }

    ViewModelLink2 m_link;
    std::vector<unsigned> m_columns;
    Tree m_rows; // children by parent, where there are any
    std::map<std::pair<unsigned, unsigned>, std::wstring> m_cells;
    std::map<unsigned, std::wstring> m_headers;
    std::set<unsigned> m_pending;
    int m_results = 0; // those that were asked for
    int m_dropped = 0;
    int m_sizeEvents = 0;

private:
    void handleQueryResult(const QueryResult2& result)
    {
        if (m_pending.erase(result.query().id()) == 0)
            return;
        ++m_results;
        m_dropped += result.isDropped();
        for (const auto& [row, column, data] : result.cells())
            m_cells[{row, column}] = data.value().textU();
    }

    static void insert(std::vector<unsigned>& list, std::ptrdiff_t place,
                       const std::vector<unsigned>& uids, const std::set<unsigned>& known)
    {
        for (const unsigned uid : uids) {
            if (uid != 0 && !known.contains(uid) && std::ranges::count(list, uid) == 0)
                list.insert(list.begin() + place++, uid);
        }
    }

    /// Where it happens; -1 where it does not.
    static std::ptrdiff_t placeOf(const SizeChange2& change, int first,
                                  const std::vector<unsigned>& list)
    {
        const auto anchor = std::ranges::find(list, change.anchor());
        switch (change.kind() - first) {
        case 0:
            return anchor == list.end() ? 0 : anchor - list.begin() + 1;
        case 1:
            return anchor == list.end() ? -1 : anchor - list.begin();
        case 2:
            return 0;
        default:
            return std::ssize(list);
        }
    }

    void apply(const SizeChange2& change)
    {
        std::set<unsigned> known{0};
        for (const auto& [parent, rows] : m_rows)
            known.insert(rows.begin(), rows.end());
        if (change.kind() < 0 || change.kind() > SizeChange2::RemoveRow)
            return;
        if (change.kind() == SizeChange2::RemoveColumn) {
            for (const unsigned column : change.uids())
                std::erase(m_columns, column);
        } else if (change.kind() == SizeChange2::RemoveRow) {
            for (const unsigned row : change.uids())
                remove(row);
        } else if (change.kind() < SizeChange2::InsertRowsAfter) {
            const auto place = placeOf(change, SizeChange2::InsertColumnsAfter, m_columns);
            if (place >= 0)
                insert(m_columns, place, change.uids(), {});
        } else if (known.contains(change.parent()) && !change.uids().empty()) {
            std::vector<unsigned>& list = m_rows[change.parent()];
            const auto place = placeOf(change, SizeChange2::InsertRowsAfter, list);
            if (place >= 0)
                insert(list, place, change.uids(), known);
            if (list.empty())
                m_rows.erase(change.parent());
        }
    }

    void remove(unsigned uid)
    {
        if (uid == 0)
            return;
        const auto children = m_rows.extract(uid);
        if (!children.empty()) {
            for (const unsigned child : children.mapped())
                remove(child);
        }
        for (auto at = m_rows.begin(); at != m_rows.end();) {
            std::erase(at->second, uid);
            at = at->second.empty() ? m_rows.erase(at) : std::next(at);
        }
        std::erase_if(m_cells, [uid](const auto& each) { return each.first.first == uid; });
    }
};

} // namespace VOXI
