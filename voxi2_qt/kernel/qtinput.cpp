#include "voxi2_qt/kernel/qtinput.h"

#include "enumtable.h"

namespace VOXI {

namespace {
constexpr auto Buttons = enumTable<MouseButton, Qt::MouseButton>({
    {MouseButton::None, Qt::NoButton},
    {MouseButton::Left, Qt::LeftButton},
    {MouseButton::Right, Qt::RightButton},
    {MouseButton::Middle, Qt::MiddleButton},
    {MouseButton::Back, Qt::BackButton},
    {MouseButton::Forward, Qt::ForwardButton},
    {MouseButton::Extra3, Qt::ExtraButton3},
    {MouseButton::Extra4, Qt::ExtraButton4},
    {MouseButton::Extra5, Qt::ExtraButton5},
    {MouseButton::Extra6, Qt::ExtraButton6},
});

constexpr auto Modifiers = enumTable<Modifier, Qt::KeyboardModifier>({
    {Modifier::None, Qt::NoModifier},
    {Modifier::Shift, Qt::ShiftModifier},
    {Modifier::Control, Qt::ControlModifier},
    {Modifier::Alt, Qt::AltModifier},
    {Modifier::Meta, Qt::MetaModifier},
    {Modifier::Keypad, Qt::KeypadModifier},
    {Modifier::GroupSwitch, Qt::GroupSwitchModifier},
});

constexpr auto FocusPolicies = enumTable<FocusPolicy, Qt::FocusPolicy>({
    {FocusPolicy::None, Qt::NoFocus},
    {FocusPolicy::Tab, Qt::TabFocus},
    {FocusPolicy::Click, Qt::ClickFocus},
    {FocusPolicy::Strong, Qt::StrongFocus},
    {FocusPolicy::Wheel, Qt::WheelFocus},
});

constexpr auto FocusReasons = enumTable<FocusReason, Qt::FocusReason>({
    {FocusReason::Other, Qt::OtherFocusReason},
    {FocusReason::Mouse, Qt::MouseFocusReason},
    {FocusReason::Tab, Qt::TabFocusReason},
    {FocusReason::Backtab, Qt::BacktabFocusReason},
    {FocusReason::ActiveWindow, Qt::ActiveWindowFocusReason},
    {FocusReason::Popup, Qt::PopupFocusReason},
    {FocusReason::Shortcut, Qt::ShortcutFocusReason},
    {FocusReason::MenuBar, Qt::MenuBarFocusReason},
    {FocusReason::None, Qt::NoFocusReason},
});

constexpr auto DropActions = enumTable<DropAction, Qt::DropAction>({
    {DropAction::Ignore, Qt::IgnoreAction},
    {DropAction::Copy, Qt::CopyAction},
    {DropAction::Move, Qt::MoveAction},
    {DropAction::Link, Qt::LinkAction},
    {DropAction::TargetMove, Qt::TargetMoveAction},
});

constexpr auto GestureTypes = enumTable<GestureType, Qt::GestureType>({
    {GestureType::Custom, Qt::CustomGesture},
    {GestureType::Tap, Qt::TapGesture},
    {GestureType::TapAndHold, Qt::TapAndHoldGesture},
    {GestureType::Pan, Qt::PanGesture},
    {GestureType::Pinch, Qt::PinchGesture},
    {GestureType::Swipe, Qt::SwipeGesture},
});

constexpr auto GestureStates = enumTable<GestureState, Qt::GestureState>({
    {GestureState::None, Qt::NoGesture},
    {GestureState::Started, Qt::GestureStarted},
    {GestureState::Updated, Qt::GestureUpdated},
    {GestureState::Finished, Qt::GestureFinished},
    {GestureState::Canceled, Qt::GestureCanceled},
});

constexpr auto WidgetEvents = enumTable<WidgetEvent, QEvent::Type>({
    {WidgetEvent::Close, QEvent::Close},
    {WidgetEvent::ContextMenu, QEvent::ContextMenu},
    {WidgetEvent::DragEnter, QEvent::DragEnter},
    {WidgetEvent::DragLeave, QEvent::DragLeave},
    {WidgetEvent::DragMove, QEvent::DragMove},
    {WidgetEvent::Drop, QEvent::Drop},
    {WidgetEvent::MouseEnter, QEvent::Enter},
    {WidgetEvent::FocusIn, QEvent::FocusIn},
    {WidgetEvent::FocusOut, QEvent::FocusOut},
    {WidgetEvent::Hide, QEvent::Hide},
    {WidgetEvent::KeyPress, QEvent::KeyPress},
    {WidgetEvent::KeyRelease, QEvent::KeyRelease},
    {WidgetEvent::MouseLeave, QEvent::Leave},
    {WidgetEvent::MouseDoubleClick, QEvent::MouseButtonDblClick},
    {WidgetEvent::MouseMove, QEvent::MouseMove},
    {WidgetEvent::MousePress, QEvent::MouseButtonPress},
    {WidgetEvent::MouseRelease, QEvent::MouseButtonRelease},
    {WidgetEvent::Wheel, QEvent::Wheel},
    {WidgetEvent::Move, QEvent::Move},
    {WidgetEvent::Resize, QEvent::Resize},
    {WidgetEvent::Gesture, QEvent::Gesture},
    {WidgetEvent::TouchBegin, QEvent::TouchBegin},
    {WidgetEvent::TouchUpdate, QEvent::TouchUpdate},
    {WidgetEvent::TouchEnd, QEvent::TouchEnd},
    {WidgetEvent::Show, QEvent::Show},
});

/// The same by Qt's number: every event of every widget is looked up.
constexpr auto WidgetEventsByType = [] {
    std::array<WidgetEvent, 256> byType{};
    byType.fill(WidgetEvent::Other);
    for (const auto& row : WidgetEvents.m_rows)
        byType[static_cast<std::size_t>(row.m_qt)] = row.m_vx;
    return byType;
}();

} // namespace

Qt::MouseButton VX2Qt(MouseButton button) noexcept { return Buttons.toQt(button); }
MouseButton Qt2VX(Qt::MouseButton button) noexcept { return Buttons.toVx(button); }

Qt::MouseButtons VX2Qt(VXFlags<MouseButton> buttons) noexcept
{
    return Buttons.toQtFlags<Qt::MouseButtons>(buttons);
}

VXFlags<MouseButton> Qt2VX(Qt::MouseButtons buttons) noexcept { return Buttons.toVxFlags(buttons); }

Qt::KeyboardModifiers VX2Qt(VXFlags<Modifier> modifiers) noexcept
{
    return Modifiers.toQtFlags<Qt::KeyboardModifiers>(modifiers);
}

VXFlags<Modifier> Qt2VX(Qt::KeyboardModifiers modifiers) noexcept
{
    return Modifiers.toVxFlags(modifiers);
}

Qt::FocusPolicy VX2Qt(FocusPolicy policy) noexcept { return FocusPolicies.toQt(policy); }
FocusPolicy Qt2VX(Qt::FocusPolicy policy) noexcept { return FocusPolicies.toVx(policy); }
Qt::FocusReason VX2Qt(FocusReason reason) noexcept { return FocusReasons.toQt(reason); }
FocusReason Qt2VX(Qt::FocusReason reason) noexcept { return FocusReasons.toVx(reason); }
Qt::DropAction VX2Qt(DropAction action) noexcept { return DropActions.toQt(action); }
DropAction Qt2VX(Qt::DropAction action) noexcept { return DropActions.toVx(action); }

Qt::DropActions VX2Qt(VXFlags<DropAction> actions) noexcept
{
    return DropActions.toQtFlags<Qt::DropActions>(actions);
}

VXFlags<DropAction> Qt2VX(Qt::DropActions actions) noexcept
{
    return DropActions.toVxFlags(actions);
}

Qt::GestureType VX2Qt(GestureType type) noexcept { return GestureTypes.toQt(type); }
GestureType Qt2VX(Qt::GestureType type) noexcept { return GestureTypes.toVx(type); }
Qt::GestureState VX2Qt(GestureState state) noexcept { return GestureStates.toQt(state); }
GestureState Qt2VX(Qt::GestureState state) noexcept { return GestureStates.toVx(state); }
QEvent::Type VX2Qt(WidgetEvent event) noexcept { return WidgetEvents.toQt(event); }
WidgetEvent Qt2VX(QEvent::Type type) noexcept { return WidgetEvents.toVx(type); }

bool isWidgetEvent(QEvent::Type type, WidgetEvent& event) noexcept
{
    const auto number = static_cast<std::size_t>(type);
    event = number < WidgetEventsByType.size() ? WidgetEventsByType[number] : WidgetEvent::Other;
    return event != WidgetEvent::Other;
}

} // namespace VOXI
