#pragma once

#include <functional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

/// Whether a Wayland compositor shows the windows. It alone decides where they are, which of them
/// is in front, and which has the keyboard, and does not tell whether one is minimised.
bool isUnderCompositor();

/// What a compositor does not let programs do.
enum class CompositorRefusal { Raising, Placing, TellingMinimized };

/// Says so in the log, the first time, where a compositor shows the windows; otherwise nothing.
void noteRefusal(CompositorRefusal refusal);

/// Hides a shown window, calls `change` and shows it again, without a report of any of that: what a
/// compositor shows stays where it is, but it asks where to put what comes. The window may be
/// destroyed meanwhile.
void showAnew(QWidget* window, const std::function<void()>& change);

} // namespace VOXI
