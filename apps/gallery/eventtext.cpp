#include "eventtext.h"

#include <cstdio>
#include <iterator>
#include <string_view>
#include <utility>

namespace gallery {

using namespace VOXI;

namespace {

constexpr const char* s_names[] = {
    "close",       "context menu", "drag enter", "drag leave",  "drag move",     "drop",
    "mouse enter", "focus in",     "focus out",  "hide",        "key press",     "key release",
    "mouse leave", "double click", "mouse move", "mouse press", "mouse release", "wheel",
    "move",        "resize",       "gesture",    "touch begin", "touch update",  "touch end",
    "show",        "drag detect",
};
static_assert(std::size(s_names) == WidgetEventCount);

/// The names of the set flags.
template <class Enum>
struct FlagName
{
    Enum m_flag;
    const char* m_name;
};

template <class Enum, std::size_t N>
std::string names(VXFlags<Enum> flags, const FlagName<Enum> (&table)[N])
{
    std::string result;
    for (const FlagName<Enum>& each : table) {
        if (flags.testFlag(each.m_flag))
            result += (result.empty() ? "" : " | ") + std::string(each.m_name);
    }
    return result.empty() ? "none" : result;
}

std::string text(VXFlags<MouseButton> buttons)
{
    static constexpr FlagName<MouseButton> table[] = {
        {MouseButton::Left, "left"},       {MouseButton::Right, "right"},
        {MouseButton::Middle, "middle"},   {MouseButton::Back, "back"},
        {MouseButton::Forward, "forward"}, {MouseButton::Extra3, "extra 3"},
        {MouseButton::Extra4, "extra 4"},  {MouseButton::Extra5, "extra 5"},
        {MouseButton::Extra6, "extra 6"},
    };
    return names(buttons, table);
}

/// Empty while no modifier is held: the usual case.
std::string withModifiers(VXFlags<Modifier> modifiers)
{
    static constexpr FlagName<Modifier> table[] = {
        {Modifier::Shift, "shift"},   {Modifier::Control, "control"},
        {Modifier::Alt, "alt"},       {Modifier::Meta, "meta"},
        {Modifier::Keypad, "keypad"}, {Modifier::GroupSwitch, "group switch"},
    };
    return modifiers ? ", with " + names(modifiers, table) : std::string();
}

std::string number(double value)
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.4g", value);
    return buffer;
}

std::string text(VXPoint<int> point)
{
    return "(" + std::to_string(point.x) + ", " + std::to_string(point.y) + ")";
}

std::string text(VXPoint<double> point)
{
    return "(" + number(point.x) + ", " + number(point.y) + ")";
}

std::string text(Size<int> size)
{
    return std::to_string(size.width) + " x " + std::to_string(size.height);
}

std::string places(VXPoint<int> position, VXPoint<int> globalPosition)
{
    return " at " + text(position) + ", on the screen " + text(globalPosition);
}

/// The character of a key that types one, else the key's number.
std::string text(Key key)
{
    static constexpr std::pair<Key, const char*> table[] = {
        {Key::Unknown, "unknown"}, {Key::Space, "Space"},         {Key::Escape, "Escape"},
        {Key::Tab, "Tab"},         {Key::Backtab, "Backtab"},     {Key::Backspace, "Backspace"},
        {Key::Return, "Return"},   {Key::Enter, "Enter"},         {Key::Insert, "Insert"},
        {Key::Delete, "Delete"},   {Key::Home, "Home"},           {Key::End, "End"},
        {Key::Left, "Left"},       {Key::Right, "Right"},         {Key::Up, "Up"},
        {Key::Down, "Down"},       {Key::PageUp, "PageUp"},       {Key::PageDown, "PageDown"},
        {Key::Shift, "Shift"},     {Key::Control, "Control"},     {Key::Alt, "Alt"},
        {Key::AltGr, "AltGr"},     {Key::Meta, "Meta"},           {Key::CapsLock, "CapsLock"},
        {Key::Menu, "Menu"},       {Key::SuperLeft, "SuperLeft"}, {Key::SuperRight, "SuperRight"},
    };
    for (const auto& [known, name] : table) {
        if (key == known)
            return name;
    }
    const int value = static_cast<int>(key);
    if (key >= Key::F1 && key <= Key::F35)
        return "F" + std::to_string(value - static_cast<int>(Key::F1) + 1);
    if (value > 0x20 && value < 0x7f)
        return std::string(1, static_cast<char>(value));
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "0x%x", static_cast<unsigned>(value));
    return buffer;
}

