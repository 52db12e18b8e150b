#include "cellcache.h"

#include <algorithm>
#include <utility>

namespace VOXI {

const CellRecord* CellCache::findAndTouch(Cell cell)
{
    const auto found = m_records.constFind(cell);
    if (found == m_records.cend())
        return nullptr;
    touch(found->page);
    m_near[slotOf(cell)] = {cell, &found->record};
    m_isNearEmpty = false;
    return &found->record;
}

const CellRecord* CellCache::peek(Cell cell) const
{
    const Near& near = m_near[slotOf(cell)];
    if (near.record && near.cell == cell)
        return near.record;
    const auto found = m_records.constFind(cell);
    return found == m_records.cend() ? nullptr : &found->record;
}

void CellCache::insert(std::span<const News> answer)
{
    if (answer.empty())
        return;
    forgetNear();
    const auto page = m_pages.emplace(m_pages.begin());
    page->cells.reserve(answer.size());
    for (const News& news : answer) {
        page->cells.push_back(news.cell);
        ++page->live;
        Entry entry{CellRecord(*news.data, m_styles), page};
        const auto known = m_records.find(news.cell);
        if (known == m_records.end()) {
            m_records.emplace(news.cell, std::move(entry));
        } else {
            leave(known->page);
            *known = std::move(entry);
        }
    }
}

void CellCache::removeRows(std::span<const Uid> rows, std::span<const Uid> columns)
{
    forgetNear();
    for (const Uid row : rows) {
        for (const Uid column : columns) {
            const auto found = m_records.constFind({row, column});
            if (found != m_records.cend()) {
                leave(found->page);
                m_records.erase(found);
            }
        }
    }
}

void CellCache::clear()
{
    forgetNear();
    m_records = {};
    m_pages.clear();
    m_styles = {};
}

void CellCache::trim(std::span<const Cell> onScreen)
{
    forgetNear();
    for (const Cell& cell : onScreen) {
        const auto found = m_records.constFind(cell);
        if (found != m_records.cend()) {
            touch(found->page);
            found->page->isOnScreen = true;
        }
    }
    const qsizetype wanted = m_limit - m_limit / 64;
    while (size() > wanted && !m_pages.back().isOnScreen) {
        const auto oldest = std::prev(m_pages.end());
        for (const Cell& cell : oldest->cells) {
            const auto found = m_records.constFind(cell);
            if (found != m_records.cend() && found->page == oldest)
                m_records.erase(found);
        }
        m_pages.erase(oldest);
    }
    for (auto page = m_pages.begin(); page != m_pages.end() && page->isOnScreen; ++page)
        page->isOnScreen = false;
}

void CellCache::forgetNear()
{
    if (!m_isNearEmpty)
        std::fill(m_near.begin(), m_near.end(), Near());
    m_isNearEmpty = true;
}

/// A cell goes from a page, which goes with the last.
void CellCache::leave(Pages::iterator page)
{
    if (--page->live == 0)
        m_pages.erase(page);
}

} // namespace VOXI
