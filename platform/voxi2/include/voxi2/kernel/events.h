#pragma once

#include "voxi2/kernel/dragdrop.h"
#include "voxi2/kernel/focus.h"
#include "voxi2/kernel/gesture.h"
#include "voxi2/kernel/key.h"
#include "voxi2/kernel/mouse.h"
#include "voxi2/kernel/vxevent2.h"
#include "voxi2/kernel/widgetevent.h"
#include "voxi_util/geometry.h"
#include "voxi_util/vxflags.h"
#include "voxi_util/vxmimedata2.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VOXI {

class VXWidget2;

/// Something that happened to a widget; by itself: entered, left, shown, hidden.
class VXWidgetEvent2 : public VXEvent2<VXWidget2, WidgetEvent>
{
public:
    using VXEvent2::VXEvent2;
    VXWidget2* widget() const noexcept { return sender(); }
    WidgetEvent type() const noexcept { return value(); }
};

/// Press, release, double click, move, wheel, and the start of a drag.
class VXMouseEvent2 : public VXWidgetEvent2
{
public:
    VXMouseEvent2(VXWidget2* widget, WidgetEvent type, VXPoint<int> position,
                  VXPoint<int> globalPosition, MouseButton button, VXFlags<MouseButton> buttons,
                  VXFlags<Modifier> modifiers, VXPoint<int> wheelDelta = {}) noexcept
        : VXWidgetEvent2(widget, type),
          m_position(position),
          m_globalPosition(globalPosition),
          m_wheelDelta(wheelDelta),
          m_button(button),
          m_buttons(buttons),
          m_modifiers(modifiers)
    {}

    /// In the widget.
    VXPoint<int> position() const noexcept { return m_position; }
    /// On the screen.
    VXPoint<int> globalPosition() const noexcept { return m_globalPosition; }
    /// The button that caused it; none for moves and the wheel.
    MouseButton button() const noexcept { return m_button; }
    /// All buttons that are down.
    VXFlags<MouseButton> buttons() const noexcept { return m_buttons; }
    VXFlags<Modifier> modifiers() const noexcept { return m_modifiers; }
    /// How far the wheel turned, in eighths of a degree; (0, 0) unless it did. Positive is away
    /// from the user, or to the right.
    VXPoint<int> wheelDelta() const noexcept { return m_wheelDelta; }

private:
    VXPoint<int> m_position;
    VXPoint<int> m_globalPosition;
    VXPoint<int> m_wheelDelta;
    MouseButton m_button;
    VXFlags<MouseButton> m_buttons;
    VXFlags<Modifier> m_modifiers;
};

/// A key was pressed or released.
class VXKeyEvent2 : public VXWidgetEvent2
{
public:
    VXKeyEvent2(VXWidget2* widget, WidgetEvent type, Key key, VXFlags<Modifier> modifiers = {},
                std::wstring text = {}, bool autoRepeat = false, int count = 1)
        : VXWidgetEvent2(widget, type),
          m_key(key),
          m_modifiers(modifiers),
          m_text(std::move(text)),
          m_autoRepeat(autoRepeat),
          m_count(count)
    {}

    Key key() const noexcept { return m_key; }
    VXFlags<Modifier> modifiers() const noexcept { return m_modifiers; }
    /// What the key types; empty for keys that type nothing.
    const std::wstring& text() const noexcept { return m_text; }
    /// Sent because the key is held down.
    bool isAutoRepeat() const noexcept { return m_autoRepeat; }
    /// How many presses it stands for.
    int count() const noexcept { return m_count; }

private:
    Key m_key;
    VXFlags<Modifier> m_modifiers;
    std::wstring m_text;
    bool m_autoRepeat;
    int m_count;
};

/// The keyboard focus came or went.
class VXFocusEvent2 : public VXWidgetEvent2
{
public:
    VXFocusEvent2(VXWidget2* widget, WidgetEvent type, FocusReason reason) noexcept
        : VXWidgetEvent2(widget, type),
          m_reason(reason)
    {}

