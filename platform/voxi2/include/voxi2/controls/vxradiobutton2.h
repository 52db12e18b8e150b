#pragma once

#include "voxi2/controls/vxabstractbutton2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXRadioButton2Emitters : TROV::EmittersTable<VXAbstractButton2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::RequestsEnd requestsEnd{*this};
};

/// A button of a choice: of those with the same parent one at most is checked.
class VOXI2_EXPORT VXRadioButton2 : public VXAbstractButton2
{
public:
    using ToolkitClass = VXRadioButton2;

    explicit VXRadioButton2(VXObject2* parent = nullptr);
    explicit VXRadioButton2(const AnyText& label, VXObject2* parent = nullptr);
    ~VXRadioButton2() override;

private:
    VXRadioButton2Emitters m_emitters;
};

} // namespace VOXI
