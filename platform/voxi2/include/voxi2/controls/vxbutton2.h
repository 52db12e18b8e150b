#pragma once

#include "voxi2/controls/vxabstractbutton2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXButton2Emitters : TROV::EmittersTable<VXAbstractButton2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(bool)> setDefault{*this};
    TROV::Request<void(bool)> setFlat{*this};
    TROV::Request<bool()> isDefault{*this};
    TROV::Request<bool()> isFlat{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// A push button.
class VOXI2_EXPORT VXButton2 : public VXAbstractButton2
{
public:
    using ToolkitClass = VXButton2;

    explicit VXButton2(VXObject2* parent = nullptr);
    explicit VXButton2(const AnyText& label, VXObject2* parent = nullptr);
    ~VXButton2() override;

    /// The default button of a dialog is clicked by the Return key.
    void setDefault(bool isDefault);
    bool isDefault() const;
    /// A flat button has no frame until it is pressed.
    void setFlat(bool flat);
    bool isFlat() const;

private:
    VXButton2Emitters m_emitters;
};

} // namespace VOXI
