#pragma once

#include "voxi2/controls/vxrangeevents2.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXSpinBox2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(int)> setValue{*this};
    TROV::Request<int()> getValue{*this};
    TROV::Request<void(VXPoint<int>)> setRange{*this};
    TROV::Request<VXPoint<int>()> getRange{*this};
    TROV::Request<void(int)> setSingleStep{*this};
    TROV::Request<int()> getSingleStep{*this};
    TROV::Request<void(bool)> setEditable{*this};
    TROV::Request<bool()> isEditable{*this};
    TROV::Request<void(int)> stepBy{*this};
    TROV::Request<void()> spinUp{*this};
    TROV::Request<void()> spinDown{*this};
    TROV::Request<void(int)> setValueAsUser{*this};
    TROV::Request<std::string()> getText{*this};
    TROV::Request<std::wstring()> getTextU{*this};
    TROV::Request<void(bool)> setWrapping{*this};
    TROV::Request<bool()> isWrapping{*this};
    TROV::Request<void(std::string)> setPrefix{*this};
    TROV::Request<void(std::wstring)> setPrefixU{*this};
    TROV::Request<std::string()> getPrefix{*this};
    TROV::Request<std::wstring()> getPrefixU{*this};
    TROV::Request<void(std::string)> setSuffix{*this};
    TROV::Request<void(std::wstring)> setSuffixU{*this};
    TROV::Request<std::string()> getSuffix{*this};
    TROV::Request<std::wstring()> getSuffixU{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXSpinBoxSetValueEvent2&)> valueChanged{*this};
    TROV::Event<void(const VXSpinBoxTextChangeEvent2&)> textChanged{*this};
};

/// A field for a number that the user types or steps through.
///
/// Values beyond the range stand for its nearest end.
class VOXI2_EXPORT VXSpinBox2 : public VXWidget2
{
public:
    using ToolkitClass = VXSpinBox2;

    explicit VXSpinBox2(VXObject2* parent = nullptr);
    ~VXSpinBox2() override;

    /// Takes away what is typed and not committed. 0 at first.
    void setValue(int value);
    int value() const;

    /// x is the least value and y the greatest; one below the least stands for that. 0 and 99 at
    /// first.
    void setRange(const VXPoint<int>& range);
    VXPoint<int> range() const;

    /// How far one step goes, by an arrow key for example; 1 at first.
    void setSingleStep(int step);
    int singleStep() const;

    /// Whether the user may type; steps are possible in any case. Editable at first.
    void setEditable(bool editable);
    bool isEditable() const;

    /// Goes that many steps, as far as the range lets it; down where it is negative. Not reported.
    void stepBy(int steps);

    /// Whether a step beyond one end of the range goes to the other; not at first.
    void setWrapping(bool wrapping);
    bool isWrapping() const;

    /// What stands in the field, typed or not committed: prefix, number and suffix.
    std::string text() const;
    std::wstring textU() const;

    /// Stands before the number, a currency for example; empty at first.
    void setPrefix(const AnyText& prefix);
    std::string prefix() const;
    std::wstring prefixU() const;
    /// Stands behind the number, a unit for example; empty at first.
    void setSuffix(const AnyText& suffix);
    std::string suffix() const;
    std::wstring suffixU() const;

    // As if the user had done it; reported where the value changes
    void imitateSpinUp();
    void imitateSpinDown();
    void imitateValue(int value);

    // Events

    /// The user has another value: by a step, or when what was typed is committed by Enter or by
    /// leaving the field.
    TROV::Signal<void(const VXSpinBoxSetValueEvent2&)> valueChanged() const
    {
        return m_emitters.valueChanged.signal();
    }

    /// The user has edited the text; sent at each key.
    TROV::Signal<void(const VXSpinBoxTextChangeEvent2&)> textChanged() const
    {
        return m_emitters.textChanged.signal();
    }

private:
    VXSpinBox2Emitters m_emitters;
};

} // namespace VOXI
