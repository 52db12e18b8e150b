#pragma once

#include "voxi2/controls/vxrange2.h"
#include "voxi2/controls/vxrangeevents2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXSpinBox2Emitters : TROV::EmittersTable<VXRange2Emitters>
{
    using EmittersTable::EmittersTable;

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

/// A field for a number that the user types or steps through. Setting the value takes away what is
/// typed and not committed.
class VOXI2_EXPORT VXSpinBox2 : public VXRange2
{
public:
    using ToolkitClass = VXSpinBox2;

    explicit VXSpinBox2(VXObject2* parent = nullptr);
    ~VXSpinBox2() override;

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
