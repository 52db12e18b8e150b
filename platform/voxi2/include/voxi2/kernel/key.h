#pragma once

namespace VOXI {

/// Keys by what is engraved on them. A key of the keypad is the key of the same meaning, with
/// `Modifier::Keypad`.
///
/// The number of a key that types a character is that character in Unicode, of letters the capital;
/// characters that have no name here are passed as their numbers. Other keys have numbers beyond
/// Unicode.
// clang-format off
enum class Key : int {
    Unknown = 0,

    // Space, digits, letters
    Space = 0x20,
    Digit0 = 0x30, Digit1, Digit2, Digit3, Digit4, Digit5, Digit6, Digit7, Digit8, Digit9,
    A = 0x41, B, C, D, E, F, G, H, I, J, K, L, M, N, O, P, Q, R, S, T, U, V, W, X, Y, Z,

    // Punctuation
    Exclamation = 0x21, QuoteDouble, NumberSign, Dollar, Percent, Ampersand, Apostrophe, ParenLeft,
    ParenRight, Asterisk, Plus, Comma, Minus, Period, Slash, Colon = 0x3a, Semicolon, Less, Equal,
    Greater, Question, At, BracketLeft = 0x5b, Backslash, BracketRight, Circumflex, Underscore,
    QuoteLeft, BraceLeft = 0x7b, Bar, BraceRight, Tilde,

    // The other characters of Latin-1
    NoBreakSpace = 0xa0, ExclamationDown, Cent, Sterling, Currency, Yen, BrokenBar, Section,
    Diaeresis, Copyright, OrdinalFeminine, GuillemotLeft, NotSign, Hyphen, Registered, Macron,
    Degree, PlusMinus, TwoSuperior, ThreeSuperior, Acute, Mu, Paragraph, PeriodCentered, Cedilla,
    OneSuperior, OrdinalMasculine, GuillemotRight, OneQuarter, OneHalf, ThreeQuarters, QuestionDown,
    AGrave, AAcute, ACircumflex, ATilde, ADiaeresis, ARing, AE, CCedilla, EGrave, EAcute,
    ECircumflex, EDiaeresis, IGrave, IAcute, ICircumflex, IDiaeresis, Eth, NTilde, OGrave, OAcute,
    OCircumflex, OTilde, ODiaeresis, Multiply, OOblique, UGrave, UAcute, UCircumflex, UDiaeresis,
    YAcute, Thorn, SharpS, Division = 0xf7, YDiaeresis = 0xff,

    // Editing
    Escape = 0x110000, Tab, Backtab, Backspace, Return, Enter, Insert, Delete, Pause, Print, SysReq,
    Clear,

    // Navigation
    Home = 0x110020, End, Left, Up, Right, Down, PageUp, PageDown,

    // Modifiers and locks
    Shift = 0x110040, Control, Meta, Alt, AltGr, CapsLock, NumLock, ScrollLock, SuperLeft,
    SuperRight, Menu, HyperLeft, HyperRight, Help, Select, Yes, No, Cancel, Execute, Printer, Sleep,
    Zoom,

    // Function keys
    F1 = 0x110100, F2, F3, F4, F5, F6, F7, F8, F9, F10, F11, F12, F13, F14, F15, F16, F17, F18, F19,
    F20, F21, F22, F23, F24, F25, F26, F27, F28, F29, F30, F31, F32, F33, F34, F35,

    // Sound and media
    VolumeDown = 0x110200, VolumeMute, VolumeUp, BassBoost, BassUp, BassDown, TrebleUp, TrebleDown,
    MediaPlay, MediaStop, MediaPrevious, MediaNext, MediaRecord, MediaPause, MediaTogglePlayPause,
    AudioRewind, AudioForward, AudioRepeat, AudioRandomPlay, MicMute, MicVolumeUp, MicVolumeDown,
    CD, Subtitle, AudioCycleTrack, Time, Red, Green, Yellow, Blue, ChannelUp, ChannelDown, Guide,
    Info, MediaLast, Play,

