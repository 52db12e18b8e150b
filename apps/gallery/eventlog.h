#pragma once

#include "voxi2/controls/vxabstractbutton2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/vxwidget2.h"

#include <deque>
#include <string>

namespace gallery {

/// The pane at the bottom: the last events that watched objects received.
class EventLog : public TROV::Listener {
public:
    explicit EventLog(VOXI::VXObject2* parent);

    VOXI::VXWidget2* widget() const { return m_pane; }

    /// Adds a line of its own.
    void add(const std::string& line);

    /// Shows every event of the widget under that name.
    void watch(VOXI::VXWidget2* widget, const std::string& name);
    /// The button's own events besides.
    void watchButton(VOXI::VXAbstractButton2* button, const std::string& name);

private:
    static constexpr std::size_t Lines = 8;

    VOXI::VXText2* m_pane;
    std::deque<std::string> m_lines;
    unsigned m_count = 0;
};

}  // namespace gallery
