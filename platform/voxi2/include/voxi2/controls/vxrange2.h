#pragma once

#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXRange2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(int)> setValue{*this};
    TROV::Request<int()> getValue{*this};
    TROV::Request<void(VXPoint<int>)> setRange{*this};
    TROV::Request<VXPoint<int>()> getRange{*this};
    TROV::Request<void(int)> setSingleStep{*this};
    TROV::Request<int()> getSingleStep{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// What the user chooses a number of a range with.
///
/// Values beyond the range stand for its nearest end.
class VOXI2_EXPORT VXRange2 : public VXWidget2
{
public:
    ~VXRange2() override;

    /// 0 at first.
    void setValue(int value);
    int value() const;

    /// x is the least value and y the greatest; one below the least stands for that. 0 and 99 at
    /// first.
    void setRange(const VXPoint<int>& range);
    VXPoint<int> range() const;

    /// How far one step goes, by an arrow key for example; 1 at first.
    void setSingleStep(int step);
    int singleStep() const;

protected:
    explicit VXRange2(VXObject2* parent);

    VXRange2Emitters m_emitters;
};

} // namespace VOXI
