#pragma once

#include "voxi2/controls/vxlistboxevents2.h"
#include "voxi2/kernel/itemview.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/icon.h"
#include "voxi_util/vxstringlist.h"

namespace VOXI {

struct VXListBox2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXStringList, Icon)> addItems{*this};
    TROV::Request<void(std::vector<std::wstring>, Icon)> addItemsU{*this};
    TROV::Request<void(int, VXStringList, Icon)> insertItems{*this};
    TROV::Request<void(int, std::vector<std::wstring>, Icon)> insertItemsU{*this};
    TROV::Request<void(int)> removeItems{*this};
    TROV::Request<void(int, bool)> setSelection{*this};
    TROV::Request<void()> clearSelection{*this};
    TROV::Request<void(int)> setCurrentRow{*this};
    TROV::Request<void(SelectionMode)> setSelectionMode{*this};
    TROV::Request<VXStringList()> getItems{*this};
    TROV::Request<std::vector<std::wstring>()> getItemsU{*this};
    TROV::Request<std::string(int)> getItemAt{*this};
    TROV::Request<std::wstring(int)> getItemAtU{*this};
    TROV::Request<std::vector<int>()> getSelections{*this};
    TROV::Request<SelectionMode()> getSelectionMode{*this};
    TROV::Request<int()> getCurrentRow{*this};
    TROV::Request<void(int)> select{*this};
    TROV::Request<void(std::string)> selectByString{*this};
    TROV::Request<int()> count{*this};
    TROV::Request<void(int)> eraseItem{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXListBoxSelectEvent2&)> selectionChanged{*this};
    TROV::Event<void(const VXListBoxClickEvent2&)> doubleClicked{*this};
};

/// A list of texts to choose from.
///
/// Rows count from 0; one that is not there is ignored. "&nbsp;" in a text is shown as a blank, and
/// reads back as one; nothing else is decoded.
class VOXI2_EXPORT VXListBox2 : public VXWidget2
{
public:
    using ToolkitClass = VXListBox2;

    explicit VXListBox2(VXObject2* parent = nullptr);
    ~VXListBox2() override;

    /// Appends items in the order of the list. The icon is not shown.
    void addItems(const VXStringList& items, const Icon& icon = Icon());
    void addItems(const std::vector<std::wstring>& items, const Icon& icon = Icon());
    /// Inserts items in the order of the list before the one of that row; beyond the end, appends,
    /// and below 0 they are the first. The icon is not shown.
    void insertItems(int row, const VXStringList& items, const Icon& icon = Icon());
    void insertItems(int row, const std::vector<std::wstring>& items, const Icon& icon = Icon());
    /// Removes all items with -1. With the row of an item, that stays; only a widget that the host
    /// shows in its place goes.
    void removeItems(int row = -1);
    /// Removes one item.
    void eraseItem(int row);

    int count() const;
    VXStringList items() const;
    std::vector<std::wstring> itemsU() const;
    /// Empty for a row that is not there.
    std::string itemAt(int row) const;
    std::wstring itemAtU(int row) const;

    /// Single at first.
    void setSelectionMode(SelectionMode mode);
    SelectionMode selectionMode() const;
    /// Selects an item, as far as the mode lets it, or takes it out of the selection.
    void setSelection(int row, bool selected);
    void clearSelection();
    /// The selected rows, in no certain order.
    std::vector<int> selections() const;

    /// The item with the keyboard, which is selected, too, unless the mode says otherwise; -1 for
    /// none.
    void setCurrentRow(int row);
    int currentRow() const;

    // As if the user had done it

    void imitateSelect(int row);
    /// Selects all items of exactly that text; of them the last in single mode.
    void imitateSelectByString(const std::string& text);

    // Events

    /// The user has selected other items.
    TROV::Signal<void(const VXListBoxSelectEvent2&)> selectionChanged() const
    {
        return m_emitters.selectionChanged.signal();
    }
    TROV::Signal<void(const VXListBoxClickEvent2&)> doubleClicked() const
    {
        return m_emitters.doubleClicked.signal();
    }

private:
    VXListBox2Emitters m_emitters;
};

} // namespace VOXI
