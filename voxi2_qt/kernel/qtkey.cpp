#include "voxi2_qt/kernel/qtinput.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace VOXI {

namespace {
struct KeyRow
{
    Key m_vx;
    Qt::Key m_qt;
};

// Every key whose number is not a character code, in the order of Key.
constexpr KeyRow KeyRows[] = {
    {Key::Escape, Qt::Key_Escape},
    {Key::Tab, Qt::Key_Tab},
    {Key::Backtab, Qt::Key_Backtab},
    {Key::Backspace, Qt::Key_Backspace},
    {Key::Return, Qt::Key_Return},
    {Key::Enter, Qt::Key_Enter},
    {Key::Insert, Qt::Key_Insert},
    {Key::Delete, Qt::Key_Delete},
    {Key::Pause, Qt::Key_Pause},
    {Key::Print, Qt::Key_Print},
    {Key::SysReq, Qt::Key_SysReq},
    {Key::Clear, Qt::Key_Clear},
    {Key::Home, Qt::Key_Home},
    {Key::End, Qt::Key_End},
    {Key::Left, Qt::Key_Left},
    {Key::Up, Qt::Key_Up},
    {Key::Right, Qt::Key_Right},
    {Key::Down, Qt::Key_Down},
    {Key::PageUp, Qt::Key_PageUp},
    {Key::PageDown, Qt::Key_PageDown},
    {Key::Shift, Qt::Key_Shift},
    {Key::Control, Qt::Key_Control},
    {Key::Meta, Qt::Key_Meta},
    {Key::Alt, Qt::Key_Alt},
    {Key::AltGr, Qt::Key_AltGr},
    {Key::CapsLock, Qt::Key_CapsLock},
    {Key::NumLock, Qt::Key_NumLock},
    {Key::ScrollLock, Qt::Key_ScrollLock},
    {Key::SuperLeft, Qt::Key_Super_L},
    {Key::SuperRight, Qt::Key_Super_R},
    {Key::Menu, Qt::Key_Menu},
    {Key::HyperLeft, Qt::Key_Hyper_L},
    {Key::HyperRight, Qt::Key_Hyper_R},
    {Key::Help, Qt::Key_Help},
    {Key::Select, Qt::Key_Select},
    {Key::Yes, Qt::Key_Yes},
    {Key::No, Qt::Key_No},
    {Key::Cancel, Qt::Key_Cancel},
    {Key::Execute, Qt::Key_Execute},
    {Key::Printer, Qt::Key_Printer},
    {Key::Sleep, Qt::Key_Sleep},
    {Key::Zoom, Qt::Key_Zoom},
    {Key::F1, Qt::Key_F1},
    {Key::F2, Qt::Key_F2},
    {Key::F3, Qt::Key_F3},
    {Key::F4, Qt::Key_F4},
    {Key::F5, Qt::Key_F5},
    {Key::F6, Qt::Key_F6},
    {Key::F7, Qt::Key_F7},
    {Key::F8, Qt::Key_F8},
    {Key::F9, Qt::Key_F9},
    {Key::F10, Qt::Key_F10},
    {Key::F11, Qt::Key_F11},
    {Key::F12, Qt::Key_F12},
    {Key::F13, Qt::Key_F13},
    {Key::F14, Qt::Key_F14},
    {Key::F15, Qt::Key_F15},
    {Key::F16, Qt::Key_F16},
    {Key::F17, Qt::Key_F17},
    {Key::F18, Qt::Key_F18},
    {Key::F19, Qt::Key_F19},
    {Key::F20, Qt::Key_F20},
    {Key::F21, Qt::Key_F21},
    {Key::F22, Qt::Key_F22},
    {Key::F23, Qt::Key_F23},
    {Key::F24, Qt::Key_F24},
    {Key::F25, Qt::Key_F25},
    {Key::F26, Qt::Key_F26},
    {Key::F27, Qt::Key_F27},
    {Key::F28, Qt::Key_F28},
    {Key::F29, Qt::Key_F29},
    {Key::F30, Qt::Key_F30},
    {Key::F31, Qt::Key_F31},
    {Key::F32, Qt::Key_F32},
    {Key::F33, Qt::Key_F33},
    {Key::F34, Qt::Key_F34},
    {Key::F35, Qt::Key_F35},
    {Key::VolumeDown, Qt::Key_VolumeDown},
    {Key::VolumeMute, Qt::Key_VolumeMute},
    {Key::VolumeUp, Qt::Key_VolumeUp},
    {Key::BassBoost, Qt::Key_BassBoost},
    {Key::BassUp, Qt::Key_BassUp},
    {Key::BassDown, Qt::Key_BassDown},
    {Key::TrebleUp, Qt::Key_TrebleUp},
    {Key::TrebleDown, Qt::Key_TrebleDown},
    {Key::MediaPlay, Qt::Key_MediaPlay},
    {Key::MediaStop, Qt::Key_MediaStop},
    {Key::MediaPrevious, Qt::Key_MediaPrevious},
    {Key::MediaNext, Qt::Key_MediaNext},
    {Key::MediaRecord, Qt::Key_MediaRecord},
    {Key::MediaPause, Qt::Key_MediaPause},
    {Key::MediaTogglePlayPause, Qt::Key_MediaTogglePlayPause},
    {Key::AudioRewind, Qt::Key_AudioRewind},
    {Key::AudioForward, Qt::Key_AudioForward},
    {Key::AudioRepeat, Qt::Key_AudioRepeat},
    {Key::AudioRandomPlay, Qt::Key_AudioRandomPlay},
    {Key::MicMute, Qt::Key_MicMute},
    {Key::MicVolumeUp, Qt::Key_MicVolumeUp},
    {Key::MicVolumeDown, Qt::Key_MicVolumeDown},
    {Key::Back, Qt::Key_Back},
    {Key::Forward, Qt::Key_Forward},
    {Key::Stop, Qt::Key_Stop},
    {Key::Refresh, Qt::Key_Refresh},
    {Key::HomePage, Qt::Key_HomePage},
    {Key::Favorites, Qt::Key_Favorites},
    {Key::Search, Qt::Key_Search},
    {Key::Standby, Qt::Key_Standby},
    {Key::OpenUrl, Qt::Key_OpenUrl},
    {Key::LaunchMail, Qt::Key_LaunchMail},
    {Key::LaunchMedia, Qt::Key_LaunchMedia},
    {Key::Launch0, Qt::Key_Launch0},
    {Key::Launch1, Qt::Key_Launch1},
    {Key::Launch2, Qt::Key_Launch2},
    {Key::Launch3, Qt::Key_Launch3},
    {Key::Launch4, Qt::Key_Launch4},
    {Key::Launch5, Qt::Key_Launch5},
    {Key::Launch6, Qt::Key_Launch6},
    {Key::Launch7, Qt::Key_Launch7},
    {Key::Launch8, Qt::Key_Launch8},
    {Key::Launch9, Qt::Key_Launch9},
    {Key::LaunchA, Qt::Key_LaunchA},
    {Key::LaunchB, Qt::Key_LaunchB},
    {Key::LaunchC, Qt::Key_LaunchC},
    {Key::LaunchD, Qt::Key_LaunchD},
    {Key::LaunchE, Qt::Key_LaunchE},
    {Key::LaunchF, Qt::Key_LaunchF},
    {Key::Calculator, Qt::Key_Calculator},
    {Key::Calendar, Qt::Key_Calendar},
    {Key::Documents, Qt::Key_Documents},
    {Key::Explorer, Qt::Key_Explorer},
    {Key::News, Qt::Key_News},
    {Key::Messenger, Qt::Key_Messenger},
    {Key::Mail, Qt::Key_MailForward},
    {Key::Music, Qt::Key_Music},
    {Key::Finance, Qt::Key_Finance},
    {Key::Game, Qt::Key_Game},
    {Key::WebCamera, Qt::Key_WebCam},
    {Key::Copy, Qt::Key_Copy},
    {Key::Cut, Qt::Key_Cut},
    {Key::Paste, Qt::Key_Paste},
    {Key::Undo, Qt::Key_Undo},
    {Key::Redo, Qt::Key_Redo},
    {Key::Find, Qt::Key_Find},
    {Key::Open, Qt::Key_Open},
    {Key::Close, Qt::Key_Close},
    {Key::Save, Qt::Key_Save},
    {Key::Reload, Qt::Key_Reload},
    {Key::Reply, Qt::Key_Reply},
    {Key::Send, Qt::Key_Send},
    {Key::Spell, Qt::Key_Spell},
    {Key::Phone, Qt::Key_Phone},
    {Key::Pictures, Qt::Key_Pictures},
    {Key::Video, Qt::Key_Video},
    {Key::MonitorBrightnessUp, Qt::Key_MonBrightnessUp},
    {Key::MonitorBrightnessDown, Qt::Key_MonBrightnessDown},
    {Key::KeyboardLightOnOff, Qt::Key_KeyboardLightOnOff},
    {Key::KeyboardBrightnessUp, Qt::Key_KeyboardBrightnessUp},
    {Key::KeyboardBrightnessDown, Qt::Key_KeyboardBrightnessDown},
    {Key::PowerOff, Qt::Key_PowerOff},
    {Key::WakeUp, Qt::Key_WakeUp},
    {Key::Eject, Qt::Key_Eject},
    {Key::ScreenSaver, Qt::Key_ScreenSaver},
    {Key::WWW, Qt::Key_WWW},
    {Key::Memo, Qt::Key_Memo},
    {Key::LightBulb, Qt::Key_LightBulb},
    {Key::Suspend, Qt::Key_Suspend},
    {Key::Hibernate, Qt::Key_Hibernate},
    {Key::TouchpadToggle, Qt::Key_TouchpadToggle},
    {Key::TouchpadOn, Qt::Key_TouchpadOn},
    {Key::TouchpadOff, Qt::Key_TouchpadOff},
    {Key::Bluetooth, Qt::Key_Bluetooth},
    {Key::WirelessLan, Qt::Key_WLAN},
    {Key::Battery, Qt::Key_Battery},
    {Key::MultiKey, Qt::Key_Multi_key},
    {Key::Codeinput, Qt::Key_Codeinput},
    {Key::SingleCandidate, Qt::Key_SingleCandidate},
    {Key::MultipleCandidate, Qt::Key_MultipleCandidate},
    {Key::PreviousCandidate, Qt::Key_PreviousCandidate},
    {Key::ModeSwitch, Qt::Key_Mode_switch},
    {Key::Kanji, Qt::Key_Kanji},
    {Key::Muhenkan, Qt::Key_Muhenkan},
    {Key::Henkan, Qt::Key_Henkan},
    {Key::Romaji, Qt::Key_Romaji},
    {Key::Hiragana, Qt::Key_Hiragana},
    {Key::Katakana, Qt::Key_Katakana},
    {Key::HiraganaKatakana, Qt::Key_Hiragana_Katakana},
    {Key::Zenkaku, Qt::Key_Zenkaku},
    {Key::Hankaku, Qt::Key_Hankaku},
    {Key::ZenkakuHankaku, Qt::Key_Zenkaku_Hankaku},
    {Key::Touroku, Qt::Key_Touroku},
    {Key::Massyo, Qt::Key_Massyo},
    {Key::KanaLock, Qt::Key_Kana_Lock},
    {Key::KanaShift, Qt::Key_Kana_Shift},
    {Key::EisuShift, Qt::Key_Eisu_Shift},
    {Key::EisuToggle, Qt::Key_Eisu_toggle},
    {Key::Hangul, Qt::Key_Hangul},
    {Key::HangulStart, Qt::Key_Hangul_Start},
    {Key::HangulEnd, Qt::Key_Hangul_End},
    {Key::HangulHanja, Qt::Key_Hangul_Hanja},
    {Key::HangulJamo, Qt::Key_Hangul_Jamo},
    {Key::HangulRomaja, Qt::Key_Hangul_Romaja},
};

constexpr auto sortedByQt()
{
    std::array<KeyRow, std::size(KeyRows)> rows{};
    std::copy(std::begin(KeyRows), std::end(KeyRows), rows.begin());
    std::sort(rows.begin(), rows.end(),
              [](const KeyRow& a, const KeyRow& b) { return a.m_qt < b.m_qt; });
    return rows;
}

constexpr auto KeyRowsByQt = sortedByQt();

static_assert(std::is_sorted(std::begin(KeyRows), std::end(KeyRows),
                             [](const KeyRow& a, const KeyRow& b) { return a.m_vx < b.m_vx; }));
static_assert(std::adjacent_find(KeyRowsByQt.begin(), KeyRowsByQt.end(),
                                 [](const KeyRow& a, const KeyRow& b) { return a.m_qt == b.m_qt; })
              == KeyRowsByQt.end());

/// Both sides number these by their ASCII codes; letters have the codes of the capitals.
constexpr bool isCharacterCode(int code) noexcept
{
    return (code >= 0x20 && code <= 0x60) || (code >= 0x7b && code <= 0x7e);
}
} // namespace

Qt::Key VX2Qt(Key key) noexcept
{
    const int code = static_cast<int>(key);
    if (isCharacterCode(code))
        return static_cast<Qt::Key>(code);
    const KeyRow* row = std::lower_bound(std::begin(KeyRows), std::end(KeyRows), key,
                                         [](const KeyRow& r, Key k) { return r.m_vx < k; });
    return row != std::end(KeyRows) && row->m_vx == key ? row->m_qt : Qt::Key_unknown;
}

Key Qt2VX(Qt::Key key) noexcept
{
    if (isCharacterCode(key))
        return static_cast<Key>(static_cast<int>(key));
    const auto row = std::lower_bound(KeyRowsByQt.begin(), KeyRowsByQt.end(), key,
                                      [](const KeyRow& r, Qt::Key k) { return r.m_qt < k; });
    return row != KeyRowsByQt.end() && row->m_qt == key ? row->m_vx : Key::Unknown;
}

} // namespace VOXI