    // Browser and applications
    Back = 0x110240, Forward, Stop, Refresh, HomePage, Favorites, Search, Standby, OpenUrl,
    LaunchMail, LaunchMedia, Launch0, Launch1, Launch2, Launch3, Launch4, Launch5, Launch6, Launch7,
    Launch8, Launch9, LaunchA, LaunchB, LaunchC, LaunchD, LaunchE, LaunchF, Calculator, Calendar,
    Documents, Explorer, News, Messenger, Mail, Music, Finance, Game, WebCamera, Copy, Cut, Paste,
    Undo, Redo, Find, Open, Close, Save, Reload, Reply, Send, Spell, Phone, Pictures, Video, Shop,
    History, AddFavorite, HotLinks, Community, BackForward, ApplicationLeft, ApplicationRight, Book,
    ToDoList, DOS, Excel, Go, ITouch, Market, Meeting, MySites, OfficeHome, Option, SplitScreen,
    Support, TaskPane, Terminal, Tools, Travel, Word, Transfer, ZoomIn, ZoomOut, Away, View,
    TopMenu, LaunchG, LaunchH, New, Exit,

    // The machine
    MonitorBrightnessUp = 0x1102c0, MonitorBrightnessDown, KeyboardLightOnOff, KeyboardBrightnessUp,
    KeyboardBrightnessDown, PowerOff, WakeUp, Eject, ScreenSaver, WWW, Memo, LightBulb, Suspend,
    Hibernate, TouchpadToggle, TouchpadOn, TouchpadOff, Bluetooth, WirelessLan, Battery,
    BrightnessAdjust, ClearGrab, Display, LogOff, MenuKB, MenuPB, RotateWindows, RotationPB,
    RotationKB, UWB, PowerDown, ContrastAdjust, Settings,

    // Text input
    MultiKey = 0x110300, Codeinput, SingleCandidate, MultipleCandidate, PreviousCandidate,
    ModeSwitch, Kanji, Muhenkan, Henkan, Romaji, Hiragana, Katakana, HiraganaKatakana, Zenkaku,
    Hankaku, ZenkakuHankaku, Touroku, Massyo, KanaLock, KanaShift, EisuShift, EisuToggle, Hangul,
    HangulStart, HangulEnd, HangulHanja, HangulJamo, HangulRomaja, DirectionLeft, DirectionRight,
    HangulJeonja, HangulBanja, HangulPreHanja, HangulPostHanja, HangulSpecial,

    // Telephones and cameras
    Context1 = 0x110380, Context2, Context3, Context4, Call, HangUp, Flip, ToggleCallHangup,
    VoiceDial, LastNumberRedial, Camera, CameraFocus,

    // Accents that wait for their letter
    DeadGrave = 0x1103c0, DeadAcute, DeadCircumflex, DeadTilde, DeadMacron, DeadBreve, DeadAboveDot,
    DeadDiaeresis, DeadAboveRing, DeadDoubleAcute, DeadCaron, DeadCedilla, DeadOgonek, DeadIota,
    DeadVoicedSound, DeadSemivoicedSound, DeadBelowDot, DeadHook, DeadHorn, DeadStroke,
    DeadAboveComma, DeadAboveReversedComma, DeadDoubleGrave, DeadBelowRing, DeadBelowMacron,
    DeadBelowCircumflex, DeadBelowTilde, DeadBelowBreve, DeadBelowDiaeresis, DeadInvertedBreve,
    DeadBelowComma, DeadCurrency, DeadSmallA, DeadCapitalA, DeadSmallE, DeadCapitalE, DeadSmallI,
    DeadCapitalI, DeadSmallO, DeadCapitalO, DeadSmallU, DeadCapitalU, DeadSmallSchwa,
    DeadCapitalSchwa, DeadGreek, DeadLowLine, DeadAboveVerticalLine, DeadBelowVerticalLine,
    DeadLongSolidusOverlay
};
// clang-format on

} // namespace VOXI
