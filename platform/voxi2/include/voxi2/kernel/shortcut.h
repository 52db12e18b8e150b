#pragma once

namespace VOXI {

/// Where a shortcut works: while the focus is in the widget, in its window, anywhere in the
/// program, or in the widget and what it contains.
enum class ShortcutContext : int { Widget, Window, Application, WidgetWithChildren };

} // namespace VOXI
