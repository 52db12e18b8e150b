#pragma once

#include "voxi2/kernel/direction.h"
#include "voxi2/kernel/toolbutton.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <string>

namespace VOXI {

struct VXToolBar2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXAction2*)> addAction{*this};
    TROV::Request<void(VXWidget2*)> addWidget{*this};
    TROV::Request<void()> addSeparator{*this};
    TROV::Request<void(bool)> setFloatable{*this};
    TROV::Request<void(bool)> setMovable{*this};
    TROV::Request<void(std::string)> setLabel{*this};
    TROV::Request<void(Orientation)> setOrientation{*this};
    TROV::Request<void(int)> setMinimumVisibleItems{*this};
    TROV::Request<bool()> isFloatable{*this};
    TROV::Request<bool()> isMovable{*this};
    TROV::Request<Orientation()> getOrientation{*this};
    TROV::Request<void(std::wstring)> setLabelU{*this};
    TROV::Request<void(VXAction2*)> removeAction{*this};
    TROV::Request<void(VXWidget2*)> removeWidget{*this};
    TROV::Request<void(Size<int>)> setIconSize{*this};
    TROV::Request<void(ToolButtonStyle)> setToolButtonStyle{*this};
    TROV::Request<std::wstring()> getLabelU{*this};
    TROV::Request<int()> getMinimumVisibleItems{*this};
    TROV::Request<Size<int>()> getIconSize{*this};
    TROV::Request<ToolButtonStyle()> getToolButtonStyle{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// A row of buttons for actions, and of other widgets, docked in a window: see
/// `VXWindow2::addToolBar`. What does not fit goes into a menu behind an arrow at its end.
///
/// By keys F6 comes to a docked bar, the arrows go from item to item, and Escape goes back; Tab
/// passes by. In a bar elsewhere each button is reached by Tab as well. A button's menu opens by an
/// arrow across the bar, or Alt and the arrow down.
class VOXI2_EXPORT VXToolBar2 : public VXWidget2
{
public:
    using ToolkitClass = VXToolBar2;

    explicit VXToolBar2(VXObject2* parent = nullptr);
    explicit VXToolBar2(const AnyText& label, VXObject2* parent = nullptr);
    ~VXToolBar2() override;

    // Content. Null and dead ones are ignored.

    /// Appends a button for the action, which the bar does not own.
    void addAction(VXAction2* action);
    /// Appends the widget, which leaves the bar or container that it is in; the bar does not own
    /// it. When the bar ends first, the widget is hidden until it is put elsewhere. A widget that
    /// the bar lies in is ignored.
    void addWidget(VXWidget2* widget);
    void addSeparator();
    /// Takes the action's button out of the bar.
    void removeAction(VXAction2* action);
    /// Takes the widget out of the bar and hides it until it is put elsewhere or added again. What
    /// is put into a layout or another parent leaves the bar by itself.
    void removeWidget(VXWidget2* widget);

    /// The first `count` items that are added from now on stay together and are never put behind
    /// the arrow; separators and widgets count as well. Call it once, before anything is added.
    /// Counts below two change nothing.
    void setMinimumVisibleItems(int count);
    /// 1 until another count was set.
    int minimumVisibleItems() const;

    // Docking

    /// Whether the user can drag the bar out of its window; true at first.
    void setFloatable(bool floatable);
    bool isFloatable() const;
    /// Whether the user can move the bar by its handle; true at first.
    void setMovable(bool movable);
    bool isMovable() const;
    /// The bar's name, in the menu that shows and hides bars and over a bar that floats.
    void setLabel(const AnyText& label);
    std::wstring labelU() const;
    /// A docked bar follows the side of the window that it is docked at.
    void setOrientation(Orientation orientation);
    Orientation orientation() const;

    // Looks

    /// Of the buttons, at most `Icon::MaxShownSide`; negative: the style's own.
    void setIconSize(const Size<int>& size);
    Size<int> iconSize() const;
    void setToolButtonStyle(ToolButtonStyle style);
    ToolButtonStyle toolButtonStyle() const;

private:
    VXToolBar2Emitters m_emitters;
};

} // namespace VOXI
