#pragma once

#include "qtviewmodel2.h"
#include "support/randomseed.h"
#include "support/watchedtest.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace VOXI {

using Uid = QtViewModel2::Uid;
using Uids = QtViewModel2::Uids;
using CellId = std::pair<Uid, Uid>;

inline void settle() { TROV::Thread::getCurrentThread()->process(); }

/// Keeps what it is asked until a test answers it.
class Model : public VXAbstractViewModel2
{
public:
    using VXAbstractViewModel2::answer;
    using VXAbstractViewModel2::changeData;
    using VXAbstractViewModel2::changeHeader;
    using VXAbstractViewModel2::changeSize;
    using VXAbstractViewModel2::clearCachedHeaderUIData;
    using VXAbstractViewModel2::clearCachedUIData;

    Model() = default;
    Model(const Uids& columns, const Uids& rows)
    {
        changeSize(SizeChange2::appendColumns(columns));
        changeSize(SizeChange2::appendRows(rows));
    }
    void query(const ViewQuery2& each) override { m_queries.push_back(each); }
    void queryHeader(const HeaderQuery2& each) override { m_headerQueries.push_back(each); }

    std::string text(Uid row, Uid column) const
    {
        const auto version = m_versions.find({row, column});
        return std::to_string(row) + '/' + std::to_string(column) + '.'
               + std::to_string(version == m_versions.end() ? 0 : version->second);
    }
    QueryResult2 cells(const ViewQuery2& query) const
    {
        QueryResult2 result;
        for (const Uid row : query.rows()) {
            for (const Uid column : query.columns())
                result.set(row, column, text(row, column));
        }
        return result;
    }
    void answerAll()
    {
        settle();
        for (const ViewQuery2& each : std::exchange(m_queries, {}))
            answer(each, cells(each));
        for (const HeaderQuery2& each : std::exchange(m_headerQueries, {}))
            answerBlank(each);
        settle();
    }

    std::vector<ViewQuery2> m_queries;
    std::vector<HeaderQuery2> m_headerQueries;
    std::map<CellId, int> m_versions;
};

inline Uids ascending(Uid first, std::size_t count)
{
    Uids uids;
    for (Uid uid = first; uids.size() < count; ++uid)
        uids.push_back(uid);
    return uids;
}

class QtViewModels : public WatchedTest
{};

} // namespace VOXI
