#include "eventlog.h"

namespace gallery {

using namespace VOXI;

namespace {

std::string text(VXPoint<int> point)
{
    return "(" + std::to_string(point.x) + ", " + std::to_string(point.y) + ")";
}

std::string text(Size<int> size)
{
    return std::to_string(size.width) + " x " + std::to_string(size.height);
}

std::string describe(const VXWidgetEvent2&)
{
    return {};
}

std::string describe(const VXMouseEvent2& event)
{
    return " at " + text(event.position());
}

std::string describe(const VXKeyEvent2& event)
{
    return " key " + std::to_string(static_cast<int>(event.key()));
}

std::string describe(const VXMoveEvent2& event)
{
    return " to " + text(event.position());
}

std::string describe(const VXResizeEvent2& event)
{
    return " to " + text(event.size());
}

}  // namespace

EventLog::EventLog(VXObject2* parent) : m_pane(new VXText2(parent))
{
    m_pane->setObjectName("log");
    m_pane->setAlignment(AlignmentFlag::Left | AlignmentFlag::Bottom);
    m_pane->setMinimumSize({-1, 140});
    m_pane->setAccessibleName(L"Event log");
}

void EventLog::add(const std::string& line)
{
    m_lines.push_back(std::to_string(++m_count) + "  " + line);
    if (m_lines.size() > Lines)
        m_lines.pop_front();
    std::string all;
    for (const std::string& each : m_lines)
        all += (all.empty() ? "" : "\n") + each;
    m_pane->setText(all);
}

void EventLog::watch(VXWidget2* widget, const std::string& name)
{
    const auto log = [&](const auto& signal, const char* what) {
        signal.connect(this, [this, name, what](const auto& event) {
            add(name + ": " + what + describe(event));
        });
    };
    log(widget->mouseEntered(), "mouse entered");
    log(widget->mouseLeft(), "mouse left");
    log(widget->mousePressed(), "mouse pressed");
    log(widget->mouseReleased(), "mouse released");
    log(widget->mouseDoubleClicked(), "double click");
    log(widget->wheelTurned(), "wheel turned");
    log(widget->keyPressed(), "key pressed");
    log(widget->keyReleased(), "key released");
    log(widget->focusGained(), "focus gained");
    log(widget->focusLost(), "focus lost");
    log(widget->contextMenuRequested(), "context menu requested");
    log(widget->dragDetected(), "drag detected");
    log(widget->moved(), "moved");
    log(widget->resized(), "resized");
    log(widget->shown(), "shown");
    log(widget->hidden(), "hidden");
    log(widget->closing(), "closing");
}

void EventLog::watchButton(VXAbstractButton2* button, const std::string& name)
{
    watch(button, name);
    button->clicked().connect(this, [this, name] { add(name + ": clicked"); });
    button->toggled().connect(this, [this, name](const VXButtonToggleEvent2& event) {
        add(name + (event.isChecked() ? ": checked" : ": unchecked"));
    });
}

}  // namespace gallery
