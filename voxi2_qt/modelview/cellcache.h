#pragma once

#include "cellrecord.h"

#include <QHash>

#include <cstdint>
#include <list>
#include <span>
#include <vector>

namespace VOXI {

/// The cells, or sections of a header, that a view has been told of. When they become too many,
/// those go that were looked at longest ago, one answer after the other.
class CellCache
{
public:
    using Uid = std::uint32_t;

    /// A section of a header has one of the two.
    struct Cell
    {
        Uid row = 0;
        Uid column = 0;

        friend bool operator==(const Cell&, const Cell&) = default;
        friend size_t qHash(const Cell& cell, size_t seed = 0)
        {
            return ::qHash(quint64(cell.column) << 32 | cell.row, seed);
        }
    };
    struct News
    {
        Cell cell;
        const CellUIData* data = nullptr;
    };

    CellCache() = default;
    CellCache(const CellCache&) = delete;
    CellCache& operator=(const CellCache&) = delete;

    /// For painting: it counts as looked at. Null when nothing is known of the cell. Valid until
    /// the next change.
    const CellRecord* find(Cell cell)
    {
        const Near& near = m_near[slotOf(cell)];
        return near.record && near.cell == cell ? near.record : findAndTouch(cell);
    }
    /// In passing.
    const CellRecord* peek(Cell cell) const;

    /// One answer. Replaces what was known of the cells.
    void insert(std::span<const News> answer);

    /// For few rows.
    void removeRows(std::span<const Uid> rows, std::span<const Uid> columns);
    /// Looks at all cells; `predicate` takes a Cell.
    template <class Predicate>
    void removeIf(const Predicate& predicate);
    void clear();

    qsizetype size() const { return m_records.size(); }
    /// Of cells; kept to when `trim` is called.
    void setLimit(qsizetype cells) { m_limit = cells; }
    qsizetype limit() const { return m_limit; }
    bool isTooLarge() const { return size() > m_limit; }
    /// To somewhat less than the limit, so that not each answer needs it. Answers stay of which a
    /// cell is on the screen, even if there is too much of them.
    void trim(std::span<const Cell> onScreen);

    void remakeFonts() { m_styles.remakeFonts(); }
    const CellStyles& styles() const { return m_styles; }

private:
    /// What came in one answer.
    struct Page
    {
        std::vector<Cell> cells;
        qsizetype live = 0; ///< those that have neither gone nor come again
        bool isOnScreen = false;
    };
    using Pages = std::list<Page>;
    struct Entry
    {
        CellRecord record;
        Pages::iterator page;
    };
    using Records = QHash<Cell, Entry>;

    /// A cell that was looked at since the last change.
    struct Near
    {
        Cell cell;
        const CellRecord* record = nullptr;
    };
    static constexpr int NearBits = 10;

    static std::size_t slotOf(Cell cell)
    {
        return ((cell.row * 0x9E3779B9u) ^ (cell.column * 0x85EBCA6Bu)) >> (32 - NearBits);
    }
    const CellRecord* findAndTouch(Cell cell);
    void forgetNear();
    void touch(Pages::iterator page) { m_pages.splice(m_pages.begin(), m_pages, page); }
    void leave(Pages::iterator page);

    CellStyles m_styles;
    Records m_records;
    /// The last looked at is the first.
    Pages m_pages;
    qsizetype m_limit = 100'000;
    /// Views ask for the same thousand cells at each painting, ten times for each.
    std::vector<Near> m_near{std::size_t(1) << NearBits};
    bool m_isNearEmpty = true;
};

template <class Predicate>
void CellCache::removeIf(const Predicate& predicate)
{
    forgetNear();
    m_records.removeIf([&](Records::iterator entry) {
        const bool goes = predicate(entry.key());
        if (goes)
            leave(entry->page);
        return goes;
    });
}

} // namespace VOXI
