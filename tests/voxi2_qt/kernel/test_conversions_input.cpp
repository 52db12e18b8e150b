#include "enumpairs.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QMetaEnum>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>

using namespace VOXI;

TEST(ConvertInput, ButtonsAndModifiers)
{
    expectSameNumbers<Qt::MouseButton>(MouseButton::None, MouseButton::None);
    expectSameBits<Qt::MouseButtons>(MouseButton::Extra6);
    EXPECT_EQ(Qt2VX(Qt::ExtraButton24), MouseButton::None);
    EXPECT_EQ(Qt2VX(Qt::LeftButton | Qt::ExtraButton24), VXFlags(MouseButton::Left));
    expectSameBits<Qt::KeyboardModifiers>(Modifier::GroupSwitch, 25);
}

TEST(ConvertInput, FocusDropAndGestures)
{
    expectPairs<Qt::FocusPolicy, FocusPolicy>({{FocusPolicy::None, 0},
                                               {FocusPolicy::Tab, 1},
                                               {FocusPolicy::Click, 2},
                                               {FocusPolicy::Strong, 0xb},
                                               {FocusPolicy::Wheel, 0xf}});
    expectSameNumbers<Qt::FocusReason>(FocusReason::Mouse, FocusReason::None);
    expectPairs<Qt::DropAction, DropAction>(
        {{DropAction::Ignore, 0}, {DropAction::TargetMove, 0x8002}});
    expectSameBits<Qt::DropActions>(DropAction::Link);
    EXPECT_EQ(VX2Qt(DropAction::Copy | DropAction::TargetMove).toInt(), 0x8003);
    expectSameNumbers<Qt::GestureType>(GestureType::Tap, GestureType::Swipe);
    expectSameNumbers<Qt::GestureType>(GestureType::Custom, GestureType::Custom);
    EXPECT_EQ(Qt2VX(static_cast<Qt::GestureType>(0x101)), GestureType::Custom);
    expectSameNumbers<Qt::GestureState>(GestureState::None, GestureState::Canceled);
}

TEST(ConvertInput, WidgetEvents)
{
    const QEvent::Type expected[] = {QEvent::Close,
                                     QEvent::ContextMenu,
                                     QEvent::DragEnter,
                                     QEvent::DragLeave,
                                     QEvent::DragMove,
                                     QEvent::Drop,
                                     QEvent::Enter,
                                     QEvent::FocusIn,
                                     QEvent::FocusOut,
                                     QEvent::Hide,
                                     QEvent::KeyPress,
                                     QEvent::KeyRelease,
                                     QEvent::Leave,
                                     QEvent::MouseButtonDblClick,
                                     QEvent::MouseMove,
                                     QEvent::MouseButtonPress,
                                     QEvent::MouseButtonRelease,
                                     QEvent::Wheel,
                                     QEvent::Move,
                                     QEvent::Resize,
                                     QEvent::Gesture,
                                     QEvent::TouchBegin,
                                     QEvent::TouchUpdate,
                                     QEvent::TouchEnd,
                                     QEvent::Show};
    static_assert(std::size(expected) == WidgetEventCount - 1);
    for (unsigned i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(VX2Qt(static_cast<WidgetEvent>(i)), expected[i]);
        EXPECT_EQ(Qt2VX(expected[i]), static_cast<WidgetEvent>(i));
    }
    for (int type = -1; type <= QEvent::MaxUser + 1; ++type) {
        WidgetEvent event;
        EXPECT_EQ(isWidgetEvent(static_cast<QEvent::Type>(type), event),
                  std::find(std::begin(expected), std::end(expected), type) != std::end(expected))
            << type;
    }
    EXPECT_EQ(VX2Qt(WidgetEvent::Other), QEvent::Close);
    EXPECT_EQ(VX2Qt(static_cast<WidgetEvent>(26)), QEvent::Close);
    EXPECT_EQ(Qt2VX(QEvent::Paint), WidgetEvent::Close);
}

