#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"

#include <algorithm>
#include <array>
#include <memory>

namespace gallery {

using namespace VOXI;

namespace {

constexpr std::size_t Columns = 5;

struct Kind
{
    WidgetEvent m_event;
    const char* m_label;
    bool m_shown; ///< at first
};

constexpr Kind s_kinds[] = {
    {WidgetEvent::MousePress, "Press", true},
    {WidgetEvent::MouseRelease, "Release", true},
    {WidgetEvent::MouseDoubleClick, "Double click", true},
    {WidgetEvent::MouseMove, "Mouse move", false},
    {WidgetEvent::Wheel, "Wheel", true},
    {WidgetEvent::MouseEnter, "Enter", true},
    {WidgetEvent::MouseLeave, "Leave", true},
    {WidgetEvent::ContextMenu, "Context menu", true},
    {WidgetEvent::KeyPress, "Key press", true},
    {WidgetEvent::KeyRelease, "Key release", true},
    {WidgetEvent::FocusIn, "Focus in", true},
    {WidgetEvent::FocusOut, "Focus out", true},
    {WidgetEvent::DragEnter, "Drag enter", true},
    {WidgetEvent::DragMove, "Drag move", false},
    {WidgetEvent::DragLeave, "Drag leave", true},
    {WidgetEvent::Drop, "Drop", true},
    {WidgetEvent::Move, "Move", false},
    {WidgetEvent::Resize, "Resize", true},
    {WidgetEvent::Show, "Show", false},
    {WidgetEvent::Hide, "Hide", false},
    {WidgetEvent::Gesture, "Gesture", true},
    {WidgetEvent::TouchBegin, "Touch begin", true},
    {WidgetEvent::TouchUpdate, "Touch move", true},
    {WidgetEvent::TouchEnd, "Touch end", true},
    {WidgetEvent::Close, "Close", true},
};

using Switch = std::function<void(WidgetEvent, bool)>;

/// A block of switches, one for each kind of event.
VXPanel2* switches(VXObject2* parent, const std::string& title, const std::string& prefix,
                   bool Kind::*initially, const Switch& turn)
{
    const Box block = column(parent, 2);
    block.layout->addWidget(heading(block.panel, title));
    Box line{};
    std::size_t count = 0;
    for (const Kind& kind : s_kinds) {
        if (count++ % Columns == 0) {
            line = row(block.panel, 2);
            block.layout->addWidget(line.panel);
        }
        VXButton2* each = button(line.panel, kind.m_label, prefix + kind.m_label);
        each->setCheckable(true);
        each->setChecked(initially && kind.*initially);
        each->setFocusPolicy(FocusPolicy::Tab); // a click leaves the pad the keyboard
        each->setSizePolicy(Policy::Ignored, Policy::Fixed);
        each->setMinimumSize({90 * std::max(each->font().pointSize(), 9) / 9, -1});
        each->toggled().connect(each, [turn, event = kind.m_event](const VXButtonToggleEvent2& e) {
            turn(event, e.isChecked());
        });
        line.layout->addWidget(each, 1);
    }
    return block.panel;
}

/// What the switches act on.
struct Pad
{
    VXPanel2* m_pad;
    VXButton2* m_inner;
    EventLog& m_log;
    std::array<std::array<TROV::ConnectionHandle, 2>, WidgetEventCount> m_shown;

    void show(WidgetEvent event, bool on)
    {
        auto& handles = m_shown[static_cast<unsigned>(event)];
        handles[0].disconnect();
        handles[1].disconnect();
        if (on)
            handles = {m_log.watch(m_pad, event, "pad"), m_log.watch(m_inner, event, "button")};
    }

    void consume(WidgetEvent event, bool on)
    {
        m_pad->setEventConsumed(event, on);
        m_inner->setEventConsumed(event, on);
    }
};

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = row(parent, 12);
    const Frame edge = frame(page.panel, PadColor);
    edge.outside->setMinimumSize({190, -1});
    edge.outside->setMaximumSize({190, -1});
    VXPanel2* panel = edge.inside.panel;
    panel->setObjectName("pad");
    panel->setAccessibleName("Pad");
    panel->setFocusPolicy(FocusPolicy::Strong);
    frameFocus(panel);
    panel->setAcceptDrops(true);
    panel->dragEntered().connect(panel, [](const VXDragEvent2& drag) { drag.acceptProposed(); });

    auto* hint = new VXText2("Click here, type, turn the wheel, press the right button, drag "
                             "something over.",
                             panel);
    hint->setWordWrap(true);
    VXButton2* inner = button(panel, "&Inside the pad", "pad-button");
    edge.inside.layout->addWidget(heading(panel, "Pad"));
    edge.inside.layout->addWidget(hint);
    edge.inside.layout->addStretch();
    edge.inside.layout->addWidget(inner);
    inner->clicked().connect(&log, [&log] { log.add("button: clicked"); });

    const auto pad = std::make_shared<Pad>(Pad{panel, inner, log, {}});
    for (const Kind& kind : s_kinds)
        pad->show(kind.m_event, kind.m_shown);
    log.watch(panel, WidgetEvent::Other, "pad");

    const Box both = column(page.panel, 10);
    both.layout->addWidget(switches(both.panel, "Shown in the log", "show-", &Kind::m_shown,
                                    [pad](WidgetEvent event, bool on) { pad->show(event, on); }));
    both.layout->addWidget(
        switches(both.panel, "Consumed", "consume-", nullptr,
                 [pad](WidgetEvent event, bool on) { pad->consume(event, on); }));
    both.layout->addStretch();
    page.layout->addWidget(edge.outside);
    page.layout->addWidget(both.panel, 1);
    return page.panel;
}

} // namespace

Page eventsPage()
{
    return {"events", "Events",
            "Everything that happens to the pad and to the button in it. A consumed event is still "
            "reported, but the widget itself does not get it.",
            &create};
}

} // namespace gallery
