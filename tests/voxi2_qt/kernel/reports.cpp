#include "reports.h"

#include "toolkit.h"
#include "voxi2_qt/kernel/qtinput.h"

#include <QKeySequence>
#include <QMetaEnum>

#include <gtest/gtest.h>
#include <sstream>
#include <utility>

namespace VOXI {

namespace {

std::ostream& operator<<(std::ostream& out, VXPoint<int> point)
{
    return out << point.x << ',' << point.y;
}

std::ostream& operator<<(std::ostream& out, Size<int> size)
{
    return out << size.width << 'x' << size.height;
}

/// The members' names in Qt without what they all end with.
template <class QtEnum>
std::string names(QtEnum value, const char* ending)
{
    QByteArray keys = QMetaEnum::fromType<QtEnum>().valueToKeys(static_cast<int>(value));
    return keys.replace(ending, "").toStdString();
}

std::string names(VXFlags<MouseButton> buttons) { return names(VX2Qt(buttons), "Button"); }

void write(std::ostream& out, VXFlags<Modifier> modifiers)
{
    if (modifiers)
        out << ' ' << names(VX2Qt(modifiers), "Modifier");
}

/// Where a mouse or context menu event was.
template <class E>
void writePlace(std::ostream& out, const E& event)
{
    out << ' ' << event.position();
    if (event.globalPosition() != event.widget()->mapToGlobal(event.position()))
        out << " on the screen " << event.globalPosition();
}

void write(std::ostream&, const VXWidgetEvent2&) {}

void write(std::ostream& out, const VXMouseEvent2& event)
{
    writePlace(out, event);
    out << ' ' << names(event.button()) << '/' << names(event.buttons());
    write(out, event.modifiers());
    if (event.wheelDelta() != VXPoint<int>())
        out << " by " << event.wheelDelta();
}

void write(std::ostream& out, const VXKeyEvent2& event)
{
    out << ' ' << QKeySequence(VX2Qt(event.key())).toString().toStdString();
    write(out, event.modifiers());
    if (!event.text().empty())
        out << " '" << QString::fromStdWString(event.text()).toStdString() << '\'';
    if (event.isAutoRepeat())
        out << " repeated";
    if (event.count() != 1)
        out << ' ' << event.count() << " times";
}

void write(std::ostream& out, const VXFocusEvent2& event)
{
    out << ' ' << names(VX2Qt(event.reason()), "FocusReason");
}

void write(std::ostream& out, const VXMoveEvent2& event)
{
    out << ' ' << event.oldPosition() << '>' << event.position();
}

void write(std::ostream& out, const VXResizeEvent2& event)
{
    out << ' ' << event.oldSize() << '>' << event.size();
}

void write(std::ostream& out, const VXContextMenuEvent2& event)
{
    const char* const reasons[] = {"Mouse", "Keyboard", "Other"};
    writePlace(out, event);
    out << ' ' << reasons[static_cast<int>(event.reason())];
}

void write(std::ostream& out, const VXDragEvent2& event) { out << ' ' << event.position(); }

} // namespace

Reports::Reports(const VXWidget2& widget) : m_widget(widget)
{
    hear("closing", WidgetEvent::Close, widget.closing());
    hear("contextMenuRequested", WidgetEvent::ContextMenu, widget.contextMenuRequested());
    hear("dragEntered", WidgetEvent::DragEnter, widget.dragEntered());
    hear("dragLeft", WidgetEvent::DragLeave, widget.dragLeft());
    hear("dragMoved", WidgetEvent::DragMove, widget.dragMoved());
    hear("dropped", WidgetEvent::Drop, widget.dropped());
    hear("mouseEntered", WidgetEvent::MouseEnter, widget.mouseEntered());
    hear("mouseLeft", WidgetEvent::MouseLeave, widget.mouseLeft());
    hear("focusGained", WidgetEvent::FocusIn, widget.focusGained());
    hear("focusLost", WidgetEvent::FocusOut, widget.focusLost());
    hear("shown", WidgetEvent::Show, widget.shown());
    hear("hidden", WidgetEvent::Hide, widget.hidden());
    hear("keyPressed", WidgetEvent::KeyPress, widget.keyPressed());
    hear("keyReleased", WidgetEvent::KeyRelease, widget.keyReleased());
    hear("mousePressed", WidgetEvent::MousePress, widget.mousePressed());
    hear("mouseReleased", WidgetEvent::MouseRelease, widget.mouseReleased());
    hear("mouseDoubleClicked", WidgetEvent::MouseDoubleClick, widget.mouseDoubleClicked());
    hear("mouseMoved", WidgetEvent::MouseMove, widget.mouseMoved());
    hear("wheelTurned", WidgetEvent::Wheel, widget.wheelTurned());
    hear("moved", WidgetEvent::Move, widget.moved());
    hear("resized", WidgetEvent::Resize, widget.resized());
    hear("dragDetected", WidgetEvent::MouseMove, widget.dragDetected());
}

std::string Reports::take() { return std::exchange(m_text, {}); }

std::string Reports::takeAfterTurn()
{
    turn();
    return take();
}

template <class E>
void Reports::hear(const char* name, WidgetEvent type, TROV::Signal<void(const E&)> signal)
{
    signal.connect(this, [=, this](const E& event) {
        EXPECT_EQ(event.type(), type) << name;
        EXPECT_EQ(event.widget(), &m_widget) << name;
        std::ostringstream text;
        text << name;
        write(text, event);
        m_text += (m_text.empty() ? "" : "; ") + text.str();
    });
}

} // namespace VOXI
