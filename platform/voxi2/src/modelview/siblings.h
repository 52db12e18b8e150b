#pragma once

#include <utility>
#include <vector>

namespace VOXI {

/// A row's place in a tree whose children are linked lists. Row 0 is the parent of those without.
struct Siblings
{
    unsigned parent = 0;
    unsigned previous = 0;
    unsigned next = 0;
    unsigned first = 0;
    unsigned last = 0;
};

/// Puts the row behind one of the parent's children; 0 is the front. `Rows` maps numbers to what is
/// derived from `Siblings`.
template <class Rows>
void linkSibling(Rows& rows, unsigned uid, unsigned parent, unsigned after)
{
    Siblings& row = rows[uid];
    row.parent = parent;
    row.previous = after;
    unsigned& before = after != 0 ? rows[after].next : rows[parent].first;
    row.next = std::exchange(before, uid);
    (row.next != 0 ? rows[row.next].previous : rows[parent].last) = uid;
}

template <class Rows>
void unlinkSibling(Rows& rows, unsigned uid)
{
    const Siblings row = rows[uid];
    (row.previous != 0 ? rows[row.previous].next : rows[row.parent].first) = row.next;
    (row.next != 0 ? rows[row.next].previous : rows[row.parent].last) = row.previous;
}

/// Takes the row out, with all that is below it.
template <class Rows>
void eraseSibling(Rows& rows, unsigned uid)
{
    unlinkSibling(rows, uid);
    // Not by recursion: trees may be as deep as the application likes.
    std::vector<unsigned> ending{uid};
    while (!ending.empty()) {
        const auto node = rows.extract(ending.back());
        ending.pop_back();
        for (unsigned child = node.mapped().first; child != 0; child = rows[child].next)
            ending.push_back(child);
    }
}

} // namespace VOXI
