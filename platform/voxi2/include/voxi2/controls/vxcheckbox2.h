#pragma once

#include "voxi2/controls/vxabstractbutton2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXCheckBox2Emitters : TROV::EmittersTable<VXAbstractButton2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::RequestsEnd requestsEnd{*this};
};

/// A box to tick, with a label. It is checkable from the start and has no third state.
class VOXI2_EXPORT VXCheckBox2 : public VXAbstractButton2
{
public:
    using ToolkitClass = VXCheckBox2;

    explicit VXCheckBox2(VXObject2* parent = nullptr);
    explicit VXCheckBox2(const AnyText& label, VXObject2* parent = nullptr);
    ~VXCheckBox2() override;

private:
    VXCheckBox2Emitters m_emitters;
};

} // namespace VOXI
