#pragma once

#include "voxi2/kernel/events.h"

#include <string>

namespace gallery {

/// What an event is called in the log.
const char* eventName(VOXI::WidgetEvent event);

// What an event says besides its name, for the log; begins with a space or is empty.
std::string describe(const VOXI::VXWidgetEvent2& event);
std::string describe(const VOXI::VXMouseEvent2& event);
std::string describe(const VOXI::VXKeyEvent2& event);
std::string describe(const VOXI::VXFocusEvent2& event);
std::string describe(const VOXI::VXMoveEvent2& event);
std::string describe(const VOXI::VXResizeEvent2& event);
std::string describe(const VOXI::VXContextMenuEvent2& event);
std::string describe(const VOXI::VXCloseEvent2& event);
std::string describe(const VOXI::VXDragEvent2& event);
std::string describe(const VOXI::VXGestureEvent2& event);
std::string describe(const VOXI::VXTouchEvent2& event);

/// "copy | move"
std::string text(VOXI::VXFlags<VOXI::DropAction> actions);

} // namespace gallery
