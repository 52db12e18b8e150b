#pragma once

#include "voxi2/modelview/palettelayout.h"
#include "voxi2/modelview/vxabstractgroupview2.h"
#include "voxi2/modelview/vxpaletteevents2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <string>

namespace VOXI {

struct VXPaletteView2Emitters : TROV::EmittersTable<VXAbstractGroupView2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(PaletteLayout)> setEntryLayout{*this};
    TROV::Request<PaletteLayout()> getEntryLayout{*this};
    TROV::Request<void(unsigned)> setCurrentEntry{*this};
    TROV::Request<void(unsigned)> setCurrentEntryAsUser{*this};
    TROV::Request<unsigned()> getCurrentEntry{*this};
    TROV::Request<void(bool)> setSearchVisible{*this};
    TROV::Request<bool()> isSearchVisible{*this};
    TROV::Request<void(std::wstring)> setSearchText{*this};
    TROV::Request<void(std::wstring)> setSearchTextAsUser{*this};
    TROV::Request<std::wstring()> getSearchText{*this};
    TROV::Request<void(bool)> setFiltering{*this};
    TROV::Request<bool()> isFiltering{*this};
    TROV::Request<void(bool)> setReorderable{*this};
    TROV::Request<bool()> isReorderable{*this};
    TROV::Request<void(unsigned, unsigned, unsigned)> moveEntry{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXPaletteEntryEvent2&)> currentEntryChanged{*this};
    TROV::Event<void(const VXPaletteSearchEvent2&)> searchChanged{*this};
    TROV::Event<void(const VXPaletteDragEvent2&)> entryDragged{*this};
    TROV::Event<void(const VXPaletteMovingEvent2&)> entryMoving{*this};
    TROV::Event<void(const VXPaletteMovedEvent2&)> entryMoved{*this};
};

/// A palette of tools: categories that fold, the groups of its model, and in them entries, one of
/// which is the current one; above them a field to look for entries.
///
/// A click, or going there with the keys, makes an entry the current one; a double click, Enter and
/// Space activate it. The keys are those of the explorer bar; in a grid Left and Right go along the
/// lines. In the field Down goes to what was found and Escape shows all again. Entries that are
/// not enabled never become the current one.
///
/// What lets others drop on the palette is its drag delegate, with `rowAt`.
class VOXI2_EXPORT VXPaletteView2 : public VXAbstractGroupView2
{
public:
    using ToolkitClass = VXPaletteView2;

    explicit VXPaletteView2(VXObject2* parent = nullptr);
    ~VXPaletteView2() override;

    /// A grid by default.
    void setEntryLayout(PaletteLayout layout);
    PaletteLayout entryLayout() const;

    /// 0 for none; a group, or a row that is not enabled, is ignored. It becomes the current row as
    /// well, so that its group is unfolded.
    void setCurrentEntry(unsigned entry);
    /// Stays when a group becomes the current row; 0 for none.
    unsigned currentEntry() const;

    /// Whether the field is there; by default it is. What is looked for does not change by it.
    void setSearchVisible(bool visible);
    bool isSearchVisible() const;
    void setSearchText(const AnyText& text);
    std::wstring searchText() const;
    /// Whether the palette shows only entries in which the search text occurs, whatever the case,
    /// and their groups, which do not fold meanwhile; by default it does. It fetches what it does
    /// not know and looks at the first 20 000 entries. The program of a larger model switches it
    /// off and has the model show what `searchChanged` asks for.
    void setFiltering(bool filtering);
    bool isFiltering() const;

    /// Whether the user can drag entries to other places, or shift them by Alt and the arrow keys;
    /// off by default.
    void setReorderable(bool reorderable);
    bool isReorderable() const;

    // As if the user had done it: with events.
    void imitateSetCurrentEntry(unsigned entry);
    void imitateSearch(const AnyText& text);
    /// Drags an entry before another one of the group, to its end with 0, if that may be.
    void imitateMoveEntry(unsigned entry, unsigned group, unsigned before = 0);

    // Events

    /// The user made another entry the current one, or it became that because the former one was
    /// removed; not sent for `setCurrentEntry`.
    TROV::Signal<void(const VXPaletteEntryEvent2&)> currentEntryChanged() const
    {
        return m_emitters.currentEntryChanged.signal();
    }
    /// The user changed the search text.
    TROV::Signal<void(const VXPaletteSearchEvent2&)> searchChanged() const
    {
        return m_emitters.searchChanged.signal();
    }
    /// The user draws an entry away: answer with what is dragged, on the toolkit's thread.
    TROV::Signal<void(const VXPaletteDragEvent2&)> entryDragged() const
    {
        return m_emitters.entryDragged.signal();
    }
    /// The user drags an entry over another place: may be refused, on the toolkit's thread.
    TROV::Signal<void(const VXPaletteMovingEvent2&)> entryMoving() const
    {
        return m_emitters.entryMoving.signal();
    }
    /// The user has dropped it there: the model is to move it.
    TROV::Signal<void(const VXPaletteMovedEvent2&)> entryMoved() const
    {
        return m_emitters.entryMoved.signal();
    }

private:
    VXPaletteView2Emitters m_emitters;
};

} // namespace VOXI
