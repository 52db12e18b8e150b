#pragma once

#include "voxi2/controls/vxmimicevents2.h"
#include "voxi2/kernel/vxobject2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/pixmap.h"

namespace VOXI {

class VXWidget2;

struct VXMimicSource2Emitters : TROV::EmittersTable<VXObject2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXWidget2*)> setWidget{*this};
    TROV::Request<void(unsigned long long)> setNativeWindow{*this};
    TROV::Request<void(int)> setMaximumRate{*this};
    TROV::Request<void()> refresh{*this};
    TROV::Request<VXWidget2*()> getWidget{*this};
    TROV::Request<unsigned long long()> getNativeWindow{*this};
    TROV::Request<int()> getMaximumRate{*this};
    TROV::Request<Size<int>()> getSize{*this};
    TROV::Request<Pixmap()> getPicture{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXMimicEvent2&)> refreshed{*this};
    TROV::Event<void(const VXMimicEvent2&)> ended{*this};
};

/// Pictures of a widget, or of a window of another program, for any number of `VXMimicView2`.
///
/// A new picture is taken soon after the widget, or what is in it, has painted, but not more often
/// than `maximumRate` says, and only while a view shows it or somebody listens to `refreshed`.
/// While the widget is hidden, the last picture stays. It may be resized, moved to another window
/// and destroyed at any time.
class VOXI2_EXPORT VXMimicSource2 : public VXObject2
{
public:
    using ToolkitClass = VXMimicSource2;

    static constexpr int HighestRate = 1000;

    /// The parent owns it; what is pictured is set apart.
    explicit VXMimicSource2(VXObject2* parent = nullptr);
    ~VXMimicSource2() override;

    /// What is pictured, in the place of what was; null for nothing, a dead widget is ignored.
    void setWidget(VXWidget2* widget);
    /// Null when it is none, or the widget is dead.
    VXWidget2* widget() const;
    /// The same with a window by its native id, as `VXWidget2::winId` gives one; 0 for nothing. It
    /// is looked at as often as `maximumRate` says while a view shows it. Platforms that do not let
    /// programs see each other show nothing; on X11 what lies over the window is in the picture.
    void setNativeWindow(unsigned long long id);
    /// 0 when it is none, or has gone.
    unsigned long long nativeWindow() const;

    /// How many pictures are taken in a second at most, up to `HighestRate`; 30 at first. With 0,
    /// or less, only `refresh` takes one.
    void setMaximumRate(int perSecond);
    int maximumRate() const;
    /// Takes a picture now, whether anything has painted or not; unless the widget is hidden.
    void refresh();

    /// Of the last picture, in units of the screen; 0 x 0 while there is none.
    Size<int> size() const;
    /// The last picture, with all its pixels; null while there is none.
    Pixmap picture() const;

    /// There is another picture than before. Not sent for what is set here, nor where a new one
    /// looks the same.
    TROV::Signal<void(const VXMimicEvent2&)> refreshed() const;
    /// A native window cannot be seen any more.
    TROV::Signal<void(const VXMimicEvent2&)> ended() const;

private:
    VXMimicSource2Emitters m_emitters;
};

} // namespace VOXI
