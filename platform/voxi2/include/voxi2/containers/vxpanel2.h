#pragma once

#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXPanel2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::RequestsEnd requestsEnd{*this};
};

/// A plain area that holds other widgets. Once it is given a colour it paints its background.
class VOXI2_EXPORT VXPanel2 : public VXWidget2
{
public:
    using ToolkitClass = VXPanel2;

    explicit VXPanel2(VXObject2* parent = nullptr);
    ~VXPanel2() override;

private:
    VXPanel2Emitters m_emitters;
};

} // namespace VOXI
