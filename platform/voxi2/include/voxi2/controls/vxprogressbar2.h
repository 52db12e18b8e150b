#pragma once

#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXProgressBar2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(int)> setMinimum{*this};
    TROV::Request<int()> getMinimum{*this};
    TROV::Request<void(int)> setMaximum{*this};
    TROV::Request<int()> getMaximum{*this};
    TROV::Request<void(int)> setValue{*this};
    TROV::Request<int()> getValue{*this};
    TROV::Request<void(bool)> setTextVisible{*this};
    TROV::Request<bool()> isTextVisible{*this};
    TROV::Request<void(std::string)> setCustomText{*this};
    TROV::Request<std::string()> getCustomText{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// Shows how far something has come.
///
/// Where minimum and maximum are both 0 the bar shows that something is going on. A value outside
/// of the range is ignored.
class VOXI2_EXPORT VXProgressBar2 : public VXWidget2
{
public:
    using ToolkitClass = VXProgressBar2;

    explicit VXProgressBar2(VXObject2* parent = nullptr);
    ~VXProgressBar2() override;

    /// 0 at first. A minimum above the maximum takes that along, and the other way round.
    void setMinimum(int minimum);
    int minimum() const;
    /// 100 at first.
    void setMaximum(int maximum);
    int maximum() const;

    /// One below the minimum at first, and when the range has left it behind: nothing has begun.
    void setValue(int value);
    int value() const;

    /// Whether the percentage, or the text in its place, is shown; it is at first.
    void setTextVisible(bool visible);
    bool isTextVisible() const;
    /// Shown in place of the percentage, in the middle of the bar; empty brings that back.
    void setCustomText(const std::string& text);
    std::string customText() const;

private:
    VXProgressBar2Emitters m_emitters;
};

} // namespace VOXI