    FocusReason reason() const noexcept { return m_reason; }

private:
    FocusReason m_reason;
};

/// The widget was moved. Positions are in the parent; of windows on the screen.
class VXMoveEvent2 : public VXWidgetEvent2
{
public:
    VXMoveEvent2(VXWidget2* widget, VXPoint<int> oldPosition, VXPoint<int> position) noexcept
        : VXWidgetEvent2(widget, WidgetEvent::Move),
          m_oldPosition(oldPosition),
          m_position(position)
    {}

    VXPoint<int> oldPosition() const noexcept { return m_oldPosition; }
    VXPoint<int> position() const noexcept { return m_position; }

private:
    VXPoint<int> m_oldPosition;
    VXPoint<int> m_position;
};

/// The widget has another size.
class VXResizeEvent2 : public VXWidgetEvent2
{
public:
    VXResizeEvent2(VXWidget2* widget, Size<int> oldSize, Size<int> size) noexcept
        : VXWidgetEvent2(widget, WidgetEvent::Resize),
          m_oldSize(oldSize),
          m_size(size)
    {}

    /// (-1, -1) the first time.
    Size<int> oldSize() const noexcept { return m_oldSize; }
    Size<int> size() const noexcept { return m_size; }

private:
    Size<int> m_oldSize;
    Size<int> m_size;
};

/// The user asks for a context menu.
class VXContextMenuEvent2 : public VXWidgetEvent2
{
public:
    /// What the user asks with; `Other` is also the program's imitation.
    enum class Reason { Mouse, Keyboard, Other };

    VXContextMenuEvent2(VXWidget2* widget, VXPoint<int> position, VXPoint<int> globalPosition,
                        Reason reason) noexcept
        : VXWidgetEvent2(widget, WidgetEvent::ContextMenu),
          m_position(position),
          m_globalPosition(globalPosition),
          m_reason(reason)
    {}

    /// In the widget.
    VXPoint<int> position() const noexcept { return m_position; }
    /// On the screen.
    VXPoint<int> globalPosition() const noexcept { return m_globalPosition; }
    Reason reason() const noexcept { return m_reason; }

private:
    VXPoint<int> m_position;
    VXPoint<int> m_globalPosition;
    Reason m_reason;
};

/// The window is about to close. All copies of an event share one answer.
class VXCloseEvent2 : public VXWidgetEvent2
{
public:
    explicit VXCloseEvent2(VXWidget2* widget)
        : VXWidgetEvent2(widget, WidgetEvent::Close),
          m_refused(std::make_shared<bool>(false))
    {}

    /// Keeps the window open. Only counts while the event is being sent.
    void refuse() const noexcept { *m_refused = true; }
    bool isRefused() const noexcept { return *m_refused; }

private:
    std::shared_ptr<bool> m_refused;
};

/// Reads what is being dragged. The data may lie in another program, which is asked only for what
/// somebody wants to have.
class VXDragData2
{
public:
    virtual ~VXDragData2() = default;

    /// The best first.
    virtual std::vector<StringID> formats() const = 0;
    /// Empty when there is no such format.
    virtual any data(StringID format) const = 0;
};

/// Data is dragged over the widget, or dropped on it. All copies of an event share one answer.
///
/// The data of another program can be read on the toolkit's thread and only until the handlers
/// have returned; elsewhere and later there are no formats. Data dragged inside this program can be
/// read anywhere and as long as the event is kept.
class VXDragEvent2 : public VXWidgetEvent2
{
public:
    /// What is being dragged, and what becomes of it.
    struct Details
    {
        VXPoint<int> position{};                 ///< in the widget
        std::shared_ptr<const VXDragData2> data; ///< null when the drag leaves
        VXFlags<DropAction> possibleActions{};
        DropAction proposedAction = DropAction::Ignore;
        VXFlags<MouseButton> buttons{};
        VXFlags<Modifier> modifiers{};
        VXWidget2* source = nullptr; ///< null when it comes from another program
    };

