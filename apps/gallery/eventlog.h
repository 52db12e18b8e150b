#pragma once

#include "voxi2/controls/vxabstractbutton2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/vxwidget2.h"

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace gallery {

/// The last events that watched objects received.
class EventLog : public TROV::Listener
{
public:
    explicit EventLog(VOXI::VXObject2* parent);

    VOXI::VXWidget2* widget() const { return m_outside; }

    /// Adds a line of its own.
    void add(const std::string& line);
    void clear();

    /// Shows what a user does to the widget, under that name; without the floods that moving the
    /// mouse makes.
    void watch(VOXI::VXWidget2* widget, const std::string& name);
    /// Shows the events of one kind. `WidgetEvent::Other` stands for the start of a drag.
    TROV::ConnectionHandle watch(VOXI::VXWidget2* widget, VOXI::WidgetEvent event,
                                 const std::string& name);
    /// The button's own events besides.
    void watchButton(VOXI::VXAbstractButton2* button, const std::string& name);

    /// Keeps something of a page until the window and all its widgets are gone.
    void keep(std::shared_ptr<void> thing) { m_kept.push_back(std::move(thing)); }

private:
    static constexpr std::size_t Lines = 7;

    void showLines();

    VOXI::VXWidget2* m_outside;
    VOXI::VXText2* m_pane;
    std::deque<std::string> m_lines;
    std::vector<std::shared_ptr<void>> m_kept;
    unsigned m_count = 0;
};

} // namespace gallery
