#pragma once

#include "trov/emitter.h"
#include "voxi2/kernel/vxwidget2.h"

#include <string>

namespace VOXI {

/// Writes down what a widget reports, each event by its signal's name and with what it says:
/// "mousePressed 11,12 Right/Right Shift", "keyReleased F4", "resized 10x20>30x40". Places on the
/// screen are written down only if they are others than those in the widget.
class Reports : public TROV::Listener
{
public:
    explicit Reports(const VXWidget2& widget);

    /// What has come since the last call, with semicolons between.
    std::string take();
    /// The same after a turn of the event loop, for what is not reported at once.
    std::string takeAfterTurn();

private:
    template <class E>
    void hear(const char* name, WidgetEvent type, TROV::Signal<void(const E&)> signal);

    const VXWidget2& m_widget;
    std::string m_text;
};

} // namespace VOXI
