#pragma once

#include <QHash>
#include <QMultiHash>

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace VOXI {

/// The queries of a view that are not answered yet. The same is never asked twice at a time: found
/// by a hash, since views ask for what they lack at each painting, a thousand cells at a time.
template <class Query>
class PendingQueries
{
public:
    struct Pending
    {
        Query query;
        /// It asks for what may be known, and has changed.
        bool isRefresh = false;
        /// What it asks for has changed since: the answer may be older, and it is asked anew.
        bool isOld = false;
        /// Rows of it that have gone. One that comes back is another row.
        std::vector<std::uint32_t> lost;
    };

    void add(std::size_t hash, Query query, bool isRefresh)
    {
        const unsigned id = query.id();
        m_byContent.insert(hash, id);
        m_byId.insert(id, {{std::move(query), isRefresh, false, {}}, hash});
    }

    /// The one whose query is the same, by `isSame`; null if there is none.
    template <class IsSame>
    Pending* find(std::size_t hash, const IsSame& isSame)
    {
        for (auto each = m_byContent.constFind(hash);
             each != m_byContent.cend() && each.key() == hash; ++each) {
            Pending& pending = m_byId.find(each.value())->pending;
            if (isSame(pending.query))
                return &pending;
        }
        return nullptr;
    }

    /// When it is answered; nothing if it was never sent, or is answered already.
    std::optional<Pending> take(unsigned id)
    {
        const auto found = m_byId.find(id);
        if (found == m_byId.end())
            return std::nullopt;
        m_byContent.remove(found->hash, id);
        std::optional<Pending> pending = std::move(found->pending);
        m_byId.erase(found);
        return pending;
    }

    template <class Function>
    void forEach(const Function& function)
    {
        for (Entry& each : m_byId)
            function(each.pending);
    }
    bool isEmpty() const { return m_byId.isEmpty(); }

private:
    struct Entry
    {
        Pending pending;
        std::size_t hash;
    };
    QHash<unsigned, Entry> m_byId;
    QMultiHash<std::size_t, unsigned> m_byContent;
};

} // namespace VOXI