    VXDragEvent2(VXWidget2* widget, WidgetEvent type)
        : VXWidgetEvent2(widget, type),
          m_shared(std::make_shared<Shared>())
    {}
    VXDragEvent2(VXWidget2* widget, WidgetEvent type, Details details) : VXDragEvent2(widget, type)
    {
        m_shared->m_details = std::move(details);
    }

    VXPoint<int> position() const noexcept { return m_shared->m_details.position; }
    /// The formats that the data can be had in, the best first; none when the drag leaves.
    std::vector<StringID> formats() const
    {
        const auto& data = m_shared->m_details.data;
        return data ? data->formats() : std::vector<StringID>();
    }
    /// Empty when there is no such format.
    any data(StringID format) const
    {
        const auto& data = m_shared->m_details.data;
        return data ? data->data(format) : any();
    }
    /// The data in all their formats. What lies in another program is fetched at every call, which
    /// may take its time: to look whether a drag is welcome, `formats` is enough.
    VXMimeData2 mimeData() const
    {
        VXMimeData2 result;
        for (const StringID format : formats())
            result.setData(format, data(format));
        return result;
    }
    VXFlags<DropAction> possibleActions() const noexcept
    {
        return m_shared->m_details.possibleActions;
    }
    DropAction proposedAction() const noexcept { return m_shared->m_details.proposedAction; }
    VXFlags<MouseButton> buttons() const noexcept { return m_shared->m_details.buttons; }
    VXFlags<Modifier> modifiers() const noexcept { return m_shared->m_details.modifiers; }
    VXWidget2* source() const noexcept { return m_shared->m_details.source; }

    /// What a handler has said.
    enum class Answer { None, Ignored, Accepted };

    /// Takes the data, with the given action; `Ignore` refuses it.
    void accept(DropAction action) const noexcept
    {
        m_shared->m_action = action;
        m_shared->m_answer = action == DropAction::Ignore ? Answer::Ignored : Answer::Accepted;
    }
    /// Takes the data with the proposed action.
    void acceptProposed() const noexcept { accept(proposedAction()); }
    void ignore() const noexcept { accept(DropAction::Ignore); }

    /// The last answer of a handler.
    Answer answer() const noexcept { return m_shared->m_answer; }
    /// What was accepted; `Ignore` as long as nobody accepted.
    DropAction acceptedAction() const noexcept { return m_shared->m_action; }

private:
    struct Shared
    {
        Details m_details;
        Answer m_answer = Answer::None;
        DropAction m_action = DropAction::Ignore;
    };
    std::shared_ptr<Shared> m_shared;
};

/// A gesture on a touch screen or touch pad.
class VXGestureEvent2 : public VXWidgetEvent2
{
public:
    struct Details
    {
        GestureType type = GestureType::Custom;
        GestureState state = GestureState::None;
        VXPoint<double> hotSpot{}; ///< on the screen
        VXPoint<double> offset{};  ///< of a pan, since it began
        double scale = 1;          ///< of a pinch, since the last event
        double totalScale = 1;     ///< of a pinch, since it began
        double rotation = 0;       ///< of a pinch, in degrees since it began
    };

    VXGestureEvent2(VXWidget2* widget, const Details& details) noexcept
        : VXWidgetEvent2(widget, WidgetEvent::Gesture),
          m_details(details)
    {}

    const Details& details() const noexcept { return m_details; }

private:
    Details m_details;
};

/// Fingers on a touch screen: the first came down, something changed, the last one left.
class VXTouchEvent2 : public VXWidgetEvent2
{
public:
    VXTouchEvent2(VXWidget2* widget, WidgetEvent type, std::vector<TouchPoint> points)
        : VXWidgetEvent2(widget, type),
          m_points(std::move(points))
    {}

    /// All fingers, those too that did not change.
    const std::vector<TouchPoint>& points() const noexcept { return m_points; }

private:
    std::vector<TouchPoint> m_points;
};

} // namespace VOXI