/// ASCII as it is, other characters as their numbers.
std::string quoted(const std::wstring& characters)
{
    std::string result = "\"";
    for (const wchar_t each : characters) {
        if (each >= 0x20 && each < 0x7f) {
            result += static_cast<char>(each);
        } else {
            char buffer[16];
            std::snprintf(buffer, sizeof buffer, "\\u%04x", static_cast<unsigned>(each));
            result += buffer;
        }
    }
    return result + "\"";
}

template <class Enum, std::size_t N>
const char* nameOf(Enum value, const char* const (&table)[N], const char* other)
{
    const auto index = static_cast<std::size_t>(value);
    return index < N ? table[index] : other;
}

const char* text(GestureType type)
{
    static constexpr const char* table[] = {"", "tap", "tap and hold", "pan", "pinch", "swipe"};
    return nameOf(type, table, "custom");
}

} // namespace

const char* eventName(WidgetEvent event) { return s_names[static_cast<unsigned>(event)]; }

std::string text(VXFlags<DropAction> actions)
{
    static constexpr FlagName<DropAction> table[] = {
        {DropAction::Copy, "copy"},
        {DropAction::Move, "move"},
        {DropAction::Link, "link"},
        {DropAction::TargetMove, "target move"},
    };
    return names(actions, table);
}

std::string describe(const VXWidgetEvent2&) { return {}; }

std::string describe(const VXMouseEvent2& event)
{
    std::string result = places(event.position(), event.globalPosition());
    if (event.button() != MouseButton::None)
        result += ", " + text(VXFlags<MouseButton>(event.button()));
    if (event.type() == WidgetEvent::Wheel)
        result += ", turned by " + text(event.wheelDelta());
    return result + ", down: " + text(event.buttons()) + withModifiers(event.modifiers());
}

std::string describe(const VXKeyEvent2& event)
{
    std::string result = " " + text(event.key()) + withModifiers(event.modifiers());
    if (!event.text().empty())
        result += ", types " + quoted(event.text());
    if (event.isAutoRepeat())
        result += ", repeated";
    if (event.count() != 1)
        result += ", " + std::to_string(event.count()) + " times";
    return result;
}

std::string describe(const VXFocusEvent2& event)
{
    static constexpr const char* table[] = {"mouse",         "tab",   "backtab",
                                            "active window", "popup", "shortcut",
                                            "menu bar",      "other", "none"};
    return std::string(", reason: ") + nameOf(event.reason(), table, "other");
}

std::string describe(const VXMoveEvent2& event)
{
    return " from " + text(event.oldPosition()) + " to " + text(event.position());
}

std::string describe(const VXResizeEvent2& event)
{
    return " from " + text(event.oldSize()) + " to " + text(event.size());
}

std::string describe(const VXContextMenuEvent2& event)
{
    static constexpr const char* table[] = {"mouse", "keyboard", "other"};
    return places(event.position(), event.globalPosition())
           + ", reason: " + nameOf(event.reason(), table, "other");
}

std::string describe(const VXCloseEvent2& event) { return event.isRefused() ? ", refused" : ""; }

std::string describe(const VXDragEvent2& event)
{
    if (event.type() == WidgetEvent::DragLeave)
        return {};
    constexpr std::size_t shown = 3;
    std::string formats;
    const std::vector<StringID> all = event.formats();
    for (std::size_t i = 0; i < all.size() && i < shown; ++i)
        formats += (i ? ", " : "") + all[i].getString();
    if (all.size() > shown)
        formats += " and " + std::to_string(all.size() - shown) + " more";
    return " at " + text(event.position()) + ", proposed " + text(event.proposedAction()) + " of "
           + text(event.possibleActions()) + withModifiers(event.modifiers()) + ", "
           + (event.source() ? "" : "from elsewhere, ") + formats;
}

std::string describe(const VXGestureEvent2& event)
{
    static constexpr const char* states[] = {"", " started", " updated", " finished", " canceled"};
    const VXGestureEvent2::Details& details = event.details();
    std::string result = std::string(" ") + text(details.type) + nameOf(details.state, states, "")
                         + " at " + text(details.hotSpot);
    if (details.type == GestureType::Pan)
        result += ", by " + text(details.offset);
    if (details.type == GestureType::Pinch)
        result += ", scale " + number(details.totalScale) + ", turned by "
                  + number(details.rotation) + " degrees";
    return result;
}

std::string describe(const VXTouchEvent2& event)
{
    static constexpr const char* states[] = {"unknown", "pressed", "moved", "still", "lifted"};
    std::string result;
    for (const TouchPoint& point : event.points()) {
        result += " [" + std::to_string(point.id) + " " + nameOf(point.state, states, "unknown")
                  + " at " + text(point.position) + ", pressure " + number(point.pressure) + "]";
    }
    return result;
}

} // namespace gallery
