#pragma once

#include "voxi2/controls/comboitem.h"
#include "voxi2/controls/vxcomboboxevents2.h"
#include "voxi2/kernel/combo.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <string>
#include <vector>

namespace VOXI {

class VXAbstractViewModel2;

struct VXComboBox2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(int, std::vector<ComboItem>)> insertItems{*this};
    TROV::Request<void(int)> insertSeparator{*this};
    TROV::Request<void(int, ComboItem)> setItem{*this};
    TROV::Request<ComboItem(int)> getItem{*this};
    TROV::Request<void(int)> removeItem{*this};
    TROV::Request<void()> clear{*this};
    TROV::Request<int()> count{*this};
    TROV::Request<int(unsigned)> findUid{*this};
    TROV::Request<int(std::wstring)> findText{*this};

    TROV::Request<void(int)> setCurrentIndex{*this};
    TROV::Request<int()> getCurrentIndex{*this};
    TROV::Request<void(unsigned)> setCurrentUid{*this};
    TROV::Request<unsigned()> getCurrentUid{*this};
    TROV::Request<void(std::wstring)> setCurrentText{*this};
    TROV::Request<std::wstring()> getCurrentText{*this};
    TROV::Request<void(int)> choose{*this};

    TROV::Request<void(std::wstring)> setPlaceholder{*this};
    TROV::Request<std::wstring()> getPlaceholder{*this};
    TROV::Request<void(bool)> setEditable{*this};
    TROV::Request<bool()> isEditable{*this};
    TROV::Request<void(ComboInsertPolicy)> setInsertPolicy{*this};
    TROV::Request<ComboInsertPolicy()> getInsertPolicy{*this};
    TROV::Request<void(int)> setMaximumVisibleItems{*this};
    TROV::Request<int()> getMaximumVisibleItems{*this};
    TROV::Request<void(int)> setMinimumCharacters{*this};
    TROV::Request<int()> getMinimumCharacters{*this};
    TROV::Request<void(VXAbstractViewModel2*)> setViewModel{*this};
    TROV::Request<VXAbstractViewModel2*()> getViewModel{*this};
    TROV::Request<void(unsigned)> setModelColumn{*this};
    TROV::Request<unsigned()> getModelColumn{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXComboBoxSelectEvent2&)> currentChanged{*this};
    TROV::Event<void(const VXComboBoxTextEvent2&)> textEdited{*this};
};

/// A list that opens below the item that was chosen from it.
///
/// Items are counted from 0, separators as well. An index that there is not is ignored, or answered
/// with an item that says nothing.
class VOXI2_EXPORT VXComboBox2 : public VXWidget2
{
public:
    using ToolkitClass = VXComboBox2;

    explicit VXComboBox2(VXObject2* parent = nullptr);
    ~VXComboBox2() override;

    // Items. The first one that comes becomes the current one.

    void addItem(const AnyText& text, unsigned uid = 0);
    void addItem(const ComboItem& item);
    void addItems(const std::vector<ComboItem>& items);
    /// Before the item of that index; behind all for one that there is not.
    void insertItems(int index, const std::vector<ComboItem>& items);
    void insertSeparator(int index);
    void addSeparator();
    void setItem(int index, const ComboItem& item);
    ComboItem item(int index) const;
    /// When it was the current one, another becomes that.
    void removeItem(int index);
    /// With the text that was typed.
    void clear();
    int count() const;
    /// The first such item; -1 when there is none, for 0 as well.
    int find(unsigned uid) const;
    /// Whose text is that, upper and lower case being different.
    int findText(const AnyText& text) const;

    // The current item

    /// -1 for none.
    void setCurrentIndex(int index);
    int currentIndex() const;
    /// Nothing happens when there is no such item.
    void setCurrentUid(unsigned uid);
    unsigned currentUid() const;
    /// Where the text can be edited, any text; else that of an item.
    void setCurrentText(const AnyText& text);
    std::string currentText() const;
    std::wstring currentTextU() const;

    /// Shown while no item is the current one.
    void setPlaceholder(const AnyText& text);
    std::wstring placeholder() const;
    /// Whether the user may type a text of his own; not at first.
    void setEditable(bool editable);
    bool isEditable() const;
    /// Where a text goes that the user has typed and committed by Return; behind all at first.
    void setInsertPolicy(ComboInsertPolicy policy);
    ComboInsertPolicy insertPolicy() const;
    /// More are scrolled; 10 at first.
    void setMaximumVisibleItems(int count);
    int maximumVisibleItems() const;
    /// At least so wide that this many characters can be read. 0, as at first, for the width of the
    /// widest item there was when it was shown first.
    void setMinimumCharacters(int count);
    int minimumCharacters() const;

    /// Shows the rows of a model that have no parent, in place of items of its own, which end.
    ///
    /// Their numbers are the items'; the current one stays when others come, go or move. What is
    /// not in sight is not asked for: `item` answers and `findText` finds what is known. The
    /// requests that change items do nothing, and the width is for 16 characters unless another one
    /// is set. Null takes the model away, a dead one is ignored; the model is its owner's.
    void setViewModel(VXAbstractViewModel2* model);
    VXAbstractViewModel2* viewModel() const;
    /// The number of the column that is shown; the first one for 0, as at first, and for one that
    /// there is not.
    void setModelColumn(unsigned column);
    unsigned modelColumn() const;

    /// Chooses an item as its user would, if he can: reported.
    void imitateChoice(int index);

    // Events

    /// The user has chosen another item, by the list, a key or the wheel.
    TROV::Signal<void(const VXComboBoxSelectEvent2&)> currentChanged() const
    {
        return m_emitters.currentChanged.signal();
    }
    /// The user has changed the text of an editable one; sent at each key.
    TROV::Signal<void(const VXComboBoxTextEvent2&)> textEdited() const
    {
        return m_emitters.textEdited.signal();
    }

private:
    VXComboBox2Emitters m_emitters;
};

} // namespace VOXI
