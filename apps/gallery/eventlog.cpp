#include "eventlog.h"

#include "eventtext.h"
#include "ui.h"

namespace gallery {

using namespace VOXI;

EventLog::EventLog(VXObject2* parent)
{
    const Box outside = row(parent);
    outside.layout->setMargins({12, 4, 12, 8});
    m_outside = outside.panel;
    VXButton2* clear = button(outside.panel, "C&lear", "clear-log");
    clear->setFocusPolicy(FocusPolicy::Tab); // a click leaves it to the page
    clear->clicked().connect(this, [this] { this->clear(); });

    const Frame paper = frame(outside.panel, PaperColor);
    m_pane = new VXText2(paper.inside.panel);
    m_pane->setObjectName("log");
    m_pane->setAlignment(AlignmentFlag::Left | AlignmentFlag::Top);
    m_pane->setAccessibleName("Event log");
    // Long lines are cut off; they must not widen the window.
    m_pane->setSizePolicy(Policy::Ignored, Policy::Preferred);
    m_pane->setMinimumSize({-1, 126});
    paper.inside.layout->addWidget(m_pane);
    outside.layout->addWidget(paper.outside, 1);
    outside.layout->addWidget(clear, 0, AlignmentFlag::Top);
}

void EventLog::add(const std::string& line)
{
    m_lines.push_back(std::to_string(++m_count) + "  " + line);
    if (m_lines.size() > Lines)
        m_lines.pop_front();
    showLines();
}

void EventLog::clear()
{
    m_lines.clear();
    m_count = 0;
    showLines();
}

void EventLog::showLines()
{
    std::string all;
    for (const std::string& each : m_lines)
        all += (all.empty() ? "" : "\n") + each;
    m_pane->setText(all);
}

TROV::ConnectionHandle EventLog::watch(VXWidget2* widget, WidgetEvent event,
                                       const std::string& name)
{
    const auto log = [&](const auto& signal) {
        return signal.connect(this, [this, name, event](const auto& what) {
            add(name + ": " + eventName(event) + describe(what));
        });
    };
    switch (event) {
    case WidgetEvent::Close:
        return log(widget->closing());
    case WidgetEvent::ContextMenu:
        return log(widget->contextMenuRequested());
    case WidgetEvent::DragEnter:
        return log(widget->dragEntered());
    case WidgetEvent::DragLeave:
        return log(widget->dragLeft());
    case WidgetEvent::DragMove:
        return log(widget->dragMoved());
    case WidgetEvent::Drop:
        return log(widget->dropped());
    case WidgetEvent::MouseEnter:
        return log(widget->mouseEntered());
    case WidgetEvent::FocusIn:
        return log(widget->focusGained());
    case WidgetEvent::FocusOut:
        return log(widget->focusLost());
    case WidgetEvent::Hide:
        return log(widget->hidden());
    case WidgetEvent::KeyPress:
        return log(widget->keyPressed());
    case WidgetEvent::KeyRelease:
        return log(widget->keyReleased());
    case WidgetEvent::MouseLeave:
        return log(widget->mouseLeft());
    case WidgetEvent::MouseDoubleClick:
        return log(widget->mouseDoubleClicked());
    case WidgetEvent::MouseMove:
        return log(widget->mouseMoved());
    case WidgetEvent::MousePress:
        return log(widget->mousePressed());
    case WidgetEvent::MouseRelease:
        return log(widget->mouseReleased());
    case WidgetEvent::Wheel:
        return log(widget->wheelTurned());
    case WidgetEvent::Move:
        return log(widget->moved());
    case WidgetEvent::Resize:
        return log(widget->resized());
    case WidgetEvent::Gesture:
        return log(widget->gestured());
    case WidgetEvent::TouchBegin:
        return log(widget->touchBegan());
    case WidgetEvent::TouchUpdate:
        return log(widget->touchMoved());
    case WidgetEvent::TouchEnd:
        return log(widget->touchEnded());
    case WidgetEvent::Show:
        return log(widget->shown());
    case WidgetEvent::Other:
        break;
    }
    return log(widget->dragDetected());
}

void EventLog::watch(VXWidget2* widget, const std::string& name)
{
    for (unsigned i = 0; i < WidgetEventCount; ++i) {
        const auto event = static_cast<WidgetEvent>(i);
        switch (event) {
        case WidgetEvent::MouseMove:
        case WidgetEvent::DragMove:
        case WidgetEvent::Move:
        case WidgetEvent::Resize:
        case WidgetEvent::Show:
        case WidgetEvent::Hide:
            break;
        default:
            watch(widget, event, name);
        }
    }
}

void EventLog::watchButton(VXAbstractButton2* button, const std::string& name)
{
    watch(button, name);
    button->clicked().connect(this, [this, name] { add(name + ": clicked"); });
    button->toggled().connect(this, [this, name](const VXButtonToggleEvent2& event) {
        add(name + (event.isChecked() ? ": checked" : ": unchecked"));
    });
}

} // namespace gallery