TEST(ConvertInput, EveryKeyComesBack)
{
    const QMetaEnum keys = QMetaEnum::fromType<Qt::Key>();
    std::set<Key> converted;
    std::set<int> numbers; // some keys of Qt have two names
    for (int i = 0; i < keys.keyCount(); ++i) {
        const auto key = static_cast<Qt::Key>(keys.value(i));
        if (key == Qt::Key_unknown || !numbers.insert(key).second)
            continue;
        EXPECT_NE(Qt2VX(key), Key::Unknown) << keys.key(i);
        EXPECT_EQ(VX2Qt(Qt2VX(key)), key) << keys.key(i);
        EXPECT_TRUE(converted.insert(Qt2VX(key)).second) << keys.key(i);
    }
    EXPECT_GT(numbers.size(), 400u);

    for (const Key key : {Key::Unknown, static_cast<Key>(0x1f), static_cast<Key>(0x1ffffff)})
        EXPECT_EQ(VX2Qt(key), Qt::Key_unknown);
    for (const int code : {0, 0x1f, 0x01fffffe, 0x01ffffff})
        EXPECT_EQ(Qt2VX(static_cast<Qt::Key>(code)), Key::Unknown) << std::hex << code;
}

TEST(ConvertInput, CharactersAreTheirCodes)
{
    EXPECT_EQ(Qt2VX(Qt::Key_Z), Key::Z);
    EXPECT_EQ(Qt2VX(Qt::Key_Adiaeresis), Key::ADiaeresis);
    EXPECT_EQ(VX2Qt(Key::YDiaeresis), Qt::Key_ydiaeresis);
    // Of keyboards that have other letters too; 0x10ffff is the last character there is.
    for (const int code : {0x20, 0x7e, 0xff, 0x0416, 0x1000, 0x3042, 0x1f600, 0x10ffff}) {
        EXPECT_EQ(static_cast<int>(VX2Qt(static_cast<Key>(code))), code);
        EXPECT_EQ(static_cast<int>(Qt2VX(static_cast<Qt::Key>(code))), code);
    }
}

TEST(ConvertInput, KeysHaveTheirMeaning)
{
    const std::pair<Key, const char*> names[] = {
        {Key::A, "Key_A"},
        {Key::Digit7, "Key_7"},
        {Key::Circumflex, "Key_AsciiCircum"},
        {Key::Escape, "Key_Escape"},
        {Key::Backtab, "Key_Backtab"},
        {Key::Return, "Key_Return"},
        {Key::Enter, "Key_Enter"},
        {Key::Delete, "Key_Delete"},
        {Key::Clear, "Key_Clear"},
        {Key::Left, "Key_Left"},
        {Key::Down, "Key_Down"},
        {Key::PageDown, "Key_PageDown"},
        {Key::Meta, "Key_Meta"},
        {Key::AltGr, "Key_AltGr"},
        {Key::SuperRight, "Key_Super_R"},
        {Key::HyperLeft, "Key_Hyper_L"},
        {Key::Menu, "Key_Menu"},
        {Key::Select, "Key_Select"},
        {Key::Zoom, "Key_Zoom"},
        {Key::VolumeUp, "Key_VolumeUp"},
        {Key::MicVolumeDown, "Key_MicVolumeDown"},
        {Key::Back, "Key_Back"},
        {Key::LaunchF, "Key_LaunchF"},
        {Key::WebCamera, "Key_WebCam"},
        {Key::Find, "Key_Find"},
        {Key::Video, "Key_Video"},
        {Key::MonitorBrightnessDown, "Key_MonBrightnessDown"},
        {Key::WirelessLan, "Key_WLAN"},
        {Key::MultiKey, "Key_Multi_key"},
        {Key::EisuToggle, "Key_Eisu_toggle"},
        {Key::HangulRomaja, "Key_Hangul_Romaja"},
        {Key::HangulSpecial, "Key_Hangul_Special"},
        {Key::Exclamation, "Key_Exclam"},
        {Key::Play, "Key_Play"},
        {Key::Exit, "Key_Exit"},
        {Key::Settings, "Key_Settings"},
        {Key::CameraFocus, "Key_CameraFocus"},
        {Key::DeadDiaeresis, "Key_Dead_Diaeresis"},
        {Key::DeadSmallA, "Key_Dead_a"},
        {Key::DeadLongSolidusOverlay, "Key_Dead_Longsolidusoverlay"},
    };
    const QMetaEnum keys = QMetaEnum::fromType<Qt::Key>();
    for (const auto& [key, name] : names)
        EXPECT_EQ(static_cast<int>(VX2Qt(key)), keys.keyToValue(name)) << name;
    for (int n = 1; n <= 35; ++n) {
        const Key key = static_cast<Key>(static_cast<int>(Key::F1) + n - 1);
        const std::string name = "Key_F" + std::to_string(n);
        EXPECT_EQ(static_cast<int>(VX2Qt(key)), keys.keyToValue(name.c_str())) << name;
    }
}
